// A control as it is drawn on a ground.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

inline QImage Shot(QWidget &control, const QColor &ground = Qt::white)
{
    QImage shot(control.size(), QImage::Format_RGB32);
    shot.fill(ground);
    control.render(&shot, QPoint(), QRegion(), QWidget::DrawChildren);
    return shot;
}
