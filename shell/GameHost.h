// One game component, hosted: made by its class name, given its service object, placed, told the verbs, taken away.
//
// What belongs to the game ends here. Whatever it throws leaves as a RuntimeError, and once it has been taken away
// nothing reaches it any more and nothing of it reaches the shell.
#pragma once

#include <QPointer>
#include <QString>
#include <QVariant>

#include <memory>

class CGameArea;
class QWidget;
struct GameTie;

class HostedGame
{
public:
    HostedGame(CGameArea *Control, int EventLoop);
    /// Takes the game away, if nobody did before.
    ~HostedGame();
    HostedGame(const HostedGame &) = delete;
    HostedGame &operator=(const HostedGame &) = delete;

    /// Gives the game its way to the program's Framework, open until it is taken away.
    /// Failure: passed on.
    void SetNoggleFrameWork();
    /// Sends a verb; Info1 and Info2 go as they are, the integer 0 where nothing is told. "unload" is the last verb:
    /// after it, and after the game was taken away or deleted itself, nothing is sent and the answer is empty. The
    /// game may be taken away before this returns.
    /// Failure: passed on, always as a RuntimeError.
    QVariant Message(const QString &Cmd, const QVariant &Info1 = 0, const QVariant &Info2 = 0);
    /// [px], inside its container. Failure: passed on.
    void Move(int Left, int Top, int Width, int Height);
    /// A game that is shown gets the keyboard: where it had it before, else its widget itself. Failure: passed on.
    void SetVisible(bool Visible);
    bool Visible() const;
    /// The game's widget, or empty once it is gone.
    QWidget *Control() const;

    /// Takes the game away, without a verb: its windows are hidden, it leaves its container and the keyboard, and
    /// calls that it still makes do nothing. It is deleted as soon as none of its code is on the stack, at the
    /// latest when the event loop it was made in waits for the next event. A second call does nothing.
    void Unload();

private:
    QPointer<CGameArea> m_Control;
    std::shared_ptr<GameTie> m_Tie;
    int m_EventLoop; // depth of nested event loops at creation
};

/// A new game of that class, for instance "TallyRush.GameArea", as a hidden child of Container; the lookup is told in
/// GameLibraries.h.
/// Failure: passed on, a sentence for the player that names the class.
std::shared_ptr<HostedGame> CreateGame(const QString &ClassName, const QString &GameFolder, QWidget *Container);
