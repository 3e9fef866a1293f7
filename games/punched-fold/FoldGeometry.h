// Paper and creases in whole numbers: the sheet is a square of 16 by 16, x to the right, y down. Holes lie at odd
// places, eight by eight of them, creases at even ones, so that nothing has to be rounded.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

struct FoldPoint
{
    int x = 0, y = 0;
    bool operator==(const FoldPoint &) const = default;
};

/// A crease, and the side that is folded over it: where Across x + Down y is above At. Upright, level, or slanted at
/// half a right angle: Across and Down are -1, 0 or 1.
struct Fold
{
    int Across = 0, Down = 0, At = 0;

    bool IsSlanted() const { return Across != 0 && Down != 0; }
    /// How far beyond the crease a point lies; below 0 for what stays.
    int Beyond(const FoldPoint &Point) const { return Across * Point.x + Down * Point.y - At; }
    /// The point on the other side of the crease.
    FoldPoint Over(const FoldPoint &Point) const
    {
        const int step = IsSlanted() ? Beyond(Point) : 2 * Beyond(Point);
        return {Point.x - step * Across, Point.y - step * Down};
    }
};

/// A shape without dents, its corners in order around it.
class Outline
{
public:
    static constexpr int Side = 16;
    static Outline Sheet();
    /// Inside the whole sheet, not on its edge.
    static bool IsOnSheet(const FoldPoint &Point)
    {
        return Point.x > 0 && Point.x < Side && Point.y > 0 && Point.y < Side;
    }

    int Corners() const { return m_Count; }
    const FoldPoint &operator[](int Corner) const { return m_Corners[static_cast<std::size_t>(Corner)]; }
    /// What lies beyond the crease, or what does not.
    Outline Beyond(const Fold &Crease) const { return Cut(Crease, 1); }
    Outline Within(const Fold &Crease) const { return Cut(Crease, -1); }
    Outline Over(const Fold &Crease) const;
    int TwiceArea() const;
    /// 1 inside, 0 on the edge, -1 outside.
    int Holds(const FoldPoint &Point) const;
    /// The least and the greatest Beyond of all corners.
    std::array<int, 2> Extent(const Fold &Crease) const;

private:
    Outline Cut(const Fold &crease, int sign) const;
    void Add(const FoldPoint &corner);

    std::array<FoldPoint, 12> m_Corners;
    int m_Count = 0;
};

/// Holes of a sheet, one bit for each of the eight by eight places.
namespace Holes
{
constexpr int Places = 8;
inline std::uint64_t Bit(const FoldPoint &place)
{
    return std::uint64_t{1} << (place.x / 2 + Places * (place.y / 2));
}
/// Row by row.
std::vector<FoldPoint> Of(std::uint64_t Sheet);
} // namespace Holes

/// A piece of the folded paper: its shape, which of its sides is seen, and the holes in it.
struct Layer
{
    Outline Shape;
    bool IsBack = false;
    std::vector<FoldPoint> Holes;
};

/// The paper after those folds, from the lowest layer to the highest.
std::vector<Layer> Folded(std::uint64_t Sheet, const std::vector<Fold> &Folds);
