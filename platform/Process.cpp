#include "platform/Process.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include <cstdlib>

void EndProcess(int ExitCode)
{
    // No destructors: whatever loop is running still uses the objects they would take away.
    std::_Exit(ExitCode);
}

bool OpenWithDesktop(const QString &Target)
{
    const bool isFile = Target.startsWith(u'/');
    if (isFile && !QFileInfo::exists(Target)) return false;
    return QDesktopServices::openUrl(isFile ? QUrl::fromLocalFile(Target) : QUrl(Target));
}
