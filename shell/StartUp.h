// The start of the program and its last steps: what fills the program-wide objects, in which order.
#pragma once

#include <cstdint>

namespace modMain
{
/// Makes every program-wide object in order, from the settings to the main window, and leaves the program on the
/// choice of player. Answer: whether the program may run. Failure: trapped in the plain message box, "Error starting
/// program
/// @", the step's number and the description.
bool Main();

/// Language, SoundOn, WhiteBackground and Online from "Settings.ini"; absent keys get their defaults. Failure: none.
void LoadSettings();
/// Writes sound, background and skin. Failure: passed on, when there is no skin.
void SaveSettings();
/// The skin that the settings name, or the first one. Failure: ignored step by step; without skins it stays empty.
void LoadSkin();
/// Players, categories, games. Failure: trapped in the plain message box, "Error loading data @", and the program
/// goes on with what has been loaded; the collections not reached stay empty.
void LoadData();

/// The hold of the splash: how long to sleep before it is closed. Both moments are seconds since midnight.
/// [ms] Less than four seconds after SplashTime: until five seconds after it; else 0.
std::int32_t SplashHold(float SplashTime, float Timer);

/// Takes away what must go before the application object does: windows, and the sound device. To be called last.
void ReleaseWindows();
} // namespace modMain
