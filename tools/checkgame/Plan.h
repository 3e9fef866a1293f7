// What happens in one session of the check: first every legal order of up to three events, then long random ones.
#pragma once

#include <cstdint>
#include <vector>

enum class Act { Key, Click, Skin, Score, Resize, Pause, Turn }; // Pause hides the game, or shows it again
enum class Ending { TimeUp, Abandon, AbandonBeforeStart };

struct Plan
{
    int Number = 0; // of the session, from 1
    int Level = 1;
    std::uint32_t Seed = 0;
    std::vector<Act> Acts;
    Ending End = Ending::TimeUp; // unless the game ends it sooner
};

/// Two of three sessions go through the orders until all have been; the others are random. Levels take turns.
Plan PlanOf(int Number, std::uint32_t Seed, int Levels);
/// How many sessions it takes until every order has been.
int SessionsForAllOrders();
