// The records that the whole program shares, for tests below the shell.
#pragma once

/// Loads players, categories and games, in the order of the program's start.
void LoadRecords();
/// Forgets them, and the current player, game and workout.
void ForgetRecords();
