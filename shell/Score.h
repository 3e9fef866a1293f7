// The arithmetic of a finished workout game.
#pragma once

#include <cstdint>

struct ScoreSheet
{
    std::int32_t TimeLeft = 0;   // [s]
    std::int32_t TimeBonus = 0;  // the share of the time left, of the points; halves to even
    std::int32_t LevelBonus = 0; // 50 for each level above the first
    std::int32_t Total = 0;
    bool Star = false; // an award was earned
};

/// The score of a session: TimeLimit and TimeTaken in seconds, Points as the game reported them, Level from 1. A
/// limit of 0 gives no time bonus; negative points pass through.
///   TimeBonus = (TimeLeft / TimeLimit) x Points,  LevelBonus = (Level - 1) x 50,  Star when Total >= Level x 50 + 50
/// Failure: passed on, "Overflow." where a number leaves 32 bits.
ScoreSheet Score(std::int32_t TimeLimit, std::int32_t TimeTaken, std::int32_t Points, std::int32_t Level);

/// What a player's state becomes with three unspent awards.
struct Standing
{
    std::int32_t Level = 1;
    std::int32_t UnspentAwards = 0;
    friend bool operator==(const Standing &, const Standing &) = default;
};

/// Three unspent awards buy one level, if the game has one left; one at a time, the others stay.
Standing Promoted(Standing Before, std::int32_t Levels);
