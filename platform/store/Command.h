// One statement with its "?" markers, run once. Values are bound by position and never become part of the text.
#pragma once

#include "platform/store/Recordset.h"

#include <QString>
#include <QVariant>

#include <memory>

class Command
{
public:
    /// Prepares the statement. Failure: passed on.
    Command(Connection &connection, const QString &Sql);
    ~Command();
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    int ParameterCount() const { return m_ParameterCount; }
    /// Failure: passed on; the position counts from 0.
    void Bind(int Position, const QVariant &Value);
    /// Runs the statement; the set stands on its first row. The command is used up. Failure: passed on.
    std::unique_ptr<Recordset> Open();

private:
    Statement &Prepared();

    Connection *m_Connection;
    std::unique_ptr<Statement> m_Statement;
    int m_ParameterCount;
};
