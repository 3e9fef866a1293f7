// Processes that play games until they are killed, each the whole program from its start on. They are copies of one
// that has only been prepared, which saves loading its libraries two hundred times; nothing has been drawn in it and
// no thread been started when it is copied.
#pragma once

/// Lays out a program's folder and tells its path in a line. For each line of standard input it then makes a process
/// that plays on one store, and tells its number. That process tells a line "c" each time a score dialog closes,
/// which is when the end of a game begins to be stored. Answer: 0, when the input ends.
int PlayOnDemand();
