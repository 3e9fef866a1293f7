// What the pointer and the keys do on the button panel.
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "skin/PanelSurface.h"
#include "skin/ShellSound.h"
#include "skin/ctlButtonPanel.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>

namespace
{
// Whether the last thing that a person did was to press Tab. The focus also comes with Tab for its reason when the
// control that had it is hidden.
class TabWatch : public QObject
{
public:
    TabWatch() : QObject(qApp) { qApp->installEventFilter(this); }

    static TabWatch &Only()
    {
        static QPointer<TabWatch> only; // goes with its application
        if (!only) only = new TabWatch;
        return *only;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress) WasTab = false;
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent *>(event)->key();
        WasTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
        return false;
    }

    bool WasTab = false;
};
} // namespace

void ctlButtonPanel::WatchForTab() { TabWatch::Only(); }

void ctlButtonPanel::ShowHover(std::int32_t row)
{
    if (m_KeysAtWork || (row == m_Hover && !m_HoverByKey)) return;
    HideHover();
    if (const Button *button = At(row)) button->Hover->show();
    m_Hover = row;
    m_HoverByKey = false;
    if (!tmrMouse.isActive()) tmrMouse.start(); // one that runs is left to run, else a wandering pointer holds it up
}

void ctlButtonPanel::HideHover()
{
    m_FocusMark->hide();
    if (const Button *button = At(m_Hover)) button->Hover->hide();
}

// Only normal surfaces report moves, and while the hover surface covers one there are none, so this tick alone takes
// the hover away. A pointer that rests on the hover surface counts as gone too, and its row lights again at once,
// since the surface beneath feels the pointer then; the two together change nothing, and the tick is not needed any
// more until the pointer leaves.
void ctlButtonPanel::MouseTick()
{
    tmrMouse.stop();
    if (m_Hover > 0) CheckPointer();
}

void ctlButtonPanel::CheckPointer()
{
    if (m_HoverByKey) return;
    const std::int32_t under = RowUnderPointer();
    const Button *button = At(m_Hover);
    if (under == m_Hover && button != nullptr && !button->Hover->isHidden()) return;
    HideHover();
    m_Hover = 0;
    if (under > 0) ShowHover(under);
}

void ctlButtonPanel::LeaveHover()
{
    if (m_Hover > 0 && !m_HoverByKey && !tmrMouse.isActive()) tmrMouse.start();
}

// The row that the pointer rests on, where nothing else lies over it; a selected row does not feel it.
std::int32_t ctlButtonPanel::RowUnderPointer() const
{
    const QWidget *widget = QApplication::widgetAt(QCursor::pos());
    const auto found = std::find_if(m_Buttons.begin(), m_Buttons.end(), [&](const Button &button) {
        return widget == button.Normal || widget == button.Hover;
    });
    return widget == nullptr || found == m_Buttons.end() ? 0
                                                         : static_cast<std::int32_t>(found - m_Buttons.begin()) + 1;
}

// The second press of a double click is for the row that the first one met. Where that one has changed the menu,
// another row lies under the pointer by now, which nobody chose: a pause would end with the double click that began
// it.
bool ctlButtonPanel::IsMeant(bool isSecond)
{
    if (isSecond) return m_PressedAt == m_Refills;
    m_PressedAt = m_Refills;
    return true;
}

void ctlButtonPanel::Press(std::int32_t row)
{
    if (!Enabled) return;
    PlayShellSound(QStringLiteral("highbeep"));
    SetSelection(row);
}

// A normal surface can't be pressed, but where the keys have lit another row the pointer rests on one that was its
// own.
void ctlButtonPanel::PressBesideKeys(std::int32_t row)
{
    if (!m_HoverByKey) return;
    ShowHover(row);
    Press(row);
}

void ctlButtonPanel::ClearSelected()
{
    if (const Button *button = At(m_Selected)) button->Selected->hide();
    m_Selected = 0;
}

void ctlButtonPanel::SetSelection(std::int32_t Row)
{
    if (!Enabled) return;
    ClearSelected();
    m_Selected = Row;
    const Button *chosen = At(Row);
    if (chosen == nullptr)
        throw RuntimeError(340, {}, QStringLiteral("Control array element %1 doesn't exist.").arg(Row));
    chosen->Selected->show();
    chosen->Selected->raise();

    // The selected look is on the screen before the host reacts. Whatever runs meanwhile may refill the panel, or
    // take it away.
    const QPointer<ctlButtonPanel> self = this;
    QCoreApplication::processEvents();
    if (!self) return;
    if (!StickySelection && !tmrClick.isActive()) tmrClick.start();
    if (const Button *button = At(Row)) Q_EMIT Click(QString(button->Normal->Tag));
}

void ctlButtonPanel::HoverByKey(std::int32_t row)
{
    Button *button = At(row);
    if (button == nullptr) return;
    tmrMouse.stop();
    {
        // A surface that is hidden under a resting pointer makes the one beneath it feel the pointer, which has not
        // moved: its row would light up beside that of the keys.
        const QScopedValueRollback<bool> atWork(m_KeysAtWork, true);
        HideHover();
    }
    m_Hover = row;
    m_HoverByKey = true;
    m_FocusByMouse = false;
    button->Hover->show();
    m_FocusMark->setGeometry(button->Normal->geometry().translated(picPanel->pos()));
    m_FocusMark->raise();
    m_FocusMark->show();
    QAccessibleEvent focused(button->Normal, QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
}

void ctlButtonPanel::keyPressEvent(QKeyEvent *event)
{
    const std::int32_t last = static_cast<std::int32_t>(m_Buttons.size());
    const Button *button = At(m_Hover);
    switch (event->key()) {
    case Qt::Key_Up:
        return HoverByKey(std::max(m_Hover - 1, 1));
    case Qt::Key_Down:
        return HoverByKey(std::min(m_Hover + 1, last));
    case Qt::Key_Home:
        return HoverByKey(1);
    case Qt::Key_End:
        return HoverByKey(last);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A panel that the mouse has pressed would be pressed again by an Enter for something else.
        if (m_FocusByMouse) break;
        // As for the mouse, a row under its selected surface can't be pressed.
        if (button != nullptr && button->Selected->isHidden() && !event->isAutoRepeat()) Press(m_Hover);
        return;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void ctlButtonPanel::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    // A window that becomes active gives its focus to somebody, and so does a control that is hidden; that lights no
    // row.
    if (event->reason() == Qt::ActiveWindowFocusReason) return;
    m_FocusByMouse = event->reason() == Qt::MouseFocusReason;
    if (m_FocusByMouse || !TabWatch::Only().WasTab) return;
    HoverByKey(At(m_Hover) != nullptr ? m_Hover : At(m_Selected) != nullptr ? m_Selected : 1);
}

void ctlButtonPanel::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    if (!m_HoverByKey) return;
    HideHover();
    m_Hover = 0;
    m_HoverByKey = false;
}
