#include "platform/DesktopViewers.h"

#include "platform/Files.h"
#include "platform/Step.h"

#include <QSet>
#include <QStandardPaths>

#include <algorithm>

#ifdef Q_OS_LINUX
namespace
{
QStringList LinesOf(const QString &path)
{
    QByteArray bytes;
    Step([&] { bytes = ReadFile(path); });
    return QString::fromUtf8(bytes).split(u'\n');
}

// The lists in which desktops keep what opens what: the user's, the system's, and the one made of all programs.
QStringList Lists()
{
    QStringList names;
    for (const QString &desktop :
         qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts))
        names << desktop + QStringLiteral("-mimeapps.list");
    names << QStringLiteral("mimeapps.list");
    QStringList lists;
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        for (const QString &name : names) lists << folder + u'/' + name;
    names << QStringLiteral("defaults.list") << QStringLiteral("mimeinfo.cache");
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
        for (const QString &name : names) lists << folder + u'/' + name;
    return lists;
}

bool IsInstalled(const QString &program)
{
    const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, program);
    if (path.isEmpty()) return false;
    for (const QString &line : LinesOf(path)) {
        if (!line.startsWith(u"Exec=")) continue;
        const QString command = line.mid(5).section(u' ', 0, 0).remove(u'"').trimmed();
        return !QStandardPaths::findExecutable(command).isEmpty();
    }
    return false;
}

struct Programs
{
    QStringList Known;
    QSet<QString> Removed; // by the user

    void TakeList(const QString &path, const QStringList &kinds)
    {
        bool removes = false;
        for (const QString &line : LinesOf(path)) {
            if (line.startsWith(u'[')) removes = line.startsWith(u"[Removed");
            if (!kinds.contains(line.section(u'=', 0, 0).trimmed())) continue;
            for (const QString &program : line.section(u'=', 1).trimmed().split(u';', Qt::SkipEmptyParts)) {
                if (removes)
                    Removed.insert(program);
                else
                    Known << program;
            }
        }
    }
};
} // namespace

bool DesktopCanOpen(const QStringList &Kinds)
{
    Programs programs;
    for (const QString &list : Lists()) programs.TakeList(list, Kinds);
    return std::any_of(programs.Known.begin(), programs.Known.end(), [&](const QString &program) {
        return !programs.Removed.contains(program) && IsInstalled(program);
    });
}
#else
bool DesktopCanOpen(const QStringList &) { return true; }
#endif
