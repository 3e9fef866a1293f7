#include "games/ninth-tile/NinthRules.h"
#include "tests/games/model/Play.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

// A checker of its own: it puts every value in the ninth place and asks whether the whole square then follows a rule.
namespace
{
using Kind = TileRule::Kind;

struct Line
{
    int first, second, third;
};

struct Lines
{
    Line a, b, c;
    template <typename Holds>
    bool All(Holds holds) const
    {
        return holds(a) && holds(b) && holds(c);
    }
};

Lines RowsOf(const TraitSquare &at) { return {{at[0], at[1], at[2]}, {at[3], at[4], at[5]}, {at[6], at[7], at[8]}}; }
Lines ColumnsOf(const TraitSquare &at)
{
    return {{at[0], at[3], at[6]}, {at[1], at[4], at[7]}, {at[2], at[5], at[8]}};
}

bool IsSame(const Lines &lines)
{
    return lines.All([](const Line &line) { return line.first == line.second && line.second == line.third; });
}

bool IsStep(const Lines &lines, bool goesRound)
{
    const auto way = [&](int from, int to) { return goesRound ? (to + 4 - from) & 3 : to - from; };
    const int step = way(lines.a.first, lines.a.second);
    return step != 0 && lines.All([&](const Line &line) {
        return way(line.first, line.second) == step && way(line.second, line.third) == step;
    });
}

bool IsThree(const Lines &lines)
{
    const auto members = [](const Line &line) { return 1 << line.first | 1 << line.second | 1 << line.third; };
    const int set = members(lines.a);
    const bool isThree =
        lines.a.first != lines.a.second && lines.a.second != lines.a.third && lines.a.first != lines.a.third;
    return isThree && members(lines.b) == set && members(lines.c) == set;
}

// Figures are one more than the value.
bool IsSum(const Lines &lines)
{
    return lines.All([](const Line &line) { return line.first + 1 + line.second + 1 == line.third + 1; });
}
bool IsDifference(const Lines &lines)
{
    return lines.All([](const Line &line) { return line.first + 1 - (line.second + 1) == line.third + 1; });
}

bool Follows(Kind kind, Trait on, const Lines &lines)
{
    const bool hasOrder = on == Trait::Count || on == Trait::Size || on == Trait::Turn;
    switch (kind) {
    case Kind::Same:
        return IsSame(lines);
    case Kind::Step:
        return hasOrder && IsStep(lines, on == Trait::Turn);
    case Kind::Three:
        return IsThree(lines);
    case Kind::Sum:
        return on == Trait::Count && IsSum(lines);
    case Kind::Difference:
        return on == Trait::Count && IsDifference(lines);
    }
    return false;
}

bool FollowsAny(Trait on, const TraitSquare &at)
{
    for (const Lines &lines : {RowsOf(at), ColumnsOf(at)}) {
        for (const Kind kind : {Kind::Same, Kind::Step, Kind::Three, Kind::Sum, Kind::Difference})
            if (Follows(kind, on, lines)) return true;
    }
    return false;
}

TraitSquare SquareOf(const NinthItem &item, Trait on)
{
    TraitSquare at{};
    for (std::size_t i = 0; i < at.size(); ++i) at[i] = item.Square[i][on];
    return at;
}

/// The values that make the eight shown ones follow a rule of the language, as bits.
unsigned Fitting(Trait on, TraitSquare at)
{
    unsigned fitting = 0;
    for (int value = 0; value < ValuesOf[static_cast<std::size_t>(on)]; ++value) {
        at[8] = value;
        if (FollowsAny(on, at)) fitting |= 1U << value;
    }
    return fitting;
}

bool IsSingle(unsigned set) { return set != 0 && (set & (set - 1)) == 0; }

constexpr std::array All{Trait::Shape, Trait::Count, Trait::Fill, Trait::Size, Trait::Turn};

/// Calls Look with each of so many items of a level.
template <typename LookAt>
void Through(int level, int items, LookAt look)
{
    int seen = 0;
    for (std::uint32_t seed = 0; seen < items; ++seed) {
        NinthRules rules(level, seed);
        for (; !rules.Set().Over() && seen < items; ++seen) {
            look(rules.Item());
            if (testing::Test::HasFailure()) return;
            rules.Judge(0);
            if (!rules.Set().Over()) rules.Next();
        }
    }
}

/// A player as a few numbers: seconds for a glance at a tile, for the thought that finds a rule that is the same
/// along its lines, for a key; how often that thought is right.
struct ModelPlayer
{
    double glance, thought, key, right;
};
constexpr ModelPlayer Learner{0.32, 3.6, 0.50, 0.88};
constexpr ModelPlayer Good{0.23, 2.7, 0.28, 0.96};
constexpr ModelPlayer Expert{0.18, 1.9, 0.20, 0.985};
constexpr Model::Clock Clock{105, 0.9, 2.6};

// How much harder a kind of rule is to find than one that is the same along its lines.
double Weight(Kind kind)
{
    return kind == Kind::Same ? 1.0 : kind == Kind::Step ? 1.25 : kind == Kind::Three ? 1.5 : 1.75;
}

template <typename Decide>
double MedianOf(int level, Decide decide)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Model::Play(NinthRules(level, seed), Clock,
                           [&](const NinthItem &item) { return decide(item, chance); });
    });
}

double MedianOf(const ModelPlayer &player, int level)
{
    return MedianOf(level, [&](const NinthItem &item, SeededRandom &chance) {
        double thoughts = 0;
        for (const TileRule &rule : item.Rules) thoughts += Weight(rule.Is);
        const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
        const int offered = static_cast<int>(item.Offered.size());
        const double work = (player.glance * (8.0 + offered) + player.thought * thoughts) * swing;
        const bool isRight = chance.Between(1, 10000) <= 10000 * std::pow(player.right, thoughts);
        const int wrong = (item.Right + chance.Between(1, offered - 1)) % offered;
        return std::pair(work + player.key, isRight ? item.Right : wrong);
    });
}

/// Presses as fast as keys go: any number, or always the first.
double MedianOfPressing(bool isRandom, int level)
{
    constexpr double Key = 0.2;
    return MedianOf(level, [&](const NinthItem &item, SeededRandom &chance) {
        return std::pair(Key, isRandom ? chance.Between(0, static_cast<int>(item.Offered.size()) - 1) : 0);
    });
}
} // namespace

class NinthTileLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(NinthTile, NinthTileLevel, testing::Range(1, NinthRules::Levels + 1));

TEST_P(NinthTileLevel, ExactlyOneTileFitsAnyRulesOfTheLanguageAndItIsOfferedOnce)
{
    Through(GetParam(), 100000, [](const NinthItem &item) {
        std::array<unsigned, Traits> fitting{};
        for (const Trait on : All) {
            fitting[static_cast<std::size_t>(on)] = Fitting(on, SquareOf(item, on));
            ASSERT_TRUE(IsSingle(fitting[static_cast<std::size_t>(on)])) << "trait " << static_cast<int>(on);
        }
        int right = -1;
        for (std::size_t tile = 0; tile < item.Offered.size(); ++tile) {
            bool fits = true;
            for (std::size_t i = 0; i < Traits; ++i) fits = fits && (fitting[i] >> item.Offered[tile].Values[i] & 1U);
            if (!fits) continue;
            ASSERT_EQ(right, -1) << "two tiles fit";
            right = static_cast<int>(tile);
        }
        ASSERT_EQ(right, item.Right);
    });
}

TEST_P(NinthTileLevel, TheRulesToldHoldAndTheOtherTraitsStandStill)
{
    Through(GetParam(), 2000, [](const NinthItem &item) {
        std::set<Trait> ruled;
        for (const TileRule &rule : item.Rules) {
            const TraitSquare at = SquareOf(item, rule.On);
            EXPECT_TRUE(Follows(rule.Is, rule.On, rule.InColumns ? ColumnsOf(at) : RowsOf(at)));
            ruled.insert(rule.On);
        }
        EXPECT_EQ(ruled.size(), item.Rules.size());
        EXPECT_FALSE(ruled.count(Trait::Count) == 1 && ruled.count(Trait::Size) == 1);
        for (const Trait on : All) {
            const TraitSquare at = SquareOf(item, on);
            const bool moves = std::any_of(at.begin(), at.end(), [&](int value) { return value != at[0]; });
            EXPECT_EQ(moves, ruled.count(on) == 1);
        }
    });
}

TEST_P(NinthTileLevel, TheOfferedTilesAloneTellNothing)
{
    // Seen from each of them, the others are as far away as seen from the right one.
    const auto distances = [](const NinthItem &item, const Tile &from) {
        std::multiset<int> all;
        for (const Tile &tile : item.Offered) {
            int away = 0;
            for (std::size_t i = 0; i < Traits; ++i) away += tile.Values[i] != from.Values[i] ? 1 : 0;
            all.insert(away);
        }
        return all;
    };
    Through(GetParam(), 2000, [&](const NinthItem &item) {
        const auto expected = distances(item, item.Answer());
        EXPECT_EQ(expected.count(0), 1U) << "a tile is offered twice";
        for (const Tile &tile : item.Offered) EXPECT_EQ(distances(item, tile), expected);
        for (const TileRule &rule : item.Rules) {
            const bool differs = std::any_of(item.Offered.begin(), item.Offered.end(), [&](const Tile &tile) {
                return tile[rule.On] != item.Answer()[rule.On];
            });
            EXPECT_TRUE(differs) << "a rule that needs not be found";
        }
    });
}

TEST_P(NinthTileLevel, OneSeedGivesOneSet)
{
    NinthRules one(GetParam(), 7);
    NinthRules other(GetParam(), 7);
    NinthRules third(GetParam(), 8);
    bool differs = false;
    for (int round = 0; round < one.Set().Count(); ++round) {
        EXPECT_EQ(one.Item().Square, other.Item().Square);
        EXPECT_EQ(one.Item().Offered, other.Item().Offered);
        differs = differs || one.Item().Square != third.Item().Square;
        for (NinthRules *rules : {&one, &other, &third}) rules->Next();
    }
    EXPECT_TRUE(differs);
}

TEST_P(NinthTileLevel, IsBalanced)
{
    Model::ExpectBalanced(GetParam(),
                          {MedianOfPressing(true, GetParam()), MedianOfPressing(false, GetParam()),
                           MedianOf(Learner, GetParam()), MedianOf(Good, GetParam()), MedianOf(Expert, GetParam())});
}

TEST_P(NinthTileLevel, MoreSkillNeverScoresLess) // from the learner to beyond the expert
{
    Model::ExpectSkillPays({0, 0.2, 0.4, 0.6, 0.8, 1, 1.2},
                           [](double skill) { return MedianOf(Model::Between(Learner, Expert, skill), GetParam()); });
}

TEST_P(NinthTileLevel, ASetWithoutMistakesIsWorthMoreThanAHundred)
{
    NinthRules rules(GetParam(), 1);
    while (!rules.Set().Over()) {
        EXPECT_TRUE(rules.Judge(rules.Item().Right));
        if (!rules.Set().Over()) rules.Next();
    }
    EXPECT_GE(rules.Set().Points(), 120);
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST(NinthTile, AMistakeCostsWhatLuckBrings)
{
    NinthRules rules(1, 3);
    rules.Judge(rules.Item().Right);
    const int before = rules.Set().Points();
    rules.Next();
    EXPECT_FALSE(rules.Judge((rules.Item().Right + 1) % 6));
    EXPECT_LT(rules.Set().Points(), before);
    EXPECT_EQ(rules.Set().Done(), 2);
    EXPECT_EQ(rules.Set().Right(), 1);
}

TEST(NinthTile, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(NinthRules(0, 1).Level(), 1);
    EXPECT_EQ(NinthRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(NinthRules(11, 1).Level(), 10);
}

TEST(NinthTile, AnAnswerAfterTheEndDoesNothing)
{
    NinthRules rules(10, 3);
    while (!rules.Set().Over()) rules.Judge(rules.Item().Right);
    const int points = rules.Set().Points();
    EXPECT_FALSE(rules.Judge(rules.Item().Right));
    EXPECT_EQ(rules.Set().Points(), points);
}

TEST(NinthTile, LevelsHaveOneToFourRules)
{
    const std::array expected{1, 1, 2, 2, 2, 3, 3, 3, 4, 4};
    for (int level = 1; level <= NinthRules::Levels; ++level) {
        EXPECT_EQ(static_cast<int>(NinthRules(level, 5).Item().Rules.size()),
                  expected[static_cast<std::size_t>(level - 1)]);
        EXPECT_EQ(NinthRules(level, 5).Item().Offered.size(), level < 5 ? 6U : 8U);
    }
}

// The language itself, on squares whose answer can be seen.
TEST(NinthLanguage, GivesTheNinthValueOfEachKindOfRule)
{
    struct Row
    {
        const char *what;
        Trait on;
        TraitSquare shown;
        unsigned values;
    };
    constexpr int Hidden = 0;
    for (const Row &row : {
             Row{"one value a row", Trait::Shape, {4, 4, 4, 1, 1, 1, 2, 2, Hidden}, 1U << 2},
             Row{"one value a column", Trait::Shape, {4, 1, 2, 4, 1, 2, 4, 1, Hidden}, 1U << 2},
             Row{"a step in rows", Trait::Count, {0, 1, 2, 3, 4, 5, 1, 2, Hidden}, 1U << 3},
             Row{"a step down", Trait::Count, {4, 2, 0, 5, 3, 1, 4, 2, Hidden}, 1U << 0},
             Row{"turns go round", Trait::Turn, {0, 1, 2, 1, 2, 3, 2, 3, Hidden}, 1U << 0},
             Row{"three in any order", Trait::Fill, {0, 1, 3, 3, 0, 1, 1, 3, Hidden}, 1U << 0},
             Row{"a sum of figures", Trait::Count, {0, 1, 2, 2, 0, 3, 1, 3, Hidden}, 1U << 5},
             Row{"a difference of figures", Trait::Count, {3, 0, 2, 5, 3, 1, 4, 1, Hidden}, 1U << 2},
             Row{"no rule at all", Trait::Shape, {0, 1, 2, 2, 2, 0, 1, 1, Hidden}, 0U},
             Row{"no order in shapes", Trait::Shape, {0, 1, 2, 1, 2, 3, 2, 3, Hidden}, 0U},
             Row{"a sum beyond what a tile holds", Trait::Count, {0, 1, 2, 2, 0, 3, 4, 3, Hidden}, 0U},
         })
        EXPECT_EQ(NinthLanguage::Ninth(row.on, row.shown), row.values) << row.what;
}

TEST(NinthLanguage, TellsWhenTwoRulesAskForDifferentTiles)
{
    // two and one make three, and so on in rows; in columns, three values of any order would ask for another one
    const TraitSquare shown{1, 0, 2, 0, 1, 2, 2, 2, 0};
    EXPECT_EQ(NinthLanguage::Ninth(Trait::Count, shown), Fitting(Trait::Count, shown));
    const TraitSquare two{0, 1, 2, 1, 2, 4, 2, 4, 0};
    EXPECT_EQ(NinthLanguage::Ninth(Trait::Count, two), Fitting(Trait::Count, two));
}
