// How a card of Quiet Rule looks: its edge, and one to four figures with a pattern that has a colour of its own.
#pragma once

#include "QuietRules.h"

class QColor;
class QPainter;
class QRectF;

namespace QuietDrawing
{
constexpr double CardWidth = 112;
constexpr double CardHeight = 132;

/// In a place of any size with a card's proportions. Width is that of the line around it.
void DrawCard(QPainter &Painter, const QRectF &Place, const Card &Card, bool Dark, const QColor &Line, double Width,
              bool Lit = false);
/// The back of a card.
void DrawBack(QPainter &Painter, const QRectF &Place, bool Dark);
} // namespace QuietDrawing
