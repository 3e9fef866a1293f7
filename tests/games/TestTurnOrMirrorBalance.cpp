// How hard each level of Turn or Mirror is, by model players.
#include "games/turn-or-mirror/TurnRules.h"
#include "tests/games/model/Play.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{
/// A player as a few numbers: seconds to look at two pictures, for each degree of a flat figure and of a solid, for a
/// key; the share of right answers.
struct ModelPlayer
{
    double see, flat, solid, key, rightFlat, rightSolid;
};
constexpr ModelPlayer Good{1.0, 0.005, 0.0175, 0.28, 0.95, 0.92};
constexpr ModelPlayer Expert{0.75, 0.003, 0.010, 0.20, 0.98, 0.97};
constexpr ModelPlayer Learner{1.5, 0.009, 0.030, 0.5, 0.86, 0.82};
constexpr Model::Clock Clock{60, 0.45, 2.6};

template <typename Act>
Model::Session Play(int level, std::uint32_t seed, Act act)
{
    return Model::Play(Model::Kept<TurnRules, &TurnItem::IsMirror>(level, seed), Clock, act);
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, [&](const TurnItem &item) {
            const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
            const double work = player.see + item.Angle * (item.Solid ? player.solid : player.flat);
            const bool right = chance.Between(1, 1000) <= 1000 * (item.Solid ? player.rightSolid : player.rightFlat);
            return std::pair(work * swing + player.key, item.IsMirror == right);
        });
    });
}

/// The share of guessers who come above 35 points, pressing at random as fast as keys go.
double LuckyShare(int level)
{
    int lucky = 0;
    for (std::uint32_t seed = 0; seed < 1001; ++seed) {
        SeededRandom guess(seed + 1);
        const auto played = Play(level, seed, [&](const TurnItem &) { return std::pair(0.25, guess.Coin()); });
        if (Model::Total(played, Clock.Limit) > 35) ++lucky;
    }
    return lucky / 1001.0;
}
} // namespace

class TurnBalance : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(TurnRules, TurnBalance, testing::Range(1, TurnRules::Levels + 1));

TEST_P(TurnBalance, IsBalanced)
{
    const int level = GetParam();
    Model::Row made{};
    made.Random = Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        SeededRandom guess(seed + 1);
        return Play(level, seed, [&](const TurnItem &) { return std::pair(0.25, guess.Coin()); });
    });
    made.Always = Model::Median(Clock.Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [](const TurnItem &) { return std::pair(0.25, true); });
    });
    made.Learner = MedianOf(Learner, level);
    made.Good = MedianOf(Good, level);
    made.Expert = MedianOf(Expert, level);
    Model::ExpectBalanced(level, made);
}

TEST_P(TurnBalance, KeptItemsEarnWhatTheRulesGiveForThem)
{
    const auto everyThirdWrong = [number = 0](const TurnItem &item) mutable {
        return std::pair(1.0, item.IsMirror != (++number % 3 == 0));
    };
    const Model::Session played = Model::Play(TurnRules(GetParam(), 3), Clock, everyThirdWrong);
    const Model::Session kept = Play(GetParam(), 3, everyThirdWrong);
    EXPECT_GT(played.Points, 0);
    EXPECT_EQ(kept.Points, played.Points);
    EXPECT_EQ(kept.Time, played.Time);
}

TEST_P(TurnBalance, LuckAloneSeldomHelps) { EXPECT_LE(LuckyShare(GetParam()), 0.15); }

TEST_P(TurnBalance, MoreSkillNeverScoresLess)
{
    Model::ExpectSkillPays({0, 0.5, 1, 1.5, 2}, [](double skill) {
        return MedianOf(Model::Skilled(Learner, Good, Expert, skill), GetParam());
    });
}
