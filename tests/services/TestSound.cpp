#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"
#include "platform/SoundDevice.h"
#include "services/colSound.h"
#include "services/modDX.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WaveBytes.h"

#include <gtest/gtest.h>

#include <QFile>

#include <algorithm>

namespace
{
[[maybe_unused]] const bool silentDriver = qputenv("ALSOFT_DRIVERS", "null");

int FrameAt(const std::vector<float> &rendered, std::size_t frame)
{
    return static_cast<int>(std::lround(rendered[2 * frame] * 2048));
}

class Sounds : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(m_Device, nullptr);
        modDX::SetDevice(m_Device.get());
        m_Sounds.SetPath(m_Folder.Path());
        Given("hum", RampWave(1000));
        Given("heart", SteadyWave(8192));
        Given("ding", RampWave(1000));
    }
    void TearDown() override { modDX::SetDevice(nullptr); }

    void Given(const char *name, const QByteArray &wave) const
    {
        m_Folder.Write(QStringLiteral("sounds/%1.wav").arg(QLatin1String(name)), wave);
    }
    CSound &Sound(const char *name) { return m_Sounds.Item(QLatin1String(name)); }
    /// The frame of the ramp that is heard next; 0 is silence.
    int Next() { return FrameAt(m_Device->Render(1), 0); }
    bool Silent(int frames = 3000)
    {
        const auto rendered = m_Device->Render(frames);
        return std::all_of(rendered.begin(), rendered.end(), [](float sample) { return sample == 0.0F; });
    }

    TestFolder m_Folder;
    std::unique_ptr<SoundDevice> m_Device = SoundDevice::OpenLoopback();
    colSound m_Sounds{true};
};
} // namespace

// One effect

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

// Effects by name

TEST_F(Sounds, AMissingFileIsSilentAndShowsNothing)
{
    CSound &sound = Sound("nothing");
    sound.Play(0);
    sound.Play(1);
    sound.SetVolume(-1000);
    sound.ChangeVolume(-10);
    sound.Mute(true);
    sound.Mute(false);
    sound.Halt();
    EXPECT_EQ(sound.Volume(), 0);
    EXPECT_EQ(sound.DSBuffer(), nullptr);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, AMissingFileIsLookedUpOnce)
{
    const CSound *first = &Sound("late");
    Given("late", RampWave());
    EXPECT_EQ(&Sound("late"), first);
    Sound("late").Play(0);
    EXPECT_TRUE(Silent());
    EXPECT_EQ(m_Sounds.Count(), 1);
}

TEST_F(Sounds, AWrongFormatIsAsAMissingFile)
{
    Given("letter", "Dear madam or sir");
    Sound("letter").Play(1);
    EXPECT_EQ(Sound("letter").DSBuffer(), nullptr);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, AnEffectIsLoadedAtFirstUseAndKept)
{
    EXPECT_EQ(m_Sounds.Count(), 0);
    Sound("ding");
    ASSERT_TRUE(QFile::remove(m_Folder.Path() + QStringLiteral("sounds/ding.wav")));
    Sound("ding").Play(0);
    EXPECT_EQ(Next(), 1);
    EXPECT_EQ(m_Sounds.Count(), 1);
}

TEST_F(Sounds, NamesAndFilesMatchWithoutRegardToCase)
{
    CSound &ding = Sound("DING");
    EXPECT_EQ(&Sound("ding"), &ding);
    EXPECT_NE(ding.DSBuffer(), nullptr);
    EXPECT_EQ(m_Sounds.Count(), 1);
}

TEST_F(Sounds, AFolderInOtherCaseIsFound)
{
    TestFolder other;
    other.Write(QStringLiteral("Sounds/Gong.WAV"), RampWave());
    colSound sounds(true);
    sounds.SetPath(other.Path());
    sounds.Item(QStringLiteral("gong")).Play(0);
    EXPECT_EQ(Next(), 1);
}

TEST_F(Sounds, ANameCanNotLeaveTheFolderOfSounds)
{
    m_Folder.Write(QStringLiteral("secret.wav"), RampWave());
    m_Folder.Write(QStringLiteral("sounds/deep/secret.wav"), RampWave());
    for (const char *name : {"../secret", "..\\secret", "deep/secret", "/etc/passwd", "..", "", "a\nb"})
        EXPECT_EQ(Sound(name).DSBuffer(), nullptr) << name;
    EXPECT_EQ(m_Sounds.Item(m_Folder.Path() + QStringLiteral("secret")).DSBuffer(), nullptr);
}

TEST_F(Sounds, AnEmptyNameIsOneSilentEffect)
{
    EXPECT_EQ(&Sound(""), &Sound(""));
    EXPECT_EQ(m_Sounds.Count(), 1);
}

TEST_F(Sounds, RemoveForgetsAnEffectAndItsVoice)
{
    Sound("hum").Play(1);
    m_Device->Render(10);
    m_Sounds.Remove(QStringLiteral("Hum"));
    EXPECT_TRUE(Silent());
    EXPECT_EQ(m_Sounds.Count(), 0);
    EXPECT_THROW(m_Sounds.Remove(QStringLiteral("hum")), ListError);
}

TEST_F(Sounds, TheListIsWalkedInTheOrderOfFirstUse)
{
    CSound *hum = &Sound("hum");
    CSound *ding = &Sound("ding");
    std::vector<CSound *> walked;
    for (const auto &sound : m_Sounds) walked.push_back(sound.get());
    EXPECT_EQ(walked, (std::vector<CSound *>{hum, ding}));
}

TEST_F(Sounds, TwoListsWithEqualNamesPlayTheirOwnFiles)
{
    m_Folder.Write(QStringLiteral("Game/sounds/ding.wav"), SteadyWave(16384));
    colSound game(true);
    game.SetPath(m_Folder.Path() + QStringLiteral("Game/"));
    game.Item(QStringLiteral("ding")).Play(0);
    EXPECT_EQ(m_Device->Render(10)[10], 0.5F);
}

// The switch

TEST_F(Sounds, SwitchingOffDuringTheHumStopsItAndOnResumesIt)
{
    Sound("hum").Play(1);
    m_Device->Render(400);
    m_Sounds.SetSoundOn(false);
    EXPECT_TRUE(Silent());
    m_Sounds.SetSoundOn(true);
    EXPECT_EQ(Next(), 401);
}

TEST_F(Sounds, SwitchingOnWhatIsOnDoesNotRestartALoop)
{
    Sound("hum").Play(1);
    m_Device->Render(400);
    m_Sounds.SetSoundOn(true);
    EXPECT_EQ(Next(), 401);
}

TEST_F(Sounds, SwitchingOnDoesNotBringBackWhatWasHalted)
{
    Sound("hum").Play(1);
    m_Sounds.SetSoundOn(false);
    Sound("hum").Halt();
    m_Sounds.SetSoundOn(true);
    EXPECT_TRUE(Silent());
}

TEST_F(Sounds, EffectsLoadedWhileOffAreMutedUntilItIsOn)
{
    colSound off(false);
    off.SetPath(m_Folder.Path());
    off.Item(QStringLiteral("hum")).Play(1);
    EXPECT_TRUE(Silent());
    off.SetSoundOn(true);
    EXPECT_EQ(Next(), 1);
}

TEST_F(Sounds, AnEffectPastTheLastSourceIsAsAMissingFile)
{
    std::vector<std::unique_ptr<SoundBuffer>> taken;
    try {
        for (;;) taken.push_back(m_Device->Load(m_Folder.Path() + QStringLiteral("sounds/heart.wav")));
    } catch (const RuntimeError &) {
    }
    Sound("ding").Play(0);
    EXPECT_EQ(Sound("ding").DSBuffer(), nullptr);
    EXPECT_TRUE(Silent());
}

// The device

TEST_F(Sounds, WithoutADeviceEverythingDoesNothing)
{
    CSound &hum = Sound("hum");
    hum.SetVolume(-1000);
    hum.Play(1);
    m_Device->Render(400);
    modDX::SetDevice(nullptr);
    hum.Halt();
    hum.Mute(true);
    hum.SetVolume(-3000);
    hum.ChangeVolume(10);
    hum.Play(0);
    EXPECT_EQ(hum.Volume(), 0);
    EXPECT_NE(hum.DSBuffer(), nullptr);
    modDX::SetDevice(m_Device.get());
    EXPECT_EQ(hum.Volume(), -1000);
    EXPECT_NEAR(m_Device->Render(1)[0], 401.0 / 2048 * std::pow(10.0, -0.5), 0.00001);
}

TEST_F(Sounds, EffectsAreSilentOnceSoundHasEnded)
{
    modDX::SetDevice(nullptr);
    modDX::InitSound(nullptr);
    ASSERT_NE(modDX::Device(), nullptr);
    CSound &hum = Sound("hum");
    hum.Play(1);
    EXPECT_TRUE(hum.DSBuffer()->IsPlaying());
    modDX::EndSound();
    EXPECT_EQ(modDX::Device(), nullptr);
    hum.Play(1);
    EXPECT_FALSE(hum.DSBuffer()->IsPlaying());
}

TEST_F(Sounds, InitSoundKeepsTheDeviceThatIsThere)
{
    modDX::InitSound(nullptr);
    EXPECT_EQ(modDX::Device(), m_Device.get());
    modDX::SetCooperativeLevel(nullptr, 2);
    EXPECT_EQ(modDX::Device(), m_Device.get());
}
