#include "skin/PanelSurface.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace
{
// A copy is called, since what it belongs to may be gone before it returns.
template <typename... Told>
void Report(std::function<void(Told...)> report, Told... told)
{
    const auto call = std::move(report);
    if (call) call(told...);
}

// To a screen reader the normal surface of a row is the button; the two that are shown over it are its looks.
class RowInterface final : public QAccessibleWidget
{
public:
    explicit RowInterface(QWidget *Surface) : QAccessibleWidget(Surface) {}

    QAccessible::Role role() const override
    {
        return IsRow() ? QAccessible::Button : IsPanel() ? QAccessible::Pane : QAccessible::Graphic;
    }
    QAccessible::State state() const override
    {
        QAccessible::State told = QAccessibleWidget::state();
        if (!IsRow() && !IsPanel()) told.invisible = true;
        if (!IsRow()) return told;
        const QString selected = QStringLiteral("picSelected") + Name().mid(RowName.size());
        const auto surfaces = object()->parent()->findChildren<QWidget *>(selected, Qt::FindDirectChildrenOnly);
        told.selectable = true;
        told.selected =
            std::any_of(surfaces.begin(), surfaces.end(), [](const QWidget *one) { return one->isVisible(); });
        return told;
    }

private:
    static constexpr QStringView RowName = u"picNormal";
    QString Name() const { return object()->objectName(); }
    bool IsRow() const { return Name().startsWith(RowName); }
    bool IsPanel() const { return Name() == u"picPanel"; }
};

QAccessibleInterface *InterfaceFor(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (className == QLatin1String("PanelSurface")) return new RowInterface(widget);
    if (className == QLatin1String("ctlButtonPanel")) return new QAccessibleWidget(widget, QAccessible::Grouping);
    return nullptr;
}
} // namespace

PanelSurface::PanelSurface(QWidget *Panel) : QWidget(Panel)
{
    [[maybe_unused]] static const bool told = [] {
        QAccessible::installFactory(&InterfaceFor);
        return true;
    }();
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PanelSurface::SetImage(const QImage &Image)
{
    m_Image = Image;
    update();
}

void PanelSurface::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Where the surface ends within a device pixel, at fractional scales of the screen, the picture leaves that pixel
    // out: it gets the colour beside it.
    const bool isEmpty = m_Image.isNull();
    painter.fillRect(rect().adjusted(0, 0, 1, 1),
                     isEmpty ? QColor(Qt::white) : m_Image.pixelColor(0, m_Image.height() - 1));
    if (!isEmpty) painter.drawImage(rect(), m_Image);
}

void PanelSurface::enterEvent(QEnterEvent *) { Report(Moved); }
void PanelSurface::leaveEvent(QEvent *) { Report(Left); }
void PanelSurface::mouseMoveEvent(QMouseEvent *) { Report(Moved); }
void PanelSurface::mousePressEvent(QMouseEvent *) { Report(Pressed, false); }
void PanelSurface::mouseDoubleClickEvent(QMouseEvent *) { Report(Pressed, true); }
void PanelSurface::mouseReleaseEvent(QMouseEvent *) {} // nor does the window beneath get it
