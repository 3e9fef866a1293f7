// The rows of the store, read as another program would: through a connection of its own, so that only what has been
// committed is seen.
#pragma once

#include <QList>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

namespace StoreRows
{
/// The rows of a statement, each by column. Failure: passed on.
QList<QVariantMap> Select(const QString &Sql, const QVariantList &Params = {});
/// The only row of a statement. Failure: passed on, when there is another number of them.
QVariantMap SelectOne(const QString &Sql, const QVariantList &Params = {});
/// Prints all rows of the six tables, aligned. Failure: passed on.
void Print();
} // namespace StoreRows
