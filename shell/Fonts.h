// The interface font.
#pragma once

/// Begins to list the fonts, on a thread of its own.
void LookForInterfaceFont();
/// Once for each look: Inter where it is installed, else the system's sans; for every control that sets no font of
/// its own.
void UseInterfaceFont();
