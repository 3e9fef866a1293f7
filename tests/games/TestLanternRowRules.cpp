#include "games/lantern-row/LanternRules.h"
#include "tests/games/model/Play.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace
{
using Press = LanternRules::Press;

/// The lanterns in the order to press.
std::vector<int> InOrder(const LanternRules &rules)
{
    std::vector<int> order(rules.Sequence());
    if (rules.Backward()) std::reverse(order.begin(), order.end());
    return order;
}

void PlayRight(LanternRules &rules)
{
    for (const int lantern : InOrder(rules)) rules.Judge(lantern);
}

void Fail(LanternRules &rules) { rules.Judge(InOrder(rules).back()); }

/// A player at the level that fits: the share of rounds that come out right, and the seconds for a press. The pace of
/// the lanterns and what is told after a round are the game's own.
struct ModelPlayer
{
    double right, press;
};
constexpr ModelPlayer Good{0.80, 0.60};
constexpr ModelPlayer Expert{0.97, 0.45};
constexpr ModelPlayer Learner{0.45, 0.90};
constexpr double Limit = 90; // [s]

constexpr double HastyPress = 0.25; // [s] as fast as keys go

/// Plays one set; Presses plays a round.
template <typename Presses>
Model::Session Play(int level, std::uint32_t seed, double press, Presses presses)
{
    LanternRules rules(level, seed);
    double time = 0;
    while (!rules.Over()) {
        time += 0.8 + static_cast<double>(rules.Sequence().size()) * (0.75 + press);
        if (time > Limit) break;
        const bool right = presses(rules);
        if (!rules.Over()) time += right ? 0.9 : 2.2;
        rules.Next();
    }
    return {rules.Points(), time};
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, player.press, [&](LanternRules &rules) {
            const bool right = chance.Between(1, 1000) <= player.right * 1000;
            right ? PlayRight(rules) : Fail(rules);
            return right;
        });
    });
}

/// Somebody who did not watch; Which gives the lantern to press.
template <typename Which>
double MedianOfHabit(int level, Which which)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, HastyPress, [&](LanternRules &rules) {
            Press last = Press::Right;
            while (last == Press::Right) last = rules.Judge(which(rules, chance));
            return last == Press::Complete;
        });
    });
}
} // namespace

class LanternLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(LanternRules, LanternLevel, testing::Range(1, LanternRules::Levels + 1));

// There is one right order, the one that was lit or its reverse, and each lantern has one place in it.
TEST_P(LanternLevel, EveryRoundHasOneRightOrder)
{
    int rounds = 0;
    for (std::uint32_t seed = 0; rounds < 100000; ++seed) {
        LanternRules rules(GetParam(), seed);
        for (; !rules.Over(); rules.Next(), ++rounds) {
            std::array<int, 16> places{}; // by lantern, from 1
            int place = 0;
            for (const int lantern : InOrder(rules)) {
                ASSERT_TRUE(lantern >= 0 && lantern < rules.Lanterns());
                ASSERT_EQ(std::exchange(places.at(static_cast<std::size_t>(lantern)), ++place), 0) << "twice";
            }
            for (int lantern = 0; lantern < rules.Lanterns(); ++lantern)
                ASSERT_EQ(rules.PlaceOf(lantern), places.at(static_cast<std::size_t>(lantern)));
            const int points = rules.Points();
            PlayRight(rules);
            ASSERT_GT(rules.Points(), points);
        }
    }
}

TEST_P(LanternLevel, OneSeedGivesOneSet)
{
    LanternRules one(GetParam(), 9);
    LanternRules other(GetParam(), 9);
    for (; !one.Over(); one.Next(), other.Next()) {
        ASSERT_EQ(one.Sequence(), other.Sequence());
        Fail(one);
        Fail(other);
    }
}

TEST_P(LanternLevel, AWholeSetWithoutAMistakeMakes125)
{
    LanternRules rules(GetParam(), 2);
    for (; !rules.Over(); rules.Next()) PlayRight(rules);
    EXPECT_EQ(rules.Points(), 125);
    EXPECT_EQ(rules.Progress(), 100);
}

TEST_P(LanternLevel, IsBalanced)
{
    const int level = GetParam();
    const double random = MedianOfHabit(level, [](const LanternRules &rules, SeededRandom &chance) {
        return chance.Between(0, rules.Lanterns() - 1);
    });
    const double always = MedianOfHabit(level, [](const LanternRules &, SeededRandom &) { return 4; });
    Model::ExpectBalanced(level,
                          {random, always, MedianOf(Learner, level), MedianOf(Good, level), MedianOf(Expert, level)});
}

TEST_P(LanternLevel, MoreSkillNeverScoresLess) // from the learner to beyond the expert
{
    Model::ExpectSkillPays({0, 0.2, 0.4, 0.6, 0.8, 1, 1.2}, [](double skill) {
        ModelPlayer player = Model::Between(Learner, Expert, skill);
        player.right = std::min(1.0, player.right);
        return MedianOf(player, GetParam());
    });
}

TEST(LanternRules, TheFirstRoundsAreFromTwoToSevenLanternsLong)
{
    const std::array<std::size_t, LanternRules::Levels> lengths{2, 3, 4, 5, 6, 5, 6, 7};
    for (int level = 1; level <= LanternRules::Levels; ++level)
        EXPECT_EQ(LanternRules(level, 1).Sequence().size(), lengths.at(static_cast<std::size_t>(level - 1)));
    EXPECT_EQ(LanternRules(1, 1).Lanterns(), 9);
    EXPECT_EQ(LanternRules(LanternRules::Levels, 1).Lanterns(), 16);
}

TEST(LanternRules, TheLastLanternComesFirstFromLevelSixOn)
{
    for (int level = 1; level <= LanternRules::Levels; ++level) {
        LanternRules rules(level, 4);
        EXPECT_EQ(rules.Backward(), level >= 6);
        EXPECT_EQ(rules.PlaceOf(level >= 6 ? rules.Sequence().back() : rules.Sequence().front()), 1);
    }
}

TEST(LanternRules, ALanternThatWasNotLitHasNoPlace)
{
    const LanternRules rules(1, 4);
    int places = 0;
    for (int lantern = 0; lantern < rules.Lanterns(); ++lantern) places += rules.PlaceOf(lantern) > 0 ? 1 : 0;
    EXPECT_EQ(places, 2);
}

TEST(LanternRules, AMistakeEndsTheRoundAndAFurtherPressDoesNothing)
{
    LanternRules rules(1, 4);
    Fail(rules);
    EXPECT_EQ(rules.Done(), 1);
    EXPECT_EQ(rules.Judge(InOrder(rules).front()), Press::Wrong);
    EXPECT_EQ(rules.Done(), 1);
    EXPECT_EQ(rules.Points(), 0);
}

TEST(LanternRules, TheSamePressTwiceIsAMistake)
{
    LanternRules rules(2, 4);
    const int first = InOrder(rules).front();
    EXPECT_EQ(rules.Judge(first), Press::Right);
    EXPECT_EQ(rules.Judge(first), Press::Wrong);
}

TEST(LanternRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(LanternRules(-5, 1).Level(), 1);
    EXPECT_EQ(LanternRules(99, 1).Level(), 8);
}
