// What is remembered of one player in one game.
#pragma once

#include <QString>

#include <cstdint>

class CPlayerGame
{
public:
    std::int32_t Player = 0;
    std::int32_t Game = 0;
    QString GameData;               // the game's own text, see CPlayer::GameInfo
    std::int32_t Awards = 0;        // ever earned
    std::int32_t UnspentAwards = 0; // not yet turned into a level

    std::int32_t Level() const { return m_Level; }
    /// 0 is taken as 1.
    void SetLevel(std::int32_t Level) { m_Level = Level == 0 ? 1 : Level; }
    /// Adds to both counts; does not save. Failure: passed on, for a game that is not in the catalogue, with the
    /// counts already changed.
    void AddAward(std::int32_t Count);
    /// Failure: trapped, "Error saving PlayerGame info."
    void Save();

private:
    std::int32_t m_Level = 1;
};
