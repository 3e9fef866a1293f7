// An ordered list of finished games. The filters set before Load decide which list it is: a workout's results, a
// player's history, or the best results of one game at one level in one mode. The first filter that is set wins, in
// the order Workout, Player, Game.
//
// Results come into being only through Add, so a list with a workout filter is also what gives a new result its
// workout.
#pragma once

#include "domain/CGamePlayed.h"
#include "domain/RecordList.h"

#include <memory>

class Recordset;

class colGamePlayed
{
public:
    /// Failure: trapped by Save; the record then goes in under key 0, and a second such one fails as taken: passed
    /// on.
    std::shared_ptr<CGamePlayed> Add(std::int32_t Player, std::int32_t Game, std::int32_t Score, std::int32_t Time,
                                     std::int32_t Points, std::int32_t Mode, std::int32_t Level, std::int32_t Award);
    /// By position from 1, or by prefixed key. Failure: passed on.
    const std::shared_ptr<CGamePlayed> &Item(std::int32_t Position) const { return m_Results.Item(Position); }
    const std::shared_ptr<CGamePlayed> &Item(const QString &Key) const { return m_Results.Item(Key); }
    std::int32_t Count() const { return m_Results.Count(); }
    /// From the list only; the row stays.
    void Remove(std::int32_t Position) { m_Results.Remove(Position); }
    void Remove(const QString &Key) { m_Results.Remove(Key); }
    auto begin() const { return m_Results.begin(); }
    auto end() const { return m_Results.end(); }

    void SetWorkout(std::int32_t Key) { m_Workout = Key; }
    void SetPlayer(std::int32_t Key) { m_Player = Key; }
    void SetGame(std::int32_t Key) { m_Game = Key; }
    void SetLevel(std::int32_t Level) { m_Level = Level; }
    void SetMode(std::int32_t Mode) { m_Mode = Mode; }
    /// How many of the best results are read at most; 0, as at first, for all.
    void SetMost(std::int32_t Most) { m_Most = Most; }
    /// Replaces the list. Histories come oldest first, best results by score, then shorter time, then earlier.
    /// Failure: passed on; without a filter there is nothing to read, and that is one.
    void Load();
    /// The first result whose game lies in the category, or empty. Failure: passed on, for a game that is not in the
    /// catalogue.
    std::shared_ptr<CGamePlayed> ByCat(std::int32_t CategoryKey) const;
    /// The first result of the game, or empty.
    std::shared_ptr<CGamePlayed> ByGame(std::int32_t GameKey) const;

private:
    std::unique_ptr<Recordset> Select() const;

    RecordList<CGamePlayed> m_Results;
    std::int32_t m_Workout = 0;
    std::int32_t m_Player = 0;
    std::int32_t m_Game = 0;
    std::int32_t m_Level = 0;
    std::int32_t m_Mode = 0;
    std::int32_t m_Most = 0;
};
