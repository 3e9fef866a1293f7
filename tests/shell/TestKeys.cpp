// Key presses: counted once, whoever has the focus, and never those of dialogs.
#include "tests/shell/support/FlowTest.h"

#include "shell/GuardedApplication.h"

#include <QKeyEvent>
#include <QLineEdit>

class Keys : public FlowTest
{
protected:
    void StartGameThatListens()
    {
        StartWithAnn();
        StartWorkoutGame();
        Game.TakeVerbs();
    }
};

TEST_F(Keys, EachPressReachesTheGameOnceWhoeverHasTheFocus)
{
    StartGameThatListens();
    Program.Window().setFocus();
    Program.PressKey(Qt::Key_A);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 65 0") << "with the focus on the window";
    Program.Find("ctlButtonPanel1")->setFocus();
    Program.PressKey(Qt::Key_Down);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 40 0") << "on the menu";
    Game.Control()->setFocus();
    Program.PressKey(Qt::Key_7);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 55 0") << "on the game itself";
}

TEST_F(Keys, APressInTheNameBoxCountsOnceAndIsTyped)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    auto *const name = Program.Find<QLineEdit>("txtName");
    name->setFocus();
    name->end(false);
    int presses = 0;
    QObject::connect(qobject_cast<GuardedApplication *>(qApp), &GuardedApplication::KeyPressed, name,
                     [&](QWidget *receiver, QKeyEvent *) { presses += receiver->window() == &Program.Window(); });
    Program.PressKey(Qt::Key_E);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(Plain(name->text()), "Anne");
}

TEST_F(Keys, EscapeInTheNameBoxMinimisesToo)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    Program.Find<QLineEdit>("txtName")->setFocus();
    Program.PressKey(Qt::Key_Escape);
    EXPECT_TRUE(Program.Until([&] { return Program.Window().isMinimized(); }));
}

TEST_F(Keys, EscapeMinimisesPausesAndStillReachesTheGame)
{
    StartGameThatListens();
    Program.PressKey(Qt::Key_Escape);
    EXPECT_TRUE(Program.Until([&] { return Program.Window().isMinimized() && Mode() == 5; }));
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 27 0");
}

TEST_F(Keys, APausedGameStillHearsKeys)
{
    StartGameThatListens();
    Program.ClickMenu(QStringLiteral("pause"));
    Program.PressKey(Qt::Key_F1);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 112 0");
    EXPECT_EQ(Mode(), 5);
}

TEST_F(Keys, RepeatsCountAndReleasesDoNot)
{
    StartGameThatListens();
    for (int time = 0; time < 3; ++time) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier, {}, time > 0);
        QCoreApplication::sendEvent(&Program.Window(), &press);
    }
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Left, Qt::NoModifier);
    QCoreApplication::sendEvent(&Program.Window(), &release);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 37 0|keypress 37 0|keypress 37 0");
}

TEST_F(Keys, KeysOfADialogAreItsOwnAndAfterwardsTheGameHearsAgain)
{
    StartGameThatListens();
    Program.AnswerNextBox("cmd2", {}, [&] {
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Escape}) Program.PressKey(key);
    });
    Program.ClickMenu(QStringLiteral("abandon"));
    EXPECT_EQ(Plain(Game.TakeVerbs()), "");
    EXPECT_FALSE(Program.Window().isMinimized());
    EXPECT_EQ(Mode(), 3);
    EXPECT_TRUE(Program.Until([&] { return QGuiApplication::focusWindow() == Program.Window().windowHandle(); }));
    Program.PressKey(Qt::Key_B);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 66 0");
}

TEST_F(Keys, WithoutAGameKeysChangeNothing)
{
    StartWithAnn();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_F1}) Program.PressKey(key);
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
}

TEST_F(Keys, AGameThatThrowsOnAKeyIsShownAndHearsTheNextOne)
{
    StartGameThatListens();
    Game.ThrowsOn = QStringLiteral("keypress");
    Program.AnswerNextBox("cmd2");
    Program.PressKey(Qt::Key_A);
    EXPECT_EQ(Plain(Program.Boxes.last()), "An error occurred.\r\nThe game has thrown.");
    Game.ThrowsOn.clear();
    Game.TakeVerbs();
    Program.PressKey(Qt::Key_B);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 66 0");
    EXPECT_EQ(Mode(), 3);
}
