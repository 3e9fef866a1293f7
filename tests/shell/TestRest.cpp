// Nothing polls: while nobody does anything and nothing moves, nothing wakes the program.
#include "tests/shell/support/FlowTest.h"

class Rest : public FlowTest
{};

TEST_F(Rest, NothingWakesTheChoiceOfPlayer)
{
    Start();
    EXPECT_TRUE(Program.ComesToRest());
}

// The pointer comes to rest on a row of the menu each time.
TEST_F(Rest, NothingWakesTheScreensOfAPlayer)
{
    StartWithAnn();
    EXPECT_TRUE(Program.ComesToRest()) << "practice";
    for (const int mode : {1, 6}) {
        GoTo(mode);
        EXPECT_TRUE(Program.ComesToRest()) << "mode " << mode;
    }
}

TEST_F(Rest, NothingWakesTheInstructions)
{
    StartWithAnn();
    GoTo(6);
    Program.ReadInWorkout();
    EXPECT_TRUE(Program.ComesToRest());
}

TEST_F(Rest, NothingWakesAPausedGameAndTheClockWakesARunningOne)
{
    StartWorkoutGame();
    EXPECT_GT(Program.WakesWithin(1200), 0) << "the clock of the game";
    Program.ClickMenu(QStringLiteral("pause"));
    EXPECT_TRUE(Program.ComesToRest());
}
