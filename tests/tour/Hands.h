// What a person does at the screen, and sees there. The tour's story runs on a thread of its own and tells the person
// what to do: each act reaches the program as an event between two others, also while a dialog is open, and the story
// goes on when the program waits for its user again. So a story reads from top to bottom.
//
// Events go to windows at a place, as the display system delivers them: what is covered, hidden or barred by a dialog
// does not get them.
#pragma once

#include "TourFailure.h"

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWindow>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <utility>

class Camera;
class TourClock;

class Hands
{
public:
    struct Place
    {
        QPointer<QWindow> window;
        QPoint point; // [px] in the window
    };

    Hands(Camera &Camera, TourClock &Clock) : m_Camera(Camera), m_Clock(Clock) {}

    // ---- to do; each returns when the program waits again. Failure: passed on, when it can't be done. -----------

    /// A click on the control of that name, in the dialog on top or else in the main window. Where several have the
    /// name, "ctlGamePlaySummary1/lblTime" tells in which other control it is.
    void Click(const QString &Name);
    /// A press on a row of a list of buttons, by its caption.
    void ClickRow(const QString &Panel, const QString &Caption);
    void ClickMenu(const QString &Caption) { ClickRow(QStringLiteral("ctlButtonPanel1"), Caption); }
    /// A click into the running game, as shares of its width and height.
    void ClickGame(double Across, double Down);
    void Type(const QString &Text);
    void Press(Qt::Key Key);
    /// The same without waiting: for the act that ends the program.
    void ClickLast(const QString &Name);
    void Picture(const QString &Name);
    /// Whether pictures are kept from now on.
    void KeepPictures(bool Keep) { m_KeepsPictures = Keep; }
    /// The clock moves forward at once.
    void PassTime(int Seconds);
    /// The same, to nine o'clock of the next day.
    void PassToNextMorning();
    /// A timer of the window on top goes as fast as it can.
    void Quicken(const QString &Timer);
    /// Just looks on. [s]
    void Wait(int Seconds);
    /// Takes the minimised window back onto the screen, as a task bar does.
    void Restore();

    // ---- to see ---------------------------------------------------------------------------------------------------

    bool Sees(const QString &Name);
    /// The caption or text of a control. Failure: passed on, when it can't be seen.
    QString Reads(const QString &Name);
    /// What it tells a screen reader besides its name. Failure: passed on, when it can't be seen.
    QString Describes(const QString &Name);
    /// The names of the controls that can be seen and begin so, from top to bottom.
    QStringList SeesAll(const QString &BeginningOfName);
    QStringList Rows(const QString &Panel);
    bool SeesGame();
    /// What the running game tells a screen reader, empty without one.
    QString GameName();
    QString GameDescription();
    bool IsMinimized();
    /// Failure: passed on, when it does not come true in half a minute, and when a box of the platform comes up.
    void WaitUntil(const QString &What, const std::function<bool()> &IsSo);
    void WaitFor(const QString &Name);
    /// Until the program waits for its user.
    void Settle();

    /// The answer of a question put on the interface thread. Failure: passed on.
    template <typename Question>
    auto Ask(Question question) -> decltype(question())
    {
        if (IsProgramsThread()) return question(); // a question in a question
        std::packaged_task<decltype(question())()> task(std::move(question));
        auto answer = task.get_future();
        const auto shared = std::make_shared<decltype(task)>(std::move(task));
        Post([shared] { (*shared)(); });
        if (answer.wait_for(Patience) != std::future_status::ready)
            throw TourFailure(QStringLiteral("The program does not answer."));
        return answer.get();
    }

private:
    static constexpr std::chrono::seconds Patience{30};
    static bool IsProgramsThread();
    void Post(std::function<void()> Act);
    void Act(std::function<void()> Act);
    void PointAt(const Place &place);
    void ClickAt(const std::function<Place()> &FindPlace);

    Camera &m_Camera;
    TourClock &m_Clock;
    bool m_KeepsPictures = true;
};
