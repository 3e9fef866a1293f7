#include "tests/games/stage/PacedStage.h"

#include "services/modIniFile.h"
#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>

#include <algorithm>

namespace
{
constexpr int Patience = 60000; // [ms]

QString AtPace(const QString &delivered, std::uint32_t seed, int percent)
{
    QString folder = WithSeed(delivered, seed);
    EXPECT_TRUE(WriteIniString(QStringLiteral("config"), QStringLiteral("pace"), QString::number(percent),
                               folder + QStringLiteral("GameSettings.ini")));
    return folder;
}
} // namespace

PacedStage::PacedStage(const QString &ClassName, const QString &Delivered, std::uint32_t Seed, int Percent)
    : Stage(ClassName, AtPace(Delivered, Seed, Percent))
{}

QPoint PacedStage::At(QPointF Place) const
{
    const QSize size = Game->Control()->size();
    const double scale = std::min(size.width() / 620.0, size.height() / 420.0);
    const QPointF origin((size.width() - 620 * scale) / 2, (size.height() - 420 * scale) / 2);
    return (origin + Place * scale).toPoint();
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
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    loop.exec();
    return reached;
}

bool PacedStage::Sees(const std::function<bool()> &IsSo)
{
    return PlayUntil([] {}, IsSo);
}

void PacedStage::GiveLook(bool Dark)
{
    Framework->Top = Dark ? QColor(0x10, 0x1a, 0x24) : QColor(0xfa, 0xfd, 0xfb);
    Framework->Bottom = Dark ? QColor(0x1c, 0x2a, 0x3a) : QColor(0xe0, 0xf0, 0xe8);
    modMain::Language = Dark ? QStringLiteral("1") : QString();
}

void PacedStage::UnloadAtTheEnd(const std::function<void()> &First)
{
    Framework->GameOver = [this, First] {
        First();
        Game->Message(QStringLiteral("unload"));
        Game->Unload();
    };
}
