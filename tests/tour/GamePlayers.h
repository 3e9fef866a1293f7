// Who can play which game: one routine a game, found by its component's name. It learns from the game what a screen
// reader is told, and answers by keys and clicks.
#pragma once

#include <QElapsedTimer>
#include <QString>

class Hands;

/// How long a game is played before its clock is moved on. [s]
struct Stamina
{
    explicit Stamina(int Seconds) : m_Seconds(Seconds) { m_Passed.start(); }
    bool IsLeft() const { return m_Passed.elapsed() < 1000LL * m_Seconds; }

private:
    int m_Seconds;
    QElapsedTimer m_Passed;
};

/// Plays the running game until it has ended by itself or the stamina is spent. False, at once, for a game that
/// nobody here can play. Failure: passed on.
bool PlayGame(const QString &Component, Hands &Hands, const Stamina &Stamina);
