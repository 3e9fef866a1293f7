#include "TurnDrawing.h"

#include "TurnViews.h"
#include "sdk/author/GameColours.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double LargestEdge = 42;
constexpr double Margin = 12; // of a card

QColor Mixed(const QColor &one, const QColor &other, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

// In the middle of the light a face has the colour itself.
QColor Lit(const QColor &colour, double light)
{
    constexpr double Middle = 0.6;
    const QColor shade = Mixed(colour, QColor(0x08, 0x18, 0x20), 0.72);
    const QColor shine = Mixed(colour, Qt::white, 0.62);
    return light < Middle ? Mixed(shade, colour, light / Middle)
                          : Mixed(colour, shine, (light - Middle) / (1 - Middle));
}

QPen Round(const QColor &colour, double width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

QPointF MiddleOf(const Figure &blocks)
{
    QPointF sum;
    for (const Block &block : blocks) sum += QPointF(block.x + 0.5, -block.y - 0.5);
    return sum / static_cast<double>(blocks.size());
}

QPainterPath Outline(const Figure &blocks)
{
    constexpr double Overlap = 0.01; // so that neighbours become one shape
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    for (const Block &block : blocks)
        outline.addRect(QRectF(block.x, -block.y - 1, 1, 1).adjusted(-Overlap, -Overlap, Overlap, Overlap));
    return outline.simplified();
}
} // namespace

double TurnDrawing::EdgeThatFits(const Figure &Blocks, const QRectF &Card)
{
    const double half = std::min(Card.width(), Card.height()) / 2 - Margin;
    return std::min(LargestEdge, half / TurnViews::Reach(Blocks));
}

QColor TurnDrawing::ColourOf(int Item, bool Dark)
{
    static const std::array light{QColor(0x2a, 0x8f, 0x86), QColor(0x4a, 0x74, 0xc4), QColor(0xa8, 0x5c, 0x9a),
                                  QColor(0xc8, 0x7a, 0x2c)};
    static const std::array dark{QColor(0x4f, 0xb8, 0xac), QColor(0x74, 0x9c, 0xe6), QColor(0xc8, 0x80, 0xbc),
                                 QColor(0xe0, 0x9c, 0x50)};
    const auto &colours = Dark ? dark : light;
    return colours[static_cast<std::size_t>(Item) % colours.size()];
}

void TurnDrawing::Flat(QPainter &Painter, QPointF Centre, double Edge, const Figure &Blocks, const QQuaternion &Turn,
                       const QColor &Colour)
{
    const double angle = 2 * std::atan2(Turn.z(), Turn.scalar()) * 180 / std::numbers::pi;
    const auto put = [&](QPointF offset) {
        Painter.translate(Centre + offset);
        Painter.rotate(-angle);
        Painter.scale(Edge, Edge);
        Painter.translate(-MiddleOf(Blocks));
    };
    const QPainterPath outline = Outline(Blocks);
    Painter.save();
    put({0, 4});
    Painter.setPen(Round(QColor(0, 0, 0, 26), 0.1));
    Painter.setBrush(QColor(0, 0, 0, 26));
    Painter.drawPath(outline);
    Painter.restore();

    Painter.save();
    put({});
    Painter.setPen(Round(Lit(Colour, 0.25), 0.14));
    Painter.setBrush(Colour);
    Painter.drawPath(outline);
    Painter.setClipPath(outline);
    Painter.setPen(Round(Lit(Colour, 0.85), 0.16));
    Painter.setBrush(Qt::NoBrush);
    Painter.drawPath(outline);
    Painter.restore();
}

void TurnDrawing::Solid(QPainter &Painter, QPointF Centre, double Edge, const Figure &Blocks, const QQuaternion &Turn,
                        const QColor &Colour)
{
    const QColor line = Lit(Colour, 0.02);
    Painter.save();
    for (const SeenFace &face : TurnViews::Picture(Blocks, Turn)) {
        QPolygonF corners;
        for (const QPointF &corner : face.Corners) corners << Centre + corner * Edge;
        Painter.setPen(Round(line, 1.3));
        Painter.setBrush(Lit(Colour, face.Light));
        Painter.drawPolygon(corners);
    }
    Painter.restore();
}

void TurnDrawing::Mirror(QPainter &Painter, QPointF Top, QPointF Bottom, const GameColours &Colours)
{
    Painter.save();
    Painter.setPen(Round(Colours.accentText, 8));
    Painter.drawLine(Top, Bottom);
    Painter.setPen(Round(Colours.accent, 5));
    Painter.drawLine(Top, Bottom);
    Painter.restore();
}

void TurnDrawing::TurnSign(QPainter &Painter, QPointF Centre, const GameColours &Colours)
{
    constexpr double Radius = 17;
    Painter.save();
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(Round(Colours.keyText, 3.6));
    Painter.drawArc(QRectF(Centre - QPointF(Radius, Radius), QSizeF(2 * Radius, 2 * Radius)), 100 * 16, -290 * 16);
    Painter.translate(Centre + QPointF(-Radius * 0.985, Radius * 0.17 - 3));
    Painter.rotate(8);
    Painter.setBrush(Colours.keyText);
    Painter.drawPolygon(QPolygonF{{0, -6}, {5.5, 3}, {-5.5, 3}});
    Painter.restore();
}

void TurnDrawing::MirrorSign(QPainter &Painter, QPointF Centre, const GameColours &Colours)
{
    Painter.save();
    Painter.translate(Centre);
    Painter.setPen(Round(Colours.keyText, 2.4));
    const QPolygonF flag{{5, 15}, {5, -15}, {19, -15}, {19, -6}, {12, -6}, {12, 15}};
    Painter.setBrush(Qt::NoBrush);
    Painter.drawPolygon(flag);
    Painter.scale(-1, 1);
    Painter.setBrush(Colours.keyText);
    Painter.drawPolygon(flag);
    Painter.setPen(QPen(Colours.keyText, 2, Qt::DashLine));
    Painter.drawLine(QPointF(0, -21), QPointF(0, 21));
    Painter.restore();
}
