// Dialogs keep the rest of the program out, and give the keys back.
#include "tests/display/DisplayTest.h"

#include "domain/Store.h"
#include "sdk/controls/LarkButton.h"
#include "shell/program/modMain.h"

#include <QApplication>
#include <QDialog>

class Dialogs : public DisplayTest
{
protected:
    QPoint MiddleOfMenuRow() const { return Program.Find("ctlButtonPanel1")->mapToGlobal(QPoint(60, 12)); }
    /// Everything of the main window that a click could reach beside the dialog, and keys.
    void TryTheMainWindow()
    {
        ClickAt(MiddleOfMenuRow());
        ClickAt(MiddleOfMenuRow());
        Click(Program.Find("picMinimize"));
        Click(Program.Find("picClose"));
        Press("a");
        RunningProgram::Turn(300); // a row lights up within a quarter of a second
        ClickAt(MiddleOfMenuRow());
    }
};

TEST_F(Dialogs, WhileAMessageBoxIsOpenTheMainWindowFeelsNothingAndHearsAgainAfterwards)
{
    StartGameThatListens();
    Program.AnswerNextBox("cmd2", {}, [&] { TryTheMainWindow(); });
    Program.ClickMenu(QStringLiteral("abandon"));
    EXPECT_EQ(Mode(), 3);
    EXPECT_FALSE(Window().isMinimized());
    EXPECT_EQ(Program.Boxes.size(), 2) << "the name, and this one question";
    EXPECT_EQ(Plain(Game.TakeVerbs()), "");

    ASSERT_TRUE(MayType());
    Press("b");
    EXPECT_TRUE(RunningProgram::Until([&] { return Plain(Game.TakeVerbs()) == "keypress 66 0"; }));
}

TEST_F(Dialogs, WhileTheScoreDialogIsOpenTheMainWindowFeelsNothing)
{
    StartGameThatListens();
    Program.CloseNextScore([&] { TryTheMainWindow(); });
    Game.End();
    EXPECT_EQ(Mode(), 6);
    EXPECT_FALSE(Window().isMinimized());
    EXPECT_EQ(Program.Boxes.size(), 1) << "the name alone";
    EXPECT_TRUE(MayType());
}

TEST_F(Dialogs, ABoxBeforeTheMainWindowCanBeReachedOverTheSplash)
{
    Program.Rows(QStringLiteral("drop table Game"));
    modMain::ForgetConnection();
    bool wasPressed = false;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
        auto *const box = QApplication::activeModalWidget();
        if (box == nullptr || !QTest::qWaitForWindowExposed(box)) return;
        hand.stop();
        Click(box->findChild<LarkButton *>(QStringLiteral("cmd2")));
        wasPressed = RunningProgram::Until([&] { return !box->isVisible(); });
    });
    hand.start(100);
    EXPECT_TRUE(Program.Start());
    EXPECT_TRUE(wasPressed);
}
