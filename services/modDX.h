// The sound device of the program. No device is no error: the player is told once, and all sounds are silent.
#pragma once

class QWidget;
class SoundDevice;

namespace modDX
{
/// Begins to look for the default device, on a thread of its own; InitSound waits for it. Failure: ignored step by
/// step.
void PrepareSound();
/// Opens the default device; without one the plain message box says so, once. Form owns the device's window.
/// Failure: ignored step by step.
void InitSound(QWidget *Form);
/// Binds the device to another window. Nothing has to be bound on this platform; the call marks the place.
void SetCooperativeLevel(QWidget *Form, int Level);
/// The device, or empty.
SoundDevice *Device();
/// Uses the given device from now on, or none: a test's loopback device. Not owned.
void SetDevice(SoundDevice *Device);
/// Closes the device: sources, buffers, context, device. Effects made with it are silent from then on.
void EndSound();
} // namespace modDX
