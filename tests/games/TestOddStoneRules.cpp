#include "games/odd-stone/StoneRules.h"
#include "tests/games/model/Play.h"

#include <cmath>
#include <map>

namespace
{
constexpr int Items = 100000;
constexpr int FirstOfTwoTraits = 5; // level
constexpr Model::Clock Clock{60, 0.4, 1.5};

/// A player as a few numbers; games/odd-stone/README.md says where they come from.
struct ModelPlayer
{
    double see;   // [s] to take the field in
    double one;   // [s] for each stone, where one trait tells
    double close; // the same, where its two values are alike
    double two;   // the same, where only two traits together tell
    double point; // [s] to bring the pointer there and press
    double slip;  // how often the wrong one is pressed
};
constexpr ModelPlayer Learner{0.65, 0.012, 0.030, 0.085, 1.25, 0.08};
constexpr ModelPlayer Good{0.45, 0.006, 0.015, 0.046, 0.95, 0.03};
constexpr ModelPlayer Expert{0.35, 0.003, 0.008, 0.030, 0.75, 0.01};

template <typename Decide>
Model::Session Play(int level, std::uint32_t seed, Decide decide)
{
    SeededRandom chance(seed + 1);
    return Model::Play(StoneRules(level, seed), Clock, [&](const StoneItem &item) { return decide(item, chance); });
}

int AnyBut(int stone, int count, SeededRandom &chance) { return (stone + chance.Between(1, count - 1)) % count; }

double MedianOf(const ModelPlayer &player, int level)
{
    const double slope = level >= FirstOfTwoTraits ? player.two : level > 2 ? player.close : player.one;
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [&](const StoneItem &item, SeededRandom &chance) {
            const int count = static_cast<int>(item.Stones.size());
            // a search ends anywhere between the first look and the last
            const double search = 2 * slope * count * chance.Between(0, 1000) / 1000.0;
            const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
            const bool right = chance.Between(1, 100000) > player.slip * 100000;
            return std::pair((player.see + player.point) * swing + search,
                             right ? item.Odd : AnyBut(item.Odd, count, chance));
        });
    });
}

constexpr double FastPress = 0.25; // [s]

double MedianOfRandom(int level)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [](const StoneItem &item, SeededRandom &chance) {
            return std::pair(FastPress, chance.Between(0, static_cast<int>(item.Stones.size()) - 1));
        });
    });
}

double MedianOfAlways(int level, int stone)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [&](const StoneItem &, SeededRandom &) { return std::pair(FastPress, stone); });
    });
}

template <typename Look>
void ForEachItem(int level, int count, Look &&look)
{
    int seen = 0;
    for (std::uint32_t seed = 0; seen < count; ++seed) {
        StoneRules rules(level, seed);
        for (; !rules.Set().Over(); rules.Next(), ++seen) {
            look(rules.Item());
            rules.Judge(0);
        }
    }
}

/// How many traits differ, colour not counted.
int TraitsApart(const Stone &one, const Stone &other)
{
    return (one.Pattern != other.Pattern ? 1 : 0) + (one.Shape != other.Shape ? 1 : 0) +
           (one.Size != other.Size ? 1 : 0) + (one.Tilt != other.Tilt ? 1 : 0);
}
} // namespace

class EachLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(OddStoneRules, EachLevel, testing::Range(1, StoneRules::Levels + 1));

TEST_P(EachLevel, ExactlyOneStoneIsThereOnlyOnceAndColourIsNotNeeded)
{
    const int level = GetParam();
    ForEachItem(level, Items, [&](const StoneItem &item) {
        // the few kinds that there are, each with its number and where the first one lies
        struct Kind
        {
            Stone stone;
            int count, first;
        };
        std::array<Kind, 4> kinds;
        std::size_t used = 0;
        for (int i = 0; const Stone &stone : item.Stones) {
            std::size_t kind = 0;
            while (kind < used && !(kinds[kind].stone == stone)) ++kind;
            if (kind == kinds.size()) FAIL() << "too many kinds";
            if (kind == used) kinds[used++] = {stone, 0, i};
            ++kinds[kind].count;
            ++i;
        }
        ASSERT_EQ(used, level < FirstOfTwoTraits ? 2U : 3U);
        if (used == 3) {
            ASSERT_GE(TraitsApart(kinds[0].stone, kinds[1].stone), 1);
            ASSERT_GE(TraitsApart(kinds[1].stone, kinds[2].stone), 1);
        }
        const auto single = std::ranges::find(kinds.begin(), kinds.begin() + used, 1, &Kind::count);
        ASSERT_EQ(single->first, item.Odd);
        for (std::size_t kind = 0; kind < used; ++kind) {
            if (kinds[kind].first == item.Odd) continue;
            ASSERT_GE(kinds[kind].count, 3);
            ASSERT_EQ(TraitsApart(kinds[kind].stone, single->stone), 1) << "besides their colour";
        }
    });
}

TEST_P(EachLevel, TheOddStoneLiesEverywhereAndNeverTwiceInOnePlace)
{
    std::map<int, int> places;
    int last = -1;
    int items = 0;
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        StoneRules rules(GetParam(), seed);
        for (last = -1; !rules.Set().Over(); rules.Next(), ++items) {
            ASSERT_NE(rules.Item().Odd, last);
            last = rules.Item().Odd;
            ++places[last];
            rules.Judge(0);
        }
    }
    const int count = static_cast<int>(StoneRules(GetParam(), 0).Item().Stones.size());
    ASSERT_EQ(static_cast<int>(places.size()), count);
    const double mean = static_cast<double>(items) / count;
    for (const auto &[place, times] : places) EXPECT_NEAR(times, mean, 5 * std::sqrt(mean)) << place;
}

TEST_P(EachLevel, OneSeedGivesOneSet)
{
    StoneRules one(GetParam(), 7), other(GetParam(), 7), third(GetParam(), 8);
    bool differs = false;
    for (; !one.Set().Over(); one.Next(), other.Next(), third.Next()) {
        EXPECT_EQ(one.Item().Stones, other.Item().Stones);
        EXPECT_EQ(one.Item().Odd, other.Item().Odd);
        EXPECT_EQ(one.Item().Scatter, other.Item().Scatter);
        differs = differs || one.Item().Stones != third.Item().Stones;
        one.Judge(0);
        other.Judge(1);
        third.Judge(0);
    }
    EXPECT_TRUE(differs);
}

TEST_P(EachLevel, AWholeSetIsAQuarterOrMoreAboveAHundred)
{
    StoneRules rules(GetParam(), 3);
    for (; !rules.Set().Over(); rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().Odd));
    EXPECT_GE(rules.Set().Points(), 125);
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST_P(EachLevel, IsBalancedAndMoreSkillNeverScoresLess)
{
    constexpr double Noise = 2; // of a median of 1,001
    const int level = GetParam();
    std::vector<double> medians;
    for (const double skill : {0.0, 0.5, 1.0, 1.5, 2.0}) {
        medians.push_back(MedianOf(Model::Skilled(Learner, Good, Expert, skill), level));
        EXPECT_GE(medians.back(), *std::ranges::max_element(medians) - Noise) << skill;
    }
    Model::ExpectBalanced(level,
                          {MedianOfRandom(level), MedianOfAlways(level, 4), medians[0], medians[2], medians[4]});
}

TEST(OddStoneRules, TheStonesGrowInNumberFromEightToSixty)
{
    std::size_t before = 0;
    for (int level = 1; level <= StoneRules::Levels; ++level) {
        const StoneRules rules(level, 1);
        const StoneItem &item = rules.Item();
        EXPECT_EQ(static_cast<int>(item.Stones.size()), item.Columns * item.Rows);
        EXPECT_GT(item.Stones.size(), before);
        before = item.Stones.size();
        if (level == 1) {
            EXPECT_EQ(before, 8U);
        }
    }
    EXPECT_EQ(before, 60U);
}

TEST(OddStoneRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(StoneRules(0, 1).Level(), 1);
    EXPECT_EQ(StoneRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(StoneRules(10, 1).Level(), 9);
}

TEST(OddStoneRules, AWrongPressCostsWhatLuckWouldBring)
{
    StoneRules rules(1, 3); // 8 stones
    for (int right = 0; right < 8; ++right, rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().Odd));
    EXPECT_EQ(rules.Set().Points(), 1000 * 8 / 295);
    for (int wrong = 0; wrong < 7; ++wrong, rules.Next()) EXPECT_FALSE(rules.Judge((rules.Item().Odd + 1) % 8));
    EXPECT_EQ(rules.Set().Points(), 1000 * 7 / 295);
}

TEST(OddStoneRules, APressAfterTheEndDoesNothing)
{
    StoneRules rules(1, 3);
    for (; !rules.Set().Over(); rules.Next()) rules.Judge(rules.Item().Odd);
    const StoneItem last = rules.Item();
    rules.Next();
    EXPECT_EQ(rules.Item().Stones, last.Stones);
    EXPECT_FALSE(rules.Judge(last.Odd));
    EXPECT_EQ(rules.Set().Done(), rules.Set().Count());
}
