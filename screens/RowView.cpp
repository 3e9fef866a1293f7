#include "screens/RowView.h"

#include "sdk/controls/Look.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace
{
constexpr int BarWidth = 10;    // [px]
constexpr int RowStep = 21;     // [px] the smallest row there is
constexpr int WheelNotch = 120; // eighths of a degree times 15: what one notch of a wheel reports
constexpr int Foot = 3;         // [px] left free below the last row

int BottomOf(const QWidget *Sheet)
{
    int bottom = 0;
    for (const QObject *child : Sheet->children()) {
        const auto *row = qobject_cast<const QWidget *>(child);
        if (row != nullptr && !row->isHidden()) bottom = std::max(bottom, row->y() + row->height());
    }
    return bottom;
}
} // namespace

RowView::RowView(QWidget *Screen) : QWidget(Screen), m_Sheet(new QWidget(this))
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { FollowFocus(now); });
}

// Rows that go with the view give up the focus, and nobody is left to follow it.
RowView::~RowView() { disconnect(qApp, nullptr, this, nullptr); }

void RowView::SetWindow(const QRect &Window)
{
    setGeometry(Window);
    Fit();
}

// Made for the first rows that are too many: few lists ever are, and a bar with a look of its own takes time.
void RowView::MakeBar()
{
    m_Bar = new QScrollBar(this);
    m_Bar->setStyleSheet(Look::ScrollBars());
    m_Bar->setSingleStep(RowStep);
    connect(m_Bar, &QScrollBar::valueChanged, this, [this] { PlaceSheet(); });
}

int RowView::Scrolled() const { return m_Bar != nullptr ? m_Bar->value() : 0; }

void RowView::Fit()
{
    const int beyond = BottomOf(m_Sheet) - (y() + height());
    const bool needed = beyond > 0;
    if (needed && m_Bar == nullptr) MakeBar();
    if (m_Bar != nullptr) FitBar(beyond);
    m_Sheet->resize(x() + width(), std::max(y() + height(), BottomOf(m_Sheet)));
    PlaceSheet();
}

void RowView::FitBar(int beyond)
{
    const bool needed = beyond > 0;
    m_Bar->setRange(0, needed ? beyond + Foot : 0);
    m_Bar->setPageStep(std::max(RowStep, height() - RowStep)); // a row of the page before stays in sight
    m_Bar->setGeometry(width() - BarWidth, 0, BarWidth, height());
    m_Bar->setVisible(needed);
    m_Bar->raise();
}

void RowView::ScrollTo(int value)
{
    if (m_Bar != nullptr) m_Bar->setValue(value);
}

void RowView::ToTop() { ScrollTo(0); }

void RowView::Show(const QWidget *Row)
{
    const int top = Row->mapTo(m_Sheet, QPoint()).y() - y();
    const int bottom = top + Row->height();
    if (top < Scrolled()) ScrollTo(top);
    if (bottom > Scrolled() + height()) ScrollTo(bottom - height() + Foot);
}

void RowView::PlaceSheet() { m_Sheet->move(-x(), -y() - Scrolled()); }

void RowView::wheelEvent(QWheelEvent *event)
{
    if (m_Bar == nullptr || m_Bar->maximum() == 0) return event->ignore();
    ScrollTo(Scrolled() - event->angleDelta().y() * 3 * RowStep / WheelNotch);
    event->accept();
}

// Keys that the control with the focus has no use for.
void RowView::keyPressEvent(QKeyEvent *event)
{
    const bool down = event->key() == Qt::Key_PageDown;
    if (m_Bar == nullptr || m_Bar->maximum() == 0 || (!down && event->key() != Qt::Key_PageUp))
        return event->ignore();
    m_Bar->triggerAction(down ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
}

void RowView::FollowFocus(const QWidget *Now)
{
    if (Now != nullptr && m_Sheet->isAncestorOf(Now)) Show(Now);
}
