// What the tests of the main window share: the whole program with two games in two categories, and short words for
// what is to be seen.
#pragma once

#include "tests/shell/support/ListeningGame.h"
#include "tests/shell/support/RunningProgram.h"

#include <gtest/gtest.h>

#include <string>

class FlowTest : public testing::Test
{
protected:
    FlowTest();

    void Start();
    /// Starts, and makes the player Ann, who is on the practice screen then.
    void StartWithAnn();
    /// A game that runs: mode 3 or 4.
    void StartWorkoutGame();
    void StartPracticeGame();
    /// Brings Ann to the screen of a mode without a game: 1, 2 or 6.
    void GoTo(int Mode);

    // To be seen now.
    int Mode() const { return Program.Window().Mode(); }
    std::string Menu() const { return Program.MenuKeys().join(u'|').toStdString(); }
    std::string Screens() const;

    // In the order of destruction: the game's maker goes last.
    ListeningGame Game;
    RunningProgram Program;
};

/// For readable failures.
std::string Plain(const QString &Text);
