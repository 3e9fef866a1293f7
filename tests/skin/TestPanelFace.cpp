// What the rows of a button panel look like, and what they are to who can't see them.
#include "platform/Colour.h"
#include "sdk/controls/Caption.h"
#include "shell/program/modMain.h"
#include "skin/DrawCaption.h"
#include "skin/colSkin.h"
#include "tests/skin/ButtonPanelTest.h"
#include "tests/support/GifBytes.h"

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QMap>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>

namespace
{
class PanelFace : public ButtonPanelTest
{
protected:
    static QColor Darkest(const QImage &row)
    {
        QRgb darkest = 0xffffffff;
        for (int y = 0; y < row.height(); ++y)
            for (int x = 0; x < row.width(); ++x)
                if (qGray(row.pixel(x, y)) < qGray(darkest)) darkest = row.pixel(x, y);
        return QColor(darkest);
    }
    /// How many pixels of the outermost column differ from the ground above them.
    static int InkAtTheRightEdge(const QImage &row)
    {
        int inked = 0;
        const int x = row.width() - 1;
        for (int y = 1; y < row.height(); ++y) inked += row.pixel(x, y) != row.pixel(x, 0) ? 1 : 0;
        return inked;
    }
};
} // namespace

TEST_F(PanelFace, EightRowsAre2520TwipsHighInsideItsBorders)
{
    Fill(8);
    EXPECT_EQ(m_Panel.height(), 2520 / 15);
    m_Panel.SetBorderStyle(1);
    Fill(8);
    EXPECT_EQ(m_Panel.height(), 2520 / 15 + 4);
    EXPECT_EQ(m_Panel.width(), 2610 / 15);
}

TEST_F(PanelFace, KeysAndCaptionsAreKeptAsTheyAre)
{
    m_Panel.Add(QStringLiteral("Tom & Jerry"), QStringLiteral("  Mixed Case "));
    m_Panel.UpdateButtons();
    m_Panel.SetSelection(1);
    EXPECT_EQ(Clicks(), QStringList{QStringLiteral("  Mixed Case ")});
    EXPECT_EQ(Surface("picNormal", 1)->accessibleName(), QStringLiteral("Tom & Jerry"));
}

TEST_F(PanelFace, ALongCaptionShrinksFirstAndEndsWithDotsWhenStillTooLong)
{
    const QString short_ = QStringLiteral("Spelling");
    const QString long_ = QStringLiteral("Spelling with many letters"); // fits when it is smaller
    const QString endless = QStringLiteral("Spelling with so many letters that no row could ever hold them all");
    m_Panel.resize(156, m_Panel.height());
    for (const QString &caption : {short_, long_, endless}) m_Panel.Add(caption, caption);
    m_Panel.UpdateButtons();
    const int room = 156 - 5;
    const Caption::Line plain = Caption::Fitted(m_Panel.TheFont(), short_, room);
    EXPECT_EQ(plain.Font, m_Panel.TheFont());
    EXPECT_EQ(plain.Text, short_);
    const Caption::Line smaller = Caption::Fitted(m_Panel.TheFont(), long_, room);
    EXPECT_LT(smaller.Font.pixelSize(), m_Panel.TheFont().pixelSize());
    EXPECT_EQ(smaller.Text, long_);
    const Caption::Line dotted = Caption::Fitted(m_Panel.TheFont(), endless, room);
    EXPECT_TRUE(dotted.Text.endsWith(QChar(0x2026)));
    EXPECT_LE(QFontMetrics(dotted.Font).horizontalAdvance(dotted.Text), room);
    for (const int row : {1, 2, 3})
        for (const char *kind : {"picNormal", "picHover", "picSelected"}) {
            EXPECT_EQ(InkAtTheRightEdge(Surface(kind, row)->Image()), 0) << kind << row << ": no letter is cut";
        }
    EXPECT_EQ(Surface("picNormal", 3)->accessibleName(), endless) << "a screen reader tells all of it";
    m_Window.show();
    Keep(m_Window, QStringLiteral("panel-long-captions"));
}

TEST_F(PanelFace, ALineBreakInACaptionIsABlank)
{
    m_Panel.Add(QStringLiteral("One\r\nTwo"), QStringLiteral("a"));
    m_Panel.Add(QStringLiteral("One Two"), QStringLiteral("b"));
    m_Panel.UpdateButtons();
    EXPECT_EQ(Surface("picSelected", 1)->Image(), Surface("picSelected", 2)->Image());
}

TEST_F(PanelFace, EachSurfaceShowsItsPieceOfTheSkin)
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

// Pictures wider than the panel, told apart by column and by row.
TEST_F(PanelFace, NormalRowsAreSlicesOfTheBackgroundTheOthersAllTheTopRightOfTheirPicture)
{
    constexpr int width = 300, panelWidth = 174;
    const QList<QRgb> colours{0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffffff};
    const auto picture = [&](const char *name, const std::function<int(int row)> &colourOf) {
        m_Folder.Write(QStringLiteral("skins/Blue/") + QLatin1String(name),
                       GifBytes({width, 200}, colours,
                                [&](int x, int y) { return x < width - panelWidth ? 0 : colourOf(y / RowHeight); }));
    };
    GivenSkin(QStringLiteral("Blue"));
    picture("ButtonBackground.gif", [](int row) { return std::min(row + 1, 3); });
    for (const char *name : {"ButtonHighlight.gif", "ButtonSelected.gif"})
        picture(name, [](int row) { return row == 0 ? 1 : 2; });
    modMain::CurrentSkin = std::make_shared<CSkin>();
    modMain::CurrentSkin->SetName(QStringLiteral("Blue"));
    ShowFilled(3);
    for (int row = 1; row <= 3; ++row) {
        const auto isOf = [&](const char *kind, int colour) {
            const QImage image = Surface(kind, row)->Image();
            return image.size() == QSize(panelWidth, RowHeight) && image.pixel(0, 0) == colours[colour] &&
                   image.pixel(panelWidth - 1, RowHeight - 1) == colours[colour];
        };
        EXPECT_TRUE(isOf("picNormal", row)) << row;
        EXPECT_TRUE(isOf("picHover", 1)) << row;
        EXPECT_TRUE(isOf("picSelected", 1)) << row;
    }
}

// Half a pixel goes to the even side: 2.5 above the text is 2, 3.5 is 4.
TEST_F(PanelFace, ACaptionStandsInTheMiddleOfItsSurface)
{
    QFont font = m_Panel.TheFont();
    const int text = QFontMetrics(font).height();
    const auto firstInk = [&](int height) {
        QImage surface(100, height, QImage::Format_RGB32);
        surface.fill(Qt::white);
        modMain::DrawCaption(font, surface, QStringLiteral("H"), 5, 0, false);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < surface.width(); ++x)
                if (surface.pixel(x, y) != 0xffffffff) return y;
        return -1;
    };
    const int above = firstInk(text);
    ASSERT_GE(above, 0);
    for (const auto &[more, top] : std::map<int, int>{{1, 0}, {2, 1}, {3, 2}, {4, 2}, {5, 2}, {6, 3}, {7, 4}, {9, 4}})
        EXPECT_EQ(firstInk(text + more), above + top) << more;
}

// A number of the settings has red in its lowest byte.
TEST_F(PanelFace, CaptionsHaveTheSkinsColourForMenusOnEverySurface)
{
    GivenSkin(QStringLiteral("Blue"), "[colours]\r\nMenuLabel=255\r\nDialogText=16711680\r\n");
    for (const char *file : {"ButtonBackground.gif", "ButtonHighlight.gif", "ButtonSelected.gif"})
        m_Folder.Write(QStringLiteral("skins/Blue/") + QLatin1String(file), Gif(200, 80, 0xffffffff));
    modMain::CurrentSkin = std::make_shared<CSkin>();
    modMain::CurrentSkin->SetName(QStringLiteral("Blue"));
    ShowFilled(1);
    for (const char *kind : {"picNormal", "picHover", "picSelected"}) {
        const QColor ink = Darkest(Surface(kind, 1)->Image());
        EXPECT_GT(ink.red(), 240) << kind;
        EXPECT_LT(ink.green(), 100) << kind;
        EXPECT_LT(ink.blue(), 100) << kind;
    }
    modMain::CurrentSkin = nullptr;
    Fill(1);
    EXPECT_LT(Darkest(Surface("picNormal", 1)->Image()).red(), 100) << "black without a skin";
}

TEST_F(PanelFace, ACaptionThatMayBreakBeginsTwoBelowTheTopAndNeedsNoSmallerLetters)
{
    const QString text = QStringLiteral("HH HH HH");
    const auto inkOf = [&](int flags) {
        QImage surface(50, 120, QImage::Format_RGB32);
        surface.fill(Qt::white);
        modMain::DrawCaption(m_Panel.TheFont(), surface, text, 5, flags, false);
        QRect ink;
        for (int y = 0; y < surface.height(); ++y)
            for (int x = 0; x < surface.width(); ++x)
                if (surface.pixel(x, y) != 0xffffffff) ink |= QRect(x, y, 1, 1);
        return ink;
    };
    const QRect broken = inkOf(modMain::WordBreak), single = inkOf(0);
    EXPECT_GE(broken.top(), 2);
    EXPECT_LT(broken.top(), 2 + QFontMetrics(m_Panel.TheFont()).height());
    EXPECT_GT(broken.height(), QFontMetrics(m_Panel.TheFont()).height()) << "lines";
    EXPECT_GE(broken.left(), 5);
    EXPECT_LT(single.height(), QFontMetrics(m_Panel.TheFont()).height()) << "one line";
    EXPECT_NEAR(single.center().y(), 60, 4) << "in the middle";
}

TEST_F(PanelFace, AnotherSkinRepaintsEverySurfaceAndKeepsRowsAndKeys)
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

TEST_F(PanelFace, WithoutASkinItIsPlainAndWorks)
{
    ShowFilled(3);
    EXPECT_EQ(Surface("picNormal", 1)->Image().pixelColor(0, 0), ToColour(0xFFFFFF));
    EXPECT_EQ(Surface("picHover", 1)->Image().pixelColor(0, 0), ToColour(0x80FFFF));
    EXPECT_EQ(Surface("picSelected", 1)->Image().pixelColor(0, 0), ToColour(0x80FF80));
    PressAt(Middle(1));
    EXPECT_EQ(m_Clicked.count(), 1);
}

TEST_F(PanelFace, GroundsOfHoverAndSelectionAreThoseOfTheStartAndLaterOnesAreOnlyKept)
{
    m_Panel.HoverColour = 0x0000FF;
    m_Panel.SelectColour = 0x00FF00;
    for (int time = 0; time < 2; ++time) {
        Fill(2);
        EXPECT_EQ(Surface("picHover", 1)->Image().pixelColor(0, 0), QColor(255, 0, 0));
        EXPECT_EQ(Surface("picSelected", 2)->Image().pixelColor(0, 0), QColor(0, 255, 0));
        m_Panel.HoverColour = m_Panel.SelectColour = 0x123456;
    }
    EXPECT_EQ(m_Panel.property("HoverColour"), 0x123456);
}

TEST_F(PanelFace, AnotherWidthBuildsTheSurfacesAnewOnce)
{
    ShowFilled(3);
    m_Panel.resize(240, m_Panel.height());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Surface("picNormal", 1)->width(), 240);
    EXPECT_EQ(m_Panel.findChildren<PanelSurface *>(QStringLiteral("picNormal1")).size(), 1);
    EXPECT_EQ(m_Panel.height(), 3 * RowHeight);
}

TEST_F(PanelFace, AnotherNumberOfRowsBuildsTheSurfacesOnce)
{
    ShowFilled(3);
    Fill(5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_Panel.findChildren<PanelSurface *>().size(), 1 + 3 * 5);
}

TEST_F(PanelFace, ASelectionMadeBeforeTheFirstShowingIsSeen)
{
    m_Panel.StickySelection = true;
    Fill(3);
    m_Panel.SetSelection(2);
    m_Window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_Window));
    EXPECT_TRUE(Shows("picSelected", 2));
}

TEST_F(PanelFace, TheFocusMarkCanBeSeenOnEverySkin)
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

TEST_F(PanelFace, ARowIsAButtonOfItsCaptionToAScreenReader)
{
    ShowFilled(2);
    const QAccessibleInterface *row = QAccessible::queryAccessibleInterface(Surface("picNormal", 2));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->role(), QAccessible::Button);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("Row 2"));
}

TEST_F(PanelFace, PersistedPropertiesHaveTheirDefaults)
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

TEST_F(PanelFace, RowsBelowThePictureHaveTheColourInWhichItEnds)
{
    GivenSkin(QStringLiteral("Blue"));
    const QList<QRgb> colours{0xffff0000, 0xff00ff00};
    m_Folder.Write(QStringLiteral("skins/Blue/ButtonBackground.gif"),
                   GifBytes({174, 2 * RowHeight}, colours, [](int, int y) { return y < RowHeight ? 0 : 1; }));
    modMain::CurrentSkin = std::make_shared<CSkin>();
    modMain::CurrentSkin->SetName(QStringLiteral("Blue"));
    ShowFilled(4);
    const auto ground = [&](int row) { return QColor(Surface("picNormal", row)->Image().pixel(2, RowHeight - 1)); };
    EXPECT_EQ(ground(1), QColor(Qt::red));
    for (int row = 2; row <= 4; ++row) EXPECT_EQ(ground(row), QColor(Qt::green)) << row;
    modMain::CurrentSkin = nullptr;
    Fill(4);
    EXPECT_EQ(ground(4), QColor(Qt::white)) << "without a skin";
}

TEST_F(PanelFace, FortyRowsHaveOneGroundOnADeliveredSkin)
{
    for (const char *name : {"Meadow", "Night"}) {
        GivenDeliveredSkin(QLatin1String(name));
        m_Panel.ClearButtons();
        for (int row = 1; row <= 40; ++row) m_Panel.Add(QString::number(row), QString::number(row));
        m_Panel.UpdateButtons();
        const QImage panel = m_Panel.grab().toImage();
        const QRgb first = panel.pixel(2, 2);
        EXPECT_NE(first, qRgb(255, 255, 255)) << name;
        EXPECT_EQ(panel.pixel(2, panel.height() - 2), first) << name;
        EXPECT_EQ(panel.pixel(panel.width() - 2, panel.height() - 2), first) << name;
    }
}

TEST_F(PanelFace, PicturesForPeople)
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
