// Sessions of question sets by level and seed, thousands of them.
#include "games/questions/QuestionFile.h"
#include "games/questions/QuestionRules.h"

#include "sdk/author/SeededRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <set>

namespace
{
constexpr std::uint32_t Seeds = 101;

const QuestionSet &Bundled(const char *Game)
{
    static std::map<std::string, QuestionSet> sets;
    auto known = sets.find(Game);
    if (known == sets.end())
        known = sets.emplace(Game, LoadQuestions(QStringLiteral(NOGGLE_DIST_FOLDER) + QLatin1String(Game) + u'/', {}))
                    .first;
    return known->second;
}

/// Points of a player who knows that share of the answers and guesses the others.
int PointsOf(QuestionRules &rules, double knows, SeededRandom &luck)
{
    while (!rules.Over()) {
        const bool known = luck.Between(0, 9999) < knows * 10000;
        const int choices = static_cast<int>(rules.Present().Choices.size());
        rules.Choose(known ? rules.Present().RightChoice : luck.Between(0, choices - 1));
    }
    return rules.Points();
}

int MedianPoints(const QuestionSet &set, int level, double knows)
{
    std::vector<int> points;
    for (std::uint32_t seed = 0; seed < Seeds; ++seed) {
        QuestionRules rules(set, level, seed);
        SeededRandom luck(seed + 77);
        points.push_back(PointsOf(rules, knows, luck));
    }
    std::ranges::nth_element(points, points.begin() + Seeds / 2);
    return points[Seeds / 2];
}

/// Products and quotients before sums; as this file has it, apart from the script that made the tasks. Fractions are
/// compared by crosswise products.
bool Holds(const QString &task, const QString &sign)
{
    const QStringList sides = QString(task).replace(u'?', sign).split(u'=');
    const QStringList words = sides[0].simplified().split(u' ');
    std::vector<std::pair<long, long>> terms{{words[0].toLong(), 1}}; // each a fraction
    for (qsizetype i = 1; i + 1 < words.size(); i += 2) {
        const long number = words[i + 1].toLong();
        if (words[i] == u"×")
            terms.back().first *= number;
        else if (words[i] == u"÷")
            terms.back().second *= number;
        else
            terms.emplace_back(words[i] == u"+" ? number : -number, 1);
    }
    const auto sum =
        std::accumulate(terms.begin() + 1, terms.end(), terms[0], [](const auto &one, const auto &other) {
            return std::pair(one.first * other.second + other.first * one.second, one.second * other.second);
        });
    return sum.second != 0 && sum.first == sides[1].toLong() * sum.second;
}
} // namespace

TEST(QuestionRules, ALevelAndASeedAreOneSession)
{
    const QuestionSet &set = Bundled("world-capitals");
    QuestionRules one(set, 2, 7);
    QuestionRules same(set, 2, 7);
    QuestionRules other(set, 2, 8);
    bool differs = false;
    while (!one.Over()) {
        EXPECT_EQ(one.Present().Text.Prompt, same.Present().Text.Prompt);
        EXPECT_EQ(one.Present().Choices, same.Present().Choices);
        differs = differs || one.Present().Text.Prompt != other.Present().Text.Prompt;
        one.Choose(0);
        same.Choose(0);
        other.Choose(0);
    }
    EXPECT_TRUE(differs);
}

TEST(QuestionRules, EveryCapitalIsAskedWithFourDifferentChoicesOfWhichOneIsRight)
{
    const QuestionSet &set = Bundled("world-capitals");
    std::map<QString, QString> capitals;
    for (const Question &question : set.Questions) {
        EXPECT_TRUE(capitals.emplace(question.Prompt, question.Right).second) << "one capital a state";
    }
    for (int level = 1; level <= 6; ++level) {
        std::set<QString> asked;
        for (std::uint32_t seed = 0; seed < Seeds; ++seed) {
            QuestionRules rules(set, level, seed);
            ASSERT_EQ(rules.Rounds(), 15);
            std::set<QString> inSession;
            for (; !rules.Over(); rules.Choose(0)) {
                const auto &item = rules.Present();
                ASSERT_TRUE(inSession.insert(item.Text.Prompt).second) << "no question twice";
                ASSERT_EQ(std::set<QString>(item.Choices.begin(), item.Choices.end()).size(), 4u);
                ASSERT_EQ(item.Choices.count(capitals[item.Text.Prompt]), 1);
                ASSERT_EQ(item.Choices[item.RightChoice], capitals[item.Text.Prompt]);
                asked.insert(item.Text.Prompt);
            }
        }
        const auto ofLevel =
            std::ranges::count_if(set.Questions, [&](const Question &one) { return one.Level == level; });
        EXPECT_EQ(static_cast<long>(asked.size()), ofLevel) << "every one comes";
    }
}

TEST(QuestionRules, ExactlyOneOperatorFitsEachTask)
{
    std::map<QString, int> right;
    for (const Question &question : Bundled("missing-operator").Questions) {
        int fitting = 0;
        for (const QString &sign : question.Fixed) fitting += Holds(question.Prompt, sign) ? 1 : 0;
        EXPECT_EQ(fitting, 1) << question.Prompt.toStdString();
        EXPECT_TRUE(Holds(question.Prompt, question.Right)) << question.Prompt.toStdString();
        ++right[QString::number(question.Level) + question.Right];
    }
    for (const auto &[sign, count] : right) EXPECT_EQ(count, 12) << sign.toStdString();
}

TEST(QuestionRules, ChoicesOfAllQuestionsKeepTheirOrder)
{
    for (std::uint32_t seed = 0; seed < 50; ++seed)
        EXPECT_EQ(QuestionRules(Bundled("missing-operator"), 3, seed).Present().Choices.join(u' ').toStdString(),
                  "+ − × ÷");
}

TEST(QuestionRules, KnowingMakesAboutAHundredAndGuessingAlmostNothing)
{
    for (const auto &[game, levels] : {std::pair("world-capitals", 6), std::pair("missing-operator", 8)}) {
        for (int level = 1; level <= levels; ++level) {
            const int good = MedianPoints(Bundled(game), level, 0.9);
            const int guessing = MedianPoints(Bundled(game), level, 0);
            std::printf("%s %d: all 110, nine of ten %d, half %d, guessing %d\n", game, level, good,
                        MedianPoints(Bundled(game), level, 0.5), guessing);
            EXPECT_GE(good, 90);
            EXPECT_LE(good, 110);
            EXPECT_LE(guessing, 20);
            EXPECT_EQ(MedianPoints(Bundled(game), level, 1), QuestionRules::AllRight);
        }
    }
}

TEST(QuestionRules, KnowingMoreNeverScoresLess)
{
    int before = -1;
    for (const double knows : {0.0, 0.2, 0.4, 0.6, 0.8, 1.0}) {
        const int points = MedianPoints(Bundled("world-capitals"), 1, knows);
        EXPECT_GE(points, before);
        before = points;
    }
}

TEST(QuestionRules, AWeightCountsAndATypedMistakeTakesNothingAway)
{
    const QuestionSet set = QuestionSet::Read("Rounds: 3\n\nQuestion: A?\nAnswer: Zürich\nPoints: 3\n\n"
                                              "Question: B?\nAnswer: 2\n\nQuestion: C?\nAnswer: 3");
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        QuestionRules rules(set, 1, seed);
        while (!rules.Over())
            rules.Type(rules.Present().Text.Prompt == u"A?" ? QStringLiteral(" zurich") : QStringLiteral("no"));
        EXPECT_EQ(rules.Points(), 66) << "three of five parts";
    }
}

TEST(QuestionRules, ALevelWithoutQuestionsPlaysTheNearestLowerOne)
{
    const QuestionSet set =
        QuestionSet::Read("Level: 2\n\nQuestion: A?\nAnswer: a\n\nLevel: 4\n\nQuestion: B?\nAnswer: b");
    const auto promptAt = [&](int level) { return QuestionRules(set, level, 1).Present().Text.Prompt.toStdString(); };
    EXPECT_EQ(promptAt(1), "A?");
    EXPECT_EQ(promptAt(3), "A?");
    EXPECT_EQ(promptAt(4), "B?");
    EXPECT_EQ(promptAt(99), "B?");
}

TEST(QuestionRules, AnswersAfterTheEndCountNothing)
{
    QuestionRules rules(Bundled("missing-operator"), 1, 1);
    while (!rules.Over()) rules.Choose(rules.Present().RightChoice);
    EXPECT_FALSE(rules.Choose(rules.Present().RightChoice));
    EXPECT_EQ(rules.Points(), 110);
    EXPECT_EQ(rules.Progress(), 100);
}
