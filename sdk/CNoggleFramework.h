// The service object: the one way in which a game reaches the shell.
//
// The members stand in their published order, and the order of the virtual table is the interface: never reorder,
// insert or overload. NOGGLE_SDK_VERSION rises by one with every change of this header, of CGameArea.h or of
// CSkinPic.h that changes a table or the meaning of a member; a comment that tells more, or a new verb that old games
// answer as told in CGameArea.h, changes nothing. The shell takes games of its own version only.
//
// Thread: the interface thread, from the game's own handlers. Ownership: the shell's; keep the pointer, never delete
// it. It may be used from SetNoggleFrameWork to the end of "unload"; later calls, from a forgotten timer for
// instance, do nothing and answer empty. A failure arrives as a std::exception whose what() is a sentence in UTF-8;
// let it through and it ends at the border.
//
// Text is a QString throughout. Pictures are QImage, since games keep them as plain pixels too.
#pragma once

#include <QImage>
#include <QString>
#include <QVariant>

#include <cstdint>

class QObject;
class QPainter;
class QWidget;

#define NOGGLE_SDK_VERSION 1

class CNoggleFramework
{
public:
    /// Gives a button the skin's pictures: But is a LarkButton, or any object with the properties "PictureUp" and
    /// "PictureDown" of type QImage and a width. With a Name the skin's pictures Name and Name + "Down"; without,
    /// the very wide pair for a button wider than 60 pixels, else the wide pair. Call it again at "changeskin". A
    /// skin without such a picture leaves the button without one: it then draws itself plainly. Failure: ignored step
    /// by step.
    virtual void SkinButton(QObject *But, const QString &Name = {}) = 0;
    /// Gives a picture box, or a form, the skin's picture of that name in "PictureFile"; without a Name the dialog
    /// picture, in "PictureFile" and "picture". Call it again at "changeskin". Failure: ignored step by step.
    virtual void SkinPicbox(QObject *Pic, const QString &Name = {}) = 0;
    /// A question or a message in the shell's own box; returns once it is answered. Options is a bit set: 1 OK and
    /// Cancel, 4 Yes and No, 32 together with 1 asks for a line of text, returned in Answer. FontSize is in points.
    /// Result: 1 OK, 2 Cancel, 6 Yes, 7 No. The game's clock runs on meanwhile, so "timeup" may come inside this
    /// call; "pausetimer" before it and "resumetimer" behind it keep the time.
    virtual std::int32_t MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent = nullptr,
                                QString *Answer = nullptr, std::int32_t FontSize = 16) = 0;
    /// A message with the description of a failure in its second line, and an OK button.
    virtual void ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent = nullptr) = 0;

    /// Cmd compares exactly, case counting. Result: empty unless told; "unsupported" for any other Cmd.
    ///   "progress"     Info1 percent, a number from 0 to 100: shown in the strip below the game, as it is
    ///   "gameover"     ends the session; returns after the score dialog has closed and this game has been taken
    ///                  away: return at once and touch nothing. A second one does nothing
    ///   "gamepath"     -> text, the game's folder with the separator at its end
    ///   "playerkey"    -> 32-bit key of the player, from 1, the same for as long as the player exists
    ///   "getsetting"   Info1 section, Info2 name -> text from the game's settings file
    ///   "globalsetting" the same answer as "getsetting"
    ///   "timetaken"    -> 32-bit whole seconds since the start, pauses left out
    ///   "pausetimer"   stops the session's clock, for a question or an explanation; the game stays shown. A second
    ///                  one before "resumetimer" counts the time in between
    ///   "resumetimer"  lets it go on
    ///   "playsound"    Info1 name of a wave file in the game's "sounds" folder, without ".wav", or "*" and the
    ///                  name of one of the shell's; anything but "repeat" in Info2 plays it once. A missing file is
    ///                  silent. A repeated sound has no verb that stops it and goes on when the game has gone;
    ///                  playing it again without "repeat" lets it end
    /// Failure: passed on to the game.
    virtual QVariant Message(const QString &Cmd, const QVariant &Info1 = {}, const QVariant &Info2 = {}) = 0;

    /// The game's own text store for this player: one value for each level from 1 to the game's number of levels,
    /// without "|" in it, which parts the levels and is not marked inside a value. Writing a level stores it at once.
    /// Level 0 is the whole text, in a form of the game's own; written there it is kept in memory until the next
    /// workout game of this player ends. A level that was never written is empty.
    /// Failure: shown to the player, and the text is empty or stays as it was; a level beyond the last one is one.
    virtual QString PlayerGameInfo(std::int32_t Level) = 0;
    virtual void SetPlayerGameInfo(std::int32_t Level, const QString &Value) = 0;

    /// Draws the background of the game area, from its top left corner. DestHDC is an active painter whose origin is
    /// the game's own 0, 0. It is cheap: a copy of a picture that is as large as the area.
    virtual void DrawBackground(QPainter *DestHDC) = 0;
    /// The picture file of that name, with extension, from the program's "Images" folder: those the program brings,
    /// not the game's own, which it loads from "gamepath". Failure: passed on.
    virtual QImage GetPicture(const QString &PicName) = 0;
    /// The language as the settings have it: the section of the game's settings file that holds its words.
    virtual QString Lang() = 0;
    /// A text of the program's language module by its number; empty when it has none. Numbers and words are the
    /// program's and may change from version to version. Failure: passed on, for an Index beyond 16 bits.
    virtual QString GetString(std::int32_t Index) = 0;
    /// The game's own settings file, "GameSettings.ini", the sections [config] and of the languages among the rest. A
    /// key that is absent is empty, and stays absent. Values are one line of up to 999 bytes in UTF-8, without blanks
    /// at their ends. All players share the file: what belongs to a player goes into SetPlayerGameInfo. On a machine
    /// where the folder can't be written a value is lost in silence.
    virtual QString GetSetting(const QString &Section, const QString &Name) = 0;
    virtual void SaveSetting(const QString &Section, const QString &Name, const QString &Value) = 0;
    /// A text of the game from the section of the present language, else from the section "default", else empty.
    virtual QString LangString(const QString &Name) = 0;
    /// Whether the on-line features are offered.
    virtual bool OnlineFlag() = 0;

protected:
    ~CNoggleFramework() = default; // not virtual, so that the table holds the members above and nothing else
};
