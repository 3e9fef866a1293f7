#include "sdk/author/Cards.h"

#include <QPainter>

void Cards::Draw(QPainter &Painter, const QRectF &Box, const QBrush &Ground, const QPen &Edge, double Round,
                 double Height)
{
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(0, 0, 0, 30));
    Painter.drawRoundedRect(Box.translated(0, Height), Round, Round);
    Painter.setBrush(Ground);
    Painter.setPen(Edge);
    Painter.drawRoundedRect(Box, Round, Round);
}
