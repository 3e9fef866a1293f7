#include "LanternRules.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace
{
struct LevelPlan
{
    int columns, rows;
    int length; // of the first half of the rounds; the second half has one lantern more
    bool backward;
    int rounds; // as many as a good player ends in about ninety seconds
};

constexpr std::array<LevelPlan, LanternRules::Levels> Plans{{
    {3, 3, 2, false, 16},
    {3, 3, 3, false, 13},
    {4, 3, 4, false, 11},
    {4, 3, 5, false, 9},
    {4, 3, 6, false, 8},
    {4, 3, 5, true, 9},
    {4, 4, 6, true, 8},
    {4, 4, 7, true, 7},
}};

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }
} // namespace

LanternRules::LanternRules(int Level, std::uint32_t Seed) : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed)
{
    Next();
}

int LanternRules::Columns() const { return PlanOf(m_Level).columns; }
int LanternRules::Rows() const { return PlanOf(m_Level).rows; }
bool LanternRules::Backward() const { return PlanOf(m_Level).backward; }
int LanternRules::Rounds() const { return PlanOf(m_Level).rounds; }

int LanternRules::LengthOf(int round) const { return PlanOf(m_Level).length + (round >= Rounds() / 2 ? 1 : 0); }

int LanternRules::Points() const
{
    int all = 0;
    for (int round = 0; round < Rounds(); ++round) all += LengthOf(round);
    return all > 0 ? 125 * m_Earned / all : 0;
}

void LanternRules::Next()
{
    if (Over()) return;
    std::vector<int> lanterns(static_cast<std::size_t>(Lanterns()));
    std::iota(lanterns.begin(), lanterns.end(), 0);
    m_Random.Shuffle(lanterns);
    m_Sequence.assign(lanterns.begin(), lanterns.begin() + LengthOf(m_Done));
    m_Pressed = 0;
    m_Ended = false;
}

int LanternRules::Expected(int place) const
{
    const auto at = static_cast<std::size_t>(place);
    return Backward() ? m_Sequence[m_Sequence.size() - 1 - at] : m_Sequence[at];
}

int LanternRules::PlaceOf(int Lantern) const
{
    for (int place = 0; place < static_cast<int>(m_Sequence.size()); ++place) {
        if (Expected(place) == Lantern) return place + 1;
    }
    return 0;
}

LanternRules::Press LanternRules::Judge(int Lantern)
{
    if (m_Ended || Over()) return Press::Wrong;
    const bool right = Lantern == Expected(m_Pressed);
    const bool last = m_Pressed + 1 == static_cast<int>(m_Sequence.size());
    if (right) ++m_Pressed;
    if (right && !last) return Press::Right;
    m_Ended = true;
    ++m_Done;
    if (right) m_Earned += static_cast<int>(m_Sequence.size());
    return right ? Press::Complete : Press::Wrong;
}
