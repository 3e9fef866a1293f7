// The start of the program: settings, skin, words, sounds, splash.
#include "tests/shell/support/FlowTest.h"

#include "domain/Store.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"
#include "services/CResource.h"
#include "services/modHelp.h"
#include "shell/StartUp.h"
#include "shell/frmSplash.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"
#include "skin/colSkin.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QScreen>

class StartUp : public FlowTest
{
protected:
    void GivenSettings(const QByteArray &lines) { Program.Folder.Write(File, "[Settings]\r\n" + lines); }
    std::string Settings() const { return Program.Folder.Read(File).toStdString(); }
    static std::string SkinInForce() { return Plain(modMain::CurrentSkin->Name()); }
    static frmSplash *Splash()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (auto *splash = qobject_cast<frmSplash *>(window)) return splash;
        return nullptr;
    }
    const QString File = QStringLiteral("Settings.ini");
};

TEST_F(StartUp, WithoutSettingsWritesTheDefaultsAndReadsModuleNought)
{
    ASSERT_FALSE(Program.Folder.Exists(File));
    Start();
    EXPECT_EQ(Settings(), "[Settings]\r\nLanguage=0\r\nSoundOn=1\r\nWhiteBackground=0\r\nOnline=0\r\n");
    EXPECT_EQ(Plain(modMain::SettingsFile), Plain(Program.Folder.Path() + File));
    EXPECT_EQ(Plain(modMain::Resources->LibraryFilePath()), Plain(Program.Folder.Path() + QStringLiteral("0.dll")));
    EXPECT_TRUE(modMain::SoundOn);
    EXPECT_FALSE(modMain::WhiteBackground);
    EXPECT_FALSE(modMain::OnlineEnabled());
}

TEST_F(StartUp, FlagsAreTrueForTheTwoExactTextsOnly)
{
    GivenSettings("SoundOn=-1\r\nWhiteBackground=True\r\nOnline=1\r\n");
    Start();
    EXPECT_FALSE(modMain::SoundOn);
    EXPECT_TRUE(modMain::WhiteBackground);
    EXPECT_TRUE(modMain::OnlineEnabled());
    Program.Stop();
    GivenSettings("SoundOn=true\r\nWhiteBackground=yes\r\nOnline=TRUE\r\n");
    Start();
    EXPECT_FALSE(modMain::SoundOn);
    EXPECT_FALSE(modMain::WhiteBackground);
    EXPECT_FALSE(modMain::OnlineEnabled());
}

TEST_F(StartUp, AnEmptySettingIsReplacedByItsDefault)
{
    GivenSettings("Language=\r\nSoundOn=\r\n");
    Start();
    EXPECT_EQ(Plain(modMain::Language), "0");
    EXPECT_TRUE(modMain::SoundOn);
    EXPECT_EQ(Settings(), "[Settings]\r\nLanguage=0\r\nSoundOn=1\r\nWhiteBackground=0\r\nOnline=0\r\n");
}

TEST_F(StartUp, GivesTheWindowItsTitleItsLogoAndItsHelpFile)
{
    Start();
    EXPECT_EQ(Plain(Program.Window().windowTitle()), "Noggle");
    EXPECT_EQ(Plain(modMain::ProductTitle), "Noggle");
    EXPECT_EQ(Plain(modHelp::HelpFile), "Help.chm");
    EXPECT_GT(Program.Find("picLogo")->width(), 50);
    EXPECT_EQ(Plain(Program.Find<cTransPictureBox>("lblTime")->Caption()), "");
}

TEST_F(StartUp, ReadsTheModuleThatTheSettingsName)
{
    QDir(Program.Folder.Path()).rename(QStringLiteral("0.dll"), QStringLiteral("fr.dll"));
    GivenSettings("Language=fr\r\n");
    Start();
    EXPECT_EQ(Plain(modMain::Language), "fr");
    EXPECT_EQ(Plain(modMain::ProductTitle), "Noggle");
}

TEST_F(StartUp, AMissingLanguageModuleLeavesTheWordsEmptyAndTheProgramUsable)
{
    QFile::remove(Program.Folder.Path() + QStringLiteral("0.dll"));
    Start();
    EXPECT_EQ(Plain(modMain::ProductTitle), "");
    EXPECT_EQ(Plain(Program.MenuCaptions().join(u'|')), "||");
    EXPECT_NE(Program.Find("picLogo")->cursor().shape(), Qt::WhatsThisCursor);
    Program.NewPlayer(QStringLiteral("Ann"));
    EXPECT_EQ(Mode(), 2);
}

TEST_F(StartUp, MissingSoundsAreSilence)
{
    QDir(Program.Folder.Path() + QStringLiteral("sounds")).removeRecursively();
    StartWithAnn();
    StartWorkoutGame();
    EXPECT_EQ(Program.Boxes.size(), 1) << "the name of the player alone";
}

TEST_F(StartUp, TakesTheSkinThatTheSettingsName)
{
    Program.GivenSkin(QStringLiteral("Zest"));
    GivenSettings("Skin=Zest\r\n");
    Start();
    EXPECT_EQ(SkinInForce(), "Zest");
}

TEST_F(StartUp, WithoutANamedSkinTakesTheFirst)
{
    Program.GivenSkin(QStringLiteral("amber"));
    Start();
    EXPECT_EQ(SkinInForce(), "amber");
    EXPECT_EQ(Settings().find("Skin"), std::string::npos) << "the key stays absent until the end";
}

TEST_F(StartUp, ASkinThatIsAbsentOrTooBigForTheScreenGivesWayToTheFirst)
{
    Program.GivenSkin(QStringLiteral("Vast"), {QStringLiteral("Graphics/MinX=100000")});
    for (const char *name : {"Gone", "Vast"}) {
        GivenSettings(QByteArray("Skin=") + name + "\r\n");
        Start();
        EXPECT_EQ(SkinInForce(), "Plain") << name;
        modMain::SaveSettings();
        EXPECT_NE(Settings().find("Skin=Plain"), std::string::npos);
        Program.Stop();
    }
}

TEST_F(StartUp, WithoutAnySkinTheLastOneStays)
{
    Start();
    QDir(Program.Folder.Path() + QStringLiteral("skins")).removeRecursively();
    modMain::Skins = std::make_shared<colSkin>();
    modMain::LoadSkin();
    EXPECT_EQ(SkinInForce(), "Plain");
}

TEST_F(StartUp, TheOtherSkinsAreLoadedSoonAfterTheFirstScreen)
{
    Program.GivenSkin(QStringLiteral("Zest"));
    const QString zest = QStringLiteral("skins/Zest/Skin.ini");
    const QByteArray before = Program.Folder.Read(zest);
    Start();
    EXPECT_EQ(Program.Folder.Read(zest), before);
    EXPECT_TRUE(RunningProgram::Until([&] { return Program.Folder.Read(zest) != before; }));
}

TEST_F(StartUp, ANumberForASkinIsANameAndNoPosition)
{
    Program.GivenSkin(QStringLiteral("Zest"));
    GivenSettings("Skin=2\r\n");
    Start();
    EXPECT_EQ(SkinInForce(), "Plain");
}

TEST_F(StartUp, TheSplashShowsItsPictureUntilTheMainWindowComes)
{
    Program.Rows(QStringLiteral("drop table Player"));
    modMain::ForgetConnection();
    bool wasShown = false;
    QRect place;
    Program.WhilePlainBox = [&] {
        if (Splash() == nullptr) return;
        wasShown = Splash()->isVisible();
        place = Splash()->geometry();
    };
    ASSERT_TRUE(Program.Start());
    EXPECT_TRUE(wasShown);
    EXPECT_EQ(place.size(), modMain::Resources->LoadJPEG(1001).size());
    const QPoint off = place.center() - QGuiApplication::primaryScreen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 2) << "in the middle of the screen";
    EXPECT_EQ(Splash(), nullptr);
}

TEST_F(StartUp, HoldsTheSplashAfterAQuickStart)
{
    Program.StartTakes = 3.9;
    QElapsedTimer timer;
    timer.start();
    Start();
    EXPECT_GE(timer.elapsed(), 1000);
}

TEST_F(StartUp, NotesWhenTheSplashHadLoaded)
{
    Start();
    EXPECT_EQ(modMain::SplashTime, 36000.0F) << "ten in the morning, in seconds";
}
