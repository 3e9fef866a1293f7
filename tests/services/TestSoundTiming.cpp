// Nothing waits for sound: on a device that plays in real time, each operation is over in a small part of a frame.
#include "platform/SoundDevice.h"
#include "services/colSound.h"
#include "services/modDX.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WaveBytes.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <functional>

namespace
{
[[maybe_unused]] const bool silentDriver = qputenv("ALSOFT_DRIVERS", "null");

constexpr double AFrame = 16.0; // [ms]

double MillisecondsEach(int times, const std::function<void(int)> &work)
{
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < times; ++i) work(i);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6 / times;
}
} // namespace

TEST(SoundTiming, NoOperationWaitsForTheDevice)
{
    const TestFolder folder;
    for (int i = 0; i < 50; ++i) folder.Write(QStringLiteral("sounds/e%1.wav").arg(i), SteadyWave(1000, 44100));
    modDX::InitSound(nullptr);
    ASSERT_NE(modDX::Device(), nullptr);
    {
        colSound sounds(true);
        sounds.SetPath(folder.Path());
        const auto effect = [&](int i) -> CSound & { return sounds.Item(QStringLiteral("e%1").arg(i % 50)); };
        const std::pair<const char *, std::function<void(int)>> operations[] = {
            {"load", [&](int i) { effect(i); }},
            {"play", [&](int i) { effect(i).Play(1); }},
            {"volume", [&](int i) { effect(i).SetVolume(-i); }},
            {"mute", [&](int i) { effect(i).Mute(true); }},
            {"unmute", [&](int i) { effect(i).Mute(false); }},
            {"switch", [&](int i) { sounds.SetSoundOn(i % 2 != 0); }},
            {"halt", [&](int i) { effect(i).Halt(); }},
            {"missing", [&](int i) { sounds.Item(QStringLiteral("missing%1").arg(i)).Play(0); }},
        };
        for (const auto &[name, work] : operations) {
            const double taken = MillisecondsEach(50, work);
            EXPECT_LT(taken, AFrame) << name; // on average, with the sanitizers on
            testing::Test::RecordProperty(name, std::to_string(taken));
        }
    }
    EXPECT_LT(MillisecondsEach(1, [](int) { modDX::EndSound(); }), 1000.0);
}
