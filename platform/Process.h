// Ending the process, and asking the desktop to open something.
#pragma once

#include <QString>

/// Ends the process at once, whatever loops are running; nothing is written any more.
[[noreturn]] void EndProcess(int ExitCode);

/// Asks the desktop to open an address or a file with its default handler, which starts in the folder given, else in
/// that of this process.
/// Answer: false when it has none; nothing else happens then.
bool OpenWithDesktop(const QString &Target, const QString &Folder = {});
