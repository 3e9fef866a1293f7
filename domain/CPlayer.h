// A named person on this machine, with the three collections that hang on them. The collections are loaded at their
// first read and kept for the life of the object: they see what is added through them, and nothing else.
#pragma once

#include "domain/colGamePlayed.h"
#include "domain/colPlayerGame.h"
#include "domain/colWorkout.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

class CCategory;
class CGame;

class CPlayer
{
public:
    QString Name;
    std::int32_t Key = 0; // 0 until first saved

    /// Failure: passed on.
    colWorkout &Workouts();
    colGamePlayed &GamesPlayed();
    colPlayerGame &GameData();

    /// The awards of the player at the machine in all games of a category, whichever player this is asked of.
    /// A game that was never played gets its state, and its row, by being asked for. Failure: passed on.
    std::int32_t Awards(CCategory &Category);

    /// Failure: trapped, "Error saving player info."; the name stays in memory.
    void Save();
    /// Removes the row of the player and nothing else: results, states and workouts stay. Failure: passed on.
    void Delete();

    /// The text that a game keeps for this player at a level, empty when there is none; the whole text at level 0 and
    /// below. Failure: trapped, "Error getting player/game info."; the result is empty then.
    QString GameInfo(std::int32_t GameKey, std::int32_t Level);
    /// At a level: puts the value in its place, makes the list as long as the game has levels, and saves.
    /// At level 0: replaces the whole text in memory; the next save of the state writes it.
    /// Failure: trapped, "Error setting player/game info.", also for a level that the game does not have.
    void SetGameInfo(std::int32_t GameKey, std::int32_t Level, const QString &Value);

    /// The game whose turn it is in a category: the one after the game last played there, in name order, the first
    /// again after the last. Practice moves the rotation too. Empty for a category without games. Failure: passed on.
    std::shared_ptr<CGame> NextGameToPlay(std::int32_t CategoryKey);
    /// Day counts and points of the player's results in a category, oldest first; those of one Mode, or all with 0.
    /// Without a result both hold one element, 0. Failure: passed on.
    void GetGameData(std::int32_t CategoryKey, std::vector<double> &Dates, std::vector<double> &Points,
                     std::int32_t Mode);

private:
    std::unique_ptr<colWorkout> m_Workouts;
    std::unique_ptr<colGamePlayed> m_GamesPlayed;
    std::unique_ptr<colPlayerGame> m_GameData;
};
