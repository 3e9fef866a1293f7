#include "screens/FocusMark.h"

#include "sdk/controls/Look.h"

#include <QEvent>
#include <QPainter>

namespace
{
constexpr double Radius = 4; // [px]
}

FocusMark::FocusMark(QWidget *Control) : QWidget(Control)
{
    Look::KeysAreUsed(); // watched from now on
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setObjectName(QStringLiteral("FocusMark"));
    hide();
    Control->installEventFilter(this);
}

bool FocusMark::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = parentWidget();
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::KeyPress:
    case QEvent::Resize:
        setGeometry(control->rect());
        raise();
        setVisible(control->hasFocus() && Look::KeysAreUsed());
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Look::DrawFocus(painter, rect(), Radius);
}
