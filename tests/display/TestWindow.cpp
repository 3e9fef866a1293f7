// The window among others: dragged by its face, and not there where its outline is not.
#include "tests/display/DisplayTest.h"

#include <QMouseEvent>

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

protected:
    void mousePressEvent(QMouseEvent *) override { ++Presses; }
};
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
    RunningProgram::Turn(300);
    for (const QPoint corner : {QPoint(3, 3), QPoint(855, 3), QPoint(3, 595), QPoint(855, 595)})
        ClickAt(Window().mapToGlobal(corner));
    EXPECT_TRUE(RunningProgram::Until([&] { return other.Presses == 4; })) << other.Presses;
    ClickAt(Window().mapToGlobal(QPoint(430, 15)));
    EXPECT_EQ(other.Presses, 4);
}
