#include "shell/GuardedApplication.h"

#include "shell/program/Trapped.h"

#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

GuardedApplication::GuardedApplication(int &argc, char **argv) : QApplication(argc, argv)
{
    // The splash closes while it is the only window that shows.
    setQuitOnLastWindowClosed(false);
}

bool GuardedApplication::notify(QObject *Receiver, QEvent *Event)
{
    try {
        return Deliver(Receiver, Event);
    } catch (...) {
        const std::exception_ptr failure = std::current_exception();
        try {
            ReportFailure(QStringLiteral("An error occurred."), failure);
        } catch (...) {
            // The message itself could not be shown; there is nobody left to tell.
        }
        return true;
    }
}

bool GuardedApplication::Deliver(QObject *Receiver, QEvent *Event)
{
    // Here rather than in a filter: the way of an event up through the parents passes filters again and again.
    if (Event->type() == QEvent::KeyPress && Receiver->isWidgetType()) {
        const QPointer<QObject> receiver(Receiver);
        Q_EMIT KeyPressed(static_cast<QWidget *>(Receiver), static_cast<QKeyEvent *>(Event));
        if (!receiver) return true;
    }
    return QApplication::notify(Receiver, Event);
}
