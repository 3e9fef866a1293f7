#include "games/lantern-row/LanternRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
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

int Total(const ModelPlayer &player, int level, std::uint32_t seed)
{
    LanternRules rules(level, seed);
    SeededRandom chance(seed + 1);
    double time = 0;
    while (!rules.Over()) {
        const bool right = chance.Between(1, 1000) <= player.right * 1000;
        const auto count = static_cast<double>(rules.Sequence().size());
        time += 0.8 + count * (0.75 + player.press);
        if (time > Limit) break;
        if (right)
            PlayRight(rules);
        else
            Fail(rules);
        time += right ? 0.9 : 2.2;
        rules.Next();
    }
    const double left = std::max(0.0, Limit - time) / Limit;
    return rules.Points() + static_cast<int>(left * rules.Points());
}

int Median(const ModelPlayer &player, int level)
{
    std::vector<int> totals;
    for (std::uint32_t seed = 0; seed < 1001; ++seed) totals.push_back(Total(player, level, seed));
    std::nth_element(totals.begin(), totals.begin() + 500, totals.end());
    return totals[500];
}
} // namespace

class LanternLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(LanternRules, LanternLevel, testing::Range(1, LanternRules::Levels + 1));

TEST_P(LanternLevel, EveryRoundLightsDifferentLanternsThatExist)
{
    int rounds = 0;
    for (std::uint32_t seed = 0; rounds < 20000; ++seed) {
        LanternRules rules(GetParam(), seed);
        for (; !rules.Over(); rules.Next(), ++rounds) {
            const std::set<int> different(rules.Sequence().begin(), rules.Sequence().end());
            ASSERT_EQ(different.size(), rules.Sequence().size());
            ASSERT_GE(*different.begin(), 0);
            ASSERT_LT(*different.rbegin(), rules.Lanterns());
            PlayRight(rules);
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
    const int good = Median(Good, GetParam());
    const int expert = Median(Expert, GetParam());
    const int learner = Median(Learner, GetParam());
    std::printf("level %d: learner %3d, good %3d, expert %3d\n", GetParam(), learner, good, expert);
    EXPECT_GE(good, 90);
    EXPECT_LE(good, 115);
    EXPECT_GE(expert, 120);
    EXPECT_LT(learner, good);
}

TEST_P(LanternLevel, PressingAnywhereEarnsAlmostNothing)
{
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        LanternRules rules(GetParam(), seed);
        SeededRandom guess(seed + 50);
        for (; !rules.Over(); rules.Next()) {
            while (rules.Judge(guess.Between(0, rules.Lanterns() - 1)) == Press::Right) {
            }
        }
        EXPECT_LE(rules.Points(), 35);
    }
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
