#include "shell/program/Trapped.h"

#include "platform/RuntimeError.h"
#include "sdk/CNoggleFramework.h"
#include "shell/program/modMain.h"

void ReportFailure(const QString &Message, const std::exception_ptr &Failure, QWidget *Parent)
{
    if (modMain::Framework) modMain::Framework->ShowError(Message, DescriptionOf(Failure), Parent);
}
