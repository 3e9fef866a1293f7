#include "platform/Clock.h"
#include "platform/Convert.h"
#include "platform/Files.h"
#include "platform/PlainBox.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"

#include "services/CResource.h"
#include "services/colSound.h"
#include "services/modDX.h"
#include "services/modIniFile.h"

#include "shell/program/modMain.h"

#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"

#include "skin/CSkin.h"
#include "skin/colSkin.h"

#include "shell/CShellFramework.h"
#include "shell/Fonts.h"
#include "shell/StartUp.h"
#include "shell/frmNoggle.h"
#include "shell/frmSplash.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <array>

namespace modMain
{
namespace
{
const QString Section = QStringLiteral("Settings");

std::unique_ptr<frmSplash> Splash;
std::unique_ptr<frmNoggle> MainWindow;

QString Flag(bool Value) { return Value ? QStringLiteral("1") : QStringLiteral("0"); }

QString Setting(const QString &Key, const QString &Default)
{
    return ReadIniString(Section, Key, Default, SettingsFile);
}

void CheckScreen()
{
    if (QGuiApplication::primaryScreen() == nullptr) throw RuntimeError(QStringLiteral("There is no screen."));
}

void ShowSplash()
{
    Splash = std::make_unique<frmSplash>();
    Splash->Load();
    Splash->show();
    // Once, so that the picture is on the screen before the slow steps.
    QCoreApplication::processEvents();
}

void MakeShellSounds()
{
    ShellSounds = std::make_shared<colSound>(SoundOn);
    ShellSounds->SetPath(ProgramFolder());
    ShellSounds->Item(QStringLiteral("start")).Play(0);
}

void OpenMainWindow()
{
    const frmNoggle::Pictures pictures;
    if (CurrentSkin) CurrentSkin->LoadButtons();
    UseInterfaceFont(); // nothing before it writes, but the box that tells of a failure
    MainWindow = std::make_unique<frmNoggle>(pictures);
    MainWindow->Init([] { Splash.reset(); });
}

using StartStep = void (*)();

// Fonts, sound device and the pictures of skins take longest; they are looked for and read beside the other steps
// until they are needed. The language module is named before the splash takes its picture from it, the sound device
// is bound to the splash since no other window exists yet, and the skins are checked against the screen. Step numbers
// are what support staff is told; they count from 1.
constexpr std::array<StartStep, 12> StartSteps{
    [] { LookForInterfaceFont(), modDX::PrepareSound(); },
    [] { Resources = std::make_shared<CResource>(), Framework = std::make_shared<CShellFramework>(); },
    [] { CheckScreen(); },
    [] { SettingsFile = ProgramFolder() + QStringLiteral("Settings.ini"); },
    [] { LoadSettings(), colSkin::Prepare(Setting(QStringLiteral("Skin"), {})); },
    [] { Resources->SetLibraryFilePath(FindFile(ProgramFolder() + Language + QStringLiteral(".dll"))); },
    [] { ShowSplash(); },
    [] { modDX::InitSound(Splash.get()); },
    [] { MakeShellSounds(); },
    [] { Skins = std::make_shared<colSkin>(), LoadSkin(); },
    [] { LoadData(); },
    [] { OpenMainWindow(); },
};

// The globals are set before each Load, since games look their categories up in them while they load.
constexpr std::array<StartStep, 3> DataSteps{
    [] { Players = std::make_shared<colPlayer>(), Players->Load(); },
    [] { Categories = std::make_shared<colCategory>(), Categories->Load(); },
    [] { Games = std::make_shared<colGame>(), Games->Load(); },
};

// Runs the steps up to the first that fails, which ends in the platform's plain box: the skin may be what failed.
template <std::size_t Count>
bool RunSteps(const std::array<StartStep, Count> &Steps, const QString &Message)
{
    int number = 0;
    try {
        for (const StartStep step : Steps) ++number, step();
        return true;
    } catch (...) {
        const std::exception_ptr failure = std::current_exception();
        UseInterfaceFont();
        ShowPlainBox(Message + QString::number(number) + QStringLiteral("\r\n") + DescriptionOf(failure));
        return false;
    }
}

// What LoadData did not reach is empty, never missing.
void FillMissingCollections()
{
    if (!Players) Players = std::make_shared<colPlayer>();
    if (!Categories) Categories = std::make_shared<colCategory>();
    if (!Games) Games = std::make_shared<colGame>();
}
} // namespace

bool Main() { return RunSteps(StartSteps, QStringLiteral("Error starting program @")); }

void LoadSettings()
{
    Language = Setting(QStringLiteral("Language"), QStringLiteral("0"));
    SoundOn = IsTrue(Setting(QStringLiteral("SoundOn"), QStringLiteral("1")));
    WhiteBackground = IsTrue(Setting(QStringLiteral("WhiteBackground"), QStringLiteral("0")));
    Online = IsTrue(Setting(QStringLiteral("Online"), QStringLiteral("0")));
}

void SaveSettings()
{
    WriteIniString(Section, QStringLiteral("SoundOn"), Flag(SoundOn), SettingsFile);
    WriteIniString(Section, QStringLiteral("WhiteBackground"), Flag(WhiteBackground), SettingsFile);
    if (!CurrentSkin) throw RuntimeError(QStringLiteral("There is no skin."));
    WriteIniString(Section, QStringLiteral("Skin"), CurrentSkin->Name(), SettingsFile);
}

void LoadSkin()
{
    const QString name = Setting(QStringLiteral("Skin"), {});
    if (!name.isEmpty() && Step([&] { CurrentSkin = Skins->Item(name); })) return;
    Step([] { CurrentSkin = Skins->Item(1); });
}

void LoadData()
{
    RunSteps(DataSteps, QStringLiteral("Error loading data @"));
    FillMissingCollections();
}

std::int32_t SplashHold(float SplashTime, float Timer)
{
    // Four in the test and five in the wait: a quick start shows the splash until five seconds after it appeared.
    if (!(SplashTime + 4 > Timer)) return 0;
    return ToInt32(static_cast<double>((SplashTime - Timer + 5) * 1000));
}

void ReleaseWindows()
{
    Splash.reset();
    MainWindow.reset();
    modDX::EndSound();
}
} // namespace modMain
