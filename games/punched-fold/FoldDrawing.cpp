#include "FoldDrawing.h"

#include "sdk/author/GameColours.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double HoleRadius = 0.72; // of sixteen to a side

struct PaperColours
{
    QColor front, back, stripe, edge, crease, hole, ghost, arrow;
};

const PaperColours &ColoursOf(bool dark)
{
    static const PaperColours light{QColor(0xff, 0xf6, 0xdc), QColor(0x9c, 0xc9, 0xd6), QColor(0x86, 0xb8, 0xc8),
                                    QColor(0x5a, 0x51, 0x38), QColor(0xc4, 0xb4, 0x88), QColor(0x23, 0x2b, 0x30),
                                    QColor(0x7d, 0x8d, 0x88), QColor(0xb3, 0x3c, 0x1c)};
    static const PaperColours dark_{QColor(0xf2, 0xe6, 0xc4), QColor(0x76, 0xad, 0xbf), QColor(0x62, 0x9a, 0xae),
                                    QColor(0x2a, 0x24, 0x14), QColor(0xb0, 0xa0, 0x74), QColor(0x14, 0x1c, 0x22),
                                    QColor(0x8f, 0xa2, 0xac), QColor(0xb3, 0x3c, 0x1c)};
    return dark ? dark_ : light;
}

QPointF Placed(const QRectF &square, double x, double y)
{
    const double unit = square.width() / Outline::Side;
    return square.topLeft() + QPointF(x, y) * unit;
}

QPolygonF Shape(const QRectF &square, const Outline &outline)
{
    QPolygonF shape;
    for (int i = 0; i < outline.Corners(); ++i) shape << Placed(square, outline[i].x, outline[i].y);
    return shape;
}

QPointF MiddleOf(const Outline &outline)
{
    QPointF sum;
    for (int i = 0; i < outline.Corners(); ++i) sum += QPointF(outline[i].x, outline[i].y);
    return sum / outline.Corners();
}

void DrawHole(QPainter &painter, const QRectF &square, const FoldPoint &hole, const PaperColours &colours)
{
    const double radius = HoleRadius * square.width() / Outline::Side;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.hole);
    painter.drawEllipse(Placed(square, hole.x, hole.y), radius, radius);
}

// The back is striped, so that it can be told without its colour.
void DrawLayer(QPainter &painter, const QRectF &square, const Layer &layer, const PaperColours &colours)
{
    const QPolygonF shape = Shape(square, layer.Shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(layer.IsBack ? colours.back : colours.front);
    painter.drawPolygon(shape);
    if (layer.IsBack) {
        painter.save();
        QPainterPath clip;
        clip.addPolygon(shape);
        painter.setClipPath(clip);
        painter.setPen(QPen(colours.stripe, square.width() * 0.018));
        constexpr double pitch = 1.6; // of the stripes
        const int stripes = static_cast<int>((2 * Outline::Side - 1) / pitch);
        for (int i = 0; i <= stripes; ++i) {
            const double x = 1 + i * pitch;
            painter.drawLine(Placed(square, x, 0), Placed(square, x - Outline::Side, Outline::Side));
        }
        painter.restore();
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.edge, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(shape);
}

Outline PaperAfter(const FoldItem &item, int count)
{
    Outline paper = Outline::Sheet();
    for (int i = 0; i < count; ++i) paper = paper.Within(item.Folds[static_cast<std::size_t>(i)]);
    return paper;
}

void DrawArrow(QPainter &painter, QPointF from, QPointF to, const PaperColours &colours)
{
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    if (length < 1) return;
    const QPointF along = way / length;
    const QPointF aside(-along.y(), along.x());
    constexpr double Head = 8;
    const QPolygonF head{to, to - along * Head + aside * Head * 0.55, to - along * Head - aside * Head * 0.55};
    for (const bool halo : {true, false}) {
        painter.setPen(QPen(halo ? QColor(Qt::white) : colours.arrow, halo ? 5 : 2.2, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.setBrush(halo ? QColor(Qt::white) : colours.arrow);
        painter.drawLine(from, to - along * Head * 0.6);
        painter.drawPolygon(head);
    }
}
} // namespace

void FoldDrawing::Folds(QPainter &Painter, const QRectF &Square, const FoldItem &Item, int Count, bool WithHoles,
                        bool Dark)
{
    const PaperColours &colours = ColoursOf(Dark);
    Painter.save();
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(colours.ghost, 1.2, Qt::DashLine));
    Painter.drawRect(Square);
    if (Count > 0) Painter.drawPolygon(Shape(Square, PaperAfter(Item, Count - 1)));

    const std::uint64_t sheet = Item.Sheets[static_cast<std::size_t>(Item.Answer)];
    const std::vector<Fold> folds(Item.Folds.begin(), Item.Folds.begin() + Count);
    const auto layers = Folded(WithHoles ? sheet : 0, folds);
    for (const Layer &layer : layers) {
        DrawLayer(Painter, Square, layer, colours);
        for (const FoldPoint &hole : layer.Holes) DrawHole(Painter, Square, hole, colours);
    }
    if (Count > 0 && !WithHoles) {
        const Fold &last = folds.back();
        const Outline flap = PaperAfter(Item, Count - 1).Beyond(last);
        const QPointF from = MiddleOf(flap);
        const QPointF to = MiddleOf(flap.Over(last));
        DrawArrow(Painter, Placed(Square, from.x(), from.y()), Placed(Square, to.x(), to.y()), colours);
    }
    Painter.restore();
}

void FoldDrawing::OpenSheet(QPainter &Painter, const QRectF &Square, std::uint64_t Sheet, bool Dark)
{
    const PaperColours &colours = ColoursOf(Dark);
    Painter.save();
    DrawLayer(Painter, Square, {Outline::Sheet(), false, {}}, colours);
    for (const FoldPoint &hole : Holes::Of(Sheet)) DrawHole(Painter, Square, hole, colours);
    Painter.restore();
}

void FoldDrawing::Chevron(QPainter &Painter, QPointF Centre, bool Back, const GameColours &Colours)
{
    const double tip = Back ? -4 : 4;
    Painter.save();
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(Colours.faint, 2.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Painter.drawPolyline(QPolygonF{Centre + QPointF(-tip, -7), Centre + QPointF(tip, 0), Centre + QPointF(-tip, 7)});
    Painter.restore();
}
