// The tiles of Ninth Tile, and the language of the rules that a square of them can follow.
//
// A tile has five traits, and each trait follows a rule of its own, in rows or in columns. A line is a row or a
// column; its three values are first, second and third. The rules of the whole language:
//
//   Same        every line has one value
//   Step        from first to second to third by one step, which is the same in every line and not 0; for counts,
//               sizes and turns, which alone have an order
//   Three       every line has the same three different values, in any order
//   Sum         first and second together make the third; for counts
//   Difference  first less second makes the third; for counts
#pragma once

#include <array>
#include <cstddef>

enum class Trait { Shape, Count, Fill, Size, Turn };
constexpr std::size_t Traits = 5;
/// How many values each trait has. They are counted from 0: the value 0 of Count is one figure.
constexpr std::array<int, Traits> ValuesOf{6, 6, 4, 3, 4};

struct Tile
{
    std::array<int, Traits> Values{};

    int &operator[](Trait On) { return Values[static_cast<std::size_t>(On)]; }
    int operator[](Trait On) const { return Values[static_cast<std::size_t>(On)]; }
    bool operator==(const Tile &) const = default;
};

struct TileRule
{
    enum class Kind { Same, Step, Three, Sum, Difference };

    Trait On = Trait::Shape;
    Kind Is = Kind::Same;
    bool InColumns = false;
};

/// The values of one trait in the square, row by row.
using TraitSquare = std::array<int, 9>;

namespace NinthLanguage
{
/// Whether that kind of rule makes sense for a trait.
bool Fits(TileRule::Kind Kind, Trait On);
/// The values that the rules of the language give the ninth tile when the first eight are looked at: bit n stands for
/// the value n. The ninth entry of the square is not read. No bit is set where no rule fits the eight.
unsigned Ninth(Trait On, const TraitSquare &Shown);
} // namespace NinthLanguage
