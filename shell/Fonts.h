// The interface font.
#pragma once

/// Inter where it is installed, else the system's sans; for every control that sets no font of its own.
void UseInterfaceFont();
