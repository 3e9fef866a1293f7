#include "sdk/author/Countdown.h"

#include "sdk/author/GameColours.h"

#include <QPainter>

#include <algorithm>

double Countdown::Left(qint64 Now) const
{
    return Runs() ? std::clamp(1 - static_cast<double>(Now - m_Since) / m_Duration, 0.0, 1.0) : 0;
}

void Countdown::Draw(QPainter &Painter, const QRectF &Bar, qint64 Now, const GameColours &Colours) const
{
    if (Runs()) DrawBar(Painter, Bar, Left(Now), Colours);
}

void Countdown::DrawBar(QPainter &Painter, const QRectF &Bar, double Left, const GameColours &Colours)
{
    const double round = Bar.height() / 2;
    Painter.save();
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Colours.edge);
    Painter.drawRoundedRect(Bar, round, round);
    Painter.setBrush(Colours.accent);
    Painter.drawRoundedRect(QRectF(Bar.topLeft(), QSizeF(Bar.width() * Left, Bar.height())), round, round);
    Painter.restore();
}
