// One player's set of games: at most one of each category, over a day or more. Nothing completes it by itself.
#pragma once

#include "domain/colGamePlayed.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class CWorkout
{
public:
    enum : std::int32_t { Open = 0, Completed = 1 }; // values of Status

    std::int32_t Key = 0; // 0 until first saved
    std::int32_t Player = 0;
    std::int32_t Mode = 0;   // 1 for every workout in use
    std::int32_t Points = 0; // always 0: the points of a workout are summed from its results
    std::int32_t Status = Open;
    double Timestamp = 0; // [days] the day it began, without a time part

    /// Its results, oldest first; loaded at the first read. Results added through it belong to it. Failure: passed
    /// on.
    colGamePlayed &GamesPlayed();
    /// The points of its first result in a category, the one GamesPlayed().ByCat finds, or nothing. Failure: passed
    /// on.
    std::optional<std::int32_t> PointsIn(std::int32_t CategoryKey);
    /// Hands over what PointsIn answers as long as the results themselves are not read: a chart of thousands of
    /// workouts asks for no more of them.
    struct CategoryPoints
    {
        std::int32_t Category;
        std::int32_t Points;
    };
    void TakePoints(std::vector<CategoryPoints> Points) { m_Points = std::move(Points); }
    /// Failure: trapped, "Error saving Workout info."
    void Save();
    /// Sets Status to 1 and saves.
    /// Failure: trapped by Save; Status stays 1 in memory.
    void Complete();

    bool KnowsPoints() const { return m_GamesPlayed != nullptr || m_Points.has_value(); }

private:
    std::unique_ptr<colGamePlayed> m_GamesPlayed;
    std::optional<std::vector<CategoryPoints>> m_Points;
};
