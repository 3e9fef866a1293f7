// The service object: the one way in which a game reaches the shell.
//
// The members stand in their published order, and the order of the virtual table is the interface: never reorder,
// insert or overload. NOGGLE_SDK_VERSION rises by one with every change of this header, of CGameArea.h or of
// CSkinPic.h that changes a table or the meaning of a member; the shell takes games of its own version only.
//
// Thread: the interface thread, from the game's own handlers. Ownership: the shell's; keep the pointer, never delete
// it. A failure arrives as a std::exception whose what() is a sentence in UTF-8.
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
    /// the very wide pair for a button wider than 60 pixels, else the wide pair. Failure: ignored step by step.
    virtual void SkinButton(QObject *But, const QString &Name = {}) = 0;
    /// Gives a picture box, or a form, the skin's picture of that name in "PictureFile"; without a Name the dialog
    /// picture, in "PictureFile" and "picture". Failure: ignored step by step.
    virtual void SkinPicbox(QObject *Pic, const QString &Name = {}) = 0;
    /// A question or a message in the shell's own box; returns once it is answered. Options is a bit set: 1 OK and
    /// Cancel, 4 Yes and No, 32 together with 1 asks for a line of text, returned in Answer. FontSize is in points.
    /// Result: 1 OK, 2 Cancel, 6 Yes, 7 No. The game's clock runs on meanwhile.
    virtual std::int32_t MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent = nullptr,
                                QString *Answer = nullptr, std::int32_t FontSize = 16) = 0;
    /// A message with the description of a failure in its second line, and an OK button.
    virtual void ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent = nullptr) = 0;

    /// Cmd compares exactly, case counting. Result: empty unless told; "unsupported" for any other Cmd.
    ///   "progress"     Info1 percent: shown in the strip below the game, as it is
    ///   "gameover"     ends the session; returns after the score dialog has closed and this game has been taken
    ///   away:
    ///                  return at once and touch nothing
    ///   "gamepath"     -> text, the game's folder with the separator at its end
    ///   "playerkey"    -> 32-bit key of the player
    ///   "getsetting"   Info1 section, Info2 name -> text from the game's settings file
    ///   "globalsetting" the same answer as "getsetting"
    ///   "timetaken"    -> 32-bit whole seconds since the start, pauses left out
    ///   "pausetimer", "resumetimer"  stop and restart the clock
    ///   "playsound"    Info1 name of a wave file in the game's "sounds" folder, or "*" and the name of one of the
    ///                  shell's; anything but "repeat" in Info2 plays it once. A repeated sound has no verb that
    ///                  stops it and goes on when the game has gone; playing it again without "repeat" lets it end
    /// Failure: passed on to the game.
    virtual QVariant Message(const QString &Cmd, const QVariant &Info1 = {}, const QVariant &Info2 = {}) = 0;

    /// The game's own text store for this player: one value for each level from 1 to the game's number of levels,
    /// without "|" in it. Level 0 is the whole text, in a form of the game's own; written there it is kept in memory
    /// until the next workout game of this player ends. A level that was never written is empty.
    virtual QString PlayerGameInfo(std::int32_t Level) = 0;
    virtual void SetPlayerGameInfo(std::int32_t Level, const QString &Value) = 0;

    /// Draws the background of the game area, from its top left corner. DestHDC is an active painter whose origin is
    /// the game's own 0, 0.
    virtual void DrawBackground(QPainter *DestHDC) = 0;
    /// The picture file of that name, with extension, from the program's "Images" folder. Failure: passed on.
    virtual QImage GetPicture(const QString &PicName) = 0;
    /// The language as the settings have it: the section of the game's settings file that holds its words.
    virtual QString Lang() = 0;
    /// A text of the language module; empty when it has none. Failure: passed on, for an Index beyond 16 bits.
    virtual QString GetString(std::int32_t Index) = 0;
    /// The game's own settings file. A key that is absent is empty, and stays absent.
    virtual QString GetSetting(const QString &Section, const QString &Name) = 0;
    virtual void SaveSetting(const QString &Section, const QString &Name, const QString &Value) = 0;
    /// A text of the game in the present language, else from the section "default", else empty.
    virtual QString LangString(const QString &Name) = 0;
    /// Whether the on-line features are offered.
    virtual bool OnlineFlag() = 0;

protected:
    ~CNoggleFramework() = default; // not virtual, so that the table holds the members above and nothing else
};
