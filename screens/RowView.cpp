#include "screens/RowView.h"

#include "screens/Design.h"

#include <QApplication>
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

RowView::RowView(QWidget *Screen) : QWidget(Screen), m_Sheet(new QWidget(this)), m_Bar(new QScrollBar(this))
{
    m_Bar->setStyleSheet(ScrollBarLook());
    m_Bar->setSingleStep(RowStep);
    m_Bar->hide();
    connect(m_Bar, &QScrollBar::valueChanged, this, [this] { PlaceSheet(); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { FollowFocus(now); });
}

// Rows that go with the view give up the focus, and nobody is left to follow it.
RowView::~RowView() { disconnect(qApp, nullptr, this, nullptr); }

void RowView::SetWindow(const QRect &Window)
{
    setGeometry(Window);
    Fit();
}

void RowView::Fit()
{
    const int beyond = BottomOf(m_Sheet) - (y() + height());
    const bool needed = beyond > 0;
    m_Bar->setRange(0, needed ? beyond + Foot : 0);
    m_Bar->setPageStep(std::max(RowStep, height()));
    m_Bar->setGeometry(width() - BarWidth, 0, BarWidth, height());
    m_Bar->setVisible(needed);
    m_Bar->raise();
    m_Sheet->resize(x() + width(), std::max(y() + height(), BottomOf(m_Sheet)));
    PlaceSheet();
}

void RowView::ToTop() { m_Bar->setValue(0); }

void RowView::Show(const QWidget *Row)
{
    const int top = Row->mapTo(m_Sheet, QPoint()).y() - y();
    const int bottom = top + Row->height();
    if (top < m_Bar->value()) m_Bar->setValue(top);
    if (bottom > m_Bar->value() + height()) m_Bar->setValue(bottom - height() + Foot);
}

void RowView::PlaceSheet() { m_Sheet->move(-x(), -y() - m_Bar->value()); }

void RowView::wheelEvent(QWheelEvent *event)
{
    if (m_Bar->maximum() == 0) return event->ignore();
    m_Bar->setValue(m_Bar->value() - event->angleDelta().y() * 3 * RowStep / WheelNotch);
    event->accept();
}

void RowView::FollowFocus(const QWidget *Now)
{
    if (Now != nullptr && m_Sheet->isAncestorOf(Now)) Show(Now);
}
