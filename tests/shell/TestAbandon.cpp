// Leaving a game before its end: the question, and what may happen while it is open.
#include "tests/shell/support/FlowTest.h"

#include "services/CResource.h"
#include "shell/program/modMain.h"

class Abandon : public FlowTest
{
protected:
    void Leave() { Program.ClickMenu(QStringLiteral("abandon")); }
    std::string Results() const { return Plain(Program.Ask(QStringLiteral("select count(*) from GamePlayed"))); }
};

TEST_F(Abandon, AWorkoutGameLeadsToTheWorkoutAndNothingIsRecorded)
{
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    Program.AnswerNextBox("cmd1");
    Leave();
    EXPECT_EQ(Plain(Program.Boxes.last()), Plain(modMain::Resources->GetString(301, 256)));
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
    EXPECT_EQ(Plain(Game.TakeVerbs()), "unload 0 0") << "no score is asked for";
    EXPECT_EQ(Results(), "0");
}

TEST_F(Abandon, APracticeGameLeadsToThePracticeScreenWithItsMenu)
{
    StartWithAnn();
    StartPracticeGame();
    Program.AnswerNextBox("cmd1");
    Leave();
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
    EXPECT_EQ(Menu(), "practice|exercise|progress|change player|options|help|exit");
    EXPECT_EQ(Results(), "0");
}

TEST_F(Abandon, OnNoTheGameGoesOnAndItsClockNeverStopped)
{
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    Program.AnswerNextBox("cmd2", {}, [&] {
        Program.PassTime(20);
        EXPECT_TRUE(Program.Find<QTimer>("tmrShowTime")->isActive());
    });
    Leave();
    EXPECT_EQ(Mode(), 3);
    EXPECT_EQ(Screens(), "ctlGamePlaySummary1 game");
    EXPECT_GE(Program.Window().TimeTaken(), 20);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "");
}

TEST_F(Abandon, AWorkoutGameThatEndedDuringTheQuestionHasBeenCountedAndStaysWhereItsEndLed)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.AnswerNextBox("cmd1", {}, [&] {
        Program.CloseNextScore();
        Game.End();
    });
    Leave();
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Screens(), "ctlWorkOut1 PlayerName1");
    EXPECT_EQ(Results(), "1");
}

TEST_F(Abandon, AWorkoutGameWhoseTimeRanOutDuringTheQuestionIsCountedToo)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.AnswerNextBox("cmd1", {}, [&] {
        Program.CloseNextScore();
        Program.PassTime(61);
        EXPECT_TRUE(Program.Until([&] { return Mode() == 6; }));
    });
    Leave();
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Results(), "1");
}

TEST_F(Abandon, APracticeGameThatEndedDuringTheQuestionStaysWhereItsEndLed)
{
    StartWithAnn();
    StartPracticeGame();
    Program.AnswerNextBox("cmd1", {}, [&] {
        Program.AnswerNextBox("cmd2");
        Game.End();
    });
    Leave();
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Menu(), "practice|exercise|progress|change player|options|help|exit");
    EXPECT_EQ(Results(), "1");
}

TEST_F(Abandon, AYesHoldsForAGameThatWasPausedDuringTheQuestion)
{
    StartWithAnn();
    StartPracticeGame();
    Program.AnswerNextBox("cmd1", {}, [&] {
        Program.Window().showMinimized();
        EXPECT_TRUE(Program.Until([&] { return Mode() == 5; }));
        Program.Window().showNormal();
    });
    Leave();
    EXPECT_EQ(Mode(), 2);
    EXPECT_FALSE(Game.IsShown());
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
    EXPECT_EQ(Menu(), "practice|exercise|progress|change player|options|help|exit");
    EXPECT_EQ(Results(), "0");
}
