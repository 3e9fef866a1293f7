// What Punched Fold looks like: folded paper, creases, arrows, open sheets.
#pragma once

#include "FoldRules.h"

#include <QRectF>

class QPainter;
struct GameColours;

namespace FoldDrawing
{
/// The paper after that many folds, each layer on those below. Dashes show where the sheet was, and an arrow what the
/// last fold turned over. With holes, as it is when the punched sheet has been opened so far.
void Folds(QPainter &Painter, const QRectF &Square, const FoldItem &Item, int Count, bool WithHoles, bool Dark);
void OpenSheet(QPainter &Painter, const QRectF &Square, std::uint64_t Sheet, bool Dark);
/// From one picture to the next, or back.
void Chevron(QPainter &Painter, QPointF Centre, bool Back, const GameColours &Colours);
} // namespace FoldDrawing
