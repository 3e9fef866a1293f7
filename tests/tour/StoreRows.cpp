#include "StoreRows.h"

#include "TourFailure.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/store/Connection.h"
#include "platform/store/Statement.h"

#include <QTextStream>

#include <algorithm>
#include <array>
#include <vector>

namespace
{
struct Table
{
    const char *name;
    std::vector<const char *> columns;
};

const std::array<Table, 6> &Tables()
{
    static const std::array<Table, 6> tables{
        Table{"Player", {"Key", "Name"}},
        Table{"Category", {"Key", "Name"}},
        Table{"Game", {"Key", "Name", "Component", "TimeLimit", "Category"}},
        Table{"GamePlayed",
              {"Key", "Player", "Game", "Timestamp", "Score", "Points", "Time", "Mode", "Level", "Award", "Uploaded",
               "Workout"}},
        Table{"PlayerGame", {"Player", "Game", "Info", "Level", "Awards", "UnspentAwards"}},
        Table{"Workout", {"Key", "Player", "Points", "Status", "Mode", "Timestamp"}},
    };
    return tables;
}

bool IsNumber(const QVariant &value) { return value.typeId() != QMetaType::QString; }

QString Shown(const QString &column, const QVariant &value)
{
    if (value.isNull()) return QStringLiteral("-");
    if (column != u"Timestamp") return value.toString();
    return FromDayCount(value.toDouble()).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

void PrintTable(QTextStream &out, const Table &table)
{
    const QString name = QLatin1String(table.name);
    const auto rows = StoreRows::Select(QStringLiteral("select * from %1 order by 1, 2").arg(name));
    std::vector<QString> lines(rows.size() + 1);
    for (const char *columnName : table.columns) {
        const QString column = QLatin1String(columnName);
        QStringList cells{column};
        bool numbers = column != u"Timestamp";
        for (const QVariantMap &row : rows) {
            const QVariant value = row.value(name + column);
            cells << Shown(column, value);
            numbers = numbers && IsNumber(value);
        }
        qsizetype width = 0;
        for (const QString &cell : cells) width = std::max(width, cell.size());
        for (qsizetype i = 0; i < cells.size(); ++i)
            lines[static_cast<std::size_t>(i)] +=
                QStringLiteral("  ") + (numbers ? cells[i].rightJustified(width) : cells[i].leftJustified(width));
    }
    out << '\n' << name << " (" << rows.size() << (rows.size() == 1 ? " row)\n" : " rows)\n");
    for (const QString &line : lines) out << line << '\n';
}
} // namespace

namespace StoreRows
{
QList<QVariantMap> Select(const QString &Sql, const QVariantList &Params)
{
    Connection connection;
    connection.Open(ProgramFolder() + QStringLiteral("Noggle.mdb"));
    Statement statement(connection.Handle(), Sql);
    for (qsizetype i = 0; i < Params.size(); ++i) statement.Bind(static_cast<int>(i), Params[i]);
    QList<QVariantMap> rows;
    while (statement.Step()) {
        QVariantMap row;
        for (int column = 0; column < statement.ColumnCount(); ++column)
            row.insert(statement.ColumnName(column), statement.Value(column));
        rows << row;
    }
    return rows;
}

QVariantMap SelectOne(const QString &Sql, const QVariantList &Params)
{
    const auto rows = Select(Sql, Params);
    if (rows.size() != 1) throw TourFailure(QStringLiteral("%1 rows instead of one: %2").arg(rows.size()).arg(Sql));
    return rows.front();
}

void Print()
{
    QTextStream out(stdout);
    for (const Table &table : Tables()) PrintTable(out, table);
}
} // namespace StoreRows
