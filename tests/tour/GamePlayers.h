// Who can play which game: one routine a game, found by its component's name. It learns from the game what a screen
// reader is told, and answers by keys and clicks.
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <cstdint>

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

/// What a game's board follows from. With both of them, a game's own rules tell a player what is right.
struct Board
{
    int Level = 1;
    std::uint32_t Seed = 7;
};

/// Lets every game in the program's folder make the boards of that seed.
/// Failure: passed on, a TourFailure.
void GiveSeeds(const QString &ProgramFolder, std::uint32_t Seed = Board().Seed);

/// Plays the running game until it has ended by itself or the stamina is spent. False, at once, for a game that
/// nobody here can play. Failure: passed on.
bool PlayGame(const QString &Component, const Board &Board, Hands &Hands, const Stamina &Stamina);

// Players of one game each, in files of their own.
void PlayEchoStep(Hands &hands, const Stamina &stamina, const Board &board);
void PlayHoldBack(Hands &hands, const Stamina &stamina, const Board &board);
void PlayNinthTile(Hands &hands, const Stamina &stamina, const Board &board);
void PlayOddStone(Hands &hands, const Stamina &stamina, const Board &board);
void PlayPunchedFold(Hands &hands, const Stamina &stamina, const Board &board);
void PlayQuietRule(Hands &hands, const Stamina &stamina, const Board &board);
void PlayScaleTip(Hands &hands, const Stamina &stamina, const Board &board);
void PlayTurnOrMirror(Hands &hands, const Stamina &stamina, const Board &board);
