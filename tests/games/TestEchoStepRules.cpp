#include "games/echo-step/EchoRules.h"
#include "tests/games/model/Model.h"

#include <algorithm>
#include <set>

namespace
{
constexpr double Limit = 75;    // [s]
constexpr double LeadIn = 1.5;  // [s]
constexpr double Telling = 1.8; // [s] that a mistake is told
constexpr std::array Both{EchoRules::Place, EchoRules::Letter};

/// Judged from the steps alone, as somebody would who wrote them down.
bool IsSame(const EchoRules &rules, EchoRules::Trait trait)
{
    const int before = rules.Index() - rules.Back();
    if (before < 0 || (trait == EchoRules::Letter && !rules.HasLetters())) return false;
    const auto &steps = rules.Steps();
    return steps[static_cast<std::size_t>(rules.Index())][trait] == steps[static_cast<std::size_t>(before)][trait];
}

/// A player who still knows the step so many ago with a certain chance, and then presses rightly; else guesses, and
/// presses as often as there are echoes.
struct ModelPlayer
{
    double knows;
};
constexpr ModelPlayer Learner{0.45};
constexpr ModelPlayer Good{0.72};
constexpr ModelPlayer Expert{0.96};
constexpr double Guess = 1.0 / 3;

/// Plays one set; Presses tells of a trait whether it is pressed.
template <typename Habit>
Model::Session Play(int level, std::uint32_t seed, Habit presses)
{
    EchoRules rules(level, seed);
    double time = LeadIn;
    for (;;) {
        time += rules.Beat() / 1000.0;
        if (time > Limit) break;
        for (const auto trait : Both)
            if (presses(rules, trait)) rules.Press(trait);
        rules.Close();
        if (rules.Set().Over()) break;
        if (!rules.IsRight()) time += Telling;
        rules.Next();
    }
    return {rules.Set().Points(), time};
}

Model::Session PlayAs(const ModelPlayer &player, int level, std::uint32_t seed)
{
    SeededRandom chance(seed + 1);
    const auto happens = [&](double share) { return chance.Between(1, 10000) <= share * 10000; };
    return Play(level, seed, [&](const EchoRules &rules, EchoRules::Trait trait) {
        return happens(player.knows) ? IsSame(rules, trait) : happens(Guess);
    });
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Limit, [&](std::uint32_t seed) { return PlayAs(player, level, seed); });
}

double MedianOfHabit(int level, int percent)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        SeededRandom chance(seed + 1);
        return Play(level, seed,
                    [&](const EchoRules &, EchoRules::Trait) { return chance.Between(1, 100) <= percent; });
    });
}
} // namespace

class EchoLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(EchoStepRules, EchoLevel, testing::Range(1, EchoRules::Levels + 1));

TEST_P(EchoLevel, EveryStepIsAnEchoOrNotAsItsFieldsSay)
{
    int steps = 0;
    for (std::uint32_t seed = 0; steps < 100000; ++seed) {
        EchoRules rules(GetParam(), seed);
        std::array<int, EchoRules::Traits> echoes{};
        for (;; rules.Next(), ++steps) {
            const auto [place, letter] = rules.Steps()[static_cast<std::size_t>(rules.Index())];
            ASSERT_TRUE(place >= 0 && place < EchoRules::Places);
            ASSERT_TRUE(letter >= 0 && letter < static_cast<int>(EchoRules::Letters.size()));
            for (const auto trait : Both) {
                ASSERT_EQ(rules.IsEcho(trait), IsSame(rules, trait));
                if (!IsSame(rules, trait)) continue;
                ++echoes[trait];
                rules.Press(trait);
            }
            ASSERT_TRUE(rules.IsRight());
            rules.Close();
            if (rules.Set().Over()) break;
        }
        ASSERT_EQ(rules.Set().Points(), 125);
        ASSERT_EQ(3 * echoes[EchoRules::Place], rules.Set().Count()) << "a third of them are echoes";
        ASSERT_EQ(echoes[EchoRules::Letter], rules.HasLetters() ? echoes[EchoRules::Place] : 0);
    }
}

TEST_P(EchoLevel, OneSeedGivesOneSetAndAnotherOneAnother)
{
    EXPECT_EQ(EchoRules(GetParam(), 5).Steps(), EchoRules(GetParam(), 5).Steps());
    EXPECT_NE(EchoRules(GetParam(), 5).Steps(), EchoRules(GetParam(), 6).Steps());
}

TEST_P(EchoLevel, IsBalanced)
{
    Model::ExpectBalanced(GetParam(),
                          {MedianOfHabit(GetParam(), 50), MedianOfHabit(GetParam(), 100),
                           MedianOf(Learner, GetParam()), MedianOf(Good, GetParam()), MedianOf(Expert, GetParam())});
}

TEST_P(EchoLevel, NeverPressingEarnsNothing) { EXPECT_EQ(MedianOfHabit(GetParam(), 0), 0); }

TEST_P(EchoLevel, WhoKnowsMoreNeverScoresLess)
{
    double before = 0;
    for (const double knows : {0.2, 0.4, 0.6, 0.8, 1.0}) {
        const double median = MedianOf({knows}, GetParam());
        EXPECT_GE(median, before) << knows;
        before = median;
    }
}

TEST_P(EchoLevel, NeitherEchoesNorOtherStepsFollowOneAnotherForLong)
{
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        EchoRules rules(GetParam(), seed);
        int echoes = 0;
        int others = 0;
        for (; !rules.Set().Over(); rules.Next()) {
            const bool echo = rules.IsEcho(EchoRules::Place);
            echoes = echo ? echoes + 1 : 0;
            others = echo || !rules.IsJudged() ? 0 : others + 1;
            ASSERT_LE(echoes, 3);
            ASSERT_LE(others, 5);
            rules.Close();
        }
    }
}

TEST_P(EchoLevel, NearMissesComeNowAndThenFromTwoStepsOn)
{
    int near = 0;
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        const EchoRules rules(GetParam(), seed);
        const auto &steps = rules.Steps();
        for (std::size_t i = static_cast<std::size_t>(rules.Back()) + 1; i < steps.size(); ++i) {
            const std::size_t before = i - static_cast<std::size_t>(rules.Back());
            const int place = steps[i][EchoRules::Place];
            if (place == steps[before][EchoRules::Place]) continue;
            near +=
                place == steps[before - 1][EchoRules::Place] || place == steps[before + 1][EchoRules::Place] ? 1 : 0;
        }
    }
    EXPECT_TRUE(EchoRules(GetParam(), 1).Back() == 1 || near > 400) << near;
}

TEST(EchoStepRules, GrowFromOneStepBackToFourAndThenToPlaceAndLetterFaster)
{
    std::set<int> back;
    for (int level = 1; level <= 4; ++level) {
        EXPECT_EQ(EchoRules(level, 1).Back(), level);
        EXPECT_FALSE(EchoRules(level, 1).HasLetters());
    }
    for (int level = 5; level <= 9; ++level) EXPECT_TRUE(EchoRules(level, 1).HasLetters());
    for (const int level : {7, 9}) {
        EXPECT_EQ(EchoRules(level, 1).Back(), EchoRules(level - 1, 1).Back());
        EXPECT_LT(EchoRules(level, 1).Beat(), EchoRules(level - 1, 1).Beat());
    }
}

TEST(EchoStepRules, AFlawlessSetEndsWellBeforeTheClock)
{
    for (int level = 1; level <= EchoRules::Levels; ++level) {
        const EchoRules rules(level, 1);
        const double time = LeadIn + static_cast<double>(rules.Steps().size()) * rules.Beat() / 1000.0;
        EXPECT_GT(time, 0.7 * Limit) << level;
        EXPECT_LT(time, 0.8 * Limit) << level;
    }
}

TEST(EchoStepRules, TheFirstStepsHaveNothingToCompareAndNoPressCounts)
{
    EchoRules rules(3, 1);
    for (int step = 0; step < 3; ++step, rules.Next()) {
        EXPECT_FALSE(rules.IsJudged());
        EXPECT_FALSE(rules.Press(EchoRules::Place));
        rules.Close();
        EXPECT_EQ(rules.Set().Done(), 0);
    }
    EXPECT_TRUE(rules.Press(EchoRules::Place));
}

TEST(EchoStepRules, APressCountsOnceForAStep)
{
    EchoRules rules(1, 1);
    while (!rules.IsEcho(EchoRules::Place)) {
        rules.Close();
        rules.Next();
    }
    EXPECT_FALSE(rules.IsRight()) << "what is not pressed is missed";
    EXPECT_TRUE(rules.Press(EchoRules::Place));
    EXPECT_FALSE(rules.Press(EchoRules::Place));
    EXPECT_TRUE(rules.IsRight());
    rules.Close();
    EXPECT_EQ(rules.Set().Points(), 125 / 8);
}

TEST(EchoStepRules, AFalsePressTakesHalfOfWhatAnEchoBrings)
{
    EchoRules rules(1, 1);
    int echoes = 0;
    int falsePresses = 0;
    while (echoes < 3 || falsePresses < 1) {
        const bool echo = rules.IsEcho(EchoRules::Place);
        if (rules.IsJudged() && (echo ? echoes < 3 : falsePresses < 1)) {
            rules.Press(EchoRules::Place);
            ++(echo ? echoes : falsePresses);
        }
        rules.Close();
        rules.Next();
    }
    EXPECT_EQ(rules.Set().Points(), static_cast<int>(125 * 2.5 / 8));
}

TEST(EchoStepRules, ALetterCanNotBePressedWhereThereIsNone)
{
    EchoRules rules(1, 1);
    rules.Next();
    EXPECT_FALSE(rules.Press(EchoRules::Letter));
    EXPECT_FALSE(rules.IsEcho(EchoRules::Letter));
}

TEST(EchoStepRules, AfterTheEndNothingCounts)
{
    EchoRules rules(1, 1);
    while (!rules.Set().Over()) {
        rules.Close();
        rules.Next();
    }
    const int index = rules.Index();
    EXPECT_FALSE(rules.Press(EchoRules::Place));
    rules.Close();
    rules.Next();
    EXPECT_EQ(rules.Index(), index);
    EXPECT_EQ(rules.Set().Done(), rules.Set().Count());
}

TEST(EchoStepRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(EchoRules(-5, 1).Level(), 1);
    EXPECT_EQ(EchoRules(0, 1).Level(), 1);
    EXPECT_EQ(EchoRules(99, 1).Level(), 9);
}
