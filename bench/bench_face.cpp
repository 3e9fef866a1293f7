// The main window's face: outline and picture of a large frame beside one pass over its pixels, and what a person
// waits for: a change of skin, a refilled menu, the layout, each until the window is painted, beside a bare window of
// Qt's that paints the same place from one picture. Times are in milliseconds, the best turn of each counts.
#include "RunBenches.h"
#include "sdk/CSkinPic.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"
#include "skin/FrameFace.h"
#include "skin/Region.h"
#include "skin/ScreenSize.h"
#include "skin/colSkin.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <memory>

namespace
{
constexpr QSize LargeFrame(3840, 2160);
constexpr QRgb Key = 0xffff00ff;

double Milliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Takes turns with the floor, so that both see the same machine.
void Race(benchmark::State &state, const std::function<void()> &ours, const std::function<void()> &floor)
{
    double best = std::numeric_limits<double>::max(), bestFloor = best;
    for ([[maybe_unused]] auto turn : state) {
        bestFloor = std::min(bestFloor, Milliseconds(floor));
        const double taken = Milliseconds(ours);
        best = std::min(best, taken);
        state.SetIterationTime(taken / 1000);
    }
    state.counters["best"] = best;
    state.counters["floor"] = bestFloor;
    state.counters["ratio"] = best / bestFloor;
}

// A window with round corners and a bay at its foot, of many colours.
QImage Frame(const QSize &size)
{
    QImage frame(size, QImage::Format_RGB32);
    const double radius = size.height() / 5.0;
    const auto isOutside = [&](int x, int y) {
        const double across = std::max({radius - x, x - (size.width() - radius), 0.0});
        const double down = std::max({radius - y, y - (size.height() - radius), 0.0});
        const double bayX = x - size.width() / 2.0, bayY = y - size.height();
        return across * across + down * down > radius * radius || bayX * bayX + bayY * bayY < radius * radius;
    };
    for (int y = 0; y < size.height(); ++y) {
        QRgb *pixel = reinterpret_cast<QRgb *>(frame.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            pixel[x] = isOutside(x, y) ? Key : qRgb(x & 255, (x + y) & 255, y & 255);
    }
    return frame;
}

int PixelsOfKey(const QImage &picture)
{
    int count = 0;
    const int width = picture.width(); // not asked for each pixel, or the floor would be a staircase
    for (int y = 0; y < picture.height(); ++y) {
        const QRgb *pixel = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 0; x < width; ++x) count += pixel[x] == Key ? 1 : 0;
    }
    return count;
}

void OutlineOfALargeFrame(benchmark::State &state)
{
    const QImage frame = Frame(LargeFrame);
    Region region;
    Race(
        state,
        [&] {
            std::int32_t key = Region::UseCorner;
            region.ScanPicture(frame, key);
            benchmark::DoNotOptimize(region.Rgn().rectCount());
        },
        [&] { benchmark::DoNotOptimize(PixelsOfKey(frame)); });
    state.counters["rects"] = region.Rgn().rectCount();
}

void FaceOfALargeFrame(benchmark::State &state)
{
    const QImage frame = Frame(LargeFrame / 2);
    Region region;
    std::int32_t key = Region::UseCorner;
    region.ScanPicture(frame, key);
    Race(
        state, [&] { benchmark::DoNotOptimize(FaceOf(region, frame, {}, 2)); },
        [&] {
            benchmark::DoNotOptimize(
                frame.scaled(LargeFrame, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).constBits());
        });
}

// The whole program with both skins as they are delivered.
std::unique_ptr<RunningProgram> program; // ends before the application does

RunningProgram &Program()
{
    if (program) return *program;
    SetScreenSize({1600, 1200});
    program = std::make_unique<RunningProgram>();
    program->GivenDelivered(QStringLiteral("skins/Meadow"));
    program->GivenDelivered(QStringLiteral("skins/Night"));
    if (!program->Start()) qFatal("the program does not start");
    program->NewPlayer(QStringLiteral("Ann"));
    return *program;
}

// A window that does nothing but paint pictures: the least that has to be done for the same pixels to change.
class BareWindow final : public QWidget
{
public:
    BareWindow() : QWidget(nullptr, Qt::FramelessWindowHint) { setAttribute(Qt::WA_TranslucentBackground); }
    void Show(const QImage &picture, const QRegion &outline)
    {
        m_Picture = picture;
        setMask(outline);
        resize(picture.size());
        update();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (const QRect &rect : event->region()) painter.drawImage(rect, m_Picture, rect);
    }

private:
    QImage m_Picture;
};

void Drain()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

// A bare window as large as the program's, with its picture and outline.
std::unique_ptr<BareWindow> Bare()
{
    RunningProgram &program = Program();
    auto bare = std::make_unique<BareWindow>();
    bare->Show(program.Window().grab().toImage(), program.Window().mask());
    bare->show();
    if (!QTest::qWaitForWindowExposed(bare.get())) qFatal("the bare window does not show");
    Drain();
    return bare;
}

void ChangeTo(const QString &skin)
{
    RunningProgram &program = Program(); // the skins come with it
    modMain::CurrentSkin = modMain::Skins->Item(skin);
    program.Window().SetSkin(modMain::CurrentSkin);
    Drain();
}

// The floor has outline and picture of both skins ready, and reads the frame's pixels once, as its outline needs it.
void SkinChange(benchmark::State &state)
{
    struct Look
    {
        QImage Picture;
        QImage Frame;
        QRegion Outline;
    };
    const std::array names{QStringLiteral("Meadow"), QStringLiteral("Night")};
    std::array<Look, 2> looks;
    for (std::size_t i = 0; i < names.size(); ++i) {
        ChangeTo(names[i]);
        looks[i] = {Program().Window().grab().toImage(), modMain::CurrentSkin->Frame()->picture(),
                    Program().Window().mask()};
    }
    const auto bare = Bare();
    std::size_t turn = 0;
    Race(
        state, [&] { ChangeTo(names[turn++ % 2]); },
        [&] {
            const Look &look = looks[turn % 2];
            benchmark::DoNotOptimize(PixelsOfKey(look.Frame));
            bare->Show(look.Picture, look.Outline);
            Drain();
        });
}

void PanelRefill(benchmark::State &state)
{
    RunningProgram &program = Program();
    const auto bare = Bare();
    const QRect menu = program.Find("ctlButtonPanel1")->geometry();
    Race(
        state,
        [&] {
            program.Window().MakePanel();
            Drain();
        },
        [&] {
            bare->update(menu);
            Drain();
        });
}

void Layout(benchmark::State &state)
{
    RunningProgram &program = Program();
    const auto bare = Bare();
    const QSize size = program.Window().size();
    int wider = 0;
    Race(
        state,
        [&] {
            wider = 1 - wider;
            program.Window().resize(size + QSize(wider, 0));
            Drain();
        },
        [&] {
            bare->resize(size + QSize(wider, 0));
            bare->update();
            Drain();
        });
}

BENCHMARK(OutlineOfALargeFrame)->UseManualTime()->Iterations(40)->Unit(benchmark::kMillisecond);
BENCHMARK(FaceOfALargeFrame)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(SkinChange)->UseManualTime()->Iterations(60)->Unit(benchmark::kMillisecond);
BENCHMARK(PanelRefill)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(Layout)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char *argv[]) { return RunBenches(argc, argv, program); }
