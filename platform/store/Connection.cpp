#include "platform/store/Connection.h"

#include "platform/RuntimeError.h"
#include "platform/store/NameOrder.h"
#include "platform/store/Statement.h"

#include <QFile>

#include <sqlite3.h>

#include <memory>
#include <utility>

namespace
{
// Long enough for another program's look into the file, short enough that a locked file fails at once for a person.
constexpr int BusyTimeout = 250; // [ms]

struct Closer
{
    void operator()(sqlite3 *handle) const { sqlite3_close_v2(handle); }
};
using OwnedHandle = std::unique_ptr<sqlite3, Closer>;

OwnedHandle OpenedFile(const QString &path)
{
    sqlite3 *handle = nullptr;
    // One thread comes here, so the engine need not guard each of its calls.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int answer = sqlite3_open_v2(QFile::encodeName(path).constData(), &handle, flags, nullptr);
    OwnedHandle opened(handle); // there is one to close even when opening failed
    if (answer != SQLITE_OK) ThrowStoreFailure(handle);
    return opened;
}

// The columns of names are declared without regard to case; here that means the order of NameOrder. No index depends
// on it, so any other tool reads and writes the file with its own idea of it.
void UseNameOrder(sqlite3 *handle)
{
    const auto compare = [](void *, int sizeA, const void *a, int sizeB, const void *b) {
        return CompareNames(QByteArrayView(static_cast<const char *>(a), sizeA),
                            QByteArrayView(static_cast<const char *>(b), sizeB));
    };
    if (sqlite3_create_collation(handle, "NOCASE", SQLITE_UTF8, nullptr, compare) != SQLITE_OK)
        ThrowStoreFailure(handle);
}

void Prove(sqlite3 *handle)
{
    Statement look(handle, QStringLiteral("select count(*) from sqlite_master"));
    look.Step();
    if (look.Long(0) == 0) throw RuntimeError(QStringLiteral("The file holds no tables."));
}

// By the engine's number. Only the wait for another program leaves a commit as it was; what else goes wrong may have
// ended it.
bool IsKeptOut(const RuntimeError &failure)
{
    constexpr long primaryCode = 0xff;
    return (failure.Number() & primaryCode) == SQLITE_BUSY;
}
} // namespace

Connection::~Connection() { sqlite3_close_v2(m_Handle); }

void Connection::Open(const QString &Path)
{
    OwnedHandle handle = OpenedFile(Path);
    sqlite3_busy_timeout(handle.get(), BusyTimeout);
    // A name that no table has is a failure, not a text that happens to stand in double quotes.
    sqlite3_db_config(handle.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    UseNameOrder(handle.get());
    Prove(handle.get());
    sqlite3_close_v2(std::exchange(m_Handle, handle.release()));
}

bool Connection::IsUndone() const { return m_Depth > 0 && sqlite3_get_autocommit(m_Handle) != 0; }

void Connection::Announce(const QString &Sql, bool Writes)
{
    if (BeforeCall) BeforeCall(Sql);
    if (Writes && IsUndone())
        throw RuntimeError(QStringLiteral("The store has undone the changes that belong to this one."));
}

void Connection::Begin()
{
    if (m_Depth == 0) {
        Execute(m_Handle, "begin immediate");
        m_Doomed = false;
    }
    ++m_Depth;
}

void Connection::Commit()
{
    if (m_Depth == 0) throw RuntimeError(QStringLiteral("Nothing was begun."));
    if (m_Depth > 1) {
        --m_Depth;
        return;
    }
    try {
        Announce(QStringLiteral("commit"), true);
        if (m_Doomed) throw RuntimeError(QStringLiteral("A part of the changes was taken back."));
        Execute(m_Handle, "commit");
        m_Depth = 0;
    } catch (const RuntimeError &failure) {
        if (!IsKeptOut(failure)) Rollback();
        throw;
    } catch (...) {
        Rollback();
        throw;
    }
}

void Connection::Rollback()
{
    m_Doomed = m_Depth > 1;
    if (m_Depth == 0 || --m_Depth > 0) return;
    if (sqlite3_get_autocommit(m_Handle) == 0) sqlite3_exec(m_Handle, "rollback", nullptr, nullptr, nullptr);
}
