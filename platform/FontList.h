// The system's list of fonts, which takes a good part of a start to be read.
#pragma once

/// Begins to read it, on a thread of its own. To be called in main before the application object is made, but after
/// the last change of the process's environment. Does nothing where the system's list is not fontconfig's. Failure:
/// not noticed.
void PrepareFontList();
/// Waits until what was begun is done; at once when nothing was. From any thread. Who asks for fonts before that
/// makes the system read its list a second time, beside the first.
void AwaitFontList();
