// How hard each level of Turn or Mirror is, by model players.
#include "games/turn-or-mirror/TurnRules.h"
#include "tests/games/model/Model.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

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
constexpr double Limit = 60;                        // [s]
constexpr double RightTime = 0.45, WrongTime = 2.6; // [s] for which an answer is told

/// The items of a session: each player gets the same ones.
const std::vector<TurnItem> &ItemsOf(int level, std::uint32_t seed)
{
    static int known = 0;
    static std::map<std::uint32_t, std::vector<TurnItem>> sets;
    if (known != level) sets.clear();
    known = level;
    auto &items = sets[seed];
    if (!items.empty()) return items;
    TurnRules rules(level, seed);
    for (; !rules.Set().Over(); rules.Next()) {
        items.push_back(rules.Item());
        rules.Judge(true);
    }
    return items;
}

template <typename Answer>
Model::Session Play(int level, std::uint32_t seed, Answer answer)
{
    Rounds set = TurnRules(level, seed).Set();
    double time = 0;
    for (const TurnItem &item : ItemsOf(level, seed)) {
        const auto [choice, thought] = answer(item);
        time += thought;
        if (time > Limit) break;
        const bool right = choice == item.IsMirror;
        set.Add(right, right ? 1 : -TurnRules::Mistake);
        if (!set.Over()) time += right ? RightTime : WrongTime;
    }
    return {set.Points(), time};
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, [&](const TurnItem &item) {
            const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
            const double work = player.see + item.Angle * (item.Solid ? player.solid : player.flat);
            const bool right = chance.Between(1, 1000) <= 1000 * (item.Solid ? player.rightSolid : player.rightFlat);
            return std::pair(item.IsMirror == right, work * swing + player.key);
        });
    });
}

/// The share of guessers who come above 35 points, pressing at random as fast as keys go.
double LuckyShare(int level)
{
    int lucky = 0;
    for (std::uint32_t seed = 0; seed < 1001; ++seed) {
        SeededRandom guess(seed + 1);
        const auto played = Play(level, seed, [&](const TurnItem &) { return std::pair(guess.Coin(), 0.25); });
        if (Model::Total(played, Limit) > 35) ++lucky;
    }
    return lucky / 1001.0;
}

ModelPlayer Between(const ModelPlayer &one, const ModelPlayer &other, double way)
{
    const auto mix = [way](double a, double b) { return a + (b - a) * way; };
    return {mix(one.see, other.see), mix(one.flat, other.flat),           mix(one.solid, other.solid),
            mix(one.key, other.key), mix(one.rightFlat, other.rightFlat), mix(one.rightSolid, other.rightSolid)};
}
} // namespace

class TurnBalance : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(TurnRules, TurnBalance, testing::Range(1, TurnRules::Levels + 1));

TEST_P(TurnBalance, IsBalanced)
{
    const int level = GetParam();
    Model::Row made{};
    made.Random = Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom guess(seed + 1);
        return Play(level, seed, [&](const TurnItem &) { return std::pair(guess.Coin(), 0.25); });
    });
    made.Always = Model::Median(Limit, [&](std::uint32_t seed) {
        return Play(level, seed, [](const TurnItem &) { return std::pair(true, 0.25); });
    });
    made.Learner = MedianOf(Learner, level);
    made.Good = MedianOf(Good, level);
    made.Expert = MedianOf(Expert, level);
    Model::ExpectBalanced(level, made);
}

TEST_P(TurnBalance, LuckAloneSeldomHelps) { EXPECT_LE(LuckyShare(GetParam()), 0.15); }

TEST_P(TurnBalance, MoreSkillNeverScoresLess)
{
    double before = 0;
    for (int skill = 0; skill <= 4; ++skill) {
        const ModelPlayer player =
            skill <= 2 ? Between(Learner, Good, skill / 2.0) : Between(Good, Expert, (skill - 2) / 2.0);
        const double now = MedianOf(player, GetParam());
        EXPECT_GE(now, before) << "skill " << skill;
        before = now;
    }
}
