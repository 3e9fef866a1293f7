// What every record does with its row: the one way to save it, and reading columns that may be null.
#pragma once

#include "domain/Store.h"
#include "platform/RuntimeError.h"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <initializer_list>

struct ColumnValue
{
    QStringView Column;
    QVariant Value;
};

/// Writes a record into the row that Sql selects by Keys, or into a new row when there is none.
/// Failure: passed on.
void SaveRow(const QString &Sql, const QVariantList &Keys, std::initializer_list<ColumnValue> Values);

/// The same for a table whose keys the store gives. A record without a key, 0, gets the one of its new row. A record
/// whose row has gone gets a new row under another key and keeps the old one in Key, so the next save adds again.
/// Failure: passed on, with Key as it was.
void SaveKeyedRow(const QString &Sql, std::int32_t &Key, QStringView KeyColumn,
                  std::initializer_list<ColumnValue> Values);

/// A column that may be null, by name or position: its value, or Default.
/// Failure: passed on, for a value that does not fit or is of another kind.
template <typename Column>
std::int32_t LongOr(const Recordset &Row, Column At, std::int32_t Default)
{
    return LongOf(modMain::NullDefault(Row.Value(At), Default));
}
template <typename Column>
bool FlagOr(const Recordset &Row, Column At, bool Default)
{
    return FlagOf(modMain::NullDefault(Row.Value(At), Default));
}
template <typename Column>
QString TextOr(const Recordset &Row, Column At, const QString &Default)
{
    return TextOf(modMain::NullDefault(Row.Value(At), Default));
}

/// What a reference holds. Failure: passed on, when it is empty.
template <typename Pointer>
auto &Held(const Pointer &Reference)
{
    if (!Reference) throw RuntimeError(91, {}, QStringLiteral("Object variable not set."));
    return *Reference;
}
