// How the controls write: plain text in which every character stands for itself, CR LF breaks a line, and what does
// not fit is written smaller before it is cut. One place, so that a caption looks alike on a button and on a label.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace Caption
{
/// A font of that many points on a form of 96 dots to the inch: forms are laid out in pixels, so their text is too,
/// and both grow together with the desktop's scale.
QFont DesignFont(const QFont &Like, double Points, bool Bold);
/// Writes into the rectangle, never outside of it.
void Draw(QPainter &Painter, const QRect &Place, const QString &Text, const QColor &Colour, Qt::Alignment Alignment,
          bool WordWrap);
/// A single line of text, in the font and with the dots at its end that a width [px] makes necessary; a line break
/// is a blank.
struct Line
{
    QFont Font;
    QString Text;
};
Line Fitted(const QFont &Font, const QString &Text, int Width);
/// The room that the text takes when nothing is made smaller.
QSize Needs(const QFont &Font, const QString &Text);
} // namespace Caption
