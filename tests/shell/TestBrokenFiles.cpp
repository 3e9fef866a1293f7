// Files of every kind that are missing or broken when the program starts: each costs itself alone, is told where that
// is promised, and stays as it was.
#include "tests/shell/support/FlowTest.h"
#include "tests/shell/support/Messages.h"
#include "tests/support/ReadOnlyFolder.h"

#include "services/CResource.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"

#include "skin/frmMsgBox.h"

#include <QApplication>
#include <QDir>
#include <QWindow>

class BrokenFiles : public FlowTest
{
protected:
    const QString Settings = QStringLiteral("Settings.ini");
    const QString Module = QStringLiteral("0.dll");

    /// In the place of a file.
    void GivenFolder(const QString &name) const
    {
        QFile::remove(Program.Folder.Path() + name);
        Program.Folder.Write(name + QStringLiteral("/inside"), "x");
    }
    std::string Boxes() const { return Plain((Program.PlainBoxes + Program.Boxes).join(u'|')); }
    void ExpectDefaults() const
    {
        EXPECT_EQ(Plain(modMain::Language), "0");
        EXPECT_TRUE(modMain::SoundOn);
        EXPECT_FALSE(modMain::WhiteBackground);
        EXPECT_FALSE(modMain::Online);
        EXPECT_EQ(Plain(modMain::ProductTitle), "Noggle") << "the words are there";
    }
    void EndProgram()
    {
        EXPECT_EQ(Program.End(), 0);
        Program.Stop();
    }
};

TEST_F(BrokenFiles, SettingsThatCantBeReadAreTheDefaultsAndStayAsTheyWere)
{
    const QByteArray wide("\xff\xfe[\0S\0e\0t\0t\0i\0n\0g\0s\0]\0", 22);
    const QByteArray large = "[Settings]\r\nLanguage=9\r\n;" + QByteArray(2 << 20, 'x');
    for (const QByteArray &bytes : {wide, large}) {
        Program.Folder.Write(Settings, bytes);
        Start();
        ExpectDefaults();
        EXPECT_EQ(Boxes(), "");
        EndProgram();
        Program.Boxes.clear();
        EXPECT_EQ(Program.Folder.Read(Settings), bytes);
    }
    GivenFolder(Settings);
    Start();
    ExpectDefaults();
    EndProgram();
    EXPECT_EQ(Program.Folder.Read(Settings + QStringLiteral("/inside")), "x");
}

TEST_F(BrokenFiles, JunkInTheSettingsIsKeptBesideThem)
{
    QByteArray junk;
    for (int i = 0; i < 5000; ++i) junk += static_cast<char>(i * 7919 >> 3);
    junk.replace('[', '(');
    Program.Folder.Write(Settings, junk);
    Start();
    ExpectDefaults();
    EndProgram();
    EXPECT_EQ(Plain(Program.Boxes.join(u'|')), "Do you want to close Noggle?");
    const QByteArray after = Program.Folder.Read(Settings);
    EXPECT_TRUE(after.startsWith(junk));
    const QByteArray added = after.mid(junk.size()).replace("\r\n", "\n"); // line ends are those of the junk
    EXPECT_EQ(added.trimmed().toStdString(),
              "[Settings]\nLanguage=0\nSoundOn=1\nWhiteBackground=0\nOnline=0\nSkin=Plain");
}

TEST_F(BrokenFiles, ACutLanguageModuleEndsTheStartAtItsStepOrCostsWordsAndLeavesNoFile)
{
    const QByteArray whole = Program.Folder.Read(Module);
    int ended = 0;
    for (const qsizetype size : {qsizetype{0}, qsizetype{63}, qsizetype{200}, whole.size() / 3, whole.size() - 1}) {
        SCOPED_TRACE(size);
        Program.Folder.Write(Module, whole.left(size));
        Program.PlainBoxes.clear();
        if (Program.Start()) {
            EXPECT_EQ(Boxes(), "");
            EXPECT_EQ(Menu(), "options|help|exit");
        } else {
            ++ended;
            ASSERT_EQ(Program.PlainBoxes.size(), 1);
            const std::string told = Plain(Program.PlainBoxes[0].section(u'\n', 0, 0));
            EXPECT_TRUE(told == "Error starting program @6" || told == "Error starting program @7") << told;
        }
        Program.Stop();
        EXPECT_FALSE(Program.Folder.Exists(QStringLiteral("1001.jpg")));
    }
    EXPECT_GT(ended, 0);
    Program.Folder.Write(Module, whole);
    Program.PlainBoxes.clear();
    Start();
    EXPECT_EQ(Plain(modMain::ProductTitle), "Noggle");
}

TEST_F(BrokenFiles, AFolderInThePlaceOfTheLanguageModuleIsAMissingOne)
{
    GivenFolder(Module);
    Start();
    EXPECT_EQ(Boxes(), "");
    EXPECT_EQ(Plain(modMain::ProductTitle), "");
    EXPECT_EQ(Menu(), "options|help|exit");
}

TEST_F(BrokenFiles, ADamagedPictureOfTheModuleEndsTheStartWhereItIsLoadedAndLeavesNoFile)
{
    const QByteArray whole = Program.Folder.Read(Module);
    const qsizetype first = whole.indexOf("\xff\xd8\xff");
    const qsizetype second = whole.indexOf("\xff\xd8\xff", first + 3);
    ASSERT_GT(second, first);
    QStringList steps;
    for (const qsizetype place : {first, second}) {
        QByteArray damaged = whole;
        damaged.replace(place, 3, "bad");
        Program.Folder.Write(Module, damaged);
        Program.PlainBoxes.clear();
        EXPECT_FALSE(Program.Start());
        EXPECT_EQ(Program.PlainBoxes.size(), 1);
        steps << Program.PlainBoxes.value(0).section(u'\n', 0, 0);
        Program.Stop();
        EXPECT_FALSE(Program.Folder.Exists(QStringLiteral("1001.jpg")));
        EXPECT_FALSE(Program.Folder.Exists(QStringLiteral("1002.jpg")));
    }
    steps.sort();
    EXPECT_EQ(Plain(steps.join(u'|')), "Error starting program @12|Error starting program @7");
}

TEST_F(BrokenFiles, SoundsOfEveryBrokenKindAreSilence)
{
    QStringList names = QDir(Program.Folder.Path() + QStringLiteral("sounds")).entryList(QDir::Files);
    ASSERT_GE(names.size(), 8);
    int kind = 0;
    for (const QString &file : names) {
        const QString name = QStringLiteral("sounds/") + file;
        const QByteArray whole = Program.Folder.Read(name);
        switch (kind++ % 5) {
        case 0:
            Program.Folder.Write(name, {});
            break;
        case 1:
            Program.Folder.Write(name, QByteArray(3000, 'j'));
            break;
        case 2:
            Program.Folder.Write(name, whole.left(50));
            break;
        case 3:
            Program.Folder.Write(name, whole.left(4) + "\xff\xff\xff\xff" + whole.mid(8));
            break;
        default:
            GivenFolder(name);
        }
    }
    StartWithAnn();
    StartWorkoutGame();
    Program.CloseNextScore();
    Game.End();
    EXPECT_EQ(Mode(), 6);
    EXPECT_EQ(Boxes(), "What is your name?");
}

TEST_F(BrokenFiles, NamesOfCategoriesThatCantBeReadAreTheirStoredNames)
{
    Program.Folder.Write(QStringLiteral("Categories/Kind of Arrows.ini"), QByteArray("\0\xff[]=\n=", 7));
    GivenFolder(QStringLiteral("Categories/Kind of Beacons.ini"));
    StartWithAnn();
    EXPECT_EQ(Boxes(), "What is your name?");
    QStringList names;
    for (const auto &category : *modMain::Categories) names << category->LocalName();
    EXPECT_EQ(Plain(names.join(u'|')), "Kind of Arrows|Kind of Beacons");
    Program.ChoosePractice(QStringLiteral("Kind of Beacons"), QStringLiteral("Beacons"));
}

TEST_F(BrokenFiles, AFileInThePlaceOfTheFolderOfCategoriesIsLeftAlone)
{
    Program.Folder.Write(QStringLiteral("Categories"), "a file");
    StartWithAnn();
    EXPECT_EQ(Boxes(), "What is your name?");
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("Categories")), "a file");
}

TEST_F(BrokenFiles, AGameWhoseSettingsAreNoneIsPassedOver)
{
    GivenFolder(QStringLiteral("Folder/GameSettings.ini"));
    Program.Folder.Write(QStringLiteral("Nothing/readme.txt"), "no settings");
    StartWithAnn();
    EXPECT_EQ(Boxes(), "What is your name?");
    EXPECT_EQ(modMain::Games->Count(), 2);
}

TEST_F(BrokenFiles, AGameWhoseSettingsAreJunkIsToldAtTheStartAndKnownGamesKeepTheirResults)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.CloseNextScore();
    Game.End();
    const QString results = Program.Ask(QStringLiteral("select group_concat(GamePlayedScore) from GamePlayed"));
    Program.Stop();
    Program.Boxes.clear();
    Program.Folder.Write(QStringLiteral("Junk/GameSettings.ini"), QByteArray(3000, '\xfe'));
    Program.AnswerNextBox("cmd2", {}, [] {
        const QWidget *const box = QApplication::activeModalWidget();
        EXPECT_EQ(modMain::Form, nullptr) << "a box does not make the main window";
        EXPECT_EQ(box->windowHandle()->transientParent(), nullptr) << "there is no window to own it";
        EXPECT_TRUE(box->screen()->availableGeometry().contains(box->geometry()));
    });
    EXPECT_TRUE(Program.Start());
    EXPECT_EQ(Plain(Program.Boxes.value(0).section(u'\r', 0, 0)), "Error loading Games.");
    EXPECT_EQ(Plain(Program.PlayerButtons().join(u'|')), "Ann|New player");
    Program.Stop();
    QDir(Program.Folder.Path() + QStringLiteral("Junk")).removeRecursively();
    Start();
    Program.ClickPlayer(QStringLiteral("Ann"));
    EXPECT_EQ(modMain::Games->Count(), 2);
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select group_concat(GamePlayedScore) from GamePlayed"))),
              Plain(results));
}

TEST_F(BrokenFiles, InstructionsThatAreMissingOrJunkAreToldOrShownAndTheScreenStays)
{
    QFile::remove(Program.Folder.Path() + QStringLiteral("Arrows/Instructions.rtf"));
    StartWithAnn();
    Program.ChoosePractice(QStringLiteral("Kind of Arrows"), QStringLiteral("Arrows"));
    Program.AnswerNextBox("cmd2");
    Program.Click("cmdInstructions");
    EXPECT_EQ(Plain(Program.Boxes.last().section(u'\r', 0, 0)), "Error showing instructions: Arrows");
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
    Program.Click("cmdPlay");
    EXPECT_EQ(Mode(), 4);
}

TEST_F(BrokenFiles, AMissingHelpFileIsNoFailure)
{
    Start();
    Program.ClickMenu(QStringLiteral("help"));
    EXPECT_EQ(Mode(), 0);
    EXPECT_EQ(Menu(), "options|help|exit");
}

TEST_F(BrokenFiles, InAFolderThatCantBeWrittenTheStartEndsAtTheSplashAndChangesNothing)
{
    const QByteArray store = Program.Folder.Read(QStringLiteral("Noggle.mdb"));
    {
        const ReadOnlyFolder sealed(Program.Folder.Path());
        ASSERT_TRUE(sealed.IsInForce());
        EXPECT_FALSE(Program.Start());
    }
    EXPECT_TRUE(Program.PlainBoxes.value(0).startsWith(u"Error starting program @7\n")) << Boxes();
    EXPECT_EQ(Program.PlainBoxes.size(), 1);
    EXPECT_FALSE(Program.Folder.Exists(Settings));
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("Noggle.mdb")), store);
    Program.Stop();
    Program.PlainBoxes.clear();
    Start();
    EXPECT_EQ(modMain::Games->Count(), 2);
}

// Without a module there is no picture to be laid down, so the start comes as far as the store.
TEST_F(BrokenFiles, InAFolderThatCantBeWrittenAndWithoutAModuleTheProgramRunsAndTellsWhatItCantSave)
{
    StartWithAnn();
    Program.Stop();
    Program.Boxes.clear();
    QFile::remove(Program.Folder.Path() + Module);
    const QByteArray store = Program.Folder.Read(QStringLiteral("Noggle.mdb"));
    {
        const ReadOnlyFolder sealed(Program.Folder.Path());
        ASSERT_TRUE(sealed.IsInForce());
        Messages messages;
        ASSERT_TRUE(Program.Start());
        EXPECT_EQ(Boxes(), "");
        EXPECT_EQ(modMain::Games->Count(), 2);
        Program.ClickPlayer(QStringLiteral("Ann"));
        modMain::Form->PlayGame(modMain::Games->Item(1), 1); // no word on any row to find it by
        ASSERT_EQ(Mode(), 4);
        Program.AnswerNextBox("cmd2");
        Game.End();
        EXPECT_EQ(Mode(), 2);
        for (const QString &text : messages.Texts) EXPECT_TRUE(text.startsWith(u"Error saving ")) << Plain(text);
        EXPECT_EQ(Plain(messages.Texts.last().section(u'\r', 0, 0)), "Error saving GamePlayed info.");
    }
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("Noggle.mdb")), store);
}
