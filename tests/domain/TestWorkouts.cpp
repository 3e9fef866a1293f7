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

namespace
{
// What each workout of the list says about categories 1 and 2, "-" where it has no result.
QString PointsOf(colWorkout &list)
{
    QStringList all;
    for (const auto &workout : list) {
        QStringList points;
        for (const int category : {1, 2}) {
            const auto in = workout->PointsIn(category);
            points << (in ? QString::number(*in) : S("-"));
        }
        all << points.join(u'/');
    }
    return all.join(u' ');
}
} // namespace

TEST_F(Workouts, PointsOfAllAreReadByOneStatementAndLikeOneByOne)
{
    GivenGame(S("Arrows"), {.Name = "Arrows", .Category = "Attention"});
    GivenGame(S("Beacons"), {.Name = "Beacons", .Category = "Memory"});
    Start();
    List().Add();
    List().Add()->GamesPlayed().Add(1, 1, 1, 1, 10, 1, 1, 0);
    const auto third = List().Add();
    for (const int points : {20, 30}) third->GamesPlayed().Add(1, 1, 1, 1, points, 1, 1, 0);
    third->GamesPlayed().Add(1, 2, 1, 1, 40, 1, 1, 0);
    modMain::Players->Add()->Workouts().Add()->GamesPlayed().Add(2, 1, 1, 1, 99, 1, 1, 0);
    StartAgain();
    EXPECT_EQ(PointsOf(modMain::Players->Item(1)->Workouts()), S("-/- 10/- 20/40")) << "one by one; the first counts";

    StartAgain();
    colWorkout &list = modMain::Players->Item(1)->Workouts();
    m_store.FailAtCall(0);
    list.LoadPoints();
    EXPECT_EQ(PointsOf(list), S("-/- 10/- 20/40"));
    list.LoadPoints();
    EXPECT_EQ(PointsOf(list), S("-/- 10/- 20/40"));
    EXPECT_EQ(m_store.Calls(), 1);
}

TEST_F(Workouts, PointsFollowAResultThatIsAddedAfterAllWereRead)
{
    GivenGame(S("Arrows"), {.Name = "Arrows", .Category = "Attention"});
    Start();
    List().Add();
    List().LoadPoints();
    EXPECT_EQ(PointsOf(List()), S("-/-"));
    List().Item(1)->GamesPlayed().Add(1, 1, 1, 1, 10, 1, 1, 0);
    EXPECT_EQ(PointsOf(List()), S("10/-"));
    List().Add()->GamesPlayed().Add(1, 1, 1, 1, 20, 1, 1, 0);
    List().LoadPoints();
    EXPECT_EQ(PointsOf(List()), S("10/- 20/-"));
}

TEST_F(Workouts, OfResultsOfOneSecondThePointsOfTheFirstStoredCount)
{
    GivenGame(S("Arrows"), {.Name = "Arrows", .Category = "Attention"});
    GivenGame(S("Beacons"), {.Name = "Beacons", .Category = "Attention"});
    Start();
    List().Add();
    m_store.Ask(S("insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, "
                  "GamePlayedPoints, GamePlayedTime, GamePlayedMode, GamePlayedLevel, GamePlayedWorkout) values "
                  "(1, 2, 45000.5, 1, 70, 1, 1, 1, 1), (1, 1, 45000.5, 1, 30, 1, 1, 1, 1)"));
    List().LoadPoints();
    EXPECT_EQ(PointsOf(List()), S("70/-"));
    EXPECT_EQ(List().Item(1)->GamesPlayed().ByCat(1)->Points, 70);
}

TEST_F(Workouts, AGameThatIsNotInTheCatalogueIsToldAlsoAfterAllWereRead)
{
    GivenGame(S("Arrows"), {.Name = "Arrows", .Category = "Attention"});
    Start();
    List().Add()->GamesPlayed().Add(1, 77, 1, 1, 10, 1, 1, 0);
    List().Add()->GamesPlayed().Add(1, 1, 1, 1, 20, 1, 1, 0);
    StartAgain();
    colWorkout &list = modMain::Players->Item(1)->Workouts();
    list.LoadPoints();
    EXPECT_THROW(list.Item(1)->PointsIn(1), ListError);
    EXPECT_EQ(list.Item(2)->PointsIn(1), 20);
}

TEST_F(Workouts, OneThatWasNeverSavedStillFailsAfterAllWereRead)
{
    List();
    {
        const FailingCall first(m_store, 1);
        List().Add();
    }
    TakeMessages();
    List().LoadPoints();
    EXPECT_THROW(List().Item(QStringLiteral("K0"))->GamesPlayed(), RuntimeError);
}
