// Effects by their names, the switch for all of them, and the device under them.
#include "SoundTest.h"

#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"

#include <QFile>

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
