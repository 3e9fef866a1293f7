// Failures that end in a message: the error trap of a routine. Together with Step, the only place where one ends.
#pragma once

#include <QString>

#include <exception>
#include <utility>

class QWidget;

/// Shows a failure in the message box: Message, and its description in the second line.
void ReportFailure(const QString &Message, const std::exception_ptr &Failure, QWidget *Parent = nullptr);

/// Runs the work; its first failure ends it and is reported. The answer says whether it came through.
template <typename Work>
bool Trapped(const QString &Message, Work &&work, QWidget *Parent = nullptr)
{
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) {
        ReportFailure(Message, std::current_exception(), Parent);
        return false;
    }
}
