// A question set of any bytes is read and can be played to its end at every level, or is refused in sentences that
// name a line.
#include "games/questions/QuestionRules.h"

#include <cstdlib>

namespace
{
void Demand(bool holds)
{
    if (!holds) std::abort();
}

void Play(const QuestionSet &set, int level, std::uint32_t seed)
{
    QuestionRules rules(set, level, seed);
    Demand(rules.Rounds() > 0);
    while (!rules.Over()) {
        const QuestionRules::Asked item = rules.Present();
        if (item.Text.Typed()) {
            Demand(rules.Type(item.Text.Solution()));
            continue;
        }
        Demand(item.Choices.size() >= 2 && item.Choices.count(item.Text.Right) == 1);
        Demand(QStringList(item.Choices).removeDuplicates() == 0);
        Demand(rules.Choose(item.RightChoice));
    }
    Demand(rules.Points() == QuestionRules::AllRight);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QuestionSet set =
        QuestionSet::Read(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    for (const QString &problem : set.Problems) Demand(problem.startsWith(u"Line ") && problem.contains(u':'));
    if (!set.Problems.isEmpty()) return 0;
    for (const int level : {1, 2, 20}) Play(set, level, static_cast<std::uint32_t>(size));
    return 0;
}
