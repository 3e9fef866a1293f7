// The application of the check: what a game throws in an event handler ends here, and is reported.
#pragma once

#include <QApplication>

#include <functional>

class CheckApplication final : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;
    bool notify(QObject *Receiver, QEvent *Event) override;
    std::function<void(const QString &Description)> Thrown;
};
