#include "ScreenTest.h"
#include "domain/CPlayerGame.h"
#include "domain/Store.h"
#include "platform/Clock.h"
#include "screens/ctlGameList.h"
#include "sdk/controls/LarkButton.h"
#include "skin/ctlButtonPanel.h"
#include "tests/support/HttpServer.h"

#include <QApplication>
#include <QTimer>

#include <QDir>
#include <QLocale>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class GameList : public ScreenTest
{
protected:
    ctlGameList &Show()
    {
        m_List = new ctlGameList(m_Area.get());
        Open(m_List);
        m_List->LoadCatList();
        return *m_List;
    }
    void StartWithAnn()
    {
        GivenGame(S("Arrows"), S("Attention"), S("timelimit=60\r\nlevels=8"));
        GivenGame(S("Beacons"), S("Attention"), S("timelimit=60"));
        GivenGame(S("Corners"), S("Logic"), S("timelimit=60\r\nlevels=0"));
        Start();
        GivenPlayer(S("Ann"));
    }
    ctlButtonPanel &Panel(const char *name) { return *At<ctlButtonPanel>(S(name)); }
    void Choose(const char *panel, int row) { Panel(panel).SetSelection(row); }
    void Practised(const QString &game, std::int32_t score, std::int32_t time, std::int32_t level = 1,
                   std::int32_t mode = 3)
    {
        CPlayer &player = *modMain::CurrentPlayer;
        player.GamesPlayed().Add(player.Key, Game(game)->Key, score, time, score * 10, mode, level, 0);
    }
    QString Line(int row)
    {
        QStringList cells;
        for (const char *name : {"lblPos", "lblName", "lblScore", "lblTimeTaken", "lblDate"})
            cells << Text(S("%1(%2)").arg(QLatin1String(name)).arg(row));
        return cells.join(u' ');
    }
    QString Chosen()
    {
        return ShownOf({S("cCatList"), S("lblCat"), S("cGameList"), S("lblGame"), S("cLevels"), S("lblLevel"),
                        S("cmdPlay"), S("cmdInstructions")});
    }

    ctlGameList *m_List = nullptr;
};
} // namespace

TEST_F(GameList, ControlsStandAsDesigned)
{
    StartWithAnn();
    Show();
    EXPECT_EQ(Place(S("lblTitle")), QRect(114, 3, 404, 33));
    EXPECT_EQ(Place(S("cGameList")).topLeft(), QPoint(238, 60));
    EXPECT_EQ(Place(S("cCatList")).topLeft(), QPoint(72, 60));
    EXPECT_EQ(Place(S("cLevels")).topLeft(), QPoint(404, 61));
    EXPECT_EQ(Place(S("cmdPlay")), QRect(422, 175, 120, 23));
    EXPECT_EQ(Place(S("cmdInstructions")), QRect(422, 202, 120, 23));
    EXPECT_EQ(Place(S("lblLevel")), QRect(404, 39, 144, 18));
    EXPECT_EQ(Place(S("lblBestTime")), QRect(98, 249, 337, 24));
    EXPECT_EQ(Place(S("lblDateTitle")).topLeft(), QPoint(388, 275));
    EXPECT_EQ(Place(S("lblName(4)")), QRect(118, 399, 107, 21));
    EXPECT_EQ(Place(S("lblTimeTaken(2)")), QRect(306, 348, 43, 21));
}

TEST_F(GameList, WhatIsChosenDecidesWhatIsShown)
{
    StartWithAnn();
    Show();
    EXPECT_EQ(Chosen(), S("cCatList lblCat"));
    EXPECT_EQ(Line(0), S("1. - - - -"));
    Choose("cCatList", 1);
    EXPECT_EQ(Chosen(), S("cCatList lblCat cGameList lblGame"));
    EXPECT_EQ(Panel("cGameList").Count(), 2);
    Choose("cGameList", 1);
    EXPECT_EQ(Chosen(), S("cCatList lblCat cGameList lblGame cLevels lblLevel cmdPlay cmdInstructions"));
    EXPECT_EQ(Panel("cLevels").Count(), 8);
    EXPECT_EQ(Panel("cLevels").Selection(), 1);
    Photograph(S("practice"));
    Choose("cCatList", 2);
    EXPECT_EQ(Chosen(), S("cCatList lblCat cGameList lblGame"));
}

TEST_F(GameList, LevelsMissingOrZeroMeanOne)
{
    StartWithAnn();
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 2);
    EXPECT_EQ(Panel("cLevels").Count(), 1);
    Choose("cCatList", 2);
    Choose("cGameList", 1);
    EXPECT_EQ(Panel("cLevels").Count(), 1);
}

TEST_F(GameList, PlayStartsTheGameAtTheChosenLevel)
{
    StartWithAnn();
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    Choose("cLevels", 3);
    Click(S("cmdPlay"));
    EXPECT_EQ(m_Form.TakeCalls(), S("StartGame Arrows 3"));
    Click(S("cmdInstructions"));
    EXPECT_EQ(m_Form.TakeCalls(), S("Instructions Arrows 3"));
    EXPECT_TRUE(TakeOnly("highbeep"));
}

TEST_F(GameList, TheTableListsPracticeOfAllPlayersBestFirst)
{
    StartWithAnn();
    SetToday(2026, 3, 5);
    Practised(S("Arrows"), 80, 60);
    Practised(S("Arrows"), 99, 10, 2);
    Practised(S("Arrows"), 97, 10, 1, 1);
    GivenPlayer(S("Bob"));
    Practised(S("Arrows"), 80, 59);
    Practised(S("Arrows"), 90, 125);
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    EXPECT_EQ(Line(0), S("1. Bob 90% 2:05 05-Mar-26"));
    EXPECT_EQ(Line(1), S("2. Bob 80% 0:59 05-Mar-26"));
    EXPECT_EQ(Line(2), S("3. Ann 80% 1:00 05-Mar-26"));
    EXPECT_EQ(Line(3), S("4. - - - -"));
    Photograph(S("practice-results"));
    Choose("cLevels", 2);
    EXPECT_EQ(Line(0), S("1. Ann 99% 0:10 05-Mar-26"));
    Choose("cGameList", 2);
    EXPECT_EQ(Line(0), S("1. - - - -"));
}

TEST_F(GameList, TheResultOfADeletedPlayerStaysWithoutAName)
{
    StartWithAnn();
    SetToday(2026, 3, 5);
    Practised(S("Arrows"), 80, 60);
    modMain::Players->Remove(modMain::CurrentPlayer->Key);
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    EXPECT_EQ(Line(0), S("1. - 80% 1:00 05-Mar-26"));
}

TEST_F(GameList, GamesWithoutACategoryAreListedHere)
{
    GivenGame(S("Stray"), {});
    Start();
    Show();
    EXPECT_EQ(Panel("cCatList").Count(), 1);
}

TEST_F(GameList, ACategoryWithoutGamesShowsNoLevels)
{
    StartWithAnn();
    modMain::Categories->Add(S("Empty"));
    modMain::Categories->Load();
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    Choose("cCatList", 2);
    EXPECT_EQ(Panel("cGameList").Count(), 0);
    EXPECT_EQ(Chosen(), S("cCatList lblCat cGameList lblGame"));
    EXPECT_EQ(Line(0), S("1. - - - -"));
}

TEST_F(GameList, AGameWhoseFolderHasGoneHasOneLevel)
{
    StartWithAnn();
    ASSERT_TRUE(QDir(m_Store.Folder().Path() + S("Arrows")).removeRecursively());
    Start();
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    EXPECT_EQ(Panel("cLevels").Count(), 1);
    Click(S("cmdPlay"));
    EXPECT_EQ(m_Form.TakeCalls(), S("StartGame Arrows 1"));
}

TEST_F(GameList, DatesAreInTheDesktopsLanguage)
{
    QLocale::setDefault(QLocale(QLocale::German));
    SetToday(2026, 12, 5);
    StartWithAnn();
    Practised(S("Arrows"), 90, 65);
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    EXPECT_TRUE(Text(S("lblDate(0)")).startsWith(S("05-Dez"))) << Text(S("lblDate(0)")).toStdString();
    QLocale::setDefault(QLocale::c());
}

TEST_F(GameList, TheChoiceSurvivesLeavingTheScreen)
{
    StartWithAnn();
    ctlGameList &list = Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    Choose("cLevels", 4);
    list.hide();
    list.LoadCatList();
    list.show();
    Click(S("cmdPlay"));
    EXPECT_EQ(m_Form.TakeCalls(), S("StartGame Arrows 4"));
}

TEST_F(GameList, OnlineItemsAreShownOnlyOnline)
{
    StartWithAnn();
    Show();
    EXPECT_EQ(ShownOf({S("butUpload"), S("lblURL"), S("lblNewGames")}), QString());
    delete m_List;
    modMain::Online = true;
    ctlGameList &list = Show();
    EXPECT_EQ(ShownOf({S("butUpload"), S("lblURL"), S("lblNewGames")}), S("butUpload lblURL lblNewGames"));
    QString opened;
    list.OpenAddress = [&opened](const QString &address) { opened = address; };
    Click(S("lblURL"));
    EXPECT_EQ(opened, S("http://") + Text(S("lblURL")));
}

TEST_F(GameList, TheLinkIsTheScoreSiteOfTheSettingsElseTheOneBuiltIn)
{
    StartWithAnn();
    modMain::SettingsFile = m_Store.Folder().Path() + S("Settings.ini");
    Show();
    EXPECT_EQ(Text(S("lblURL")), S("scores.noggle.example.org"));
    EXPECT_FALSE(m_Store.Folder().Exists(S("Settings.ini"))) << "nothing is written by asking";
    delete m_List;
    m_Store.Folder().Write(S("Settings.ini"), "[Settings]\r\nScoreSite=brain.example.org:8080\r\n");
    Show();
    EXPECT_EQ(Text(S("lblURL")), S("brain.example.org:8080"));
    modMain::SettingsFile.clear();
}

TEST_F(GameList, TheLinkToASiteBehindTlsOpensItByThatScheme)
{
    StartWithAnn();
    modMain::Online = true;
    modMain::SettingsFile =
        m_Store.Folder().Write(S("Settings.ini"), "[Settings]\r\nScoreSite=https://brain.example.org/\r\n");
    ctlGameList &list = Show();
    QString opened;
    list.OpenAddress = [&opened](const QString &address) { opened = address; };
    Click(S("lblURL"));
    EXPECT_EQ(Text(S("lblURL")), S("brain.example.org"));
    EXPECT_EQ(opened, S("https://brain.example.org"));
    modMain::SettingsFile.clear();
}

TEST_F(GameList, UploadOpensTheDialogOverTheScreenAndMakesNoSound)
{
    StartWithAnn();
    modMain::Online = true;
    Show();
    TakeSounds();
    bool wasOpen = false;
    QTimer::singleShot(0, m_List, [&] {
        QWidget *const dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        wasOpen = dialog->objectName() == S("frmUpload");
        QTest::mouseClick(dialog->findChild<LarkButton *>(S("butOK")), Qt::LeftButton);
    });
    Click(S("butUpload"));
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(TakeSounds(), 0);
}

TEST_F(GameList, UploadOpensNoSecondDialogWhileTheFirstIsBusyThoughClosed)
{
    StartWithAnn();
    modMain::Online = true;
    HttpServer site(
        [](int, const QByteArray &) { return HttpServer::Reply{.Bytes = HttpServer::Ok(), .IsHeld = true}; });
    modMain::SettingsFile = m_Store.Folder().Write(
        S("Settings.ini"), "[Settings]\r\nEmail=a@example.org\r\nScoreSite=" + site.Host().toUtf8() + "\r\n");
    Practised(S("Arrows"), 80, 60);
    Show();
    bool wasTried = false;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
        QWidget *const dialog = QApplication::activeModalWidget();
        if (dialog != nullptr && site.Count() == 1) {
            QTest::mouseClick(dialog->findChild<LarkButton *>(S("butOK")), Qt::LeftButton);
            Click(S("butUpload"));
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            wasTried = true;
            site.Release();
        }
    });
    hand.start(5);
    QTimer::singleShot(0, m_List, [] {
        QTest::mouseClick(QApplication::activeModalWidget()->findChild<LarkButton *>(S("butUpload")), Qt::LeftButton);
    });
    Click(S("butUpload"));
    EXPECT_TRUE(wasTried);
    EXPECT_EQ(site.Count(), 1);
    EXPECT_TRUE(modMain::CurrentPlayer->GamesPlayed().Item(1)->Uploaded);
    modMain::SettingsFile.clear();
}

TEST_F(GameList, FortyGamesAndTwentyLevelsLeaveButtonsAndTableInReach)
{
    for (int i = 10; i < 50; ++i) GivenGame(S("Game %1").arg(i), S("Many"), S("timelimit=60\r\nlevels=20"));
    Start();
    GivenPlayer(S("Ann"));
    Show();
    Choose("cCatList", 1);
    Choose("cGameList", 1);
    EXPECT_EQ(Panel("cGameList").Count(), 40);
    const QWidget *above = m_Area->childAt(Place(S("cmdPlay")).center());
    EXPECT_EQ(above, At(S("cmdPlay")));
    EXPECT_EQ(m_Area->childAt(Place(S("lblName(2)")).center()), At(S("lblName(2)")));
    Photograph(S("practice-many"));
    Click(S("cmdPlay"));
    EXPECT_EQ(m_Form.TakeCalls(), S("StartGame Game 10 1"));
}
