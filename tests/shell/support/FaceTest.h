// What the tests of the main window's face share: the whole program with skins made for the occasion, a game that
// looks at what it is told, and pictures of the window.
#pragma once

#include "tests/shell/support/RunningProgram.h"
#include "tests/support/GifBytes.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QMap>
#include <QPointer>

#include <memory>
#include <string>

class CGame;
class CSkin;

class FaceTest : public testing::Test
{
protected:
    FaceTest();
    ~FaceTest() override;

    /// A skin folder as the tests' own skin, but for these files: their bytes by name, an empty one is left out.
    void GivenSkin(const QString &Name, const QMap<QString, QByteArray> &Files = {});
    /// The program starts with that skin; "Plain" is always there.
    void StartWith(const QString &Skin);
    /// The skin of that name becomes the current one and the window's, as the options do it. Failure: passed on.
    void ChangeTo(const QString &Skin);
    /// The game that looks at what it is told.
    static std::shared_ptr<CGame> LookingGame();
    /// It runs, in practice.
    void StartGame();

    frmNoggle &Window() const { return Program.Window(); }
    /// The window as it shows, clear where it shows nothing, in device pixels.
    QImage Shown() const;
    /// The frame as the skin in force has it.
    static QImage Frame();
    static QStringList SkinNames();

    /// A frame of one colour on the key colour: a plain rectangle 10 pixels from the edges.
    static QByteArray PlainFrame(QSize Size, QRgb Colour);
    /// A skin's settings with the game area in the given place.
    static QByteArray Positions(const QRect &GameArea);

    // What the running game saw at each "changeskin".
    struct Seen
    {
        QImage Background; // as DrawBackground gives it
        QPoint WindowAt;
    };
    std::vector<Seen> SkinChanges;
    QPointer<QWidget> GameControl;

    RunningProgram Program;

private:
    class Area;
};

/// For readable failures.
std::string Text(const QRect &Place);
