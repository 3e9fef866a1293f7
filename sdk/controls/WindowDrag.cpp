#include "sdk/controls/WindowDrag.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace
{
// Moves its window with the pointer, and ends with the release of the button.
class WindowMover : public QObject
{
public:
    WindowMover(QWidget &Window, const QPoint &From)
        : QObject(&Window), m_Window(Window), m_Offset(From - Window.pos())
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *Receiver, QEvent *Event) override
    {
        if (Receiver->isWidgetType() && Event->type() == QEvent::MouseMove)
            m_Window.move(static_cast<QMouseEvent *>(Event)->globalPosition().toPoint() - m_Offset);
        if (Event->type() == QEvent::MouseButtonRelease) deleteLater();
        return false;
    }

private:
    QWidget &m_Window;
    QPoint m_Offset;
};
} // namespace

void BeginWindowDrag(QWidget &Window, const QMouseEvent &Press)
{
    QWindow *const handle = Window.windowHandle();
    if (handle != nullptr && handle->startSystemMove()) return;
    new WindowMover(Window, Press.globalPosition().toPoint());
}
