#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"
#include "platform/SoundDevice.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WaveBytes.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QThread>

#include <algorithm>
#include <cstdlib>
#include <ctime>

namespace
{
// Before the library first looks: no sound card is wanted, nor its absence told on the console.
[[maybe_unused]] const bool silentDriver = qputenv("ALSOFT_DRIVERS", "null");

/// The number of the frame that is heard, 1 being the first of a ramp; 0 is silence.
int FrameAt(const std::vector<float> &rendered, std::size_t frame)
{
    return static_cast<int>(std::lround(rendered[2 * frame] * 2048));
}

bool IsSilent(const std::vector<float> &rendered)
{
    return std::all_of(rendered.begin(), rendered.end(), [](float sample) { return sample == 0.0F; });
}

class SoundDevices : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(m_Device, nullptr); }
    std::unique_ptr<SoundBuffer> Loaded(const QByteArray &wave)
    {
        return m_Device->Load(m_Folder.Write(QStringLiteral("effect.wav"), wave));
    }

    TestFolder m_Folder;
    std::unique_ptr<SoundDevice> m_Device = SoundDevice::OpenLoopback();
};
} // namespace

TEST(Gain, IsTheFactorOfHundredthsOfADecibel)
{
    struct Case
    {
        std::int32_t volume;
        float gain;
    };
    for (const Case &c : {Case{0, 1.0F},
                          {1, 1.0F},
                          {INT32_MAX, 1.0F},
                          {-1, 0.99885F},
                          {-602, 0.50003F},
                          {-1000, 0.31623F},
                          {-2000, 0.1F},
                          {-9999, 0.00001F},
                          {-10000, 0.0F},
                          {-10001, 0.0F},
                          {INT32_MIN, 0.0F}})
        EXPECT_NEAR(GainOf(c.volume), c.gain, 0.00003F) << c.volume;
    EXPECT_EQ(GainOf(0), 1.0F);
    EXPECT_GT(GainOf(-9999), 0.0F);
    EXPECT_EQ(GainOf(-10000), 0.0F);
}

TEST_F(SoundDevices, MonoIsHeardAtFullVolumeOnBothSides)
{
    const auto effect = Loaded(SteadyWave(16384));
    effect->Restart(false);
    for (const float sample : m_Device->Render(1000)) ASSERT_EQ(sample, 0.5F);
}

TEST_F(SoundDevices, StereoIsHeardAsRecorded)
{
    const auto effect = Loaded(WaveBytes({8192, -16384, 16384, 0}, {.Channels = 2}));
    effect->Restart(false);
    EXPECT_EQ(m_Device->Render(3), (std::vector<float>{0.25F, -0.5F, 0.5F, 0.0F, 0.0F, 0.0F}));
}

TEST_F(SoundDevices, EightBitsAreHeardAtTheSameLevel)
{
    const QByteArray wave =
        RiffBytes(FormatChunk({.Bits = 8}) + WaveChunk("data", QByteArray("\xC0\x40\x80\x80", 4)));
    const auto effect = Loaded(wave);
    effect->Restart(false);
    EXPECT_EQ(m_Device->Render(3), (std::vector<float>{0.5F, 0.5F, -0.5F, -0.5F, 0.0F, 0.0F}));
}

TEST_F(SoundDevices, TheFilesOwnRateDecides)
{
    const auto effect = Loaded(WaveBytes(Ramp(100), {.Rate = 22050}));
    effect->Restart(false);
    const auto heard = m_Device->Render(100);
    EXPECT_EQ(FrameAt(heard, 0), 1);
    EXPECT_EQ(FrameAt(heard, 20), 11);
}

TEST_F(SoundDevices, LevelsComeOutInHundredthsOfADecibel)
{
    for (const std::int32_t volume : {-602, -1000, -2000, -4000}) {
        const auto effect = Loaded(SteadyWave(32767));
        effect->SetVolume(volume);
        effect->Restart(false);
        const float heard = m_Device->Render(1000)[1000] * 32768.0F / 32767.0F;
        EXPECT_NEAR(2000.0 * std::log10(heard), volume, 0.1);
    }
}

TEST_F(SoundDevices, MinusHundredDecibelsIsExactSilence)
{
    const auto effect = Loaded(SteadyWave(32767));
    effect->SetVolume(-10000);
    effect->Restart(false);
    EXPECT_TRUE(IsSilent(m_Device->Render(1000)));
    EXPECT_TRUE(effect->IsPlaying());
}

TEST_F(SoundDevices, AboveFullVolumeNothingIsLouderButTheNumberIsKept)
{
    const auto effect = Loaded(SteadyWave(16384));
    effect->SetVolume(2000);
    effect->Restart(false);
    EXPECT_EQ(m_Device->Render(10)[10], 0.5F);
    EXPECT_EQ(effect->Volume(), 2000);
}

TEST_F(SoundDevices, AVolumeSetWhilePlayingIsHeardSoonAndWithoutAJump)
{
    const auto effect = Loaded(SteadyWave(16384));
    effect->Restart(true);
    m_Device->Render(100);
    effect->SetVolume(-2000);
    const auto heard = m_Device->Render(3000);
    for (std::size_t i = 2; i < heard.size(); i += 2) ASSERT_LT(std::abs(heard[i] - heard[i - 2]), 0.01F);
    EXPECT_NEAR(heard.back(), 0.05F, 0.0001F);
}

TEST_F(SoundDevices, ALoopRunsFromItsLastSampleIntoItsFirst)
{
    const auto effect = Loaded(RampWave(1000));
    effect->Restart(true);
    const auto heard = m_Device->Render(5000);
    for (std::size_t i = 0; i < 5000; ++i) ASSERT_EQ(FrameAt(heard, i), static_cast<int>(i % 1000) + 1);
}

TEST_F(SoundDevices, WhatPlaysOnceEndsAndLeavesSilence)
{
    const auto effect = Loaded(RampWave(1000));
    effect->Restart(false);
    m_Device->Render(1000);
    EXPECT_TRUE(IsSilent(m_Device->Render(1000)));
    EXPECT_FALSE(effect->IsPlaying());
}

TEST_F(SoundDevices, RestartBeginsAgainAndNeverOverlapsItself)
{
    const auto effect = Loaded(RampWave(1000));
    effect->Restart(false);
    m_Device->Render(300);
    effect->Restart(false);
    EXPECT_EQ(FrameAt(m_Device->Render(10), 9), 10);
}

TEST_F(SoundDevices, ResumeDoesNotTouchWhatPlays)
{
    const auto effect = Loaded(RampWave(1000));
    effect->Restart(true);
    m_Device->Render(300);
    effect->Resume(true);
    EXPECT_EQ(FrameAt(m_Device->Render(10), 0), 301);
}

TEST_F(SoundDevices, APauseKeepsThePlaceToTheFrame)
{
    const auto effect = Loaded(RampWave(1000));
    effect->Restart(true);
    m_Device->Render(333);
    effect->Pause();
    EXPECT_TRUE(IsSilent(m_Device->Render(5000)));
    EXPECT_EQ(effect->Position(), 333);
    effect->Resume(true);
    EXPECT_EQ(FrameAt(m_Device->Render(1), 0), 334);
}

TEST_F(SoundDevices, StopGoesBackToTheBeginning)
{
    const auto effect = Loaded(RampWave(1000));
    effect->Restart(true);
    m_Device->Render(333);
    effect->Stop();
    EXPECT_TRUE(IsSilent(m_Device->Render(100)));
    effect->Resume(false);
    EXPECT_EQ(FrameAt(m_Device->Render(1), 0), 1);
}

TEST_F(SoundDevices, EffectsMayOutliveTheDeviceAndAreSilentThen)
{
    const auto effect = Loaded(RampWave());
    effect->Restart(true);
    m_Device.reset();
    effect->Restart(true);
    effect->Resume(true);
    effect->Pause();
    effect->Stop();
    effect->SetVolume(-1000);
    EXPECT_FALSE(effect->IsPlaying());
    EXPECT_EQ(effect->Position(), 0);
    EXPECT_EQ(effect->Volume(), -1000);
}

TEST_F(SoundDevices, TheDeviceMayOutliveItsEffectsInTheMiddleOfALoop)
{
    auto effect = Loaded(SteadyWave(16384));
    effect->Restart(true);
    m_Device->Render(10);
    effect.reset();
    EXPECT_TRUE(IsSilent(m_Device->Render(5000)));
}

TEST_F(SoundDevices, TwoDevicesDoNotHearEachOther)
{
    const auto other = SoundDevice::OpenLoopback();
    const QString path = m_Folder.Write(QStringLiteral("other.wav"), SteadyWave(8192));
    const auto here = Loaded(SteadyWave(16384));
    const auto there = other->Load(path);
    here->Restart(true);
    there->Restart(true);
    EXPECT_EQ(m_Device->Render(10)[5], 0.5F);
    EXPECT_EQ(other->Render(10)[5], 0.25F);
    here->Stop();
    EXPECT_EQ(other->Render(10)[5], 0.25F);
}

TEST_F(SoundDevices, AnEffectThatGetsNoSourceFailsAndTheOthersGoOn)
{
    const QString path = m_Folder.Write(QStringLiteral("short.wav"), SteadyWave(16384, 64));
    std::vector<std::unique_ptr<SoundBuffer>> effects;
    bool refused = false;
    while (!refused && effects.size() < 5000) {
        try {
            effects.push_back(m_Device->Load(path));
        } catch (const RuntimeError &) {
            refused = true;
        }
    }
    EXPECT_TRUE(refused);
    EXPECT_GE(effects.size(), static_cast<std::size_t>(SoundDevice::MaxEffects));
    effects.front()->Restart(true);
    EXPECT_EQ(m_Device->Render(10)[5], 0.5F);
    effects.pop_back();
    EXPECT_NO_THROW(effects.push_back(m_Device->Load(path)));
}

TEST(SoundRest, ADeviceRestsOnceNothingPlaysAndTheNextEffectWakesIt)
{
    const TestFolder folder;
    const auto device = SoundDevice::OpenDefault();
    ASSERT_NE(device, nullptr);
    const auto effect = device->Load(folder.Write(QStringLiteral("loop.wav"), SteadyWave(100)));
    device->SetRestAfter(20);
    effect->Restart(true);
    QTest::qWait(100);
    EXPECT_FALSE(device->IsResting()) << "while a loop plays";
    effect->Pause();
    EXPECT_TRUE(QTest::qWaitFor([&] { return device->IsResting(); }, 2000));
    const int place = effect->Position();
    effect->Resume(true);
    EXPECT_FALSE(device->IsResting());
    EXPECT_TRUE(QTest::qWaitFor([&] { return effect->Position() != place; }, 2000)) << "it moves again";
}

TEST(SoundRest, ADeviceWhoseEffectHasEndedRestsAndTakesNoTime)
{
    const TestFolder folder;
    const auto device = SoundDevice::OpenDefault();
    ASSERT_NE(device, nullptr);
    const auto effect = device->Load(folder.Write(QStringLiteral("once.wav"), SteadyWave(100, 441)));
    device->SetRestAfter(50);
    effect->Restart(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return device->IsResting(); }, 2000));
    const std::clock_t before = std::clock();
    QThread::msleep(300);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 100);
}

TEST(SoundProcess, MayEndInTheMiddleOfALoop)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            static const TestFolder folder;
            static std::unique_ptr<SoundDevice> device = SoundDevice::OpenDefault();
            static std::unique_ptr<SoundBuffer> effect =
                device->Load(folder.Write(QStringLiteral("loop.wav"), SteadyWave(16384)));
            effect->Restart(true);
            std::exit(effect->IsPlaying() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(SoundProcess, MayEndWithEffectsThatGoAfterTheDevice)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            static const TestFolder folder;
            static std::unique_ptr<SoundBuffer> effect;
            static std::unique_ptr<SoundDevice> device = SoundDevice::OpenDefault();
            effect = device->Load(folder.Write(QStringLiteral("loop.wav"), SteadyWave(16384)));
            effect->Restart(true);
            std::exit(effect->IsPlaying() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}
