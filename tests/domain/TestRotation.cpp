#include "DomainTest.h"
#include "platform/Clock.h"

namespace
{
constexpr std::int32_t WorkoutGame = 1;
constexpr std::int32_t PracticeGame = 3;

class Rotation : public DomainTest
{
protected:
    Rotation()
    {
        // Not in the order of their names, on disk or in the store.
        GivenGame(QStringLiteral("1"), {"Corners", "Memory"});
        GivenGame(QStringLiteral("2"), {"Arrows", "Memory"});
        GivenGame(QStringLiteral("3"), {"Beacons", "Memory"});
        GivenGame(QStringLiteral("4"), {"Sums", "Numbers"});
        Start();
        m_ann = GivenCurrentPlayer();
        m_memory = Category(QStringLiteral("Memory"));
        m_numbers = Category(QStringLiteral("Numbers"));
    }
    static std::int32_t Category(const QString &Name) { return modMain::Categories->CategoryByName(Name)->Key; }
    void Finish(const QString &GameName, std::int32_t Mode = WorkoutGame, std::int32_t Points = 1)
    {
        SetTime(2026, 3, 5, 8, 0, ++m_second);
        m_ann->GamesPlayed().Add(m_ann->Key, Game(GameName)->Key, 1, 1, Points, Mode, 1, 0);
    }
    QString Next(std::int32_t Key)
    {
        const auto game = m_ann->NextGameToPlay(Key);
        return game ? game->Name() : QStringLiteral("none");
    }
    QString Next() { return Next(m_memory); }

    std::shared_ptr<CPlayer> m_ann;
    std::int32_t m_memory = 0;
    std::int32_t m_numbers = 0;
    int m_second = 0;
};

const QString Arrows = QStringLiteral("Arrows");
const QString Beacons = QStringLiteral("Beacons");
const QString Corners = QStringLiteral("Corners");
const QString Sums = QStringLiteral("Sums");
} // namespace

TEST_F(Rotation, BeginsWithTheFirstNameOfTheCategory) { EXPECT_EQ(Next(), Arrows); }

TEST_F(Rotation, GoesThroughTheCategoryInNameOrderAndRoundAgain)
{
    for (const QString &expected : {Arrows, Beacons, Corners, Arrows, Beacons}) {
        ASSERT_EQ(Next(), expected);
        Finish(expected);
    }
}

TEST_F(Rotation, OfACategoryWithOneGameIsThatGameAlways)
{
    EXPECT_EQ(Next(m_numbers), Sums);
    Finish(Sums);
    EXPECT_EQ(Next(m_numbers), Sums);
}

TEST_F(Rotation, OfACategoryWithoutGamesIsEmpty)
{
    EXPECT_EQ(m_ann->NextGameToPlay(modMain::Categories->Add(QStringLiteral("Empty"))->Key), nullptr);
    EXPECT_EQ(m_ann->NextGameToPlay(999), nullptr);
}

TEST_F(Rotation, IsMovedByPracticeToo)
{
    Finish(Arrows, WorkoutGame);
    Finish(Beacons, PracticeGame);
    EXPECT_EQ(Next(), Corners);
}

TEST_F(Rotation, IsNotMovedByOtherCategoriesOrPlayers)
{
    Finish(Arrows);
    Finish(Sums);
    SetTime(2026, 3, 6);
    modMain::Players->Add()->GamesPlayed().Add(2, Game(Beacons)->Key, 1, 1, 1, 1, 1, 0);
    EXPECT_EQ(Next(), Beacons);
}

TEST_F(Rotation, TakesTheLaterAddedOfTwoResultsOfOneSecond)
{
    Finish(Beacons);
    --m_second;
    Finish(Arrows);
    EXPECT_EQ(Next(), Beacons);
}

TEST_F(Rotation, TakesTheNewestMomentAndNotTheHighestKey)
{
    m_second = 10;
    Finish(Beacons);
    m_second = 5;
    Finish(Corners);
    EXPECT_EQ(Next(), Corners);
}

TEST_F(Rotation, OfAGameThatMovedAwayIsDecidedByTheNewestResultThatIsLeft)
{
    Finish(Arrows);
    Finish(Beacons);
    GivenGame(QStringLiteral("3"), {"Beacons", "Numbers"});
    StartAgain();
    m_ann = modMain::Players->Item(1);
    EXPECT_EQ(Next(), Corners);
    EXPECT_EQ(Next(m_numbers), Sums);
}

TEST_F(Rotation, OfALastGameThatIsNoLongerInMemoryBeginsWithTheFirst)
{
    Finish(Beacons);
    modMain::Games->Remove(RecordKey(Game(Beacons)->Key));
    EXPECT_EQ(Next(), Arrows);
}

TEST_F(Rotation, FailsToTheCallerWithTheStore)
{
    const FailingCall first(m_store, 1);
    EXPECT_THROW(m_ann->NextGameToPlay(m_memory), RuntimeError);
    EXPECT_EQ(TakeMessages(), QString());
}

namespace
{
using Series = std::vector<double>;
using GameData = Rotation;
} // namespace

TEST_F(GameData, WithoutResultsIsOneElementOfZero)
{
    Series dates{1, 2, 3};
    Series points;
    m_ann->GetGameData(m_memory, dates, points, 1);
    EXPECT_EQ(dates, Series({0}));
    EXPECT_EQ(points, Series({0}));
}

TEST_F(GameData, RunsFromTheOldestWithTheStoredMoments)
{
    m_second = 30;
    Finish(Arrows, WorkoutGame, 7);
    m_second = 10;
    Finish(Corners, WorkoutGame, 9);
    Finish(Sums, WorkoutGame, 99);
    Series dates;
    Series points;
    m_ann->GetGameData(m_memory, dates, points, 1);
    EXPECT_EQ(points, Series({9, 7}));
    EXPECT_EQ(dates, Series({ToDayCount(QDateTime(QDate(2026, 3, 5), QTime(8, 0, 11))),
                             ToDayCount(QDateTime(QDate(2026, 3, 5), QTime(8, 0, 31)))}));
}

TEST_F(GameData, WithModeZeroTakesAllResultsAndWithModeOneThoseOfWorkouts)
{
    Finish(Arrows, WorkoutGame, 1);
    Finish(Beacons, PracticeGame, 2);
    Finish(Corners, 0, 3);
    Series dates;
    Series points;
    m_ann->GetGameData(m_memory, dates, points, 0);
    EXPECT_EQ(points, Series({1, 2, 3}));
    m_ann->GetGameData(m_memory, dates, points, 1);
    EXPECT_EQ(points, Series({1}));
    m_ann->GetGameData(m_memory, dates, points, 3);
    EXPECT_EQ(points, Series({2}));
    m_ann->GetGameData(m_memory, dates, points, -1);
    EXPECT_EQ(points, Series({1, 2, 3}));
}

TEST_F(GameData, FailsToTheCallerWithTheStoreAndLeavesOneElement)
{
    Series dates;
    Series points;
    const FailingCall first(m_store, 1);
    EXPECT_THROW(m_ann->GetGameData(m_memory, dates, points, 1), RuntimeError);
    EXPECT_EQ(dates, Series({0}));
}
