// The rules of Lantern Row, without a widget: which lanterns light in which order, by level and seed, and what
// presses earn. A round counts its number of lanterns when every press was right, else nothing.
#pragma once

#include "sdk/author/SeededRandom.h"

#include <cstdint>
#include <vector>

class LanternRules
{
public:
    static constexpr int Levels = 8;
    enum class Press { Right, Wrong, Complete }; // Complete: right, and the last of its round

    /// Levels beyond the ends play as the nearest one.
    LanternRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    int Columns() const;
    int Rows() const;
    int Lanterns() const { return Columns() * Rows(); }
    /// Whether they are to be pressed the last one first.
    bool Backward() const;

    int Rounds() const;
    int Done() const { return m_Done; }
    bool Over() const { return m_Done == Rounds(); }
    int Progress() const { return 100 * m_Done / Rounds(); }
    /// 100 for four fifths of all lanterns of the set.
    int Points() const;

    /// The lanterns of the present round as they light, from 0; none twice.
    const std::vector<int> &Sequence() const { return m_Sequence; }
    /// How many have been pressed in this round, and the place of a lantern in the order to press, from 1; 0 for
    /// none.
    int Pressed() const { return m_Pressed; }
    int PlaceOf(int Lantern) const;
    /// Judges a press. Wrong and Complete end the round; Next begins another one.
    Press Judge(int Lantern);
    void Next();

private:
    int LengthOf(int round) const;
    int Expected(int place) const;

    int m_Level;
    SeededRandom m_Random;
    std::vector<int> m_Sequence;
    int m_Pressed = 0;
    int m_Done = 0;
    int m_Earned = 0; // lanterns of rounds that were right
    bool m_Ended = false;
};
