#include "StoneDrawing.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QRadialGradient>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace
{
// Of four kinds of rock, light enough for dark marks.
constexpr std::array<QRgb, 4> Rocks{0xff9db7d6, 0xfff0b860, 0xff93c9a0, 0xffe3a4ad};
constexpr QRgb MarkColour = 0xff24323c;
constexpr double MarkWidth = 0.16; // of half a stone

constexpr double Round = 18; // of the bed's corners

QColor Sand(bool dark) { return dark ? QColor(0x1c, 0x28, 0x30) : QColor(0xf7, 0xee, 0xdb); }

QPen Line(const QColor &colour, double width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

constexpr double Corner = 0.3; // radius by which corners are rounded

// A polygon with that many corners on a circle around the origin, a corner of it upwards, or a side.
QPainterPath Polygon(int corners, bool cornerUp, double radius)
{
    QPolygonF polygon;
    for (int i = 0; i < corners; ++i) {
        const double turn = 2 * std::numbers::pi * (i + (cornerUp ? 0 : 0.5)) / corners - std::numbers::pi / 2;
        polygon << radius * QPointF(std::cos(turn), std::sin(turn));
    }
    QPainterPath path;
    path.addPolygon(polygon);
    path.closeSubpath();
    return path;
}

// Worked out on a large scale, since paths take hundredths for nothing.
QPainterPath Rounded(const QPainterPath &path)
{
    constexpr double Large = 100;
    const QPainterPath large = QTransform::fromScale(Large, Large).map(path);
    const QPainterPathStroker pen(Line(Qt::black, 2 * Corner * Large));
    return QTransform::fromScale(1 / Large, 1 / Large).map(pen.createStroke(large).united(large).simplified());
}

// About as wide and high as 2, around the origin.
QPainterPath MakeBody(StoneShape shape)
{
    QPainterPath path;
    switch (shape) {
    case StoneShape::Circle:
        path.addEllipse(QPointF(), 0.95, 0.95);
        return path;
    case StoneShape::Square:
        return Rounded(Polygon(4, false, 0.79));
    case StoneShape::Triangle:
        return Rounded(Polygon(3, true, 0.82)).translated(0, 0.18);
    case StoneShape::Hexagon:
        return Rounded(Polygon(6, false, 0.72));
    case StoneShape::Pentagon:
        return Rounded(Polygon(5, true, 0.74)).translated(0, 0.05);
    case StoneShape::Oval:
        path.addEllipse(QPointF(), 0.56, 0.98);
        return path;
    }
    return path;
}

const QPainterPath &Body(StoneShape shape)
{
    static const std::array bodies{MakeBody(StoneShape::Circle),   MakeBody(StoneShape::Square),
                                   MakeBody(StoneShape::Triangle), MakeBody(StoneShape::Hexagon),
                                   MakeBody(StoneShape::Pentagon), MakeBody(StoneShape::Oval)};
    return bodies.at(static_cast<std::size_t>(shape));
}

void DrawMarks(QPainter &painter, StonePattern pattern)
{
    painter.setPen(Line(QColor(MarkColour), MarkWidth));
    painter.setBrush(Qt::NoBrush);
    switch (pattern) {
    case StonePattern::Plain:
        return;
    case StonePattern::Stripes:
        for (const double height : {-0.4, 0.0, 0.4}) painter.drawLine(QPointF(-1.2, height), QPointF(1.2, height));
        return;
    case StonePattern::Dots:
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(MarkColour));
        for (const QPointF &dot : {QPointF(0, -0.48), QPointF(-0.34, -0.02), QPointF(0.34, -0.02), QPointF(0, 0.44)})
            painter.drawEllipse(dot, 0.15, 0.15);
        return;
    case StonePattern::Ring:
        painter.drawEllipse(QPointF(0, 0), 0.36, 0.36);
        return;
    }
}
} // namespace

void StoneDrawing::DrawSand(QPainter &Painter, const QRectF &Bed, bool Dark)
{
    constexpr double Furrow = 13;
    QPainterPath bed;
    bed.addRoundedRect(Bed, Round, Round);
    Painter.save();
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(0, 0, 0, Dark ? 60 : 26));
    Painter.drawRoundedRect(Bed.translated(0, 4), Round, Round);
    Painter.fillPath(bed, Sand(Dark));
    Painter.setClipPath(bed);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(Line(Dark ? QColor(0x27, 0x36, 0x40) : QColor(0xec, 0xdd, 0xbf), 3));
    const int furrows = static_cast<int>(std::ceil(Bed.height() / Furrow));
    for (int i = 1; i <= furrows; ++i) {
        const double y = Bed.top() + i * Furrow;
        QPainterPath furrow(QPointF(Bed.left(), y));
        const double third = Bed.width() / 3;
        furrow.cubicTo({Bed.left() + third, y - 16}, {Bed.left() + 2 * third, y + 16}, {Bed.right(), y});
        Painter.drawPath(furrow);
    }
    Painter.setClipping(false);
    Painter.setPen(Line(Dark ? QColor(0x3c, 0x52, 0x5e) : QColor(0xdd, 0xcc, 0xa8), 1.5));
    Painter.drawPath(bed);
    Painter.restore();
}

void StoneDrawing::DrawMist(QPainter &Painter, const QRectF &Bed, bool Dark)
{
    QColor mist = Sand(Dark);
    mist.setAlpha(185);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(mist);
    Painter.drawRoundedRect(Bed, Round, Round);
}

void StoneDrawing::DrawStone(QPainter &Painter, QPointF Centre, double Width, const Stone &Stone, bool Dark)
{
    const QColor rock(Rocks.at(static_cast<std::size_t>(Stone.Colour)));
    const double half = Width / 2 * Stone.Size / 100;
    Painter.save();
    Painter.translate(Centre);
    Painter.scale(half, half);
    Painter.save();
    Painter.translate(0, 0.13);
    Painter.rotate(Stone.Tilt);
    Painter.fillPath(Body(Stone.Shape), QColor(0, 0, 0, Dark ? 120 : 60));
    Painter.restore();

    QRadialGradient light(QPointF(-0.35, -0.5), 1.7);
    light.setColorAt(0, rock.lighter(122));
    light.setColorAt(0.5, rock);
    light.setColorAt(1, rock.darker(145));
    Painter.rotate(Stone.Tilt);
    Painter.fillPath(Body(Stone.Shape), light);
    Painter.setClipPath(Body(Stone.Shape));
    DrawMarks(Painter, Stone.Pattern);
    Painter.setClipping(false);
    Painter.strokePath(Body(Stone.Shape), Line(rock.darker(Dark ? 120 : 175), 1.3 / half));
    Painter.restore();
}

// One picture for each kind, laid down on whole pixels so that it stays sharp: sixty stones cost as much as three.
void StoneDrawing::DrawStones(QPainter &Painter, const std::vector<Stone> &Stones,
                              const std::vector<QPointF> &Centres, double Width, bool Dark)
{
    constexpr double Room = 1.4; // for the shadow, too
    const QTransform toDevice = Painter.deviceTransform();
    const QTransform toDesign = toDevice.inverted();
    const double scale = toDevice.m11();
    const int side = 2 * static_cast<int>(std::ceil(Room * Width * scale / 2));
    std::vector<std::pair<Stone, QImage>> kinds;
    const QPoint middle(side / 2, side / 2);
    for (std::size_t i = 0; i < Stones.size(); ++i) {
        auto kind = std::ranges::find(kinds, Stones[i], &std::pair<Stone, QImage>::first);
        if (kind == kinds.end()) {
            QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
            picture.fill(Qt::transparent);
            QPainter painter(&picture);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.translate(middle);
            painter.scale(scale, scale);
            DrawStone(painter, {}, Width, Stones[i], Dark);
            painter.end();
            kind = kinds.insert(kinds.end(), {Stones[i], picture});
        }
        const QPointF corner = toDevice.map(Centres[i]).toPoint() - middle;
        Painter.drawImage(QRectF(toDesign.map(corner), QSizeF(side, side) / scale), kind->second);
    }
}
