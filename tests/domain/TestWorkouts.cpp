#include "DomainTest.h"
#include "platform/Clock.h"

#include <cmath>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class Workouts : public DomainTest
{
protected:
    Workouts()
    {
        Start();
        m_ann = GivenCurrentPlayer();
        SetTime(2026, 3, 28, 23, 59, 59);
    }
    colWorkout &List() const { return m_ann->Workouts(); }
    std::shared_ptr<CPlayer> m_ann;
};
} // namespace

TEST_F(Workouts, OfANewPlayerAreNoneAndNoneIsCurrent)
{
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(List().Current(), nullptr);
}

TEST_F(Workouts, ANewOneIsOpenOfTodayAndStored)
{
    const auto workout = List().Add();
    EXPECT_EQ(workout->Player, m_ann->Key);
    EXPECT_EQ(workout->Status, CWorkout::Open);
    EXPECT_EQ(workout->Mode, 0);
    EXPECT_EQ(workout->Timestamp, 46109.0);
    EXPECT_EQ(StoredOne(QStringLiteral("select WorkoutKey, WorkoutPlayer, WorkoutPoints, WorkoutStatus, WorkoutMode, "
                                       "WorkoutTimestamp from Workout")),
              u"1|1|0|0|0|46109");
    EXPECT_EQ(List().Current(), workout);
}

TEST_F(Workouts, ADayBeginsAtMidnightAndHasNoTimePart)
{
    const double today = List().Add()->Timestamp;
    SetTime(2026, 3, 29, 0, 0, 0);
    const double tomorrow = List().Add()->Timestamp;
    EXPECT_EQ(tomorrow - today, 1.0);
    EXPECT_EQ(tomorrow, std::floor(tomorrow));
    EXPECT_EQ(tomorrow, Today());
}

TEST_F(Workouts, TheModeSetByTheGamesEndIsNotStoredBeforeTheNextSave)
{
    const auto workout = List().Add();
    workout->Mode = 1;
    StartAgain();
    const auto again = modMain::Players->Item(1)->Workouts().Current();
    EXPECT_EQ(again->Mode, 0);
    again->Complete();
    EXPECT_EQ(StoredOne(QStringLiteral("select WorkoutMode, WorkoutStatus from Workout")), u"0|1");
}

TEST_F(Workouts, CompleteIsStoredAndNothingReopensIt)
{
    const auto workout = List().Add();
    workout->Complete();
    EXPECT_EQ(workout->Status, CWorkout::Completed);
    StartAgain();
    EXPECT_EQ(modMain::Players->Item(1)->Workouts().Item(1)->Status, 1);
    EXPECT_EQ(modMain::Players->Item(1)->Workouts().Current(), nullptr);
}

TEST_F(Workouts, AllCompleteMeansNoneIsCurrent)
{
    List().Add()->Complete();
    List().Add()->Complete();
    EXPECT_EQ(List().Current(), nullptr);
}

TEST_F(Workouts, OfTwoOpenOnesTheLaterInTheListIsCurrent)
{
    List().Add();
    const auto later = List().Add();
    List().Add()->Complete();
    EXPECT_EQ(List().Current(), later);
}

TEST_F(Workouts, OfOneDayStandByTheirKeyAfterARestart)
{
    for (int i = 0; i < 3; ++i) List().Add();
    StartAgain();
    colWorkout &list = modMain::Players->Item(1)->Workouts();
    EXPECT_EQ(list.Item(1)->Key, 1);
    EXPECT_EQ(list.Item(2)->Key, 2);
    EXPECT_EQ(list.Current()->Key, 3);
}

TEST_F(Workouts, RunFromTheOldestDay)
{
    List().Add();
    SetTime(2026, 3, 27);
    List().Add();
    StartAgain();
    EXPECT_EQ(modMain::Players->Item(1)->Workouts().Item(1)->Key, 2);
}

TEST_F(Workouts, OfOtherPlayersStayOut)
{
    modMain::Players->Add()->Workouts().Add();
    List().Load();
    EXPECT_EQ(List().Count(), 0);
}

TEST_F(Workouts, ANullModeLoadsAsZero)
{
    m_store.Ask(QStringLiteral("insert into Workout (WorkoutPlayer, WorkoutPoints, WorkoutStatus, WorkoutMode, "
                               "WorkoutTimestamp) values (1, 0, 0, null, 46000)"));
    EXPECT_EQ(List().Item(1)->Mode, 0);
}

TEST_F(Workouts, PointsInTheStoreAreNotReadAndAreWrittenAsZero)
{
    List().Add();
    m_store.Ask(QStringLiteral("update Workout set WorkoutPoints = 55"));
    List().Load();
    EXPECT_EQ(List().Item(1)->Points, 0);
    List().Item(1)->Save();
    EXPECT_EQ(StoredOne(QStringLiteral("select WorkoutPoints from Workout")), u"0");
}

TEST_F(Workouts, ItemAndRemoveTakeAPositionOrAPrefixedKeyAndTheRowStays)
{
    List().Add();
    const auto second = List().Add();
    List().Remove(1);
    EXPECT_EQ(List().Item(1), second);
    EXPECT_EQ(List().Item(QStringLiteral("K2")), second);
    EXPECT_THROW(List().Item(QStringLiteral("K1")), ListError);
    List().Remove(QStringLiteral("K2"));
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*) from Workout")), u"2");
}

TEST_F(Workouts, ResultsAreLoadedOnceAndKept)
{
    const auto workout = List().Add();
    EXPECT_EQ(&workout->GamesPlayed(), &workout->GamesPlayed());
    workout->GamesPlayed().Add(1, 1, 1, 1, 1, 1, 1, 0);
    EXPECT_EQ(workout->GamesPlayed().Count(), 1);
}

TEST_F(Workouts, ResultsOfOneThatWasNeverSavedAreAFailure)
{
    CWorkout workout;
    EXPECT_THROW(workout.GamesPlayed(), RuntimeError);
}

TEST_F(Workouts, CompleteStandsInMemoryWhenItCannotBeStored)
{
    const auto workout = List().Add();
    {
        const FailingCall first(m_store, 1);
        workout->Complete();
    }
    EXPECT_EQ(TakeMessages(), u"Error saving Workout info.");
    EXPECT_EQ(workout->Status, CWorkout::Completed);
    EXPECT_EQ(StoredOne(QStringLiteral("select WorkoutStatus from Workout")), u"0");
}

TEST_F(Workouts, OneThatCouldNotBeSavedStandsUnderKeyZero)
{
    List();
    const FailingCall first(m_store, 1);
    EXPECT_EQ(List().Add()->Key, 0);
    EXPECT_EQ(TakeMessages(), u"Error saving Workout info.");
    EXPECT_EQ(List().Item(QStringLiteral("K0"))->Player, m_ann->Key);
}

TEST_F(Workouts, ResultsOfAllAreReadByOneStatementAndLikeOneByOne)
{
    GivenGame(S("Arrows"), {.Name = "Arrows", .Category = "Attention"});
    Start();
    for (int workout = 0; workout < 3; ++workout) {
        const auto made = List().Add();
        for (int points = 0; points < workout; ++points) made->GamesPlayed().Add(1, 1, 1, 1, points * 10, 1, 1, 0);
    }
    modMain::Players->Add()->Workouts().Add()->GamesPlayed().Add(2, 1, 1, 1, 99, 1, 1, 0);
    const auto told = [](colWorkout &list) {
        QStringList all;
        for (const auto &workout : list) {
            all << QString::number(workout->Key);
            for (const auto &result : workout->GamesPlayed()) all << S("%1p").arg(result->Points);
        }
        return all.join(u' ');
    };
    StartAgain();
    const QString singly = told(modMain::Players->Item(1)->Workouts());
    EXPECT_EQ(singly, S("1 2 0p 3 0p 10p"));

    StartAgain();
    colWorkout &list = modMain::Players->Item(1)->Workouts();
    const auto known = list.Item(2);
    known->GamesPlayed().Add(1, 1, 1, 1, 7, 1, 1, 0);
    list.LoadResults();
    EXPECT_EQ(known->GamesPlayed().Count(), 2) << "read before";
    const int calls = m_store.Calls();
    EXPECT_EQ(told(list), S("1 2 0p 7p 3 0p 10p"));
    list.LoadResults();
    EXPECT_EQ(m_store.Calls(), calls) << "nothing is left to read";
}

TEST_F(Workouts, OneThatWasNeverSavedStillFailsAfterAllWereRead)
{
    List();
    {
        const FailingCall first(m_store, 1);
        List().Add();
    }
    TakeMessages();
    List().LoadResults();
    EXPECT_THROW(List().Item(QStringLiteral("K0"))->GamesPlayed(), RuntimeError);
}
