// The screen that a skin must fit on.
#pragma once

#include <QSize>

/// The primary screen's full size, panels of the desktop included. [px]
QSize ScreenSize();
/// Sets another size, for tests; an empty one gives back the screen's own.
void SetScreenSize(const QSize &Size);
