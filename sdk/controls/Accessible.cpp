#include "sdk/controls/Accessible.h"

#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVariant>

namespace
{
QAccessible::Role RoleOf(const QObject *Control)
{
    if (const auto *box = qobject_cast<const PictureBox *>(Control))
        return box->focusPolicy() != Qt::NoFocus ? QAccessible::Button
               : box->accessibleName().isEmpty() ? QAccessible::Client // a ground for other controls
                                                 : QAccessible::Graphic;
    if (const auto *picture = qobject_cast<const cTransPictureBox *>(Control))
        return picture->Caption().isEmpty() ? QAccessible::Graphic : QAccessible::StaticText;
    const auto *label = qobject_cast<const TransLabel *>(Control);
    return label != nullptr && label->focusPolicy() != Qt::NoFocus ? QAccessible::Link : QAccessible::StaticText;
}

const char *const SelectedProperty = "Selected"; // set on those that are chosen among several

class ControlInterface final : public QAccessibleWidget
{
public:
    explicit ControlInterface(QWidget *Control) : QAccessibleWidget(Control) {}

    QAccessible::Role role() const override { return RoleOf(object()); }
    QAccessible::State state() const override
    {
        QAccessible::State told = QAccessibleWidget::state();
        const QVariant selected = object()->property(SelectedProperty);
        told.selectable = selected.isValid();
        told.selected = selected.toBool();
        return told;
    }
};

// Asked by Qt for each class of an object, most derived first.
QAccessibleInterface *InterfaceFor(const QString &ClassName, QObject *Object)
{
    const bool ours = ClassName == QLatin1String("TransLabel") || ClassName == QLatin1String("PictureBox");
    auto *widget = ours ? qobject_cast<QWidget *>(Object) : nullptr;
    return widget == nullptr ? nullptr : new ControlInterface(widget);
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

void Accessible::TellSelected(QWidget *Box, bool Selected)
{
    if (Box->property(SelectedProperty) == Selected) return;
    Box->setProperty(SelectedProperty, Selected);
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent told(Box, changed);
    QAccessible::updateAccessibility(&told);
}
