// The balance of Scale Tip and what lies on its plates, in units of the drawing.
#pragma once

#include "ScaleRules.h"

#include <QPointF>

class QPainter;
struct GameColours;

namespace ScaleDrawing
{
constexpr double Height = 222; // of the largest thing on a plate

/// Where a thing stands on the plate of that side. Tilt runs from -1, the left plate down, to 1, the right one down.
QPointF Plate(int Side, double Tilt);
/// The balance with empty plates.
void DrawBalance(QPainter &Painter, double Tilt, const GameColours &Colours, bool Dark);
/// A glass globe with the dots in it.
void DrawGlobe(QPainter &Painter, QPointF Foot, const std::vector<ScaleDot> &Dots, bool Over,
               const GameColours &Colours, bool Dark);
/// A brass weight with a sum or a fraction on it.
void DrawWeight(QPainter &Painter, QPointF Foot, ScaleKind Kind, const ScaleSide &Side, bool Over,
                const GameColours &Colours, bool Dark);
/// A key with an arrow to that side.
void DrawArrowKey(QPainter &Painter, QPointF Centre, int Side, const GameColours &Colours);
/// What a side weighs, on a label.
void DrawLabel(QPainter &Painter, QPointF Centre, const QString &Text, const GameColours &Colours);
} // namespace ScaleDrawing
