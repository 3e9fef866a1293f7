// The rules of Hold Back, without a widget: which shapes come one after another, by level and seed, which shape is
// the one to hold back for, and what presses earn.
//
// A press for any other shape counts one; a press for the stop shape takes as much as all the others between two of
// them bring. So who presses always or never ends with nothing, and so does chance.
#pragma once

#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

class HoldRules
{
public:
    static constexpr int Levels = 7;
    static constexpr int Stops = 12; // in every set
    static constexpr int Tints = 4;

    /// Kinds of one family differ in their outline, in the way they point, or in both and a dot.
    enum class Family { Plain, FourArrows, FourRings, EightArrows, EightRings, EightHalves, DottedRings };
    struct Item
    {
        int Kind; // within the level's family, from 0
        int Tint; // tells nothing

        bool operator==(const Item &) const = default;
    };

    /// Levels beyond the ends play as the nearest one.
    HoldRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    Family Shapes() const;
    /// How many kinds a family has.
    static int Kinds(Family Shapes);
    /// The kind for which nobody presses.
    int StopKind() const { return m_StopKind; }
    /// From one shape to the next. [ms]
    int Beat() const;

    const std::vector<Item> &Items() const { return m_Items; }
    int Index() const { return m_Set.Done(); }
    const Item &Present() const { return m_Items[static_cast<std::size_t>(std::min(Index(), m_Set.Count() - 1))]; }
    bool IsStop() const { return Present().Kind == m_StopKind; }

    /// Counts once for a shape. Tells whether it counted.
    bool Press();
    bool IsPressed() const { return m_Pressed; }
    bool IsRight() const { return m_Pressed != IsStop(); }
    /// Ends the present shape, which makes a round of the set, and goes to the next one.
    void Close();

    const Rounds &Set() const { return m_Set; }

private:
    std::vector<bool> DrawStops(int count);

    int m_Level;
    SeededRandom m_Random;
    int m_StopKind = 0;
    std::vector<Item> m_Items;
    bool m_Pressed = false;
    Rounds m_Set;
};
