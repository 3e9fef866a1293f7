#include "QuestionRules.h"

#include <algorithm>
#include <cmath>

namespace
{
int NearestLevel(const QuestionSet &set, int wanted)
{
    int below = 0;
    int lowest = 0;
    for (const Question &question : set.Questions) {
        if (question.Level <= wanted) below = std::max(below, question.Level);
        lowest = lowest == 0 ? question.Level : std::min(lowest, question.Level);
    }
    return below > 0 ? below : lowest;
}
} // namespace

QuestionRules::QuestionRules(const QuestionSet &Set, int Level, std::uint32_t Seed)
    : m_Level(NearestLevel(Set, Level)), m_Random(Seed)
{
    std::vector<const Question *> pool;
    for (const Question &question : Set.Questions)
        if (question.Level == m_Level) pool.push_back(&question);
    m_Random.Shuffle(pool);
    pool.resize(std::min(pool.size(), static_cast<std::size_t>(Set.Rounds)));
    for (const Question *question : pool) {
        m_Asked.push_back(AskedFrom(Set, *question));
        m_All += question->Points;
    }
}

// A set of choices that is the same for all questions keeps its order: the hand finds its way back.
QuestionRules::Asked QuestionRules::AskedFrom(const QuestionSet &set, const Question &question)
{
    Asked asked{question, question.Fixed, -1};
    if (question.Typed()) return asked;
    if (asked.Choices.isEmpty()) {
        std::vector<QString> wrong(question.Wrong.begin(), question.Wrong.end());
        if (static_cast<int>(wrong.size()) + 1 < question.Choices) {
            const QStringList known = set.OthersFor(question);
            std::vector<QString> others(known.begin(), known.end());
            m_Random.Shuffle(others);
            const std::size_t missing = static_cast<std::size_t>(question.Choices) - 1 - wrong.size();
            wrong.insert(wrong.end(), others.begin(),
                         others.begin() + static_cast<std::ptrdiff_t>(std::min(missing, others.size())));
        }
        wrong.push_back(question.Right);
        m_Random.Shuffle(wrong);
        asked.Choices = QStringList(wrong.begin(), wrong.end());
    }
    asked.RightChoice = static_cast<int>(asked.Choices.indexOf(question.Right));
    return asked;
}

int QuestionRules::Points() const
{
    return m_All == 0 ? 0 : static_cast<int>(std::lround(AllRight * std::max(0.0, m_Earned) / m_All));
}

bool QuestionRules::Choose(int Choice) { return Over() ? false : Judged(Choice == Present().RightChoice); }

bool QuestionRules::Type(const QString &Text)
{
    if (Over()) return false;
    const QString typed = PlainAnswer(Text);
    return Judged(std::ranges::any_of(Present().Text.Answers,
                                      [&](const QString &answer) { return PlainAnswer(answer) == typed; }));
}

bool QuestionRules::Judged(bool right)
{
    const Asked &asked = Present();
    const auto wrongChoices = asked.Choices.size() - 1;
    if (right)
        m_Earned += asked.Text.Points;
    else if (wrongChoices > 0)
        m_Earned -= static_cast<double>(asked.Text.Points) / static_cast<double>(wrongChoices);
    ++m_Done;
    return right;
}
