// Processes that store the ends of games until they are killed, each the whole program. They are copies of one that
// has come up to the point where the first end is about to be stored, its score dialog still open: a start of the
// program for each of two hundred would take a minute. When it is copied it has no thread besides its own, and no
// open store.
#pragma once

/// Lays out a program's folder, starts the program there and tells the folder's path in a line. For each line of
/// standard input it then makes a process that plays on with what the store holds, and tells its number. That process
/// tells a line "c" each time a score dialog closes, which is when the end of a game begins to be stored; when it has
/// been killed the line "gone" comes. Answer: 0, when the input ends.
int PlayOnDemand();
