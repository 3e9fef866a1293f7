// The rules of Turn or Mirror, without a widget: items by level and seed, judgement, points.
//
// Two pictures: the second shows the figure of the first one turned, or its mirror image turned. Since every figure
// differs from its mirror image, and every block of a solid can be seen in both pictures, one answer is right.
// A mistake takes back more than a right answer brings, for one of two guesses is right.
#pragma once

#include "TurnFigures.h"
#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <QQuaternion>

#include <cstdint>

struct TurnItem
{
    bool Solid = false;
    Figure Left, Right;
    QQuaternion LeftTurn, RightTurn; // as TurnViews takes them
    int Angle = 0;                   // [degrees] from 30 to 180, between the two
    bool IsMirror = false;

    /// How the right figure has to be turned to look like the left one, or like the left one in a mirror that stands
    /// between them.
    QQuaternion Matching() const;
};

class TurnRules
{
public:
    static constexpr int Levels = 8;
    static constexpr double Mistake = 1.5; // right answers that a wrong one takes back

    /// Levels beyond the ends play as the nearest one.
    TurnRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    const Rounds &Set() const { return m_Set; }
    const TurnItem &Item() const { return m_Item; }
    /// Judges the answer and adds it to the set; the item stays until Next. Nothing but false once the set is over.
    bool Judge(bool IsMirror);
    void Next();

private:
    TurnItem Make();
    void TurnFlat(TurnItem &item, int angle);
    void TurnSolid(TurnItem &item, int angle);
    void TumbleSolid(TurnItem &item);
    void OtherFigure();
    int AnyTurn() { return m_Random.Between(0, 23); }

    int m_Level;
    SeededRandom m_Random;
    Rounds m_Set;
    int m_Figure = -1; // the present one in the level's figures
    TurnItem m_Item;
};
