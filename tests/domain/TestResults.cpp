#include "DomainTest.h"
#include "domain/Store.h"
#include "platform/Clock.h"

namespace
{
class Results : public DomainTest
{
protected:
    Results()
    {
        GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
        GivenGame(QStringLiteral("beacons"), {"Beacons", "Memory"});
        GivenGame(QStringLiteral("sums"), {"Sums", "Numbers"});
        Start();
        m_ann = GivenCurrentPlayer();
        m_arrows = Game(QStringLiteral("Arrows"))->Key;
        m_memory = modMain::Categories->CategoryByName(QStringLiteral("Memory"))->Key;
        SetTime(2026, 3, 5, 8, 0, 0);
    }
    static constexpr std::int32_t Level = 1;
    static constexpr std::int32_t Practice = 3;

    // A practice result of Arrows.
    std::shared_ptr<CGamePlayed> Practised(std::int32_t Score, std::int32_t Time)
    {
        return m_ann->GamesPlayed().Add(m_ann->Key, m_arrows, Score, Time, Score, Practice, Level, 0);
    }
    static QString Keys(const colGamePlayed &List)
    {
        QStringList keys;
        for (const auto &result : List) keys.append(QString::number(result->Key));
        return keys.join(u' ');
    }
    QString Best() { return Keys(*Game(QStringLiteral("Arrows"))->BestTimes(Level, Practice)); }

    std::shared_ptr<CPlayer> m_ann;
    std::int32_t m_arrows = 0;
    std::int32_t m_memory = 0;
};
} // namespace

TEST_F(Results, AddTakesScoreThenTimeThenPoints)
{
    m_ann->GamesPlayed().Add(1, 2, 30, 40, 50, 3, 6, 1);
    EXPECT_EQ(StoredOne(QStringLiteral("select GamePlayedPlayer, GamePlayedGame, GamePlayedScore, GamePlayedTime, "
                                       "GamePlayedPoints, GamePlayedMode, GamePlayedLevel, GamePlayedAward, "
                                       "GamePlayedUploaded from GamePlayed")),
              u"1|2|30|40|50|3|6|1|0");
}

TEST_F(Results, ComeBackAsTheyWereAdded)
{
    const auto workout = m_ann->Workouts().Add();
    const auto added = workout->GamesPlayed().Add(1, m_arrows, 30, 40, 50, 1, 6, 1);
    StartAgain();
    const auto loaded = modMain::Players->Item(1)->Workouts().Item(1)->GamesPlayed().Item(1);
    EXPECT_EQ(loaded->Key, added->Key);
    EXPECT_EQ(loaded->Player, 1);
    EXPECT_EQ(loaded->Game, m_arrows);
    EXPECT_EQ(loaded->Timestamp, added->Timestamp);
    EXPECT_EQ(loaded->Score, 30);
    EXPECT_EQ(loaded->Time, 40);
    EXPECT_EQ(loaded->Points, 50);
    EXPECT_EQ(loaded->Mode, 1);
    EXPECT_EQ(loaded->Workout, workout->Key);
    EXPECT_EQ(loaded->Level, 6);
    EXPECT_EQ(loaded->Award, 1);
    EXPECT_FALSE(loaded->Uploaded);
}

TEST_F(Results, ANewOneIsNotUploaded)
{
    EXPECT_FALSE(Practised(1, 1)->Uploaded);
    EXPECT_EQ(StoredOne(QStringLiteral("select GamePlayedUploaded from GamePlayed")), u"0");
}

TEST_F(Results, TheMarkOfAnUploadIsStoredAndTheMomentIsNotRenewed)
{
    const auto result = Practised(1, 1);
    const double moment = result->Timestamp;
    SetTime(2026, 3, 6, 9);
    result->Uploaded = true;
    result->Save();
    StartAgain();
    const auto loaded = modMain::Players->Item(1)->GamesPlayed().Item(1);
    EXPECT_TRUE(loaded->Uploaded);
    EXPECT_EQ(loaded->Timestamp, moment);
}

TEST_F(Results, OfPracticeAreStoredWithANullWorkoutAndLoadWithNone)
{
    Practised(1, 1);
    EXPECT_EQ(StoredOne(QStringLiteral("select GamePlayedWorkout from GamePlayed")), u"null");
    StartAgain();
    EXPECT_EQ(modMain::Players->Item(1)->GamesPlayed().Item(1)->Workout, 0);
}

TEST_F(Results, NullColumnsLoadAsNothing)
{
    m_store.Ask(QStringLiteral("insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, "
                               "GamePlayedScore, GamePlayedPoints, GamePlayedTime, GamePlayedMode, GamePlayedLevel, "
                               "GamePlayedAward, GamePlayedUploaded, GamePlayedWorkout) "
                               "values (1, 1, 46000.5, 7, 8, 9, null, 1, null, null, null)"));
    const auto result = m_ann->GamesPlayed().Item(1);
    EXPECT_EQ(result->Mode, 0);
    EXPECT_EQ(result->Award, 0);
    EXPECT_FALSE(result->Uploaded);
    EXPECT_EQ(result->Workout, 0);
    EXPECT_EQ(result->Score, 7);
}

TEST_F(Results, AddedThroughAWorkoutBelongToItWhateverThePlayer)
{
    const auto workout = m_ann->Workouts().Add();
    EXPECT_EQ(workout->GamesPlayed().Add(77, m_arrows, 1, 1, 1, 1, 1, 0)->Workout, workout->Key);
    EXPECT_EQ(StoredOne(QStringLiteral("select GamePlayedWorkout, GamePlayedPlayer from GamePlayed")),
              QStringLiteral("%1|77").arg(workout->Key));
}

TEST_F(Results, MomentsAreCutToTheSecondAndComeBackBitForBit)
{
    for (int second = 0; second < 60; ++second) {
        SetTime(2026, 11, 21, 23, 59, second, 999);
        const double moment = Practised(1, 1)->Timestamp;
        EXPECT_EQ(moment, ToDayCount(QDateTime(QDate(2026, 11, 21), QTime(23, 59, second))));
    }
    colGamePlayed again;
    again.SetPlayer(m_ann->Key);
    again.Load();
    for (std::int32_t i = 1; i <= 60; ++i)
        EXPECT_EQ(again.Item(i)->Timestamp, m_ann->GamesPlayed().Item(i)->Timestamp) << i;
}

TEST_F(Results, AHistoryRunsFromTheOldestAndANewOneGoesLast)
{
    SetTime(2026, 3, 5);
    Practised(1, 1);
    SetTime(2026, 3, 4);
    Practised(2, 1);
    EXPECT_EQ(Keys(m_ann->GamesPlayed()), u"1 2");
    StartAgain();
    EXPECT_EQ(Keys(modMain::Players->Item(1)->GamesPlayed()), u"2 1");
}

TEST_F(Results, OneAddedToALeaderboardGoesLastWhateverItsScore)
{
    Practised(10, 5);
    const auto best = Game(QStringLiteral("Arrows"))->BestTimes(Level, Practice);
    best->Add(1, m_arrows, 99, 1, 99, Practice, Level, 0);
    EXPECT_EQ(Keys(*best), u"1 2");
}

TEST_F(Results, TheHighestScoreHeadsTheLeaderboardWhateverThePoints)
{
    m_ann->GamesPlayed().Add(1, m_arrows, 10, 5, 999, Practice, Level, 0);
    m_ann->GamesPlayed().Add(1, m_arrows, 20, 5, 1, Practice, Level, 0);
    EXPECT_EQ(Best(), u"2 1");
}

TEST_F(Results, OfEqualScoreStandByTheShorterTime)
{
    Practised(10, 7);
    Practised(10, 5);
    Practised(10, 6);
    EXPECT_EQ(Best(), u"2 3 1");
}

TEST_F(Results, OfEqualScoreAndTimeStandByTheEarlierMoment)
{
    SetTime(2026, 3, 5, 8, 0, 2);
    Practised(10, 5);
    SetTime(2026, 3, 5, 8, 0, 1);
    Practised(10, 5);
    SetTime(2026, 3, 5, 8, 0, 3);
    Practised(10, 5);
    EXPECT_EQ(Best(), u"2 1 3");
}

TEST_F(Results, OfOtherLevelsModesAndGamesStayOutOfTheLeaderboard)
{
    Practised(10, 5);
    m_ann->GamesPlayed().Add(1, m_arrows, 20, 5, 20, Practice, Level + 1, 0);
    m_ann->GamesPlayed().Add(1, m_arrows, 20, 5, 20, 1, Level, 0);
    m_ann->GamesPlayed().Add(1, m_arrows + 1, 20, 5, 20, Practice, Level, 0);
    EXPECT_EQ(Best(), u"1");
}

TEST_F(Results, OfDeletedPlayersStayOnTheLeaderboard)
{
    const auto bob = modMain::Players->Add();
    bob->GamesPlayed().Add(bob->Key, m_arrows, 99, 5, 99, Practice, Level, 0);
    Practised(10, 5);
    modMain::Players->Remove(bob->Key);
    EXPECT_EQ(Best(), u"1 2");
    EXPECT_EQ(modMain::Players->Find(bob->Key), nullptr);
}

TEST_F(Results, BestTimesUpToANumberAreTheFirstOfAll)
{
    for (const int score : {10, 90, 50, 70, 30}) Practised(score, 5);
    const auto all = Game(QStringLiteral("Arrows"))->BestTimes(Level, Practice);
    const auto three = Game(QStringLiteral("Arrows"))->BestTimes(Level, Practice, 3);
    EXPECT_EQ(all->Count(), 5);
    ASSERT_EQ(three->Count(), 3);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(three->Item(i)->Key, all->Item(i)->Key);
    EXPECT_EQ(Game(QStringLiteral("Arrows"))->BestTimes(Level, Practice, 9)->Count(), 5);
}

TEST_F(Results, BestTimesIsReadAnewEachTime)
{
    const auto before = Game(QStringLiteral("Arrows"))->BestTimes(Level, Practice);
    Practised(10, 5);
    EXPECT_EQ(before->Count(), 0);
    EXPECT_EQ(Best(), u"1");
}

TEST_F(Results, OfTheWorkoutAreAskedForWhenWorkoutAndPlayerAreBothSet)
{
    const auto workout = m_ann->Workouts().Add();
    Practised(1, 1);
    workout->GamesPlayed().Add(1, m_arrows, 2, 1, 2, 1, 1, 0);
    colGamePlayed list;
    list.SetPlayer(m_ann->Key);
    list.SetWorkout(workout->Key);
    list.Load();
    EXPECT_EQ(Keys(list), u"2");
}

TEST_F(Results, OfLevelZeroAndModeZeroAreAskedForWhenOnlyTheGameIsSet)
{
    Practised(1, 1);
    colGamePlayed list;
    list.SetGame(m_arrows);
    list.Load();
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(Results, WithoutAFilterLoadFailsWithAnEmptyList)
{
    Practised(1, 1);
    colGamePlayed list;
    list.SetPlayer(m_ann->Key);
    list.Load();
    list.SetPlayer(0);
    EXPECT_THROW(list.Load(), RuntimeError);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(TakeMessages(), QString());
}

TEST_F(Results, ItemTakesAPositionOrAPrefixedKey)
{
    Practised(1, 1);
    Practised(2, 1);
    colGamePlayed &list = m_ann->GamesPlayed();
    list.Remove(1);
    EXPECT_EQ(list.Item(1)->Key, 2);
    EXPECT_EQ(list.Item(QStringLiteral("K2"))->Key, 2);
    EXPECT_THROW(list.Item(2), ListError);
    EXPECT_THROW(list.Item(QStringLiteral("2")), ListError);
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*) from GamePlayed")), u"2");
}

TEST_F(Results, ByCatIsTheFirstResultOfTheCategoryOrEmpty)
{
    const auto workout = m_ann->Workouts().Add();
    colGamePlayed &list = workout->GamesPlayed();
    EXPECT_EQ(list.ByCat(m_memory), nullptr);
    list.Add(1, Game(QStringLiteral("Sums"))->Key, 1, 1, 1, 1, 1, 0);
    EXPECT_EQ(list.ByCat(m_memory), nullptr);
    const auto first = list.Add(1, Game(QStringLiteral("Beacons"))->Key, 1, 1, 1, 1, 1, 0);
    list.Add(1, m_arrows, 1, 1, 1, 1, 1, 0);
    EXPECT_EQ(list.ByCat(m_memory), first);
}

TEST_F(Results, ByCatFailsAtAGameThatIsNotInTheCatalogue)
{
    colGamePlayed &list = m_ann->GamesPlayed();
    list.Add(1, 999, 1, 1, 1, 3, 1, 0);
    EXPECT_THROW(list.ByCat(m_memory), ListError);
}

TEST_F(Results, ByGameIsTheFirstResultOfTheGameOrEmpty)
{
    colGamePlayed &list = m_ann->GamesPlayed();
    EXPECT_EQ(list.ByGame(999), nullptr);
    const auto first = list.Add(1, 999, 1, 1, 1, 3, 1, 0);
    list.Add(1, 999, 2, 1, 2, 3, 1, 0);
    EXPECT_EQ(list.ByGame(999), first);
}

TEST_F(Results, ThatCouldNotBeSavedStandUnderKeyZeroAndASecondOneFails)
{
    colGamePlayed &list = m_ann->GamesPlayed();
    for (const bool isFirst : {true, false}) {
        const FailingCall first(m_store, 1);
        if (isFirst)
            list.Add(1, 1, 1, 1, 1, 3, 1, 0);
        else
            EXPECT_THROW(list.Add(1, 1, 2, 1, 2, 3, 1, 0), ListError);
        EXPECT_EQ(TakeMessages(), u"Error saving GamePlayed info.");
    }
    EXPECT_EQ(list.Item(QStringLiteral("K0"))->Score, 1);
    EXPECT_EQ(list.Count(), 1);
}

TEST_F(Results, ANumberThatDoesNotFitIsAFailureOfTheLoad)
{
    Practised(1, 1);
    m_store.Ask(QStringLiteral("update GamePlayed set GamePlayedScore = 4294967296"));
    colGamePlayed list;
    list.SetPlayer(m_ann->Key);
    EXPECT_THROW(list.Load(), RuntimeError);
}
