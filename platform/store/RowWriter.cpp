#include "platform/store/RowWriter.h"

#include "platform/RuntimeError.h"
#include "platform/store/Connection.h"
#include "platform/store/Statement.h"

using namespace Qt::StringLiterals;

namespace
{
[[noreturn]] void NotWritable() { throw RuntimeError(u"This result set can't be changed."_s); }

QString Quoted(QString name) { return u'"' + name.replace(u'"', u"\"\""_s) + u'"'; }

QString SingleTable(const Statement &select)
{
    QString table;
    for (int column = 0; column < select.ColumnCount(); ++column) {
        const QString name = select.TableName(column);
        if (name.isEmpty() || name == table) continue;
        if (!table.isEmpty()) NotWritable();
        table = name;
    }
    if (table.isEmpty()) NotWritable();
    return table;
}

QStringList KeyColumns(sqlite3 *handle, const QString &table)
{
    Statement columns(handle, u"select name from pragma_table_info(?) where pk > 0"_s);
    columns.Bind(0, table);
    QStringList names;
    while (columns.Step()) names += columns.Text(0);
    return names;
}
} // namespace

RowWriter::RowWriter(Connection &connection, const Statement &Select)
    : m_Connection(&connection), m_Table(SingleTable(Select))
{
    for (int column = 0; column < Select.ColumnCount(); ++column) m_Origins += Select.OriginName(column);
    for (const QString &name : KeyColumns(connection.Handle(), m_Table)) {
        const qsizetype position = m_Origins.indexOf(name);
        if (position < 0) NotWritable();
        m_Key.push_back(static_cast<int>(position));
    }
    if (m_Key.empty()) NotWritable();
}

void RowWriter::CheckWritable(int Position) const
{
    if (m_Origins[Position].isEmpty()) NotWritable();
}

RowValues RowWriter::Insert(const std::vector<SetColumn> &Changes)
{
    QStringList names;
    QStringList markers;
    QVariantList values;
    for (const SetColumn &change : Changes) {
        names += Quoted(m_Origins[change.Position]);
        markers += u"?"_s;
        values += change.Value;
    }
    const QString what = names.isEmpty()
                             ? u" default values"_s
                             : u" ("_s + names.join(u", "_s) + u") values ("_s + markers.join(u", "_s) + u')';
    return Run(u"insert into "_s + Quoted(m_Table) + what + Returning(), values);
}

RowValues RowWriter::Update(const std::vector<SetColumn> &Changes, const RowValues &Before)
{
    QStringList sets;
    QStringList keys;
    QVariantList values;
    for (const SetColumn &change : Changes) {
        sets += Quoted(m_Origins[change.Position]) + u" = ?"_s;
        values += change.Value;
    }
    for (const int position : m_Key) {
        keys += Quoted(m_Origins[position]) + u" is ?"_s;
        values += Before[static_cast<std::size_t>(position)];
    }
    return Run(u"update "_s + Quoted(m_Table) + u" set "_s + sets.join(u", "_s) + u" where "_s +
                   keys.join(u" and "_s) + Returning(),
               values);
}

QString RowWriter::Returning() const
{
    QStringList names;
    for (const QString &origin : m_Origins) names += origin.isEmpty() ? u"null"_s : Quoted(origin);
    return u" returning "_s + names.join(u", "_s);
}

RowValues RowWriter::Run(const QString &Sql, const QVariantList &Values)
{
    Statement statement(m_Connection->Handle(), Sql);
    for (int position = 0; position < Values.size(); ++position) statement.Bind(position, Values[position]);
    m_Connection->Announce(Sql, true);
    if (!statement.Step()) throw RuntimeError(u"The row is no longer in the store."_s);
    RowValues row;
    for (int column = 0; column < statement.ColumnCount(); ++column) row.push_back(statement.Value(column));
    // The write is done at the first row, but it is the last step that commits it.
    while (statement.Step()) {
    }
    return row;
}
