// The button panel under a real pointer and real keys.
#include "platform/Colour.h"
#include "platform/RuntimeError.h"
#include "shell/program/modMain.h"
#include "skin/PanelSurface.h"
#include "skin/colSkin.h"
#include "skin/ctlButtonPanel.h"
#include "tests/skin/SkinTest.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMap>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>
#include <functional>

namespace
{
constexpr int RowHeight = 21;   // [px]
constexpr int AfterFlash = 400; // [ms]

QString KeyOf(int row) { return QStringLiteral("key %1").arg(row); }

class ButtonPanel : public SkinTest
{
protected:
    ButtonPanel() : m_Panel(&m_Window), m_Clicked(&m_Panel, &ctlButtonPanel::Click)
    {
        m_Window.resize(400, 300);
        m_Panel.move(20, 20);
    }
    ~ButtonPanel() override { QCursor::setPos(0, 0); }

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
} // namespace

TEST_F(ButtonPanel, WithoutRowsThereAreNoButtonsAndTheHeightStays)
{
    ShowFilled(3);
    const int height = m_Panel.height();
    Fill(0);
    EXPECT_EQ(m_Panel.Count(), 0);
    EXPECT_EQ(m_Panel.height(), height);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Surface("picNormal", 1), nullptr);
}

TEST_F(ButtonPanel, EightRowsAre2520TwipsHighInsideItsBorders)
{
    Fill(8);
    EXPECT_EQ(m_Panel.height(), 2520 / 15);
    m_Panel.SetBorderStyle(1);
    Fill(8);
    EXPECT_EQ(m_Panel.height(), 2520 / 15 + 4);
    EXPECT_EQ(m_Panel.width(), 2610 / 15);
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
    QTest::qWait(AfterFlash);
    for (const QTimer *timer : m_Panel.findChildren<QTimer *>()) EXPECT_FALSE(timer->isActive());
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

TEST_F(ButtonPanel, KeysAndCaptionsAreKeptAsTheyAre)
{
    m_Panel.Add(QStringLiteral("Tom & Jerry"), QStringLiteral("  Mixed Case "));
    m_Panel.UpdateButtons();
    m_Panel.SetSelection(1);
    EXPECT_EQ(Clicks(), QStringList{QStringLiteral("  Mixed Case ")});
    EXPECT_EQ(Surface("picNormal", 1)->accessibleName(), QStringLiteral("Tom & Jerry"));
}

TEST_F(ButtonPanel, EachSurfaceShowsItsPieceOfTheSkin)
{
    GivenSkin(QStringLiteral("Blue"));
    m_Folder.Write(QStringLiteral("skins/Blue/ButtonBackground.gif"), Gif(300, 300, 0xffff0000));
    m_Folder.Write(QStringLiteral("skins/Blue/ButtonHighlight.gif"), Gif(300, 300, 0xff00ff00));
    m_Folder.Write(QStringLiteral("skins/Blue/ButtonSelected.gif"), Gif(300, 300, 0xff0000ff));
    modMain::CurrentSkin = std::make_shared<CSkin>();
    modMain::CurrentSkin->SetName(QStringLiteral("Blue"));
    ShowFilled(2);
    const auto corner = [&](const char *kind) { return Surface(kind, 2)->Image().pixelColor(0, 0); };
    EXPECT_EQ(corner("picNormal"), QColor(Qt::red));
    EXPECT_EQ(corner("picHover"), QColor(Qt::green));
    EXPECT_EQ(corner("picSelected"), QColor(Qt::blue));
}

TEST_F(ButtonPanel, AnotherSkinRepaintsEverySurfaceAndKeepsRowsAndKeys)
{
    ShowFilled(3);
    const QImage before = Surface("picNormal", 2)->Image();
    GivenDeliveredSkin(QStringLiteral("Night"));
    m_Panel.SetSkin();
    EXPECT_NE(Surface("picNormal", 2)->Image(), before);
    EXPECT_EQ(m_Panel.Count(), 3);
    m_Panel.SetSelection(3);
    EXPECT_EQ(Clicks(), QStringList{KeyOf(3)});
}

TEST_F(ButtonPanel, WithoutASkinItIsPlainAndWorks)
{
    ShowFilled(3);
    EXPECT_EQ(Surface("picNormal", 1)->Image().pixelColor(0, 0), ToColour(0xFFFFFF));
    EXPECT_EQ(Surface("picHover", 1)->Image().pixelColor(0, 0), ToColour(0x80FFFF));
    EXPECT_EQ(Surface("picSelected", 1)->Image().pixelColor(0, 0), ToColour(0x80FF80));
    PressAt(Middle(1));
    EXPECT_EQ(m_Clicked.count(), 1);
}

TEST_F(ButtonPanel, AnotherWidthBuildsTheSurfacesAnewOnce)
{
    ShowFilled(3);
    m_Panel.resize(240, m_Panel.height());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Surface("picNormal", 1)->width(), 240);
    EXPECT_EQ(m_Panel.findChildren<PanelSurface *>(QStringLiteral("picNormal1")).size(), 1);
    EXPECT_EQ(m_Panel.height(), 3 * RowHeight);
}

TEST_F(ButtonPanel, AnotherNumberOfRowsBuildsTheSurfacesOnce)
{
    ShowFilled(3);
    Fill(5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_Panel.findChildren<PanelSurface *>().size(), 1 + 3 * 5);
}

TEST_F(ButtonPanel, ASelectionMadeBeforeTheFirstShowingIsSeen)
{
    m_Panel.StickySelection = true;
    Fill(3);
    m_Panel.SetSelection(2);
    m_Window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_Window));
    EXPECT_TRUE(Shows("picSelected", 2));
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

TEST_F(ButtonPanel, TheFocusMarkCanBeSeenOnEverySkin)
{
    for (const char *name : {"Meadow", "Night", "Black", "White", "Grey"}) {
        const QMap<QString, QRgb> plain{{QStringLiteral("Black"), 0xff000000},
                                        {QStringLiteral("White"), 0xffffffff},
                                        {QStringLiteral("Grey"), 0xff808080}};
        if (plain.contains(QLatin1String(name))) {
            GivenSkin(QLatin1String(name));
            for (const char *file : {"ButtonBackground.gif", "ButtonHighlight.gif", "ButtonSelected.gif"})
                m_Folder.Write(QStringLiteral("skins/%1/%2").arg(QLatin1String(name), QLatin1String(file)),
                               Gif(200, 80, plain[QLatin1String(name)]));
            modMain::CurrentSkin = std::make_shared<CSkin>();
            modMain::CurrentSkin->SetName(QLatin1String(name));
        } else {
            GivenDeliveredSkin(QLatin1String(name));
        }
        ShowFilled(3);
        m_Window.setFocus();
        QTest::keyClick(&m_Window, Qt::Key_Tab);
        ASSERT_TRUE(m_Panel.hasFocus());
        const QImage marked = m_Panel.grab().toImage();
        m_Panel.findChild<QWidget *>(QStringLiteral("FocusMark"))->hide();
        const QImage bare = m_Panel.grab().toImage();
        int seen = 0;
        for (int y = 0; y < marked.height(); ++y)
            for (int x = 0; x < marked.width(); ++x)
                seen += std::abs(qGray(marked.pixel(x, y)) - qGray(bare.pixel(x, y))) > 80 ? 1 : 0;
        EXPECT_GT(seen, 2 * 174) << name << ": at least a line above and one below";
    }
}

TEST_F(ButtonPanel, ARowIsAButtonOfItsCaptionToAScreenReader)
{
    ShowFilled(2);
    const QAccessibleInterface *row = QAccessible::queryAccessibleInterface(Surface("picNormal", 2));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->role(), QAccessible::Button);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("Row 2"));
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

TEST_F(ButtonPanel, TheMouseDoesNotTakeTheFocus)
{
    ShowFilled(3);
    m_Window.setFocus();
    PressAt(Middle(2));
    EXPECT_EQ(m_Clicked.count(), 1);
    EXPECT_FALSE(m_Panel.hasFocus());
}

TEST_F(ButtonPanel, PersistedPropertiesHaveTheirDefaults)
{
    EXPECT_EQ(m_Panel.property("BorderStyle"), 0);
    EXPECT_EQ(m_Panel.property("Appearance"), 1);
    EXPECT_EQ(m_Panel.property("BackColour"), 0xFFFFFF);
    EXPECT_EQ(m_Panel.property("HoverColour"), 0x80FFFF);
    EXPECT_EQ(m_Panel.property("SelectColour"), 0x80FF80);
    EXPECT_EQ(m_Panel.property("FontName"), QStringLiteral("Arial"));
    EXPECT_EQ(m_Panel.property("FontSize"), 10.0);
    EXPECT_EQ(m_Panel.property("FontBold"), false);
    EXPECT_EQ(m_Panel.property("FontItalic"), false);
    EXPECT_EQ(m_Panel.property("FontTransparent"), true);
    EXPECT_EQ(m_Panel.property("Indent"), 30.0F);
    EXPECT_EQ(m_Panel.property("StickySelection"), false);
    EXPECT_EQ(m_Panel.property("Selection"), 0);
    EXPECT_EQ(m_Panel.NewHeight(), 0);
}

TEST_F(ButtonPanel, PicturesForPeople)
{
    for (const char *name : {"Meadow", "Night", ""}) {
        modMain::CurrentSkin = nullptr;
        if (*name != '\0') GivenDeliveredSkin(QLatin1String(name));
        m_Panel.StickySelection = true;
        m_Panel.ClearButtons();
        for (const char *caption : {"Practice", "Workout", "Progress", "Change player", "Options", "Help", "Exit"})
            m_Panel.Add(QLatin1String(caption), QLatin1String(caption));
        m_Panel.UpdateButtons();
        m_Window.show();
        m_Panel.SetSelection(2);
        m_Window.setFocus();
        QTest::keyClick(&m_Window, Qt::Key_Tab);
        QTest::keyClick(&m_Panel, Qt::Key_Down);
        QTest::keyClick(&m_Panel, Qt::Key_Down);
        Keep(m_Window, QStringLiteral("panel-") + QLatin1String(name));
        QTest::qWait(10);
    }
}
