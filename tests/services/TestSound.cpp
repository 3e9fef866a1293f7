// One effect: how it starts, loops, stops, is muted, and how loud it is.
#include "SoundTest.h"

#include "platform/RuntimeError.h"

TEST_F(Sounds, PlayZeroPlaysOnceFromTheBeginning)
{
    Sound("ding").Play(0);
    EXPECT_EQ(Next(), 1);
    m_Device->Render(999);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, PlayOneLoopsWithoutASeam)
{
    Sound("hum").Play(1);
    const auto heard = m_Device->Render(2500);
    for (std::size_t i = 0; i < 2500; ++i) ASSERT_EQ(FrameAt(heard, i), static_cast<int>(i % 1000) + 1);
}

TEST_F(Sounds, PlayAgainStartsAgainFromTheBeginning)
{
    Sound("ding").Play(0);
    m_Device->Render(400);
    Sound("ding").Play(0);
    EXPECT_EQ(Next(), 1);
    m_Device->Render(999);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, APlayOnceEndsALoop)
{
    Sound("hum").Play(1);
    m_Device->Render(400);
    Sound("hum").Play(0);
    EXPECT_EQ(Next(), 1);
    m_Device->Render(999);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, TheLowestBitOfTheFlagsDecidesWhetherItLoops)
{
    Sound("hum").Play(2);
    m_Device->Render(1000);
    EXPECT_TRUE(Silent());
    Sound("hum").Play(3);
    m_Device->Render(1000);
    EXPECT_EQ(Next(), 1);
}

TEST_F(Sounds, UnmutingResumesOnlyWhenTheFlagsAreExactlyOne)
{
    Sound("hum").Play(3);
    m_Device->Render(100);
    Sound("hum").Mute(true);
    Sound("hum").Mute(false);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, HaltStopsAndThePlaceIsForgotten)
{
    Sound("hum").Play(1);
    m_Device->Render(400);
    Sound("hum").Halt();
    EXPECT_TRUE(Silent());
    Sound("hum").Play(1);
    EXPECT_EQ(Next(), 1);
}

TEST_F(Sounds, HaltThenUnmutingStaysSilent)
{
    Sound("hum").Play(1);
    Sound("hum").Halt();
    Sound("hum").Mute(false);
    EXPECT_TRUE(Silent());
    Sound("hum").Play(1);
    Sound("hum").Mute(true);
    Sound("hum").Halt();
    Sound("hum").Mute(false);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, MutingKeepsThePlaceOfALoop)
{
    Sound("hum").Play(1);
    m_Device->Render(1400);
    Sound("hum").Mute(true);
    EXPECT_TRUE(Silent());
    Sound("hum").Mute(false);
    EXPECT_EQ(Next(), 401);
}

TEST_F(Sounds, MutingTwiceKeepsThePlaceToo)
{
    Sound("hum").Play(1);
    m_Device->Render(400);
    Sound("hum").Mute(true);
    Sound("hum").Mute(true);
    Sound("hum").Mute(false);
    EXPECT_EQ(Next(), 401);
}

TEST_F(Sounds, AOneShotThatWasCutIsGone)
{
    Sound("ding").Play(0);
    m_Device->Render(400);
    Sound("ding").Mute(true);
    EXPECT_TRUE(Silent(100));
    Sound("ding").Mute(false);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, PlayWhileMutedIsSilentAndALoopStartsWithUnmuting)
{
    Sound("hum").Mute(true);
    Sound("hum").Play(1);
    EXPECT_TRUE(Silent());
    Sound("hum").Mute(false);
    EXPECT_EQ(Next(), 1);
}

TEST_F(Sounds, AOneShotPlayedWhileMutedIsNeverHeard)
{
    Sound("ding").Mute(true);
    Sound("ding").Play(0);
    Sound("ding").Mute(false);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, UnmutingWhatPlaysDoesNotRestartIt)
{
    Sound("hum").Play(1);
    m_Device->Render(400);
    Sound("hum").Mute(false);
    EXPECT_EQ(Next(), 401);
}

TEST_F(Sounds, LoadWaveOfAMissingFileFailsAndLeavesNoBuffer)
{
    CSound sound;
    EXPECT_THROW(sound.LoadWave(m_Folder.Path() + QStringLiteral("missing.wav")), RuntimeError);
    EXPECT_EQ(sound.DSBuffer(), nullptr);
}

// Volume

TEST_F(Sounds, VolumeStartsAtFullAndIsNotBounded)
{
    CSound &sound = Sound("hum");
    EXPECT_EQ(sound.Volume(), 0);
    for (const std::int32_t volume : {-1000, -4001, -10001, INT32_MIN, 500, INT32_MAX}) {
        sound.SetVolume(volume);
        EXPECT_EQ(sound.Volume(), volume);
    }
}

TEST_F(Sounds, VolumeIsHeardInHundredthsOfADecibel)
{
    Given("full", SteadyWave(32767));
    for (const std::int32_t volume : {-602, -1000, -2000}) {
        Sound("full").SetVolume(volume);
        Sound("full").Play(1);
        EXPECT_NEAR(2000.0 * std::log10(m_Device->Render(1000)[500] * 32768.0 / 32767.0), volume, 0.1);
    }
}

TEST_F(Sounds, VolumeSetWhileMutedHoldsAfterwards)
{
    m_Sounds.SetSoundOn(false);
    Sound("heart").SetVolume(-2000);
    Sound("heart").Play(1);
    m_Sounds.SetSoundOn(true);
    EXPECT_EQ(Sound("heart").Volume(), -2000);
    EXPECT_NEAR(m_Device->Render(100)[100], 0.025F, 0.00001F);
}

TEST_F(Sounds, ChangeVolumeStepsBetweenBothEndsInclusive)
{
    CSound &sound = Sound("hum");
    sound.ChangeVolume(-4000);
    EXPECT_EQ(sound.Volume(), -4000);
    sound.ChangeVolume(-1);
    EXPECT_EQ(sound.Volume(), -4000);
    sound.ChangeVolume(4000);
    EXPECT_EQ(sound.Volume(), 0);
    sound.ChangeVolume(1);
    EXPECT_EQ(sound.Volume(), 0);
}

TEST_F(Sounds, AStepPastTheEndIsRefusedNotCut)
{
    CSound &sound = Sound("hum");
    sound.SetVolume(-3900);
    sound.ChangeVolume(-200);
    EXPECT_EQ(sound.Volume(), -3900);
    sound.ChangeVolume(INT32_MIN); // nor does it come round at the other end
    EXPECT_EQ(sound.Volume(), -3900);
    sound.SetVolume(INT32_MIN);
    sound.ChangeVolume(-1);
    EXPECT_EQ(sound.Volume(), INT32_MIN);
}

TEST_F(Sounds, TheBoundsCanBeMoved)
{
    CSound &sound = Sound("hum");
    sound.SetMinVolume(-500);
    sound.SetMaxVolume(-100);
    sound.ChangeVolume(-501);
    EXPECT_EQ(sound.Volume(), 0);
    sound.ChangeVolume(-500);
    EXPECT_EQ(sound.Volume(), -500);
    sound.ChangeVolume(401);
    EXPECT_EQ(sound.Volume(), -500);
    sound.ChangeVolume(400);
    EXPECT_EQ(sound.Volume(), -100);
}

TEST_F(Sounds, TwoLoopsTogetherAreTheirSum)
{
    Sound("hum").SetVolume(-1000);
    Sound("heart").SetVolume(-1000);
    Sound("hum").Play(1);
    Sound("heart").Play(1);
    const auto heard = m_Device->Render(900);
    const double gain = std::pow(10.0, -0.5);
    for (std::size_t i = 0; i < 900; ++i)
        ASSERT_NEAR(heard[2 * i], gain * (static_cast<double>(i + 1) / 2048 + 0.25), 0.00001);
}
