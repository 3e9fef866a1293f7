// The help command.
#pragma once

#include <QString>

class QWidget;

namespace modHelp
{
/// The name of the help file in the program's folder.
extern QString HelpFile;

/// Opens the help file on its first page, with the desktop's viewer. A missing file changes nothing.
void ShowHelp(QWidget *Form);
} // namespace modHelp
