// Dialogs keep the rest of the program out, and give the keys back.
#include "tests/display/DisplayTest.h"

#include "domain/Store.h"
#include "sdk/controls/LarkButton.h"
#include "shell/program/modMain.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <algorithm>

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
        // The desktop may still move the box to its place while the pointer goes there.
        const auto isClosed = [&] { return !box->isVisible(); };
        for (int time = 0; time < 5 && !wasPressed; ++time) {
            Click(box->findChild<LarkButton *>(QStringLiteral("cmd2")));
            wasPressed = QTest::qWaitFor(isClosed, 1500);
        }
    });
    hand.start(100);
    EXPECT_TRUE(Program.Start());
    EXPECT_TRUE(wasPressed);
}

// A press on the menu acts when the button goes down: the dialog that it opens is there while the button is held, and
// the release finds the dialog.
TEST_F(Dialogs, OneThatAPressOnTheMenuOpensIsUsedOnceTheButtonIsLetGoAndTheMenuAgainAfterIt)
{
    StartWithAnn();
    const auto row = Program.MenuKeys().indexOf(QStringLiteral("exit"));
    const QPoint exit = MiddleOfMenuRow() + QPoint(0, 21 * static_cast<int>(row));
    const auto isLit = [&] {
        const auto hovers =
            Program.Find("ctlButtonPanel1")->findChildren<QWidget *>(QStringLiteral("picHover%1").arg(row + 1));
        return std::any_of(hovers.begin(), hovers.end(), [](const QWidget *one) { return one->isVisible(); });
    };
    for (int time = 1; time <= 2; ++time) {
        bool wasClosed = false;
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, [&] {
            auto *const box = QApplication::activeModalWidget();
            if (box == nullptr || !QTest::qWaitForWindowExposed(box)) return;
            hand.stop();
            Hand({"mouseup", "1"});
            EXPECT_TRUE(box->isVisible()) << "the release is no answer";
            Click(box->findChild<LarkButton *>(QStringLiteral("cmd2")));
            wasClosed = RunningProgram::Until([&] { return !box->isVisible(); });
        });
        hand.start(100);
        Hand({"mousemove", QByteArray::number(exit.x()), QByteArray::number(exit.y())});
        ASSERT_TRUE(RunningProgram::Until(isLit));
        Hand({"mousedown", "1"});
        EXPECT_TRUE(RunningProgram::Until([&] { return wasClosed; })) << time;
        ASSERT_TRUE(MayType());
    }
    EXPECT_TRUE(Window().isVisible());
}
