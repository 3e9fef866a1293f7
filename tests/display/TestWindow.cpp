// The window among others: dragged by its face, and not there where its outline is not.
#include "tests/display/DisplayTest.h"

#include "shell/program/modMain.h"

#include "skin/ScreenSize.h"
#include "skin/colSkin.h"

#include "tests/support/GifBytes.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QProcess>
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

/// A bar of the desktop at the foot of the screen: the window manager takes it off the room that windows get.
class Bar final : public QWidget
{
public:
    explicit Bar(int height)
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        setAttribute(Qt::WA_X11NetWmWindowTypeDock);
        setGeometry(screen.adjusted(0, screen.height() - height, 0, 0));
        const QString id = QString::number(winId());
        QProcess told;
        told.start(QStringLiteral("xprop"),
                   {QStringLiteral("-id"), id, QStringLiteral("-f"), QStringLiteral("_NET_WM_STRUT"),
                    QStringLiteral("32c"), QStringLiteral("-set"), QStringLiteral("_NET_WM_STRUT"),
                    QStringLiteral("0,0,0,%1").arg(height)});
        if (!told.waitForFinished() || told.exitCode() != 0) qFatal("xprop");
        show();
    }
};

class MainWindow : public DisplayTest
{
protected:
    /// Waits until what is beneath shows exactly where the outline is not.
    bool IsCutToItsOutline(const Beneath &other) const
    {
        return RunningProgram::Until([&] { // not by ==, which tells apart what was put together from other pieces
            return WhereShown(other).xored(QRegion(Window().rect()) - Window().mask()).isEmpty();
        });
    }
};

class ManagedMainWindow : public Managed
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
    EXPECT_TRUE(IsCutToItsOutline(other));
    for (const QPoint corner : {QPoint(3, 3), QPoint(855, 3), QPoint(3, 595), QPoint(855, 595)})
        ClickAt(Window().mapToGlobal(corner));
    EXPECT_TRUE(RunningProgram::Until([&] { return other.Presses == 4; })) << other.Presses;
    ClickAt(Window().mapToGlobal(QPoint(430, 15)));
    EXPECT_EQ(other.Presses, 4);
}

// The outline is there before the window is as large as it.
TEST_F(MainWindow, ShowsAllOfALargerOutlineAfterASmallerOneAndKeepsItWithOtherFlags)
{
    Program.GivenSkin(QStringLiteral("Small"));
    Program.Folder.Write(QStringLiteral("skins/Small/Frame.gif"),
                         GifBytes({640, 480}, {0xffff00ff, 0xff2040c0},
                                  [](int x, int y) { return x > 40 && y > 20 && x < 600 && y < 440 ? 1 : 0; }));
    Start();
    const QRegion whole = Window().mask();
    const auto isCut = [this] {
        Beneath other(Window().geometry());
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&other));
        Window().raise();
        return IsCutToItsOutline(other);
    };
    for (const char *name : {"Small", "Plain"}) {
        modMain::CurrentSkin = modMain::Skins->Item(QLatin1String(name));
        Window().SetSkin(modMain::CurrentSkin);
        EXPECT_TRUE(isCut()) << name;
    }
    EXPECT_EQ(Window().mask(), whole);
    Window().setWindowFlag(Qt::WindowStaysOnTopHint); // which takes the window down and puts it up again
    Window().show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Window()));
    EXPECT_TRUE(isCut()) << "with other flags";
}

TEST_F(ManagedMainWindow, StandsInTheMiddleOfTheWholeScreenWhateverTheDesktopKeepsForItself)
{
    constexpr int height = 200;
    const Bar bar(height);
    const QScreen *const screen = QGuiApplication::primaryScreen();
    ASSERT_TRUE(RunningProgram::Until(
        [&] { return screen->availableGeometry().height() == screen->geometry().height() - height; }));
    EXPECT_EQ(ScreenSize(), screen->geometry().size()) << "so large a skin may be";
    Start();
    const QPoint middle((screen->geometry().width() - Window().width()) / 2,
                        (screen->geometry().height() - Window().height()) / 2);
    EXPECT_TRUE(RunningProgram::Until([&] { return Window().pos() == middle; }))
        << Window().x() << " " << Window().y();
    Window().move(10, 10);
    Window().SetSkin(modMain::CurrentSkin);
    EXPECT_TRUE(RunningProgram::Until([&] { return Window().pos() == middle; }))
        << Window().x() << " " << Window().y();
}

TEST_F(ManagedMainWindow, IsNotMadeSmallerThanItsMinimumByTheDesktop)
{
    Start();
    const QByteArray id = QByteArray::number(Window().winId());
    Hand({"windowsize", id, "700", "500"});
    ASSERT_TRUE(RunningProgram::Until([&] { return Window().size() == QSize(700, 500); }));
    Hand({"windowsize", id, "300", "200"});
    EXPECT_TRUE(RunningProgram::Until([&] { return Window().size() == QSize(620, 460); }))
        << Window().width() << " " << Window().height();
}
