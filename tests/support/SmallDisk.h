// A disk that can be filled up: a small one of its own where mounting is permitted, else a folder of the common one
// and a limit of the process that lets no file be written. What the program meets is the same, a write that fails.
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <csignal>
#include <memory>

class SmallDisk
{
public:
    /// Temporary folders made while it lives are on it.
    explicit SmallDisk(bool MayMount);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool IsMounted() const { return m_IsMounted; }
    /// From now on no file grows; and makes room again.
    void Fill();
    void MakeRoom();

private:
    bool Mount() const;
    QString Ballast() const { return m_Folder->path() + QStringLiteral("/ballast"); }

    std::unique_ptr<QTemporaryDir> m_Folder;
    QByteArray m_TemporaryBefore;
    bool m_IsMounted = false;
    rlimit m_Limit = {};
    void (*m_SignalBefore)(int) = SIG_DFL;
};
