// Every way from one mode to another.
#include "tests/shell/support/FlowTest.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "shell/program/modMain.h"
#include "skin/ctlButtonPanel.h"

class Flow : public FlowTest
{
protected:
    void ReadInstructionsOfArrows()
    {
        GoTo(2);
        Program.ChoosePractice(QStringLiteral("Kind of Arrows"), QStringLiteral("Arrows"));
        Program.Click("cmdInstructions");
        ASSERT_EQ(Screens(), "ctlGameInstructions1");
    }
};

TEST_F(Flow, ThePlayersScreensLeadToEachOther)
{
    StartWithAnn();
    for (const int from : {1, 2, 6}) {
        for (const int to : {1, 2, 6}) {
            GoTo(from);
            GoTo(to);
        }
    }
}

TEST_F(Flow, TheProgressScreenPlaysTheNextGameOfACategoryAtLevelOne)
{
    StartWithAnn();
    Q_EMIT Program.Find<ctlButtonPanel>("ctlButtonPanel1")->Click(QStringLiteral("player 1"));
    ASSERT_EQ(Mode(), 1);
    Program.Click("butGo(0)");
    EXPECT_EQ(Mode(), 3);
    EXPECT_EQ(Plain(modMain::CurrentGame->Name()), "Arrows");
    EXPECT_EQ(Plain(Game.TakeVerbs()), "start 1 0");
}

TEST_F(Flow, ACategoryWithoutGamesSaysSoAndStaysOnTheProgressScreen)
{
    StartWithAnn();
    GoTo(1);
    Program.AnswerNextBox("cmd2");
    Program.Window().PlayGame(modMain::CurrentPlayer->NextGameToPlay(4711), 1);
    EXPECT_EQ(Mode(), 1);
    EXPECT_EQ(Plain(Program.Boxes.last().section(u'\r', 0, 0)), "Error loading game: ");
}

TEST_F(Flow, ThePlayButtonOfTheWorkoutStartsAWorkoutGame)
{
    StartWithAnn();
    GoTo(6);
    Program.PlayInWorkout();
    EXPECT_EQ(Mode(), 3);
    EXPECT_TRUE(Game.IsShown());
}

TEST_F(Flow, ThePlayButtonOfThePracticeScreenStartsAPracticeGame)
{
    StartWithAnn();
    Program.ChoosePractice(QStringLiteral("Kind of Beacons"), QStringLiteral("Beacons"));
    Program.ClickRow("cLevels", QStringLiteral("Level 3"));
    Program.Click("cmdPlay");
    EXPECT_EQ(Mode(), 4);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "start 3 0");
}

TEST_F(Flow, InstructionsReadForPracticeStartAPracticeGame)
{
    StartWithAnn();
    ReadInstructionsOfArrows();
    Program.Click("butStartGame");
    EXPECT_EQ(Mode(), 4);
    EXPECT_EQ(Screens(), "ctlGamePlaySummary1 game");
}

TEST_F(Flow, InstructionsReadForTheWorkoutStartAWorkoutGame)
{
    StartWithAnn();
    GoTo(6);
    Program.ReadInWorkout();
    Program.Click("butStartGame");
    EXPECT_EQ(Mode(), 3);
    EXPECT_EQ(Screens(), "ctlGamePlaySummary1 game");
}

TEST_F(Flow, InstructionsCancelledInPracticeShowThePracticeScreenAgain)
{
    StartWithAnn();
    ReadInstructionsOfArrows();
    Program.Click("butCancelGame");
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
}

TEST_F(Flow, InstructionsCancelledInTheWorkoutShowTheWorkoutAgain)
{
    StartWithAnn();
    GoTo(6);
    Program.ReadInWorkout();
    Program.Click("butCancelGame");
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
}

TEST_F(Flow, InstructionsCancelledOverTheProgressScreenLeadToTheWorkout)
{
    StartWithAnn();
    GoTo(1);
    Program.Window().Instructions(modMain::Games->GameByName(QStringLiteral("Arrows")), 1);
    ASSERT_EQ(Mode(), 1);
    Program.Click("butCancelGame");
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
}

TEST_F(Flow, TheMenuLeadsAwayFromTheInstructions)
{
    StartWithAnn();
    ReadInstructionsOfArrows();
    GoTo(6);
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
}

TEST_F(Flow, AWorkoutGameThatReportsItsEndLeadsToTheWorkout)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.CloseNextScore();
    Game.End();
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
    EXPECT_FALSE(Game.IsShown());
}

TEST_F(Flow, AWorkoutGameWhoseTimeRunsOutLeadsToTheWorkout)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.CloseNextScore();
    Program.PassTime(61);
    EXPECT_TRUE(Program.Until([&] { return Mode() == 6; }));
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
}

TEST_F(Flow, APracticeGameThatReportsItsEndLeadsToThePracticeScreen)
{
    StartWithAnn();
    StartPracticeGame();
    Program.AnswerNextBox("cmd2");
    Game.End();
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
    EXPECT_EQ(Menu(), "practice|exercise|progress|change player|options|help|exit");
}

TEST_F(Flow, APracticeGameHasNoTimeLimit)
{
    StartWithAnn();
    StartPracticeGame();
    Program.PassTime(1000);
    Program.Turn(700); // more than one tick of the game clock
    EXPECT_EQ(Mode(), 4);
}

TEST_F(Flow, AFailureInAHandlerIsShownAndTheProgramGoesOn)
{
    StartWithAnn();
    Program.AnswerNextBox("cmd2");
    // Inside an event, as a click is.
    QTimer::singleShot(0, &Program.Window(), [&] { Program.Window().ShowPlayer(1, 4711); });
    EXPECT_TRUE(Program.Until([&] { return Program.Boxes.size() == 2; }));
    EXPECT_EQ(Plain(Program.Boxes.value(1).section(u'\r', 0, 0)), "An error occurred.");
    GoTo(6);
}
