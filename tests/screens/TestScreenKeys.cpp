// Every screen worked without a mouse: where Tab leads, and what the keys do there.
#include "ShownScreens.h"
#include "platform/Clock.h"
#include "screens/ctlGameList.h"
#include "sdk/controls/LarkButton.h"
#include "skin/ctlButtonPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextEdit>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class ScreenKeys : public ShownScreens
{
protected:
    /// The controls that Tab leads to, from the first one until it comes round.
    QString TabWalk()
    {
        QStringList names;
        if (QWidget *last = QApplication::focusWidget()) last->clearFocus();
        QTest::keyClick(m_Area.get(), Qt::Key_Tab);
        while (QApplication::focusWidget() != nullptr && !names.contains(Focused())) {
            names << Focused();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        return names.join(u' ');
    }
    static QString Focused()
    {
        return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
    }
    static void Press(int key) { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
    void TabTo(const QString &name)
    {
        for (int step = 0; step < 40 && Focused() != name; ++step) {
            QWidget *from = QApplication::focusWidget();
            QTest::keyClick(from == nullptr ? m_Area.get() : from, Qt::Key_Tab);
        }
        ASSERT_EQ(Focused().toStdString(), name.toStdString());
    }
};
} // namespace

TEST_F(ScreenKeys, APlayerIsChosenFromTheTopDown)
{
    QSignalSpy chosen(&ShowPlayers({S("Ann"), S("Bob")}), &ctlPlayerlist::Player);
    EXPECT_EQ(TabWalk(), S("butPlayer(0) butPlayer(1) butPlayer(2)"));
    TabTo(S("butPlayer(1)"));
    Press(Qt::Key_Return);
    Press(Qt::Key_Space);
    ASSERT_EQ(chosen.count(), 2);
    EXPECT_EQ(chosen[0][0].toInt(), 2);
    EXPECT_EQ(chosen[1][0].toInt(), 2);
}

TEST_F(ScreenKeys, AWorkoutIsBegunChosenAndPlayed)
{
    StartWithSixGames();
    GivenPlayer(S("Ann"));
    ShowWorkout();
    EXPECT_EQ(TabWalk(), S("butNextWorkout picCat(0) picCat(1) picCat(2)"));
    TabTo(S("butNextWorkout"));
    Press(Qt::Key_Return);
    EXPECT_EQ(TabWalk(), S("picCat(0) picCat(1) picCat(2) butPlay(0) butInstructions(0)"));
    TabTo(S("picCat(2)"));
    Press(Qt::Key_Space);
    EXPECT_EQ(Focused(), S("picCat(2)"));
    EXPECT_EQ(Text(S("lblGame(0)")), S("Echoes"));
    TabTo(S("butPlay(0)"));
    Press(Qt::Key_Enter);
    EXPECT_EQ(m_Form.TakeCalls(), S("PlayGame Echoes 1"));
    TabTo(S("butInstructions(0)"));
    Press(Qt::Key_Return);
    EXPECT_EQ(m_Form.TakeCalls(), S("Instructions Echoes 1"));
}

TEST_F(ScreenKeys, PlayIsNeverOutOfSightAndPageKeysReachTheRest)
{
    for (int i = 10; i < 50; ++i) GivenGame(S("Game %1").arg(i), S("Many"));
    Start();
    GivenPlayer(S("Ann"));
    GivenWorkout(Today());
    const auto last = Game(S("Game 48"));
    modMain::CurrentPlayer->GamesPlayed().Add(modMain::CurrentPlayer->Key, last->Key, 1, 1, 1, 3, 1, 0);
    ShowWorkout();
    TabTo(S("butPlay(39)"));
    EXPECT_TRUE(m_Screen->rect().contains(Place(S("butPlay(39)")))) << "the sheet follows";
    Press(Qt::Key_Return);
    EXPECT_EQ(m_Form.TakeCalls(), S("PlayGame Game 49 1"));
    for (int page = 0; page < 12; ++page) Press(Qt::Key_PageUp);
    EXPECT_EQ(Place(S("picGame(0)")).top(), 76);
    Press(Qt::Key_PageDown);
    EXPECT_LT(Place(S("picGame(0)")).top(), -200);
}

TEST_F(ScreenKeys, AGameIsPractisedFromLeftToRight)
{
    GivenGame(S("Arrows"), S("Attention"), S("timelimit=60\r\nlevels=3"));
    GivenGame(S("Corners"), S("Logic"));
    Start();
    GivenPlayer(S("Ann"));
    auto *list = new ctlGameList(m_Area.get());
    Open(list);
    list->LoadCatList();
    EXPECT_EQ(TabWalk(), S("cCatList tblBestTimes"));
    TabTo(S("cCatList"));
    Press(Qt::Key_Return);
    EXPECT_EQ(TabWalk(), S("cCatList cGameList tblBestTimes"));
    TabTo(S("cGameList"));
    Press(Qt::Key_Return);
    EXPECT_EQ(TabWalk(), S("cCatList cGameList cLevels cmdPlay cmdInstructions tblBestTimes"));
    TabTo(S("cLevels"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    TabTo(S("cmdPlay"));
    Press(Qt::Key_Return);
    EXPECT_EQ(m_Form.TakeCalls(), S("StartGame Arrows 3"));
    TabTo(S("cmdInstructions"));
    Press(Qt::Key_Space);
    EXPECT_EQ(m_Form.TakeCalls(), S("Instructions Arrows 3"));
}

TEST_F(ScreenKeys, TheScoreSiteIsReachedAndOpened)
{
    GivenGame(S("Arrows"), S("Attention"));
    Start();
    modMain::Online = true;
    auto *list = new ctlGameList(m_Area.get());
    Open(list);
    list->LoadCatList();
    QStringList opened;
    list->OpenAddress = [&opened](const QString &address) { opened << address; };
    EXPECT_EQ(TabWalk(), S("cCatList butUpload tblBestTimes lblURL"));
    TabTo(S("lblURL"));
    EXPECT_TRUE(At(S("lblURL"))->findChild<QWidget *>(S("FocusMark"))->isVisible());
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A}) Press(key);
    EXPECT_EQ(opened.count(S("http://") + Text(S("lblURL"))), 3);
    EXPECT_EQ(opened.size(), 3);
}

TEST_F(ScreenKeys, InstructionsAreScrolledReadAndLeft)
{
    QByteArray text = R"({\rtf1\ansi )";
    for (int i = 0; i < 80; ++i) text += R"(One more line.\par )";
    ctlGameInstructions &page = ShowInstructions(text + "}");
    QSignalSpy start(&page, &ctlGameInstructions::StartGame);
    QSignalSpy cancel(&page, &ctlGameInstructions::CancelGame);
    EXPECT_EQ(TabWalk(), S("txtInstructions butStartGame butCancelGame"));
    TabTo(S("txtInstructions"));
    const QScrollBar *bar = At<QTextEdit>(S("txtInstructions"))->verticalScrollBar();
    EXPECT_EQ(bar->value(), 0);
    Press(Qt::Key_PageDown);
    EXPECT_GT(bar->value(), 0);
    Press(Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    TabTo(S("butStartGame"));
    Press(Qt::Key_Return);
    EXPECT_EQ(start.count(), 1);
    TabTo(S("butCancelGame"));
    Press(Qt::Key_Return);
    EXPECT_EQ(cancel.count(), 1);
}

TEST_F(ScreenKeys, ThePageIsSelectedByTheMouseAndCopied)
{
    ShowInstructions(R"({\rtf1\ansi Look at the arrows.\par})");
    auto *box = At<QTextEdit>(S("txtInstructions"));
    QTest::mouseDClick(box->viewport(), Qt::LeftButton, {}, box->cursorRect().center() + QPoint(12, 0));
    EXPECT_EQ(box->textCursor().selectedText(), S("Look"));
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), S("Look"));
}

TEST_F(ScreenKeys, ARowOfTheWorkoutIsPlayedAndItIsCompleted)
{
    BeginWorkout();
    ctlUserInfo &info = ShowWorkoutRows();
    QSignalSpy go(&info, &ctlUserInfo::PlayGame);
    EXPECT_EQ(TabWalk(), S("butGo(0) butGo(2)"));
    TabTo(S("butGo(2)"));
    Press(Qt::Key_Return);
    ASSERT_EQ(go.count(), 1);
    EXPECT_EQ(go[0][0].toInt(), Category(S("Memory"))->Key);
    Finish(S("Arrows"), 10);
    Finish(S("Echoes"), 20);
    info.ShowDetails(1);
    EXPECT_EQ(TabWalk(), S("butComplete"));
    TabTo(S("butComplete"));
    Press(Qt::Key_Return);
    EXPECT_EQ(m_Store.Ask(S("SELECT WorkoutStatus FROM Workout")), S("1"));
}

TEST_F(ScreenKeys, ANameIsEditedSavedAndLeft)
{
    ShowName();
    EXPECT_EQ(TabWalk(), S("txtName cmdUpdate cmdDelete"));
    auto *name = At<QLineEdit>(S("txtName"));
    TabTo(S("cmdUpdate"));
    Press(Qt::Key_Return);
    ASSERT_TRUE(name->hasFocus()) << "the button opens the box";
    QTest::keyClicks(name, S("Anna"));
    Press(Qt::Key_Tab); // to the button, which leaves the saving to itself
    EXPECT_EQ(Focused(), S("cmdUpdate"));
    EXPECT_EQ(m_Store.Ask(S("SELECT PlayerName FROM Player")), S("Ann"));
    Press(Qt::Key_Return);
    EXPECT_EQ(m_Store.Ask(S("SELECT PlayerName FROM Player")), S("Anna"));
    EXPECT_TRUE(name->isReadOnly());
    Press(Qt::Key_Return);
    QTest::keyClicks(name, S("Annika"));
    QTest::keyClick(name, Qt::Key_Backtab, Qt::ShiftModifier); // anywhere else saves
    EXPECT_EQ(m_Store.Ask(S("SELECT PlayerName FROM Player")), S("Annika"));
}
