// How a tile of Ninth Tile looks: a card with one to six figures.
#pragma once

#include "NinthLanguage.h"

#include <QColor>

class QPainter;
class QRectF;

namespace NinthDrawing
{
/// What all tiles of an item have in common, so that a figure is as large on one as on the others.
struct Look
{
    int Most = 1; // figures on the fullest tile
    bool Dark = false;
};

/// The empty card with its shadow. Edge is drawn with that width; Lit is the card under the pointer.
void DrawCard(QPainter &Painter, const QRectF &Place, const Look &Look, const QColor &Edge, double Width,
              bool Lit = false);
/// The figures alone.
void DrawFigures(QPainter &Painter, const QRectF &Place, const Tile &Tile, const Look &Look);
} // namespace NinthDrawing
