// The shell's own effects, for controls and dialogs.
#pragma once

#include <QString>

/// Plays one effect of the shell once. Without sounds, or without the file, it is silent. Failure: ignored.
void PlayShellSound(const QString &Name);
