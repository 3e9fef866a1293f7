// The store: one connection, opened at the first statement and kept until the process ends, and the one routine that
// runs a statement. Only records and their collections come here.
#pragma once

#include "platform/store/Connection.h"
#include "platform/store/Recordset.h"

#include <QVariantList>

#include <functional>
#include <memory>
#include <optional>

namespace modMain
{
/// Opens "Noggle.mdb" in the program's folder on the first call. Failure: fatal; the message "Could not open
/// database, program exiting." and the process ends.
Connection &GetConnection();

/// Runs a statement. Params: a value for each "?" marker, or nothing when the statement has none. The set stands on
/// its first row. Empty when the number of values is not that of the markers. Failure: passed on.
std::unique_ptr<Recordset> GetRecordset(const QString &Sql, const std::optional<QVariantList> &Params = std::nullopt);

/// Value, or Default when Value is null.
QVariant NullDefault(const QVariant &Value, const QVariant &Default);

/// Runs work whose writes belong together as one commit. When the store can't begin one, the work runs all the same
/// and each write stands alone. Failure of the work: passed on, what it wrote before is kept. Failure of the commit:
/// trapped, with the message. One that was kept out by another program's reading is tried once more after the
/// message; else nothing of the work is in the store, and forget is called: what memory got of it has to go, since
/// the store will give the same keys to other rows. Failure of forget: ignored.
void OneCommit(const QString &Message, const std::function<void()> &work, const std::function<void()> &forget = {});

/// Drops the connection, so that the next statement opens the file of the present program's folder. For tests.
void ForgetConnection();
} // namespace modMain

/// The set itself. Failure: passed on, when it is empty: what a first access to an empty reference is.
Recordset &Rows(const std::unique_ptr<Recordset> &Set);
