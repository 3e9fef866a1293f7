#include "sdk/controls/Accessible.h"

#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace
{
QAccessible::Role RoleOf(const QObject *Control)
{
    if (const auto *box = qobject_cast<const PictureBox *>(Control))
        return box->focusPolicy() == Qt::NoFocus ? QAccessible::Graphic : QAccessible::Button;
    if (const auto *picture = qobject_cast<const cTransPictureBox *>(Control))
        return picture->Caption().isEmpty() ? QAccessible::Graphic : QAccessible::StaticText;
    return QAccessible::StaticText;
}

// Asked by Qt for each class of an object, most derived first.
QAccessibleInterface *InterfaceFor(const QString &ClassName, QObject *Object)
{
    const bool ours = ClassName == QLatin1String("TransLabel") || ClassName == QLatin1String("PictureBox");
    auto *widget = ours ? qobject_cast<QWidget *>(Object) : nullptr;
    return widget == nullptr ? nullptr : new QAccessibleWidget(widget, RoleOf(Object));
}
} // namespace

void Accessible::TellRoles()
{
    static const bool told = [] {
        QAccessible::installFactory(&InterfaceFor);
        return true;
    }();
    Q_UNUSED(told);
}
