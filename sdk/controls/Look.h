// What the controls share in drawing: the key colour of pictures, pictures stretched to a control, the focus
// mark, and the scroll bar.
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>

class QPainter;

namespace Look
{
/// The picture without the pixels that have the colour of its top left one: those let the ground through.
QImage WithoutKeyColour(const QImage &Picture);
/// A keyed picture at another size, both counted in device pixels, the picture's own scale aside: its ends keep their
/// shape, its middle is stretched.
QImage StretchedTo(const QImage &Keyed, const QSize &Size);
/// Dark or white: which of the two reads better over the middle of the picture.
QColor ReadableOn(const QImage &Keyed);
/// Whether the user works with keys: the last thing pressed was one, not a mouse button. The focus mark is for those
/// who do; a mouse shows where it is. Asks the application's events from the first call on.
bool KeysAreUsed();
/// A mark that can be seen on every ground, since it is light and dark at once.
void DrawFocus(QPainter &Painter, const QRectF &Place, double Radius);
/// The style sheet of a thin upright scroll bar that does not shout.
QString ScrollBars();
} // namespace Look
