// The whole program on a display, and a person's hands on the pointer and the keys of that display.
#pragma once

#include "tests/shell/support/FlowTest.h"

#include <QPoint>

class DisplayTest : public FlowTest
{
protected:
    DisplayTest();

    // Places are those of the display. Each returns when the act has been done; what comes of it is to be awaited.
    static void ClickAt(QPoint Place) { Hand({"mousemove", X(Place), Y(Place), "click", "1"}); }
    static void Click(const QWidget *Control) { ClickAt(MiddleOf(Control)); }
    static void Press(const char *Key) { Hand({"key", Key}); }
    static void Drag(QPoint From, QPoint By);
    static QPoint MiddleOf(const QWidget *Control) { return Control->mapToGlobal(Control->rect().center()); }
    /// Words for xdotool.
    static void Hand(const QList<QByteArray> &Words);

    frmNoggle &Window() const { return Program.Window(); }
    /// The main window, or a dialog, as the keyboard's: what is typed reaches it.
    static bool HasKeys(const QWidget *Shown) { return Shown->isActiveWindow(); }
    bool MayType() const
    {
        return RunningProgram::Until([this] { return HasKeys(&Window()); });
    }
    /// A workout game that runs, with nothing heard yet and the keys at the main window.
    void StartGameThatListens();

private:
    static QByteArray X(QPoint place) { return QByteArray::number(place.x()); }
    static QByteArray Y(QPoint place) { return QByteArray::number(place.y()); }
};

/// What only a window manager can do.
class Managed : public DisplayTest
{};
