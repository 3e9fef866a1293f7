// The shapes of Hold Back, drawn and in words.
#pragma once

#include "HoldRules.h"

#include <QColor>

#include <vector>

class QPainter;
class QPointF;

namespace HoldShapes
{
/// One kind of a family around a centre, Size wide and high. Inner is for what lies open within a shape.
void Draw(QPainter &Painter, QPointF Centre, double Size, HoldRules::Family Family, int Kind, const QColor &Colour,
          const QColor &Inner);

/// The names of the words that tell it, in their order: "Arrow", "UpRight".
std::vector<const char *> Words(HoldRules::Family Family, int Kind);

/// The colours that tell nothing, for light and for dark grounds; 3:1 or better on them.
QColor Tint(int Tint, bool Dark);
} // namespace HoldShapes
