// The store that can't be opened ends the process with its message; the store that is killed keeps whole ends of
// games.
#include "tests/support/Killing.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace
{
const QString Child = QStringLiteral(NOGGLE_STORE_CHILD);
const QString Fatal = u"Could not open database, program exiting."_s;

struct Ended
{
    int ExitCode;
    QString Output;
};

class StoreFaults : public testing::Test
{
protected:
    Ended AfterRunning(const QString &verb) const
    {
        QProcess process;
        process.start(Child, {verb, m_store.Folder().Path()});
        EXPECT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).trimmed()};
    }
    void ExpectFatal(const QString &description) const
    {
        const Ended ended = AfterRunning(u"open"_s);
        EXPECT_EQ(ended.ExitCode, 1);
        EXPECT_EQ(ended.Output, u"ShowError|"_s + Fatal + u'|' + description) << "one message, and nothing after it";
    }

    TestStore m_store;
};
} // namespace

TEST_F(StoreFaults, AGoodStoreOpens)
{
    const Ended ended = AfterRunning(u"open"_s);
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.Output, u"opened"_s);
}

TEST_F(StoreFaults, AMissingStoreEndsTheProcessAndIsNotMade)
{
    QFile::remove(m_store.Path());
    ExpectFatal(u"unable to open database file"_s);
    EXPECT_FALSE(QFile::exists(m_store.Path()));
}

TEST_F(StoreFaults, AFolderInItsPlaceEndsTheProcess)
{
    QFile::remove(m_store.Path());
    m_store.Folder().Write(u"Noggle.mdb/file"_s, "x");
    ExpectFatal(u"unable to open database file"_s);
}

TEST_F(StoreFaults, AJunkStoreEndsTheProcess)
{
    const QByteArray junk(100000, 'j');
    m_store.Folder().Write(u"Noggle.mdb"_s, junk);
    ExpectFatal(u"file is not a database"_s);
    EXPECT_EQ(m_store.Folder().Read(u"Noggle.mdb"_s), junk) << "what it was is for its owner to find out";
}

TEST_F(StoreFaults, AnEmptyFileEndsTheProcess)
{
    m_store.Folder().Write(u"Noggle.mdb"_s, {});
    ExpectFatal(u"The file holds no tables."_s);
}

TEST_F(StoreFaults, ATruncatedStoreEndsTheProcess)
{
    const QByteArray whole = m_store.Folder().Read(u"Noggle.mdb"_s);
    m_store.Folder().Write(u"Noggle.mdb"_s, whole.left(whole.size() / 2));
    ExpectFatal(u"database disk image is malformed"_s);
}

TEST_F(StoreFaults, AStoreLockedByAnotherProcessEndsTheProcess)
{
    QProcess holder;
    holder.start(Child, {u"hold"_s, m_store.Folder().Path()});
    ASSERT_TRUE(holder.waitForReadyRead(30000));
    ExpectFatal(u"database is locked"_s);
    holder.closeWriteChannel();
    ASSERT_TRUE(holder.waitForFinished(30000));
    EXPECT_EQ(AfterRunning(u"open"_s).ExitCode, 0) << "free again";
}

TEST_F(StoreFaults, BeforeThereIsAServiceObjectThePlainBoxTellsIt)
{
    QFile::remove(m_store.Path());
    const Ended ended = AfterRunning(u"openplain"_s);
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_EQ(ended.Output, u"plain box|"_s + Fatal + u"\nunable to open database file"_s);
}

TEST_F(StoreFaults, KilledAtAnyMomentItHoldsWholeEndsOfGamesOnly)
{
    qlonglong before = 0;
    KillAtRandomMoments(Child, {u"ends"_s, m_store.Folder().Path()}, 200, 40, [&] {
        const QString counts =
            m_store.Ask(u"select (select count(*) from Workout), (select count(*) from GamePlayed), "
                        "(select count(*) from PlayerGame), (select count(*) from GamePlayedCategory)"_s);
        const QString number = counts.section(u'|', 0, 0);
        ASSERT_EQ(counts, QStringList(4, number).join(u'|'));
        ASSERT_GE(number.toLongLong(), before) << "an end that was stored stays";
        before = number.toLongLong();
    });
    EXPECT_GT(before, 0);
    EXPECT_EQ(m_store.Ask(u"pragma integrity_check"_s), u"ok"_s);
}
