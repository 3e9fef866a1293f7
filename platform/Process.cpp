#include "platform/Process.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <cstdlib>

namespace
{
// The desktop's opener takes the working folder of who starts it, and there is no other way to give it one.
class WorkingFolder
{
public:
    explicit WorkingFolder(const QString &folder)
    {
        if (!folder.isEmpty()) QDir::setCurrent(folder);
    }
    ~WorkingFolder() { QDir::setCurrent(m_Before); }
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

private:
    const QString m_Before = QDir::currentPath();
};
} // namespace

void EndProcess(int ExitCode)
{
    // No destructors: whatever loop is running still uses the objects they would take away.
    std::_Exit(ExitCode);
}

bool OpenWithDesktop(const QString &Target, const QString &Folder)
{
    const bool isFile = Target.startsWith(u'/');
    if (isFile && !QFileInfo::exists(Target)) return false;
    const WorkingFolder working(Folder);
    return QDesktopServices::openUrl(isFile ? QUrl::fromLocalFile(Target) : QUrl(Target));
}
