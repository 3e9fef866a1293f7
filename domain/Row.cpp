#include "domain/Row.h"

namespace
{
// The set stands on the row that takes the values, whether it was there or not. What the row holds already is not set
// again: a row without changes is not written, and a start that finds every game as it was has nothing to commit,
// which spares it several waits for the disk.
std::unique_ptr<Recordset> FilledRow(const QString &Sql, const QVariantList &Keys,
                                     std::initializer_list<ColumnValue> Values)
{
    auto set = modMain::GetRecordset(Sql, Keys);
    Recordset &row = Rows(set);
    const bool isNew = row.Eof();
    if (isNew) row.AddNew();
    for (const auto &[column, value] : Values)
        if (isNew || row.Value(column) != value) row.SetValue(column, value);
    return set;
}
} // namespace

void SaveRow(const QString &Sql, const QVariantList &Keys, std::initializer_list<ColumnValue> Values)
{
    FilledRow(Sql, Keys, Values)->Update();
}

void SaveKeyedRow(const QString &Sql, std::int32_t &Key, QStringView KeyColumn,
                  std::initializer_list<ColumnValue> Values)
{
    const auto row = FilledRow(Sql, {Key}, Values);
    if (Key != 0) return row->Update();
    row->MoveLast();
    Key = row->Long(KeyColumn);
}
