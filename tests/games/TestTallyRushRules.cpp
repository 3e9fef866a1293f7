#include "games/tally-rush/TallyRules.h"
#include "tests/games/TallyResult.h"
#include "tests/games/model/Play.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <algorithm>
#include <set>

namespace
{
/// A player as a few numbers: seconds to see a task, for one fact, for a key; how often the answer is right. Each
/// further step holds more in mind and costs more than the first. The times of a key are those of an average and of a
/// skilled typist.
struct ModelPlayer
{
    double see, fact, key, right;
};
constexpr ModelPlayer Good{0.6, 0.75, 0.28, 0.95};
constexpr ModelPlayer Expert{0.5, 0.5, 0.20, 0.98};
constexpr ModelPlayer Learner{0.8, 1.3, 0.5, 0.9};
constexpr double Limit = 60;        // [s]
constexpr double MistakeTime = 1.4; // [s]
constexpr double LaterSteps = 1.4;  // of the first step's time

constexpr double HastyKey = 0.25; // [s]

/// Plays one set; Answers gives what is typed for a task, and adds what it takes to the time.
template <typename Answers>
Model::Session Play(int level, std::uint32_t seed, Answers answers)
{
    TallyRules rules(level, seed);
    double time = 0;
    while (!rules.Over()) {
        const int typed = answers(rules.Task(), time);
        if (time > Limit) break;
        if (!rules.Answer(typed) && !rules.Over()) time += MistakeTime;
    }
    return {rules.Points(), time};
}

double MedianOf(const ModelPlayer &player, int level, int sessions = 1001)
{
    const auto play = [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, [&](const TallyTask &task, double &time) {
            const double work = player.see + player.fact * (1 + LaterSteps * (task.Steps - 1));
            const double swing = 0.7 + 0.6 * chance.Between(0, 1000) / 1000.0;
            time += work * swing + player.key * static_cast<double>(QString::number(task.Result).size() + 1);
            const bool right = chance.Between(1, 1000) <= player.right * 1000;
            return right ? task.Result : task.Result + 1;
        });
    };
    return Model::Median(Limit, play, sessions);
}

/// Somebody who types without looking; Which gives the number.
template <typename Which>
double MedianOfHabit(int level, Which which)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed, [&](const TallyTask &, double &time) {
            const int typed = which(chance);
            time += HastyKey * static_cast<double>(QString::number(typed).size() + 1);
            return typed;
        });
    });
}
} // namespace

class EachLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(TallyRules, EachLevel, testing::Range(1, TallyRules::Levels + 1));

TEST_P(EachLevel, EveryTaskHasOneRightAnswerThatFitsTheField)
{
    int tasks = 0;
    for (std::uint32_t seed = 0; tasks < 100000; ++seed) {
        TallyRules rules(GetParam(), seed);
        while (!rules.Over()) {
            const TallyTask task = rules.Task();
            ASSERT_EQ(TallyResult(task.Text), task.Result) << qPrintable(task.Text);
            ASSERT_GE(task.Result, 0) << qPrintable(task.Text);
            ASSERT_LE(QString::number(task.Result).size(), TallyRules::LongestAnswer) << qPrintable(task.Text);
            ASSERT_GE(task.Steps, 1);
            rules.Answer(task.Result);
            // an answer sent twice by mistake must not be right twice
            if (!rules.Over()) {
                ASSERT_NE(rules.Task().Result, task.Result);
            }
            ++tasks;
        }
    }
}

TEST_P(EachLevel, OneSeedGivesOneSet)
{
    TallyRules one(GetParam(), 7);
    TallyRules other(GetParam(), 7);
    TallyRules third(GetParam(), 8);
    bool differs = false;
    while (!one.Over()) {
        EXPECT_EQ(one.Task().Text, other.Task().Text);
        differs = differs || one.Task().Text != third.Task().Text;
        one.Answer(0);
        other.Answer(0);
        third.Answer(0);
    }
    EXPECT_TRUE(differs);
}

TEST_P(EachLevel, ParMakesAHundredPointsAndTheSetMore)
{
    TallyRules rules(GetParam(), 1);
    while (rules.Right() < TallyRules::Par(GetParam())) EXPECT_TRUE(rules.Answer(rules.Task().Result));
    EXPECT_EQ(rules.Points(), 100);
    while (!rules.Over()) rules.Answer(rules.Task().Result);
    EXPECT_GE(rules.Points(), 120);
    EXPECT_EQ(rules.Progress(), 100);
}

TEST_P(EachLevel, IsBalanced)
{
    const int level = GetParam();
    const int highest = level < 3 ? 18 : 99; // as large as results mostly are
    const double random = MedianOfHabit(level, [&](SeededRandom &chance) { return chance.Between(0, highest); });
    const double always = MedianOfHabit(level, [](SeededRandom &) { return 9; });
    Model::ExpectBalanced(level,
                          {random, always, MedianOf(Learner, level), MedianOf(Good, level), MedianOf(Expert, level)});
}

TEST_P(EachLevel, MoreSkillNeverScoresLess)
{
    constexpr int Sessions = 301;                                            // of each skill: the steps are wide
    Model::ExpectSkillPays({0, 0.25, 0.5, 0.75, 1, 1.25}, [](double skill) { // from the learner to beyond the expert
        ModelPlayer player = Model::Between(Learner, Expert, skill);
        player.right = std::min(1.0, player.right);
        return MedianOf(player, GetParam(), Sessions);
    });
}

TEST(TallyRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(TallyRules(0, 1).Level(), 1);
    EXPECT_EQ(TallyRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(TallyRules(11, 1).Level(), 10);
}

TEST(TallyRules, AWrongAnswerIsDoneAndEarnsNothing)
{
    TallyRules rules(1, 3);
    EXPECT_FALSE(rules.Answer(rules.Task().Result + 1));
    EXPECT_EQ(rules.Done(), 1);
    EXPECT_EQ(rules.Points(), 0);
}

TEST(TallyRules, AnAnswerAfterTheEndDoesNothing)
{
    TallyRules rules(1, 3);
    while (!rules.Over()) rules.Answer(rules.Task().Result);
    const int points = rules.Points();
    EXPECT_FALSE(rules.Answer(rules.Task().Result));
    EXPECT_EQ(rules.Points(), points);
}

TEST(TallyRules, TheFirstLevelHasSumsOfSingleDigitsOnly)
{
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        const QString text = TallyRules(1, seed).Task().Text;
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^[1-9] \\+ [1-9]$")).match(text).hasMatch())
            << qPrintable(text);
    }
}

TEST(SeededRandom, ReachesBothEndsAndNothingBeyond)
{
    SeededRandom random(5);
    std::set<int> seen;
    for (int i = 0; i < 1000; ++i) seen.insert(random.Between(-2, 2));
    EXPECT_EQ(seen, (std::set<int>{-2, -1, 0, 1, 2}));
    EXPECT_EQ(random.Between(4, 4), 4);
    EXPECT_GE(random.Between(-2147483647, 2147483647), -2147483647);
}

TEST(SeededRandom, AShuffleKeepsEveryMember)
{
    SeededRandom random(5);
    std::vector<int> list{1, 2, 3, 4, 5, 6, 7, 8};
    const std::vector<int> before = list;
    random.Shuffle(list);
    EXPECT_NE(list, before);
    std::sort(list.begin(), list.end());
    EXPECT_EQ(list, before);
}
