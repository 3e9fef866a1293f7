#include "sdk/author/Patterns.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace
{
// Both begin in the middle of the figure, so that figures of one kind look alike wherever they stand.
void DrawStripes(QPainter &painter, const QRectF &box, const QColor &ink, double pitch)
{
    painter.setPen({ink, pitch * 0.42, Qt::SolidLine, Qt::FlatCap});
    const double reach = (box.width() + box.height()) / 2;
    const int aside = static_cast<int>(reach / pitch);
    for (int i = -aside; i <= aside; ++i) {
        const QPointF middle = box.center() + QPointF(i * pitch, 0);
        painter.drawLine(middle + QPointF(-reach, reach), middle + QPointF(reach, -reach));
    }
}

void DrawDots(QPainter &painter, const QRectF &box, const QColor &ink, double pitch)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    const double size = pitch * 0.29;
    const double step = pitch * 0.75; // from row to row; every other one is set between
    const int rows = static_cast<int>(box.height() / 2 / step) + 1;
    const int columns = static_cast<int>(box.width() / 2 / pitch) + 1;
    for (int row = -rows; row <= rows; ++row) {
        for (int column = -columns; column <= columns; ++column) {
            const double aside = row % 2 == 0 ? 0 : 0.5;
            painter.drawEllipse(box.center() + QPointF((column + aside) * pitch, row * step), size, size);
        }
    }
}
} // namespace

void Patterns::Draw(QPainter &Painter, const QPainterPath &Figure, Pattern Fill, const QColor &Ink,
                    const QColor &Ground, double Pitch)
{
    const QRectF box = Figure.boundingRect();
    Painter.save();
    Painter.fillPath(Figure, Fill == Pattern::Solid ? Ink : Ground);
    Painter.save();
    Painter.setClipPath(Figure, Qt::IntersectClip);
    if (Fill == Pattern::Striped) DrawStripes(Painter, box, Ink, Pitch);
    if (Fill == Pattern::Dotted) DrawDots(Painter, box, Ink, Pitch);
    Painter.restore();
    const double width = std::clamp(std::max(box.width(), box.height()) * 0.07, 1.2, 3.5);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen({Ink, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    Painter.drawPath(Figure);
    Painter.restore();
}
