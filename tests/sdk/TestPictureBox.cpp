#include "Shot.h"
#include "sdk/controls/PictureBox.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

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

TEST(Box, DrawingOverAPictureLeavesThePictureAsItWas)
{
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::green);
    PictureBox box;
    box.resize(40, 20);
    box.SetPictureFile(picture);
    EXPECT_EQ(box.Surface(), picture);
    QPainter(&box.Surface()).fillRect(5, 5, 2, 2, Qt::blue);
    EXPECT_EQ(Shot(box).pixelColor(5, 5), QColor(Qt::blue));
    EXPECT_EQ(box.PictureFile().pixelColor(5, 5), QColor(Qt::green));
    box.Cls();
    EXPECT_EQ(Shot(box).pixelColor(5, 5), QColor(Qt::green));
}

TEST(Box, APictureOfAnotherSizeLiesAtTheTopLeftOfTheGround)
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::green);
    PictureBox box;
    box.SetPictureFile(picture);
    box.SetBackColour(Qt::yellow);
    box.resize(40, 20);
    EXPECT_EQ(Shot(box).pixelColor(19, 9), QColor(Qt::green));
    EXPECT_EQ(Shot(box).pixelColor(20, 9), QColor(Qt::yellow));
    box.resize(10, 5);
    EXPECT_EQ(Shot(box).pixelColor(9, 4), QColor(Qt::green));
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
