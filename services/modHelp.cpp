#include "services/modHelp.h"

#include "platform/Files.h"
#include "platform/Process.h"

namespace modHelp
{
QString HelpFile;

void ShowHelp(QWidget *) { OpenWithDesktop(FindFile(ProgramFolder() + HelpFile)); }
} // namespace modHelp
