#include "DomainTest.h"
#include "domain/Store.h"

#include <sqlite3.h>

#include <QDateTime>
#include <QFile>

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace
{
class Catalogue : public DomainTest
{
protected:
    static QString CategoryNames()
    {
        QStringList names;
        for (const auto &category : *modMain::Categories) names.append(category->Name);
        return names.join(u' ');
    }
    QStringList GameRows() const
    {
        return Stored(QStringLiteral("select GameKey, GameName, GameComponent, GameTimeLimit, CategoryName from Game "
                                     "left join Category on CategoryKey = GameCategory order by GameKey"));
    }
};
} // namespace

TEST_F(Catalogue, OnAnEmptyStoreHoldsEveryGameInNameOrder)
{
    GivenGame(QStringLiteral("1"), {"Corners", "Memory"});
    GivenGame(QStringLiteral("2"), {"Arrows", "Numbers"});
    GivenGame(QStringLiteral("3"), {"Beacons", "Memory"});
    Start();
    EXPECT_EQ(Names(*modMain::Games), u"Arrows Beacons Corners");
    EXPECT_EQ(CategoryNames(), u"Memory Numbers");
    EXPECT_EQ(TakeMessages(), QString());
}

TEST_F(Catalogue, StandsInNameOrderWithoutRegardToCase)
{
    GivenGame(QStringLiteral("1"), {"Zoo", "c"});
    GivenGame(QStringLiteral("2"), {"apple", "B"});
    GivenGame(QStringLiteral("3"), {"Moon", "a"});
    Start();
    EXPECT_EQ(Names(*modMain::Games), u"apple Moon Zoo");
    EXPECT_EQ(CategoryNames(), u"a B c");
}

TEST_F(Catalogue, TakesEverythingFromTheSettingsFile)
{
    const QString path = GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory", "90", "controlpanel=True"});
    Start();
    const auto arrows = Game(QStringLiteral("Arrows"));
    EXPECT_EQ(arrows->IniFile, path);
    EXPECT_EQ(arrows->Path(), m_folder.Path() + QStringLiteral("arrows/"));
    EXPECT_EQ(arrows->ComponentName, u"ArrowsComponent");
    EXPECT_EQ(arrows->TimeLimit, 90);
    EXPECT_TRUE(arrows->ControlPanel);
    EXPECT_EQ(modMain::Categories->Item(RecordKey(arrows->Category))->Name, u"Memory");
    EXPECT_EQ(GameRows(), QStringList(QStringLiteral("1|Arrows|ArrowsComponent|90|Memory")));
}

TEST_F(Catalogue, ReadingAFileLeavesItAsItWas)
{
    const QByteArray bytes = "; a comment\n[CONFIG]\nNAME = \"Arrows\"\ntimelimit=0";
    m_folder.Write(QStringLiteral("arrows/GameSettings.ini"), bytes);
    Start();
    Game(QStringLiteral("Arrows"))->Levels();
    EXPECT_EQ(m_folder.Read(QStringLiteral("arrows/GameSettings.ini")), bytes);
}

TEST_F(Catalogue, PassesOverFoldersWithoutSettingsAndPlainFiles)
{
    m_folder.Write(QStringLiteral("readme.txt"), "no game");
    m_folder.Write(QStringLiteral("empty/Instructions.rtf"), "no game");
    m_folder.Write(QStringLiteral("odd/GameSettings.ini/inside.txt"), "a folder of that name");
    Start();
    EXPECT_EQ(modMain::Games->Count(), 0);
    EXPECT_EQ(TakeMessages(), QString());
}

TEST_F(Catalogue, PassesOverLinksThatLeadNowhere)
{
    QFile::link(m_folder.Path() + QStringLiteral("gone"), m_folder.Path() + QStringLiteral("link"));
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
    Start();
    EXPECT_EQ(Names(*modMain::Games), u"Arrows");
}

TEST_F(Catalogue, FindsTheSettingsFileWhateverTheCaseOfItsName)
{
    m_folder.Write(QStringLiteral("arrows/gamesettings.INI"), GameFile{"Arrows", "Memory"}.Text());
    Start();
    EXPECT_EQ(Names(*modMain::Games), u"Arrows");
}

TEST_F(Catalogue, AGameWithoutANameHasAnEmptyOne)
{
    m_folder.Write(QStringLiteral("nameless/GameSettings.ini"), "[config]\r\ntimelimit=0\r\n");
    Start();
    EXPECT_EQ(modMain::Games->Count(), 1);
    EXPECT_EQ(GameRows(), QStringList(QStringLiteral("1|||0|zzz")));
    StartAgain();
    EXPECT_EQ(modMain::Games->Count(), 1);
}

TEST_F(Catalogue, AGameWithoutACategoryGoesWhereSuchGamesGo)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", ""});
    GivenGame(QStringLiteral("sums"), {"Sums", "zebra"});
    Start();
    EXPECT_EQ(CategoryNames(), u"zebra zzz");
    EXPECT_EQ(m_folder.Read(QStringLiteral("arrows/GameSettings.ini")).count("zzz"), 0);
}

TEST_F(Catalogue, ANewCategoryStandsAtItsSortedPlace)
{
    GivenGame(QStringLiteral("1"), {"Arrows", "Words"});
    Start();
    GivenGame(QStringLiteral("2"), {"Beacons", "Logic"});
    StartAgain();
    EXPECT_EQ(CategoryNames(), u"Logic Words");
    EXPECT_EQ(modMain::Categories->CategoryByName(QStringLiteral("Logic"))->Games().Count(), 1);
}

TEST_F(Catalogue, CategoriesThatDifferInCaseAreTwo)
{
    GivenGame(QStringLiteral("1"), {"Arrows", "Memory"});
    GivenGame(QStringLiteral("2"), {"Beacons", "memory"});
    Start();
    EXPECT_EQ(modMain::Categories->Count(), 2);
    EXPECT_NE(Game(QStringLiteral("Arrows"))->Category, Game(QStringLiteral("Beacons"))->Category);
}

TEST_F(Catalogue, GamesThatDifferInCaseAreTwo)
{
    GivenGame(QStringLiteral("1"), {"Arrows", "Memory"});
    GivenGame(QStringLiteral("2"), {"arrows", "Memory"});
    Start();
    EXPECT_EQ(modMain::Games->Count(), 2);
}

TEST_F(Catalogue, TheKeyOfAKnownGameNeverChangesAndTheDiskWinsOtherwise)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory", "60"});
    Start();
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Numbers", "0"});
    GivenGame(QStringLiteral("aaa"), {"Aaa", "Memory"});
    StartAgain();
    EXPECT_EQ(GameRows(), QStringList({QStringLiteral("1|Arrows|ArrowsComponent|0|Numbers"),
                                       QStringLiteral("2|Aaa|AaaComponent|60|Memory")}));
}

TEST_F(Catalogue, AGameWhoseNameChangesIsANewOneAndTheOldRowStays)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
    Start();
    GivenGame(QStringLiteral("arrows"), {"Bows", "Memory"});
    StartAgain();
    EXPECT_EQ(Names(*modMain::Games), u"Arrows Bows");
    EXPECT_EQ(Game(QStringLiteral("Bows"))->Key, 2);
}

TEST_F(Catalogue, AGameWhoseFolderHasGoneKeepsItsRowAndHasOneLevel)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory", "60", "levels=7"});
    Start();
    QFile::remove(m_folder.Path() + QStringLiteral("arrows/GameSettings.ini"));
    StartAgain();
    const auto arrows = Game(QStringLiteral("Arrows"));
    EXPECT_EQ(arrows->IniFile, QString());
    EXPECT_EQ(arrows->Path(), QString());
    EXPECT_EQ(arrows->TimeLimit, 60);
    EXPECT_EQ(arrows->ComponentName, u"ArrowsComponent");
    EXPECT_EQ(arrows->Levels(), 1);
    EXPECT_NE(arrows->Category, 0);
}

TEST_F(Catalogue, TwoFoldersOfOneNameAreOneGame)
{
    GivenGame(QStringLiteral("one"), {"Arrows", "Memory"});
    GivenGame(QStringLiteral("two"), {"Arrows", "Memory"});
    Start();
    EXPECT_EQ(GameRows().size(), 1);
    EXPECT_EQ(modMain::Games->Count(), 1);
}

TEST_F(Catalogue, TheSecondFolderOfANameIsAGameOfItsOwnWhenTheFirstIsTranslated)
{
    GivenGame(QStringLiteral("one"), {"Arrows", "Memory", "60", "[0]\r\nName=Pfeile"});
    GivenGame(QStringLiteral("two"), {"Arrows", "Memory", "60", "[0]\r\nName=Bogen"});
    Start();
    EXPECT_EQ(GameRows().size(), 2);
    EXPECT_EQ(Game(QStringLiteral("Arrows"))->StoredName(), u"Arrows");
    StartAgain();
    EXPECT_EQ(GameRows().size(), 2);
}

TEST_F(Catalogue, ATranslationIsNeverStored)
{
    GivenGame(QStringLiteral("one"), {"Arrows", "Memory", "60", "[0]\r\nName=Pfeile"});
    Start();
    StartAgain();
    EXPECT_EQ(Names(*modMain::Games), u"Pfeile");
    EXPECT_EQ(GameRows(), QStringList(QStringLiteral("1|Arrows|ArrowsComponent|60|Memory")));
}

TEST_F(Catalogue, GameByNameComparesTheNameAsReadCaseCounting)
{
    GivenGame(QStringLiteral("one"), {"Arrows", "Memory", "60", "[0]\r\nName=Pfeile"});
    Start();
    EXPECT_NE(modMain::Games->GameByName(QStringLiteral("Pfeile")), nullptr);
    EXPECT_EQ(modMain::Games->GameByName(QStringLiteral("pfeile")), nullptr);
    EXPECT_EQ(modMain::Games->GameByName(QStringLiteral("Arrows")), nullptr);
}

TEST_F(Catalogue, LoadedAgainHoldsNewObjectsAndMakesNoRows)
{
    GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
    Start();
    const auto before = Game(QStringLiteral("Arrows"));
    modMain::Games->Load();
    EXPECT_NE(Game(QStringLiteral("Arrows")), before);
    EXPECT_EQ(GameRows().size(), 1);
}

TEST_F(Catalogue, NullColumnsLoadAsNothing)
{
    m_store.Ask(QStringLiteral("insert into Game (GameName, GameComponent, GameTimeLimit, GameCategory) "
                               "values (null, null, null, null)"));
    Start();
    const auto game = modMain::Games->ByPosition(1);
    EXPECT_EQ(game->StoredName(), QString());
    EXPECT_EQ(game->ComponentName, QString());
    EXPECT_EQ(game->TimeLimit, 0);
    EXPECT_EQ(game->Category, 0);
}

namespace
{
// Counts how often a file is opened, by whoever.
class Opened
{
public:
    explicit Opened(const QString &Path)
    {
        // Closing is watched too, since the system makes one event of two equal ones that follow each other.
        if (inotify_add_watch(m_Watch, Path.toUtf8().constData(), IN_OPEN | IN_CLOSE) < 0)
            qFatal("%s can't be watched", qPrintable(Path));
    }
    ~Opened() { close(m_Watch); }
    Opened(const Opened &) = delete;
    Opened &operator=(const Opened &) = delete;

    int Times() const
    {
        std::array<inotify_event, 64> events{}; // those of a watched file have no name behind them
        const ssize_t bytes = read(m_Watch, events.data(), sizeof(events));
        const auto count = bytes < 0 ? 0 : bytes / static_cast<ssize_t>(sizeof(inotify_event));
        return static_cast<int>(std::count_if(events.begin(), events.begin() + count, [](const inotify_event &event) {
            return (event.mask & IN_OPEN) != 0;
        }));
    }

private:
    int m_Watch = inotify_init1(IN_NONBLOCK);
};
} // namespace

TEST_F(Catalogue, OpensEachSettingsFileAtMostTwice)
{
    const QString first = GivenGame(QStringLiteral("1"), {"Arrows", "Memory"});
    GivenGame(QStringLiteral("2"), {"Beacons", "Memory"});
    // A file as old as one that was delivered, since a young one may change without showing it.
    QFile file(first);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    file.close();
    const Opened opened(first);
    Start();
    const int times = opened.Times();
    EXPECT_GE(times, 1);
    EXPECT_LE(times, 2);
}

TEST_F(Catalogue, IsWalkedThroughTwiceOnlyWhereTheDiskBringsNews)
{
    const auto walks = [this] {
        int count = 0;
        modMain::GetConnection().BeforeCall = [&count](const QString &sql) {
            if (sql == u"select * from Game order by GameName") ++count;
        };
        Start();
        modMain::GetConnection().BeforeCall = {};
        return count;
    };
    GivenGame(QStringLiteral("1"), {"Zoo", "Memory"});
    EXPECT_EQ(walks(), 2) << "a new game";
    EXPECT_EQ(walks(), 1);
    GivenGame(QStringLiteral("1"), {"Zoo", "Numbers"});
    EXPECT_EQ(walks(), 2) << "another category";
    GivenGame(QStringLiteral("1"), {"Zoo", "Numbers", "90"});
    EXPECT_EQ(walks(), 2) << "another limit";
    GivenGame(QStringLiteral("2"), {"Arrows", "Numbers"});
    EXPECT_EQ(walks(), 2) << "a second game";
    EXPECT_EQ(Names(*modMain::Games), u"Arrows Zoo");
    EXPECT_EQ(walks(), 1);
    EXPECT_EQ(Names(*modMain::Games), u"Arrows Zoo");
    GivenGame(QStringLiteral("3"), {"Zoo", "Memory", "90"});
    Start();
    EXPECT_EQ(walks(), 2) << "two folders of one game that do not agree";
}

TEST_F(Catalogue, IsOneCommit)
{
    for (int i = 0; i < 20; ++i)
        GivenGame(QString::number(i), {"Game " + QByteArray::number(i), "Category " + QByteArray::number(i % 3)});
    modMain::GetConnection();
    int commits = 0;
    sqlite3_commit_hook(
        modMain::GetConnection().Handle(), [](void *count) { return ++*static_cast<int *>(count), 0; }, &commits);
    Start();
    EXPECT_EQ(modMain::Games->Count(), 20);
    EXPECT_EQ(commits, 1);
    sqlite3_commit_hook(modMain::GetConnection().Handle(), nullptr, nullptr);
}

TEST_F(Catalogue, ItemTakesTheBareKeyAndByPositionThePlace)
{
    GivenGame(QStringLiteral("arrows"), {"Beacons", "Memory"});
    Start();
    GivenGame(QStringLiteral("beacons"), {"Arrows", "Memory"});
    StartAgain();
    EXPECT_EQ(modMain::Games->Item(1)->Name(), u"Beacons");
    EXPECT_EQ(modMain::Games->ByPosition(1)->Name(), u"Arrows");
    EXPECT_THROW(modMain::Games->Item(3), ListError);
    EXPECT_THROW(modMain::Games->ByPosition(3), ListError);
}

TEST_F(Catalogue, AGameAddedByHandIsNotSaved)
{
    Start();
    const auto named = modMain::Games->Add(QStringLiteral("Arrows"), QStringLiteral("Bow"), QStringLiteral("K7"));
    const auto nameless = modMain::Games->Add(QStringLiteral("Sums"), QStringLiteral("Sum"), {});
    EXPECT_EQ(modMain::Games->Item(7), named);
    EXPECT_EQ(named->ComponentName, u"Bow");
    EXPECT_EQ(modMain::Games->ByPosition(2), nameless);
    EXPECT_EQ(GameRows().size(), 0);
    modMain::Games->Remove(QStringLiteral("K7"));
    modMain::Games->Remove(1);
    EXPECT_EQ(modMain::Games->Count(), 0);
}
