#include "platform/store/Command.h"

#include "platform/RuntimeError.h"
#include "platform/store/Connection.h"
#include "platform/store/RecordsetRows.h"

Command::Command(Connection &connection, const QString &Sql)
    : m_Connection(&connection),
      m_Statement(std::make_unique<Statement>(connection.Handle(), Sql)),
      m_ParameterCount(m_Statement->ParameterCount())
{}

Command::~Command() = default;

Statement &Command::Prepared()
{
    if (!m_Statement) throw RuntimeError(QStringLiteral("A command runs once."));
    return *m_Statement;
}

void Command::Bind(int Position, const QVariant &Value) { Prepared().Bind(Position, Value); }

std::unique_ptr<Recordset> Command::Open()
{
    const Statement &statement = Prepared();
    m_Connection->Announce(statement.Sql(), statement.Writes());
    auto rows = std::make_unique<Recordset::Rows>(*m_Connection, std::move(m_Statement));
    return std::unique_ptr<Recordset>(new Recordset(std::move(rows)));
}
