#include "tests/support/TestStore.h"

#include "domain/Store.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/store/Command.h"

#include <QFile>
#include <QStringList>

namespace
{
QString AsText(const QVariant &value) { return value.isValid() ? value.toString() : QStringLiteral("null"); }

QString RowText(const Recordset &rows, int columns)
{
    QStringList values;
    for (int column = 0; column < columns; ++column) values += AsText(rows.Value(column));
    return values.join(u'|');
}
} // namespace

void CopyDeliveredStore(const QString &Path)
{
    QFile::remove(Path);
    if (!QFile::copy(QStringLiteral(NOGGLE_STORE), Path)) qFatal("%s can't be written", qPrintable(Path));
    QFile::setPermissions(Path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
}

TestStore::TestStore()
{
    CopyDeliveredStore(Path());
    modMain::ForgetConnection();
}

TestStore::~TestStore() { modMain::ForgetConnection(); }

QString TestStore::Ask(const QString &Sql, const QVariantList &Params) const
{
    Connection connection;
    connection.Open(Path());
    Command command(connection, Sql);
    for (int position = 0; position < Params.size(); ++position) command.Bind(position, Params[position]);
    const auto rows = command.Open();
    QStringList lines;
    for (; !rows->Eof(); rows->MoveNext()) lines += RowText(*rows, rows->ColumnCount());
    return lines.join(u'\n');
}

void TestStore::FailAtCall(int Number)
{
    m_FailAt = Number;
    m_Calls = 0;
    m_HasFailed = false;
    modMain::GetConnection().BeforeCall = [this](const QString &) {
        if (++m_Calls != m_FailAt) return;
        m_HasFailed = true;
        throw RuntimeError(QStringLiteral("Made to fail."));
    };
}
