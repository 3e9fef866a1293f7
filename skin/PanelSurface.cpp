#include "skin/PanelSurface.h"

#include <QMouseEvent>
#include <QPainter>

namespace
{
// A copy is called, since what it belongs to may be gone before it returns.
void Report(std::function<void()> report)
{
    if (report) report();
}
} // namespace

void PanelSurface::SetImage(const QImage &Image)
{
    m_Image = Image;
    update();
}

void PanelSurface::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_Image.isNull())
        painter.fillRect(rect(), Qt::white);
    else
        painter.drawImage(rect(), m_Image);
}

void PanelSurface::enterEvent(QEnterEvent *) { Report(Moved); }
void PanelSurface::leaveEvent(QEvent *) { Report(Left); }
void PanelSurface::mouseMoveEvent(QMouseEvent *) { Report(Moved); }
void PanelSurface::mousePressEvent(QMouseEvent *) { Report(Pressed); }
void PanelSurface::mouseReleaseEvent(QMouseEvent *) {} // nor does the window beneath get it
