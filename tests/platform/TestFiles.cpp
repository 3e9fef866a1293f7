#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include "tests/support/ReadOnlyFolder.h"
#include "tests/support/TestFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

namespace
{
class Files : public testing::Test
{
protected:
    QString At(const char *name) const { return m_Folder.Path() + QString::fromUtf8(name); }
    QString Given(const char *name, const QByteArray &bytes = "x") const
    {
        return m_Folder.Write(QString::fromUtf8(name), bytes);
    }
    QString FoundFor(const char *name) const { return FindFile(At(name)).mid(m_Folder.Path().size()); }

    TestFolder m_Folder;
};

// No file can grow beyond a few bytes, as on a disk that is full.
class FullDisk
{
public:
    FullDisk()
    {
        m_Signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_Before);
        const rlimit few{16, m_Before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &few);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_Before);
        std::signal(SIGXFSZ, m_Signal);
    }

private:
    rlimit m_Before{};
    void (*m_Signal)(int) = nullptr;
};
} // namespace

TEST_F(Files, TheProgramsFolderEndsInASeparator)
{
    EXPECT_EQ(ProgramFolder(), m_Folder.Path());
    SetProgramFolder(QStringLiteral("/somewhere"));
    EXPECT_EQ(ProgramFolder(), u"/somewhere/");
    SetProgramFolder({});
    EXPECT_EQ(ProgramFolder(), QCoreApplication::applicationDirPath() + u'/');
}

TEST_F(Files, AFileExistsAndAMissingPathOrAFolderDoesNot)
{
    EXPECT_TRUE(FileExists(Given("a.txt")));
    EXPECT_TRUE(FileExists(Given("empty", {})));
    EXPECT_TRUE(FileExists(Given(".hidden")));
    EXPECT_FALSE(FileExists(At("b.txt")));
    EXPECT_FALSE(FileExists(At("no/such/folder/b.txt")));
    EXPECT_FALSE(FileExists(At("a.txt/b.txt")));
    EXPECT_FALSE(FileExists(At("A.TXT"))) << "case counts as the file system has it";
    EXPECT_FALSE(FileExists(m_Folder.Path()));
    EXPECT_FALSE(FileExists({}));
    EXPECT_FALSE(FileExists(At("a.txt") + QChar::Null + u'b'));
}

TEST_F(Files, ALinkExistsWhenItsTargetDoes)
{
    Given("target");
    QFile::link(QStringLiteral("target"), At("link"));
    QFile::link(QStringLiteral("gone"), At("dangling"));
    EXPECT_TRUE(FileExists(At("link")));
    EXPECT_FALSE(FileExists(At("dangling")));
}

TEST_F(Files, AFileIsFoundWithoutRegardToCase)
{
    Given("Skins/Meadow/Frame.GIF");
    EXPECT_EQ(FoundFor("Skins/Meadow/Frame.GIF"), u"Skins/Meadow/Frame.GIF");
    EXPECT_EQ(FoundFor("skins/MEADOW/frame.gif"), u"Skins/Meadow/Frame.GIF");
    EXPECT_EQ(FoundFor("skins/meadow/"), u"Skins/Meadow/") << "a folder keeps its separator";
    EXPECT_EQ(FoundFor("skins/meadow"), u"Skins/Meadow");
    EXPECT_EQ(FoundFor("Skins/meadow//frame.gif"), u"Skins/Meadow//Frame.GIF");
}

TEST_F(Files, ANameWithoutAFolderIsLookedForInTheWorkingFolder)
{
    Given("Frame.GIF");
    const QString before = QDir::currentPath();
    QDir::setCurrent(m_Folder.Path());
    EXPECT_EQ(FindFile(QStringLiteral("frame.gif")), u"Frame.GIF");
    EXPECT_EQ(FindFile(QStringLiteral("none.gif")), u"none.gif");
    QDir::setCurrent(before);
}

TEST_F(Files, TheExactNameWins)
{
    Given("A.txt");
    Given("a.txt");
    EXPECT_EQ(FoundFor("a.txt"), u"a.txt");
    EXPECT_EQ(FoundFor("A.txt"), u"A.txt");
}

TEST_F(Files, WhatIsNotThereIsGivenBackAsItWas)
{
    Given("Skins/Meadow/Frame.gif");
    EXPECT_EQ(FoundFor("skins/meadow/None.gif"), u"skins/meadow/None.gif");
    EXPECT_EQ(FoundFor("Skins/Meadow/Frame.gif/x"), u"Skins/Meadow/Frame.gif/x");
    EXPECT_EQ(FindFile({}), QString());
}

TEST_F(Files, EntriesAreFilesAndFoldersHiddenOnesToo)
{
    Given("b/inside");
    Given("C");
    Given("a");
    Given(".d");
    QFile::link(QStringLiteral("gone"), At("e"));
    EXPECT_EQ(SortedEntriesOf(m_Folder.Path()),
              (QStringList{QStringLiteral(".d"), QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("C"),
                           QStringLiteral("e")}));
    EXPECT_TRUE(EntriesOf(At("none")).isEmpty());
}

TEST_F(Files, AReadOfWhatIsNoFileFailsAndNamesIt)
{
    for (const QString &path : {At("none"), m_Folder.Path(), QString()}) {
        try {
            ReadFile(path);
            ADD_FAILURE() << path.toStdString();
        } catch (const RuntimeError &error) {
            EXPECT_TRUE(error.Description().startsWith(path)) << error.what();
        }
    }
}

TEST_F(Files, AFileIsReplacedInOneStep)
{
    const QString path = Given("a.txt", "old");
    QFile reader(path);
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
    ReplaceFile(path, "new");
    EXPECT_EQ(reader.readAll(), "old") << "who has it open reads the old file to its end";
    EXPECT_EQ(ReadFile(path), "new");
    EXPECT_EQ(EntriesOf(m_Folder.Path()).size(), 1) << "no temporary file stays";
    ReplaceFile(path, {});
    EXPECT_EQ(ReadFile(path), QByteArray());
}

TEST_F(Files, AReplacedFileKeepsItsPermissions)
{
    using enum QFileDevice::Permission;
    const QString path = Given("a.txt");
    QFile::setPermissions(path, ReadOwner | WriteOwner | ReadGroup);
    const QFile::Permissions before = QFile::permissions(path);
    ReplaceFile(path, "new");
    EXPECT_EQ(QFile::permissions(path), before);
}

TEST_F(Files, ANewFileMayBeReadByOthersAsTheUserSetIt)
{
    ReplaceFile(At("new"), "x");
    const QString plain = Given("plain");
    EXPECT_EQ(QFile::permissions(At("new")), QFile::permissions(plain));
}

TEST_F(Files, OnAFullDiskTheOldFileStays)
{
    const QString path = Given("a.txt", "old");
    {
        const FullDisk disk;
        for (const int size : {17, 200, 100'000}) // small ones wait in a buffer until the last moment
            EXPECT_THROW(ReplaceFile(path, QByteArray(size, 'n')), RuntimeError) << size;
    }
    EXPECT_EQ(ReadFile(path), "old");
    EXPECT_EQ(EntriesOf(m_Folder.Path()).size(), 1);
}

TEST_F(Files, InAReadOnlyFolderTheOldFileStays)
{
    const QString path = Given("a.txt", "old");
    const ReadOnlyFolder folder(m_Folder.Path());
    if (!folder.IsInForce()) GTEST_SKIP() << "root can't step down here";
    EXPECT_THROW(ReplaceFile(path, "new"), RuntimeError);
    EXPECT_THROW(ReplaceFile(At("b.txt"), "new"), RuntimeError);
    EXPECT_EQ(ReadFile(path), "old");
}

TEST_F(Files, AFolderIsNotReplacedAndNoneIsMade)
{
    Given("folder/x");
    EXPECT_THROW(ReplaceFile(At("folder"), "new"), RuntimeError);
    EXPECT_THROW(ReplaceFile(At("none/x"), "new"), RuntimeError);
    EXPECT_FALSE(QFileInfo::exists(At("none")));
}
