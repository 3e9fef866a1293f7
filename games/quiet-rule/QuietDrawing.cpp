#include "QuietDrawing.h"

#include "sdk/author/GameColours.h"
#include "sdk/author/Patterns.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace
{
// Figures are drawn from -1 to 1.

QPainterPath Star()
{
    QPolygonF corners;
    for (int i = 0; i < 10; ++i) {
        const double angle = std::numbers::pi * i / 5;
        const double reach = i % 2 == 0 ? 1.08 : 0.5;
        corners << QPointF(reach * std::sin(angle), 0.06 - reach * std::cos(angle));
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

QPainterPath Flower()
{
    constexpr int Petals = 5;
    QPainterPath path;
    path.addEllipse(QPointF(), 0.45, 0.45);
    for (int i = 0; i < Petals; ++i) {
        const double angle = 2 * std::numbers::pi * i / Petals;
        QPainterPath petal;
        petal.addEllipse(QPointF(0.56 * std::sin(angle), -0.56 * std::cos(angle)), 0.43, 0.43);
        path = path.united(petal);
    }
    return path;
}

QPainterPath Diamond()
{
    QPainterPath path;
    path.addPolygon(QPolygonF{{0, -1.08}, {0.82, 0}, {0, 1.08}, {-0.82, 0}});
    path.closeSubpath();
    return path;
}

QPainterPath Moon()
{
    QPainterPath whole;
    whole.addEllipse(QPointF(-0.05, 0), 1, 1);
    QPainterPath bite;
    bite.addEllipse(QPointF(0.55, -0.1), 0.78, 0.78);
    return whole.subtracted(bite);
}

const QPainterPath &Figure(int shape)
{
    static const std::array figures{Star(), Flower(), Diamond(), Moon()};
    return figures.at(static_cast<std::size_t>(shape));
}

// Around the card's middle, in units of a figure's half.
const std::vector<QPointF> &Stands(int count)
{
    static const std::array<std::vector<QPointF>, Card::ValuesOfEach> stands{{
        {{0, 0}},
        {{0, -1.25}, {0, 1.25}},
        {{0, -1.2}, {-1.2, 1.1}, {1.2, 1.1}},
        {{-1.2, -1.25}, {1.2, -1.25}, {-1.2, 1.25}, {1.2, 1.25}},
    }};
    return stands.at(static_cast<std::size_t>(count - 1));
}

// Four kinds of edge. Each goes round the card from the middle of its left side.

QPainterPath CutEdge(const QRectF &box, double corner)
{
    QPainterPath path;
    path.addPolygon(QPolygonF{{box.left() + corner, box.top()},
                              {box.right() - corner, box.top()},
                              {box.right(), box.top() + corner},
                              {box.right(), box.bottom() - corner},
                              {box.right() - corner, box.bottom()},
                              {box.left() + corner, box.bottom()},
                              {box.left(), box.bottom() - corner},
                              {box.left(), box.top() + corner}});
    path.closeSubpath();
    return path;
}

QPainterPath ScoopedEdge(const QRectF &box, double corner)
{
    QPainterPath path;
    path.addRect(box);
    for (const QPointF middle : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
        QPainterPath scoop;
        scoop.addEllipse(middle, corner, corner);
        path = path.subtracted(scoop);
    }
    return path;
}

// As a stamp has it: small half rounds all along.
QPainterPath StampEdge(const QRectF &box, double corner)
{
    const double radius = corner * 0.26;
    QPainterPath holes;
    const auto bite = [&](double x, double y) { holes.addEllipse(QPointF(x, y), radius, radius); };
    const int across = qRound(box.width() / (3.3 * radius));
    const int down = qRound(box.height() / (3.3 * radius));
    for (int i = 0; i < across; ++i) {
        bite(box.left() + (i + 0.5) * box.width() / across, box.top());
        bite(box.left() + (i + 0.5) * box.width() / across, box.bottom());
    }
    for (int i = 0; i < down; ++i) {
        bite(box.left(), box.top() + (i + 0.5) * box.height() / down);
        bite(box.right(), box.top() + (i + 0.5) * box.height() / down);
    }
    QPainterPath path;
    path.addRect(box);
    return path.subtracted(holes);
}

QPainterPath Outline(const QRectF &box, int edge)
{
    const double corner = box.width() * 0.17;
    if (edge == 1) return CutEdge(box, corner);
    if (edge == 2) return ScoopedEdge(box, corner);
    if (edge == 3) return StampEdge(box, corner);
    QPainterPath path;
    path.addRoundedRect(box, corner * 1.1, corner * 1.1);
    return path;
}

// Each pattern has a colour of its own; either is enough to tell it.
QColor Ink(int fill, bool isDark)
{
    static const std::array light{QColor(0x7a, 0x3c, 0x9c), QColor(0x1c, 0x5c, 0xa6), QColor(0x0b, 0x73, 0x59),
                                  QColor(0x96, 0x5c, 0x06)};
    static const std::array dark{QColor(0xdc, 0xb0, 0xf2), QColor(0x93, 0xc7, 0xf7), QColor(0x83, 0xdc, 0xbc),
                                 QColor(0xf4, 0xc4, 0x69)};
    return (isDark ? dark : light).at(static_cast<std::size_t>(fill));
}
} // namespace

void QuietDrawing::DrawCard(QPainter &Painter, const QRectF &Place, const Card &Card, bool Dark, const QColor &Line,
                            double Width, bool Lit)
{
    const GameColours &colours = GameColours::For(Dark);
    const double unit = Place.width() / CardWidth;
    const QPainterPath outline = Outline(Place, Card[CardTrait::Edge]);
    const QColor ground = !Lit ? colours.ground : Dark ? colours.ground.lighter(135) : colours.well;
    Painter.fillPath(outline.translated(0, 3.5 * unit), QColor(0, 0, 0, Dark ? 80 : 34));
    Painter.fillPath(outline, ground);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen({Line, Width * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    Painter.drawPath(outline);

    const double half = 18 * unit;
    for (const QPointF stand : Stands(Card[CardTrait::Count] + 1)) {
        const QPointF centre = Place.center() + stand * half;
        const QTransform place = QTransform::fromTranslate(centre.x(), centre.y()).scale(half, half);
        Patterns::Draw(Painter, place.map(Figure(Card[CardTrait::Shape])),
                       static_cast<Pattern>(Card[CardTrait::Fill]), Ink(Card[CardTrait::Fill], Dark), ground,
                       7.5 * unit);
    }
}

void QuietDrawing::DrawBack(QPainter &Painter, const QRectF &Place, bool Dark)
{
    const GameColours &colours = GameColours::For(Dark);
    const QPainterPath outline = Outline(Place, 0);
    const double margin = Place.width() * 0.08;
    Painter.fillPath(outline.translated(0, 3), QColor(0, 0, 0, Dark ? 80 : 34));
    Painter.fillPath(outline, colours.ground);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen({colours.keyEdge, 1.5});
    Painter.drawPath(outline);
    QPainterPath inside;
    inside.addRoundedRect(Place.adjusted(margin, margin, -margin, -margin), margin, margin);
    Patterns::Draw(Painter, inside, Pattern::Striped, colours.edge, colours.ground, Place.width() * 0.14);
}
