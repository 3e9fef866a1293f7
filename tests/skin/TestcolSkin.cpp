// Which skins of the skins folder are listed, and that the delivered ones are whole.
#include "platform/RuntimeError.h"
#include "sdk/CSkinPic.h"
#include "shell/program/modMain.h"
#include "skin/ScreenSize.h"
#include "skin/colSkin.h"
#include "tests/skin/SkinTest.h"

#include <QDir>
#include <QFile>

namespace
{
const QString Blue = QStringLiteral("Blue");

class SkinList : public SkinTest
{
protected:
    static QStringList Listed()
    {
        QStringList names;
        for (const auto &skin : colSkin()) names << skin->Name();
        return names;
    }
};
} // namespace

TEST_F(SkinList, SkinsAreListedByNameWithoutRegardToCase)
{
    for (const char *name : {"beta", "Alpha", "Gamma", ".hidden"}) GivenSkin(QLatin1String(name));
    EXPECT_EQ(Listed(), (QStringList{QStringLiteral("Alpha"), QStringLiteral("beta"), QStringLiteral("Gamma")}));
    colSkin skins;
    EXPECT_EQ(skins.Item(QStringLiteral("BETA")), skins.Item(2));
    EXPECT_THROW(skins.Item(QStringLiteral("2")), RuntimeError) << "a number in text form is a name";
    EXPECT_THROW(skins.Item(4), RuntimeError);
}

TEST_F(SkinList, ASkinIsTakenOutByNameOrPositionAndItsFolderStays)
{
    for (const char *name : {"Alpha", "beta", "2", "Gamma"}) GivenSkin(QLatin1String(name));
    colSkin skins;
    const auto names = [&] {
        QString listed;
        for (const auto &skin : skins) listed += skin->Name() + u' ';
        return listed;
    };
    ASSERT_EQ(names(), QStringLiteral("2 Alpha beta Gamma "));
    EXPECT_EQ(skins.Item(QStringLiteral("2")), skins.Item(1));
    skins.Remove(2);
    skins.Remove(QStringLiteral("2"));
    skins.Remove(QStringLiteral("GAMMA"));
    EXPECT_EQ(names(), QStringLiteral("beta "));
    EXPECT_EQ(skins.Count(), 1);
    EXPECT_THROW(skins.Remove(QStringLiteral("Alpha")), RuntimeError);
    EXPECT_THROW(skins.Remove(2), RuntimeError);
    EXPECT_TRUE(QDir(m_Folder.Path() + QStringLiteral("skins/Alpha")).exists());
}

// Loading a skin fills its settings up, which shows when it was loaded.
TEST_F(SkinList, WhatAStartDoesNotShowIsLoadedWhenSomebodyAsksForMore)
{
    for (const char *name : {"Alpha", "Beta", "Gamma"}) GivenSkin(QLatin1String(name));
    const auto loaded = [this] {
        QString names;
        for (const char *name : {"Alpha", "Beta", "Gamma"})
            if (!m_Folder.Read(QStringLiteral("skins/%1/Skin.ini").arg(QLatin1String(name))).isEmpty())
                names += QLatin1String(name) + u' ';
        return names;
    };
    colSkin skins;
    EXPECT_EQ(loaded(), QString());
    const std::shared_ptr<CSkin> beta = skins.Item(QStringLiteral("beta"));
    EXPECT_EQ(loaded(), QStringLiteral("Beta "));
    EXPECT_EQ(skins.Item(1)->Name(), u"Alpha");
    EXPECT_EQ(loaded(), QStringLiteral("Alpha Beta "));
    EXPECT_EQ(skins.Count(), 3);
    EXPECT_EQ(loaded(), QStringLiteral("Alpha Beta Gamma "));
    EXPECT_EQ(skins.Item(2), beta) << "the same object";
}

TEST_F(SkinList, TheFirstIsTheFirstThatCanBeUsed)
{
    GivenSkin(QStringLiteral("Alpha"), "[Graphics]\r\nMinX=1024\r\n");
    m_Folder.Write(QStringLiteral("skins/Beta/Skin.ini"), {});
    GivenSkin(QStringLiteral("Gamma"));
    SetScreenSize({800, 600});
    colSkin skins;
    EXPECT_EQ(skins.Item(1)->Name(), u"Gamma");
    EXPECT_THROW(skins.Item(QStringLiteral("Alpha")), RuntimeError);
    EXPECT_THROW(skins.Item(QStringLiteral("Beta")), RuntimeError);
    EXPECT_EQ(skins.Item(QStringLiteral("gamma")), skins.Item(1));
    EXPECT_EQ(skins.Count(), 1);
}

TEST_F(SkinList, ASkinTooLargeForTheScreenIsNotListed)
{
    GivenSkin(Blue);
    GivenSkin(QStringLiteral("Huge"), "[Graphics]\r\nMinX=1024\r\n");
    SetScreenSize({800, 600});
    EXPECT_EQ(Listed(), QStringList{Blue});
}

TEST_F(SkinList, BrokenSkinsDropOutAlone)
{
    GivenSkin(Blue);
    GivenSkin(QStringLiteral("NoNumber"), "[Position]\r\nMenuTop=x\r\n");
    GivenSkin(QStringLiteral("NoPicture"));
    QFile::remove(m_Folder.Path() + QStringLiteral("skins/NoPicture/ButtonHighlight.gif"));
    GivenSkin(QStringLiteral("Damaged"));
    m_Folder.Write(QStringLiteral("skins/Damaged/ButtonSelected.gif"), Gif(200, 40).left(60));
    m_Folder.Write(QStringLiteral("skins/readme.txt"), "no skin");
    QDir().mkpath(m_Folder.Path() + QStringLiteral("skins/Empty"));
    EXPECT_EQ(Listed(), QStringList{Blue});
    EXPECT_EQ(m_Folder.Read(QStringLiteral("skins/readme.txt")), "no skin");
}

TEST_F(SkinList, NoSkinsFolderGivesAnEmptyList) { EXPECT_TRUE(Listed().isEmpty()); }

TEST_F(SkinList, AFolderThatCannotBeWrittenIsListedAllTheSame)
{
    GivenSkin(Blue);
    const QString folder = m_Folder.Path() + QStringLiteral("skins/Blue");
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(Listed(), QStringList{Blue});
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(SkinList, TheDeliveredSkinsAreCompleteAndReadingThemWritesNothing)
{
    for (const char *name : {"Meadow", "Night"}) {
        GivenDeliveredSkin(QLatin1String(name));
        const QString ini = QStringLiteral("skins/%1/Skin.ini").arg(QLatin1String(name));
        const QByteArray before = m_Folder.Read(ini);
        DigitSkin skin;
        skin.SetName(QLatin1String(name));
        EXPECT_EQ(m_Folder.Read(ini), before) << name;
        using Read = QImage (CSkin::*)();
        for (const Read read :
             {&CSkin::BackgroundPicture, &CSkin::DialogPicture, &CSkin::DigitButton, &CSkin::DigitButtonPressed,
              &CSkin::WideButton, &CSkin::WideButtonPressed, &CSkin::VeryWideButton, &CSkin::VeryWideButtonPressed,
              &CSkin::PuzzleBackground, &CSkin::PuzzleBackgroundGiven})
            EXPECT_FALSE((skin.*read)().isNull()) << name;
        EXPECT_FALSE(skin.Pic(QStringLiteral("Button300")).isNull());
        EXPECT_FALSE(skin.Pic(QStringLiteral("Button300Down")).isNull());
        EXPECT_NO_THROW(skin.LoadDigitPics());
        EXPECT_EQ(skin.Frame()->picture().size(), QSize(900, 650));
        EXPECT_EQ(skin.GameAreaWidth, 620);
        EXPECT_EQ(skin.GameAreaHeight, 510);
    }
}

// A JPEG has no transparent ground: a skin whose field has another colour would show the logo as a square.
TEST_F(SkinList, TheLogoStandsOnAFieldOfItsOwnColourInTheDeliveredSkins)
{
    const QImage logo(QStringLiteral(NOGGLE_LOGO));
    ASSERT_EQ(logo.size(), QSize(150, 150));
    for (const char *name : {"Meadow", "Night"}) {
        GivenDeliveredSkin(QLatin1String(name));
        const QImage frame = modMain::CurrentSkin->Frame()->picture();
        const QPoint at(modMain::CurrentSkin->LogoLeft, modMain::CurrentSkin->LogoTop);
        for (const QPoint corner : {QPoint(1, 1), QPoint(148, 1), QPoint(1, 148), QPoint(148, 148)}) {
            const QColor one = logo.pixelColor(corner), other = frame.pixelColor(at + corner);
            EXPECT_NEAR(one.red(), other.red(), 2) << name;
            EXPECT_NEAR(one.green(), other.green(), 2) << name;
            EXPECT_NEAR(one.blue(), other.blue(), 2) << name;
        }
    }
}
