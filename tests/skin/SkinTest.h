// What the tests of this room share: a program's folder with the real words and sounds, and a service object that
// gives skins to controls.
#pragma once

#include "skin/CSkin.h"
#include "tests/support/GifBytes.h"
#include "tests/support/RecordingFramework.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QWidget>

/// Dresses controls in the current skin, as the shell's service object does, and still shows no message.
class SkinningFramework final : public RecordingFramework
{
public:
    void SkinButton(QObject *But, const QString &Name) override;
    void SkinPicbox(QObject *Pic, const QString &Name) override;
};

class SkinTest : public testing::Test
{
protected:
    SkinTest();
    ~SkinTest() override;

    /// A folder below "skins" with the pictures that a skin can't do without, and the given settings.
    void GivenSkin(const QString &name, const QByteArray &settings = {});
    /// The skin that is delivered under that name becomes the current one.
    void GivenDeliveredSkin(const QString &name);
    /// A GIF of one colour.
    static QByteArray Gif(int width, int height, QRgb colour = 0xff204060)
    {
        return GifBytes({width, height}, colour);
    }
    /// Whether an effect of the shell was played.
    bool Heard(const QString &name) const;
    void ForgetSounds();
    /// Keeps a picture of the window where the environment asks for pictures, for people to look at.
    static void Keep(QWidget &window, const QString &name);

    TestFolder m_Folder;
};

/// Loading digits has no caller in the program.
class DigitSkin : public CSkin
{
public:
    using CSkin::LoadDigitPics;
};
