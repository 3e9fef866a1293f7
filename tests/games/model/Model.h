// Model players: sessions that are simulated on a game's rules alone, thousands of them, so that a level is as hard
// as it is meant to be.
//
// A game describes its players as a few numbers (reaction time, accuracy and the like, with their sources in the
// game's README) and plays one session for a seed; this here adds the shell's bonus, takes medians and holds the
// bounds.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <vector>

namespace Model
{
struct Session
{
    int Points = 0;
    double Time = 0; // [s] that it took; beyond the limit when the clock ended it
};

/// The points with the shell's bonus for the time that was left, as a workout counts them.
inline double Total(const Session &Played, double Limit)
{
    const double left = std::max(0.0, Limit - Played.Time) / Limit;
    return Played.Points + static_cast<int>(left * Played.Points);
}

/// The median total over many seeds; Play gives the session of a seed.
inline double Median(double Limit, const std::function<Session(std::uint32_t)> &Play, int Sessions = 1001)
{
    std::vector<double> totals;
    totals.reserve(static_cast<std::size_t>(Sessions));
    for (int seed = 0; seed < Sessions; ++seed)
        totals.push_back(Total(Play(static_cast<std::uint32_t>(seed)), Limit));
    const auto middle = totals.begin() + Sessions / 2;
    std::nth_element(totals.begin(), middle, totals.end());
    return *middle;
}

/// Medians of one level. Random chooses anything as fast as keys go; Always presses one and the same thing.
struct Row
{
    double Random, Always, Learner, Good, Expert;
};

/// Prints the row, for the table in the game's README, and holds what every level promises.
inline void ExpectBalanced(int Level, const Row &Made)
{
    std::printf("| %d | %.0f | %.0f | %.0f | %.0f | %.0f |\n", Level, Made.Random, Made.Always, Made.Learner,
                Made.Good, Made.Expert);
    EXPECT_GE(Made.Good, 90);
    EXPECT_LE(Made.Good, 115);
    EXPECT_GE(Made.Expert, 120);
    EXPECT_LE(Made.Random, 35);
    EXPECT_LE(Made.Always, 35);
    EXPECT_LE(Made.Learner, Made.Good);
    EXPECT_LE(Made.Good, Made.Expert);
}
} // namespace Model
