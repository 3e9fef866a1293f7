// What stops the scan of the game folders, and what it costs.
#include "DomainTest.h"
#include "domain/Store.h"
#include "platform/Files.h"

#include <QDir>
#include <QFile>

#include <sys/fsuid.h>
#include <unistd.h>

namespace
{
class Scan : public DomainTest
{
protected:
    // Folders come in the order of the system. Answer: the one that comes in the middle of three.
    QString GivenThreeGames()
    {
        for (const char *name : {"a", "b", "c"}) GivenGame(QString::fromUtf8(name), {name, "Memory"});
        QStringList folders;
        for (const QString &entry : EntriesOf(m_folder.Path()))
            if (entry.size() == 1) folders.append(entry);
        m_first = folders.value(0);
        return folders.value(1);
    }
    QString m_first;
};

// File access as a plain user has it, also where the tests run as root.
class PlainUser
{
public:
    explicit PlainUser(const QString &Folder)
    {
        if (geteuid() != 0) return;
        for (const QString &entry : EntriesOf(Folder)) Give(Folder + entry);
        Give(Folder);
        setfsuid(Nobody);
    }
    ~PlainUser() { setfsuid(geteuid()); }
    PlainUser(const PlainUser &) = delete;
    PlainUser &operator=(const PlainUser &) = delete;

private:
    static constexpr uid_t Nobody = 65534;
    static void Give(const QString &Path)
    {
        if (chown(Path.toUtf8().constData(), Nobody, static_cast<gid_t>(-1)) != 0)
            qFatal("%s can't be given away", qPrintable(Path));
    }
};
} // namespace

TEST_F(Scan, StopsAtALimitThatIsNoNumber)
{
    for (const char *limit : {"", "sixty", "60 seconds", "4294967296", "0x3c"}) {
        const QString middle = GivenThreeGames();
        GivenGame(middle, {middle.toUtf8(), "Memory", limit});
        Start();
        EXPECT_EQ(TakeMessages(), u"Error loading Games.") << limit;
        EXPECT_EQ(Names(*modMain::Games), m_first) << limit;
        EXPECT_EQ(StoredOne(QStringLiteral("select GameName from Game")), m_first) << limit;
        m_store.Ask(QStringLiteral("delete from Game"));
    }
}

TEST_F(Scan, StopsAtAFileWithoutALimit)
{
    m_folder.Write(QStringLiteral("arrows/GameSettings.ini"), "[config]\r\nname=Arrows\r\n");
    Start();
    EXPECT_EQ(TakeMessages(), u"Error loading Games.");
    EXPECT_EQ(modMain::Games->Count(), 0);
}

TEST_F(Scan, TellsTheReasonInTheSecondLine)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory", "sixty"});
    Start();
    EXPECT_EQ(m_framework->TakeLast().Message, u"Error loading Games.\r\nType mismatch.");
}

TEST_F(Scan, OfAFailureLeavesTheCatalogueAsTheStoreHasIt)
{
    const QString middle = GivenThreeGames();
    Start();
    GivenGame(middle, {middle.toUtf8(), "Memory", "sixty"});
    StartAgain();
    EXPECT_EQ(TakeMessages(), u"Error loading Games.");
    EXPECT_EQ(modMain::Games->Count(), 3);
    EXPECT_EQ(Game(m_first)->TimeLimit, 60);
    EXPECT_NE(Game(m_first)->Path(), QString());
    // The failing game has what stands before the limit, and keeps its row.
    EXPECT_NE(Game(middle)->IniFile, QString());
    EXPECT_EQ(Game(middle)->Path(), QString());
    EXPECT_EQ(StoredOne(QStringLiteral("select GameTimeLimit from Game where GameName='%1'").arg(middle)), u"60");
}

TEST_F(Scan, PassesOverAFolderThatCannotBeRead)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
    GivenGame(QStringLiteral("closed"), {"Closed", "Memory"});
    const QString closed = m_folder.Path() + QStringLiteral("closed");
    {
        const PlainUser user(m_folder.Path());
        QFile::setPermissions(closed, {});
        Start();
    }
    QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(Names(*modMain::Games), u"Arrows");
    EXPECT_EQ(TakeMessages(), QString());
}

TEST_F(Scan, GoesOnWhenAGameCannotBeSavedAndKeepsItUnderKeyZero)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
    modMain::GetConnection().BeforeCall = [](const QString &Sql) {
        if (Sql.contains(QStringLiteral("from Game where"))) throw RuntimeError(QStringLiteral("No more room."));
    };
    Start();
    EXPECT_EQ(TakeMessages(), u"Error saving Game info.; Error saving Game info.");
    EXPECT_EQ(modMain::Games->Item(0)->Name(), u"Arrows");
    EXPECT_EQ(StoredOne(QStringLiteral("select CategoryName from Category")), u"Memory");
}

TEST_F(Scan, StopsAtTheSecondNewGameThatCannotBeSaved)
{
    GivenThreeGames();
    modMain::GetConnection().BeforeCall = [](const QString &Sql) {
        if (Sql.contains(QStringLiteral("from Game where"))) throw RuntimeError(QStringLiteral("No more room."));
    };
    Start();
    EXPECT_EQ(TakeMessages(), u"Error saving Game info.; Error saving Game info.; Error loading Games.");
    EXPECT_EQ(modMain::Games->Count(), 1);
}

TEST_F(Scan, WhoseCommitFailsLeavesTheGamesThatTheStoreKnows)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
    Start();
    GivenGame(QStringLiteral("abacus"), {"Abacus", "Numbers"});
    modMain::GetConnection().BeforeCall = [](const QString &Sql) {
        if (Sql == u"commit") throw RuntimeError(QStringLiteral("No more room."));
    };
    Start();
    EXPECT_EQ(TakeMessages(), u"Error loading Games.");
    EXPECT_EQ(Names(*modMain::Games), u"Arrows");
    EXPECT_NE(Game(QStringLiteral("Arrows"))->Path(), QString()) << "it can be played";
    EXPECT_EQ(modMain::Categories->Count(), 1);
    modMain::GetConnection().BeforeCall = {};
    StartAgain();
    EXPECT_EQ(Names(*modMain::Games), u"Abacus Arrows");
    EXPECT_EQ(StoredOne(QStringLiteral("select GameKey, GameName from Game")), u"1|Arrows;2|Abacus");
}

TEST_F(Scan, AFailureWhileCategoriesAreReloadedMakesNoCategoryTwice)
{
    GivenThreeGames();
    int loads = 0;
    modMain::GetConnection().BeforeCall = [&loads](const QString &Sql) {
        if (Sql.contains(QStringLiteral("from Category order by")) && ++loads == 2)
            throw RuntimeError(QStringLiteral("No more room."));
    };
    Start();
    EXPECT_EQ(TakeMessages(), u"Error loading categories.");
    EXPECT_EQ(StoredOne(QStringLiteral("select CategoryName from Category")), u"Memory");
    EXPECT_EQ(modMain::Games->Count(), 3);
}
