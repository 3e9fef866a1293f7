// A real store for a test: a copy of the delivered, empty one in a program's folder of its own.
#pragma once

#include "tests/support/TestFolder.h"

#include <QString>
#include <QVariantList>

#include <functional>

class TestStore
{
public:
    /// Makes the folder with the store in it; the next statement of the program opens that one.
    TestStore();
    ~TestStore();
    TestStore(const TestStore &) = delete;
    TestStore &operator=(const TestStore &) = delete;

    const TestFolder &Folder() const { return m_Folder; }
    QString Path() const { return m_Folder.Path() + QStringLiteral("Noggle.mdb"); }

    /// What stands in the store, read through a connection of its own: rows joined by newlines, values by "|", a null
    /// as "null". For statements of tests alone; also for those that write.
    QString Ask(const QString &Sql, const QVariantList &Params = {}) const;

    /// Lets the n-th call from now fail, counting from 1, with the description "Made to fail."; 0 for none.
    void FailAtCall(int Number);
    /// True when the call that was to fail came.
    bool HasFailed() const { return m_HasFailed; }
    /// How many calls have come since FailAtCall, which also may be told that none is to fail.
    int Calls() const { return m_Calls; }

private:
    TestFolder m_Folder;
    int m_FailAt = 0;
    int m_Calls = 0;
    bool m_HasFailed = false;
};

/// Puts a copy of the delivered store at a path.
void CopyDeliveredStore(const QString &Path);
