#include "FoldGeometry.h"

#include <algorithm>
#include <cstdlib>

Outline Outline::Sheet()
{
    Outline sheet;
    for (const FoldPoint corner : {FoldPoint{0, 0}, {Side, 0}, {Side, Side}, {0, Side}}) sheet.Add(corner);
    return sheet;
}

void Outline::Add(const FoldPoint &corner)
{
    if (m_Count > 0 && (m_Corners[static_cast<std::size_t>(m_Count) - 1] == corner || m_Corners[0] == corner)) return;
    m_Corners.at(static_cast<std::size_t>(m_Count++)) = corner;
}

// Where an edge crosses the crease it does so at whole numbers: both run along one of eight directions, at even
// places.
Outline Outline::Cut(const Fold &crease, int sign) const
{
    Outline cut;
    for (int i = 0; i < m_Count; ++i) {
        const FoldPoint &from = (*this)[i];
        const FoldPoint &to = (*this)[(i + 1) % m_Count];
        const int here = sign * crease.Beyond(from);
        const int there = sign * crease.Beyond(to);
        if (here >= 0) cut.Add(from);
        if ((here > 0 && there < 0) || (here < 0 && there > 0))
            cut.Add(
                {from.x + (to.x - from.x) * here / (here - there), from.y + (to.y - from.y) * here / (here - there)});
    }
    return cut;
}

Outline Outline::Over(const Fold &Crease) const
{
    Outline over;
    for (int i = m_Count - 1; i >= 0; --i) over.Add(Crease.Over((*this)[i]));
    return over;
}

int Outline::TwiceArea() const
{
    int sum = 0;
    for (int i = 0; i < m_Count; ++i) {
        const FoldPoint &a = (*this)[i];
        const FoldPoint &b = (*this)[(i + 1) % m_Count];
        sum += a.x * b.y - b.x * a.y;
    }
    return std::abs(sum);
}

int Outline::Holds(const FoldPoint &Point) const
{
    int holds = 1;
    for (int i = 0; i < m_Count; ++i) {
        const FoldPoint &a = (*this)[i];
        const FoldPoint &b = (*this)[(i + 1) % m_Count];
        const int side = (b.x - a.x) * (Point.y - a.y) - (b.y - a.y) * (Point.x - a.x);
        if (side < 0) return -1;
        if (side == 0) holds = 0;
    }
    return holds;
}

std::array<int, 2> Outline::Extent(const Fold &Crease) const
{
    std::array<int, 2> extent{Crease.Beyond((*this)[0]), Crease.Beyond((*this)[0])};
    for (int i = 1; i < m_Count; ++i) {
        extent[0] = std::min(extent[0], Crease.Beyond((*this)[i]));
        extent[1] = std::max(extent[1], Crease.Beyond((*this)[i]));
    }
    return extent;
}

std::vector<FoldPoint> Holes::Of(std::uint64_t Sheet)
{
    std::vector<FoldPoint> holes;
    for (int y = 1; y < Outline::Side; y += 2)
        for (int x = 1; x < Outline::Side; x += 2)
            if ((Sheet & Bit({x, y})) != 0) holes.push_back({x, y});
    return holes;
}

// What is folded over comes to lie on top, its highest layer lowest.
std::vector<Layer> Folded(std::uint64_t Sheet, const std::vector<Fold> &Folds)
{
    std::vector<Layer> paper{{Outline::Sheet(), false, Holes::Of(Sheet)}};
    for (const Fold &fold : Folds) {
        std::vector<Layer> stay, over;
        for (const Layer &layer : paper) {
            Layer within{layer.Shape.Within(fold), layer.IsBack, {}};
            Layer beyond{layer.Shape.Beyond(fold).Over(fold), !layer.IsBack, {}};
            for (const FoldPoint &hole : layer.Holes) {
                if (fold.Beyond(hole) > 0)
                    beyond.Holes.push_back(fold.Over(hole));
                else
                    within.Holes.push_back(hole);
            }
            if (within.Shape.TwiceArea() > 0) stay.push_back(within);
            if (beyond.Shape.TwiceArea() > 0) over.push_back(beyond);
        }
        stay.insert(stay.end(), over.rbegin(), over.rend());
        paper = std::move(stay);
    }
    return paper;
}
