#include "ScreenTest.h"
#include "domain/Store.h"
#include "screens/PlayerName.h"
#include "screens/ctlPlayerlist.h"
#include "sdk/controls/LarkButton.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>

#include <algorithm>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class PlayerList : public ScreenTest
{
protected:
    ctlPlayerlist &Show(int players)
    {
        Start();
        for (int i = 1; i <= players; ++i) GivenPlayer(S("Player %1").arg(i));
        auto *list = new ctlPlayerlist(m_Area.get());
        Open(list);
        list->ListPlayers();
        return *list;
    }
    int Buttons()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return static_cast<int>(m_Area->findChildren<LarkButton *>().size());
    }
};

class NameStrip : public ScreenTest
{
protected:
    PlayerName &Show(const QString &name)
    {
        Start();
        GivenPlayer(name);
        auto *strip = new PlayerName(m_Area.get());
        m_Other = new QLineEdit(m_Area.get());
        m_Other->setGeometry(10, 200, 100, 20);
        Open(strip);
        strip->setGeometry(0, 0, 632, 44);
        strip->SkinUp();
        strip->ShowDetails();
        m_Name = At<QLineEdit>(S("txtName"));
        m_Other->setFocus();
        return *strip;
    }
    void Rewrite(const QString &name)
    {
        m_Name->clear();
        QTest::keyClicks(m_Name, name);
    }
    QString Stored() { return m_Store.Ask(S("SELECT PlayerName FROM Player ORDER BY PlayerKey")); }

    QLineEdit *m_Name = nullptr;
    QLineEdit *m_Other = nullptr;
};
} // namespace

TEST_F(PlayerList, WithoutPlayersTheOnlyButtonAdds)
{
    Show(0);
    EXPECT_EQ(Buttons(), 1);
    EXPECT_EQ(Text(S("butPlayer(0)")), Word(1001));
    EXPECT_EQ(At<LarkButton>(S("butPlayer(0)"))->Tag(), S("0"));
}

TEST_F(PlayerList, SevenPlayersAndOneButtonThatAdds)
{
    Show(7);
    EXPECT_EQ(Buttons(), 8);
    EXPECT_EQ(Text(S("butPlayer(7)")), Word(1001));
    EXPECT_EQ(Text(S("butPlayer(6)")), S("Player 7"));
    Photograph(S("players-seven"));
}

TEST_F(PlayerList, EightPlayersLeaveNoButtonToAdd)
{
    Show(8);
    EXPECT_EQ(Buttons(), 8);
    EXPECT_EQ(Text(S("butPlayer(7)")), S("Player 8"));
}

TEST_F(PlayerList, ANewNameStandsOnItsButtonOnceTheListIsShownAgain)
{
    ctlPlayerlist &list = Show(2);
    auto *strip = new PlayerName(m_Area.get());
    Open(strip);
    strip->ShowDetails();
    Click(S("cmdUpdate"));
    QTest::keyClicks(At(S("txtName")), S("Anna"));
    Click(S("cmdUpdate"));
    EXPECT_EQ(modMain::CurrentPlayer->Name, S("Anna"));
    EXPECT_EQ(Text(S("butPlayer(1)")), S("Player 2"));
    list.ListPlayers();
    EXPECT_EQ(Text(S("butPlayer(1)")), S("Anna"));
}

TEST_F(PlayerList, ANinthPlayerIsStillListedAndCanBeReached)
{
    Show(9);
    EXPECT_EQ(Buttons(), 9);
    EXPECT_EQ(Text(S("butPlayer(8)")), S("Player 9"));
    At(S("butPlayer(8)"))->setFocus();
    EXPECT_LE(Place(S("butPlayer(8)")).bottom(), m_Screen->height());
}

TEST_F(PlayerList, ButtonsStandSixtyApartAndInTheMiddle)
{
    Show(3);
    EXPECT_EQ(Place(S("butPlayer(0)")), QRect(166, 10, 300, 50));
    EXPECT_EQ(Place(S("butPlayer(1)")), QRect(166, 70, 300, 50));
    EXPECT_EQ(Place(S("butPlayer(3)")), QRect(166, 190, 300, 50));
    m_Screen->resize(500, 400);
    EXPECT_EQ(Place(S("butPlayer(2)")), QRect(100, 130, 300, 50));
}

TEST_F(PlayerList, AllButtonsGetTheWidePictures)
{
    ctlPlayerlist &list = Show(1);
    EXPECT_TRUE(m_Framework->Skinned.contains(S("butPlayer(1) Button300"))) << "one that is new";
    m_Framework->Skinned.clear();
    list.SkinUp();
    EXPECT_EQ(m_Framework->Skinned.join(u','), S("butPlayer(0) Button300,butPlayer(1) Button300"));
}

TEST_F(PlayerList, AButtonTellsTheKeyAndNotThePosition)
{
    ctlPlayerlist &list = Show(2);
    modMain::Players->Remove((*modMain::Players->begin())->Key);
    list.ListPlayers();
    QSignalSpy told(&list, &ctlPlayerlist::Player);
    Click(S("butPlayer(0)"));
    Click(S("butPlayer(1)"));
    EXPECT_EQ(told[0][0].toInt(), 2);
    EXPECT_EQ(told[1][0].toInt(), 0);
    EXPECT_TRUE(TakeOnly("highbeep"));
}

TEST_F(PlayerList, TheListMayBeRebuiltInsideAClick)
{
    ctlPlayerlist &list = Show(3);
    QObject::connect(&list, &ctlPlayerlist::Player, &list, [&list](std::int32_t key) {
        modMain::Players->Remove(key);
        list.ListPlayers();
    });
    Click(S("butPlayer(2)"));
    QTest::qWait(1);
    EXPECT_EQ(Buttons(), 3);
    EXPECT_EQ(Text(S("butPlayer(2)")), Word(1001));
}

TEST_F(NameStrip, ControlsStandAsDesigned)
{
    Show(S("Ann"));
    EXPECT_EQ(At(S("picDetails"))->geometry(), QRect(2, 3, 628, 38));
    EXPECT_EQ(At(S("lblTitle"))->geometry(), QRect(0, 0, 113, 35));
    EXPECT_EQ(At(S("txtName"))->geometry(), QRect(118, 5, 157, 33));
    EXPECT_EQ(At(S("cmdDelete"))->geometry(), QRect(508, 8, 120, 23));
    EXPECT_EQ(At(S("cmdUpdate"))->geometry(), QRect(386, 8, 120, 23));
    EXPECT_EQ(At(S("shpDetails"))->geometry(), QRect(0, 0, 631, 44));
    Photograph(S("name-locked"));
}

TEST_F(NameStrip, EditOpensTheBoxWithAllOfItSelected)
{
    Show(S("Ann"));
    EXPECT_TRUE(m_Name->isReadOnly());
    EXPECT_EQ(Text(S("cmdUpdate")), Word(502));
    Click(S("cmdUpdate"));
    EXPECT_FALSE(m_Name->isReadOnly());
    EXPECT_TRUE(m_Name->hasFrame());
    EXPECT_TRUE(m_Name->hasFocus());
    EXPECT_EQ(m_Name->selectedText(), S("Ann"));
    EXPECT_EQ(Text(S("cmdUpdate")), Word(504));
    EXPECT_TRUE(TakeOnly("highbeep"));
    Photograph(S("name-editing"));
}

TEST_F(NameStrip, TheButtonSavesAndLocks)
{
    Show(S("Ann"));
    Click(S("cmdUpdate"));
    Rewrite(S("Anna"));
    Click(S("cmdUpdate"));
    EXPECT_EQ(Stored(), S("Anna"));
    EXPECT_TRUE(m_Name->isReadOnly());
    EXPECT_FALSE(m_Name->hasFrame());
    EXPECT_EQ(Text(S("cmdUpdate")), Word(502));
}

TEST_F(NameStrip, EnterWhileEditingSaves)
{
    Show(S("Ann"));
    Click(S("cmdUpdate"));
    Rewrite(S("Anna"));
    QTest::keyClick(m_Name, Qt::Key_Return);
    EXPECT_EQ(Stored(), S("Anna"));
    EXPECT_TRUE(At(S("cmdUpdate"))->hasFocus());
    EXPECT_TRUE(m_Name->isReadOnly());
}

TEST_F(NameStrip, EnterWhileLockedOpensTheBox)
{
    Show(S("Ann"));
    m_Name->setFocus();
    QTest::keyClick(m_Name, Qt::Key_Return);
    EXPECT_FALSE(m_Name->isReadOnly());
    EXPECT_TRUE(At(S("cmdUpdate"))->hasFocus());
    EXPECT_EQ(Text(S("cmdUpdate")), Word(504));
}

TEST_F(NameStrip, LeavingTheBoxSaves)
{
    Show(S("Ann"));
    Click(S("cmdUpdate"));
    Rewrite(S("Anna"));
    QTest::mouseClick(m_Other, Qt::LeftButton);
    EXPECT_EQ(Stored(), S("Anna"));
    EXPECT_TRUE(m_Name->isReadOnly());
}

TEST_F(NameStrip, AnEmptyNameBlanksAndANameThatIsTakenAreNames)
{
    PlayerName &strip = Show(S("Bob"));
    GivenPlayer(S("Ann"));
    strip.ShowDetails();
    for (const char *name : {"", "  ", " Bob ", "Bob"}) {
        Click(S("cmdUpdate"));
        Rewrite(S(name));
        Click(S("cmdUpdate"));
        EXPECT_EQ(Stored(), S("Bob\n") + S(name));
    }
}

TEST_F(NameStrip, ANameIsSavedOnceByItsButtonAndByEnter)
{
    Show(S("Ann"));
    int saves = 0;
    modMain::GetConnection().BeforeCall = [&](const QString &sql) {
        saves += sql.startsWith(S("update"), Qt::CaseInsensitive) ? 1 : 0;
    };
    Click(S("cmdUpdate"));
    Rewrite(S("Anna"));
    EXPECT_EQ(saves, 0);
    Click(S("cmdUpdate"));
    EXPECT_EQ(saves, 1);
    m_Other->setFocus();
    Click(S("cmdUpdate"));
    Rewrite(S("Annika"));
    QTest::keyClick(m_Name, Qt::Key_Enter);
    EXPECT_EQ(saves, 2);
    modMain::GetConnection().BeforeCall = nullptr;
}

TEST_F(NameStrip, WhatIsWrittenSurvivesANewSkinAndTheButtonStillSaves)
{
    PlayerName &strip = Show(S("Ann"));
    Click(S("cmdUpdate"));
    Rewrite(S("Anna"));
    strip.SkinUp();
    EXPECT_FALSE(m_Name->isReadOnly());
    EXPECT_EQ(m_Name->text(), S("Anna"));
    Click(S("cmdUpdate"));
    EXPECT_EQ(Stored(), S("Anna"));
    EXPECT_TRUE(m_Name->isReadOnly());
}

TEST_F(NameStrip, ShowingThePlayerLeavesTheStateAlone)
{
    PlayerName &strip = Show(S("Ann"));
    Click(S("cmdUpdate"));
    strip.ShowDetails();
    EXPECT_FALSE(m_Name->isReadOnly());
    EXPECT_EQ(Text(S("cmdUpdate")), Word(504));
}

TEST_F(NameStrip, AMenuOverTheBoxDoesNotSave)
{
    Show(S("Ann"));
    Click(S("cmdUpdate"));
    QFocusEvent away(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(m_Name, &away);
    EXPECT_FALSE(m_Name->isReadOnly());
}

TEST_F(NameStrip, ABoxThatOnlyLostItsWindowStaysOpen)
{
    Show(S("Ann"));
    Click(S("cmdUpdate"));
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(m_Name, &away);
    EXPECT_FALSE(m_Name->isReadOnly());
}

TEST_F(NameStrip, DeletingIsRefusedByAnyOtherAnswerThanYes)
{
    PlayerName &strip = Show(S("Ann"));
    QSignalSpy deleted(&strip, &PlayerName::DeletePlayer);
    for (const int answer : {7, 2, 1, 0}) {
        m_Framework->NextAnswer = answer;
        Click(S("cmdDelete"));
    }
    EXPECT_EQ(deleted.count(), 0);
    EXPECT_EQ(m_Framework->Boxes.size(), 4U);
    EXPECT_EQ(m_Framework->Boxes[0].Message, Word(505));
    EXPECT_EQ(m_Framework->Boxes[0].Options, 4);
    EXPECT_EQ(m_Framework->Boxes[0].FontSize, 16);
    EXPECT_TRUE(TakeOnly("highbeep"));
    m_Framework->NextAnswer = 6;
    Click(S("cmdDelete"));
    EXPECT_EQ(deleted.count(), 1);
}

TEST_F(NameStrip, APlayerDeletedWhileTheNameIsEditedIsNotWrittenAgain)
{
    PlayerName &strip = Show(S("Ann"));
    QObject::connect(&strip, &PlayerName::DeletePlayer, &strip, [&strip] {
        modMain::Players->Remove(modMain::CurrentPlayer->Key);
        modMain::CurrentPlayer.reset();
        strip.hide();
    });
    Click(S("cmdUpdate"));
    Rewrite(S("Anna"));
    m_Framework->NextAnswer = 6;
    Click(S("cmdDelete"));
    EXPECT_EQ(m_Store.Ask(S("SELECT COUNT(*) FROM Player")), S("0"));
}

TEST_F(NameStrip, ANameThatIsTooLongEndsInDots)
{
    Show(S("M").repeated(40));
    const QImage box = m_Name->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    // The last pixels on the right hold dots: something on the line of the letters, nothing in their upper half.
    const int middle = (m_Name->height() - m_Name->textMargins().bottom()) / 2;
    const auto darkest = [&](int top, int bottom) {
        int value = 255;
        for (int y = top; y < bottom; ++y)
            for (int x = box.width() - 12; x < box.width(); ++x) value = std::min(value, qGray(box.pixel(x, y)));
        return value;
    };
    EXPECT_GT(darkest(0, middle), 200);
    EXPECT_LT(darkest(middle, box.height()), 100);
}

TEST_F(NameStrip, ALongNameIsWrittenSmaller)
{
    Show(S("Wolfgang Amadeus & <b>Sons</b>"));
    EXPECT_LT(m_Name->font().pixelSize(), 21);
    Photograph(S("name-long"));
}
