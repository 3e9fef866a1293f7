#include "Shot.h"
#include "sdk/controls/Caption.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/cTransPictureBox.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

// A round button on a magenta ground.
QImage Pill(const QSize &size, const QColor &colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(255, 0, 255));
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(picture.rect(), size.height() / 2.0, size.height() / 2.0);
    return picture;
}

// The box around all pixels that differ from the ground.
QRect Inked(const QImage &shot)
{
    QRect inked;
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x)
            if (shot.pixelColor(x, y) != QColor(Qt::white)) inked |= QRect(x, y, 1, 1);
    return inked;
}

class Button : public testing::Test
{
protected:
    Button() : m_Button(&m_Window)
    {
        m_Window.resize(200, 100);
        m_Button.setGeometry(10, 10, 120, 24);
        m_Button.SetCaption(S("Play"));
        m_Window.show();
        m_Window.activateWindow();
        QApplication::processEvents();
        QTest::mouseClick(&m_Window, Qt::LeftButton, {}, {190, 90}); // the keys are not in use
    }
    QWidget m_Window;
    LarkButton m_Button;
};
} // namespace

TEST_F(Button, IsPressedByMouseSpaceAndEnter)
{
    QSignalSpy clicked(&m_Button, &LarkButton::clicked);
    QTest::mouseClick(&m_Button, Qt::LeftButton);
    EXPECT_TRUE(m_Button.hasFocus()) << "it takes the focus on click";
    QTest::keyClick(&m_Button, Qt::Key_Space);
    QTest::keyClick(&m_Button, Qt::Key_Return);
    QTest::keyClick(&m_Button, Qt::Key_Enter);
    EXPECT_EQ(clicked.count(), 4);
    QTest::mouseClick(&m_Button, Qt::RightButton);
    QTest::keyClick(&m_Button, Qt::Key_A);
    EXPECT_EQ(clicked.count(), 4);
}

TEST_F(Button, EnterThatWasPressedElsewhereDoesNothing)
{
    QSignalSpy clicked(&m_Button, &LarkButton::clicked);
    m_Button.setFocus();
    QTest::keyRelease(&m_Button, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(Button, IsPressedTwiceByADoubleClick)
{
    QSignalSpy clicks(&m_Button, &LarkButton::clicked);
    QTest::mouseDClick(m_Window.windowHandle(), Qt::LeftButton, {}, m_Button.geometry().center());
    EXPECT_EQ(clicks.size(), 2);
}

TEST_F(Button, ThatComesUpUnderADoubleClickIsNotPressedByItsSecondHalf)
{
    LarkButton other(&m_Window);
    other.setGeometry(m_Button.geometry());
    QObject::connect(&m_Button, &LarkButton::clicked, &other, [&] {
        m_Button.hide();
        other.show();
    });
    QSignalSpy clicks(&other, &LarkButton::clicked);
    const QPoint place = other.geometry().center();
    QTest::mouseDClick(m_Window.windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(other.isVisible());
    EXPECT_EQ(clicks.size(), 0);
    QTest::mouseClick(m_Window.windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(clicks.size(), 1) << "a click of its own counts";
}

TEST_F(Button, LooksDifferentUpAndDownWithoutPictures)
{
    const QImage up = Shot(m_Button);
    m_Button.setDown(true);
    EXPECT_NE(up, Shot(m_Button));
}

TEST_F(Button, TheKeyColourShowsTheGround)
{
    m_Button.SetPictureUp(Pill({120, 24}, QColor(250, 170, 40)));
    m_Button.SetCaption({});
    const QImage shot = Shot(m_Button, Qt::cyan);
    EXPECT_EQ(shot.pixelColor(0, 0), QColor(Qt::cyan));
    EXPECT_EQ(shot.pixelColor(119, 23), QColor(Qt::cyan));
    EXPECT_EQ(shot.pixelColor(60, 12), QColor(250, 170, 40));
}

TEST_F(Button, AStretchedPictureKeepsItsRoundEndsAndBringsNoKeyColour)
{
    m_Button.SetPictureUp(Pill({300, 48}, QColor(250, 170, 40)));
    m_Button.SetCaption({});
    const QImage shot = Shot(m_Button, Qt::cyan);
    EXPECT_EQ(shot.pixelColor(0, 0), QColor(Qt::cyan));
    EXPECT_EQ(shot.pixelColor(60, 1), QColor(250, 170, 40));
    EXPECT_EQ(shot.pixelColor(1, 12), QColor(250, 170, 40));
    for (int x = 0; x < 120; ++x) {
        const QColor colour = shot.pixelColor(x, 2);
        EXPECT_FALSE(colour.red() > 200 && colour.green() < 100 && colour.blue() > 200) << x;
    }
}

TEST_F(Button, WithoutADownPictureTheUpPictureStays)
{
    m_Button.SetPictureUp(Pill({120, 24}, QColor(250, 170, 40)));
    m_Button.setDown(true);
    EXPECT_EQ(Shot(m_Button).pixelColor(12, 12), QColor(250, 170, 40));
}

TEST_F(Button, ShowsItsDownPictureForAsLongAsItIsHeldDown)
{
    const QColor up(250, 170, 40), down(150, 90, 20);
    m_Button.SetPictureUp(Pill({120, 24}, up));
    m_Button.SetPictureDown(Pill({120, 24}, down));
    const QPoint beside(12, 12); // the caption
    EXPECT_EQ(Shot(m_Button).pixelColor(beside), up);
    QTest::mousePress(&m_Button, Qt::LeftButton);
    EXPECT_EQ(Shot(m_Button).pixelColor(beside), down);
    QTest::mouseRelease(&m_Button, Qt::LeftButton);
    EXPECT_EQ(Shot(m_Button).pixelColor(beside), up);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyPress(&m_Button, key);
        EXPECT_EQ(Shot(m_Button).pixelColor(beside), down) << key;
        QTest::keyRelease(&m_Button, key);
        EXPECT_EQ(Shot(m_Button).pixelColor(beside), up) << key;
    }
}

TEST_F(Button, WritesEveryCharacterForItselfAndSmallerBeforeItCuts)
{
    m_Button.SetFont(10, false);
    const auto ink = [&](const char *caption) {
        m_Button.SetPictureUp(Pill({120, 24}, Qt::white));
        m_Button.SetForeColour(Qt::black);
        m_Button.SetCaption(S(caption));
        return Inked(Shot(m_Button));
    };
    EXPECT_GT(ink("A&B").width(), ink("AB").width());
    EXPECT_GT(ink("<b>A</b>").width(), 3 * ink("A").width());
    const QRect natural = ink("mmmm"), long_ = ink("mmmmmmmmmmmmmm");
    EXPECT_LT(long_.height(), natural.height());
    EXPECT_GE(long_.left(), 8);
    EXPECT_LE(long_.right(), 111);
    EXPECT_GT(long_.width(), 80) << "not cut by more than it had to";
}

TEST_F(Button, ItsCaptionHasTheColourThatItIsGiven)
{
    m_Button.SetPictureUp(Pill({120, 24}, Qt::white));
    m_Button.SetForeColour(Qt::red);
    const QImage shot = Shot(m_Button);
    int red = 0;
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x) {
            const QColor colour = shot.pixelColor(x, y);
            EXPECT_GE(colour.red(), 250);
            red += colour.green() < 100 && colour.blue() < 100 ? 1 : 0;
        }
    EXPECT_GT(red, 10);
}

// As for the rows of the menu: a line of the mark stands out from whatever the picture is.
TEST_F(Button, TheFocusMarkCanBeSeenOnEveryPicture)
{
    m_Button.SetCaption({});
    for (const int grey : {0, 64, 128, 192, 255}) {
        m_Button.SetPictureUp(Pill({120, 24}, QColor(grey, grey, grey)));
        QTest::mouseClick(&m_Button, Qt::LeftButton);
        const QImage bare = Shot(m_Button, QColor(grey, grey, grey));
        QTest::keyClick(&m_Button, Qt::Key_Tab);
        const QImage marked = Shot(m_Button, QColor(grey, grey, grey));
        int seen = 0;
        for (int y = 0; y < marked.height(); ++y)
            for (int x = 0; x < marked.width(); ++x)
                seen += std::abs(qGray(marked.pixel(x, y)) - qGray(bare.pixel(x, y))) > 80 ? 1 : 0;
        EXPECT_GT(seen, 2 * 100) << grey << ": at least a line above and one below";
    }
}

TEST_F(Button, TheCaptionReadsOnDarkAndOnLightPictures)
{
    EXPECT_EQ(Look::ReadableOn(Pill({120, 24}, QColor(20, 30, 60))), QColor(Qt::white));
    EXPECT_LT(Look::ReadableOn(Pill({120, 24}, QColor(250, 170, 40))).lightness(), 60);
}

TEST_F(Button, TheFocusMarkShowsToThoseWhoUseKeys)
{
    QTest::mouseClick(&m_Button, Qt::LeftButton);
    ASSERT_TRUE(m_Button.hasFocus());
    const QImage clicked = Shot(m_Button);
    QTest::keyClick(&m_Button, Qt::Key_Tab);
    ASSERT_TRUE(m_Button.hasFocus());
    EXPECT_NE(Shot(m_Button), clicked);
    m_Button.clearFocus();
    EXPECT_EQ(Shot(m_Button), clicked);
}

TEST_F(Button, TellsAScreenReaderItsCaption)
{
    m_Button.SetCaption(S("Salt & <b>Pepper</b>"));
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&m_Button);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text(QAccessible::Name), S("Salt & <b>Pepper</b>"));
    EXPECT_EQ(told->role(), QAccessible::PushButton);
}

TEST(Label, ShrinksBeforeItCuts)
{
    TransLabel label;
    label.resize(80, 24);
    label.SetFont(12, true);
    label.SetCaption(S("mmm"));
    const int natural = Inked(Shot(label)).height();
    label.SetCaption(S("mmmmmmmm"));
    const QRect shrunk = Inked(Shot(label));
    EXPECT_LT(shrunk.height(), natural);
    EXPECT_GE(shrunk.left(), 0);
    EXPECT_LE(shrunk.right(), 79);
    EXPECT_GT(shrunk.width(), 60);
}

TEST(Label, WritesEveryCharacterForItself)
{
    TransLabel marked, plain;
    for (TransLabel *label : {&marked, &plain}) label->resize(200, 24);
    marked.SetCaption(S("A&B"));
    plain.SetCaption(S("AB"));
    EXPECT_GT(Inked(Shot(marked)).width(), Inked(Shot(plain)).width());
}

TEST(Label, StandsWhereItIsAlignedInItsOwnColourOnWhateverLiesBelow)
{
    TransLabel label;
    label.resize(120, 60);
    label.SetCaption(S("H"));
    const auto ink = [&](Qt::Alignment alignment) {
        label.SetAlignment(alignment);
        return Inked(Shot(label));
    };
    EXPECT_LT(ink(Qt::AlignLeft | Qt::AlignTop).right(), 30);
    EXPECT_LT(ink(Qt::AlignLeft | Qt::AlignTop).bottom(), 30);
    EXPECT_GT(ink(Qt::AlignRight | Qt::AlignBottom).left(), 90);
    EXPECT_GT(ink(Qt::AlignRight | Qt::AlignBottom).top(), 30);
    const QPoint middle = ink(Qt::AlignCenter).center();
    EXPECT_NEAR(middle.x(), 60, 2);
    EXPECT_NEAR(middle.y(), 30, 4);
    label.SetForeColour(Qt::red);
    const QImage shot = Shot(label, Qt::yellow);
    int red = 0;
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x) {
            EXPECT_GE(shot.pixelColor(x, y).red(), 250);
            EXPECT_EQ(shot.pixelColor(x, y).blue(), 0);
            red += shot.pixelColor(x, y).green() < 100 ? 1 : 0;
        }
    EXPECT_GT(red, 5);
    EXPECT_EQ(shot.pixelColor(0, 0), QColor(Qt::yellow));
}

TEST(Label, BreaksLinesAtCrLf)
{
    TransLabel one, two;
    for (TransLabel *label : {&one, &two}) label->resize(200, 80);
    one.SetCaption(S("AB"));
    two.SetCaption(S("AB\r\nAB"));
    EXPECT_GT(Inked(Shot(two)).height(), Inked(Shot(one)).height() * 2);
    EXPECT_EQ(Inked(Shot(two)).width(), Inked(Shot(one)).width());
}

TEST(Label, WrapsWordsAndStaysInItsPlace)
{
    TransLabel label;
    label.resize(100, 40);
    label.SetWordWrap(true);
    label.SetCaption(S("one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen"));
    EXPECT_TRUE(QRect(0, 0, 100, 40).contains(Inked(Shot(label))));
}

TEST(Label, CutsNoLetterInAPlaceLowerThanALineAndKeepsItsNeighboursOnOneLine)
{
    TransLabel low, high;
    for (TransLabel *label : {&low, &high}) label->SetFont(14.25, true); // 19 pixels
    low.resize(200, 20);
    high.resize(200, 40);
    for (const char *text : {"Language", "gjpqy"}) {
        for (TransLabel *label : {&low, &high}) label->SetCaption(S(text));
        EXPECT_EQ(Inked(Shot(low)).height(), Inked(Shot(high)).height()) << text;
    }
    low.SetCaption(S("209"));
    const int line = Inked(Shot(low)).bottom();
    low.SetCaption(S("2g"));
    EXPECT_EQ(Inked(Shot(low).copy(0, 0, 9, 20)).bottom(), line);
}

TEST(Label, TellsClicksInsideAndIsText)
{
    TransLabel label;
    label.resize(100, 20);
    label.SetCaption(S("Ann"));
    QSignalSpy clicked(&label, &TransLabel::Click);
    QTest::mouseClick(&label, Qt::LeftButton);
    QTest::mousePress(&label, Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {500, 5});
    EXPECT_EQ(clicked.count(), 1);
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&label);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::StaticText);
    EXPECT_EQ(told->text(QAccessible::Name), S("Ann"));
}

TEST(PictureOnClearGround, LeavesOutTheColourOfItsTopLeftPixel)
{
    cTransPictureBox box;
    box.SetPictureFile(Pill({40, 20}, Qt::red));
    box.SizeToPicture();
    EXPECT_EQ(box.size(), QSize(40, 20));
    const QImage shot = Shot(box, Qt::cyan);
    EXPECT_EQ(shot.pixelColor(0, 0), QColor(Qt::cyan));
    EXPECT_EQ(shot.pixelColor(20, 10), QColor(Qt::red));
}

TEST(Gallery, OfTheControls)
{
    QWidget window;
    window.resize(420, 220);
    window.setFont(QFont(S("Inter")));
    window.setStyleSheet(S("QWidget#ground { background: #2b6a5c; }"));
    const auto put = [&window](int row, int column, const char *caption) {
        auto *button = new LarkButton(&window);
        button->setGeometry(10 + column * 135, 10 + row * 34, 125, 24);
        button->SetFont(9.75, true);
        button->SetCaption(QString::fromUtf8(caption));
        return button;
    };
    put(0, 0, "Play");
    put(0, 1, "Pressed")->setDown(true);
    auto *focused = put(0, 2, "Focused");
    const QImage amber = Pill({240, 46}, QColor(250, 176, 48));
    put(1, 0, "Skinned")->SetPictureUp(amber);
    put(1, 1, "A caption that is much too long for it")->SetPictureUp(amber);
    put(1, 2, "Dark")->SetPictureUp(Pill({120, 24}, QColor(30, 40, 80)));
    put(2, 0, "Disabled")->setEnabled(false);
    put(2, 1, "Salt & <b>Pepper</b>");
    auto *wide = put(3, 0, "Ann");
    wide->setGeometry(10, 120, 300, 50);
    wide->SetFont(14.25, true);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    focused->setFocus();
    QTest::keyClick(focused, Qt::Key_Shift);
    QDir().mkpath(S(NOGGLE_PICTURES));
    EXPECT_TRUE(window.grab().save(S(NOGGLE_PICTURES "/controls.png")));
}
