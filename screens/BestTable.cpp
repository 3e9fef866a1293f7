#include "screens/BestTable.h"

#include "screens/FocusMark.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace
{
QAccessibleInterface *InterfaceFor(const QString &className, QObject *object)
{
    auto *table = className == QLatin1String("BestTable") ? qobject_cast<QWidget *>(object) : nullptr;
    return table == nullptr ? nullptr : new QAccessibleWidget(table, QAccessible::Grouping);
}
} // namespace

BestTable::BestTable(QWidget *Screen) : QWidget(Screen)
{
    static const bool told = [] {
        QAccessible::installFactory(&InterfaceFor);
        return true;
    }();
    Q_UNUSED(told);
    setFocusPolicy(Qt::StrongFocus);
    new FocusMark(this);
}

void BestTable::SetRows(const QStringList &Rows) { setAccessibleDescription(Rows.join(QStringLiteral("; "))); }
