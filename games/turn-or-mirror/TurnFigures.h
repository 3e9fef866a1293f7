// The figures of Turn or Mirror: squares or cubes of one size, glued side to side, and none of them like its own
// mirror image, however it is turned.
#pragma once

#include <array>
#include <tuple>
#include <vector>

/// A square in the plane z = 0, or a cube. x points to the right, y up, z to the viewer.
struct Block
{
    int x = 0, y = 0, z = 0;
    bool operator==(const Block &) const = default;
    bool operator<(const Block &other) const { return std::tie(x, y, z) < std::tie(other.x, other.y, other.z); }
};

using Figure = std::vector<Block>;

/// A turn that brings blocks onto blocks, as the rows of its matrix.
using RightAngles = std::array<std::array<int, 3>, 3>;

/// What the arms of a crooked figure are like: each of them goes on at a right angle from the end of the one before.
struct Arms
{
    int Count;
    int Shortest, Longest; // blocks that an arm adds
    int Fewest, Most;      // blocks of the whole figure
    bool Solid;
};

namespace Figures
{
/// Blocks, along each edge of a crooked figure.
constexpr int Widest = 5;

/// The same figure wherever it lies: sorted, from 0 on in every direction.
Figure Settled(Figure Blocks);
Figure Turned(const Figure &Blocks, const RightAngles &Turn);
/// Left and right change places.
Figure Mirrored(const Figure &Blocks);

/// The 24 turns that bring a cube onto itself; the first one leaves everything in its place.
const std::vector<RightAngles> &SolidTurns();
/// The four of them that stay in the plane.
const std::vector<RightAngles> &FlatTurns();

/// Neither its own mirror image when turned, nor the same again after less than a whole turn. In the plane no other
/// turns have to be tried: sides that lie along two directions come to lie along them by right angles alone.
bool IsFit(const Figure &Blocks, bool Solid);

/// Letters and digits of our own drawing.
const std::vector<Figure> &Letters();
/// Every fit figure of that kind whose arms touch nothing but their neighbours.
std::vector<Figure> Crooked(const Arms &Kind);
} // namespace Figures
