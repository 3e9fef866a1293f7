// Key codes as games get them: the classic virtual-key numbers (Escape 27, Enter 13, arrows 37 to 40, digits 48 to
// 57, letters 65 to 90, F1 112), since a toolkit's own codes do not fit 16 bits.
#pragma once

#include <cstdint>

class QKeyEvent;

/// 0 for a key that has no such number.
std::int16_t VirtualKeyOf(const QKeyEvent &Event);
