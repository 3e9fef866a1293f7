// Right and wrong, told by shape as well as by colour: a round tick and a square cross that stands on its corner.
#pragma once

#include <QColor>

#include <vector>

class QPainter;
class QPointF;
class QRectF;
struct GameColours;

namespace Marks
{
constexpr QColor RightColour{0x17, 0x80, 0x50};
constexpr QColor WrongColour{0xc4, 0x45, 0x1c};

/// Size is the width of the mark.
void DrawRight(QPainter &Painter, QPointF Centre, double Size);
void DrawWrong(QPainter &Painter, QPointF Centre, double Size);

/// A set as a row of places: a mark for each one done, a full ring for the present one, small hollow ones for those
/// to come. Growth is the size of the newest mark, 1 when it has come to rest. Present is false when nothing runs.
void DrawSet(QPainter &Painter, const QRectF &Box, int Count, const std::vector<bool> &Done, double Growth,
             bool Present, const GameColours &Colours);
} // namespace Marks
