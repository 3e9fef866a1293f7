#include "sdk/controls/Caption.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QSignalSpy>
#include <QTest>

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

QImage Shot(QWidget &control, const QColor &ground = Qt::white)
{
    QImage shot(control.size(), QImage::Format_RGB32);
    shot.fill(ground);
    control.render(&shot, QPoint(), QRegion(), QWidget::DrawChildren);
    return shot;
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

TEST(Box, KeepsWhatWasDrawnAndClears)
{
    PictureBox box;
    box.resize(40, 20);
    box.SetBackColour(Qt::yellow);
    QPainter(&box.Surface()).fillRect(5, 5, 2, 2, Qt::blue);
    EXPECT_EQ(Shot(box).pixelColor(5, 5), QColor(Qt::blue));
    box.resize(60, 30);
    EXPECT_EQ(Shot(box).pixelColor(5, 5), QColor(Qt::blue));
    EXPECT_EQ(Shot(box).pixelColor(55, 25), QColor(Qt::yellow));
    box.Cls();
    EXPECT_EQ(Shot(box).pixelColor(5, 5), QColor(Qt::yellow));
}

TEST(Box, IsAButtonOnceItTakesTheFocus)
{
    PictureBox box;
    box.resize(40, 20);
    QSignalSpy clicked(&box, &PictureBox::Click);
    const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&box);
    EXPECT_EQ(told->role(), QAccessible::Client) << "a ground for other controls";
    box.setAccessibleName(QStringLiteral("A lantern"));
    EXPECT_EQ(told->role(), QAccessible::Graphic);
    QTest::mouseClick(&box, Qt::LeftButton);
    box.setFocusPolicy(Qt::StrongFocus);
    EXPECT_EQ(told->role(), QAccessible::Button);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
}

TEST(Box, ShowsNoMarkForAFocusThatItWasOnlyGiven)
{
    QWidget window;
    auto *box = new PictureBox(&window);
    box->resize(40, 20);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Shot(*box); // from its first drawing on it watches whether keys are used
    const QImage plain = Shot(*box);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Shift);
    ASSERT_TRUE(box->hasFocus());
    EXPECT_EQ(Shot(*box), plain);
    box->setFocusPolicy(Qt::StrongFocus);
    EXPECT_NE(Shot(*box), plain);
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
