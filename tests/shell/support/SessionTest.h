// A session of a game on the whole program: the player Ann, the game Alpha of the tests' own, a clock that stands
// still but for what the test lets pass, and sound that is rendered into memory.
#pragma once

#include "tests/shell/support/RunningProgram.h"
#include "tests/shell/support/ToldGame.h"

#include "platform/SoundDevice.h"

#include <gtest/gtest.h>

class CGame;
class SoundBuffer;

/// So that a failed comparison shows the texts.
void PrintTo(const QString &Text, std::ostream *Out);

class SessionTest : public testing::Test
{
protected:
    SessionTest();
    ~SessionTest() override;

    /// Starts the program, makes Ann and stops at the screen of the daily workout, or of practice. No workout is
    /// open.
    void OpenWorkout();
    void OpenPractice();
    /// A game folder with a component and what it says of itself, in the category Memory. Before the start.
    void GivenGame(const QString &Name, const QString &Component, int TimeLimit = 60, int Levels = 3) const;
    std::shared_ptr<CGame> Game(const QString &Name = QStringLiteral("Alpha")) const;
    /// Starts a game as the screens do. Answer: whether the main window has a game then.
    void Play(const QString &Name = QStringLiteral("Alpha"), int Level = 1) const;
    /// The running game says "gameover".
    void End() const { Story.Game->End(); }
    /// The same in a workout, with its score dialog closed.
    void EndAndScore();
    /// The same in practice, with its message closed.
    void EndAndTell();
    /// Abandons the game through the menu.
    void Abandon();

    /// Chooses a row of the menu. The pointer goes over the others first: where it rested, a new menu has a row that
    /// lights up only after a moment.
    void Menu(const QString &Key) const;
    /// A key that comes in at the main window.
    void PressKey(Qt::Key Key) const;

    /// [s] Moves the clock.
    void Pass(double Seconds) { m_Moment = m_Moment.addMSecs(qRound64(Seconds * 1000)); }
    QTimer &GameTimer() const;
    /// One tick of the game's clock, which must run.
    void Tick() const;
    /// What the strip below the game says about the time.
    QString TimeShown() const;

    SoundBuffer &Sound(const char *Name) const;
    /// The rows of a statement, values joined by "|", a null as "null".
    QString Stored(const QString &Sql) const;
    /// Commits that changed the store's file so far: its own count of them, modulo 2^32.
    quint32 Commits() const;
    /// The rows of a table.
    int Count(const char *Table) const;
    /// Plays a game of a workout to its end and looks for its result.
    void ExpectThatAGameIsStored();
    /// All results: score, points, time, mode, level, award, workout.
    QString Results() const;
    /// All states: level, awards, unspent awards.
    QString States() const;
    /// The text of the last box, taken away.
    QString TakeBox();

    RunningProgram Program;
    ToldStory Story;
    std::unique_ptr<SoundDevice> Loopback = SoundDevice::OpenLoopback();

private:
    QDateTime m_Moment{QDate(2026, 3, 2), QTime(12, 0)};
};

/// The description of the failure that the work ends in, or "none".
QString FailureOf(const std::function<void()> &Work);
