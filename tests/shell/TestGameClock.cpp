// The clock of a session: the wall clock, moved on by pauses, to the nearest second.
#include "tests/shell/support/SessionTest.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"

namespace
{
class GameClock : public SessionTest
{
protected:
    int TimeTaken() const { return Program.Window().TimeTaken(); }
    QVariant Tell(const char *cmd) const { return Story.Game->Framework->Message(QLatin1String(cmd)); }
    /// The practice strip is in another form, and so is the window's menu.
    bool IsOver() const { return Story.Names().contains(QStringLiteral("score")); }
};
} // namespace

TEST_F(GameClock, CountsWholeSecondsToTheNearest)
{
    OpenWorkout();
    Play();
    EXPECT_EQ(TimeTaken(), 0);
    Pass(15.4);
    EXPECT_EQ(TimeTaken(), 15);
    Pass(0.2);
    EXPECT_EQ(TimeTaken(), 16);
    const QVariant told = Tell("timetaken");
    EXPECT_EQ(told.typeId(), QMetaType::Int);
    EXPECT_EQ(told.toInt(), 16);
}

TEST_F(GameClock, APauseOfOneHourChangesNeitherTimeTakenNorTimeLeft)
{
    OpenWorkout();
    Play();
    Pass(20);
    Menu(QStringLiteral("pause"));
    EXPECT_FALSE(GameTimer().isActive());
    EXPECT_FALSE(Story.Game->isVisible());
    EXPECT_TRUE(Program.Sees("picPause"));
    Pass(3600);
    EXPECT_EQ(TimeTaken(), 3620) << "the start moves only when the game goes on";
    Menu(QStringLiteral("continue"));
    EXPECT_EQ(TimeTaken(), 20);
    EXPECT_TRUE(Story.Game->isVisible());
    Tick();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time left: 40"));
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start")) << "no verb tells of a pause";
}

TEST_F(GameClock, ASecondPauseWithoutAResumeLetsTheTimeBetweenCount)
{
    OpenWorkout();
    Play();
    Pass(10);
    Tell("pausetimer");
    Pass(5);
    Tell("pausetimer");
    Pass(100);
    Tell("resumetimer");
    EXPECT_EQ(TimeTaken(), 15);
    EXPECT_TRUE(GameTimer().isActive());
}

TEST_F(GameClock, AMovedClockMovesTheTimeTaken)
{
    OpenWorkout();
    Play();
    Pass(3600);
    EXPECT_EQ(TimeTaken(), 3600);
    Pass(-7200);
    EXPECT_EQ(TimeTaken(), -3600);
    EndAndScore();
    EXPECT_EQ(Results().section(u'|', 2, 2), QStringLiteral("3660")) << "nothing guards against it";
}

TEST_F(GameClock, ATickShowsWhatIsLeft)
{
    OpenWorkout();
    Play();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time left: 60"));
    Pass(15);
    Tick();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time left: 45"));
}

TEST_F(GameClock, InPracticeATickShowsTheTimeTaken)
{
    OpenPractice();
    Play();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time taken: 0:00"));
    Pass(75);
    Tick();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time taken: 1:15"));
}

TEST_F(GameClock, TheTimeIsUpWhenNothingIsShownAsLeft)
{
    OpenWorkout();
    Play();
    Pass(59.4);
    Tick();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time left: 1"));
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start"));
    Pass(0.2);
    Program.CloseNextScore();
    Tick();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,timeup,score,unload"));
    EXPECT_EQ(Results(), QStringLiteral("80|80|0|1|1|0|1")) << "no time bonus is left";
    EXPECT_FALSE(GameTimer().isActive());
}

TEST_F(GameClock, AGameEndedByTimeStillEarnsTheAwardThroughItsPoints)
{
    Story.Points = 100;
    OpenWorkout();
    Play();
    Pass(60);
    Program.CloseNextScore();
    Tick();
    EXPECT_EQ(Results(), QStringLiteral("100|100|0|1|1|1|1"));
}

TEST_F(GameClock, AGameWithoutALimitNeverRunsOut)
{
    GivenGame(QStringLiteral("Endless"), QStringLiteral("Told"), 0);
    OpenWorkout();
    Play(QStringLiteral("Endless"));
    EXPECT_EQ(TimeShown(), QStringLiteral("Time taken: 0:00"));
    Pass(100000);
    Tick();
    EXPECT_FALSE(IsOver());
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("80|80|0|1|1|0|1")) << "no time bonus, no division";
}

TEST_F(GameClock, InPracticeNoGameEndsByTime)
{
    OpenPractice();
    Play();
    Pass(10000);
    Tick();
    EXPECT_FALSE(IsOver());
}

TEST_F(GameClock, AfterAnAbandonTheTimerGoesOnAndEndsNothing)
{
    OpenWorkout();
    Play();
    Pass(30);
    Abandon();
    EXPECT_TRUE(GameTimer().isActive());
    Pass(1000);
    Tick();
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,unload"));
    EXPECT_EQ(Results(), QString());
}

TEST_F(GameClock, ATickLeftOverFromAnEarlierGameNeverEndsANewOne)
{
    OpenWorkout();
    Play();
    Abandon();
    Pass(1000);
    int ticks = 0;
    QObject::connect(&GameTimer(), &QTimer::timeout, &Program.Window(), [&] { ++ticks; });
    // One comes at every chance now, also while the menu of the new game is being made.
    GameTimer().setInterval(0);
    Story.Verbs.clear();
    Play();
    EXPECT_GT(ticks, 0);
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start"));
    EXPECT_EQ(Program.Window().Mode(), 3);
}

TEST_F(GameClock, ATickInAPauseEndsNothingEvenIfTheGameRestartsTheClock)
{
    OpenWorkout();
    Play();
    Menu(QStringLiteral("pause"));
    Tell("resumetimer");
    Pass(1000);
    Tick();
    EXPECT_EQ(TimeShown(), QStringLiteral("Time left: 0"));
    EXPECT_FALSE(IsOver());
    EXPECT_EQ(Program.Window().Mode(), 5);
}

TEST_F(GameClock, TheQuestionToAbandonDoesNotStopTheClock)
{
    OpenWorkout();
    Play();
    Program.AnswerNextBox("cmd2", {}, [this] {
        EXPECT_TRUE(GameTimer().isActive());
        Pass(10);
    });
    Menu(QStringLiteral("abandon"));
    EXPECT_EQ(TimeTaken(), 10);
}

TEST_F(GameClock, AFailureInATickIsIgnored)
{
    OpenWorkout();
    Play();
    Story.At = [](ToldGame &, const QString &cmd) {
        if (cmd == u"timeup") throw 42;
    };
    Pass(60);
    Program.CloseNextScore();
    Tick();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,timeup,score,unload"));
    EXPECT_EQ(Program.Boxes.join(u'|'), QString());
}
