#include "EchoPad.h"

#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"
#include "sdk/author/Marks.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace
{
constexpr double Corner = 20;

QPen Stroke(const QColor &colour, double width)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void DrawFace(QPainter &painter, const QRectF &box, const QColor &ground, const QColor &edge, double line, bool down)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, down ? 12 : 34));
    painter.drawRoundedRect(box.translated(0, down ? 2 : 5), Corner, Corner);
    painter.setBrush(ground);
    painter.setPen(Stroke(edge, line));
    painter.drawRoundedRect(box, Corner, Corner);
}

// Nine places with one of them full, or a letter.
void DrawTrait(QPainter &painter, QPointF centre, EchoRules::Trait trait, const QColor &ink)
{
    if (trait == EchoRules::Letter) {
        painter.setPen(ink);
        GameCanvas::WriteLine(painter, QRectF(centre - QPointF(30, 30), QSizeF(60, 60)), Qt::AlignCenter,
                              QStringLiteral("K"), 52, QFont::Bold);
        return;
    }
    painter.setPen(Stroke(ink, 2));
    for (int place = 0; place < EchoRules::Places; ++place) {
        painter.setBrush(place == 5 ? QBrush(ink) : QBrush(Qt::NoBrush));
        const int column = place % 3 - 1;
        const int row = place / 3 - 1;
        painter.drawEllipse(centre + QPointF(column * 19, row * 17), 7, 6);
    }
}

void DrawKey(QPainter &painter, QPointF centre, const EchoPad::Button &button, const QColor &ink)
{
    painter.setPen(Stroke(ink, 2.5));
    painter.setBrush(Qt::NoBrush);
    if (button.IsOnly) { // the space bar, as it lies before the player
        painter.drawPolyline(QPolygonF{centre + QPointF(-38, -5), centre + QPointF(-38, 5), centre + QPointF(38, 5),
                                       centre + QPointF(38, -5)});
        return;
    }
    painter.drawRoundedRect(QRectF(centre - QPointF(17, 14), QSizeF(34, 28)), 6, 6);
    const double way = button.Trait == EchoRules::Place ? -1 : 1;
    painter.drawLine(centre - QPointF(8 * way, 0), centre + QPointF(8 * way, 0));
    painter.drawPolyline(
        QPolygonF{centre + QPointF(3 * way, -5), centre + QPointF(8 * way, 0), centre + QPointF(3 * way, 5)});
}
} // namespace

void EchoPad::DrawButton(QPainter &Painter, const Button &Button, const GameColours &Colours)
{
    const bool isBright = Button.IsLive || Button.IsDown || Button.IsWanted;
    QColor ground = isBright ? Colours.accent : Colours.key;
    if (Button.IsDown) ground = ground.darker(112);
    if (Button.IsLive && Button.IsOver && !Button.IsDown) ground = ground.lighter(108);
    const QRectF face = Button.IsDown ? Button.Box.translated(0, 3) : Button.Box;
    DrawFace(Painter, face, ground,
             Button.IsWanted ? Colours.text
             : isBright      ? ground.darker(125)
                             : Colours.keyEdge,
             Button.IsWanted ? 3.5 : 2, Button.IsDown);
    const QColor ink = isBright ? Colours.accentText : Colours.faint;
    DrawTrait(Painter, {face.center().x(), face.top() + 62}, Button.Trait, ink);
    Painter.setPen(ink);
    GameCanvas::WriteLine(Painter, face.adjusted(3, 102, -3, -56), Qt::AlignCenter, Button.Caption,
                          Button.IsOnly ? 26 : 19, QFont::Bold);
    DrawKey(Painter, {face.center().x(), face.bottom() - 30}, Button, ink);
    if (!Button.Mark) return;
    const QPointF corner(face.right() - 13, face.top() + 13);
    *Button.Mark ? Marks::DrawRight(Painter, corner, 32) : Marks::DrawWrong(Painter, corner, 32);
}

void EchoPad::DrawDistance(QPainter &Painter, const QRectF &Card, int Back, const std::vector<QString> &Letters,
                           const QString &Line, const GameColours &Colours)
{
    DrawFace(Painter, Card, Colours.ground, Colours.edge, 1.5, false);
    const double pitch = std::min(52.0, (Card.width() - 56) / Back);
    const double left = Card.center().x() - pitch * Back / 2;
    const double height = Card.top() + 54;
    for (int step = 0; step <= Back; ++step) {
        const QPointF centre(left + step * pitch, height);
        const bool compared = step == 0 || step == Back;
        Painter.setPen(Stroke(compared ? Colours.accentText : Colours.faint, 1.8));
        Painter.setBrush(compared ? Colours.accent : Colours.well);
        const double radius = Letters.empty() ? (compared ? 10 : 7) : (compared ? 16 : 13);
        Painter.drawEllipse(centre, radius, radius);
        if (Letters.empty()) continue;
        Painter.setPen(compared ? Colours.accentText : Colours.faint);
        GameCanvas::WriteLine(Painter, QRectF(centre - QPointF(16, 16), QSizeF(32, 32)), Qt::AlignCenter,
                              Letters[static_cast<std::size_t>(step)], compared ? 20 : 16, QFont::Bold);
    }
    const double lift = Letters.empty() ? 14 : 19; // above the dots
    QPainterPath bow(QPointF(left + Back * pitch, height - lift));
    bow.cubicTo(left + Back * pitch - 6, height - lift - 24, left + 6, height - lift - 24, left, height - lift);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(Stroke(Colours.text, 2.5));
    Painter.drawPath(bow);
    Painter.drawPolyline(
        QPolygonF{{left - 3, height - lift - 9}, {left, height - lift}, {left + 9, height - lift - 5}});
    Painter.setPen(Colours.text);
    GameCanvas::WriteLine(Painter, {Card.left() + 10, Card.bottom() - 32, Card.width() - 20, 26}, Qt::AlignCenter,
                          Line, 18, QFont::Bold);
}
