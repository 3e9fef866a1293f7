// Figures filled with a pattern, for games that tell kinds apart and must not do so by colour alone.
#pragma once

class QColor;
class QPainter;
class QPainterPath;

enum class Pattern { Open, Striped, Dotted, Solid };

namespace Patterns
{
constexpr int Count = 4;

/// The figure with an outline in Ink, filled with the pattern in Ink on Ground. Pitch is the way from one stripe or
/// dot to the next. Stripes and dots keep their direction however the figure was turned.
void Draw(QPainter &Painter, const QPainterPath &Figure, Pattern Fill, const QColor &Ink, const QColor &Ground,
          double Pitch);
} // namespace Patterns
