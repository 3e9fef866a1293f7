// The sounds as they are delivered, read from the tree.
#include "platform/Files.h"
#include "platform/SoundBuffer.h"
#include "platform/SoundDevice.h"
#include "platform/WaveFile.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>

namespace
{
[[maybe_unused]] const bool silentDriver = qputenv("ALSOFT_DRIVERS", "null");

const QString Folder = QStringLiteral(NOGGLE_SOUNDS);
constexpr const char *Names[] = {"start", "highbeep", "lowbeep", "shortbeep", "ding", "fanfare", "hum", "heart"};

QString PathOf(const char *name) { return Folder + QLatin1String(name) + QStringLiteral(".wav"); }

double SecondsOf(const WaveSound &sound) { return static_cast<double>(sound.Frames()) / sound.Rate; }

/// The largest step from one sample to the next, on the left side.
float LargestStep(const std::vector<float> &samples, std::size_t from, std::size_t to)
{
    float largest = 0;
    for (std::size_t i = std::max<std::size_t>(from, 1); i < to; ++i)
        largest = std::max(largest, std::abs(samples[2 * i] - samples[2 * i - 2]));
    return largest;
}

double Level(const WaveSound &sound) // [dB] of the loudest twentieth of a second, or of all of a shorter one
{
    const std::size_t window = std::min<std::size_t>(sound.Samples.size(), static_cast<std::size_t>(sound.Rate) / 10);
    double loudest = 0;
    for (std::size_t at = 0; at + window <= sound.Samples.size(); at += 441) {
        double sum = 0;
        for (std::size_t i = at; i < at + window; ++i) sum += std::pow(sound.Samples[i] / 32768.0, 2);
        loudest = std::max(loudest, sum / static_cast<double>(window));
    }
    return 10.0 * std::log10(loudest);
}
} // namespace

TEST(SoundFiles, AreWhatTheScriptWrites)
{
    const QTemporaryDir folder;
    ASSERT_EQ(
        QProcess::execute(QStringLiteral("python3"), {Folder + QStringLiteral("make_sounds.py"), folder.path()}), 0);
    EXPECT_EQ(EntriesOf(folder.path()).size(), static_cast<qsizetype>(std::size(Names)));
    for (const char *name : Names)
        EXPECT_EQ(ReadFile(folder.filePath(QLatin1String(name) + QStringLiteral(".wav"))), ReadFile(PathOf(name)))
            << name;
}

TEST(SoundFiles, AreEvenInLevelAndNeverCut)
{
    for (const char *name : Names) {
        const WaveSound sound = ReadWaveFile(PathOf(name));
        EXPECT_EQ(sound.Rate, 44100) << name;
        EXPECT_LT(*std::max_element(sound.Samples.begin(), sound.Samples.end()), 22000) << name;
        EXPECT_GT(Level(sound), -26.0) << name;
        EXPECT_LT(Level(sound), -11.0) << name;
    }
}

TEST(SoundFiles, BeepsAreShortClicks)
{
    for (const char *name : {"highbeep", "lowbeep", "shortbeep"})
        EXPECT_LT(SecondsOf(ReadWaveFile(PathOf(name))), 0.060) << name;
    EXPECT_NEAR(SecondsOf(ReadWaveFile(PathOf("fanfare"))), 1.9, 0.2);
}

TEST(SoundFiles, BeginAndEndInSilence)
{
    for (const char *name : Names) {
        if (qstrcmp(name, "hum") == 0) continue; // it runs round
        const WaveSound sound = ReadWaveFile(PathOf(name));
        EXPECT_LE(std::abs(sound.Samples.front()), 8) << name;
        EXPECT_LE(std::abs(sound.Samples.back()), 8) << name;
    }
}

TEST(SoundFiles, TheLoopsHaveNoSeamWhereTheyComeRound)
{
    const auto device = SoundDevice::OpenLoopback();
    ASSERT_NE(device, nullptr);
    for (const char *name : {"hum", "heart"}) {
        const auto frames = ReadWaveFile(PathOf(name)).Frames();
        const auto loop = device->Load(PathOf(name));
        loop->Restart(true);
        const auto heard = device->Render(static_cast<int>(frames + 1000));
        loop->Stop();
        const float anywhere = LargestStep(heard, 1, frames);
        EXPECT_LE(LargestStep(heard, frames - 2, frames + 3), anywhere) << name;
        EXPECT_GT(anywhere, 0.0F) << name;
        // The curve goes on as it went: where it comes round it bends no more sharply than elsewhere.
        float bend = 0;
        float bendAtSeam = 0;
        for (std::size_t i = 2; i < frames + 3; ++i) {
            const float here = std::abs(heard[2 * i] - 2 * heard[2 * i - 2] + heard[2 * i - 4]);
            (i + 2 < frames ? bend : bendAtSeam) = std::max(i + 2 < frames ? bend : bendAtSeam, here);
        }
        EXPECT_LE(bendAtSeam, bend) << name;
    }
}
