#include "HoldRules.h"

#include <algorithm>
#include <array>

namespace
{
struct LevelPlan
{
    HoldRules::Family shapes;
    int beat;  // [ms]
    int count; // shapes: as many as take about 46 seconds
};
using Family = HoldRules::Family;
constexpr std::array<LevelPlan, HoldRules::Levels> Plans{{
    {Family::Plain, 1300, 36},
    {Family::FourArrows, 1150, 39},
    {Family::FourRings, 1000, 45},
    {Family::EightArrows, 900, 51},
    {Family::EightRings, 800, 57},
    {Family::EightHalves, 700, 66},
    {Family::DottedRings, 600, 75},
}};
constexpr double WholeSet = 1.25; // of par
constexpr int Parts = 3;          // each has its share of the stops, so that they come all the way through
constexpr int LongestRun = 2;     // of stops, and of one kind of the others

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }

bool HasLongRun(const std::vector<bool> &stops)
{
    int run = 0;
    for (const bool stop : stops) {
        run = stop ? run + 1 : 0;
        if (run > LongestRun) return true;
    }
    return false;
}

bool EndsInTwoOf(const std::vector<HoldRules::Item> &items, int kind)
{
    const std::size_t count = items.size();
    return count >= 2 && items[count - 1].Kind == kind && items[count - 2].Kind == kind;
}
} // namespace

HoldRules::HoldRules(int Level, std::uint32_t Seed) : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed)
{
    const LevelPlan &plan = PlanOf(m_Level);
    const int kinds = Kinds(plan.shapes);
    m_StopKind = m_Random.Between(0, kinds - 1);
    for (const bool stop : DrawStops(plan.count)) {
        int kind = m_StopKind;
        while (!stop && (kind == m_StopKind || EndsInTwoOf(m_Items, kind))) kind = m_Random.Between(0, kinds - 1);
        m_Items.push_back({kind, m_Random.Between(0, Tints - 1)});
    }
    m_Set = Rounds(plan.count, (plan.count - Stops) / WholeSet);
}

HoldRules::Family HoldRules::Shapes() const { return PlanOf(m_Level).shapes; }
int HoldRules::Beat() const { return PlanOf(m_Level).beat; }

int HoldRules::Kinds(Family Shapes)
{
    const bool isFour = Shapes == Family::Plain || Shapes == Family::FourArrows || Shapes == Family::FourRings;
    return isFour ? 4 : 8;
}

// The first shape is none, so that the hand finds its beat.
std::vector<bool> HoldRules::DrawStops(int count)
{
    std::vector<bool> stops;
    do {
        stops.clear();
        for (int part = 0; part < Parts; ++part) {
            std::vector<int> places(static_cast<std::size_t>(count / Parts), 0);
            std::fill_n(places.begin(), Stops / Parts, 1);
            m_Random.Shuffle(places);
            for (const int place : places) stops.push_back(place != 0);
        }
    } while (stops.front() || HasLongRun(stops));
    return stops;
}

bool HoldRules::Press()
{
    if (m_Set.Over() || m_Pressed) return false;
    m_Pressed = true;
    return true;
}

void HoldRules::Close()
{
    if (m_Set.Over()) return;
    const double slip = -static_cast<double>(m_Set.Count() - Stops) / Stops;
    m_Set.Add(IsRight(), !m_Pressed ? 0 : IsStop() ? slip : 1);
    m_Pressed = false;
}
