// The program killed at random moments of a game's end: the store holds the whole of it, or nothing.
#include "tests/shell/support/SessionTest.h"

#include "platform/store/Command.h"
#include "platform/store/Connection.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <thread>

namespace
{
constexpr int Kills = 200;
constexpr int FirstWait = 20000;     // [us] at most, from the click that closes the score dialog to the first kill
constexpr int LongestWait = 2000000; // [us]

class Killed : public testing::Test
{
protected:
    void SetUp() override
    {
        m_Players.start(QCoreApplication::applicationFilePath(), {QStringLiteral("play-on")});
        m_Store = QString::fromUtf8(Line()) + QStringLiteral("Noggle.mdb");
        ASSERT_TRUE(QFile::exists(m_Store));
    }
    void TearDown() override
    {
        m_Players.closeWriteChannel();
        m_Players.waitForFinished(30000);
    }

    /// One process that plays until it is killed, some time after its score dialog has been closed.
    void PlayAndKill()
    {
        m_Players.write("\n");
        const auto player = static_cast<pid_t>(Line().toInt());
        ASSERT_GT(player, 0);
        ASSERT_EQ(Line(), "c");
        std::uniform_int_distribution moment(0, m_Wait);
        std::this_thread::sleep_for(std::chrono::microseconds(moment(m_Random)));
        ASSERT_EQ(kill(player, SIGKILL), 0);
        while (Line() != "gone") {
        }
    }
    /// Later moments after an end that was not stored yet, earlier ones after one that was: so they lie around the
    /// storing, however fast the machine is.
    void AimBy(bool wasStored) { m_Wait = wasStored ? m_Wait * 5 / 6 + 1 : std::min(m_Wait * 6 / 5, LongestWait); }
    /// What stands in the store, opened as the program does; rows of one value each.
    QString Ask(const char *sql) const
    {
        Connection connection;
        connection.Open(m_Store);
        return Command(connection, QLatin1String(sql)).Open()->Value(0).toString();
    }
    bool IsCutShort() const { return QFile::exists(m_Store + QStringLiteral("-journal")); }

private:
    QByteArray Line()
    {
        while (!m_Players.canReadLine())
            if (!m_Players.waitForReadyRead(30000)) return {};
        return m_Players.readLine().trimmed();
    }

    QProcess m_Players;
    QString m_Store;
    int m_Wait = FirstWait; // [us]
    std::mt19937 m_Random{20260302};
};
} // namespace

TEST_F(Killed, AGamesEndIsStoredAsAWholeOrNotAtAllTwoHundredTimes)
{
    int stored = 0;
    int whole = 0;
    int cutShort = 0;
    for (int time = 0; time < Kills; ++time) {
        SCOPED_TRACE(time);
        ASSERT_NO_FATAL_FAILURE(PlayAndKill());
        if (IsCutShort()) ++cutShort;
        ASSERT_EQ(Ask("pragma integrity_check"), QStringLiteral("ok"));
        const QString workouts = Ask("select count(*) from Workout");
        EXPECT_EQ(Ask("select count(*) from GamePlayed"), workouts);
        EXPECT_EQ(Ask("select count(*) from GamePlayed join Workout on WorkoutKey = GamePlayedWorkout"), workouts);
        EXPECT_EQ(Ask("select ifnull(sum(PlayerGameAwards), 0) from PlayerGame"), workouts);
        EXPECT_EQ(Ask("select ifnull(sum(PlayerGameUnspentAwards), 0) from PlayerGame"), workouts);
        const bool isWhole = workouts.toInt() > stored;
        if (isWhole) ++whole;
        AimBy(isWhole);
        stored = workouts.toInt();
    }
    // Both must have been met, else the moments were none of a game's end.
    EXPECT_GT(whole, 0);
    EXPECT_LT(whole, Kills);
    std::cout << whole << " stored, " << cutShort << " cut short in the middle of a commit" << std::endl;
}
