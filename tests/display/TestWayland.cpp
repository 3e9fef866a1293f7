// The window on Wayland, where a mask takes no pixel away: outside of its outline the desktop shows, since nothing is
// painted there. Pictures are those that the compositor would put on a screen. The pointer's tests have a compositor
// that is a window of an X display, where xdotool moves the pointer.
#include "tests/shell/support/FaceTest.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QWindow>

namespace
{
constexpr QRgb Desktop = 0xff00aa00; // as run-on-display sets it
constexpr QRgb Key = 0xffff00ff;
constexpr QRgb Blue = 0xff2040c0;
constexpr QSize FrameSize(700, 500);

// A lens, with every slope at its edge.
bool IsInLens(int x, int y)
{
    const double across = (x + 0.5) * 2 / FrameSize.width() - 1, down = (y + 0.5) * 2 / FrameSize.height() - 1;
    return across * across + down * down < 0.95;
}

class Wayland : public FaceTest
{
protected:
    Wayland()
    {
        if (QGuiApplication::platformName() != u"wayland") qFatal("these tests need a compositor: run-on-display");
    }

    /// The frame is a lens; controls that the skin places reach beyond it.
    void StartWithLens()
    {
        GivenSkin(
            QStringLiteral("Lens"),
            {{QStringLiteral("Frame.gif"),
              GifBytes(FrameSize, {Key, Blue}, [](int x, int y) { return IsInLens(x, y) ? 1 : 0; })},
             {QStringLiteral("Skin.ini"), Positions(QRect(0, 0, 300, 200)) + "LogoLeft=600\r\nLogoTop=400\r\n"}});
        StartWith(QStringLiteral("Lens"));
    }

    static QImage Screen()
    {
        const QTemporaryDir folder;
        QProcess shooter;
        shooter.setWorkingDirectory(folder.path());
        shooter.start(QStringLiteral("weston-screenshooter"), QStringList());
        RunningProgram::Until([&] { return shooter.state() == QProcess::NotRunning; });
        const QStringList taken = QDir(folder.path()).entryList(QDir::Files);
        return QImage(folder.filePath(taken.value(0))).convertToFormat(QImage::Format_RGB32);
    }

    /// Where the screen is not the desktop's.
    static QRegion Covered(const QImage &screen)
    {
        QRegion covered;
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                const int start = x;
                while (x < screen.width() && screen.pixel(x, y) != Desktop) ++x;
                if (x > start) covered += QRect(start, y, x - start, 1);
            }
        }
        return covered;
    }
};

// Another window of the desktop, all over the screen: what the pointer finds where ours is not.
class Below final : public QWidget
{
public:
    Below() : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor::fromRgb(Orange));
        setPalette(palette);
        showMaximized();
    }
    static constexpr QRgb Orange = 0xffc07020;
};

// The window that the pointer is over or pressed, as the compositor told it.
class Finger final : public QObject
{
public:
    QPointer<QObject> Over;
    QPointer<QObject> Pressed;

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (!receiver->isWindowType()) return false;
        if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) Over = receiver;
        if (event->type() == QEvent::MouseButtonPress) Pressed = receiver;
        return false;
    }
};

class Pointer : public Wayland
{
protected:
    /// The window's place on the screen, found by its colour while the pointer is out of the way.
    static QPoint PlaceOf(const QRegion &outline)
    {
        QRect found;
        RunningProgram::Until([&] {
            found = BoundsOf(Screen(), Blue);
            return found.size() == outline.boundingRect().size();
        });
        return found.topLeft() - outline.boundingRect().topLeft();
    }
    static QRect BoundsOf(const QImage &screen, QRgb colour)
    {
        QRect bounds;
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
                if (screen.pixel(x, y) == colour) bounds |= QRect(x, y, 1, 1);
        return bounds;
    }
    static void Hand(const QStringList &words)
    {
        QProcess hand;
        hand.start(QStringLiteral("xdotool"), words);
        if (!RunningProgram::Until([&] { return hand.state() == QProcess::NotRunning; }) || hand.exitCode() != 0)
            qFatal("xdotool %s", qPrintable(words.join(u' ')));
    }
    static void MoveTo(QPoint place)
    {
        Hand({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
    }
    /// The compositor counts from wherever it met the pointer first: a corner is where both agree.
    static void AgreeOnThePlace()
    {
        MoveTo({1279, 899});
        MoveTo({0, 0});
    }
    /// Whether the pointer, put there, is over that window in the end.
    bool IsOver(QPoint place, const QWidget &window)
    {
        finger.Over.clear();
        MoveTo(place);
        return RunningProgram::Until([&] { return finger.Over != nullptr && finger.Over == window.windowHandle(); });
    }

    Finger finger;
};

} // namespace

TEST_F(Wayland, OutsideOfTheOutlineTheDesktopShows)
{
    StartWithLens();
    const QRegion outline = Window().mask();
    ASSERT_LT(outline.rectCount(), 1000);
    // The compositor places the window where it likes.
    QRegion covered;
    RunningProgram::Until([&] {
        covered = Covered(Screen());
        return covered.boundingRect().size() == outline.boundingRect().size();
    });
    covered.translate(outline.boundingRect().topLeft() - covered.boundingRect().topLeft());
    EXPECT_TRUE(covered.subtracted(outline).isEmpty()) << "painted beyond the outline";
    EXPECT_TRUE(outline.subtracted(covered).isEmpty()) << "not painted inside of it";
}

// Where a window that was minimised says at once that it is not.
TEST_F(Pointer, EscapePausesAGameHereToo)
{
    StartWith(QStringLiteral("Plain"));
    StartGame();
    QTest::keyClick(&Window(), Qt::Key_Escape);
    EXPECT_TRUE(RunningProgram::Until([&] { return Window().Mode() == 5; }));
}

TEST_F(Pointer, OutsideOfTheOutlineThePointerFindsTheWindowBelow)
{
    Below below;
    ASSERT_TRUE(RunningProgram::Until([&] { return BoundsOf(Screen(), Below::Orange).width() == Screen().width(); }));
    StartWithLens();
    const QRegion outline = Window().mask();
    const QPoint place = PlaceOf(outline);
    AgreeOnThePlace();
    qApp->installEventFilter(&finger);
    for (const int row : {8, 60, 250, 430, 490}) {
        const QRect run = outline.intersected(QRect(0, row, FrameSize.width(), 1)).boundingRect();
        const int middle = run.center().x();
        EXPECT_TRUE(IsOver(place + QPoint(run.left() - 1, row), below)) << row;
        EXPECT_TRUE(IsOver(place + QPoint(run.left(), row), Window())) << row;
        EXPECT_TRUE(IsOver(place + QPoint(run.right() + 1, row), below)) << row;
        EXPECT_TRUE(IsOver(place + QPoint(run.right(), row), Window())) << row;
        EXPECT_TRUE(IsOver(place + QPoint(middle, row), Window())) << row;
    }
    for (const QPoint corner : {QPoint(2, 2), QPoint(FrameSize.width() - 3, 2), QPoint(2, FrameSize.height() - 3)})
        EXPECT_TRUE(IsOver(place + corner, below)) << corner.x() << "," << corner.y();
    Hand({QStringLiteral("click"), QStringLiteral("1")});
    EXPECT_TRUE(RunningProgram::Until([&] { return finger.Pressed == below.windowHandle(); }));
    qApp->removeEventFilter(&finger);
}
