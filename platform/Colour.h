// Colours as files and settings have them: numbers 0x00BBGGRR, red in the lowest byte.
#pragma once

#include <QColor>

#include <cstdint>

constexpr std::int32_t ColourBytes(int Red, int Green, int Blue) { return Red | Green << 8 | Blue << 16; }

/// The colour of a number; the byte above blue does not count.
inline QColor ToColour(std::int32_t Value) { return QColor(Value & 0xFF, Value >> 8 & 0xFF, Value >> 16 & 0xFF); }

inline std::int32_t FromColour(const QColor &Colour)
{
    return ColourBytes(Colour.red(), Colour.green(), Colour.blue());
}
