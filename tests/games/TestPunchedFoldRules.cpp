#include "games/punched-fold/FoldRules.h"
#include "tests/games/model/Play.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <set>
#include <span>

// The rules open the paper and follow the punches outwards. The tests go the other way: every place of the sheet is
// folded, and has a hole if it comes to lie under a punch.
namespace
{
struct Place
{
    double x, y;
};

double BeyondCrease(const Place &place, const Fold &fold)
{
    return fold.Across * place.x + fold.Down * place.y - fold.At;
}

/// A place of the sheet after all folds: mirrored at each crease that it lies beyond.
Place FoldedOver(Place place, std::span<const Fold> folds)
{
    for (const Fold &fold : folds) {
        const double beyond = BeyondCrease(place, fold);
        if (beyond <= 0) continue;
        const double way = 2 * beyond / (fold.Across * fold.Across + fold.Down * fold.Down);
        place.x -= way * fold.Across;
        place.y -= way * fold.Down;
    }
    return place;
}

bool IsPunched(const Place &place, const FoldItem &item, double reach)
{
    return std::any_of(item.Punches.begin(), item.Punches.end(), [&](const FoldPoint &punch) {
        const double across = punch.x - place.x;
        const double down = punch.y - place.y;
        return across * across + down * down < reach * reach;
    });
}

std::uint64_t OpenSheet(const FoldItem &item)
{
    std::uint64_t sheet = 0;
    for (int column = 0; column < 8; ++column)
        for (int row = 0; row < 8; ++row)
            if (IsPunched(FoldedOver({2.0 * column + 1, 2.0 * row + 1}, item.Folds), item, 0.01))
                sheet |= std::uint64_t{1} << (column + 8 * row);
    return sheet;
}

/// How close to a hole's middle the paper is creased or ends, at the closest.
double Clearance(const FoldItem &item, int column, int row)
{
    Place place{2.0 * column + 1, 2.0 * row + 1};
    double least = std::min({place.x, place.y, 16 - place.x, 16 - place.y});
    for (const Fold &fold : item.Folds) {
        const double length = fold.IsSlanted() ? std::numbers::sqrt2 : 1;
        least = std::min(least, std::abs(BeyondCrease(place, fold)) / length);
        place = FoldedOver(place, {&fold, 1});
    }
    return least;
}

void ExpectOneRightAnswer(const FoldItem &item)
{
    constexpr double HoleRadius = 0.8;
    const std::uint64_t open = OpenSheet(item);
    ASSERT_EQ(std::count(item.Sheets.begin(), item.Sheets.end(), open), 1);
    ASSERT_EQ(item.Sheets.at(static_cast<std::size_t>(item.Answer)), open);
    auto sheets = item.Sheets;
    std::sort(sheets.begin(), sheets.end());
    ASSERT_EQ(std::unique(sheets.begin(), sheets.end()), sheets.end());
    double clearance = 16;
    for (std::uint64_t rest = open; rest != 0; rest &= rest - 1) {
        const int place = std::countr_zero(rest);
        clearance = std::min(clearance, Clearance(item, place % 8, place / 8));
    }
    ASSERT_GT(clearance, HoleRadius) << "a hole is cut by a crease or an edge";
    ASSERT_LE(std::popcount(open), FoldRules::MostHoles);
    ASSERT_GT(std::popcount(open), static_cast<int>(item.Punches.size()));
}

/// A player as a few numbers: seconds to look at a task, for a fold, for each punch at each fold, for a key; the
/// share of folds that come out right.
struct ModelPlayer
{
    double see, fold, punch, key, right;
};
constexpr ModelPlayer Good{2.0, 1.0, 0.5, 0.28, 0.97};
constexpr ModelPlayer Expert{1.5, 0.7, 0.3, 0.20, 0.99};
constexpr ModelPlayer Learner{3.2, 1.7, 0.9, 0.5, 0.90};
constexpr Model::Clock Clock{105, 0.6, 3.2};

template <typename Act>
Model::Session Play(int level, std::uint32_t seed, Act act)
{
    return Model::Play(Model::Kept<FoldRules, &FoldItem::Answer>(level, seed), Clock, act);
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, [&](const FoldItem &item) {
            const auto folds = static_cast<double>(item.Folds.size());
            const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
            const double work =
                player.see + folds * (player.fold + player.punch * static_cast<double>(item.Punches.size()));
            const bool right = chance.Between(1, 1000) <= 1000 * std::pow(player.right, folds);
            return std::pair(work * swing + player.key, right ? item.Answer : (item.Answer + 1) % FoldItem::Choices);
        });
    });
}

/// Quick players who never fold, but choose by what the sheets look like.
template <typename Likes>
double MedianByLooks(int level, Likes likes)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [&](const FoldItem &item) {
            int best = 0;
            for (int sheet = 1; sheet < FoldItem::Choices; ++sheet)
                if (likes(item, sheet) > likes(item, best)) best = sheet;
            return std::pair(1.0, best);
        });
    });
}

int HolesOf(const FoldItem &item, int sheet)
{
    return std::popcount(item.Sheets.at(static_cast<std::size_t>(sheet)));
}

int Likeness(const FoldItem &item, int sheet)
{
    int differences = 0;
    for (const std::uint64_t other : item.Sheets)
        differences += std::popcount(other ^ item.Sheets.at(static_cast<std::size_t>(sheet)));
    return -differences;
}

/// Places that agree with their mirror images, across, down and along both diagonals, in the best of these mirrors.
int Symmetry(const FoldItem &item, int sheet)
{
    const std::uint64_t holes = item.Sheets.at(static_cast<std::size_t>(sheet));
    const auto has = [holes](int column, int row) { return (holes >> (column + 8 * row) & 1) != 0; };
    std::array<int, 4> same{};
    for (int column = 0; column < 8; ++column) {
        for (int row = 0; row < 8; ++row) {
            const bool here = has(column, row);
            if (here == has(7 - column, row)) ++same[0];
            if (here == has(column, 7 - row)) ++same[1];
            if (here == has(row, column)) ++same[2];
            if (here == has(7 - row, 7 - column)) ++same[3];
        }
    }
    return *std::max_element(same.begin(), same.end());
}
} // namespace

class FoldLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(FoldRules, FoldLevel, testing::Range(1, FoldRules::Levels + 1));

TEST_P(FoldLevel, EveryItemHasOneRightAnswer)
{
    constexpr int Items = 100000;
    int items = 0;
    std::array<int, FoldItem::Choices> answers{};
    for (std::uint32_t seed = 0; items < Items; ++seed) {
        FoldRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next(), ++items) {
            ExpectOneRightAnswer(rules.Item());
            if (HasFailure()) FAIL() << "seed " << seed << ", item " << rules.Set().Done();
            ++answers.at(static_cast<std::size_t>(rules.Item().Answer));
            rules.Judge(0);
        }
    }
    for (const int count : answers) EXPECT_NEAR(count, 1.0 * items / FoldItem::Choices, 0.02 * items);
}

TEST_P(FoldLevel, EveryFoldLandsOnPaperAndBringsFurtherHoles)
{
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        FoldRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next()) {
            const FoldItem &item = rules.Item();
            Outline paper = Outline::Sheet();
            for (std::size_t i = 0; i < item.Folds.size(); ++i) {
                const Outline flap = paper.Beyond(item.Folds[i]).Over(item.Folds[i]);
                const Outline rest = paper.Within(item.Folds[i]);
                EXPECT_EQ(paper.TwiceArea(), flap.TwiceArea() + rest.TwiceArea());
                for (int corner = 0; corner < flap.Corners(); ++corner) EXPECT_GE(rest.Holds(flap[corner]), 0);
                paper = rest;

                const std::vector<Fold> before(item.Folds.begin(),
                                               item.Folds.begin() + static_cast<std::ptrdiff_t>(i));
                const auto holes = Holes::Of(OpenSheet(item));
                EXPECT_TRUE(std::any_of(holes.begin(), holes.end(), [&](const FoldPoint &hole) {
                    const Place place =
                        FoldedOver({static_cast<double>(hole.x), static_cast<double>(hole.y)}, before);
                    return item.Folds[i].Across * place.x + item.Folds[i].Down * place.y > item.Folds[i].At;
                }));
            }
            rules.Judge(0);
        }
    }
}

TEST_P(FoldLevel, TheDrawnLayersHaveAllOfTheirHolesUnderThePunches)
{
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        FoldRules rules(GetParam(), seed);
        const FoldItem &item = rules.Item();
        int area = 0;
        std::size_t holes = 0;
        for (const Layer &layer : Folded(item.Sheets.at(static_cast<std::size_t>(item.Answer)), item.Folds)) {
            area += layer.Shape.TwiceArea();
            holes += layer.Holes.size();
            for (const FoldPoint &hole : layer.Holes) {
                EXPECT_EQ(layer.Shape.Holds(hole), 1);
                EXPECT_NE(std::find(item.Punches.begin(), item.Punches.end(), hole), item.Punches.end());
            }
            for (const FoldPoint &punch : item.Punches) // a punch goes through every layer that lies there
                EXPECT_EQ(layer.Shape.Holds(punch) == 1,
                          std::find(layer.Holes.begin(), layer.Holes.end(), punch) != layer.Holes.end());
        }
        EXPECT_EQ(area, 2 * 16 * 16) << "no paper is lost";
        EXPECT_EQ(holes, static_cast<std::size_t>(HolesOf(item, item.Answer)));
    }
}

TEST_P(FoldLevel, HasTheFoldsAndHolesOfItsLevel)
{
    struct Plan
    {
        int folds, slanted, fewest, most;
    };
    constexpr std::array<Plan, FoldRules::Levels> plans{{{1, 0, 1, 1},
                                                         {1, 0, 2, 2},
                                                         {2, 0, 1, 2},
                                                         {2, 1, 1, 2},
                                                         {2, 1, 2, 3},
                                                         {3, 1, 1, 2},
                                                         {3, 2, 2, 3},
                                                         {4, 2, 2, 3}}};
    const Plan plan = plans.at(static_cast<std::size_t>(GetParam() - 1));
    std::set<int> punches;
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        FoldRules rules(GetParam(), seed);
        const FoldItem &item = rules.Item();
        EXPECT_EQ(static_cast<int>(item.Folds.size()), plan.folds);
        EXPECT_EQ(std::count_if(item.Folds.begin(), item.Folds.end(), [](const Fold &f) { return f.IsSlanted(); }),
                  plan.slanted);
        punches.insert(static_cast<int>(item.Punches.size()));
    }
    EXPECT_EQ(*punches.begin(), plan.fewest);
    EXPECT_EQ(*punches.rbegin(), plan.most);
}

TEST_P(FoldLevel, OneSeedGivesOneSet)
{
    FoldRules one(GetParam(), 7);
    FoldRules other(GetParam(), 7);
    FoldRules third(GetParam(), 8);
    bool differs = false;
    for (; !one.Set().Over(); one.Next(), other.Next(), third.Next()) {
        EXPECT_EQ(one.Item().Sheets, other.Item().Sheets);
        EXPECT_EQ(one.Item().Punches, other.Item().Punches);
        differs = differs || one.Item().Sheets != third.Item().Sheets;
        for (FoldRules *rules : {&one, &other, &third}) rules->Judge(0);
    }
    EXPECT_TRUE(differs);
}

TEST_P(FoldLevel, AWholeSetWithoutAMistakeIsAQuarterMoreThanPar)
{
    FoldRules rules(GetParam(), 2);
    for (; !rules.Set().Over(); rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().Answer));
    EXPECT_GE(rules.Set().Points(), 120);
    EXPECT_LE(rules.Set().Points(), 135);
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST_P(FoldLevel, IsBalanced)
{
    const int level = GetParam();
    Model::Row made{};
    made.Random = Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        SeededRandom guess(seed + 1);
        return Play(level, seed, [&](const FoldItem &) { return std::pair(0.25, guess.Between(0, 4)); });
    });
    made.Always = Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [](const FoldItem &) { return std::pair(0.25, 2); });
    });
    made.Learner = MedianOf(Learner, level);
    made.Good = MedianOf(Good, level);
    made.Expert = MedianOf(Expert, level);
    Model::ExpectBalanced(level, made);
}

TEST_P(FoldLevel, KeptItemsEarnWhatTheRulesGiveForThem)
{
    const auto everyThirdWrong = [number = 0](const FoldItem &item) mutable {
        return std::pair(1.0, (item.Answer + (++number % 3 == 0 ? 1 : 0)) % FoldItem::Choices);
    };
    const Model::Session played = Model::Play(FoldRules(GetParam(), 3), Clock, everyThirdWrong);
    const Model::Session kept = Play(GetParam(), 3, everyThirdWrong);
    EXPECT_GT(played.Points, 0);
    EXPECT_EQ(kept.Points, played.Points);
    EXPECT_EQ(kept.Time, played.Time);
}

TEST_P(FoldLevel, ChoosingByLooksAloneDoesNotPay)
{
    EXPECT_LE(MedianByLooks(GetParam(), HolesOf), 35) << "the one with most holes";
    EXPECT_LE(MedianByLooks(GetParam(), [](const FoldItem &item, int sheet) { return -HolesOf(item, sheet); }), 35)
        << "the one with fewest holes";
    EXPECT_LE(MedianByLooks(GetParam(), Likeness), 35) << "the one most like the others";
    EXPECT_LE(MedianByLooks(GetParam(), Symmetry), 35) << "the one that is most like itself in a mirror";
}

TEST_P(FoldLevel, MoreSkillNeverScoresLess)
{
    Model::ExpectSkillPays({0, 0.5, 1, 1.5, 2}, [](double skill) {
        return MedianOf(Model::Skilled(Learner, Good, Expert, skill), GetParam());
    });
}

TEST(FoldRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(FoldRules(0, 1).Level(), 1);
    EXPECT_EQ(FoldRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(FoldRules(9, 1).Level(), 8);
}

TEST(FoldRules, AnAnswerAfterTheEndDoesNothing)
{
    FoldRules rules(1, 4);
    for (; !rules.Set().Over(); rules.Next()) rules.Judge(rules.Item().Answer);
    const int points = rules.Set().Points();
    EXPECT_FALSE(rules.Judge(rules.Item().Answer));
    EXPECT_EQ(rules.Set().Points(), points);
}

TEST(FoldRules, TwoMistakesTakeBackOneRightAnswer)
{
    FoldRules rules(1, 4);
    for (int i = 0; i < 3; ++i, rules.Next()) rules.Judge(rules.Item().Answer);
    for (int i = 0; i < 2; ++i, rules.Next()) rules.Judge((rules.Item().Answer + 1) % FoldItem::Choices);
    FoldRules two(1, 4);
    for (int i = 0; i < 2; ++i, two.Next()) two.Judge(two.Item().Answer);
    EXPECT_EQ(rules.Set().Points(), two.Set().Points());
}

TEST(FoldGeometry, AFoldMirrorsAtItsCrease)
{
    EXPECT_EQ((Fold{1, 0, 8}.Over({11, 3})), (FoldPoint{5, 3}));
    EXPECT_EQ((Fold{0, -1, -4}.Over({7, 1})), (FoldPoint{7, 7}));
    EXPECT_EQ((Fold{1, 1, 16}.Over({15, 13})), (FoldPoint{3, 1}));
    EXPECT_EQ((Fold{1, -1, 0}.Over({9, 3})), (FoldPoint{3, 9}));
}

TEST(FoldGeometry, ASheetFoldedInHalfHasTwoLayersAndTheUpperOneShowsItsBack)
{
    const auto paper = Folded(Holes::Bit({13, 5}), {{1, 0, 8}});
    ASSERT_EQ(paper.size(), 2U);
    EXPECT_FALSE(paper[0].IsBack);
    EXPECT_TRUE(paper[1].IsBack);
    EXPECT_TRUE(paper[0].Holes.empty());
    EXPECT_EQ(paper[1].Holes, (std::vector<FoldPoint>{{3, 5}}));
}
