// The connection to a store file. The file is opened for reading and writing and is never created; what opens is
// proved by one read, since a file that is locked or no store at all would fail only at its first statement.
// Rollback journal and full synchronisation are left at their defaults: a commit that was answered is on the disk.
#pragma once

#include <QString>

#include <functional>

struct sqlite3;

class Connection
{
public:
    Connection() = default;
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Failure: passed on, with the engine's description; a file without a table is one.
    void Open(const QString &Path);
    bool IsOpen() const { return m_Handle != nullptr; }
    sqlite3 *Handle() const { return m_Handle; }

    /// Several statements as one commit. Begin takes the write lock at once; calls nest, and the outermost Commit
    /// writes. Failure: passed on. A Commit that another program's reading keeps out leaves everything begun and may
    /// be called again; any other that fails has rolled back.
    void Begin();
    void Commit();
    bool IsBegun() const { return m_Depth > 0; }
    /// Undoes everything since the outermost Begin: at once there, else when it is reached, whose Commit fails then.
    /// Failure: none.
    void Rollback();

    /// For tests: called before each statement that is opened or written, and before a commit, with its text; may
    /// throw.
    std::function<void(const QString &)> BeforeCall;

    /// What every statement says before it runs. Failure: passed on, from BeforeCall, and for a statement that writes
    /// when the engine itself has undone what was begun (a full disk can do that): the rest must not stand alone.
    void Announce(const QString &Sql, bool Writes);

private:
    bool IsUndone() const;

    sqlite3 *m_Handle = nullptr;
    int m_Depth = 0;
    bool m_Doomed = false;
};
