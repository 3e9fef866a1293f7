// The window among others: dragged by its face, and not there where its outline is not.
#include "tests/display/DisplayTest.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace
{
/// A window of another program, as far as the pointer can tell.
class Beneath final : public QWidget
{
public:
    explicit Beneath(const QRect &place)
    {
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
        setGeometry(place);
        show();
    }
    int Presses = 0;
    static constexpr QRgb Colour = 0xff12a0e6;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), QColor(Colour)); }
    void mousePressEvent(QMouseEvent *) override { ++Presses; }
};

/// Where a picture of the screen has its colour, in its own pixels.
QRegion WhereShown(const Beneath &window)
{
    const QImage screen = window.screen()->grabWindow(0).toImage();
    QRegion shown;
    for (int y = 0; y < window.height(); ++y)
        for (int x = 0; x < window.width(); ++x) {
            const int start = x;
            const auto isSeen = [&] { return screen.pixel(window.pos() + QPoint(x, y)) == Beneath::Colour; };
            while (x < window.width() && isSeen()) ++x;
            if (x > start) shown += QRect(start, y, x - start, 1);
        }
    return shown;
}
} // namespace

class MainWindow : public DisplayTest
{};

TEST_F(MainWindow, IsDraggedByItsFace)
{
    Start();
    const QPoint home = Window().pos();
    Drag(Window().mapToGlobal(QPoint(100, 15)), {40, 30});
    EXPECT_TRUE(RunningProgram::Until([&] { return Window().pos() == home + QPoint(40, 30); }))
        << Window().x() - home.x() << " " << Window().y() - home.y();
}

TEST_F(MainWindow, IsNotDraggedByItsScreens)
{
    StartWithAnn();
    const QPoint home = Window().pos();
    Drag(Program.Find("ctlGameList1")->mapToGlobal(QPoint(5, 5)), {40, 30});
    EXPECT_EQ(Window().pos(), home);
}

TEST_F(MainWindow, ItsCornersBelongToTheWindowBeneath)
{
    Start();
    Beneath other(Window().geometry());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    Window().raise();
    // What is beneath shows exactly where the outline is not.
    EXPECT_TRUE(
        RunningProgram::Until([&] { return WhereShown(other) == QRegion(Window().rect()) - Window().mask(); }));
    for (const QPoint corner : {QPoint(3, 3), QPoint(855, 3), QPoint(3, 595), QPoint(855, 595)})
        ClickAt(Window().mapToGlobal(corner));
    EXPECT_TRUE(RunningProgram::Until([&] { return other.Presses == 4; })) << other.Presses;
    ClickAt(Window().mapToGlobal(QPoint(430, 15)));
    EXPECT_EQ(other.Presses, 4);
}
