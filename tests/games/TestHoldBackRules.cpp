#include "games/hold-back/HoldRules.h"
#include "tests/games/model/Model.h"

#include <algorithm>

namespace
{
constexpr double Limit = 60;    // [s]
constexpr double LeadIn = 2.8;  // [s] in which the stop shape is shown
constexpr double Telling = 1.2; // [s] that a mistake is told

/// Seconds to see a shape, judge it and press, and how much they vary; how often a stop shape is pressed all the
/// same; how often a shape goes by unnoticed.
struct ModelPlayer
{
    double reaction, spread, slips, lapses;
};
constexpr ModelPlayer Learner{0.47, 0.09, 0.42, 0.06};
constexpr ModelPlayer Good{0.38, 0.06, 0.22, 0.02};
constexpr ModelPlayer Expert{0.31, 0.04, 0.05, 0.005};

/// Plays one set; Presses tells whether the present shape is pressed within its time.
template <typename Habit>
Model::Session Play(int level, std::uint32_t seed, Habit presses)
{
    HoldRules rules(level, seed);
    double time = LeadIn;
    while (!rules.Set().Over()) {
        time += rules.Beat() / 1000.0;
        if (time > Limit) break;
        if (presses(rules)) rules.Press();
        if (!rules.IsRight()) time += Telling;
        rules.Close();
    }
    return {rules.Set().Points(), time};
}

Model::Session PlayAs(const ModelPlayer &player, int level, std::uint32_t seed)
{
    SeededRandom chance(seed + 1);
    const auto part = [&] { return chance.Between(0, 10000) / 10000.0; };
    const auto deviate = [&] { return 2 * (part() + part() + part() - 1.5); }; // of a normal spread, nearly
    return Play(level, seed, [&](const HoldRules &rules) {
        const double reaction = player.reaction + player.spread * deviate();
        const bool isStop = rules.Present().Kind == rules.StopKind();
        const bool wants = part() >= (isStop ? 1 - player.slips : player.lapses);
        return wants && reaction * 1000 < rules.Beat();
    });
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Limit, [&](std::uint32_t seed) { return PlayAs(player, level, seed); });
}

double MedianOfHabit(int level, int percent)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, [&](const HoldRules &) { return chance.Between(1, 100) <= percent; });
    });
}

double ShareOfStops(int level)
{
    return static_cast<double>(HoldRules::Stops) / static_cast<double>(HoldRules(level, 1).Items().size());
}
} // namespace

class HoldLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(HoldBackRules, HoldLevel, testing::Range(1, HoldRules::Levels + 1));

TEST_P(HoldLevel, EveryShapeIsEitherTheStopShapeOrAnotherOneOfItsFamily)
{
    int shapes = 0;
    for (std::uint32_t seed = 0; shapes < 100000; ++seed) {
        HoldRules rules(GetParam(), seed);
        const int kinds = HoldRules::Kinds(rules.Shapes());
        ASSERT_TRUE(rules.StopKind() >= 0 && rules.StopKind() < kinds);
        int stops = 0;
        for (; !rules.Set().Over(); rules.Close(), ++shapes) {
            const HoldRules::Item shape = rules.Items()[static_cast<std::size_t>(rules.Index())];
            ASSERT_TRUE(shape.Kind >= 0 && shape.Kind < kinds);
            ASSERT_TRUE(shape.Tint >= 0 && shape.Tint < HoldRules::Tints);
            const bool isStop = shape.Kind == rules.StopKind();
            stops += isStop ? 1 : 0;
            ASSERT_EQ(rules.IsRight(), isStop) << "not to press is right for the stop shape alone";
            if (!isStop) rules.Press();
            ASSERT_TRUE(rules.IsRight());
        }
        ASSERT_EQ(stops, HoldRules::Stops);
        ASSERT_EQ(rules.Set().Points(), 125);
    }
}

TEST_P(HoldLevel, OneSeedGivesOneSetAndAnotherOneAnother)
{
    EXPECT_EQ(HoldRules(GetParam(), 5).Items(), HoldRules(GetParam(), 5).Items());
    EXPECT_NE(HoldRules(GetParam(), 5).Items(), HoldRules(GetParam(), 6).Items());
}

TEST_P(HoldLevel, IsBalanced)
{
    Model::ExpectBalanced(GetParam(),
                          {MedianOfHabit(GetParam(), 50), MedianOfHabit(GetParam(), 100),
                           MedianOf(Learner, GetParam()), MedianOf(Good, GetParam()), MedianOf(Expert, GetParam())});
}

TEST_P(HoldLevel, NeverPressingEarnsNothing) { EXPECT_EQ(MedianOfHabit(GetParam(), 0), 0); }

TEST_P(HoldLevel, PressingNearlyAlwaysEarnsAlmostNothing) { EXPECT_LE(MedianOfHabit(GetParam(), 90), 35); }

TEST_P(HoldLevel, WhoHoldsBackMoreOftenNeverScoresLess)
{
    double before = 0;
    for (const double slips : {0.7, 0.5, 0.3, 0.15, 0.05}) {
        const double median = MedianOf({0.38, 0.06, slips, 0.02}, GetParam());
        EXPECT_GE(median, before) << slips;
        before = median;
    }
}

TEST_P(HoldLevel, WhoReactsSoonerNeverScoresLess)
{
    constexpr double Noise = 3; // [points] of a median: where the beat is slow, all of these are in time
    double before = 0;
    for (const double reaction : {0.7, 0.58, 0.48, 0.38, 0.28}) {
        const double median = MedianOf({reaction, 0.07, 0.2, 0.02}, GetParam());
        EXPECT_GE(median, before - Noise) << reaction;
        before = std::max(before, median);
    }
}

TEST_P(HoldLevel, StopsComeAllTheWayThroughNeverFirstAndNeverThreeInARow)
{
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        const HoldRules rules(GetParam(), seed);
        const auto isStop = [&](const HoldRules::Item &item) { return item.Kind == rules.StopKind(); };
        const auto &items = rules.Items();
        EXPECT_FALSE(isStop(items.front()));
        EXPECT_EQ(std::search_n(items.begin(), items.end(), 3, true,
                                [&](const HoldRules::Item &item, bool) { return isStop(item); }),
                  items.end());
        const auto third = static_cast<std::ptrdiff_t>(items.size() / 3);
        for (int part = 0; part < 3; ++part)
            EXPECT_EQ(std::count_if(items.begin() + part * third, items.begin() + (part + 1) * third, isStop), 4);
    }
}

TEST_P(HoldLevel, AnyKindCanBeTheStopShape)
{
    std::vector<int> seen(8, 0);
    for (std::uint32_t seed = 0; seed < 400; ++seed)
        ++seen[static_cast<std::size_t>(HoldRules(GetParam(), seed).StopKind())];
    EXPECT_EQ(std::count_if(seen.begin(), seen.end(), [](int count) { return count > 0; }),
              HoldRules::Kinds(HoldRules(GetParam(), 1).Shapes()));
}

TEST(HoldBackRules, TheBeatGrowsSwifterAndTheStopsRarerWithEveryLevel)
{
    EXPECT_EQ(HoldRules(1, 1).Beat(), 1300);
    EXPECT_EQ(HoldRules(7, 1).Beat(), 600);
    for (int level = 2; level <= HoldRules::Levels; ++level) {
        EXPECT_LT(HoldRules(level, 1).Beat(), HoldRules(level - 1, 1).Beat());
        EXPECT_LT(ShareOfStops(level), ShareOfStops(level - 1));
    }
}

TEST(HoldBackRules, AFlawlessSetEndsWellBeforeTheClock)
{
    for (int level = 1; level <= HoldRules::Levels; ++level) {
        const HoldRules rules(level, 1);
        const double time = LeadIn + static_cast<double>(rules.Items().size()) * rules.Beat() / 1000.0;
        EXPECT_GT(time, 0.75 * Limit) << level;
        EXPECT_LT(time, 0.85 * Limit) << level;
    }
}

TEST(HoldBackRules, APressCountsOnceForAShape)
{
    HoldRules rules(1, 1);
    EXPECT_TRUE(rules.Press());
    EXPECT_FALSE(rules.Press());
    rules.Close();
    EXPECT_EQ(rules.Set().Points(), 125 / 24);
    EXPECT_FALSE(rules.IsPressed());
}

TEST(HoldBackRules, ASlipTakesWhatTheOthersBetweenTwoStopsBring)
{
    HoldRules rules(1, 1);
    while (!rules.IsStop()) rules.Close();
    rules.Press();
    rules.Close();
    EXPECT_EQ(rules.Set().Points(), 0);
    for (int pressed = 0; pressed < 3;) {
        if (!rules.IsStop()) {
            rules.Press();
            ++pressed;
        }
        rules.Close();
    }
    EXPECT_EQ(rules.Set().Points(), 125 / 24) << "twenty-four others for twelve stops: two for a slip";
}

TEST(HoldBackRules, AfterTheEndNothingCounts)
{
    HoldRules rules(1, 1);
    while (!rules.Set().Over()) rules.Close();
    EXPECT_FALSE(rules.Press());
    rules.Close();
    EXPECT_EQ(rules.Set().Done(), rules.Set().Count());
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST(HoldBackRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(HoldRules(-5, 1).Level(), 1);
    EXPECT_EQ(HoldRules(99, 1).Level(), 7);
}
