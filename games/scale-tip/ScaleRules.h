// The rules of Scale Tip, without a widget: what lies on the two sides by level and seed, which one is heavier, and
// what presses earn.
//
// No look tells the answer. In half of the items the heavier cloud has the larger dots and more area, in the other
// half the smaller dots and less; likewise its field is the wider and looser one in half of them. The larger addend,
// numerator or denominator lies on the heavier side in half of the items.
#pragma once

#include "ScaleCloud.h"
#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

enum class ScaleKind { Cloud, Sum, Fraction };

struct ScaleSide
{
    int First = 0;    // dots, first addend, numerator
    int Second = 0;   // 0, second addend, denominator
    double Field = 0; // radius of a cloud's field, in units of the drawing
    double Dot = 0;   // mean radius of its dots

    bool operator==(const ScaleSide &other) const { return First == other.First && Second == other.Second; }
};

struct ScaleItem
{
    ScaleKind Kind = ScaleKind::Cloud;
    std::array<ScaleSide, 2> Sides{}; // left, right
    std::uint32_t Scatter = 0;        // where the dots' places come from

    /// What a side weighs, in parts that both sides have in common: dots, a sum, or so many of the Parts() of a
    /// whole.
    int Weight(int Side) const;
    /// The common denominator of two fractions; 1 for clouds and sums.
    int Parts() const;
    /// 0 for the left side, 1 for the right one; the sides are never equal.
    int Heavier() const { return Weight(0) > Weight(1) ? 0 : 1; }
    /// The dots of both clouds; empty for sums and fractions.
    std::array<std::vector<ScaleDot>, 2> Dots() const;
};

class ScaleRules
{
public:
    static constexpr int Levels = 8;
    /// The widest field that a cloud has, in units of the drawing.
    static constexpr double WidestField = 100;

    /// Levels beyond the ends play as the nearest one.
    ScaleRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    const Rounds &Set() const { return m_Set; }
    const ScaleItem &Item() const { return m_Item; }
    /// Whether the side pressed is the heavier one. It counts one, and a wrong one takes one away.
    bool Judge(int Side);
    /// The next item. Does nothing once the set is over.
    void Next();

private:
    /// What is made to differ within eight items so that each comes as often as its contrary.
    struct Balance
    {
        bool heavierIsRight, largerOnHeavier, widerOnHeavier;
    };
    Balance NextBalance();
    int Between(int low, int high) { return m_Random.Between(low, high); }
    void MakeCloud(ScaleSide &heavier, ScaleSide &lighter, const Balance &balance);
    void MakeSum(ScaleSide &heavier, ScaleSide &lighter, bool largerOnHeavier);
    void MakeFraction(ScaleSide &heavier, ScaleSide &lighter, bool largerOnHeavier);

    int m_Level;
    SeededRandom m_Random;
    Rounds m_Set;
    ScaleItem m_Item;
    std::vector<int> m_Block; // what is left of eight shuffled balances
};
