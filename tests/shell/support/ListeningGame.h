// A game for the tests of the shell: it keeps what it is sent, and ends when the test says so. Its settings name the
// component "Listening".
#pragma once

#include <QPointer>
#include <QStringList>
#include <QWidget>

class ListeningGame
{
public:
    ListeningGame();
    ~ListeningGame();
    ListeningGame(const ListeningGame &) = delete;
    ListeningGame &operator=(const ListeningGame &) = delete;

    /// What was sent since the last call: "start 1 0|keypress 65 0".
    QString TakeVerbs();
    /// As a game does that is over. Returns when the session has ended.
    void End();
    QWidget *Control() const { return m_Control; }
    bool IsThere() const { return m_Control != nullptr; }
    bool IsShown() const { return m_Control != nullptr && m_Control->isVisible(); }

    /// The answer to "score".
    int Points = 50;
    /// The verb at which the game throws; empty for none.
    QString ThrowsOn;

private:
    class Area;
    QPointer<QWidget> m_Control;
    QStringList m_Verbs;
};
