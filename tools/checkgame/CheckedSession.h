// One session of a game, as the program would lead it: made, given its service object, placed, shown, told the verbs,
// clicked at, hidden, and taken away. Whatever breaks the contract is reported.
#pragma once

#include "tools/checkgame/Plan.h"

#include "sdk/CGameArea.h"
#include "sdk/author/SeededRandom.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <functional>
#include <map>
#include <optional>
#include <utility>

class GameFolder;
class QPainter;
class Report;
class WatchedFramework;

class CheckedSession
{
public:
    using Maker = std::function<CGameArea *(QWidget *)>;
    struct Figures
    {
        double Start = 0;      // [ms] from creation to the first picture
        double SlowestAct = 0; // [ms] of the processor's time
        QString Slowest;
    };

    /// Doing is told before each step, so that what ended the process can be named.
    CheckedSession(const Plan &Plan, const GameFolder &Folder, Report &Report, QWidget &Window,
                   std::function<void(const QString &)> Doing);
    Figures Play(const Maker &Make);

    // For the framework that it gives the game.
    void GameOver();
    bool IsHidden() const { return m_Hidden; }
    std::int32_t TimeTaken() const { return static_cast<std::int32_t>(m_Clock.elapsed() / 1000); }
    static void PaintGround(QPainter &Painter, bool Dark);
    std::map<std::int32_t, QString> Info;
    std::map<std::pair<QString, QString>, QString> Saved;

private:
    bool Make(const Maker &make);
    void Start();
    void Do(Act act);
    void Key();
    void Click();
    void Pause();
    void JudgeHidden();
    void LookAtPicture();
    void Finish(bool withScore);
    void TakeAway();
    int Score();
    int JudgedPoints(const QVariant &answer);
    /// Empty when the game threw, which has been reported then.
    std::optional<QVariant> Verb(const QString &cmd, const QVariant &info = 0);
    bool Guarded(const QString &doing, const std::function<void()> &work);
    void Waits(const QString &doing);
    void Turn(int milliseconds) const;
    bool IsOver() const { return m_Ended || !m_Control; }

    Plan m_Plan;
    const GameFolder &m_Folder;
    Report &m_Report;
    QWidget &m_Window;
    std::function<void(const QString &)> m_Doing;
    SeededRandom m_Random;
    WatchedFramework *m_Framework = nullptr;
    QPointer<CGameArea> m_Control;
    QObject m_Guard; // its timers come only while an act waits in a loop of its own
    QElapsedTimer m_Clock;
    Figures m_Figures;
    QString m_Verb;
    int m_Acts = 0;
    int m_PointsWhenHidden = 0;
    bool m_InAct = false;
    bool m_Waits = false;
    bool m_Hidden = false;
    bool m_Dark = false;
    bool m_Started = false;
    bool m_Ended = false;
};
