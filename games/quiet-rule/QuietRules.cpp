#include "QuietRules.h"

#include <algorithm>
#include <numeric>

namespace
{
struct LevelPlan
{
    int traits;
    int shortest, longest; // run of right answers after which the rule turns
    QuietRules::Hint hint;
    double hintPart;
    int cards;
    double par; // cards for 100 points; measured with the model players of the tests
};

using Hint = QuietRules::Hint;
constexpr std::array<LevelPlan, QuietRules::Levels> Plans{{
    {2, 6, 8, Hint::Named, 1, 38, 26.5},
    {2, 5, 7, Hint::Named, 1, 38, 25.5},
    {3, 5, 7, Hint::Shown, 1, 36, 26.5},
    {3, 4, 6, Hint::Shown, 1, 36, 24.5},
    {4, 4, 6, Hint::Brief, 0.6, 35, 25},
    {4, 3, 5, Hint::Brief, 0.45, 34, 22.5},
    {4, 2, 4, Hint::Brief, 0.3, 32, 18.5},
}};

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }
} // namespace

QuietRules::QuietRules(int Level, std::uint32_t Seed)
    : m_Level(std::clamp(Level, 1, Levels)),
      m_Random(Seed),
      m_Set(PlanOf(m_Level).cards, PlanOf(m_Level).par),
      m_Counting{CardTrait::Shape, CardTrait::Count, CardTrait::Fill, CardTrait::Edge}
{
    m_Random.Shuffle(m_Counting);
    m_Counting.resize(static_cast<std::size_t>(PlanOf(m_Level).traits));
    const Card still{{m_Random.Between(0, 3), 1, 3, 0}}; // two figures, solid, on a rounded card
    m_References.fill(still);
    std::vector<int> values{0, 1, 2, 3};
    for (const CardTrait trait : m_Counting) {
        m_Random.Shuffle(values);
        for (std::size_t pile = 0; pile < Piles; ++pile) m_References[pile][trait] = values[pile];
    }
    m_Rule = m_Counting[0]; // shuffled
    m_RunToTurn = m_Random.Between(PlanOf(m_Level).shortest, PlanOf(m_Level).longest);
    Deal();
}

QuietRules::Hint QuietRules::HintAfterMistake() const { return PlanOf(m_Level).hint; }
double QuietRules::HintPart() const { return PlanOf(m_Level).hintPart; }

// Each trait that counts is taken from a pile of its own. Never the same card twice in a row.
void QuietRules::Deal()
{
    const Card before = m_Present;
    std::vector<int> piles(Piles);
    std::iota(piles.begin(), piles.end(), 0);
    do {
        m_Random.Shuffle(piles);
        m_Present = m_References[0];
        for (std::size_t i = 0; i < m_Counting.size(); ++i)
            m_Present[m_Counting[i]] = m_References[static_cast<std::size_t>(piles[i])][m_Counting[i]];
    } while (m_Present == before);
}

void QuietRules::Turn()
{
    const int others = static_cast<int>(m_Counting.size()) - 1;
    const auto now = std::find(m_Counting.begin(), m_Counting.end(), m_Rule) - m_Counting.begin();
    const auto step = static_cast<std::size_t>(m_Random.Between(1, others));
    m_Rule = m_Counting[(static_cast<std::size_t>(now) + step) % m_Counting.size()];
    m_Run = 0;
    m_RunToTurn = m_Random.Between(PlanOf(m_Level).shortest, PlanOf(m_Level).longest);
}

int QuietRules::PileBy(CardTrait Trait) const
{
    const auto pile = std::find_if(m_References.begin(), m_References.end(),
                                   [&](const Card &reference) { return reference[Trait] == m_Present[Trait]; });
    return static_cast<int>(pile - m_References.begin());
}

std::optional<CardTrait> QuietRules::SharedWith(int Pile) const
{
    for (const CardTrait trait : m_Counting) {
        if (PileBy(trait) == Pile) return trait;
    }
    return {};
}

bool QuietRules::Judge(int Pile)
{
    if (m_Set.Over()) return false;
    const bool right = Pile == RightPile();
    m_Set.Add(right, right ? 1.0 : -1.0 / (static_cast<double>(m_Counting.size()) - 1));
    m_Run = right ? m_Run + 1 : 0;
    return right;
}

void QuietRules::Next()
{
    if (m_Run >= m_RunToTurn) Turn();
    Deal();
}
