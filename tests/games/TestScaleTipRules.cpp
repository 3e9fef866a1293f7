#include "games/scale-tip/ScaleRules.h"
#include "tests/games/model/Play.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <numeric>

namespace
{
constexpr int Items = 100000;
constexpr Model::Clock Clock{45, 0.5, 1.5};

/// A player as a few numbers; games/scale-tip/README.md says where they come from. Skill runs from 0, a learner, over
/// 1, a good player, to 2, an expert.
struct ModelPlayer
{
    double see;        // [s] to look at both sides and to press
    double distance;   // [s] for each tenfold of larger / (larger - smaller)
    double weber;      // how blurred a number of dots is seen
    double fact;       // [s] for one addition fact
    double slip;       // how often a sum is wrong
    double easy, hard; // [s] for a pair of fractions, far apart and close
    double missEasy, missHard;
};
constexpr ModelPlayer Learner{0.75, 0.75, 0.24, 1.3, 0.11, 4.4, 5.6, 0.22, 0.28};
constexpr ModelPlayer Good{0.55, 0.55, 0.15, 0.75, 0.05, 2.6, 3.4, 0.09, 0.14};
constexpr ModelPlayer Expert{0.45, 0.4, 0.105, 0.5, 0.02, 1.7, 2.4, 0.03, 0.05};
constexpr double LaterSteps = 1.4; // of the first step's time, in a sum

double WorkOf(const ScaleSide &sum, double fact)
{
    const bool carries = sum.First % 10 + sum.Second % 10 > 9;
    const int steps = sum.First < 10 ? 1 : carries ? 3 : 2;
    return fact * (1 + LaterSteps * (steps - 1));
}

struct Act
{
    double time, right; // [s], probability
};

Act ActOn(const ScaleItem &item, const ModelPlayer &player, int level)
{
    const double more = std::max(item.Weight(0), item.Weight(1));
    const double fewer = std::min(item.Weight(0), item.Weight(1));
    switch (item.Kind) {
    case ScaleKind::Cloud: {
        const double blurred = (more - fewer) / (player.weber * std::hypot(more, fewer));
        return {player.see + player.distance * std::log10(more / (more - fewer)),
                0.5 * std::erfc(-blurred / std::numbers::sqrt2)};
    }
    case ScaleKind::Sum:
        return {player.see + WorkOf(item.Sides[0], player.fact) + WorkOf(item.Sides[1], player.fact),
                1 - player.slip};
    case ScaleKind::Fraction:
        break;
    }
    return level < 8 ? Act{player.easy, 1 - player.missEasy} : Act{player.hard, 1 - player.missHard};
}

template <typename Decide>
Model::Session Play(int level, std::uint32_t seed, Decide decide)
{
    SeededRandom chance(seed + 1);
    return Model::Play(ScaleRules(level, seed), Clock, [&](const ScaleItem &item) { return decide(item, chance); });
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [&](const ScaleItem &item, SeededRandom &chance) {
            const Act act = ActOn(item, player, level);
            const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
            const bool right = chance.Between(1, 100000) <= act.right * 100000;
            return std::pair(act.time * swing, right ? item.Heavier() : 1 - item.Heavier());
        });
    });
}

constexpr double FastPress = 0.25; // [s]

double MedianOfRandom(int level)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [](const ScaleItem &, SeededRandom &chance) {
            return std::pair(FastPress, chance.Between(0, 1));
        });
    });
}

double MedianOfAlways(int level, int side)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [&](const ScaleItem &, SeededRandom &) { return std::pair(FastPress, side); });
    });
}

using Dots = std::vector<ScaleDot>;

double AreaOf(const Dots &dots)
{
    return std::accumulate(dots.begin(), dots.end(), 0.0,
                           [](double sum, const ScaleDot &dot) { return sum + dot.Radius * dot.Radius; });
}
double WidthOf(const Dots &dots)
{
    double width = 0;
    for (const ScaleDot &dot : dots) width = std::max(width, std::hypot(dot.Place.x(), dot.Place.y()));
    return width;
}

/// What the right side weighs more than the left one, worked out anew from the numbers that are seen.
int RightOverLeft(const ScaleItem &item)
{
    const auto &[left, right] = item.Sides;
    if (item.Kind == ScaleKind::Fraction) return right.First * left.Second - left.First * right.Second;
    return right.First + right.Second - left.First - left.Second;
}

template <typename Look>
void ForEachItem(int level, int count, Look &&look)
{
    int seen = 0;
    for (std::uint32_t seed = 0; seen < count; ++seed) {
        ScaleRules rules(level, seed);
        for (; !rules.Set().Over(); rules.Next()) {
            look(rules.Item());
            ++seen;
            rules.Judge(0);
        }
    }
}

/// How often a look that is not the number would have told the heavier side. [%]
class Hunch
{
public:
    void Look(double left, double right, const ScaleItem &item)
    {
        m_All += 2;
        m_Right += left == right ? 1 : (left > right ? 0 : 1) == item.Heavier() ? 2 : 0;
    }
    double Right() const { return 100.0 * m_Right / m_All; }

private:
    int m_All = 0;
    int m_Right = 0;
};
} // namespace

class EachLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(ScaleTipRules, EachLevel, testing::Range(1, ScaleRules::Levels + 1));

constexpr double Near = 1.5; // [%] of a hunch to one half

TEST_P(EachLevel, EveryItemHasOneHeavierSideAndNoLookTellsWhich)
{
    Hunch left, larger, lower, dots, area;
    ForEachItem(GetParam(), Items, [&](const ScaleItem &item) {
        const auto &[one, other] = item.Sides;
        ASSERT_NE(RightOverLeft(item), 0);
        ASSERT_EQ(item.Heavier(), RightOverLeft(item) > 0 ? 1 : 0);
        left.Look(1, 0, item);
        larger.Look(std::max(one.First, one.Second), std::max(other.First, other.Second), item);
        lower.Look(one.Second, other.Second, item);
        dots.Look(one.Dot, other.Dot, item);
        area.Look(one.First * one.Dot * one.Dot, other.First * other.Dot * other.Dot, item);
    });
    EXPECT_NEAR(left.Right(), 50, Near);
    EXPECT_NEAR(lower.Right(), 50, Near);
    EXPECT_NEAR(dots.Right(), 50, Near);
    EXPECT_NEAR(area.Right(), 50, Near);
    if (GetParam() > 4) { // of clouds it is the number itself
        EXPECT_NEAR(larger.Right(), 50, Near);
    }
}

TEST_P(EachLevel, TheDotsAsDrawnTellNothingButTheirNumber)
{
    if (GetParam() > 4) return; // no clouds
    Hunch area, dots, width, density;
    ForEachItem(GetParam(), Items / 25, [&](const ScaleItem &item) {
        const auto clouds = item.Dots();
        const double numbers[]{static_cast<double>(clouds[0].size()), static_cast<double>(clouds[1].size())};
        ASSERT_EQ(numbers[0], item.Sides[0].First);
        ASSERT_EQ(numbers[1], item.Sides[1].First);
        const double areas[]{AreaOf(clouds[0]), AreaOf(clouds[1])};
        const double widths[]{WidthOf(clouds[0]), WidthOf(clouds[1])};
        area.Look(areas[0], areas[1], item);
        dots.Look(areas[0] / numbers[0], areas[1] / numbers[1], item);
        width.Look(widths[0], widths[1], item);
        density.Look(numbers[0] / (widths[0] * widths[0]), numbers[1] / (widths[1] * widths[1]), item);
    });
    EXPECT_NEAR(area.Right(), 50, 2 * Near);
    EXPECT_NEAR(dots.Right(), 50, 2 * Near);
    EXPECT_NEAR(width.Right(), 50, 2 * Near);
    EXPECT_NEAR(density.Right(), 50, 2 * Near);
}

TEST_P(EachLevel, DotsLieInTheirFieldAndApart)
{
    ForEachItem(GetParam(), 1000, [](const ScaleItem &item) {
        for (const Dots &cloud : item.Dots()) {
            for (std::size_t i = 0; i < cloud.size(); ++i) {
                const ScaleDot &dot = cloud[i];
                ASSERT_LE(std::hypot(dot.Place.x(), dot.Place.y()) + dot.Radius, ScaleRules::WidestField + 1e-6);
                for (std::size_t j = 0; j < i; ++j) {
                    const QPointF way = dot.Place - cloud[j].Place;
                    ASSERT_GT(std::hypot(way.x(), way.y()), dot.Radius + cloud[j].Radius);
                }
            }
        }
    });
}

TEST_P(EachLevel, OneSeedGivesOneSet)
{
    ScaleRules one(GetParam(), 7), other(GetParam(), 7), third(GetParam(), 8);
    bool differs = false;
    for (; !one.Set().Over(); one.Next(), other.Next(), third.Next()) {
        EXPECT_EQ(one.Item().Sides, other.Item().Sides);
        if (one.Item().Kind == ScaleKind::Cloud) {
            EXPECT_EQ(one.Item().Dots()[0][0].Place, other.Item().Dots()[0][0].Place);
        }
        differs = differs || one.Item().Sides != third.Item().Sides;
        one.Judge(0);
        other.Judge(1);
        third.Judge(0);
    }
    EXPECT_TRUE(differs);
}

TEST_P(EachLevel, AWholeSetIsAQuarterOrMoreAboveAHundred)
{
    ScaleRules rules(GetParam(), 3);
    for (; !rules.Set().Over(); rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().Heavier()));
    EXPECT_GE(rules.Set().Points(), 125);
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST_P(EachLevel, IsBalanced)
{
    const int level = GetParam();
    const double always = std::max(MedianOfAlways(level, 0), MedianOfAlways(level, 1));
    Model::ExpectBalanced(level, {MedianOfRandom(level), always, MedianOf(Learner, level), MedianOf(Good, level),
                                  MedianOf(Expert, level)});
}

TEST_P(EachLevel, MoreSkillNeverScoresLess)
{
    constexpr double Noise = 3; // of a median of 1,001
    const auto medianOf = [](double skill) {
        return MedianOf(Model::Skilled(Learner, Good, Expert, skill), GetParam());
    };
    Model::ExpectSkillPays({0, 0.4, 0.8, 1.2, 1.6, 2}, medianOf, Noise);
}

TEST(ScaleTipRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(ScaleRules(0, 1).Level(), 1);
    EXPECT_EQ(ScaleRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(ScaleRules(9, 1).Level(), 8);
}

TEST(ScaleTipRules, AWrongPressTakesOneAwayAndPointsNeverFallBelowZero)
{
    ScaleRules rules(1, 3);
    EXPECT_TRUE(rules.Judge(rules.Item().Heavier()));
    EXPECT_EQ(rules.Set().Points(), 100 / 33);
    rules.Next();
    EXPECT_FALSE(rules.Judge(1 - rules.Item().Heavier()));
    EXPECT_EQ(rules.Set().Points(), 0);
    rules.Next();
    EXPECT_FALSE(rules.Judge(1 - rules.Item().Heavier()));
    EXPECT_EQ(rules.Set().Points(), 0);
    EXPECT_EQ(rules.Set().Done(), 3);
}

TEST(ScaleTipRules, APressAfterTheEndDoesNothing)
{
    ScaleRules rules(1, 3);
    for (; !rules.Set().Over(); rules.Next()) rules.Judge(rules.Item().Heavier());
    const ScaleItem last = rules.Item();
    rules.Next();
    EXPECT_EQ(rules.Item().Sides, last.Sides);
    EXPECT_FALSE(rules.Judge(last.Heavier()));
    EXPECT_EQ(rules.Set().Done(), rules.Set().Count());
}

TEST(ScaleTipRules, FractionsAreInLowestTermsAndWeighInPartsOfOneWhole)
{
    for (const int level : {7, 8}) {
        ForEachItem(level, 1000, [](const ScaleItem &item) {
            for (int side = 0; side < 2; ++side) {
                const ScaleSide &fraction = item.Sides[static_cast<std::size_t>(side)];
                ASSERT_EQ(std::gcd(fraction.First, fraction.Second), 1);
                ASSERT_DOUBLE_EQ(static_cast<double>(item.Weight(side)) / item.Parts(),
                                 static_cast<double>(fraction.First) / fraction.Second);
            }
        });
    }
}

TEST(ScaleTipRules, TheSharesOfTheCloudsAreThoseOfTheLevel)
{
    const std::array<std::vector<double>, 4> ratios{
        {{2.0}, {1.5, 5 / 3.0}, {4 / 3.0, 1.25}, {1.2, 7 / 6.0, 8 / 7.0}}};
    for (int level = 1; level <= 4; ++level) {
        ForEachItem(level, 1000, [&](const ScaleItem &item) {
            const double more = item.Weight(item.Heavier());
            const double ratio = more / item.Weight(1 - item.Heavier());
            ASSERT_TRUE(std::ranges::any_of(ratios.at(static_cast<std::size_t>(level - 1)), [&](double known) {
                return std::abs(known - ratio) < 1e-9;
            })) << ratio;
        });
    }
}
