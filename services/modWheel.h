// The mouse wheel of a window, as an extension point: a form with a method
//   Q_INVOKABLE void MouseWheel(std::int32_t Rotation, std::int32_t Keys, std::int32_t Y, std::int32_t X)
// is told of every turn of the wheel, away from the user or towards him, that no control in it has used. The method
// is looked up by its name, so a form without one may be hooked too. A form hooks when it becomes active and unhooks
// when it stops being active.
#pragma once

#include <cstdint>

class QEvent;
class QObject;
class QWidget;

namespace modWheel
{
/// A turn of the wheel, packed as the desktop sends it: two halves of 16 bits in each number.
struct Turn
{
    std::int32_t wParam = 0; // high: 120 for each notch, away from the user; low: buttons and modifier keys held
    std::int32_t lParam = 0; // the pointer on the screen [px]; high: y, low: x
};

/// Hooks the form in the place of any other. Failure: ignored.
void HookWheel(QWidget *Form);
/// The form gets its events as before. Failure: ignored.
void UnhookWheel();
/// The form that is hooked now, or empty.
QWidget *HookedForm();
/// What the hook does with each event that reaches the form: a turn of the wheel is told to MouseWheel, Y as it is
/// and X in its low 16 bits. [px] Answer: false always, since every event goes on to where it went without the hook.
/// Failure: ignored, whatever MouseWheel threw.
bool WheelProc(QObject *Form, QEvent *Event);
/// The same with the turn's numbers, which are taken apart here.
void WheelProc(QObject *Form, const Turn &Message);
} // namespace modWheel
