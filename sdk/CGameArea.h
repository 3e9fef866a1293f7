// A game, as the shell sees it: a widget inside the game area that receives verbs.
//
// The life of a game, all of it on the interface thread:
//   1. The shell makes the game by its class name through the component's CGameComponent, hidden, and sets
//      NoggleFrameWork. No verb comes before. Read nothing of the framework in a constructor: there is none yet.
//   2. It gets its place (resize events come as usual), is shown, the clock starts, and "start" arrives.
//   3. "keypress" and "changeskin" arrive whenever they happen, also while the session is paused; the place may
//      change at any time. Hidden means paused: no verb tells of a pause, so stop your own clocks in hideEvent, go on
//      in showEvent, and take no key that comes while you are hidden.
//   4. The game ends the session with Framework->Message("gameover"), or the shell does with "timeup". Then "score"
//      asks for the points, and "unload" comes last. An abandoned game gets "unload" alone, at any moment after it
//      was made, even without "start".
//   5. After "unload" the widget is hidden, detached, and deleted once its own handlers have returned. Calls to the
//      framework from then on do nothing.
//
// What may be used when: the framework from SetNoggleFrameWork to the end of "unload"; "gameover" only between
// "start" and "unload", and not inside "start", "timeup", "score" or "unload", where it has no sense. A game makes no
// window of its own and takes no grab of keyboard or mouse: MsgBox asks for it.
//
// Handlers return soon: drawing, clicks and clock of the whole program wait for them. Work that takes longer than a
// frame, 16 ms, goes into steps between events, or into a thread of the game's own, which may touch neither widgets
// nor the framework and ends before the game does.
//
// Drawing: paintEvent first lets Framework->DrawBackground lay down the skin's ground, then draws over it. A game
// area may have any size from about 620 x 420 up, at any density of the screen: draw in fractions of width() and
// height(), and with fonts that are installed anywhere or come with the game. The application's own font is the
// program's.
#pragma once

#include "sdk/CNoggleFramework.h"

#include <QWidget>
#include <QtPlugin>

class CGameArea : public QWidget
{
public:
    using QWidget::QWidget;

    /// Called once, right after creation. Keep the pointer, never delete it.
    virtual void SetNoggleFrameWork(CNoggleFramework *Framework) = 0;

    /// Receives every verb of the shell.
    ///   "start"       Info1 the level, a 32-bit number from 1; once
    ///   "keypress"    Info1 the key, a 16-bit number as listed below; every key pressed in the main window, whoever
    ///                 has the focus, once, and again when it repeats
    ///   "changeskin"  the skin or the background is another one; skin your buttons and draw everything again
    ///   "timeup"      the time limit ran out; "score" follows at once
    ///   "score"       answer with the points: a number, or a text that starts with one; anything else counts 0. It
    ///                 may be asked at any moment from "start" on, more than once
    ///   "unload"      last words: save what has to be kept
    /// Info1 and Info2 are integer 0 where nothing is told; writing into them changes nothing. Verbs to come have
    /// other names: answer an unknown one with an empty value.
    /// The answer is read for "score" only. Verbs compare exactly, case counting.
    ///
    /// Key codes are the classic virtual-key numbers, the same on every keyboard and system:
    ///   Backspace 8   Tab 9   Enter 13   Shift 16   Control 17   Alt 18   Escape 27   Space 32   Page up 33   Page
    ///   down 34   End 35   Home 36   Left 37   Up 38   Right 39   Down 40   Insert 45   Delete 46   digits 48 to 57
    ///   letters 65 to 90 (always the capital's number)   number block: digits 96 to 105, * 106, + 107, - 109, . 110,
    ///   / 111   F1 to F12 112 to 123   ; 186   = 187   , 188   - 189   . 190   / 191; a key without a number is 0
    /// Escape minimises the program besides.
    /// The same key reaches the widget with the focus as a key event besides: use one of the two ways, or it counts
    /// twice. Text with accents comes by key events alone.
    ///
    /// Re-entrance: Framework->Message("gameover") runs "score", the score dialog and "unload" inside itself, so this
    /// function is entered again, and when that call returns the game has been taken away: return at once and touch
    /// nothing, the widget's own members among it. Other calls may let "timeup" or "unload" in as well: MsgBox and
    /// ShowError wait for an answer while the clock runs on.
    /// Failure: may throw a std::exception; no verb is repeated, and after "unload" the game goes all the same.
    virtual QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &Info2) = 0;
};

/// What a component library exports: a Qt plug-in whose metadata lists the classes it can create,
///   { "classes": ["TallyRush.GameArea"] }
/// under the interface id NOGGLE_GAME_IID, which carries the version. The library is loaded when the first game of it
/// is made, and stays in memory to the end of the process; it may be shared by several games.
class CGameComponent
{
public:
    virtual ~CGameComponent() = default;
    /// A new game of that class as a hidden child of Container, or empty when the library has no such class.
    /// The shell deletes it. Failure: may throw a std::exception, which is shown to the player.
    virtual CGameArea *Create(const QString &ClassName, QWidget *Container) = 0;
};

#define NOGGLE_GAME_IID_STEM "noggle.GameComponent/"
#define NOGGLE_GAME_IID NOGGLE_GAME_IID_STEM "1" // ends in NOGGLE_SDK_VERSION
Q_DECLARE_INTERFACE(CGameComponent, NOGGLE_GAME_IID)
