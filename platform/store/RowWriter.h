// Writes rows of a result set back into the one table that its columns come from. The only place where a statement
// that inserts or updates is put together; values are bound, names come from the table itself.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

class Connection;
class Statement;

using RowValues = std::vector<QVariant>;

// What was set in a row and not yet written: a column's position and its new value, in the order of setting.
struct SetColumn
{
    int Position;
    QVariant Value;
};

class RowWriter
{
public:
    /// Failure: passed on, for a set whose columns don't come from one table, or that lacks its primary key.
    RowWriter(Connection &connection, const Statement &Select);

    /// Failure: passed on, for a column that is computed.
    void CheckWritable(int Position) const;
    /// Both answer the row as the store holds it afterwards. Failure: passed on; nothing is written then.
    RowValues Insert(const std::vector<SetColumn> &Changes);
    RowValues Update(const std::vector<SetColumn> &Changes, const RowValues &Before);

private:
    RowValues Run(const QString &Sql, const QVariantList &Values);
    QString Returning() const;

    Connection *m_Connection;
    QString m_Table;
    QStringList m_Origins;  // of every column of the set; empty for a computed one
    std::vector<int> m_Key; // positions of the primary key's columns
};
