#include "NinthLanguage.h"

#include <utility>

namespace
{
using Kind = TileRule::Kind;
constexpr int None = -1;
constexpr int FullTurn = ValuesOf[static_cast<std::size_t>(Trait::Turn)];

// What is between two values of a trait with an order: turns go round.
int StepBetween(Trait on, int from, int to)
{
    return on == Trait::Turn ? (to - from + FullTurn) % FullTurn : to - from;
}

int After(Trait on, int value, int step) { return on == Trait::Turn ? (value + step) % FullTurn : value + step; }

// Each of these gives the last value of the third line, or None where the lines before don't follow the rule.

int BySame(const TraitSquare &at)
{
    const bool holds = at[0] == at[1] && at[1] == at[2] && at[3] == at[4] && at[4] == at[5] && at[6] == at[7];
    return holds ? at[6] : None;
}

int ByStep(Trait on, const TraitSquare &at)
{
    const int step = StepBetween(on, at[0], at[1]);
    if (step == 0) return None;
    for (const auto &[from, to] : {std::pair{1, 2}, {3, 4}, {4, 5}, {6, 7}}) {
        if (StepBetween(on, at[static_cast<std::size_t>(from)], at[static_cast<std::size_t>(to)]) != step)
            return None;
    }
    return After(on, at[7], step);
}

unsigned SetOf(int one, int two, int three) { return 1U << one | 1U << two | 1U << three; }

int ByThree(const TraitSquare &at)
{
    const unsigned three = SetOf(at[0], at[1], at[2]);
    if (at[0] == at[1] || at[1] == at[2] || at[0] == at[2] || SetOf(at[3], at[4], at[5]) != three) return None;
    if (at[6] == at[7] || (SetOf(at[6], at[7], at[7]) & ~three) != 0) return None;
    return at[0] + at[1] + at[2] - at[6] - at[7];
}

// Values of Count are one less than the number of figures.
int Together(int first, int second) { return first + second + 1; }
int Less(int first, int second) { return first - second - 1; }

int ByArithmetic(const TraitSquare &at, int (*result)(int, int))
{
    if (result(at[0], at[1]) != at[2] || result(at[3], at[4]) != at[5]) return None;
    return result(at[6], at[7]);
}

int By(Kind kind, Trait on, const TraitSquare &lines)
{
    switch (kind) {
    case Kind::Same:
        return BySame(lines);
    case Kind::Step:
        return ByStep(on, lines);
    case Kind::Three:
        return ByThree(lines);
    case Kind::Sum:
        return ByArithmetic(lines, Together);
    case Kind::Difference:
        return ByArithmetic(lines, Less);
    }
    return None;
}
} // namespace

bool NinthLanguage::Fits(Kind Kind, Trait On)
{
    switch (Kind) {
    case TileRule::Kind::Same:
    case TileRule::Kind::Three:
        return true;
    case TileRule::Kind::Step:
        return On == Trait::Count || On == Trait::Size || On == Trait::Turn;
    case TileRule::Kind::Sum:
    case TileRule::Kind::Difference:
        return On == Trait::Count;
    }
    return false;
}

unsigned NinthLanguage::Ninth(Trait On, const TraitSquare &Shown)
{
    const TraitSquare columns{Shown[0], Shown[3], Shown[6], Shown[1], Shown[4], Shown[7], Shown[2], Shown[5], 0};
    unsigned values = 0;
    for (const Kind kind : {Kind::Same, Kind::Step, Kind::Three, Kind::Sum, Kind::Difference}) {
        if (!Fits(kind, On)) continue;
        for (const TraitSquare *lines : {&Shown, &columns}) {
            const int value = By(kind, On, *lines);
            // a value that no tile has is no answer
            if (value >= 0 && value < ValuesOf[static_cast<std::size_t>(On)]) values |= 1U << value;
        }
    }
    return values;
}
