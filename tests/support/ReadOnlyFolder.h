// Makes a folder one that nothing can be written into, for the life of the object. Root may write everywhere, so a
// test run by root steps down to a user without rights for that time.
#pragma once

#include <QFile>
#include <QString>

#include <unistd.h>

class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString &Path) : m_Path(Path), m_Before(QFile::permissions(Path))
    {
        using enum QFileDevice::Permission;
        QFile::setPermissions(m_Path, ReadOwner | ExeOwner | ReadGroup | ExeGroup | ReadOther | ExeOther);
        if (m_WasRoot) m_HasSteppedDown = seteuid(Nobody) == 0;
    }
    ~ReadOnlyFolder()
    {
        if (m_HasSteppedDown && seteuid(0) != 0) qFatal("root's rights did not come back");
        QFile::setPermissions(m_Path, m_Before);
    }
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

    /// False where root can't step down: then the test has nothing to see.
    bool IsInForce() const { return !m_WasRoot || m_HasSteppedDown; }

private:
    static constexpr uid_t Nobody = 65534;
    QString m_Path;
    QFile::Permissions m_Before;
    bool m_WasRoot = geteuid() == 0;
    bool m_HasSteppedDown = false;
};
