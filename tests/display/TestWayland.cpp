// The window on Wayland, where a mask takes no pixel away: outside of its outline the desktop shows, since nothing is
// painted there. Pictures are those that the compositor would put on a screen.
#include "tests/shell/support/FaceTest.h"

#include <QDir>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>

namespace
{
constexpr QRgb Desktop = 0xff00aa00; // as run-on-display sets it
constexpr QRgb Key = 0xffff00ff;
constexpr QRgb Blue = 0xff2040c0;
constexpr QSize FrameSize(700, 500);

class Wayland : public FaceTest
{
protected:
    Wayland()
    {
        if (QGuiApplication::platformName() != u"wayland") qFatal("these tests need a compositor: run-on-display");
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
} // namespace

TEST_F(Wayland, OutsideOfTheOutlineTheDesktopShows)
{
    // A lens, with every slope at its edge; controls that the skin places reach beyond it.
    const auto isInside = [](int x, int y) {
        const double across = (x + 0.5) * 2 / FrameSize.width() - 1, down = (y + 0.5) * 2 / FrameSize.height() - 1;
        return across * across + down * down < 0.95;
    };
    GivenSkin(QStringLiteral("Lens"),
              {{QStringLiteral("Frame.gif"),
                GifBytes(FrameSize, {Key, Blue}, [&](int x, int y) { return isInside(x, y) ? 1 : 0; })},
               {QStringLiteral("Skin.ini"), Positions(QRect(0, 0, 300, 200)) + "LogoLeft=600\r\nLogoTop=400\r\n"}});
    StartWith(QStringLiteral("Lens"));
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
