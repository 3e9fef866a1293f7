// Every program-wide object, and the small routines that all rooms use. One instance of each, made by Main in the
// order told there and kept until the process ends. Forward declarations alone, so that any room above may name them.
#pragma once

#include <QString>

#include <cstdint>
#include <memory>

class CGame;
class CNoggleFramework;
class CPlayer;
class CPlayerGame;
class CResource;
class CSkin;
class CWorkout;
class MainForm;
class PicBox;
class colCategory;
class colGame;
class colPlayer;
class colSkin;
class colSound;

namespace modMain
{
extern std::shared_ptr<CResource> Resources;        // words and two pictures
extern std::shared_ptr<CNoggleFramework> Framework; // the service object, for the shell and for games
extern QString SettingsFile;                        // full path of "Settings.ini"
extern QString Language;                            // stem of the language module, section of localised names
extern bool SoundOn;
extern bool WhiteBackground; // the game area is white instead of the skin's picture
extern bool Online;          // on-line features are offered; read at start, never written back
extern std::shared_ptr<colSound> ShellSounds;
extern std::shared_ptr<colSkin> Skins;
extern std::shared_ptr<CSkin> CurrentSkin;
extern std::shared_ptr<colPlayer> Players;
extern std::shared_ptr<colCategory> Categories;
extern std::shared_ptr<colGame> Games;
extern std::shared_ptr<CPlayer> CurrentPlayer;         // or empty
extern std::shared_ptr<CGame> CurrentGame;             // or empty
extern std::shared_ptr<CWorkout> CurrentWorkout;       // or empty
extern std::shared_ptr<CPlayerGame> CurrentPlayerGame; // or empty
extern QString ProductTitle;
extern float SplashTime; // [s] since midnight, when the splash had loaded
extern MainForm *Form;   // the main window as screens and dialogs see it; empty before it exists

/// The text flag: exactly "True" or "1" is true, case counting.
bool IsTrue(const QString &Text);
/// A text of the language module, up to 255 characters; empty without a module.
QString Word(std::int16_t ID);
/// "2:05", or with Words "2 minutes 5 seconds" in the words of the language module; the seconds are always told.
QString FormatTime(std::int32_t Time, bool Words);
bool OnlineEnabled();
/// A new hidden picture surface of 1 x 1 from the program's pool, kept until the process ends.
std::shared_ptr<PicBox> NewPicBox();
} // namespace modMain
