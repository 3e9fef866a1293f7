// The whole program on its real start-up, in a folder of its own, driven as a person would: by clicks and keys that
// come in at the window, so that what is covered, hidden or behind a dialog can't be reached. The clock begins at ten
// in the morning of one day and goes on as the machine's does, moved on by what the test says; the splash is not
// waited for.
//
// A dialog that nobody closes is reported as a failure of the test and closed after a while, so no test hangs.
#pragma once

#include "tests/support/TestFolder.h"

#include "shell/frmNoggle.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QVariantList>

#include <functional>
#include <vector>

class PanelSurface;

class RunningProgram
{
public:
    /// Lays out the folder: empty store, words, sounds, the tests' own skin, and the bundled games of these folder
    /// names.
    explicit RunningProgram(const QStringList &Games = {});
    ~RunningProgram();
    RunningProgram(const RunningProgram &) = delete;
    RunningProgram &operator=(const RunningProgram &) = delete;

    TestFolder Folder;
    /// What plain boxes have shown so far. Each was closed by its button.
    QStringList PlainBoxes;
    /// Called while a plain box is up; may be empty.
    std::function<void()> WhilePlainBox;
    /// [s] How long a start takes, by the clock.
    double StartTakes = 6;

    /// The real start. Answer: whether the program may run.
    bool Start();
    /// Takes the program away without its close question: windows, objects, connection.
    void Stop();
    /// Ends it by the menu and its question, inside the program's own loop. Answer: the exit code, or StillRunning.
    int End();
    static constexpr int StillRunning = 99;
    bool IsRunning() const { return m_Window != nullptr; }
    frmNoggle &Window() const { return *m_Window; }

    /// A control by its name, visible or not; ends the tests when it is not there.
    template <typename Control = QWidget>
    Control *Find(const char *Name) const
    {
        auto *const control = Window().findChild<Control *>(QLatin1String(Name));
        if (control == nullptr) qFatal("no control named %s", Name);
        return control;
    }
    bool Sees(const char *Name) const;
    /// A left click in the middle of a control, which must be visible.
    void Click(QWidget *Control) const;
    void Click(const char *Name) const { Click(Find(Name)); }
    /// Where the last click on a control was, in its window.
    mutable QPoint LastClick;
    /// The keys of the menu's rows, from the top; and a press on the row with that key.
    QStringList MenuKeys() const;
    QStringList MenuCaptions() const;
    void ClickMenu(const QString &Key) const;
    /// A press on the row of any button panel with that caption.
    void ClickRow(const char *Panel, const QString &Caption) const;
    /// A key for who has the focus.
    void PressKey(Qt::Key Key) const;

    /// The next message box will be answered by a click: "cmd1" is the left button, "cmd2" the right one. Text is
    /// typed first when it is not empty. What is to be done while the box is open comes before both.
    void AnswerNextBox(const char *Button, const QString &Text = {}, const std::function<void()> &Meanwhile = {});
    /// The next score dialog will be watched to its end and closed by its button.
    void CloseNextScore(const std::function<void()> &Meanwhile = {});
    /// Texts of the boxes answered so far, oldest first; and the totals of the score dialogs closed so far.
    QStringList Boxes;
    std::vector<int> Totals;
    bool HasAnsweredAll() const { return m_Awaited.empty(); }

    /// [s] Moves the clock on.
    void PassTime(double Seconds) { m_Offset += Seconds; }
    /// Lets the program run for that time, as its own loop does. [ms]
    static void Turn(int Milliseconds);
    /// Lets the program run until it is so, for some seconds at most. Answer: whether it came to be so.
    static bool Until(const std::function<bool()> &IsSo);

    /// Lets the program alone for that time; nothing of the tests wakes it. Answer: how often something of its own
    /// did. [ms]
    int WakesWithin(int Milliseconds);
    /// Waits, for some seconds at most, for a while in which nothing wakes the program. Answer: whether it came.
    bool ComesToRest();

    /// The rows of a statement, values in column order.
    QList<QVariantList> Rows(const QString &Sql) const;
    /// The first value of the first row, as text.
    QString Ask(const QString &Sql) const { return Rows(Sql).value(0).value(0).toString(); }
    /// Makes a player through the screens and stays on the practice screen. From the choice of player.
    void NewPlayer(const QString &Name);
    /// The buttons of the choice of player, from the top.
    QStringList PlayerButtons() const;
    void ClickPlayer(const QString &Caption) const;
    /// On the practice screen: a category and a game by what stands on their rows; level 1 comes with them.
    void ChoosePractice(const QString &Category, const QString &GameName) const;
    /// On the workout screen: the play button, or the one for the instructions, of the game that is due. A workout is
    /// begun when none is open.
    void PlayInWorkout() const { ClickInWorkout("butPlay"); }
    void ReadInWorkout() const { ClickInWorkout("butInstructions"); }
    /// A skin like the tests' own under another name, with these settings besides: "Position/MenuLeft=20".
    void GivenSkin(const QString &Name, const QStringList &Settings = {}) const;
    /// A folder of the program as it is delivered: a game's, or a skin's, "skins/Meadow". Before Start.
    void GivenDelivered(const QString &Name) const;
    /// A game folder with these settings: lines of the section [config]. Before Start.
    void GivenGame(const QString &FolderName, const QStringList &Config) const;

private:
    void ClickInWorkout(const char *Name) const;
    QWidget *ShownOf(const char *Name) const; // the element of a control array that can be seen
    void ClickRow(const char *Panel, const std::function<bool(const PanelSurface &)> &IsIt) const;
    using Answer = std::function<bool()>; // false while there is nothing to answer
    QDateTime Moment();
    void Poll();
    void TakePlainBox();
    void WatchForStuck();

    frmNoggle *m_Window = nullptr;
    QObject m_Polling;
    std::vector<Answer> m_Awaited;
    QPointer<QWidget> m_Dialog; // the one open, and how long it has been
    QElapsedTimer m_SinceDialog;
    QElapsedTimer m_SinceStart;
    double m_Offset = 0; // [s] added to the machine's clock
    bool m_InStart = false;
    bool m_LeftAlone = false;
    int m_Looks = 0; // at the clock, during the start
};
