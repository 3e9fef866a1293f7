// The help command.
#pragma once

#include <QString>

class QWidget;

namespace modHelp
{
/// The name of the help file in the program's folder.
extern QString HelpFile;

/// Opens the help file on its first page: with the desktop's viewer, and where it has none for such files, in a
/// window of our own. Nothing is paused by it. Failure: none; a file that is missing or can't be read changes nothing
/// and says nothing.
void ShowHelp(QWidget *Form);
} // namespace modHelp
