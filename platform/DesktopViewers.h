// What the desktop can open, asked before it is asked to: where there is nothing for a file, a desktop's opener takes
// any program it can think of, and tells nobody when that fails.
#pragma once

#include <QStringList>

/// Whether the desktop knows an installed program for one of these kinds of files, such as "application/pdf". Where
/// that can't be told, on desktops that keep no lists of programs, it is assumed. Failure: none; a list that can't be
/// read lists nothing.
bool DesktopCanOpen(const QStringList &Kinds);
