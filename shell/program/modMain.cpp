#include "shell/program/modMain.h"

#include "platform/PicBox.h"
#include "services/CResource.h"
#include "shell/program/frmControls.h"

#include <cstdlib>

namespace modMain
{
std::shared_ptr<CResource> Resources;
std::shared_ptr<CNoggleFramework> Framework;
QString SettingsFile;
QString Language;
bool SoundOn = false;
bool WhiteBackground = false;
bool Online = false;
std::shared_ptr<colSound> ShellSounds;
std::shared_ptr<colSkin> Skins;
std::shared_ptr<CSkin> CurrentSkin;
std::shared_ptr<colPlayer> Players;
std::shared_ptr<colCategory> Categories;
std::shared_ptr<colGame> Games;
std::shared_ptr<CPlayer> CurrentPlayer;
std::shared_ptr<CGame> CurrentGame;
std::shared_ptr<CWorkout> CurrentWorkout;
std::shared_ptr<CPlayerGame> CurrentPlayerGame;
QString ProductTitle;
float SplashTime = 0;
MainForm *Form = nullptr;

namespace
{
// String numbers of the units of time.
constexpr std::int16_t Second = 5;
constexpr std::int16_t Seconds = 6;
constexpr std::int16_t Minute = 7;
constexpr std::int16_t Minutes = 8;
constexpr std::int32_t LongestWord = 256; // characters

QString TwoDigits(std::int32_t Number)
{
    const QString digits = QString::number(std::llabs(Number)).rightJustified(2, u'0');
    return Number < 0 ? u'-' + digits : digits;
}
} // namespace

bool IsTrue(const QString &Text) { return Text == u"True" || Text == u"1"; }

QString Word(std::int16_t ID) { return Resources ? Resources->GetString(ID, LongestWord) : QString(); }

QString FormatTime(std::int32_t Time, bool Words)
{
    const std::int32_t minutes = Time / 60;
    const std::int32_t seconds = Time % 60;
    if (!Words) return QString::number(minutes) + u':' + TwoDigits(seconds);

    QString text;
    if (minutes != 0) text = QString::number(minutes) + u' ' + Word(minutes == 1 ? Minute : Minutes) + u' ';
    return text + QString::number(seconds) + u' ' + Word(seconds == 1 ? Second : Seconds);
}

bool OnlineEnabled() { return Online; }

std::shared_ptr<PicBox> NewPicBox()
{
    static frmControls controls;
    std::shared_ptr<PicBox> box = controls.PicBox.emplace_back(std::make_shared<PicBox>());
    box->SetSize(1, 1);
    return box;
}
} // namespace modMain
