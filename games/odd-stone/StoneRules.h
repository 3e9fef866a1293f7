// The rules of Odd Stone, without a widget: which stones lie in the sand by level and seed, which of them is there
// only once, and what presses earn.
//
// First the odd stone differs from all the others in one trait. From level 5 on it shares one trait with one half of
// them and the other trait with the other half, so that only both together tell. Colour never tells alone: stones of
// two colours have two patterns.
#pragma once

#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <array>
#include <cstdint>
#include <vector>

enum class StoneTrait { Pattern, Shape, Size, Tilt };
enum class StonePattern { Plain, Stripes, Dots, Ring };
enum class StoneShape { Circle, Square, Triangle, Hexagon, Pentagon, Oval };

struct Stone
{
    StonePattern Pattern = StonePattern::Plain;
    int Colour = 0; // 0 to 3
    StoneShape Shape = StoneShape::Circle;
    int Size = 100; // [%] of the largest
    int Tilt = 0;   // [degrees] clockwise, of an oval

    bool operator==(const Stone &) const = default;
};

struct StoneItem
{
    int Columns = 1, Rows = 1;
    std::vector<Stone> Stones; // row by row
    int Odd = -1;              // the one that is there only once
    std::uint32_t Scatter = 0; // how they lie about in their places
};

class StoneRules
{
public:
    static constexpr int Levels = 9;

    /// Levels beyond the ends play as the nearest one.
    StoneRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    const Rounds &Set() const { return m_Set; }
    const StoneItem &Item() const { return m_Item; }
    /// Whether the stone pressed is the odd one. It counts one; a wrong one takes away what luck would bring.
    bool Judge(int Stone);
    /// The next item; its odd stone lies in another place. Does nothing once the set is over.
    void Next();

private:
    int Between(int low, int high) { return m_Random.Between(low, high); }
    Stone Common(bool isOval);
    /// Two values of a trait, one for each of the two stones.
    void Vary(StoneTrait trait, Stone &one, Stone &other);
    void FillWithOneTrait();
    void FillWithTwoTraits();

    int m_Level;
    SeededRandom m_Random;
    Rounds m_Set;
    StoneItem m_Item;
};
