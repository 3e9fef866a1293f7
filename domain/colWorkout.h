// A player's workouts, oldest first.
#pragma once

#include "domain/CWorkout.h"
#include "domain/RecordList.h"

class colWorkout
{
public:
    void SetPlayerKey(std::int32_t Key) { m_PlayerKey = Key; }
    /// A new open workout of today, saved. Its Mode is 0 until the caller sets it. Failure: passed on.
    std::shared_ptr<CWorkout> Add();
    /// By position from 1, or by prefixed key. Failure: passed on.
    const std::shared_ptr<CWorkout> &Item(std::int32_t Position) const { return m_Workouts.Item(Position); }
    const std::shared_ptr<CWorkout> &Item(const QString &Key) const { return m_Workouts.Item(Key); }
    std::int32_t Count() const { return m_Workouts.Count(); }
    /// From the list only; the row stays.
    void Remove(std::int32_t Position) { m_Workouts.Remove(Position); }
    void Remove(const QString &Key) { m_Workouts.Remove(Key); }
    auto begin() const { return m_Workouts.begin(); }
    auto end() const { return m_Workouts.end(); }
    /// Replaces the list. PlayerKey must be set before. Failure: passed on.
    void Load();
    /// Reads by one statement what PointsIn of each workout answers, where its results were not read yet: with
    /// thousands of workouts, one statement each takes as long as ten frames. Failure: passed on.
    void LoadPoints();
    /// The last open workout of the list, or empty.
    std::shared_ptr<CWorkout> Current() const;

private:
    bool KnowsAllPoints() const;

    RecordList<CWorkout> m_Workouts;
    std::int32_t m_PlayerKey = 0;
};
