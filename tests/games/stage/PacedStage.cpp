#include "tests/games/stage/PacedStage.h"

#include <QEventLoop>
#include <QTimer>

PacedStage::PacedStage(const QString &ClassName, const QString &Delivered, std::uint32_t Seed, int Percent)
    : Stage(ClassName, WithSeed(Delivered, Seed))
{
    SetPace(Percent);
}

bool PacedStage::PlayUntil(const std::function<void()> &Act, const std::function<bool()> &IsSo)
{
    int done = Number();
    bool reached = false;
    QEventLoop loop;
    QTimer eyes;
    QObject::connect(&eyes, &QTimer::timeout, &loop, [&] {
        reached = reached || IsSo();
        if (reached) return loop.quit();
        if (Number() == done) return;
        done = Number();
        Act();
    });
    eyes.start(1);
    QTimer::singleShot(Stage::Patience, &loop, &QEventLoop::quit);
    loop.exec();
    return reached;
}

bool PacedStage::Sees(const std::function<bool()> &IsSo)
{
    return PlayUntil([] {}, IsSo);
}
