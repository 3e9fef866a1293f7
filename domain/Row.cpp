#include "domain/Row.h"

namespace
{
// The set stands on the row that takes the values, whether it was there or not.
std::unique_ptr<Recordset> FilledRow(const QString &Sql, const QVariantList &Keys,
                                     std::initializer_list<ColumnValue> Values)
{
    auto set = modMain::GetRecordset(Sql, Keys);
    Recordset &row = Rows(set);
    if (row.Eof()) row.AddNew();
    for (const auto &[column, value] : Values) row.SetValue(column, value);
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
