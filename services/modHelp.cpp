#include "services/modHelp.h"

#include "platform/DesktopViewers.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Step.h"
#include "services/HelpWindow.h"

namespace modHelp
{
QString HelpFile;

namespace
{
// Two names of one kind of file.
const QStringList HelpKinds{QStringLiteral("application/vnd.ms-htmlhelp"), QStringLiteral("application/x-chm")};
} // namespace

void ShowHelp(QWidget *)
{
    const QString file = FindFile(ProgramFolder() + HelpFile);
    if (!FileExists(file)) return;
    if (DesktopCanOpen(HelpKinds) && OpenWithDesktop(file, ProgramFolder())) return;
    Step([&] { HelpWindow::Open(file); });
}
} // namespace modHelp
