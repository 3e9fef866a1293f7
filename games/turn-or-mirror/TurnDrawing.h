// What Turn or Mirror looks like: figures, cards, and the two buttons with their signs.
#pragma once

#include "TurnFigures.h"

#include <QQuaternion>
#include <QRectF>

class QColor;
class QPainter;
struct GameColours;

namespace TurnDrawing
{
/// How large a block of that figure may be so that it stays in the card however it is turned.
double EdgeThatFits(const Figure &Blocks, const QRectF &Card);
/// One of a few calm colours; a figure keeps its colour on both cards.
QColor ColourOf(int Item, bool Dark);

void Flat(QPainter &Painter, QPointF Centre, double Edge, const Figure &Blocks, const QQuaternion &Turn,
          const QColor &Colour);
void Solid(QPainter &Painter, QPointF Centre, double Edge, const Figure &Blocks, const QQuaternion &Turn,
           const QColor &Colour);

/// A mirror that stands upright between the cards, as a line and its frame.
void Mirror(QPainter &Painter, QPointF Top, QPointF Bottom, const GameColours &Colours);
/// An arrow that runs around, and two shapes on both sides of a mirror.
void TurnSign(QPainter &Painter, QPointF Centre, const GameColours &Colours);
void MirrorSign(QPainter &Painter, QPointF Centre, const GameColours &Colours);
} // namespace TurnDrawing
