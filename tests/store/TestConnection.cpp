// Opening a store file, several statements as one commit, and what is left when one of them fails.
#include "domain/Store.h"
#include "platform/RuntimeError.h"
#include "platform/store/Command.h"
#include "platform/store/Connection.h"
#include "shell/program/modMain.h"
#include "tests/support/RecordingFramework.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
// Gives up the rights of the superuser, whom no permission stops; for as long as it lives.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_IsSuper(geteuid() == 0)
    {
        if (m_IsSuper && seteuid(65534) != 0) qFatal("the rights can't be given up");
    }
    ~OrdinaryUser()
    {
        if (m_IsSuper && seteuid(0) != 0) qFatal("the rights can't be taken back");
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    bool m_IsSuper;
};

QString FailureOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeError &failure) {
        return failure.Description();
    }
    return u"none"_s;
}

void AddPlayer(Connection &connection, const QString &name)
{
    const auto set = Command(connection, u"select * from Player where PlayerKey=0"_s).Open();
    set->AddNew();
    set->SetValue(u"PlayerName", name);
    set->MoveLast();
}

class StoreConnection : public testing::Test
{
protected:
    QString OpeningFailure() const
    {
        return FailureOf([this] { Connection().Open(m_store.Path()); });
    }
    QString Names() const { return m_store.Ask(u"select PlayerName from Player order by PlayerKey"_s); }
    void ForEveryone(const QString &path, QFile::Permissions permissions) const
    {
        ASSERT_TRUE(QFile::setPermissions(path, permissions));
    }
    TestStore m_store;
};

constexpr QFile::Permissions ReadAll = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr QFile::Permissions WriteAll = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
constexpr QFile::Permissions EnterAll = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
} // namespace

TEST_F(StoreConnection, AMissingFileIsNeverMade)
{
    QFile::remove(m_store.Path());
    EXPECT_EQ(OpeningFailure(), u"unable to open database file"_s);
    EXPECT_FALSE(QFile::exists(m_store.Path()));
}

TEST_F(StoreConnection, WhatIsNoStoreFailsAtOpening)
{
    const QByteArray whole = m_store.Folder().Read(u"Noggle.mdb"_s);
    const struct
    {
        QByteArray Bytes;
        QString Failure;
    } table[] = {
        {QByteArray(50000, 'j'), u"file is not a database"_s},
        {"ab", u"file is not a database"_s},
        {{}, u"The file holds no tables."_s},
        {whole.left(100), u"malformed"_s},
        {whole.left(4096), u"malformed"_s},
        {whole.left(whole.size() - 4096), u"malformed"_s},
        {whole.left(whole.size() - 1), u"malformed"_s},
    };
    for (const auto &row : table) {
        m_store.Folder().Write(u"Noggle.mdb"_s, row.Bytes);
        EXPECT_TRUE(OpeningFailure().contains(row.Failure)) << row.Bytes.size() << " bytes";
        EXPECT_EQ(m_store.Folder().Read(u"Noggle.mdb"_s), row.Bytes) << "the file is left as it was";
    }
}

TEST_F(StoreConnection, AFolderFailsAtOpening)
{
    QFile::remove(m_store.Path());
    QDir().mkdir(m_store.Path());
    EXPECT_EQ(OpeningFailure(), u"unable to open database file"_s);
}

TEST_F(StoreConnection, ALockedFileFailsAtOpeningAndSoon)
{
    Connection other;
    other.Open(m_store.Path());
    Execute(other.Handle(), "begin exclusive");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(OpeningFailure(), u"database is locked"_s);
    EXPECT_LT(time.elapsed(), 2000);
}

TEST_F(StoreConnection, AFailedOpeningLeavesAConnectionThatCanOpenAnother)
{
    Connection connection;
    EXPECT_THROW(connection.Open(m_store.Folder().Path() + u"none.mdb"_s), RuntimeError);
    EXPECT_FALSE(connection.IsOpen());
    connection.Open(m_store.Path());
    EXPECT_TRUE(connection.IsOpen());
}

TEST_F(StoreConnection, ANameBeyondPlainLettersOpens)
{
    const QString path = m_store.Folder().Path() + u"Köpfchen 記憶.mdb"_s;
    CopyDeliveredStore(path);
    Connection connection;
    connection.Open(path);
    AddPlayer(connection, u"Ann"_s);
}

TEST_F(StoreConnection, AReadOnlyFileOpensAndItsFirstWriteFails)
{
    ForEveryone(m_store.Folder().Path(), ReadAll | WriteAll | EnterAll);
    ForEveryone(m_store.Path(), ReadAll);
    const OrdinaryUser user;
    Connection connection;
    connection.Open(m_store.Path());
    EXPECT_EQ(FailureOf([&] { AddPlayer(connection, u"Ann"_s); }), u"attempt to write a readonly database"_s);
}

TEST_F(StoreConnection, AFileInAReadOnlyFolderOpensAndItsFirstWriteFails)
{
    ForEveryone(m_store.Path(), ReadAll | WriteAll);
    ForEveryone(m_store.Folder().Path(), ReadAll | EnterAll);
    {
        const OrdinaryUser user;
        Connection connection;
        connection.Open(m_store.Path());
        EXPECT_EQ(FailureOf([&] { AddPlayer(connection, u"Ann"_s); }), u"attempt to write a readonly database"_s);
    }
    ForEveryone(m_store.Folder().Path(), ReadAll | EnterAll | QFile::WriteOwner);
}

TEST_F(StoreConnection, WithoutTheRightToReadItFailsAtOpening)
{
    ForEveryone(m_store.Folder().Path(), ReadAll | EnterAll | QFile::WriteOwner);
    ForEveryone(m_store.Path(), {});
    const OrdinaryUser user;
    EXPECT_EQ(OpeningFailure(), u"unable to open database file"_s);
}

TEST_F(StoreConnection, ALockThatComesLaterIsAFailureOfTheWriteAlone)
{
    Connection connection;
    connection.Open(m_store.Path());
    {
        Connection other;
        other.Open(m_store.Path());
        Execute(other.Handle(), "begin immediate");
        EXPECT_EQ(FailureOf([&] { AddPlayer(connection, u"Ann"_s); }), u"database is locked"_s);
        EXPECT_EQ(FailureOf([&] { connection.Begin(); }), u"database is locked"_s);
    }
    AddPlayer(connection, u"Bert"_s);
    EXPECT_EQ(Names(), u"Bert"_s);
}

TEST_F(StoreConnection, WhenTheStoreIsLockedOneCommitRunsTheWorkAllTheSame)
{
    const auto framework = RecordingFramework::Install();
    modMain::GetConnection();
    auto other = std::make_unique<Connection>();
    other->Open(m_store.Path());
    Execute(other->Handle(), "begin immediate");
    modMain::OneCommit(u"Error."_s, [&] {
        other.reset(); // the lock goes while the work runs
        AddPlayer(modMain::GetConnection(), u"Ann"_s);
    });
    EXPECT_EQ(Names(), u"Ann"_s);
    EXPECT_TRUE(framework->Boxes.empty());
    modMain::Framework.reset();
}

TEST_F(StoreConnection, BeginningsNestAndTheOutermostCommitWrites)
{
    Connection connection;
    connection.Open(m_store.Path());
    connection.Begin();
    AddPlayer(connection, u"Ann"_s);
    connection.Begin();
    AddPlayer(connection, u"Bert"_s);
    connection.Commit();
    EXPECT_EQ(Names(), QString());
    connection.Commit();
    EXPECT_EQ(Names(), u"Ann\nBert"_s);
    EXPECT_THROW(connection.Commit(), RuntimeError) << "nothing is begun any more";
}

namespace
{
// Another program in the middle of reading: it keeps every commit out until it is closed.
struct Reader
{
    explicit Reader(const QString &path)
    {
        store.Open(path);
        Execute(store.Handle(), "begin");
        Execute(store.Handle(), "select * from Player");
    }
    Connection store;
};

// What the player does while a message is shown.
class AnsweredFramework : public RecordingFramework
{
public:
    std::function<void()> WhileShown;
    void ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent) override
    {
        if (WhileShown) WhileShown();
        RecordingFramework::ShowError(Message, ErrDesc, Parent);
    }
};
} // namespace

TEST_F(StoreConnection, ACommitThatAReaderKeepsOutMayBeCalledAgain)
{
    Connection connection;
    connection.Open(m_store.Path());
    auto reader = std::make_unique<Reader>(m_store.Path());
    connection.Begin();
    AddPlayer(connection, u"Ann"_s);
    EXPECT_EQ(FailureOf([&] { connection.Commit(); }), u"database is locked"_s);
    EXPECT_TRUE(connection.IsBegun());
    EXPECT_EQ(FailureOf([&] { connection.Commit(); }), u"database is locked"_s);
    reader.reset();
    connection.Commit();
    EXPECT_FALSE(connection.IsBegun());
    EXPECT_EQ(Names(), u"Ann"_s);
}

TEST_F(StoreConnection, OneCommitIsTriedAgainOnceItsMessageIsAnswered)
{
    const auto framework = std::make_shared<AnsweredFramework>();
    modMain::Framework = framework;
    auto reader = std::make_unique<Reader>(m_store.Path());
    framework->WhileShown = [&] { reader.reset(); };
    bool isForgotten = false;
    modMain::OneCommit(
        u"Error."_s, [] { AddPlayer(modMain::GetConnection(), u"Ann"_s); }, [&] { isForgotten = true; });
    EXPECT_EQ(framework->TakeLast().Message, u"Error.\r\ndatabase is locked"_s);
    EXPECT_TRUE(framework->Boxes.empty()) << "one message";
    EXPECT_EQ(Names(), u"Ann"_s);
    EXPECT_FALSE(isForgotten);
    modMain::Framework.reset();
}

TEST_F(StoreConnection, OneCommitThatIsKeptOutTwiceIsTakenBackAndForgotten)
{
    const auto framework = RecordingFramework::Install();
    auto reader = std::make_unique<Reader>(m_store.Path());
    int forgotten = 0;
    modMain::OneCommit(
        u"Error."_s, [] { AddPlayer(modMain::GetConnection(), u"Ann"_s); }, [&] { ++forgotten; });
    EXPECT_EQ(framework->Boxes.size(), 1U);
    EXPECT_EQ(forgotten, 1);
    reader.reset();
    AddPlayer(modMain::GetConnection(), u"Bert"_s);
    EXPECT_EQ(m_store.Ask(u"select * from Player"_s), u"1|Bert"_s) << "the key of what was taken back is given again";
    modMain::Framework.reset();
}

TEST_F(StoreConnection, ARollbackInsideMakesTheOuterCommitFail)
{
    Connection connection;
    connection.Open(m_store.Path());
    connection.Begin();
    AddPlayer(connection, u"Ann"_s);
    connection.Begin();
    connection.Rollback();
    EXPECT_THROW(connection.Commit(), RuntimeError);
    EXPECT_EQ(Names(), QString());
    connection.Begin();
    AddPlayer(connection, u"Bert"_s);
    connection.Commit();
    EXPECT_EQ(Names(), u"Bert"_s);
}

TEST_F(StoreConnection, AConnectionThatIsDroppedTakesBackWhatWasNotCommitted)
{
    {
        Connection connection;
        connection.Open(m_store.Path());
        connection.Begin();
        AddPlayer(connection, u"Ann"_s);
    }
    EXPECT_EQ(Names(), QString());
}

TEST_F(StoreConnection, AHalfReadSetDoesNotKeepAnotherOneFromCommitting)
{
    Connection connection;
    connection.Open(m_store.Path());
    for (const char16_t name : {u'A', u'B', u'C'}) AddPlayer(connection, QString(name));
    const auto halfRead = Command(connection, u"select * from Player"_s).Open();
    halfRead->MoveNext();
    connection.Begin();
    AddPlayer(connection, u"D"_s);
    connection.Commit();
    EXPECT_EQ(Names(), u"A\nB\nC\nD"_s) << "another connection sees it at once";
    EXPECT_EQ(halfRead->Text(u"PlayerName"), u"B"_s);
    halfRead->MoveNext();
    EXPECT_EQ(halfRead->Text(u"PlayerName"), u"C"_s);
}

TEST_F(StoreConnection, AHalfReadSetOutlivesARollback)
{
    Connection connection;
    connection.Open(m_store.Path());
    for (const char16_t name : {u'A', u'B'}) AddPlayer(connection, QString(name));
    const auto halfRead = Command(connection, u"select * from Player"_s).Open();
    connection.Begin();
    AddPlayer(connection, u"C"_s);
    connection.Rollback();
    halfRead->MoveNext();
    EXPECT_EQ(halfRead->Text(u"PlayerName"), u"B"_s);
}

TEST_F(StoreConnection, AFullDiskIsAFailureOfTheWriteAndKeepsWhatWasStored)
{
    Connection connection;
    connection.Open(m_store.Path());
    AddPlayer(connection, u"Ann"_s);
    Command(connection, u"pragma max_page_count = 1"_s).Open(); // no larger than it is
    EXPECT_EQ(FailureOf([&] { AddPlayer(connection, QString(100000, u'x')); }), u"database or disk is full"_s);
    EXPECT_EQ(Names(), u"Ann"_s);
    AddPlayer(connection, u"Bert"_s);
    EXPECT_EQ(Names(), u"Ann\nBert"_s) << "what still fits is stored";
}

TEST_F(StoreConnection, AFullDiskInsideOneCommitCostsTheWriteThatDidNotFit)
{
    Connection &connection = modMain::GetConnection();
    Command(connection, u"pragma max_page_count = 1"_s).Open();
    modMain::OneCommit(u"Error."_s, [&] {
        AddPlayer(connection, u"Ann"_s);
        EXPECT_THROW(AddPlayer(connection, QString(100000, u'x')), RuntimeError);
        AddPlayer(connection, u"Bert"_s);
    });
    EXPECT_EQ(Names(), u"Ann\nBert"_s);
}

TEST_F(StoreConnection, WhenTheEngineHasTakenBackAPartNothingOfOneCommitIsStored)
{
    const auto framework = RecordingFramework::Install();
    Connection &connection = modMain::GetConnection();
    modMain::OneCommit(u"Error ending game."_s, [&] {
        AddPlayer(connection, u"Ann"_s);
        Execute(connection.Handle(), "rollback"); // as the engine does by itself on some failures
        EXPECT_THROW(AddPlayer(connection, u"Bert"_s), RuntimeError) << "it must not stand without Ann";
        EXPECT_THROW(Command(connection, u"delete from Player"_s).Open(), RuntimeError);
        EXPECT_TRUE(Command(connection, u"select * from Player"_s).Open()->Eof()) << "reading goes on";
    });
    EXPECT_EQ(framework->TakeLast().FirstLine(), u"Error ending game."_s);
    EXPECT_EQ(Names(), QString());
    modMain::OneCommit(u"Error."_s, [&] { AddPlayer(connection, u"Carla"_s); });
    EXPECT_EQ(Names(), u"Carla"_s);
    modMain::Framework.reset();
}

TEST_F(StoreConnection, ARealFullDiskIsTheSame)
{
    const QString disk = m_store.Folder().Path() + u"disk"_s;
    QDir().mkdir(disk);
    const QStringList mount{u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=160k"_s, u"tmpfs"_s, disk};
    if (QProcess::execute(u"mount"_s, mount) != 0) GTEST_SKIP() << "only the superuser may mount a small disk";
    {
        CopyDeliveredStore(disk + u"/Noggle.mdb"_s);
        Connection connection;
        connection.Open(disk + u"/Noggle.mdb"_s);
        AddPlayer(connection, u"Ann"_s);
        EXPECT_NE(FailureOf([&] { AddPlayer(connection, QString(200000, u'x')); }), u"none"_s);
        const auto players = Command(connection, u"select * from Player"_s).Open();
        EXPECT_EQ(players->Text(u"PlayerName"), u"Ann"_s);
        players->MoveNext();
        EXPECT_TRUE(players->Eof());
    }
    EXPECT_EQ(QProcess::execute(u"umount"_s, {disk}), 0);
}

TEST_F(StoreConnection, EveryStatementIsAnnouncedBeforeItRuns)
{
    Connection connection;
    connection.Open(m_store.Path());
    QStringList calls;
    connection.BeforeCall = [&](const QString &sql) { calls += sql.section(u' ', 0, 2); };
    connection.Begin();
    AddPlayer(connection, u"Ann"_s);
    const auto set = Command(connection, u"select * from Player"_s).Open();
    set->SetValue(u"PlayerName", u"Anna"_s);
    set->Update();
    Command(connection, u"delete from Player"_s).Open();
    connection.Commit();
    EXPECT_EQ(
        calls.join(u", "_s),
        u"select * from, insert into \"Player\", select * from, update \"Player\" set, delete from Player, commit"_s);
}

TEST_F(StoreConnection, ACallThatIsMadeToFailDoesNothing)
{
    for (int failing = 1; failing <= 2; ++failing) {
        m_store.FailAtCall(failing);
        EXPECT_EQ(FailureOf([] { AddPlayer(modMain::GetConnection(), u"Ann"_s); }), u"Made to fail."_s);
        EXPECT_TRUE(m_store.HasFailed());
        EXPECT_EQ(Names(), QString());
    }
}
