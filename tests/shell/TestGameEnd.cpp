// The end of a session: who ends it, what the points are, what is stored, what stands afterwards.
#include "tests/shell/support/SessionTest.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"

#include "shell/program/modMain.h"

#include <limits>

namespace
{
class GameEnd : public SessionTest
{
protected:
    void PlayToTheEnd(int Level = 1)
    {
        Play(QStringLiteral("Alpha"), Level);
        EndAndScore();
    }
    void GivenState(int Level, int Unspent) const
    {
        const auto state = modMain::CurrentPlayer->GameData().Item(Game()->Key);
        state->SetLevel(Level);
        state->UnspentAwards = Unspent;
        state->Awards = Unspent;
        state->Save();
    }
};
} // namespace

TEST_F(GameEnd, ScoreComesBeforeTheDialogAndUnloadAfterIt)
{
    OpenWorkout();
    Play();
    Pass(15);
    Program.CloseNextScore([&] {
        EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,score"));
        EXPECT_TRUE(Story.Game->isVisible()) << "the game stays behind the dialog";
        EXPECT_FALSE(GameTimer().isActive());
        EXPECT_EQ(Results(), QString()) << "nothing is stored yet";
        Pass(1000); // the time was taken before
    });
    End();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,score,unload"));
    EXPECT_EQ(Results(), QStringLiteral("80|140|45|1|1|1|1"));
}

TEST_F(GameEnd, GameoverTwiceYieldsOneResult)
{
    OpenWorkout();
    Play();
    Program.CloseNextScore([&] {
        End();
        End();
    });
    CNoggleFramework *const framework = Story.Game->Framework;
    End();
    framework->Message(QStringLiteral("gameover"));
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,score,unload"));
}

TEST_F(GameEnd, GameoverWhileScoreIsAskedDoesNothing)
{
    OpenWorkout();
    Story.At = [](ToldGame &game, const QString &cmd) {
        if (cmd == u"score") game.End();
    };
    Play();
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
}

TEST_F(GameEnd, ATickOfTimeUpDuringTheScoreDialogDoesNothing)
{
    OpenWorkout();
    Play();
    Program.CloseNextScore([&] {
        Story.Game->Framework->Message(QStringLiteral("resumetimer"));
        Pass(1000);
        Tick();
    });
    End();
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
    EXPECT_EQ(Story.Names().count(QStringLiteral("score")), 1);
}

TEST_F(GameEnd, AGameThatEndsWhilePausedTakesThePracticePath)
{
    OpenWorkout();
    const QString states = States();
    Play();
    Pass(10);
    Menu(QStringLiteral("pause"));
    Pass(50);
    EndAndTell();
    EXPECT_EQ(Results(), QStringLiteral("80|80|60|3|1|0|null")) << "with the pause so far in its time";
    EXPECT_EQ(States(), states);
    EXPECT_EQ(Program.Window().Mode(), 2);
    EXPECT_TRUE(Program.Sees("ctlGameList1"));
    EXPECT_FALSE(Program.Sees("picPause"));
}

TEST_F(GameEnd, TheAnswerToScoreIsANumberOrATextThatStartsWithOne)
{
    struct Row
    {
        QVariant answer;
        int points;
    };
    const Row rows[] = {
        {QVariant(), 0},
        {80, 80},
        {-30, -30},
        {QVariant::fromValue<short>(7), 7},
        {QVariant::fromValue<qlonglong>(123456), 123456},
        {QVariant::fromValue<unsigned>(9), 9},
        {2.5, 2},
        {3.5, 4},
        {QVariant(1.5F), 2},
        {QStringLiteral("80 points"), 80},
        {QStringLiteral("  12"), 12},
        {QStringLiteral("-4.5x"), -4},
        {QStringLiteral("1e2"), 100},
        {QStringLiteral("1,5"), 1},
        {QStringLiteral("plenty"), 0},
        {QString(), 0},
        {QVariantList{1, 2, 3}, 0},
        {QVariant::fromValue<void *>(nullptr), 0},
    };
    OpenPractice();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.answer.typeName());
        SCOPED_TRACE(row.points);
        Story.Points = row.answer;
        Play();
        EndAndTell();
        EXPECT_EQ(Program.Ask(QStringLiteral("select GamePlayedScore from GamePlayed order by GamePlayedKey desc")),
                  QString::number(row.points));
    }
}

TEST_F(GameEnd, PointsBeyondTheirRangeAreAFailureBeforeAnyDialogAndNoGameCanEndAnyMore)
{
    for (const QVariant &answer : {QVariant(3e9), QVariant(QStringLiteral("99999999999")),
                                   QVariant(std::numeric_limits<double>::infinity())}) {
        RunningProgram &program = Program;
        if (!program.IsRunning()) OpenWorkout();
        Story.Points = answer;
        Play();
        EXPECT_EQ(FailureOf([&] { End(); }), QStringLiteral("Overflow."));
        EXPECT_EQ(program.Window().Mode(), 3);
        Story.Points = 80;
        End(); // does nothing
        EXPECT_EQ(Results(), QString());
        Abandon();
        EXPECT_EQ(program.Window().Mode(), 6) << "the way out is the menu";
        Play();
        End();
        EXPECT_EQ(Results(), QString());
        Program.Stop();
    }
}

TEST_F(GameEnd, TotalsBeyondTheirRangeAreAFailureBeforeAnyDialog)
{
    OpenWorkout();
    Story.Points = std::numeric_limits<int>::max();
    Play();
    EXPECT_EQ(FailureOf([&] { End(); }), QStringLiteral("Overflow."));
    EXPECT_EQ(Results(), QString());
}

TEST_F(GameEnd, NegativePointsPassThrough)
{
    OpenWorkout();
    Story.Points = -30;
    Play(QStringLiteral("Alpha"), 2);
    Pass(30);
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("-30|5|30|1|2|0|1")) << "-30, the bonus of time -15, of level 50";
}

TEST_F(GameEnd, TheLevelOfTheSessionCountsNotTheStoredOne)
{
    OpenWorkout();
    GivenState(3, 0);
    Story.Points = 100;
    Play(QStringLiteral("Alpha"), 1);
    Pass(60);
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("100|100|0|1|1|1|1"));
    EXPECT_EQ(States(), QStringLiteral("3|1|1"));
}

TEST_F(GameEnd, ThreeStarsBuyALevel)
{
    OpenWorkout();
    for (const char *state : {"1|1|1", "1|2|2", "2|3|0", "2|4|1"}) {
        PlayToTheEnd();
        EXPECT_EQ(States(), QLatin1String(state));
    }
}

TEST_F(GameEnd, SixUnspentStarsBuyOneLevelNowAndTheNextGameTestsAgain)
{
    OpenWorkout();
    GivenState(1, 6);
    Story.Points = 0; // no star: the test is made all the same
    PlayToTheEnd();
    EXPECT_EQ(States(), QStringLiteral("2|6|3"));
    PlayToTheEnd();
    EXPECT_EQ(States(), QStringLiteral("3|6|0"));
}

TEST_F(GameEnd, AtTheTopLevelStarsPileUp)
{
    OpenWorkout();
    GivenState(3, 2);
    PlayToTheEnd(3);
    EXPECT_EQ(States(), QStringLiteral("3|3|3"));
    PlayToTheEnd(3);
    EXPECT_EQ(States(), QStringLiteral("3|4|4"));
}

TEST_F(GameEnd, TheStateIsThatOfThePlayedGameWhateverTheScreensChoseMeanwhile)
{
    GivenGame(QStringLiteral("Beta"), QStringLiteral("Told"));
    OpenWorkout();
    Play();
    modMain::CurrentPlayerGame = modMain::CurrentPlayer->GameData().Item(Game(QStringLiteral("Beta"))->Key);
    EndAndScore();
    EXPECT_EQ(Stored(QStringLiteral("select PlayerGameAwards from PlayerGame join Game on GameKey = PlayerGameGame "
                                    "order by GameName")),
              QStringLiteral("1\n0"));
}

TEST_F(GameEnd, TextAGameKeepsAtLevelZeroIsStoredWithItsEnd)
{
    OpenWorkout();
    Play();
    Story.Game->Framework->SetPlayerGameInfo(0, QStringLiteral("one|two|three"));
    EXPECT_NE(Program.Ask(QStringLiteral("select PlayerGameInfo from PlayerGame")), QStringLiteral("one|two|three"));
    EndAndScore();
    EXPECT_EQ(Program.Ask(QStringLiteral("select PlayerGameInfo from PlayerGame")), QStringLiteral("one|two|three"));
}

TEST_F(GameEnd, EachMarkOfThePracticeWordsIsReplaced)
{
    OpenPractice();
    Story.Points = 7;
    Play();
    Pass(61);
    EndAndTell();
    EXPECT_EQ(TakeBox(), QStringLiteral("Game over\r\nYour score: 7\r\nYour time: 1 minute 1 second"));
}

TEST_F(GameEnd, APracticeGameStaysBehindItsMessage)
{
    OpenPractice();
    Play();
    Program.AnswerNextBox("cmd2", {}, [&] {
        EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,score"));
        EXPECT_EQ(Results(), QString());
        End();
    });
    End();
    EXPECT_EQ(Results(), QStringLiteral("80|80|0|3|1|0|null"));
}

TEST_F(GameEnd, IsOneCommit)
{
    OpenWorkout();
    const quint32 before = Commits();
    PlayToTheEnd();
    EXPECT_EQ(Commits() - before, 1U);
    EXPECT_EQ(Stored(QStringLiteral("select (select count(*) from Workout), (select count(*) from GamePlayed), "
                                    "(select sum(PlayerGameAwards) from PlayerGame)")),
              QStringLiteral("1|1|1"));
}

TEST_F(GameEnd, TheFanfareSoundsWhenEveryCategoryHasAResult)
{
    OpenWorkout();
    PlayToTheEnd();
    EXPECT_FALSE(Program.Find("lblMessage")->property("Caption").toString().isEmpty());
}
