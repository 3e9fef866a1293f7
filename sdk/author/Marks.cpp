#include "sdk/author/Marks.h"

#include "sdk/author/GameColours.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace
{
QPen Stroke(double size) { return {Qt::white, size * 0.13, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }
} // namespace

void Marks::DrawRight(QPainter &Painter, QPointF Centre, double Size)
{
    Painter.save();
    Painter.translate(Centre);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(RightColour);
    Painter.drawEllipse(QPointF(), Size / 2, Size / 2);
    Painter.setPen(Stroke(Size));
    Painter.setBrush(Qt::NoBrush);
    const QPolygonF tick{{-0.22 * Size, 0.02 * Size}, {-0.06 * Size, 0.18 * Size}, {0.23 * Size, -0.16 * Size}};
    Painter.drawPolyline(tick);
    Painter.restore();
}

void Marks::DrawWrong(QPainter &Painter, QPointF Centre, double Size)
{
    Painter.save();
    Painter.translate(Centre);
    const double half = Size * 0.54;
    Painter.setPen({WrongColour, Size * 0.08, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    Painter.setBrush(WrongColour);
    Painter.drawPolygon(QPolygonF{{0, -half}, {half, 0}, {0, half}, {-half, 0}});
    Painter.setPen(Stroke(Size));
    const double arm = Size * 0.16;
    Painter.drawLine(QPointF(-arm, -arm), QPointF(arm, arm));
    Painter.drawLine(QPointF(-arm, arm), QPointF(arm, -arm));
    Painter.restore();
}

void Marks::DrawSet(QPainter &Painter, const QRectF &Box, int Count, const std::vector<bool> &Done, double Growth,
                    bool Present, const GameColours &Colours)
{
    constexpr double WidestPitch = 34;
    const double pitch = std::min(Box.width() / Count, WidestPitch);
    const double size = std::min(pitch * 0.84, Box.height());
    const double left = Box.center().x() - pitch * Count / 2;
    const int done = static_cast<int>(Done.size());
    for (int i = 0; i < Count; ++i) {
        const QPointF centre(left + pitch * (i + 0.5), Box.center().y());
        if (i < done) {
            const double grown = i == done - 1 ? size * Growth : size;
            Done[static_cast<std::size_t>(i)] ? DrawRight(Painter, centre, grown) : DrawWrong(Painter, centre, grown);
            continue;
        }
        const bool present = i == done && Present;
        const double radius = size * (present ? 0.44 : 0.3);
        Painter.setBrush(present ? Colours.accent : Colours.ground);
        Painter.setPen(QPen(present ? Colours.accentText : Colours.faint, present ? 2 : 1.3));
        Painter.drawEllipse(centre, radius, radius);
    }
}
