#include "games/turn-or-mirror/TurnRules.h"
#include "games/turn-or-mirror/TurnViews.h"
#include "tests/games/TurnProof.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <set>

namespace
{
constexpr int FirstSolid = 6; // level
} // namespace

class TurnLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(TurnRules, TurnLevel, testing::Range(1, TurnRules::Levels + 1));

TEST_P(TurnLevel, EveryItemHasOneRightAnswer)
{
    constexpr int Items = 100000;
    int items = 0;
    int mirrors = 0;
    for (std::uint32_t seed = 0; items < Items; ++seed) {
        TurnRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next(), ++items) {
            ExpectOneRightAnswer(rules.Item());
            if (HasFailure()) FAIL() << "seed " << seed << ", item " << rules.Set().Done();
            if (rules.Item().IsMirror) ++mirrors;
            rules.Judge(true);
        }
    }
    EXPECT_NEAR(mirrors, 0.5 * items, 0.02 * items);
}

TEST_P(TurnLevel, FiguresAreTurnedAsFarAsTheLevelSays)
{
    constexpr std::array<std::array<int, 2>, TurnRules::Levels> turns{
        {{30, 60}, {60, 120}, {90, 180}, {30, 120}, {60, 180}, {30, 60}, {60, 180}, {90, 180}}};
    const auto [least, most] = turns.at(static_cast<std::size_t>(GetParam() - 1));
    std::set<int> seen;
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        TurnRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next()) {
            const TurnItem &item = rules.Item();
            const QQuaternion between = item.RightTurn * item.LeftTurn.conjugated();
            const double angle = 2 * std::acos(std::min(1.0F, std::abs(between.scalar()))) * 180 / std::numbers::pi;
            EXPECT_NEAR(angle, item.Angle, 0.1);
            seen.insert(item.Angle);
            rules.Judge(true);
        }
    }
    EXPECT_EQ(*seen.begin(), least);
    EXPECT_EQ(*seen.rbegin(), most);
}

TEST_P(TurnLevel, TheMatchingPictureIsTheLeftOneOrItsMirrorImage)
{
    const auto key = [](const std::vector<SeenFace> &faces, double sign) {
        std::set<std::pair<int, int>> corners;
        for (const SeenFace &face : faces)
            for (const QPointF &corner : face.Corners)
                corners.insert({qRound(200 * sign * corner.x()), qRound(200 * corner.y())});
        return corners;
    };
    const auto near = [](const auto &one, const auto &other) {
        return std::all_of(one.begin(), one.end(), [&](const auto &a) {
            return std::any_of(other.begin(), other.end(), [&](const auto &b) {
                return std::abs(a.first - b.first) <= 1 && std::abs(a.second - b.second) <= 1;
            });
        });
    };
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        TurnRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next()) {
            const TurnItem &item = rules.Item();
            const auto picture = item.Solid ? TurnViews::Picture : TurnViews::FlatPicture;
            const auto left = key(picture(item.Left, item.LeftTurn), item.IsMirror ? -1 : 1);
            const auto right = key(picture(item.Right, item.Matching()), 1);
            EXPECT_TRUE(near(left, right) && near(right, left)) << seed;
            rules.Judge(true);
        }
    }
}

TEST_P(TurnLevel, OneSeedGivesOneSet)
{
    TurnRules one(GetParam(), 7);
    TurnRules other(GetParam(), 7);
    TurnRules third(GetParam(), 8);
    bool differs = false;
    for (; !one.Set().Over(); one.Next(), other.Next(), third.Next()) {
        EXPECT_EQ(one.Item().Left, other.Item().Left);
        EXPECT_EQ(one.Item().RightTurn, other.Item().RightTurn);
        EXPECT_EQ(one.Item().IsMirror, other.Item().IsMirror);
        differs = differs || one.Item().Left != third.Item().Left;
        for (TurnRules *rules : {&one, &other, &third}) rules->Judge(true);
    }
    EXPECT_TRUE(differs);
}

TEST_P(TurnLevel, NoFigureComesTwiceInARow)
{
    TurnRules rules(GetParam(), 5);
    while (!rules.Set().Over()) {
        const Figure before = rules.Item().Left;
        rules.Judge(true);
        rules.Next();
        EXPECT_NE(rules.Item().Left, before);
    }
}

TEST_P(TurnLevel, AWholeSetWithoutAMistakeIsAQuarterMoreThanPar)
{
    TurnRules rules(GetParam(), 2);
    for (; !rules.Set().Over(); rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().IsMirror));
    EXPECT_GE(rules.Set().Points(), 120);
    EXPECT_LE(rules.Set().Points(), 135);
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST(TurnRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(TurnRules(0, 1).Level(), 1);
    EXPECT_EQ(TurnRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(TurnRules(9, 1).Level(), 8);
}

TEST(TurnRules, SolidsComeFromLevelSixOn)
{
    for (int level = 1; level <= TurnRules::Levels; ++level)
        EXPECT_EQ(TurnRules(level, 3).Item().Solid, level >= FirstSolid);
}

TEST(TurnRules, AMistakeTakesBackOneAndAHalfRightAnswers)
{
    TurnRules rules(1, 4);
    for (int i = 0; i < 6; ++i, rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().IsMirror));
    const Rounds six = rules.Set();
    for (int i = 0; i < 2; ++i, rules.Next()) EXPECT_FALSE(rules.Judge(!rules.Item().IsMirror));
    TurnRules three(1, 4);
    for (int i = 0; i < 3; ++i, three.Next()) three.Judge(three.Item().IsMirror);
    EXPECT_LT(rules.Set().Points(), six.Points());
    EXPECT_EQ(rules.Set().Points(), three.Set().Points());
}

TEST(TurnRules, AnAnswerAfterTheEndDoesNothing)
{
    TurnRules rules(1, 4);
    for (; !rules.Set().Over(); rules.Next()) rules.Judge(rules.Item().IsMirror);
    const int points = rules.Set().Points();
    EXPECT_FALSE(rules.Judge(rules.Item().IsMirror));
    EXPECT_EQ(rules.Set().Points(), points);
}

TEST(TurnFigures, ThereAreTwentyFourTurnsOfASolidAndFourInThePlane)
{
    const std::set<RightAngles> all(Figures::SolidTurns().begin(), Figures::SolidTurns().end());
    EXPECT_EQ(all.size(), 24U);
    EXPECT_EQ(Figures::FlatTurns().size(), 4U);
}

TEST(TurnFigures, EveryLetterIsOneFitPiece)
{
    for (const Figure &letter : Figures::Letters()) {
        EXPECT_TRUE(Figures::IsFit(letter, false));
        Figure reached{letter.front()};
        for (std::size_t i = 0; i < reached.size(); ++i)
            for (const Block &block : letter)
                if (std::abs(block.x - reached[i].x) + std::abs(block.y - reached[i].y) == 1 &&
                    std::find(reached.begin(), reached.end(), block) == reached.end())
                    reached.push_back(block);
        EXPECT_EQ(reached.size(), letter.size());
    }
}

TEST(TurnFigures, FiguresLikeTheirMirrorImageAreNotFit)
{
    EXPECT_FALSE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {1, 1, 0}}, false)) << "T";
    EXPECT_FALSE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {2, 1, 0}}, false)) << "Z, the same upside down";
    EXPECT_TRUE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}}, false)) << "L";
    EXPECT_FALSE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}}, true)) << "L, turned over in space";
}
