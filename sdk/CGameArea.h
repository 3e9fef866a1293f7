// A game, as the shell sees it: a widget inside the game area that receives verbs.
//
// The life of a game, all of it on the interface thread:
//   1. The shell makes the game by its class name through the component's CGameComponent, hidden, and sets
//      NoggleFrameWork. No verb comes before.
//   2. It gets its place (resize events come as usual), is shown, the clock starts, and "start" arrives.
//   3. "keypress" and "changeskin" arrive whenever they happen, also while the session is paused. Hidden means
//      paused: no verb tells of a pause, so stop your own clocks in hideEvent and go on in showEvent.
//   4. The game ends the session with Framework->Message("gameover"), or the shell does with "timeup". Then "score"
//      asks for the points, and "unload" comes last. An abandoned game gets "unload" alone.
//   5. After "unload" the widget is hidden, detached, and deleted once its own handlers have returned. Calls to the
//      framework from then on do nothing.
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
    ///   "keypress"    Info1 the key, a classic virtual-key number of 16 bits: Escape 27, Enter 13, Left 37, Up 38,
    ///                 Right 39, Down 40, digits 48 to 57, letters 65 to 90, F1 112; every key pressed in the main
    ///                 window, whoever has the focus, once
    ///   "changeskin"  the skin or the background is another one; draw it again
    ///   "timeup"      the time limit ran out; "score" follows at once
    ///   "score"       answer with the points: a number, or a text that starts with one; anything else counts 0
    ///   "unload"      last words
    /// Info1 and Info2 are integer 0 where nothing is told. The answer is read for "score" only.
    /// Re-entrance: Framework->Message("gameover") runs "score" and "unload" inside itself.
    /// Failure: may throw a std::exception; no verb is repeated, and after "unload" the game goes all the same.
    virtual QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &Info2) = 0;
};

/// What a component library exports: a Qt plug-in whose metadata lists the classes it can create,
///   { "classes": ["TallyRush.GameArea"] }
/// under the interface id NOGGLE_GAME_IID, which carries the version.
class CGameComponent
{
public:
    virtual ~CGameComponent() = default;
    /// A new game of that class as a hidden child of Container, or empty when the library has no such class.
    /// The shell deletes it.
    virtual CGameArea *Create(const QString &ClassName, QWidget *Container) = 0;
};

#define NOGGLE_GAME_IID_STEM "noggle.GameComponent/"
#define NOGGLE_GAME_IID NOGGLE_GAME_IID_STEM "1"
Q_DECLARE_INTERFACE(CGameComponent, NOGGLE_GAME_IID)
