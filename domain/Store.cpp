#include "domain/Store.h"

#include "platform/Files.h"
#include "platform/PlainBox.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "platform/store/Command.h"
#include "sdk/CNoggleFramework.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include <utility>

namespace modMain
{
namespace
{
std::unique_ptr<Connection> theConnection;

// Nothing works without the store, so this failure ends here, and with it the process: no closing question, and no
// settings are written.
[[noreturn]] void GiveUp(const std::exception_ptr &failure)
{
    const QString message = QStringLiteral("Could not open database, program exiting.");
    if (Framework)
        Step([&] { ReportFailure(message, failure); });
    else
        Step([&] { ShowPlainBox(message + QStringLiteral("\r\n") + DescriptionOf(failure)); });
    EndProcess(1);
}

std::unique_ptr<Connection> OpenedStore()
{
    try {
        auto connection = std::make_unique<Connection>();
        connection->Open(ProgramFolder() + QStringLiteral("Noggle.mdb"));
        return connection;
    } catch (...) {
        GiveUp(std::current_exception());
    }
}

// Who kept the commit out may be through, or closed, once the player has answered the message.
bool IsCommitted(const QString &message)
{
    Connection &store = GetConnection();
    if (Trapped(message, [&] { store.Commit(); })) return true;
    if (store.IsBegun() && Step([&] { store.Commit(); })) return true;
    store.Rollback();
    return false;
}
} // namespace

Connection &GetConnection()
{
    if (!theConnection) theConnection = OpenedStore();
    return *theConnection;
}

void ForgetConnection() { theConnection.reset(); }

std::unique_ptr<Recordset> GetRecordset(const QString &Sql, const std::optional<QVariantList> &Params)
{
    Command command(GetConnection(), Sql);
    if (!Params && command.ParameterCount() > 0)
        throw RuntimeError(QStringLiteral("The statement has markers and was given no values."));
    if (Params && Params->size() != command.ParameterCount()) return nullptr;
    if (Params)
        for (int position = 0; position < command.ParameterCount(); ++position)
            command.Bind(position, Params->at(position));
    return command.Open();
}

QVariant NullDefault(const QVariant &Value, const QVariant &Default) { return Value.isNull() ? Default : Value; }

void OneCommit(const QString &Message, const std::function<void()> &work, const std::function<void()> &forget)
{
    const bool isBegun = Step([] { GetConnection().Begin(); });
    const auto commit = [&] {
        if (isBegun && !IsCommitted(Message) && forget) Step(forget);
    };
    try {
        work();
    } catch (...) {
        commit(); // what was written before the failure stands, as it would have without this routine
        throw;
    }
    commit();
}
} // namespace modMain

Recordset &Rows(const std::unique_ptr<Recordset> &Set)
{
    if (!Set) throw RuntimeError(91, {}, QStringLiteral("The result set is empty: wrong number of values."));
    return *Set;
}
