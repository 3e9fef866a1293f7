#include "StoneRules.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace
{
constexpr int LastOfOneTrait = 4; // level

struct LevelPlan
{
    int columns, rows;
    bool close;    // the two values of a trait are alike
    bool coloured; // each pattern has a colour of its own
    int rounds;
    double par; // right presses that make 100 points
};

constexpr std::array<LevelPlan, StoneRules::Levels> Plans{{
    {4, 2, false, true, 37, 29.5},
    {4, 3, false, true, 36, 28.5},
    {5, 3, true, false, 34, 27},
    {5, 4, true, false, 33, 26},
    {6, 4, false, true, 24, 18.5},
    {6, 5, false, true, 22, 17.5},
    {7, 5, false, false, 21, 16.5},
    {8, 6, false, false, 18, 14},
    {10, 6, false, false, 15, 12},
}};

using ShapePair = std::pair<StoneShape, StoneShape>;
constexpr std::array ClearShapes{
    ShapePair{StoneShape::Circle, StoneShape::Triangle}, ShapePair{StoneShape::Circle, StoneShape::Square},
    ShapePair{StoneShape::Square, StoneShape::Triangle}, ShapePair{StoneShape::Hexagon, StoneShape::Triangle}};
constexpr std::array CloseShapes{ShapePair{StoneShape::Pentagon, StoneShape::Hexagon},
                                 ShapePair{StoneShape::Circle, StoneShape::Hexagon},
                                 ShapePair{StoneShape::Square, StoneShape::Pentagon}};

using TraitPair = std::pair<StoneTrait, StoneTrait>;
constexpr std::array TraitPairs{
    // an oval has one shape and the other shapes have no tilt
    TraitPair{StoneTrait::Pattern, StoneTrait::Shape}, TraitPair{StoneTrait::Pattern, StoneTrait::Size},
    TraitPair{StoneTrait::Pattern, StoneTrait::Tilt}, TraitPair{StoneTrait::Shape, StoneTrait::Size},
    TraitPair{StoneTrait::Size, StoneTrait::Tilt}};

constexpr int ClearlySmall = 60, SlightlySmall = 78; // [%]
constexpr int ClearTilt = 45, CloseTilt = 16;        // [degrees] to either side

void CopyTrait(StoneTrait trait, const Stone &from, Stone &to)
{
    switch (trait) {
    case StoneTrait::Pattern:
        to.Pattern = from.Pattern;
        to.Colour = from.Colour;
        break;
    case StoneTrait::Shape:
        to.Shape = from.Shape;
        break;
    case StoneTrait::Size:
        to.Size = from.Size;
        break;
    case StoneTrait::Tilt:
        to.Tilt = from.Tilt;
        break;
    }
}

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }
} // namespace

StoneRules::StoneRules(int Level, std::uint32_t Seed)
    : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed), m_Set(PlanOf(m_Level).rounds, PlanOf(m_Level).par)
{
    Next();
}

bool StoneRules::Judge(int Stone)
{
    if (m_Set.Over()) return false;
    const bool right = Stone == m_Item.Odd;
    m_Set.Add(right, right ? 1.0 : -1.0 / (static_cast<double>(m_Item.Stones.size()) - 1));
    return right;
}

void StoneRules::Next()
{
    if (m_Set.Over()) return;
    const int lastOdd = m_Item.Odd;
    m_Item.Columns = PlanOf(m_Level).columns;
    m_Item.Rows = PlanOf(m_Level).rows;
    m_Item.Scatter = static_cast<std::uint32_t>(Between(0, std::numeric_limits<int>::max()));
    // It never lies where it lay before: a click too many earns nothing.
    const int count = m_Item.Columns * m_Item.Rows;
    m_Item.Odd = Between(0, count - (lastOdd < 0 ? 1 : 2));
    if (lastOdd >= 0 && m_Item.Odd >= lastOdd) ++m_Item.Odd;
    m_Level <= LastOfOneTrait ? FillWithOneTrait() : FillWithTwoTraits();
}

Stone StoneRules::Common(bool isOval)
{
    const int pattern = Between(0, 3);
    const auto shape = isOval ? StoneShape::Oval : static_cast<StoneShape>(Between(0, 3));
    return {static_cast<StonePattern>(pattern), PlanOf(m_Level).coloured ? pattern : Between(0, 3), shape, 100, 0};
}

void StoneRules::Vary(StoneTrait trait, Stone &one, Stone &other)
{
    const bool close = PlanOf(m_Level).close;
    const bool swap = m_Random.Coin();
    Stone &first = swap ? other : one;
    Stone &second = swap ? one : other;
    switch (trait) {
    case StoneTrait::Pattern: {
        const int pattern = (static_cast<int>(first.Pattern) + Between(1, 3)) % 4;
        second.Pattern = static_cast<StonePattern>(pattern);
        if (PlanOf(m_Level).coloured) second.Colour = pattern;
        break;
    }
    case StoneTrait::Shape: {
        const auto pair = close ? CloseShapes.at(static_cast<std::size_t>(Between(0, CloseShapes.size() - 1)))
                                : ClearShapes.at(static_cast<std::size_t>(Between(0, ClearShapes.size() - 1)));
        first.Shape = pair.first;
        second.Shape = pair.second;
        break;
    }
    case StoneTrait::Size:
        second.Size = close ? SlightlySmall : ClearlySmall;
        break;
    case StoneTrait::Tilt:
        first.Tilt = close ? -CloseTilt : -ClearTilt;
        second.Tilt = -first.Tilt;
        break;
    }
}

void StoneRules::FillWithOneTrait()
{
    const auto trait = static_cast<StoneTrait>(Between(0, 3));
    Stone odd = Common(trait == StoneTrait::Tilt);
    Stone common = odd;
    Vary(trait, odd, common);
    const int places = m_Item.Columns * m_Item.Rows;
    m_Item.Stones.assign(static_cast<std::size_t>(places), common);
    m_Item.Stones[static_cast<std::size_t>(m_Item.Odd)] = odd;
}

void StoneRules::FillWithTwoTraits()
{
    const auto [one, other] = TraitPairs.at(static_cast<std::size_t>(Between(0, TraitPairs.size() - 1)));
    Stone odd = Common(other == StoneTrait::Tilt);
    Stone likeInOne = odd;
    Vary(other, odd, likeInOne);
    Stone likeInOther = odd;
    Vary(one, odd, likeInOther);
    CopyTrait(one, odd, likeInOne); // which the second varying may have changed
    const int count = m_Item.Columns * m_Item.Rows;
    m_Item.Stones.assign(static_cast<std::size_t>(count), likeInOne);
    // every half of the other places is as likely as every other
    int wanted = (count - 1) / 2;
    int left = count - 1;
    for (int place = 0; place < count; ++place) {
        if (place == m_Item.Odd || Between(1, left--) > wanted) continue;
        m_Item.Stones[static_cast<std::size_t>(place)] = likeInOther;
        --wanted;
    }
    m_Item.Stones[static_cast<std::size_t>(m_Item.Odd)] = odd;
}
