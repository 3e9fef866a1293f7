#include "NinthRules.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <span>

namespace
{
using Kind = TileRule::Kind;

struct LevelPlan
{
    int rules;
    int offered;
    bool same, step, three; // the kinds of rules; same or three, since only they fit every trait
    bool arithmetic;        // one rule is a sum or a difference of counts, too
    int rounds;
    double par; // rounds for 100 points; measured with the model players of the tests
};

constexpr std::array<LevelPlan, NinthRules::Levels> Plans{{
    {1, 6, true, false, false, false, 17, 13.5},
    {1, 6, false, true, true, false, 15, 11.5},
    {2, 6, true, true, false, false, 11, 8.5},
    {2, 6, true, true, true, false, 10, 7.5},
    {2, 8, false, true, true, true, 8, 6.0},
    {3, 8, true, true, false, false, 8, 6.5},
    {3, 8, true, true, true, false, 8, 6.0},
    {3, 8, false, true, true, true, 7, 5.0},
    {4, 8, true, true, true, false, 6, 4.0},
    {4, 8, false, true, true, true, 5, 3.2},
}};

constexpr std::array Free{Trait::Shape, Trait::Fill, Trait::Turn}; // may change in any company

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }

bool Allows(const LevelPlan &plan, Kind kind)
{
    return (kind == Kind::Same && plan.same) || (kind == Kind::Step && plan.step) ||
           (kind == Kind::Three && plan.three);
}

std::size_t Index(int number) { return static_cast<std::size_t>(number); }
int CountOf(Trait on) { return ValuesOf[static_cast<std::size_t>(on)]; }

TraitSquare Turned(const TraitSquare &at) { return {at[0], at[3], at[6], at[1], at[4], at[7], at[2], at[5], at[8]}; }

bool Differs(const TraitSquare &at)
{
    return std::any_of(at.begin(), at.end(), [&](int value) { return value != at[0]; });
}
} // namespace

NinthRules::NinthRules(int Level, std::uint32_t Seed)
    : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed), m_Set(PlanOf(m_Level).rounds, PlanOf(m_Level).par)
{
    Next();
}

bool NinthRules::Judge(int Choice)
{
    if (m_Set.Over()) return false;
    const bool right = Choice == m_Item.Right;
    m_Set.Add(right, right ? 1.0 : -1.0 / (static_cast<double>(m_Item.Offered.size()) - 1));
    return right;
}

void NinthRules::Next()
{
    ChooseRules();
    LayStill();
    for (const TileRule &rule : m_Item.Rules) {
        while (!Lay(rule)) {
        }
    }
    Offer();
}

// Which traits change, and how. Counts and sizes never change together: small figures in great numbers are a test of
// the eyes.
void NinthRules::ChooseRules()
{
    const LevelPlan &plan = PlanOf(m_Level);
    const Trait counted = plan.arithmetic || m_Random.Coin() ? Trait::Count : Trait::Size;
    auto traits = Free;
    m_Random.Shuffle(traits);
    const int place = plan.arithmetic ? 0 : m_Random.Between(0, 3); // of the counted one among the others
    m_Item.Rules.clear();
    for (int i = 0; i < plan.rules; ++i) {
        const Trait on = i == place ? counted : traits[Index(i > place ? i - 1 : i)];
        m_Item.Rules.push_back({on, KindFor(on), m_Random.Coin()});
    }
}

Kind NinthRules::KindFor(Trait on)
{
    const LevelPlan &plan = PlanOf(m_Level);
    if (plan.arithmetic && on == Trait::Count) return m_Random.Coin() ? Kind::Sum : Kind::Difference;
    std::array<Kind, 3> kinds{};
    int count = 0;
    for (const Kind kind : {Kind::Same, Kind::Step, Kind::Three}) {
        if (Allows(plan, kind) && NinthLanguage::Fits(kind, on)) kinds[Index(count++)] = kind;
    }
    return kinds[Index(m_Random.Between(0, count - 1))];
}

// The traits without a rule are the same everywhere: few figures, upright, and as large as they fit.
void NinthRules::LayStill()
{
    Tile still;
    still[Trait::Shape] = m_Random.Between(0, CountOf(Trait::Shape) - 1);
    still[Trait::Count] = m_Random.Between(0, 2);
    still[Trait::Fill] = m_Random.Between(0, CountOf(Trait::Fill) - 1);
    still[Trait::Size] = CountOf(Trait::Size) - 1;
    still[Trait::Turn] = 0;
    m_Item.Square.fill(still);
}

// Lays the values of one trait; false where other rules of the language would ask for another ninth tile.
bool NinthRules::Lay(const TileRule &rule)
{
    const TraitSquare lines = Values(rule);
    const TraitSquare values = rule.InColumns ? Turned(lines) : lines;
    for (std::size_t i = 0; i < values.size(); ++i) m_Item.Square[i][rule.On] = values[i];
    return Differs(values) && std::popcount(NinthLanguage::Ninth(rule.On, values)) == 1;
}

// Nine values by lines.
TraitSquare NinthRules::Values(const TileRule &rule)
{
    const int count = CountOf(rule.On);
    const auto mixed = Mixed(count);
    const int step = rule.On == Trait::Turn    ? m_Random.Between(1, count - 1)
                     : rule.On == Trait::Count ? m_Random.Between(1, 2)
                                               : 1;
    const bool goesDown = m_Random.Coin();
    const int shift = m_Random.Between(1, 2);
    TraitSquare at{};
    for (int line = 0; line < 3; ++line) {
        int *three = &at[Index(3 * line)];
        const int last = rule.On == Trait::Turn ? count - 1 : count - 1 - 2 * step;
        const int start = m_Random.Between(0, std::max(0, last));
        const int whole = m_Random.Between(1, count - 1);
        const int part = m_Random.Between(0, whole - 1);
        for (int place = 0; place < 3; ++place) {
            if (rule.Is == Kind::Same) three[place] = mixed[Index(line)];
            if (rule.Is == Kind::Three) three[place] = mixed[Index((place + line * shift) % 3)];
            if (rule.Is == Kind::Step) three[place] = (start + (goesDown ? 2 - place : place) * step) % count;
        }
        if (rule.Is == Kind::Sum) std::copy_n(std::array{part, whole - part - 1, whole}.begin(), 3, three);
        if (rule.Is == Kind::Difference) std::copy_n(std::array{whole, part, whole - part - 1}.begin(), 3, three);
    }
    return at;
}

// The values of a trait in any order.
std::array<int, 6> NinthRules::Mixed(int count)
{
    std::array<int, 6> values{};
    std::iota(values.begin(), values.end(), 0);
    m_Random.Shuffle(std::span(values).first(Index(count)));
    return values;
}

// The answer's value first, then others: those of the square before those that are nowhere.
std::array<int, 4> NinthRules::Instead(Trait on)
{
    const int count = CountOf(on);
    const auto mixed = Mixed(count);
    unsigned inSquare = 0;
    for (const Tile &tile : m_Item.Square) inSquare |= 1U << tile[on];
    std::array<int, 4> values{m_Item.Answer()[on]};
    std::size_t found = 1;
    for (const bool present : {true, false}) {
        for (int i = 0; i < count && found < values.size(); ++i) {
            const int value = mixed[Index(i)];
            if (value != values[0] && ((inSquare >> value & 1U) != 0) == present) values[found++] = value;
        }
    }
    return values;
}

// Every value is offered as often as the others of its trait, and with all others alike, so that who looks at the
// offered tiles alone learns nothing: 3 x 2, 4 x 2 or 2 x 2 x 2 values. With four traits, the last one differs from
// the answer wherever an odd number of the others do.
void NinthRules::Offer()
{
    const auto offered = Index(PlanOf(m_Level).offered);
    std::size_t count = m_Item.Rules.size();
    std::array<Trait, 4> traits{};
    for (std::size_t i = 0; i < count; ++i) traits[i] = m_Item.Rules[i].On;
    while (count == 1 || traits[1] == traits[0]) {
        traits[1] = Free[Index(m_Random.Between(0, 2))];
        count = 2;
    }
    if (offered == 6 && m_Item.Rules.size() == 2 && m_Random.Coin()) std::swap(traits[0], traits[1]);

    m_Item.Offered.assign(1, m_Item.Answer());
    m_Item.Offered.reserve(offered);
    for (std::size_t i = 0; i < std::min<std::size_t>(count, 3); ++i) {
        const auto instead = Instead(traits[i]);
        const std::size_t values = count == 2 && i == 0 ? offered / 2 : 2;
        const std::size_t before = m_Item.Offered.size();
        for (std::size_t value = 1; value < values; ++value) {
            for (std::size_t tile = 0; tile < before; ++tile) {
                m_Item.Offered.push_back(m_Item.Offered[tile]);
                m_Item.Offered.back()[traits[i]] = instead[value];
            }
        }
    }
    if (count == 4) {
        const int other = Instead(traits[3])[1];
        // tiles 1 to 7 differ from the first one as their number's bits tell
        for (unsigned tile = 1; tile < offered; ++tile)
            if (std::popcount(tile) % 2 != 0) m_Item.Offered[tile][traits[3]] = other;
    }
    m_Random.Shuffle(m_Item.Offered);
    const auto right = std::find(m_Item.Offered.begin(), m_Item.Offered.end(), m_Item.Answer());
    m_Item.Right = static_cast<int>(right - m_Item.Offered.begin());
}
