// Sand and stones, in units of the drawing.
#pragma once

#include "StoneRules.h"

#include <QPointF>
#include <QRectF>

class QPainter;

namespace StoneDrawing
{
/// A bed of raked sand.
void DrawSand(QPainter &Painter, const QRectF &Bed, bool Dark);
/// A mist over all that lies there, so that what is drawn then stands out.
void DrawMist(QPainter &Painter, const QRectF &Bed, bool Dark);
/// A stone around that point. Width is that of the largest size.
void DrawStone(QPainter &Painter, QPointF Centre, double Width, const Stone &Stone, bool Dark);
/// Many stones, of which most are alike, each around its point.
void DrawStones(QPainter &Painter, const std::vector<Stone> &Stones, const std::vector<QPointF> &Centres,
                double Width, bool Dark);
} // namespace StoneDrawing
