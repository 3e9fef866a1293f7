#include "games/quiet-rule/QuietRules.h"
#include "tests/games/model/Play.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace
{
constexpr std::array All{CardTrait::Shape, CardTrait::Count, CardTrait::Fill, CardTrait::Edge};
constexpr double Limit = 75;       // [s]
constexpr double RightTime = 0.35; // [s] for which an answer is told
constexpr double WrongTime = 1.5;  // [s]

/// A player as a few numbers: seconds for a glance, for a thought after a mistake, for a key; how often a card goes
/// elsewhere by a slip, and how often a mistake is put down to one and the old rule kept; seconds in which the right
/// pile is found when it is shown.
struct ModelPlayer
{
    double glance, thought, key, slip, stick, find;
};
constexpr ModelPlayer Learner{0.34, 2.2, 0.50, 0.09, 0.35, 0.80};
constexpr ModelPlayer Good{0.23, 1.35, 0.28, 0.03, 0.12, 0.50};
constexpr ModelPlayer Expert{0.18, 0.9, 0.20, 0.01, 0.04, 0.35};
constexpr double Glances = 3;   // at the card, at a pile, and at the one to press
constexpr double PerBit = 0.15; // [s] to choose among the traits, for each doubling of their number

class Mind
{
public:
    Mind(const ModelPlayer &player, const QuietRules &rules, SeededRandom &chance)
        : m_Player(player), m_Rules(rules), m_Chance(chance)
    {
        ForgetAll();
        ThinkOfAnother();
    }

    double TimeForCard()
    {
        const double bits = std::log2(static_cast<double>(m_Rules.Counting().size()));
        const double swing = 0.7 + 0.6 * m_Chance.Between(0, 1000) / 1000.0;
        return (m_Player.glance * Glances + PerBit * bits) * swing + m_Player.key;
    }
    int Choose()
    {
        const int meant = m_Rules.PileBy(m_Believed);
        return Happens(m_Player.slip) ? (meant + m_Chance.Between(1, 3)) % QuietRules::Piles : meant;
    }
    /// The seconds that it takes beyond what the game takes itself.
    double Learn(bool right, int chosen)
    {
        if (right) {
            ForgetAll(); // whatever was ruled out before counted for another rule
            if (const auto shared = m_Rules.SharedWith(chosen)) m_Believed = *shared;
            return 0;
        }
        if (Happens(m_Player.stick)) return 0;
        const double seen = std::min(1.0, m_Rules.HintPart() * WrongTime / m_Player.find);
        if (Happens(seen)) {
            m_Believed = m_Rules.Rule();
        } else {
            m_Open.erase(m_Believed);
            if (m_Open.empty()) ForgetAll();
            ThinkOfAnother();
        }
        return m_Player.thought;
    }

private:
    bool Happens(double share) { return m_Chance.Between(1, 10000) <= 10000 * share; }
    void ForgetAll() { m_Open = {m_Rules.Counting().begin(), m_Rules.Counting().end()}; }
    void ThinkOfAnother()
    {
        m_Believed = *std::next(m_Open.begin(), m_Chance.Between(0, static_cast<int>(m_Open.size()) - 1));
    }

    const ModelPlayer &m_Player;
    const QuietRules &m_Rules;
    SeededRandom &m_Chance;
    CardTrait m_Believed = CardTrait::Shape;
    std::set<CardTrait> m_Open;
};

Model::Session Play(const ModelPlayer &player, int level, std::uint32_t seed)
{
    QuietRules rules(level, seed);
    SeededRandom chance(seed + 1);
    Mind mind(player, rules, chance);
    Model::Session session;
    while (true) {
        session.Time += mind.TimeForCard();
        if (session.Time > Limit) break;
        const int chosen = mind.Choose();
        const bool right = rules.Judge(chosen);
        session.Time += (right ? RightTime : WrongTime) + mind.Learn(right, chosen);
        if (rules.Set().Over()) break;
        rules.Next();
    }
    session.Points = rules.Set().Points();
    return session;
}

/// Presses by a habit, as fast as that goes.
template <typename Habit>
double MedianOfHabit(int level, double time, Habit choose)
{
    return Model::Median(Limit, [&](std::uint32_t seed) {
        QuietRules rules(level, seed);
        SeededRandom chance(seed + 1);
        Model::Session session;
        while (session.Time + time <= Limit) {
            session.Time += time + (rules.Judge(choose(rules, chance)) ? RightTime : WrongTime);
            if (rules.Set().Over()) break;
            rules.Next();
        }
        session.Points = rules.Set().Points();
        return session;
    });
}

double MedianOf(const ModelPlayer &player, int level)
{
    return Model::Median(Limit, [&](std::uint32_t seed) { return Play(player, level, seed); });
}

int AnyPile(const QuietRules &, SeededRandom &chance) { return chance.Between(0, QuietRules::Piles - 1); }
} // namespace

class QuietRuleLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(QuietRule, QuietRuleLevel, testing::Range(1, QuietRules::Levels + 1));

TEST_P(QuietRuleLevel, UnderEveryRuleOnePileIsRightAndNeverTheSameUnderTwo)
{
    int cards = 0;
    for (std::uint32_t seed = 0; cards < 100000; ++seed) {
        QuietRules rules(GetParam(), seed);
        for (; !rules.Set().Over() && cards < 100000; ++cards) {
            std::array<int, QuietRules::Piles> alike{}; // traits that each pile shares with the card
            for (const CardTrait trait : rules.Counting()) {
                int piles = 0;
                for (std::size_t pile = 0; pile < QuietRules::Piles; ++pile) {
                    const bool isAlike = rules.References()[pile][trait] == rules.Present()[trait];
                    alike[pile] += isAlike ? 1 : 0;
                    piles += isAlike ? 1 : 0;
                    if (isAlike && trait == rules.Rule()) {
                        ASSERT_EQ(static_cast<int>(pile), rules.RightPile());
                    }
                }
                ASSERT_EQ(piles, 1);
            }
            for (const int traits : alike) ASSERT_LE(traits, 1);
            rules.Judge(rules.RightPile());
            if (!rules.Set().Over()) rules.Next();
        }
    }
}

TEST_P(QuietRuleLevel, TraitsThatDontCountAreTheSameOnAllCards)
{
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        QuietRules rules(GetParam(), seed);
        const std::set<CardTrait> counting(rules.Counting().begin(), rules.Counting().end());
        EXPECT_EQ(counting.size(), rules.Counting().size());
        for (; !rules.Set().Over(); rules.Judge(0), rules.Next()) {
            for (const CardTrait trait : All) {
                for (const Card &reference : rules.References()) {
                    if (counting.count(trait) == 0) {
                        EXPECT_EQ(reference[trait], rules.Present()[trait]);
                    }
                }
            }
        }
    }
}

TEST_P(QuietRuleLevel, TheRuleTurnsAfterARunOfRightAnswersAndAtNoOtherMoment)
{
    constexpr std::array Shortest{6, 5, 5, 4, 4, 3, 2};
    constexpr std::array Longest{8, 7, 7, 6, 6, 5, 4};
    const auto at = static_cast<std::size_t>(GetParam() - 1);
    std::set<int> lengths;
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        QuietRules rules(GetParam(), seed);
        SeededRandom chance(seed);
        int run = 0;
        while (!rules.Set().Over()) {
            const CardTrait before = rules.Rule();
            const bool right = rules.Judge(chance.Between(1, 12) == 1 ? AnyPile(rules, chance) : rules.RightPile());
            run = right ? run + 1 : 0;
            rules.Next();
            if (rules.Rule() == before) {
                EXPECT_LT(run, Longest[at]);
                continue;
            }
            EXPECT_GE(run, Shortest[at]);
            lengths.insert(run);
            run = 0;
        }
    }
    EXPECT_EQ(static_cast<int>(lengths.size()), Longest[at] - Shortest[at] + 1) << "it can't be counted out";
}

TEST_P(QuietRuleLevel, EveryTraitThatCountsBecomesTheRule)
{
    std::set<CardTrait> seen;
    std::set<CardTrait> first;
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
        QuietRules rules(GetParam(), seed);
        first.insert(rules.Rule());
        for (; !rules.Set().Over(); rules.Next()) {
            seen.insert(rules.Rule());
            rules.Judge(rules.RightPile());
        }
    }
    EXPECT_EQ(seen.size(), All.size());
    EXPECT_EQ(first.size(), All.size());
}

TEST_P(QuietRuleLevel, OneSeedGivesOneSet)
{
    QuietRules one(GetParam(), 7);
    QuietRules other(GetParam(), 7);
    QuietRules third(GetParam(), 8);
    bool differs = false;
    for (; !one.Set().Over(); one.Next(), other.Next(), third.Next()) {
        EXPECT_EQ(one.Present(), other.Present());
        EXPECT_EQ(one.RightPile(), other.RightPile());
        differs = differs || !(one.Present() == third.Present());
        const int right = one.RightPile();
        for (QuietRules *rules : {&one, &other, &third}) rules->Judge(right);
    }
    EXPECT_TRUE(differs);
}

TEST_P(QuietRuleLevel, IsBalanced)
{
    Model::ExpectBalanced(GetParam(),
                          {MedianOfHabit(GetParam(), 0.2, AnyPile),
                           MedianOfHabit(GetParam(), 0.2, [](const QuietRules &, SeededRandom &) { return 0; }),
                           MedianOf(Learner, GetParam()), MedianOf(Good, GetParam()), MedianOf(Expert, GetParam())});
}

// Who sees the piles that are like the card in something, and takes any of them, or sorts by one trait for ever.
TEST_P(QuietRuleLevel, SortingWithoutListeningEarnsAlmostNothing)
{
    constexpr double Time = 0.6;
    const double anyTrait = MedianOfHabit(GetParam(), Time, [](const QuietRules &rules, SeededRandom &chance) {
        const int last = static_cast<int>(rules.Counting().size()) - 1;
        return rules.PileBy(rules.Counting()[static_cast<std::size_t>(chance.Between(0, last))]);
    });
    const double oneTrait = MedianOfHabit(
        GetParam(), Time, [](const QuietRules &rules, SeededRandom &) { return rules.PileBy(rules.Counting()[0]); });
    EXPECT_LE(anyTrait, 35);
    EXPECT_LE(oneTrait, 35);
}

TEST_P(QuietRuleLevel, MoreSkillNeverScoresLess) // from the learner to beyond the expert
{
    Model::ExpectSkillPays({0, 0.2, 0.4, 0.6, 0.8, 1, 1.2}, [](double skill) {
        ModelPlayer player = Model::Between(Learner, Expert, skill);
        player.slip = std::max(0.0, player.slip);
        player.stick = std::max(0.0, player.stick);
        return MedianOf(player, GetParam());
    });
}

TEST(QuietRule, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(QuietRules(0, 1).Level(), 1);
    EXPECT_EQ(QuietRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(QuietRules(8, 1).Level(), 7);
}

TEST(QuietRule, LevelsHaveTwoToFourTraitsAndHintsFade)
{
    const std::array traits{2, 2, 3, 3, 4, 4, 4};
    double before = 1;
    for (int level = 1; level <= QuietRules::Levels; ++level) {
        const QuietRules rules(level, 5);
        EXPECT_EQ(static_cast<int>(rules.Counting().size()), traits[static_cast<std::size_t>(level - 1)]);
        EXPECT_LE(rules.HintPart(), before);
        EXPECT_GT(rules.HintPart(), 0) << "what was right is always shown";
        EXPECT_EQ(rules.HintAfterMistake() == QuietRules::Hint::Named, level <= 2);
        before = rules.HintPart();
    }
}

TEST(QuietRule, ACardIsNeverDealtTwiceInARow)
{
    QuietRules rules(1, 4);
    for (int card = 0; card < 1000; ++card) {
        const Card before = rules.Present();
        rules.Next();
        EXPECT_FALSE(rules.Present() == before);
    }
}

TEST(QuietRule, AnAnswerAfterTheEndDoesNothing)
{
    QuietRules rules(7, 3);
    while (!rules.Set().Over()) rules.Judge(rules.RightPile());
    const int points = rules.Set().Points();
    EXPECT_FALSE(rules.Judge(rules.RightPile()));
    EXPECT_EQ(rules.Set().Points(), points);
}
