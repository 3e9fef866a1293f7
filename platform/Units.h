// Lengths on the screen. Forms and some controls are laid out in twips, pictures and most screens in pixels; the two
// types keep them apart, and nowhere else stands a 15 or an 86400.
#pragma once

#include <cstdint>

constexpr int TwipsPerPixel = 15; // on every screen: pixels are logical ones, scaled by the desktop
constexpr int SecondsPerDay = 86400;

struct Pixels
{
    int Value = 0;
    friend constexpr bool operator==(Pixels, Pixels) = default;
};

struct Twips
{
    int Value = 0;
    friend constexpr bool operator==(Twips, Twips) = default;
};

/// Rounded to the nearest pixel, halves to the even one.
Pixels ToPixels(Twips Length);
constexpr Twips ToTwips(Pixels Length) { return Twips{Length.Value * TwipsPerPixel}; }
