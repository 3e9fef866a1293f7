#include "DomainTest.h"

namespace
{
class Categories : public DomainTest
{
protected:
    Categories() { Start(); }
    static QString LocalName(const QString &Name)
    {
        CCategory category;
        category.Name = Name;
        return category.LocalName();
    }
    static colCategory &List() { return *modMain::Categories; }
};
} // namespace

TEST_F(Categories, ANewOneIsSavedAndStandsUnderItsKey)
{
    const auto memory = List().Add(QStringLiteral("Memory"));
    EXPECT_EQ(List().Item(RecordKey(memory->Key)), memory);
    EXPECT_EQ(StoredOne(QStringLiteral("select * from Category")), u"1|Memory");
}

TEST_F(Categories, ItemTakesAPositionOrAPrefixedKey)
{
    List().Add(QStringLiteral("Words"));
    List().Add(QStringLiteral("Memory"));
    List().Load();
    EXPECT_EQ(List().Item(1)->Name, u"Memory");
    EXPECT_EQ(List().Item(QStringLiteral("K1"))->Name, u"Words");
    EXPECT_THROW(List().Item(3), ListError);
    EXPECT_THROW(List().Item(QStringLiteral("1")), ListError);
}

TEST_F(Categories, RemovedFromTheListTheRowStays)
{
    List().Add(QStringLiteral("Words"));
    List().Add(QStringLiteral("Memory"));
    List().Remove(QStringLiteral("K1"));
    List().Remove(1);
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*) from Category")), u"2");
}

TEST_F(Categories, StandInNameOrderWithTheReservedOneLast)
{
    for (const char16_t *name : {u"zzz", u"Zoo", u"apple", u"Ärger", u"Λόγος", u"zzzz"})
        List().Add(QString::fromUtf16(name));
    List().Load();
    EXPECT_EQ(List().Item(1)->Name, u"apple");
    EXPECT_EQ(List().Item(6)->Name, u"zzz");
}

TEST_F(Categories, AreFoundByTheStoredNameCaseCounting)
{
    const auto memory = List().Add(QStringLiteral("Memory"));
    m_folder.Write(QStringLiteral("Categories/Memory.ini"), "[0]\r\nName=Merken\r\n");
    EXPECT_EQ(memory->LocalName(), u"Merken");
    EXPECT_EQ(List().CategoryByName(QStringLiteral("Memory")), memory);
    EXPECT_EQ(List().CategoryByName(QStringLiteral("memory")), nullptr);
    EXPECT_EQ(List().CategoryByName(QStringLiteral("Merken")), nullptr);
}

TEST_F(Categories, WithoutALanguageFileTheLocalNameIsTheNameAndMakesTheFile)
{
    m_folder.Write(QStringLiteral("Categories/Other.ini"), "");
    EXPECT_EQ(LocalName(QStringLiteral("Memory")), u"Memory");
    EXPECT_EQ(m_folder.Read(QStringLiteral("Categories/Memory.ini")), "[0]\r\nName=Memory\r\n");
}

TEST_F(Categories, WithoutAFolderForLanguageFilesNoneIsMade)
{
    EXPECT_EQ(LocalName(QStringLiteral("Memory")), u"Memory");
    EXPECT_FALSE(m_folder.Exists(QStringLiteral("Categories")));
}

TEST_F(Categories, TheLanguageFileIsFoundWhateverTheCase)
{
    m_folder.Write(QStringLiteral("categories/memory.INI"), "[0]\r\nName=Merken\r\n");
    EXPECT_EQ(LocalName(QStringLiteral("Memory")), u"Merken");
    EXPECT_EQ(LocalName(QStringLiteral("Words")), u"Words");
    EXPECT_TRUE(m_folder.Exists(QStringLiteral("categories/Words.ini")));
}

TEST_F(Categories, TheLocalNameIsReadOnce)
{
    const auto memory = List().Add(QStringLiteral("Memory"));
    m_folder.Write(QStringLiteral("Categories/Memory.ini"), "[0]\r\nName=Merken\r\n");
    EXPECT_EQ(memory->LocalName(), u"Merken");
    m_folder.Write(QStringLiteral("Categories/Memory.ini"), "[0]\r\nName=Something else\r\n");
    EXPECT_EQ(memory->LocalName(), u"Merken");
}

TEST_F(Categories, ANameThatNoFileCanHaveIsItsOwnLocalName)
{
    m_folder.Write(QStringLiteral("Categories/Memory.ini"), "");
    m_folder.Write(QStringLiteral("Settings.ini"), "");
    EXPECT_EQ(LocalName(QStringLiteral("../Settings")), u"../Settings");
    EXPECT_EQ(m_folder.Read(QStringLiteral("Settings.ini")), "");
    EXPECT_EQ(LocalName(QStringLiteral("a/b")), u"a/b");
}

TEST_F(Categories, GamesAreTheCataloguesOwnObjectsInItsOrder)
{
    GivenGame(QStringLiteral("1"), {"Corners", "Memory"});
    GivenGame(QStringLiteral("2"), {"Arrows", "Memory"});
    GivenGame(QStringLiteral("3"), {"Sums", "Numbers"});
    StartAgain();
    colGame &games = List().CategoryByName(QStringLiteral("Memory"))->Games();
    EXPECT_EQ(Names(games), u"Arrows Corners");
    EXPECT_EQ(games.ByPosition(1), Game(QStringLiteral("Arrows")));
    EXPECT_EQ(games.Item(Game(QStringLiteral("Corners"))->Key), Game(QStringLiteral("Corners")));
}

TEST_F(Categories, GamesAreKeptFromTheFirstReadAndAReloadForgetsThem)
{
    GivenGame(QStringLiteral("1"), {"Corners", "Memory"});
    StartAgain();
    const auto memory = List().Item(1);
    colGame &games = memory->Games();
    Game(QStringLiteral("Corners"))->Category = 99;
    EXPECT_EQ(&memory->Games(), &games);
    EXPECT_EQ(games.Count(), 1);
    List().Load();
    EXPECT_NE(List().Item(1), memory);
    EXPECT_EQ(List().Item(1)->Games().Count(), 0);
}

TEST_F(Categories, AFailingLoadShowsItsMessageAndKeepsTheList)
{
    List().Add(QStringLiteral("Memory"));
    const FailingCall first(m_store, 1);
    List().Load();
    EXPECT_EQ(TakeMessages(), u"Error loading categories.");
    EXPECT_EQ(List().Count(), 1);
}
