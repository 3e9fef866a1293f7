#include "tests/support/SmallDisk.h"

#include <QFile>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>

SmallDisk::SmallDisk(bool MayMount)
    : m_Folder(std::make_unique<QTemporaryDir>()), m_TemporaryBefore(qgetenv("TMPDIR"))
{
    m_IsMounted = MayMount && Mount();
    getrlimit(RLIMIT_FSIZE, &m_Limit);
    m_SignalBefore = std::signal(SIGXFSZ, SIG_IGN); // a write beyond the limit fails instead of killing
    qputenv("TMPDIR", m_Folder->path().toUtf8());
}

SmallDisk::~SmallDisk()
{
    MakeRoom();
    if (m_TemporaryBefore.isEmpty())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", m_TemporaryBefore);
    std::signal(SIGXFSZ, m_SignalBefore);
    if (m_IsMounted) umount2(m_Folder->path().toUtf8().constData(), MNT_DETACH);
}

// In a mount table of this process alone, so that a test that crashes leaves nothing mounted.
bool SmallDisk::Mount() const
{
    const QByteArray path = m_Folder->path().toUtf8();
    if (unshare(CLONE_NEWNS) != 0) return false;
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
    return mount("tmpfs", path.constData(), "tmpfs", 0, "size=12m,mode=0755") == 0;
}

void SmallDisk::Fill()
{
    if (!m_IsMounted) {
        const rlimit none{0, m_Limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
        return;
    }
    const int file = open(Ballast().toUtf8().constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const std::array<char, 4096> block{};
    while (write(file, block.data(), block.size()) > 0) {
    }
    close(file);
}

void SmallDisk::MakeRoom()
{
    if (m_IsMounted)
        QFile::remove(Ballast());
    else
        setrlimit(RLIMIT_FSIZE, &m_Limit);
}
