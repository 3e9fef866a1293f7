#include "services/IniFiles.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QFile>
#include <QHash>

#include <sys/stat.h>

#include <cerrno>
#include <compare>
#include <ctime>
#include <optional>

namespace
{
constexpr qint64 LargestFile = 1 << 20; // [bytes]
constexpr qsizetype MostKept = 4096;    // files
// File times move in steps of up to 10 ms. A file younger than this may change again without a new time.
constexpr qint64 SettlingTime = 20'000'000; // [ns]

qint64 Nanoseconds(const timespec &Time) { return qint64{Time.tv_sec} * 1'000'000'000 + Time.tv_nsec; }

struct Identity
{
    quint64 device = 0, inode = 0;
    qint64 size = -1, changed = 0; // [bytes], [ns]
    friend bool operator==(const Identity &, const Identity &) = default;
};

struct Kept
{
    Identity identity;
    qint64 since = 0; // [ns]
    IniText text;
};

QHash<QString, Kept> &KeptFiles()
{
    static QHash<QString, Kept> files;
    return files;
}

[[noreturn]] void Fail(const QString &Path, QLatin1StringView Reason)
{
    throw RuntimeError(QStringLiteral("%1: %2").arg(Path, Reason));
}

// Empty when there is no such file.
std::optional<Identity> IdentityOf(const QString &Path)
{
    struct stat status = {};
    if (Path.isEmpty() || Path.contains(QChar::Null)) return {};
    if (stat(QFile::encodeName(Path).constData(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return {};
        Fail(Path, QLatin1StringView("can't be reached"));
    }
    // A pipe would never end, and a folder never begin.
    if (!S_ISREG(status.st_mode)) Fail(Path, QLatin1StringView("is no plain file"));
    return Identity{status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim)};
}

qint64 WallClock()
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return Nanoseconds(now);
}

const IniText &Keep(const QString &Path, const Identity &identity, qint64 since, const IniText &text)
{
    if (KeptFiles().size() >= MostKept) KeptFiles().clear();
    return KeptFiles().insert(Path, {identity, since, text})->text;
}

bool IsUtf16(const QByteArray &Bytes) { return Bytes.startsWith("\xFF\xFE") || Bytes.startsWith("\xFE\xFF"); }
} // namespace

const IniText *IniFiles::Find(const QString &Path)
{
    const std::optional<Identity> identity = IdentityOf(Path);
    if (!identity) return nullptr;
    const auto known = KeptFiles().constFind(Path);
    if (known != KeptFiles().constEnd() && known->identity == *identity &&
        known->since - identity->changed > SettlingTime)
        return &known->text;

    if (identity->size > LargestFile) Fail(Path, QLatin1StringView("is too large"));
    const qint64 since = WallClock();
    const QByteArray bytes = ReadFile(Path);
    if (IsUtf16(bytes)) Fail(Path, QLatin1StringView("is written in 16-bit characters"));
    return &Keep(Path, *identity, since, IniText(bytes));
}

const IniText &IniFiles::Text(const QString &Path)
{
    static const IniText Nothing;
    const IniText *const found = Find(Path);
    return found == nullptr ? Nothing : *found;
}
