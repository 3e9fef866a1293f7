#include "tests/support/TestFolder.h"

#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

TestFolder::TestFolder() { SetProgramFolder(Path()); }

TestFolder::~TestFolder() { SetProgramFolder({}); }

QString TestFolder::Write(const QString &Name, const QByteArray &Bytes) const
{
    QString path = Path() + Name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(Bytes) != Bytes.size())
        qFatal("%s can't be written", qPrintable(path));
    return path;
}

QByteArray TestFolder::Read(const QString &Name) const { return ReadFile(Path() + Name); }

bool TestFolder::Exists(const QString &Name) const { return QFileInfo::exists(Path() + Name); }

QString TestFolder::Copy(const QString &Source, const QString &Name) const { return Write(Name, ReadFile(Source)); }
