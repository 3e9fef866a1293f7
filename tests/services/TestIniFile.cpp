#include "services/modIniFile.h"

#include "tests/support/ReadOnlyFolder.h"
#include "tests/support/TestFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{
class IniFile : public testing::Test
{
protected:
    // The key "k" of the section "S" in "a.ini".
    QString Read(const QString &Default = {}) const
    {
        return ReadIniString(QStringLiteral("S"), QStringLiteral("k"), Default, File());
    }
    bool Write(const QString &Value) const
    {
        return WriteIniString(QStringLiteral("S"), QStringLiteral("k"), Value, File());
    }
    QString File() const { return m_Folder.Path() + QStringLiteral("a.ini"); }
    void Given(const QByteArray &Bytes) const { m_Folder.Write(QStringLiteral("a.ini"), Bytes); }
    // The same file, told to have changed at that moment. [ms]
    void GivenAt(qint64 Moment, const QByteArray &Bytes) const
    {
        Given(Bytes);
        const timespec time{Moment / 1000, Moment % 1000 * 1'000'000};
        const timespec times[] = {time, time};
        ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(File()).constData(), times, 0), 0);
    }
    QByteArray Bytes() const { return m_Folder.Read(QStringLiteral("a.ini")); }
    bool Exists() const { return m_Folder.Exists(QStringLiteral("a.ini")); }

    TestFolder m_Folder;
};
} // namespace

TEST_F(IniFile, AnAbsentKeyIsEstablishedWithItsDefault)
{
    EXPECT_EQ(Read(QStringLiteral("5")), u"5");
    EXPECT_EQ(Bytes(), "[S]\r\nk=5\r\n");
    EXPECT_EQ(Read(QStringLiteral("6")), u"5");
}

TEST_F(IniFile, AnEmptyValueIsOverwrittenByItsDefault)
{
    for (const char *empty : {"[S]\nk=\n", "[S]\nk=\"\"\n"}) {
        Given(empty);
        EXPECT_EQ(Read(QStringLiteral("5")), u"5");
        EXPECT_EQ(Bytes(), "[S]\nk=5\n");
    }
}

TEST_F(IniFile, AnEmptyDefaultLeavesTheFileAlone)
{
    EXPECT_EQ(Read(), QString());
    EXPECT_FALSE(Exists());
    Given("[S]\nother=1\nk=\n");
    EXPECT_EQ(Read(), QString());
    EXPECT_EQ(Bytes(), "[S]\nother=1\nk=\n");
}

TEST_F(IniFile, AFirstStartLeavesFourSettingsBehind)
{
    const QString settings = QStringLiteral("Settings");
    EXPECT_EQ(ReadIniString(settings, QStringLiteral("Language"), QStringLiteral("0"), File()), u"0");
    EXPECT_EQ(ReadIniString(settings, QStringLiteral("SoundOn"), QStringLiteral("1"), File()), u"1");
    EXPECT_EQ(ReadIniString(settings, QStringLiteral("WhiteBackground"), QStringLiteral("0"), File()), u"0");
    EXPECT_EQ(ReadIniString(settings, QStringLiteral("Online"), QStringLiteral("0"), File()), u"0");
    EXPECT_EQ(ReadIniString(settings, QStringLiteral("Skin"), QString(), File()), QString());
    EXPECT_EQ(Bytes(), "[Settings]\r\nLanguage=0\r\nSoundOn=1\r\nWhiteBackground=0\r\nOnline=0\r\n");
}

TEST_F(IniFile, AValueOf1200CharactersComesBackCutAt999)
{
    EXPECT_TRUE(Write(QString(1200, u'x')));
    EXPECT_EQ(Read(), QString(999, u'x'));
    EXPECT_EQ(Bytes().size(), 1200 + 9) << "the file keeps it whole";
}

TEST_F(IniFile, TheCutCountsBytesAndSplitsNoCharacter)
{
    Write(QString(998, u'x') + QString(10, u'\u00E9'));
    EXPECT_EQ(Read(), QString(998, u'x')) << "two bytes do not fit into the one that is left";
    Write(QString(997, u'x') + QString(10, u'\u00E9'));
    EXPECT_EQ(Read(), QString(997, u'x') + u'\u00E9');
    Given("[S]\nk=" + QByteArray(998, 'x') + QByteArray(10, '\xE9') + "\n");
    EXPECT_EQ(Read(), QString(998, u'x') + u'\u00E9') << "one byte a character in Windows-1252";
}

TEST_F(IniFile, ADefaultIsGivenBackWhole)
{
    EXPECT_EQ(Read(QString(1200, u'x')).size(), 1200);
    EXPECT_EQ(Read(QString(1200, u'x')).size(), 999) << "from the file";
}

TEST_F(IniFile, TextIsUtf8)
{
    const QString text = QStringLiteral("\u00E9 \u20AC \u0416 \U0001F600");
    EXPECT_TRUE(Write(text));
    EXPECT_EQ(Read(), text);
    EXPECT_EQ(Bytes(), "[S]\r\nk=" + text.toUtf8() + "\r\n");
}

TEST_F(IniFile, BytesThatAreNoUtf8AreWindows1252AndKept)
{
    Given("[S]\r\nk=\x80 caf\xE9\r\nother=\xE9\r\n");
    EXPECT_EQ(Read(), QStringLiteral("\u20AC caf\u00E9"));
    Write(QStringLiteral("\u00E9"));
    EXPECT_EQ(Bytes(), "[S]\r\nk=\xC3\xA9\r\nother=\xE9\r\n");
}

TEST_F(IniFile, AValueEndsAtItsFirstNul)
{
    Given(QByteArray("[S]\nk=ab\0cd\n", 12));
    EXPECT_EQ(Read(), u"ab");
    EXPECT_TRUE(Write(QStringLiteral("ef") + QChar::Null + u'g'));
    EXPECT_EQ(Bytes(), "[S]\nk=ef\n");
}

TEST_F(IniFile, ALineEndInAValueInjectsNothing)
{
    Given("[S]\r\nk=1\r\n");
    EXPECT_FALSE(Write(QStringLiteral("2\r\nOnline=1")));
    EXPECT_FALSE(Write(QStringLiteral("2\nOnline=1")));
    EXPECT_EQ(Read(), u"1");
    EXPECT_EQ(Bytes(), "[S]\r\nk=1\r\n");
}

TEST_F(IniFile, AnUnwritableDefaultIsStillTheAnswer)
{
    EXPECT_EQ(Read(QStringLiteral("a\nb")), u"a\nb");
    EXPECT_FALSE(Exists());
}

TEST_F(IniFile, AnEmptyFileNameIsNoFile)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(m_Folder.Path());
    EXPECT_EQ(ReadIniString(QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("5"), QString()), u"5");
    EXPECT_FALSE(WriteIniString(QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("5"), QString()));
    EXPECT_TRUE(QDir(m_Folder.Path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    QDir::setCurrent(before);
}

TEST_F(IniFile, AMissingFolderIsNotMade)
{
    const QString file = m_Folder.Path() + QStringLiteral("Categories/Memory.ini");
    EXPECT_EQ(ReadIniString(QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("5"), file), u"5");
    EXPECT_FALSE(WriteIniString(QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("5"), file));
    EXPECT_FALSE(m_Folder.Exists(QStringLiteral("Categories")));
}

TEST_F(IniFile, AReadOnlyFolderIsNotNoticedByAReader)
{
    Given("[S]\nk=1\n");
    const ReadOnlyFolder folder(m_Folder.Path());
    if (!folder.IsInForce()) GTEST_SKIP() << "root can't step down here";
    EXPECT_EQ(Read(QStringLiteral("5")), u"1");
    EXPECT_EQ(ReadIniString(QStringLiteral("S"), QStringLiteral("absent"), QStringLiteral("5"), File()), u"5");
    EXPECT_FALSE(Write(QStringLiteral("2")));
    EXPECT_TRUE(Write(QStringLiteral("1"))) << "it stands there already";
    EXPECT_EQ(Bytes(), "[S]\nk=1\n");
}

TEST_F(IniFile, AFileThatCantBeReadIsNotOverwritten)
{
    const QByteArray large = "[S]\nk=1\n" + QByteArray((1 << 20) + 1, ';');
    Given(large);
    EXPECT_EQ(Read(QStringLiteral("5")), u"5");
    EXPECT_FALSE(Write(QStringLiteral("2")));
    EXPECT_EQ(Bytes(), large);
    const QByteArray wide("\xFF\xFE[\0S\0]\0", 8);
    Given(wide);
    EXPECT_EQ(Read(QStringLiteral("5")), u"5");
    EXPECT_EQ(Bytes(), wide);
}

TEST_F(IniFile, AFolderOrAPipeOfThatNameIsNoFile)
{
    ASSERT_TRUE(QDir().mkdir(File()));
    EXPECT_EQ(Read(QStringLiteral("5")), u"5");
    EXPECT_FALSE(Write(QStringLiteral("5")));
    QDir().rmdir(File());
    ASSERT_EQ(mkfifo(QFile::encodeName(File()).constData(), 0600), 0);
    EXPECT_EQ(Read(QStringLiteral("5")), u"5");
    EXPECT_FALSE(Write(QStringLiteral("5")));
}

TEST_F(IniFile, AnExistingFileIsFoundWhateverItsCase)
{
    m_Folder.Write(QStringLiteral("Game/GAMESETTINGS.INI"), "[config]\nname=Sums\n");
    const QString file = m_Folder.Path() + QStringLiteral("Game/GameSettings.ini");
    EXPECT_EQ(ReadIniString(QStringLiteral("config"), QStringLiteral("name"), QString(), file), u"Sums");
    EXPECT_TRUE(WriteIniString(QStringLiteral("config"), QStringLiteral("level"), QStringLiteral("2"), file));
    EXPECT_EQ(m_Folder.Read(QStringLiteral("Game/GAMESETTINGS.INI")), "[config]\nname=Sums\nlevel=2\n");
    EXPECT_FALSE(m_Folder.Exists(QStringLiteral("Game/GameSettings.ini")));
}

TEST_F(IniFile, BehindALinkTheTargetIsReplaced)
{
    m_Folder.Write(QStringLiteral("real/target.ini"), "[S]\nk=1\n");
    ASSERT_TRUE(QFile::link(QStringLiteral("real/target.ini"), File()));
    EXPECT_TRUE(Write(QStringLiteral("2")));
    EXPECT_TRUE(QFileInfo(File()).isSymLink());
    EXPECT_EQ(m_Folder.Read(QStringLiteral("real/target.ini")), "[S]\nk=2\n");
    EXPECT_EQ(Read(), u"2");
}

TEST_F(IniFile, ADanglingLinkGetsItsTarget)
{
    ASSERT_TRUE(QFile::link(QStringLiteral("target.ini"), File()));
    EXPECT_TRUE(Write(QStringLiteral("2")));
    EXPECT_TRUE(QFileInfo(File()).isSymLink());
    EXPECT_EQ(m_Folder.Read(QStringLiteral("target.ini")), "[S]\r\nk=2\r\n");
}

TEST_F(IniFile, AChangeFromOutsideIsSeenAtTheNextRead)
{
    // In place, of the same size, and faster than the clock of the file system ticks.
    for (char digit = '0'; digit <= '9'; ++digit) {
        Given(QByteArray("[S]\nk=") + digit + '\n');
        EXPECT_EQ(Read(), QString(QLatin1Char(digit)));
    }
    QFile::remove(File());
    EXPECT_EQ(Read(), QString());
}

TEST_F(IniFile, AYoungFileIsReadAgainThoughItLooksTheSame)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    GivenAt(now, "[S]\nk=1\n");
    EXPECT_EQ(Read(), u"1");
    GivenAt(now, "[S]\nk=2\n");
    EXPECT_EQ(Read(), u"2") << "the same size, inode and time";
}

TEST_F(IniFile, AnOldFileIsReadOnce)
{
    const qint64 lastHour = QDateTime::currentMSecsSinceEpoch() - 3'600'000;
    GivenAt(lastHour, "[S]\nk=1\n");
    EXPECT_EQ(Read(), u"1");
    GivenAt(lastHour, "[S]\nk=2\n"); // nothing tells the two apart
    EXPECT_EQ(Read(), u"1") << "from memory";
    GivenAt(lastHour + 1, "[S]\nk=3\n");
    EXPECT_EQ(Read(), u"3");
    GivenAt(lastHour + 1, "[S]\nk=10\n");
    EXPECT_EQ(Read(), u"10");
}

TEST_F(IniFile, AWriteKeepsWhatSomebodyElseWrote)
{
    Given("[S]\nk=1\n");
    Read();
    Given("[S]\nk=1\nnote=theirs\n");
    EXPECT_TRUE(Write(QStringLiteral("2")));
    EXPECT_EQ(Bytes(), "[S]\nk=2\nnote=theirs\n");
}

TEST_F(IniFile, AValueThatStandsThereIsNotWrittenAgain)
{
    Given("[S]\nk=1\n");
    const auto inode = [this] {
        struct stat status = {};
        stat(QFile::encodeName(File()).constData(), &status);
        return status.st_ino;
    };
    const auto before = inode();
    EXPECT_TRUE(Write(QStringLiteral("1")));
    EXPECT_EQ(inode(), before);
    EXPECT_TRUE(Write(QStringLiteral("2")));
    EXPECT_NE(inode(), before) << "a new file in place of the old one";
}

TEST_F(IniFile, NothingIsLeftBesideTheFile)
{
    for (int i = 0; i < 20; ++i) Write(QString::number(i));
    EXPECT_EQ(QDir(m_Folder.Path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.ini")});
}
