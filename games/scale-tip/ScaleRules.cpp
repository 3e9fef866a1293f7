#include "ScaleRules.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{
struct LevelPlan
{
    ScaleKind kind;
    int rounds;
    double par; // right presses, less the wrong ones, that make 100 points
};

constexpr std::array<LevelPlan, ScaleRules::Levels> Plans{{
    {ScaleKind::Cloud, 42, 33},
    {ScaleKind::Cloud, 37, 29.5},
    {ScaleKind::Cloud, 32, 21},
    {ScaleKind::Cloud, 30, 13.5},
    {ScaleKind::Sum, 18, 13.5},
    {ScaleKind::Sum, 12, 7},
    {ScaleKind::Fraction, 16, 11},
    {ScaleKind::Fraction, 14, 8},
}};

struct Ratio
{
    int level, more, fewer;
    int least, most; // times the ratio
};
constexpr std::array Ratios{Ratio{1, 2, 1, 5, 8}, Ratio{2, 3, 2, 4, 8}, Ratio{2, 5, 3, 3, 4}, Ratio{3, 4, 3, 4, 7},
                            Ratio{3, 5, 4, 3, 6}, Ratio{4, 6, 5, 3, 5}, Ratio{4, 7, 6, 2, 4}, Ratio{4, 8, 7, 2, 4}};

constexpr double LargeDot = 8.6;   // radius
constexpr double Outweighs = 1.25; // by how much the ratio of size exceeds that of number, so that it can belie it

struct AddendPlan
{
    int low, high;  // an addend
    int most;       // difference of the sums
    int leastApart; // the larger addends of the two sides
};
constexpr AddendPlan OneDigit{2, 9, 3, 1};
constexpr AddendPlan TwoDigits{11, 49, 5, 3};

struct FractionPlan
{
    int low, high;      // a denominator
    double least, most; // difference
};
constexpr FractionPlan FarApart{2, 9, 0.12, 0.4};
constexpr FractionPlan Close{4, 12, 0.03, 0.12};

struct FractionPair
{
    int heavier, of, lighter, in; // heavier/of and lighter/in
};

// Both of the numbers are larger on the heavier side, or both are smaller: else one glance would tell.
std::vector<FractionPair> PairsOf(const FractionPlan &plan, bool largerOnHeavier)
{
    std::vector<FractionPair> pairs;
    for (int of = plan.low; of <= plan.high; ++of)
        for (int heavier = 1; heavier < of; ++heavier)
            for (int in = plan.low; in <= plan.high; ++in)
                for (int lighter = 1; lighter < in; ++lighter) {
                    if (std::gcd(heavier, of) > 1 || std::gcd(lighter, in) > 1) continue;
                    const double gap = static_cast<double>(heavier) / of - static_cast<double>(lighter) / in;
                    const bool larger = heavier > lighter && of > in;
                    const bool smaller = heavier < lighter && of < in;
                    if (gap >= plan.least && gap <= plan.most && (largerOnHeavier ? larger : smaller))
                        pairs.push_back({heavier, of, lighter, in});
                }
    return pairs;
}

const std::vector<FractionPair> &Pairs(bool close, bool largerOnHeavier)
{
    static const std::array<std::vector<FractionPair>, 4> all{PairsOf(FarApart, false), PairsOf(FarApart, true),
                                                              PairsOf(Close, false), PairsOf(Close, true)};
    return all[(close ? 2U : 0U) + (largerOnHeavier ? 1U : 0U)];
}

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }
} // namespace

int ScaleItem::Parts() const { return Kind == ScaleKind::Fraction ? std::lcm(Sides[0].Second, Sides[1].Second) : 1; }

int ScaleItem::Weight(int Side) const
{
    const ScaleSide &side = Sides.at(static_cast<std::size_t>(Side));
    return Kind == ScaleKind::Fraction ? side.First * (Parts() / side.Second) : side.First + side.Second;
}

std::array<std::vector<ScaleDot>, 2> ScaleItem::Dots() const
{
    if (Kind != ScaleKind::Cloud) return {};
    SeededRandom random(Scatter);
    const auto scatter = [&](const ScaleSide &side) {
        return ScaleCloud::Scatter(random, side.First, side.Field, side.Dot);
    };
    return {scatter(Sides[0]), scatter(Sides[1])};
}

ScaleRules::ScaleRules(int Level, std::uint32_t Seed)
    : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed), m_Set(PlanOf(m_Level).rounds, PlanOf(m_Level).par)
{
    Next();
}

bool ScaleRules::Judge(int Side)
{
    if (m_Set.Over()) return false;
    const bool right = Side == m_Item.Heavier();
    m_Set.Add(right, right ? 1 : -1);
    return right;
}

ScaleRules::Balance ScaleRules::NextBalance()
{
    if (m_Block.empty()) {
        m_Block.resize(8);
        std::iota(m_Block.begin(), m_Block.end(), 0);
        m_Random.Shuffle(m_Block);
    }
    const int bits = m_Block.back();
    m_Block.pop_back();
    return {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
}

void ScaleRules::Next()
{
    if (m_Set.Over()) return;
    const Balance balance = NextBalance();
    ScaleItem item{PlanOf(m_Level).kind, {}, static_cast<std::uint32_t>(Between(0, std::numeric_limits<int>::max()))};
    ScaleSide &heavier = item.Sides[balance.heavierIsRight ? 1 : 0];
    ScaleSide &lighter = item.Sides[balance.heavierIsRight ? 0 : 1];
    do {
        switch (item.Kind) {
        case ScaleKind::Cloud:
            MakeCloud(heavier, lighter, balance);
            break;
        case ScaleKind::Sum:
            MakeSum(heavier, lighter, balance.largerOnHeavier);
            break;
        case ScaleKind::Fraction:
            MakeFraction(heavier, lighter, balance.largerOnHeavier);
            break;
        }
    } while (item.Kind != ScaleKind::Cloud && item.Sides == m_Item.Sides); // not the same one twice in a row
    m_Item = item;
}

void ScaleRules::MakeCloud(ScaleSide &heavier, ScaleSide &lighter, const Balance &balance)
{
    const auto first = std::ranges::find(Ratios, m_Level, &Ratio::level);
    const auto count = std::ranges::count(Ratios, m_Level, &Ratio::level);
    const Ratio &ratio = *(first + Between(0, static_cast<int>(count) - 1));
    const int times = Between(ratio.least, ratio.most);
    const double shrunk = 1 / std::sqrt(Outweighs * ratio.more / ratio.fewer);
    heavier.First = ratio.more * times;
    lighter.First = ratio.fewer * times;
    heavier.Field = WidestField * (balance.widerOnHeavier ? 1 : shrunk);
    lighter.Field = WidestField * (balance.widerOnHeavier ? shrunk : 1);
    heavier.Dot = LargeDot * (balance.largerOnHeavier ? 1 : shrunk);
    lighter.Dot = LargeDot * (balance.largerOnHeavier ? shrunk : 1);
}

void ScaleRules::MakeSum(ScaleSide &heavier, ScaleSide &lighter, bool largerOnHeavier)
{
    const AddendPlan &plan = m_Level == 5 ? OneDigit : TwoDigits;
    for (;;) {
        const int sum =
            (heavier.First = Between(plan.low, plan.high)) + (heavier.Second = Between(plan.low, plan.high));
        lighter.First = Between(plan.low, plan.high);
        lighter.Second = sum - Between(1, plan.most) - lighter.First;
        if (lighter.Second < plan.low || lighter.Second > plan.high) continue;
        // One side has the largest and the other side the smallest of the four: else one glance would tell.
        const auto [low, high] = std::minmax({heavier.First, heavier.Second});
        const auto [lowOther, highOther] = std::minmax({lighter.First, lighter.Second});
        const bool crosses = largerOnHeavier ? high - highOther >= plan.leastApart && low < lowOther
                                             : highOther - high >= plan.leastApart && low > lowOther;
        if (crosses) return;
    }
}

void ScaleRules::MakeFraction(ScaleSide &heavier, ScaleSide &lighter, bool largerOnHeavier)
{
    const auto &pairs = Pairs(m_Level == Levels, largerOnHeavier);
    const FractionPair &pair = pairs[static_cast<std::size_t>(Between(0, static_cast<int>(pairs.size()) - 1))];
    heavier.First = pair.heavier;
    heavier.Second = pair.of;
    lighter.First = pair.lighter;
    lighter.Second = pair.in;
}
