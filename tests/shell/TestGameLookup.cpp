#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "sdk/CGameArea.h"
#include "shell/GameHost.h"
#include "shell/GameLibraries.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLibraryInfo>
#include <QWidget>

namespace
{
const QString Rude = QStringLiteral(NOGGLE_RUDE_FOLDER "rude.so");
const QString RudeNext = QStringLiteral(NOGGLE_RUDE_NEXT_FOLDER "rude-next.so");
const QString Blank = QStringLiteral(NOGGLE_BLANK_FOLDER "blank.so");
const QString BlankClass = QStringLiteral("Blank.GameArea");

class GameLookup : public testing::Test
{
protected:
    QString GameFolder() const { return Folder.Path() + QStringLiteral("game/"); }
    /// The sentence with which the class is refused; empty when it was made.
    QString Refused(const QString &className) { return RefusedIn(className, GameFolder()); }
    QString RefusedIn(const QString &className, const QString &folder)
    {
        try {
            CreateGame(className, folder, &Container);
            return {};
        } catch (const RuntimeError &error) {
            return error.Description();
        }
    }

    TestFolder Folder;
    QWidget Container;
};

/// A plug-in whose metadata says that it was built with Qt of that minor version.
QByteArray BuiltWithQtMinor(const QString &library, char minor)
{
    QByteArray bytes = ReadFile(library);
    const QByteArray magic = QByteArray("qt-project!", 12); // owner of the note, with its end
    const qsizetype at = bytes.indexOf(magic);
    EXPECT_GT(at, 0);
    bytes[at + magic.size() + 2] = minor; // behind the format and the major version
    return bytes;
}
} // namespace

TEST_F(GameLookup, FindsTheClassInTheGamesOwnFolder)
{
    Folder.Copy(Blank, QStringLiteral("game/blank.so"));
    const auto game = CreateGame(BlankClass, GameFolder(), &Container);
    ASSERT_NE(game->Control(), nullptr);
    EXPECT_EQ(game->Control()->parentWidget(), &Container);
    EXPECT_FALSE(game->Control()->isVisible());
}

TEST_F(GameLookup, AFolderWithoutASeparatorAtItsEndIsTheSameFolder)
{
    Folder.Copy(Blank, QStringLiteral("game/blank.so"));
    EXPECT_EQ(RefusedIn(BlankClass, Folder.Path() + QStringLiteral("game")), QString());
}

TEST_F(GameLookup, FindsTheClassAmongTheSharedComponents)
{
    Folder.Copy(Blank, QStringLiteral("components/anything.so"));
    EXPECT_EQ(Refused(BlankClass), QString());
    EXPECT_EQ(RefusedIn(BlankClass, QString()), QString()) << "a game whose folder has gone";
}

TEST_F(GameLookup, TheOwnFolderComesBeforeTheSharedComponents)
{
    // the shared one makes nothing of that class, so it shows which was asked
    Folder.Copy(Rude, QStringLiteral("components/rude.so"));
    EXPECT_TRUE(Refused(QStringLiteral("RudeMakesNothing.GameArea")).contains(QStringLiteral("does not make it")));
    Folder.Copy(RudeNext, QStringLiteral("game/first.so"));
    Folder.Copy(Rude, QStringLiteral("game/second.so"));
    EXPECT_EQ(Refused(QStringLiteral("RudeScoresNothing.GameArea")), QString());
}

TEST_F(GameLookup, AGoodLibraryIsFoundBesideJunkAndOtherVersions)
{
    Folder.Write(QStringLiteral("game/a.so"), "junk");
    Folder.Copy(RudeNext, QStringLiteral("game/b.so"));
    Folder.Copy(Rude, QStringLiteral("components/rude.so"));
    EXPECT_EQ(Refused(QStringLiteral("RudeScoresNothing.GameArea")), QString());
}

TEST_F(GameLookup, OneLibraryOffersSeveralClasses)
{
    Folder.Copy(Rude, QStringLiteral("game/rude.so"));
    EXPECT_EQ(Refused(QStringLiteral("RudeScoresNothing.GameArea")), QString());
    EXPECT_EQ(Refused(QStringLiteral("RudeScoresText.GameArea")), QString());
}

TEST_F(GameLookup, ClassNamesCompareExactly)
{
    Folder.Copy(Blank, QStringLiteral("game/blank.so"));
    for (const char *name : {"blank.GameArea", "Blank.gamearea", "Blank", "Blank.GameArea ", ".GameArea", ""})
        EXPECT_TRUE(Refused(QLatin1String(name)).contains(QStringLiteral("is not installed"))) << name;
}

TEST_F(GameLookup, AMissingClassIsToldByName)
{
    Folder.Copy(Blank, QStringLiteral("game/blank.so"));
    EXPECT_EQ(Refused(QStringLiteral("Sums.GameArea")),
              QStringLiteral("The component \"Sums.GameArea\" is not installed: no library in the game's folder or "
                             "among the shared components offers it."));
}

TEST_F(GameLookup, AMissingFolderIsAMissingClass)
{
    EXPECT_TRUE(Refused(BlankClass).contains(QStringLiteral("is not installed")));
}

TEST_F(GameLookup, AnEmptyFolderNameIsNotThePresentFolder)
{
    EXPECT_TRUE(RefusedIn(BlankClass, QString()).contains(QStringLiteral("is not installed")));
}

TEST_F(GameLookup, AnotherVersionIsRefusedUnloaded)
{
    Folder.Copy(RudeNext, QStringLiteral("game/next.so")); // ends the process where it is loaded
    EXPECT_EQ(
        Refused(QStringLiteral("RudeNext.GameArea")),
        QStringLiteral("The component \"RudeNext.GameArea\" can't be used: the library \"next.so\" was made for "
                       "another version of this program."));
}

TEST_F(GameLookup, AnotherVersionAmongTheSharedComponentsIsToldToo)
{
    Folder.Copy(RudeNext, QStringLiteral("components/next.so"));
    EXPECT_TRUE(
        Refused(QStringLiteral("RudeNext.GameArea")).contains(QStringLiteral("another version of this program")));
}

TEST_F(GameLookup, ALaterQtIsRefused)
{
    Folder.Write(QStringLiteral("game/blank.so"), BuiltWithQtMinor(Blank, 99));
    EXPECT_EQ(Refused(BlankClass),
              QStringLiteral("The component \"Blank.GameArea\" can't be used: the library "
                             "\"blank.so\" was built with another version of Qt than this program."));
}

TEST_F(GameLookup, AnEarlierMinorQtIsWelcome)
{
    Folder.Write(QStringLiteral("game/blank.so"), BuiltWithQtMinor(Blank, 2));
    EXPECT_EQ(Refused(BlankClass), QString());
}

TEST_F(GameLookup, JunkIsToldAsDamaged)
{
    Folder.Write(QStringLiteral("game/blank.so"), "This is not a library at all.");
    EXPECT_EQ(Refused(BlankClass), QStringLiteral("The component \"Blank.GameArea\" can't be used: the library "
                                                  "\"blank.so\" is damaged or made for another kind of machine."));
}

TEST_F(GameLookup, NoLibraryThatWasCutIsLoaded)
{
    const QByteArray whole = ReadFile(Blank);
    for (const qsizetype size : {0, 1, 63, 64, 4096, 16384, 32768}) { // code and data end above that
        Folder.Write(QStringLiteral("game/blank.so"), whole.left(size));
        EXPECT_TRUE(Refused(BlankClass).contains(QStringLiteral("is damaged"))) << size;
        QFile::remove(GameFolder() + QStringLiteral("blank.so"));
    }
}

TEST_F(GameLookup, ALibraryOfAnotherKindIsNoGame)
{
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
    Folder.Copy(plugins + QStringLiteral("/imageformats/libqgif.so"), QStringLiteral("game/gif.so"));
    EXPECT_EQ(Refused(BlankClass),
              QStringLiteral("The component \"Blank.GameArea\" can't be used: the library \"gif.so\" is no game."));
}

TEST_F(GameLookup, JunkAmongTheSharedComponentsIsNotTheGamesFault)
{
    Folder.Write(QStringLiteral("components/junk.so"), "junk");
    EXPECT_TRUE(Refused(BlankClass).contains(QStringLiteral("is not installed")));
}

TEST_F(GameLookup, FilesThatAreNoLibrariesAreNotLookedAt)
{
    Folder.Write(QStringLiteral("game/GameSettings.ini"), "[config]\n");
    Folder.Write(QStringLiteral("game/folder.so/inside.txt"), "a folder of that name");
    EXPECT_TRUE(Refused(BlankClass).contains(QStringLiteral("is not installed")));
}

TEST_F(GameLookup, AClassThatIsListedAndNotMadeIsTold)
{
    Folder.Copy(Rude, QStringLiteral("game/rude.so"));
    EXPECT_TRUE(Refused(QStringLiteral("RudeMakesNothing.GameArea")).contains(QStringLiteral("RudeMakesNothing")));
}

TEST_F(GameLookup, AFailureOfTheConstructorIsPassedOnAsOurs)
{
    Folder.Copy(Rude, QStringLiteral("game/rude.so"));
    EXPECT_EQ(Refused(QStringLiteral("RudeThrowsOnCreate.GameArea")), QStringLiteral("thrown on creation"));
}

TEST_F(GameLookup, AGameThatComesAsAWindowBecomesAHiddenChild)
{
    Folder.Copy(Rude, QStringLiteral("game/rude.so"));
    const auto game = CreateGame(QStringLiteral("RudeIsAWindow.GameArea"), GameFolder(), &Container);
    EXPECT_EQ(game->Control()->parentWidget(), &Container);
    EXPECT_FALSE(game->Control()->isWindow());
    EXPECT_FALSE(game->Control()->isVisibleTo(&Container));
}

TEST_F(GameLookup, GamesOfTheProgramItselfTakePart)
{
    struct Plain : CGameArea
    {
        using CGameArea::CGameArea;
        void SetNoggleFrameWork(CNoggleFramework *) override {}
        QVariant Message(const QString &, QVariant &, QVariant &) override { return 7; }
    };
    RegisterGame(QStringLiteral("Plain.GameArea"), [](QWidget *container) { return new Plain(container); });
    EXPECT_EQ(CreateGame(QStringLiteral("Plain.GameArea"), {}, &Container)->Message(QStringLiteral("score")).toInt(),
              7);
    RegisterGame(QStringLiteral("Plain.GameArea"), {});
    EXPECT_TRUE(Refused(QStringLiteral("Plain.GameArea")).contains(QStringLiteral("is not installed")));
}
