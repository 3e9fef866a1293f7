#include "skin/PanelSurface.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace
{
// A copy is called, since what it belongs to may be gone before it returns.
template <typename... Told>
void Report(std::function<void(Told...)> report, Told... told)
{
    const auto call = std::move(report);
    if (call) call(told...);
}

// To a screen reader a row is a button; the panel's ground is nothing to be read.
QAccessibleInterface *InterfaceFor(const QString &className, QObject *object)
{
    auto *const surface = className == QLatin1String("PanelSurface") ? qobject_cast<QWidget *>(object) : nullptr;
    if (surface == nullptr) return nullptr;
    return new QAccessibleWidget(surface,
                                 surface->accessibleName().isEmpty() ? QAccessible::Pane : QAccessible::Button);
}
} // namespace

PanelSurface::PanelSurface(QWidget *Panel) : QWidget(Panel)
{
    [[maybe_unused]] static const bool told = [] {
        QAccessible::installFactory(&InterfaceFor);
        return true;
    }();
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PanelSurface::SetImage(const QImage &Image)
{
    m_Image = Image;
    update();
}

void PanelSurface::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Where the surface ends within a device pixel, at fractional scales of the screen, the picture leaves that pixel
    // out: it gets the colour beside it.
    const bool isEmpty = m_Image.isNull();
    painter.fillRect(rect().adjusted(0, 0, 1, 1),
                     isEmpty ? QColor(Qt::white) : m_Image.pixelColor(0, m_Image.height() - 1));
    if (!isEmpty) painter.drawImage(rect(), m_Image);
}

void PanelSurface::enterEvent(QEnterEvent *) { Report(Moved); }
void PanelSurface::leaveEvent(QEvent *) { Report(Left); }
void PanelSurface::mouseMoveEvent(QMouseEvent *) { Report(Moved); }
void PanelSurface::mousePressEvent(QMouseEvent *) { Report(Pressed, false); }
void PanelSurface::mouseDoubleClickEvent(QMouseEvent *) { Report(Pressed, true); }
void PanelSurface::mouseReleaseEvent(QMouseEvent *) {} // nor does the window beneath get it
