// Pausing and minimising: one way into a pause, and one way out of it.
#include "tests/shell/support/FlowTest.h"

#include "skin/ctlButtonPanel.h"

class Pause : public FlowTest
{
protected:
    void Minimise()
    {
        Program.Window().showMinimized();
        Program.Turn(20);
        ASSERT_TRUE(Program.Window().isMinimized());
    }
    void Restore()
    {
        Program.Window().showNormal();
        Program.Turn(20);
        ASSERT_FALSE(Program.Window().isMinimized());
    }
    void Continue() { Program.ClickMenu(QStringLiteral("continue")); }
};

TEST_F(Pause, ContinueLeadsBackToTheKindOfGameThatWasPaused)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.ClickMenu(QStringLiteral("pause"));
    EXPECT_EQ(Mode(), 5);
    Continue();
    EXPECT_EQ(Mode(), 3);
    EXPECT_EQ(Screens(), "ctlGamePlaySummary1 game");
    Program.AnswerNextBox("cmd1");
    Program.ClickMenu(QStringLiteral("abandon"));

    StartPracticeGame();
    Program.ClickMenu(QStringLiteral("pause"));
    EXPECT_EQ(Mode(), 5);
    Continue();
    EXPECT_EQ(Mode(), 4);
}

TEST_F(Pause, TimeInAPauseIsNotCounted)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.PassTime(10);
    Program.ClickMenu(QStringLiteral("pause"));
    EXPECT_FALSE(Program.Find<QTimer>("tmrShowTime")->isActive());
    Program.PassTime(1000);
    Continue();
    EXPECT_TRUE(Program.Find<QTimer>("tmrShowTime")->isActive());
    EXPECT_GE(Program.Window().TimeTaken(), 10);
    EXPECT_LT(Program.Window().TimeTaken(), 40);
}

TEST_F(Pause, MinimisingPausesAWorkoutGame)
{
    StartWithAnn();
    StartWorkoutGame();
    Minimise();
    EXPECT_EQ(Mode(), 5);
    EXPECT_EQ(Menu(), "continue|options|help|exit");
}

TEST_F(Pause, MinimisingPausesAPracticeGame)
{
    StartWithAnn();
    StartPracticeGame();
    Minimise();
    EXPECT_EQ(Mode(), 5);
}

TEST_F(Pause, ThePictureForMinimisingDoesSoAndPauses)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.Click("picMinimize");
    EXPECT_TRUE(Program.Until([&] { return Program.Window().isMinimized() && Mode() == 5; }));
}

TEST_F(Pause, RestoringTheWindowDoesNotResume)
{
    StartWithAnn();
    StartWorkoutGame();
    Minimise();
    Restore();
    EXPECT_EQ(Mode(), 5);
    EXPECT_EQ(Screens(), "picPause ctlGamePlaySummary1");
    EXPECT_FALSE(Program.Find<QTimer>("tmrShowTime")->isActive());
    Continue();
    EXPECT_EQ(Mode(), 3);
}

TEST_F(Pause, MinimisingAPausedGameLeavesItPaused)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.ClickMenu(QStringLiteral("pause"));
    for (int again = 0; again < 2; ++again) {
        Minimise();
        EXPECT_EQ(Mode(), 5);
        Restore();
        EXPECT_EQ(Mode(), 5);
    }
    Continue();
    EXPECT_EQ(Mode(), 3);
}

TEST_F(Pause, PauseFollowedAtOnceByEscapeIsOnePauseAndNotATurnBack)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.ClickMenu(QStringLiteral("pause"));
    Program.PressKey(Qt::Key_Escape);
    Program.Turn(20);
    EXPECT_TRUE(Program.Window().isMinimized());
    EXPECT_EQ(Mode(), 5);
    Restore();
    EXPECT_EQ(Mode(), 5);
}

TEST_F(Pause, WithoutAGameMinimisingChangesNoScreen)
{
    const auto look = [&](int mode) {
        const std::string menu = Menu();
        const std::string screens = Screens();
        Minimise();
        EXPECT_EQ(Mode(), mode);
        EXPECT_EQ(Menu(), menu);
        Restore();
        EXPECT_EQ(Mode(), mode);
        EXPECT_EQ(Screens(), screens);
    };
    Start();
    look(0);
    Program.NewPlayer(QStringLiteral("Ann"));
    for (const int mode : {1, 2, 6}) {
        GoTo(mode);
        look(mode);
    }
}

TEST_F(Pause, ThePictureOfAPauseStandsInTheMiddleOfTheHiddenGame)
{
    StartWithAnn();
    StartWorkoutGame();
    const QRect game = Game.Control()->geometry();
    Program.ClickMenu(QStringLiteral("pause"));
    const QRect picture = Program.Find("picPause")->geometry();
    EXPECT_FALSE(picture.isEmpty());
    EXPECT_LE(std::abs(picture.center().x() - game.center().x()), 1);
    EXPECT_LE(std::abs(picture.center().y() - game.center().y()), 1);
}
