// The button panel under a real pointer and real keys.
#include "platform/RuntimeError.h"
#include "tests/skin/ButtonPanelTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

namespace
{
class ButtonPanel : public ButtonPanelTest
{};
} // namespace

TEST_F(ButtonPanel, WithoutRowsThereAreNoButtonsAndTheHeightStays)
{
    ShowFilled(3);
    const int height = m_Panel.height();
    const QImage ground = m_Panel.findChild<PanelSurface *>(QStringLiteral("picPanel"))->Image();
    Fill(0);
    EXPECT_EQ(m_Panel.findChild<PanelSurface *>(QStringLiteral("picPanel"))->Image(), ground);
    EXPECT_EQ(m_Panel.Count(), 0);
    EXPECT_EQ(m_Panel.height(), height);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Surface("picNormal", 1), nullptr);
}

TEST_F(ButtonPanel, AddAndClearButtonsLeaveTheScreenAsItIs)
{
    ShowFilled(3);
    m_Panel.ClearButtons();
    EXPECT_EQ(m_Panel.Count(), 0);
    EXPECT_TRUE(Shows("picNormal", 3));
    m_Panel.Add(QStringLiteral("x"), QStringLiteral("x"));
    EXPECT_EQ(m_Panel.Count(), 1);
    EXPECT_EQ(m_Panel.height(), 3 * RowHeight);
    m_Panel.Clear();
    EXPECT_EQ(m_Panel.Count(), 1) << "captions and keys are kept";
    EXPECT_FALSE(Shows("picNormal", 1));
}

TEST_F(ButtonPanel, APressActsWhenTheMouseGoesDownWithBeepAndFlash)
{
    ShowFilled(4);
    MoveTo(Middle(3));
    EXPECT_TRUE(Shows("picHover", 3));
    bool selectedFirst = false;
    QObject::connect(&m_Panel, &ctlButtonPanel::Click, &m_Window,
                     [&] { selectedFirst = Shows("picSelected", 3) && Heard(QStringLiteral("highbeep")); });
    QTest::mousePress(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(3));
    EXPECT_EQ(Clicks(), QStringList{KeyOf(3)});
    EXPECT_TRUE(selectedFirst) << "the look and the sound come before the host reacts";
    EXPECT_TRUE(Shows("picSelected", 3));
    EXPECT_EQ(m_Panel.Selection(), 3);
    QTest::mouseRelease(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(3));
    EXPECT_EQ(m_Clicked.count(), 1);
    QTest::qWait(AfterFlash);
    EXPECT_FALSE(Shows("picSelected", 3));
    EXPECT_EQ(m_Panel.Selection(), 0);
}

TEST_F(ButtonPanel, WithoutItsHoverAButtonCannotBePressed)
{
    ShowFilled(3);
    QTest::mousePress(Surface("picNormal", 2), Qt::LeftButton);
    EXPECT_EQ(m_Clicked.count(), 0);
    EXPECT_FALSE(Heard(QStringLiteral("highbeep")));
}

TEST_F(ButtonPanel, StickyKeepsOnlyTheLastRowAndASecondPressOnItDoesNothing)
{
    m_Panel.StickySelection = true;
    ShowFilled(4);
    PressAt(Middle(2));
    PressAt(Middle(3));
    EXPECT_FALSE(Shows("picSelected", 2));
    EXPECT_TRUE(Shows("picSelected", 3));
    PressAt(Middle(3));
    EXPECT_EQ(Clicks(), (QStringList{KeyOf(2), KeyOf(3)}));
    QTest::qWait(AfterFlash);
    EXPECT_TRUE(Shows("picSelected", 3)) << "no flash";
}

TEST_F(ButtonPanel, DisabledItHoversAndNothingElse)
{
    m_Panel.Enabled = false;
    ShowFilled(3);
    PressAt(Middle(2));
    EXPECT_TRUE(Shows("picHover", 2));
    EXPECT_FALSE(Shows("picSelected", 2));
    EXPECT_FALSE(Heard(QStringLiteral("highbeep")));
    EXPECT_EQ(m_Clicked.count(), 0);
    m_Panel.SetSelection(1);
    EXPECT_EQ(m_Panel.Selection(), 0);
}

TEST_F(ButtonPanel, TheHoverFollowsThePointerAndGoesWithIt)
{
    ShowFilled(3);
    MoveTo(Middle(1));
    EXPECT_TRUE(Shows("picHover", 1));
    MoveTo(Middle(2));
    EXPECT_TRUE(Shows("picHover", 2));
    EXPECT_FALSE(Shows("picHover", 1));
    MoveTo(QPoint(390, 290));
    QTest::qWait(AfterFlash);
    EXPECT_FALSE(Shows("picHover", 2));
}

TEST_F(ButtonPanel, APointerAtRestCanAlwaysPress)
{
    ShowFilled(3);
    MoveTo(Middle(2));
    QTest::qWait(3 * AfterFlash);
    EXPECT_TRUE(Shows("picHover", 2));
    QTest::mousePress(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(2));
    EXPECT_EQ(Clicks(), QStringList{KeyOf(2)});
    QTest::mouseRelease(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(2));
    QTest::qWait(AfterFlash);
    QTest::mousePress(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(2));
    EXPECT_EQ(m_Clicked.count(), 2) << "and again, without having moved";
    QTest::mouseRelease(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(2));
}

TEST_F(ButtonPanel, RightAfterARebuildTheRowUnderTheRestingPointerIsLitAndCanBePressed)
{
    ShowFilled(3);
    MoveTo(Middle(2));
    Fill(4);
    EXPECT_TRUE(Shows("picHover", 2)) << "at once, not with the next tick";
    QTest::mouseClick(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(2));
    EXPECT_EQ(Clicks(), QStringList{KeyOf(2)});
}

TEST_F(ButtonPanel, AMenuThatRefillsItselfIsPressedAgainWithoutAPauseAndWithoutAMove)
{
    ShowFilled(3);
    QObject::connect(&m_Panel, &ctlButtonPanel::Click, &m_Window, [this] { Fill(3); });
    MoveTo(Middle(2));
    for (int time = 1; time <= 5; ++time) {
        QTest::mouseClick(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(2));
        EXPECT_EQ(m_Clicked.count(), time);
    }
}

TEST_F(ButtonPanel, ARowThatComesUpUnderARestingPointerIsLitAndCanBePressed)
{
    ShowFilled(2);
    MoveTo(Middle(4));
    Fill(5);
    EXPECT_TRUE(Shows("picHover", 4));
    QTest::mouseClick(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(4));
    EXPECT_EQ(Clicks(), QStringList{KeyOf(4)});
}

TEST_F(ButtonPanel, APointerAtRestCanPressItsRowWhileTheKeysHaveLitAnother)
{
    ShowFilled(3);
    MoveTo(Middle(3));
    m_Window.setFocus();
    QTest::keyClick(&m_Window, Qt::Key_Tab);
    QTest::keyClick(&m_Panel, Qt::Key_Home);
    ASSERT_TRUE(Shows("picHover", 1));
    EXPECT_FALSE(Shows("picHover", 3)) << "one row alone is lit";
    QTest::mouseClick(m_Window.windowHandle(), Qt::LeftButton, {}, Middle(3));
    EXPECT_EQ(Clicks(), QStringList{KeyOf(3)});
    EXPECT_FALSE(Shows("picHover", 1));
}

TEST_F(ButtonPanel, ARebuildUnderAPointerElsewhereLightsNoRow)
{
    ShowFilled(3);
    MoveTo(Middle(2));
    MoveTo(QPoint(390, 290));
    Fill(3);
    for (int row = 1; row <= 3; ++row) EXPECT_FALSE(Shows("picHover", row));
}

TEST_F(ButtonPanel, AtRestNoTimerRuns)
{
    ShowFilled(3);
    MoveTo(Middle(2));
    EXPECT_TRUE(Timer("tmrMouse").isActive()) << "since the pointer came";
    QTest::qWait(AfterFlash);
    for (const char *name : {"tmrMouse", "tmrClick"}) EXPECT_FALSE(Timer(name).isActive()) << name;
}

TEST_F(ButtonPanel, AWanderingPointerDoesNotPutTheEndOfTheHoverOff)
{
    ShowFilled(3);
    MoveTo(Middle(1));
    const QTimer &mouse = Timer("tmrMouse");
    ASSERT_TRUE(mouse.isActive());
    const auto hasRunAWhile = [&] {
        if (!mouse.isActive()) MoveTo(QPoint(390, 290)), MoveTo(Middle(1)); // a busy machine did not look in time
        return mouse.isActive() && mouse.remainingTime() < mouse.interval() - 80;
    };
    ASSERT_TRUE(QTest::qWaitFor(hasRunAWhile));
    const int before = mouse.remainingTime();
    MoveTo(Middle(2));
    EXPECT_TRUE(Shows("picHover", 2));
    EXPECT_TRUE(!mouse.isActive() || mouse.remainingTime() <= before);
}

TEST_F(ButtonPanel, AnotherPressDoesNotPutTheEndOfTheFlashOff)
{
    ShowFilled(3);
    m_Panel.SetSelection(1);
    const QTimer &flash = Timer("tmrClick");
    ASSERT_TRUE(flash.isActive());
    const auto hasRunAWhile = [&] {
        if (!flash.isActive()) m_Panel.SetSelection(1); // a busy machine did not look in time
        return flash.isActive() && flash.remainingTime() < flash.interval() - 80;
    };
    ASSERT_TRUE(QTest::qWaitFor(hasRunAWhile));
    const int before = flash.remainingTime();
    m_Panel.SetSelection(2);
    EXPECT_TRUE(!flash.isActive() || flash.remainingTime() <= before);
}

TEST_F(ButtonPanel, AnyButtonOfTheMousePresses)
{
    ShowFilled(2);
    MoveTo(Middle(2));
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(m_Window.windowHandle(), button, {}, Middle(2));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Shows("picSelected", 2); })) << "a selected row feels nothing";
    }
    EXPECT_EQ(Clicks(), (QStringList{KeyOf(2), KeyOf(2), KeyOf(2)}));
}

TEST_F(ButtonPanel, TheHostsOwnSelectionIsAPressWithoutItsSound)
{
    ShowFilled(3);
    m_Panel.SetSelection(2);
    EXPECT_EQ(Clicks(), QStringList{KeyOf(2)});
    EXPECT_TRUE(Shows("picSelected", 2));
    EXPECT_FALSE(Heard(QStringLiteral("highbeep")));
}

TEST_F(ButtonPanel, ASelectionOfARowThatIsNotThereIsStoredAndFailsWithoutAClick)
{
    m_Panel.StickySelection = true;
    ShowFilled(3);
    m_Panel.SetSelection(2);
    for (const int row : {4, -1, 0}) {
        EXPECT_THROW(m_Panel.SetSelection(row), RuntimeError);
        EXPECT_EQ(m_Panel.Selection(), row);
    }
    EXPECT_FALSE(Shows("picSelected", 2));
    EXPECT_EQ(m_Clicked.count(), 1);
}

TEST_F(ButtonPanel, AMenuMayRefillItselfInItsOwnClick)
{
    ShowFilled(6);
    QObject::connect(&m_Panel, &ctlButtonPanel::Click, &m_Window, [this] { Fill(2 + int(m_Clicked.count()) % 3); });
    for (int time = 0; time < 5; ++time) {
        MoveTo(QPoint(390, 290));
        PressAt(Middle(1 + time % 2));
    }
    EXPECT_EQ(m_Clicked.count(), 5);
}

TEST_F(ButtonPanel, ThePanelMayBeTakenAwayInItsOwnClick)
{
    auto *panel = new ctlButtonPanel(&m_Window);
    panel->move(200, 20);
    panel->Add(QStringLiteral("Only"), QStringLiteral("only"));
    panel->UpdateButtons();
    ShowFilled(1);
    const QPointer<ctlButtonPanel> kept = panel;
    QObject::connect(panel, &ctlButtonPanel::Click, &m_Window, [panel] { panel->deleteLater(); });
    PressAt(QPoint(280, 30));
    QTest::qWait(50);
    EXPECT_TRUE(kept.isNull());
}

TEST_F(ButtonPanel, ARebuildTakesTheSelectedLookAndKeepsItsNumber)
{
    m_Panel.StickySelection = true;
    ShowFilled(3);
    m_Panel.SetSelection(2);
    m_Panel.SetSkin();
    EXPECT_FALSE(Shows("picSelected", 2));
    EXPECT_EQ(m_Panel.Selection(), 2);
}

TEST_F(ButtonPanel, TabReachesItArrowsMoveTheHoverAndSpaceAndEnterPress)
{
    ShowFilled(3);
    m_Window.setFocus();
    QTest::keyClick(&m_Window, Qt::Key_Tab);
    ASSERT_TRUE(m_Panel.hasFocus());
    EXPECT_TRUE(Shows("picHover", 1));
    QTest::keyClick(&m_Panel, Qt::Key_Down);
    QTest::keyClick(&m_Panel, Qt::Key_Down);
    QTest::keyClick(&m_Panel, Qt::Key_Down);
    EXPECT_TRUE(Shows("picHover", 3)) << "it stops at the last row";
    QTest::qWait(AfterFlash);
    EXPECT_TRUE(Shows("picHover", 3)) << "the pointer being elsewhere takes nothing away";
    QTest::keyClick(&m_Panel, Qt::Key_Return);
    QTest::qWait(AfterFlash);
    QTest::keyClick(&m_Panel, Qt::Key_Up);
    QTest::keyClick(&m_Panel, Qt::Key_Space);
    EXPECT_EQ(Clicks(), (QStringList{KeyOf(3), KeyOf(2)}));
    EXPECT_TRUE(Heard(QStringLiteral("highbeep")));
}

TEST_F(ButtonPanel, AWindowThatBecomesActiveLightsNoRow)
{
    ShowFilled(3);
    m_Panel.setFocus(Qt::ActiveWindowFocusReason);
    for (int row = 1; row <= 3; ++row) EXPECT_FALSE(Shows("picHover", row));
    QTest::keyClick(&m_Panel, Qt::Key_Space);
    EXPECT_EQ(m_Clicked.count(), 0);
}

TEST_F(ButtonPanel, AFocusLeftByAHiddenControlLightsNoRow)
{
    QLineEdit line(&m_Window);
    ShowFilled(3);
    line.show();
    line.setFocus();
    QTest::keyClicks(&line, QStringLiteral("Ada"));
    line.hide();
    EXPECT_TRUE(m_Panel.hasFocus());
    for (int row = 1; row <= 3; ++row) EXPECT_FALSE(Shows("picHover", row));
}

TEST_F(ButtonPanel, APressTakesTheFocusFromTheBoxInWhichSomebodyWrites)
{
    QLineEdit line(&m_Window);
    line.setGeometry(200, 200, 80, 20);
    ShowFilled(3);
    line.show();
    line.setFocus();
    PressAt(Middle(2));
    EXPECT_TRUE(m_Panel.hasFocus());
    EXPECT_FALSE(line.hasFocus());
    EXPECT_EQ(Clicks(), QStringList{KeyOf(2)});
}

TEST_F(ButtonPanel, AnEnterAfterAPressOfTheMouseDoesNotPressAgain)
{
    ShowFilled(3);
    QTest::keyClick(&m_Window, Qt::Key_Tab);
    QLineEdit line(&m_Window);
    line.show();
    line.setFocus(); // the last key was a Tab, all the same
    PressAt(Middle(2));
    ASSERT_TRUE(m_Panel.hasFocus());
    EXPECT_FALSE(m_Panel.findChild<QWidget *>(QStringLiteral("FocusMark"))->isVisible());
    QTest::qWait(AfterFlash);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) QTest::keyClick(&m_Panel, key);
    EXPECT_EQ(m_Clicked.count(), 1);
    QTest::keyClick(&m_Panel, Qt::Key_End); // from here on the keys are meant
    QTest::keyClick(&m_Panel, Qt::Key_Return);
    EXPECT_EQ(Clicks(), (QStringList{KeyOf(2), KeyOf(3)}));
}
