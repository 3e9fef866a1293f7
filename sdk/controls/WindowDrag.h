// Windows without a title bar are dragged by their face.
#pragma once

class QMouseEvent;
class QWidget;

/// Begins to move a window from a left press on it or on a control in it: the desktop moves it where it can, else the
/// window follows the pointer until the button is released.
void BeginWindowDrag(QWidget &Window, const QMouseEvent &Press);
