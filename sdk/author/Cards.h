// What lies on the table: cards, fields and large keys, with a soft shadow below them.
#pragma once

class QBrush;
class QPainter;
class QPen;
class QRectF;

namespace Cards
{
/// Round is the radius of the corners, Height how far the shadow lies below.
void Draw(QPainter &Painter, const QRectF &Box, const QBrush &Ground, const QPen &Edge, double Round,
          double Height = 4);
} // namespace Cards
