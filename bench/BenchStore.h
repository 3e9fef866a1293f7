// A program's folder with a store of many results, or with many game folders, and the bare engine beside it: what a
// loop without any of our layers needs for the same rows.
#pragma once

#include "tests/support/TestStore.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

struct sqlite3;

/// [s] What the work took, by the clock on the wall.
double Seconds(const std::function<void()> &work);

/// The engine alone, on a connection of its own.
class BareStore
{
public:
    explicit BareStore(const TestStore &Store);
    ~BareStore();
    BareStore(const BareStore &) = delete;
    BareStore &operator=(const BareStore &) = delete;

    void Execute(const char *Sql);
    /// Runs a statement, reads every column of every row by its own type, and counts the rows.
    std::int64_t Walk(const char *Sql, const std::vector<std::int32_t> &Values);
    /// Fills players, games, categories, workouts and results. Half of the results are of player 1, half of each
    /// player's are practice of game 1 at level 1.
    void Fill(std::int32_t Results);
    /// Adds 1 to what the pointer holds at each commit of Handle.
    static void CountCommits(sqlite3 *Handle, int &Count);

private:
    void FillResults(std::int32_t Results);
    sqlite3 *m_Handle = nullptr;
};

/// Writes that many game folders.
void WriteGameFolders(const TestFolder &Folder, int Count);
