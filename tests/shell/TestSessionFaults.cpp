// The store fails at each of its calls in turn, is full, locked or may not be written: the player is told, memory is
// as if it had come through, and the program goes on.
#include "tests/shell/support/Messages.h"
#include "tests/shell/support/SessionTest.h"
#include "tests/support/ReadOnlyFolder.h"

#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"
#include "platform/store/Statement.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"
#include "domain/CWorkout.h"
#include "domain/Store.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"

#include "shell/program/modMain.h"

#include <QProcess>

namespace
{
const QString Made = QStringLiteral("Made to fail.");

/// The n-th call of the store from now fails, once.
class FailingCall
{
public:
    explicit FailingCall(int Number)
    {
        modMain::GetConnection().BeforeCall = [this, Number](const QString &Sql) {
            if (++m_Calls != Number) return;
            m_HasFailed = true;
            m_WasCommit = Sql == u"commit";
            throw RuntimeError(Made);
        };
    }
    ~FailingCall() { modMain::GetConnection().BeforeCall = {}; }
    FailingCall(const FailingCall &) = delete;
    FailingCall &operator=(const FailingCall &) = delete;
    bool HasFailed() const { return m_HasFailed; }
    bool WasCommit() const { return m_WasCommit; }

private:
    int m_Calls = 0;
    bool m_HasFailed = false;
    bool m_WasCommit = false;
};

class SessionFaults : public SessionTest
{
protected:
    /// The program started again, with Ann at her workout.
    void Reopen()
    {
        if (!Program.IsRunning()) return OpenWorkout();
        Program.Stop();
        ASSERT_TRUE(Program.Start());
        Program.ClickPlayer(QStringLiteral("Ann"));
        Menu(QStringLiteral("exercise"));
    }
    void GivenAnEmptyStore() const
    {
        const QString store = Program.Folder.Path() + QStringLiteral("Noggle.mdb");
        QFile::remove(store);
        Program.Folder.Copy(QStringLiteral(NOGGLE_STORE), QStringLiteral("Noggle.mdb"));
        QFile::setPermissions(store, QFile::ReadOwner | QFile::WriteOwner);
    }
};
} // namespace

TEST_F(SessionFaults, TheEndOfAGameTellsWhicheverCallFails)
{
    const QString noWorkout = QStringLiteral("Error saving Workout info.");
    const QString noResult = QStringLiteral("Error saving GamePlayed info.");
    const QString noState = QStringLiteral("Error saving PlayerGame info.");
    QStringList told;
    bool hasFailed = true;
    for (int call = 1; hasFailed; ++call) {
        SCOPED_TRACE(call);
        ASSERT_LT(call, 40);
        ASSERT_NO_FATAL_FAILURE(Reopen());
        if (modMain::CurrentWorkout) modMain::CurrentWorkout->Complete();
        modMain::CurrentWorkout.reset();
        const int awards = modMain::CurrentPlayer->GameData().Item(Game()->Key)->Awards;
        const int results = Count("GamePlayed");
        Messages messages;
        QString passedOn;
        bool isCommit = false;
        Play();
        Program.CloseNextScore();
        {
            const FailingCall failing(call);
            passedOn = FailureOf([&] { End(); });
            hasFailed = failing.HasFailed();
            isCommit = failing.WasCommit();
        }
        EXPECT_FALSE(Story.Game && Story.Game->isVisible()) << "the game has gone";
        const QString message = messages.FirstLines();
        for (const QString &text : messages.Texts) EXPECT_TRUE(text.endsWith(Made)) << qPrintable(text);
        if (!hasFailed) {
            EXPECT_EQ(message, QString());
            EXPECT_EQ(passedOn, QStringLiteral("none"));
        } else if (message.isEmpty()) {
            EXPECT_EQ(passedOn, Made) << "a list that can't be read is a failure of the game's own call";
        } else if (message == noWorkout) {
            EXPECT_NE(passedOn, QStringLiteral("none")) << "a workout without a key has no list";
            EXPECT_EQ(Count("GamePlayed"), results);
        } else {
            EXPECT_EQ(passedOn, QStringLiteral("none"));
            EXPECT_TRUE(message == noResult || message == noState) << qPrintable(message);
            EXPECT_EQ(Count("GamePlayed"), message == noResult ? results : results + 1);
            // In memory too, but for an end that was taken back as a whole. The other commit is the next screen's.
            const int now = modMain::CurrentPlayer->GameData().Item(Game()->Key)->Awards;
            EXPECT_EQ(now, isCommit && message == noResult ? awards : awards + 1);
        }
        // Whatever failed, the menu leads out.
        if (Program.MenuKeys().contains(QStringLiteral("abandon"))) Abandon();
        EXPECT_EQ(Program.Window().Mode(), 6);
        Menu(QStringLiteral("exercise"));
        EXPECT_TRUE(Program.Sees("ctlWorkOut1"));
        told << message;
    }
    for (const QString &message : {noWorkout, noResult, noState}) EXPECT_TRUE(told.contains(message));
    Reopen();
    ExpectThatAGameIsStored();
}

TEST_F(SessionFaults, AnEndWhoseCommitFailsIsToldAndForgottenAndTheGameCanBePlayedAgain)
{
    OpenWorkout();
    for (const bool isFirstOfItsWorkout : {true, false}) {
        SCOPED_TRACE(isFirstOfItsWorkout);
        const auto workout = modMain::CurrentWorkout;
        ASSERT_EQ(workout == nullptr, isFirstOfItsWorkout);
        const int listed = workout ? workout->GamesPlayed().Count() : 0;
        const auto state = modMain::CurrentPlayer->GameData().Item(Game()->Key);
        const int awards = state->Awards;
        const QString stored = Results();
        Messages messages;
        Play();
        modMain::GetConnection().BeforeCall = [](const QString &Sql) {
            if (Sql == u"commit") throw RuntimeError(Made);
        };
        EndAndScore();
        modMain::GetConnection().BeforeCall = {};
        EXPECT_EQ(messages.Texts.value(0), QStringLiteral("Error saving GamePlayed info.\r\n") + Made);
        EXPECT_EQ(Results(), stored);
        EXPECT_EQ(modMain::CurrentWorkout, workout);
        EXPECT_EQ(workout ? workout->GamesPlayed().Count() : 0, listed);
        EXPECT_EQ(modMain::CurrentPlayer->Workouts().Count(), isFirstOfItsWorkout ? 0 : 1);
        EXPECT_EQ(state->Awards, awards);
        EXPECT_EQ(modMain::CurrentPlayer->GameData().Item(Game()->Key), state) << "the same object as before";
        ExpectThatAGameIsStored();
        EXPECT_EQ(state->Awards, awards + 1);
    }
    EXPECT_EQ(
        Program.Ask(QStringLiteral("select count(*) from GamePlayed, Workout where WorkoutKey=GamePlayedWorkout "
                                   "and WorkoutPlayer=GamePlayedPlayer")),
        QStringLiteral("2"))
        << "each result belongs to a workout of its player";
}

// Its result is lost with it; the person is told so, and the menu leads out, whichever way the game has ended.
TEST_F(SessionFaults, AWorkoutThatCantBeSavedIsToldAndTheMenuLeadsOut)
{
    for (const bool byTime : {false, true}) {
        SCOPED_TRACE(byTime);
        Reopen();
        if (modMain::CurrentWorkout) modMain::CurrentWorkout->Complete();
        modMain::CurrentWorkout.reset();
        const int results = Count("GamePlayed");
        const QString states = States();
        Play();
        Messages messages;
        modMain::GetConnection().BeforeCall = [](const QString &sql) {
            if (sql.contains(u"insert", Qt::CaseInsensitive) && sql.contains(u"Workout")) throw RuntimeError(Made);
        };
        Program.CloseNextScore();
        if (byTime) {
            Program.PassTime(61); // the clock of a program that was started again
            Tick();
        } else {
            QTimer::singleShot(0, [&] { End(); });
            EXPECT_TRUE(Program.Until([&] { return messages.Texts.size() == 2; }));
        }
        modMain::GetConnection().BeforeCall = {};
        EXPECT_EQ(messages.Texts.value(0), QStringLiteral("Error saving Workout info.\r\n") + Made);
        EXPECT_EQ(messages.FirstLines(), byTime ? QStringLiteral("Error saving Workout info.")
                                                : QStringLiteral("Error saving Workout info.|An error occurred."));
        EXPECT_EQ(Count("GamePlayed"), results);
        EXPECT_EQ(States(), states);
        EXPECT_FALSE(Story.Game && Story.Game->isVisible());
        EXPECT_FALSE(Sound("hum").IsPlaying());
        EXPECT_EQ(Program.MenuKeys().join(u'|'), QStringLiteral("pause|abandon|options|help|exit"));
        Abandon();
        EXPECT_EQ(Program.Window().Mode(), 6);
        EXPECT_TRUE(Program.Sees("ctlWorkOut1"));
        // Such an end counts as still running: the way back to counting is a new start, and it is open.
        EXPECT_EQ(Program.End(), 0);
    }
    Reopen();
    ExpectThatAGameIsStored();
}

TEST_F(SessionFaults, AStartWithThreeGamesTellsWhicheverCallFails)
{
    GivenGame(QStringLiteral("Beta"), QStringLiteral("Told"));
    GivenGame(QStringLiteral("Gamma"), QStringLiteral("Told"));
    static const QStringList known{
        QStringLiteral("Error loading data @1"), QStringLiteral("Error loading categories."),
        QStringLiteral("Error loading Games."), QStringLiteral("Error saving Category info."),
        QStringLiteral("Error saving Game info.")};
    bool hasFailed = true;
    for (int call = 1; hasFailed; ++call) {
        SCOPED_TRACE(call);
        ASSERT_LT(call, 80);
        Program.Stop();
        Program.PlainBoxes.clear();
        GivenAnEmptyStore();
        Messages messages;
        {
            const FailingCall failing(call);
            ASSERT_TRUE(Program.Start());
            hasFailed = failing.HasFailed();
        }
        EXPECT_TRUE(Program.Window().isVisible());
        EXPECT_EQ(Program.Window().Mode(), 0);
        EXPECT_NE(modMain::Players, nullptr);
        EXPECT_NE(modMain::Categories, nullptr);
        EXPECT_NE(modMain::Games, nullptr);
        const QStringList told = Program.PlainBoxes + messages.Texts;
        EXPECT_EQ(told.size(), hasFailed ? 1 : 0) << qPrintable(told.join(u'|'));
        for (const QString &text : told) {
            EXPECT_TRUE(text.endsWith(Made)) << qPrintable(text);
            EXPECT_TRUE(known.contains(text.section(u'\n', 0, 0).trimmed())) << qPrintable(text);
        }
        if (!hasFailed) {
            EXPECT_EQ(modMain::Games->Count(), 3);
        }
    }
}

TEST_F(SessionFaults, ACatalogueIsLoadedInOneCommit)
{
    GivenGame(QStringLiteral("Beta"), QStringLiteral("Told"));
    GivenGame(QStringLiteral("Gamma"), QStringLiteral("Told"));
    const quint32 before = Commits();
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(modMain::Games->Count(), 3);
    EXPECT_EQ(Commits() - before, 1U);
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    EXPECT_LE(Commits() - before, 2U) << "known games";
}

TEST_F(SessionFaults, ANewPlayerIsToldWhicheverCallFailsAndMayPlay)
{
    bool hasFailed = true;
    for (int call = 1; hasFailed; ++call) {
        SCOPED_TRACE(call);
        ASSERT_LT(call, 20);
        Program.Stop();
        GivenAnEmptyStore();
        ASSERT_TRUE(Program.Start());
        Messages messages;
        {
            const FailingCall failing(call);
            Program.NewPlayer(QStringLiteral("Bea"));
            hasFailed = failing.HasFailed();
        }
        EXPECT_EQ(messages.FirstLines(), hasFailed ? QStringLiteral("Error saving player info.") : QString());
        ASSERT_NE(modMain::CurrentPlayer, nullptr);
        EXPECT_EQ(modMain::CurrentPlayer->Name, QStringLiteral("Bea"));
        EXPECT_EQ(Program.Window().Mode(), 2);
        modMain::CurrentPlayer->Save();
        EXPECT_EQ(Program.Ask(QStringLiteral("select PlayerName from Player order by PlayerKey desc")),
                  QStringLiteral("Bea"));
    }
}

TEST_F(SessionFaults, AFullDiskIsToldAndLosesNothingThatWasStored)
{
    OpenWorkout();
    ExpectThatAGameIsStored();
    const QString results = Results();
    sqlite3 *const store = modMain::GetConnection().Handle();
    // No page more than there are, and no room in the last ones.
    Execute(store, "create table Ballast (Text)");
    const QString pages = Program.Ask(QStringLiteral("pragma page_count"));
    Execute(store, qUtf8Printable(QStringLiteral("pragma max_page_count=") + pages));
    while (FailureOf([&] { Execute(store, "insert into Ballast values (zeroblob(300))"); }) ==
           QStringLiteral("none")) {
    }
    Messages messages;
    int full = 0;
    for (int game = 0; game < 200 && full == 0; ++game) {
        Play();
        // What the game keeps takes more room with each game.
        Story.Game->Framework->SetPlayerGameInfo(0, QString(qsizetype{1500} * (game + 1), u'x'));
        Program.CloseNextScore();
        FailureOf([&] { End(); });
        full = static_cast<int>(messages.Texts.size());
    }
    ASSERT_GT(full, 0) << "the disk was never full";
    for (const QString &text : messages.Texts) EXPECT_TRUE(text.startsWith(u"Error saving ")) << qPrintable(text);
    EXPECT_TRUE(messages.Texts.first().contains(u"full")) << qPrintable(messages.Texts.first());
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_TRUE(Results().startsWith(results));
    const bool isStateTold = messages.FirstLines() == QStringLiteral("Error saving PlayerGame info.");
    EXPECT_EQ(
        Program.Ask(QStringLiteral("select sum(GamePlayedAward) - (select sum(PlayerGameAwards) from PlayerGame) "
                                   "from GamePlayed")),
        isStateTold ? QStringLiteral("1") : QStringLiteral("0"))
        << "what was not told is in the store as a whole";
    EXPECT_EQ(Program.Ask(QStringLiteral("pragma integrity_check")), QStringLiteral("ok"));
    Execute(store, "pragma max_page_count=100000");
    ExpectThatAGameIsStored();
}

TEST_F(SessionFaults, AFolderThatMayNotBeWrittenIsToldAndTheGamesGoOn)
{
    OpenWorkout();
    ExpectThatAGameIsStored();
    const QString results = Results();
    {
        const ReadOnlyFolder readOnly(Program.Folder.Path());
        if (!readOnly.IsInForce()) GTEST_SKIP() << "root can't step down here";
        Messages messages;
        Play();
        EndAndScore();
        EXPECT_TRUE(messages.FirstLines().startsWith(u"Error saving ")) << qPrintable(messages.FirstLines());
        EXPECT_EQ(Program.Window().Mode(), 6);
        EXPECT_EQ(Results(), results);
    }
    ExpectThatAGameIsStored();
}

TEST_F(SessionFaults, AStoreLockedByAnotherProcessIsToldAndTheNextGameIsStored)
{
    OpenWorkout();
    ExpectThatAGameIsStored();
    QProcess other;
    other.start(QStringLiteral(NOGGLE_STORE_CHILD), {QStringLiteral("hold"), Program.Folder.Path()});
    ASSERT_TRUE(other.waitForReadyRead(30000));
    {
        Messages messages;
        Play();
        Program.CloseNextScore();
        FailureOf([&] { End(); });
        EXPECT_FALSE(messages.Texts.isEmpty());
        for (const QString &text : messages.Texts)
            EXPECT_TRUE(text.startsWith(u"Error saving ") && text.contains(u"locked")) << qPrintable(text);
    }
    other.closeWriteChannel();
    ASSERT_TRUE(other.waitForFinished(30000));
    Reopen();
    EXPECT_EQ(Count("GamePlayed"), 1);
    ExpectThatAGameIsStored();
}
