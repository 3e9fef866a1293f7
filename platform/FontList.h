// The system's list of fonts, which takes a good part of a start to be read.
#pragma once

/// Begins to read it, on a thread of its own; whoever needs it, waits for it. To be called in main before the
/// application object is made, but after the last change of the process's environment. Does nothing where the
/// system's list is not fontconfig's. Failure: not noticed.
void PrepareFontList();
