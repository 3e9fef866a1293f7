// The application object, with the outermost guard around the delivery of events: what no routine caught is shown in
// the message box, and the program goes on. It also tells of every key press once, whoever has the focus.
#pragma once

#include <QApplication>

class QKeyEvent;

class GuardedApplication : public QApplication
{
    Q_OBJECT

public:
    GuardedApplication(int &argc, char **argv);
    bool notify(QObject *Receiver, QEvent *Event) override;

Q_SIGNALS:
    /// A key was pressed and is about to reach a control. Key repeats count, releases do not.
    void KeyPressed(QWidget *Receiver, QKeyEvent *Event);

private:
    bool Deliver(QObject *Receiver, QEvent *Event);
};
