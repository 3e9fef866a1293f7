// The record of one finished game.
#pragma once

#include <cstdint>

class CGamePlayed
{
public:
    std::int32_t Player = 0;
    std::int32_t Game = 0;
    double Timestamp = 0;     // [days] to the second
    std::int32_t Key = 0;     // 0 until first saved
    std::int32_t Score = 0;   // raw points of the game
    std::int32_t Points = 0;  // with bonuses in a workout, equal to Score in practice
    std::int32_t Time = 0;    // [s] left in a workout result, taken in a practice result
    std::int32_t Mode = 0;    // 1 workout, 3 practice, 0 a game of a workout reloaded with mode 0
    std::int32_t Workout = 0; // key of its workout, 0 for none
    std::int32_t Level = 0;
    std::int32_t Award = 0; // 1 when the session earned one
    bool Uploaded = false;

    /// Failure: trapped, "Error saving GamePlayed info."
    void Save();
};
