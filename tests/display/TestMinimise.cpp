// Minimising, as a window manager does it.
#include "tests/display/DisplayTest.h"

namespace
{
QByteArray IdOf(const QWidget &window) { return QByteArray::number(window.winId()); }
} // namespace

class ManagedMinimise : public Managed
{
protected:
    bool GetsMinimised()
    {
        return RunningProgram::Until([this] { return Window().isMinimized() && Mode() == 5; });
    }
    void Restore()
    {
        Hand({"windowmap", IdOf(Window())});
        Hand({"windowactivate", IdOf(Window())});
        ASSERT_TRUE(RunningProgram::Until([this] { return !Window().isMinimized(); }));
        RunningProgram::Turn(300); // late words of the window manager
    }
};

TEST_F(ManagedMinimise, EscapeMinimisesPausesAndReachesTheGameAndRestoringDoesNotResume)
{
    StartGameThatListens();
    Press("Escape");
    ASSERT_TRUE(GetsMinimised());
    EXPECT_EQ(Plain(Game.TakeVerbs()), "keypress 27 0");
    Restore();
    EXPECT_EQ(Mode(), 5);
    EXPECT_EQ(Screens(), "picPause ctlGamePlaySummary1");
    EXPECT_FALSE(Program.Find<QTimer>("tmrShowTime")->isActive());
    Program.ClickMenu(QStringLiteral("continue"));
    EXPECT_EQ(Mode(), 3);
}

TEST_F(ManagedMinimise, ThePictureMinimisesAndPauses)
{
    StartGameThatListens();
    Click(Program.Find("picMinimize"));
    EXPECT_TRUE(GetsMinimised());
}

TEST_F(ManagedMinimise, TheDesktopsOwnWayPausesToo)
{
    StartGameThatListens();
    Hand({"windowminimize", IdOf(Window())});
    ASSERT_TRUE(GetsMinimised());
    Restore();
    EXPECT_EQ(Mode(), 5);
}

TEST_F(ManagedMinimise, TheClosingQuestionRestoresTheWindow)
{
    StartGameThatListens();
    Press("Escape");
    ASSERT_TRUE(GetsMinimised());
    Program.AnswerNextBox("cmd2", {},
                          [&] { EXPECT_TRUE(RunningProgram::Until([this] { return !Window().isMinimized(); })); });
    Window().close();
    EXPECT_EQ(Mode(), 5) << "and the game stays paused";
}
