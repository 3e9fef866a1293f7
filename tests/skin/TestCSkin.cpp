// One skin on a real folder: what reading its settings fills in, and what it refuses.
#include "platform/Colour.h"
#include "platform/RuntimeError.h"
#include "skin/ScreenSize.h"
#include "tests/skin/CSkinTest.h"

#include <QDir>

namespace
{
const QByteArray FilledUp = "[font]\r\nFont=Times New Roman\r\n"
                            "[colours]\r\nGrid=0\r\nBigGrid=0\r\nMenuLabel=0\r\nDigit=0\r\nClueText=0\r\n"
                            "DigitBackground=0\r\nUnusedCell=0\r\nDigitGiven=0\r\nDigitError=0\r\nPencil=0\r\n"
                            "PencilAlternative=0\r\nHighlight=0\r\nDialogText=0\r\n"
                            "[Pictures]\r\nPuzzle=False\r\n[Customize]\r\nCustomize=False\r\n"
                            "[Graphics]\r\nMax=0\r\nMinY=0\r\nMinX=0\r\n"
                            "[Position]\r\nGameAreaLeft=0\r\nGameAreaTop=0\r\nGameAreaWidth=0\r\nGameAreaHeight=0\r\n"
                            "ControlPanelLeft=0\r\nControlPanelTop=0\r\nLogoLeft=0\r\nLogoTop=0\r\nMenuLeft=0\r\n"
                            "MenuTop=0\r\n";
} // namespace

TEST_F(Skin, TheFirstReadFillsSkinIniWithEveryKeyOfTheTable)
{
    Loaded();
    EXPECT_EQ(File("Skin.ini"), FilledUp);
    EXPECT_FALSE(Has("Custom.ini"));
}

TEST_F(Skin, AMissingSkinIniIsMade)
{
    GivenSkin(Blue);
    Remove("Skin.ini");
    CSkin skin;
    skin.SetName(Blue);
    EXPECT_EQ(File("Skin.ini"), FilledUp);
    EXPECT_EQ(skin.Font, QStringLiteral("Times New Roman"));
}

TEST_F(Skin, ReadingAgainChangesNothing)
{
    CSkin &skin = Loaded("; mine\n[colours]\nGrid = 255\n");
    const QByteArray first = File("Skin.ini");
    skin.LoadIniFile();
    EXPECT_EQ(File("Skin.ini"), first);
    EXPECT_EQ(skin.GridColour, 255);
}

TEST_F(Skin, EveryFieldComesFromItsKey)
{
    QByteArray settings = FilledUp;
    int number = 100;
    for (qsizetype at = settings.indexOf("=0\r\n"); at >= 0; at = settings.indexOf("=0\r\n", at + 1))
        settings.replace(at, 2, "=" + QByteArray::number(number++));
    settings.replace("Puzzle=False", "Puzzle=True");
    const CSkin &skin = Loaded(settings);
    const auto value = [&](const char *section, const char *key) { return Key("Skin.ini", section, key).toInt(); };
    EXPECT_EQ(skin.GridColour, value("colours", "Grid"));
    EXPECT_EQ(skin.BigGridColour, value("colours", "BigGrid"));
    EXPECT_EQ(skin.MenuLabelColour, value("colours", "MenuLabel"));
    EXPECT_EQ(skin.DigitColour, value("colours", "Digit"));
    EXPECT_EQ(skin.ClueTextColour, value("colours", "ClueText"));
    EXPECT_EQ(skin.DigitBackgroundColour, value("colours", "DigitBackground"));
    EXPECT_EQ(skin.UnusedCellColour, value("colours", "UnusedCell"));
    EXPECT_EQ(skin.DigitGivenColour, value("colours", "DigitGiven"));
    EXPECT_EQ(skin.DigitErrorColour, value("colours", "DigitError"));
    EXPECT_EQ(skin.PencilColour, value("colours", "Pencil"));
    EXPECT_EQ(skin.PencilAlternativeColour, value("colours", "PencilAlternative"));
    EXPECT_EQ(skin.HighlightColour, value("colours", "Highlight"));
    EXPECT_EQ(skin.DialogTextColour, value("colours", "DialogText"));
    EXPECT_TRUE(skin.ShowPuzzlePic);
    EXPECT_EQ(skin.MaxGraphic(), value("Graphics", "Max"));
    EXPECT_EQ(skin.GameAreaLeft, value("Position", "GameAreaLeft"));
    EXPECT_EQ(skin.GameAreaTop, value("Position", "GameAreaTop"));
    EXPECT_EQ(skin.GameAreaWidth, value("Position", "GameAreaWidth"));
    EXPECT_EQ(skin.GameAreaHeight, value("Position", "GameAreaHeight"));
    EXPECT_EQ(skin.ControlPanelLeft, value("Position", "ControlPanelLeft"));
    EXPECT_EQ(skin.ControlPanelTop, value("Position", "ControlPanelTop"));
    EXPECT_EQ(skin.LogoLeft, value("Position", "LogoLeft"));
    EXPECT_EQ(skin.LogoTop, value("Position", "LogoTop"));
    EXPECT_EQ(skin.MenuLeft, value("Position", "MenuLeft"));
    EXPECT_EQ(skin.MenuTop, value("Position", "MenuTop"));
    EXPECT_EQ(skin.MinScreenHeight(), value("Graphics", "MinY"));
    EXPECT_EQ(skin.MinScreenWidth(), value("Graphics", "MinX"));
    EXPECT_EQ(skin.MinScreenWidth(), number - 11) << "the numbers ran on through the file";
}

TEST_F(Skin, CustomisedWithoutCustomIniMakesItWithEveryKeyLayoutIncluded)
{
    Loaded("[Customize]\r\nCustomize=True\r\n[colours]\r\nGrid=7\r\n[Position]\r\nMenuTop=42\r\n");
    QByteArray expected = FilledUp;
    expected.replace("\nGrid=0", "\nGrid=7")
        .replace("MenuTop=0", "MenuTop=42")
        .replace("Customize=False", "Customize=True");
    EXPECT_EQ(File("Custom.ini"), expected);
}

TEST_F(Skin, CustomIniOverridesKeyByKey)
{
    GivenSkin(Blue);
    Write("Custom.ini", "[colours]\r\nDigit=9\r\n[Position]\r\nMenuLeft=11\r\n");
    const CSkin &skin = Loaded("[Customize]\r\nCustomize=1\r\n[colours]\r\nGrid=7\r\nDigit=8\r\n");
    EXPECT_EQ(skin.GridColour, 7);
    EXPECT_EQ(skin.DigitColour, 9);
    EXPECT_EQ(skin.MenuLeft, 11) << "a position that stands there counts";
}

TEST_F(Skin, TheFontAloneFallsBackWhenCustomIniHasNone)
{
    const CSkin &skin = Loaded("[Customize]\r\nCustomize=1\r\n[font]\r\nFont=Comic\r\n");
    EXPECT_EQ(skin.Font, QStringLiteral("Times New Roman"));
    EXPECT_EQ(Key("Custom.ini", "font", "Font"), QStringLiteral("Times New Roman"));
    EXPECT_EQ(Key("Skin.ini", "font", "Font"), QStringLiteral("Comic"));
}

TEST_F(Skin, CustomiseIsOnByOneOrTrueAndNotByTrueInLowerCase)
{
    EXPECT_TRUE(Loaded("[Customize]\r\nCustomize=1\r\n").Customize);
    EXPECT_TRUE(Loaded("[Customize]\r\nCustomize=True\r\n").Customize);
    Remove("Custom.ini");
    EXPECT_FALSE(Loaded("[Customize]\r\nCustomize=true\r\n").Customize);
    EXPECT_FALSE(Has("Custom.ini"));
}

TEST_F(Skin, AColourIsTheNumberThatItsTextStartsWith)
{
    const std::pair<const char *, int> colours[] = {
        {"255 red", 255}, {"&HFF00", 0xFF00}, {"&HFFFF", 65535}, {"&O17", 15}, {"blue", 0}, {"2.5", 2}, {"3.5", 4}};
    for (const auto &[text, colour] : colours)
        EXPECT_EQ(Loaded(QByteArray("[colours]\r\nGrid=") + text).GridColour, colour) << text;
    EXPECT_THROW(Loaded("[colours]\r\nGrid=99999999999"), RuntimeError);
}

TEST_F(Skin, APositionThatIsNoNumberFailsTheWholeLoad)
{
    EXPECT_THROW(Loaded("[Position]\r\nMenuTop=left"), RuntimeError);
    EXPECT_THROW(Loaded("[Graphics]\r\nMinX=12 px"), RuntimeError);
    EXPECT_EQ(Loaded("[Position]\r\nMenuTop=12.5").MenuTop, 12);
}

TEST_F(Skin, SettingsOfAnotherLetterCaseAreReadAndWrittenWhereTheyStand)
{
    GivenSkin(Blue);
    Remove("Skin.ini");
    Write("SKIN.INI", "[CUSTOMIZE]\r\ncustomize=1\r\n[position]\r\nMINIMIZELEFT=5\r\nmenuleft=7\r\n");
    Write("custom.INI", "[Position]\r\nMenuLeft=8\r\n");
    CSkin skin;
    skin.SetName(Blue);
    EXPECT_EQ(skin.MenuLeft, 8);
    EXPECT_EQ(skin.Param(QStringLiteral("Position"), QStringLiteral("MinimizeLeft")), QStringLiteral("5"));
    EXPECT_TRUE(File("SKIN.INI").contains("MenuTop=0")) << "filled up";
    EXPECT_TRUE(File("custom.INI").contains("MenuTop=0"));
    skin.SaveCustomSettings();
    EXPECT_FALSE(Has("Skin.ini")) << "no second one beside it";
    EXPECT_FALSE(Has("Custom.ini"));
}

TEST_F(Skin, ANameWithoutAFolderFailsAndMakesNone)
{
    GivenSkin(Blue);
    CSkin skin;
    EXPECT_THROW(skin.SetName(QStringLiteral("Bleu")), RuntimeError);
    EXPECT_FALSE(QDir(m_Folder.Path() + QStringLiteral("skins/Bleu")).exists());
    skin.SaveCustomSettings();
    EXPECT_EQ(skin.Param(QStringLiteral("Position"), QStringLiteral("MinimizeLeft")), QString());
    EXPECT_EQ(QDir(m_Folder.Path() + QStringLiteral("skins")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{Blue});
}

TEST_F(Skin, AStrayFileFailsAndStaysAFile)
{
    m_Folder.Write(QStringLiteral("skins/notes"), "mine");
    CSkin skin;
    EXPECT_THROW(skin.SetName(QStringLiteral("notes")), RuntimeError);
    EXPECT_EQ(m_Folder.Read(QStringLiteral("skins/notes")), "mine");
}

TEST_F(Skin, SettingAFieldChangesNoFile)
{
    CSkin &skin = Loaded();
    const QByteArray before = File("Skin.ini");
    skin.Font = QStringLiteral("Inter");
    skin.GridColour = 7;
    skin.MenuTop = 9;
    skin.Customize = skin.ShowPuzzlePic = true;
    EXPECT_EQ(File("Skin.ini"), before);
    EXPECT_FALSE(Has("Custom.ini"));
}

TEST_F(Skin, ALoadThatFailsKeepsWhatItHasReadSoFar)
{
    GivenSkin(Blue, "[colours]\r\nDialogText=3\r\n[Position]\r\nGameAreaLeft=4\r\nLogoLeft=x\r\nMenuTop=5\r\n");
    CSkin skin;
    EXPECT_THROW(skin.SetName(Blue), RuntimeError);
    EXPECT_EQ(skin.DialogTextColour, 3);
    EXPECT_EQ(skin.GameAreaLeft, 4);
    EXPECT_EQ(skin.MenuTop, 0) << "it stands behind the one that is no number";
}

TEST_F(Skin, ParamReadsSkinIniOnlyKeepsTheTextAndNeverWrites)
{
    CSkin &skin = Loaded("[Position]\r\nMinimizeLeft=12\r\n[Customize]\r\nCustomize=1\r\n");
    Write("Custom.ini", File("Custom.ini") + "MinimizeLeft=99\r\n");
    const QByteArray before = File("Skin.ini");
    EXPECT_EQ(skin.Param(QStringLiteral("Position"), QStringLiteral("MinimizeLeft")), QStringLiteral("12"));
    EXPECT_EQ(skin.Param(QStringLiteral("Position"), QStringLiteral("MinimizeTop")), QString());
    EXPECT_EQ(File("Skin.ini"), before);
    Write("Skin.ini", before + "MinimizeTop=3\r\n");
    EXPECT_EQ(skin.Param(QStringLiteral("position"), QStringLiteral("minimizetop")), QString()) << "kept as empty";
}

TEST_F(Skin, AParamThatReadsAsTheMarkerIsReadAnewEachTime)
{
    CSkin &skin = Loaded("[A]\r\nB=qqq\r\n");
    EXPECT_EQ(skin.Param(QStringLiteral("A"), QStringLiteral("B")), QStringLiteral("qqq"));
    Write("Skin.ini", "[A]\r\nB=now\r\n");
    EXPECT_EQ(skin.Param(QStringLiteral("A"), QStringLiteral("B")), QStringLiteral("now"));
}

TEST_F(Skin, SavedCustomSettingsComeBackAndTheLayoutIsLeftOut)
{
    CSkin &skin = Loaded("[Position]\r\nMenuTop=42\r\n");
    skin.Customize = true;
    skin.Font = QStringLiteral("Inter");
    skin.GridColour = ColourBytes(1, 2, 3);
    skin.ClueTextColour = 77;
    skin.ShowPuzzlePic = true;
    skin.MenuTop = 1;
    skin.SaveCustomSettings();
    EXPECT_EQ(File("Custom.ini"),
              "[font]\r\nFont=Inter\r\n[colours]\r\nGrid=197121\r\nBigGrid=0\r\nMenuLabel=0\r\nDigit=0\r\n"
              "DigitBackground=0\r\nDigitGiven=0\r\nDigitError=0\r\nUnusedCell=0\r\nPencil=0\r\n"
              "PencilAlternative=0\r\nHighlight=0\r\nDialogText=0\r\nClueText=77\r\n[Pictures]\r\nPuzzle=1\r\n");
    EXPECT_EQ(Key("Skin.ini", "Customize", "Customize"), QStringLiteral("1"));

    CSkin fresh;
    fresh.SetName(Blue);
    EXPECT_EQ(fresh.Font, QStringLiteral("Inter"));
    EXPECT_EQ(fresh.GridColour, 197121);
    EXPECT_EQ(fresh.ClueTextColour, 77);
    EXPECT_TRUE(fresh.ShowPuzzlePic);
    EXPECT_EQ(fresh.MenuTop, 42);
    EXPECT_EQ(Key("Custom.ini", "Position", "MenuTop"), QStringLiteral("42"));
}

TEST_F(Skin, AScreenOfExactlyTheLeastSizeAcceptsTheSkinOnePixelLessDoesNot)
{
    const CSkin &skin = Loaded("[Graphics]\r\nMinX=1024\r\nMinY=768\r\n");
    const std::pair<QSize, bool> screens[] = {
        {{1024, 768}, true}, {{1023, 768}, false}, {{1024, 767}, false}, {{800, 600}, false}};
    for (const auto &[size, fits] : screens) {
        SetScreenSize(size);
        EXPECT_EQ(skin.CanBeUsed(), fits) << size.width() << "x" << size.height();
    }
}
