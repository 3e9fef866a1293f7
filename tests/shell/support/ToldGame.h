// A game of the tests' own, inside the test program: it keeps what it is told, and does what the test wants at a
// verb.
#pragma once

#include "sdk/CGameArea.h"

#include <QPointer>
#include <QStringList>

#include <functional>

class ToldGame;

/// What the games of one test are told and do.
struct ToldStory
{
    QStringList Verbs;    // oldest first: "start int 1 int 0"
    QVariant Points = 80; // the answer to "score"
    /// Called at each verb before it is answered; may throw.
    std::function<void(ToldGame &Game, const QString &Cmd)> At;
    std::function<void(ToldGame &Game)> AtFramework; // called when a game has been given its service object
    QPointer<ToldGame> Game;                         // the one made last

    /// The verbs by their names alone.
    QStringList Names() const;
};

class ToldGame : public CGameArea
{
public:
    ToldGame(QWidget *Container, ToldStory &Story);
    void SetNoggleFrameWork(CNoggleFramework *Given) override;
    QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &Info2) override;
    /// Says "gameover", as games do in one of their handlers.
    void End() { Framework->Message(QStringLiteral("gameover")); }

    CNoggleFramework *Framework = nullptr;

private:
    ToldStory &m_Story;
};
