// The rows of an open result set: where it stands, what is kept of it, what was set and not yet written. Only for
// Recordset and Command.
#pragma once

#include "platform/store/Recordset.h"
#include "platform/store/RowWriter.h"
#include "platform/store/Statement.h"

#include <deque>
#include <optional>
#include <vector>

class Recordset::Rows
{
public:
    /// Runs the statement and stands on its first row. Failure: passed on.
    Rows(Connection &connection, std::unique_ptr<Statement> select);

    bool IsBehind() const { return m_Where == Behind; }
    int Column(QStringView name) const;
    /// The value of a column that was set, or of a row that is kept; empty when it is the statement's to answer.
    /// Failure: passed on, when there is no row or no such column.
    const QVariant *KeptValue(int position) const;
    const Statement &Live() const { return *m_Select; }
    /// True when every column of the present row is the statement's to answer: what a walk over a long list asks.
    bool IsLive(int position) const
    {
        return m_Where == OnStatement && m_Changes.empty() && position >= 0 &&
               static_cast<std::size_t>(position) < m_Names.size();
    }

    void Next();
    void Last();
    void AddNew();
    void Set(int position, const QVariant &value);
    void WriteChanges();

private:
    // On a row of the statement, on a row kept in memory, on a row being added, or on none.
    enum Place { OnStatement, OnKept, OnNew, Behind };

    RowWriter &Writer();
    void Settle();
    void TakeAhead();
    RowValues PresentRow() const;

    Connection *m_Connection;
    std::unique_ptr<Statement> m_Select;
    Place m_Where;
    std::vector<QString> m_Names;
    mutable std::size_t m_LastAsked = 0;
    RowValues m_Present;           // the row kept or being added
    std::deque<RowValues> m_Ahead; // the rows behind it, once they were read
    std::vector<SetColumn> m_Changes;
    std::optional<RowWriter> m_Writer;
};
