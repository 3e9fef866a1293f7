// A button panel in a window of its own, and a pointer for it.
#pragma once

#include "skin/PanelSurface.h"
#include "skin/ctlButtonPanel.h"
#include "tests/skin/SkinTest.h"

#include <QCursor>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>

class ButtonPanelTest : public SkinTest
{
protected:
    static constexpr int RowHeight = 21;   // [px]
    static constexpr int AfterFlash = 400; // [ms]
    static QString KeyOf(int row) { return QStringLiteral("key %1").arg(row); }

    ButtonPanelTest() : m_Panel(&m_Window), m_Clicked(&m_Panel, &ctlButtonPanel::Click)
    {
        m_Window.resize(400, 300);
        m_Panel.move(20, 20);
    }
    ~ButtonPanelTest() override { QCursor::setPos(0, 0); }

    void Fill(int rows)
    {
        m_Panel.ClearButtons();
        for (int row = 1; row <= rows; ++row) m_Panel.Add(QStringLiteral("Row %1").arg(row), KeyOf(row));
        m_Panel.UpdateButtons();
    }
    void ShowFilled(int rows)
    {
        Fill(rows);
        m_Window.show();
        QCursor::setPos(m_Window.mapToGlobal(QPoint(390, 290)));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_Window));
    }
    QPoint Middle(int row) const
    {
        return m_Panel.mapTo(&m_Window, QPoint(80, RowHeight * (row - 1) + RowHeight / 2));
    }
    QWidget *Under(const QPoint &place) { return m_Window.childAt(place); }
    void MoveTo(const QPoint &place)
    {
        QCursor::setPos(m_Window.mapToGlobal(place));
        QCoreApplication::processEvents();
    }
    /// A person's press: the pointer goes there, a button of the mouse goes down and up.
    void PressAt(const QPoint &place)
    {
        MoveTo(place);
        QTest::mousePress(m_Window.windowHandle(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(m_Window.windowHandle(), Qt::LeftButton, {}, place);
    }
    PanelSurface *Surface(const char *kind, int row)
    {
        PanelSurface *found = nullptr; // the newest: given up ones may not be gone yet
        for (auto *surface : m_Panel.findChildren<PanelSurface *>(QLatin1String(kind) + QString::number(row)))
            found = surface;
        return found;
    }
    bool Shows(const char *kind, int row)
    {
        const PanelSurface *surface = Surface(kind, row);
        return surface != nullptr && surface->isVisible();
    }
    const QTimer &Timer(const char *name) const
    {
        const auto *timer = m_Panel.findChild<QTimer *>(QLatin1String(name));
        if (timer == nullptr) qFatal("no timer named %s", name);
        return *timer;
    }
    QStringList Clicks() const
    {
        QStringList keys;
        for (const auto &click : m_Clicked) keys << click[0].toString();
        return keys;
    }

    QWidget m_Window;
    ctlButtonPanel m_Panel;
    QSignalSpy m_Clicked;
};
