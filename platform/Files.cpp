#include "platform/Files.h"

#include "platform/RuntimeError.h"
#include "platform/Step.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>

namespace
{
QString &SetFolder()
{
    static QString folder;
    return folder;
}

[[noreturn]] void FailWith(const QFileDevice &file)
{
    throw RuntimeError(file.error(), {}, QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
}
} // namespace

QString ProgramFolder()
{
    return SetFolder().isEmpty() ? QCoreApplication::applicationDirPath() + u'/' : SetFolder();
}

void SetProgramFolder(const QString &Path)
{
    SetFolder() = Path.isEmpty() || Path.endsWith(u'/') ? Path : Path + u'/';
}

bool FileExists(const QString &Path)
{
    if (Path.isEmpty() || Path.contains(QChar::Null)) return false;
    // The system is asked itself: to QFileInfo, what lies in a folder that can't be entered exists.
    bool isThere = false;
    Step([&] {
        const auto status = std::filesystem::status(QFileInfo(Path).filesystemFilePath());
        isThere = std::filesystem::exists(status) && !std::filesystem::is_directory(status);
    });
    return isThere;
}

// From the end, since most of a path is there as it is spelt: the folder is looked for first, then its entry.
QString FindFile(const QString &Path)
{
    if (QFileInfo::exists(Path)) return Path;
    qsizetype end = Path.size();
    while (end > 0 && Path[end - 1] == u'/') --end;
    if (end == 0) return Path;
    const qsizetype begin = Path.lastIndexOf(u'/', end - 1) + 1;
    const QStringView name = QStringView(Path).sliced(begin, end - begin);
    const QString folder = begin == 0 ? QString() : FindFile(Path.left(begin));
    const QStringList entries = SortedEntriesOf(folder.isEmpty() ? QStringLiteral("./") : folder);
    const auto match = std::find_if(entries.begin(), entries.end(), [&](const QString &entry) {
        return entry.compare(name, Qt::CaseInsensitive) == 0;
    });
    return match == entries.end() ? Path : folder + *match + Path.sliced(end);
}

QStringList EntriesOf(const QString &Folder)
{
    return QDir(Folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Unsorted);
}

QStringList SortedEntriesOf(const QString &Folder)
{
    QStringList entries = EntriesOf(Folder);
    std::sort(entries.begin(), entries.end(), [](const QString &a, const QString &b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return entries;
}

QByteArray ReadFile(const QString &Path)
{
    QFile file(Path);
    if (!file.open(QIODevice::ReadOnly)) FailWith(file);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) FailWith(file);
    return bytes;
}

void ReplaceFile(const QString &Path, const QByteArray &Bytes)
{
    QSaveFile file(Path);
    if (!file.open(QIODevice::WriteOnly)) FailWith(file);
    // Flushed by hand, since a commit does not notice what its own flush could not write: on a full disk an empty
    // file would take the place of the good one.
    if (file.write(Bytes) != Bytes.size() || !file.flush() || !file.commit()) FailWith(file);
}
