#include "shell/GameGraveyard.h"

#include "platform/Step.h"
#include "shell/GameFramework.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace
{
struct Grave
{
    QPointer<QWidget> control;
    std::shared_ptr<GameTie> tie;
    int eventLoop;

    // Nothing of the game is on the stack: neither in a call that is counted nor below a nested loop.
    // The program's own loop is the first; before it runs, a loop started by hand stands for it.
    bool MayGo() const { return tie->Depth == 0 && QThread::currentThread()->loopLevel() <= std::max(eventLoop, 1); }
};

class Graveyard
{
public:
    // kept to the end of the process: the application may be gone before static objects are
    static Graveyard &The()
    {
        static auto &the = *new Graveyard;
        return the;
    }
    void Take(Grave grave);
    int Count() const { return static_cast<int>(m_Graves.size()); }

private:
    void Clear();
    void Watch();

    std::vector<Grave> m_Graves;
    QPointer<QWidget> m_Keeper; // parent of what waits; never shown, so nothing below it can show itself
    QMetaObject::Connection m_Watch;
};

void Graveyard::Take(Grave grave)
{
    if (!m_Keeper) m_Keeper = new QWidget;
    grave.control->setParent(m_Keeper, Qt::Widget);
    m_Graves.push_back(std::move(grave));
    Watch();
}

// About to wait means that the loop has nothing left to deliver; nothing is polled.
void Graveyard::Watch()
{
    if (!m_Watch) {
        m_Watch = QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                                   m_Keeper, [this] { Clear(); });
    }
    // outside of any loop events may be handed out without ever waiting for one
    if (QThread::currentThread()->loopLevel() == 0) QTimer::singleShot(0, m_Keeper, [this] { Clear(); });
}

void Graveyard::Clear()
{
    const auto ready =
        std::stable_partition(m_Graves.begin(), m_Graves.end(), [](const Grave &grave) { return !grave.MayGo(); });
    const std::vector<Grave> going(ready, m_Graves.end()); // a destructor may come back here
    m_Graves.erase(ready, m_Graves.end());
    for (const Grave &grave : going) delete grave.control.data();
    if (m_Graves.empty()) {
        QObject::disconnect(m_Watch);
        m_Watch = {};
    }
}

bool Within(const QWidget *game, const QWidget *widget)
{
    for (const QObject *object = widget; object != nullptr; object = object->parent()) {
        if (object == game) return true;
    }
    return false;
}

void ReleaseInput(QWidget *game)
{
    if (QWidget *holder = QWidget::keyboardGrabber(); Within(game, holder)) holder->releaseKeyboard();
    if (QWidget *holder = QWidget::mouseGrabber(); Within(game, holder)) holder->releaseMouse();
    if (QWidget *holder = QApplication::focusWidget(); Within(game, holder)) holder->clearFocus();
}

// Hiding a parent leaves its windows open; hiding a dialog ends the loop in which it waits.
void HideWindowsOf(QWidget *game)
{
    const QList<QWidget *> children = game->findChildren<QWidget *>();
    for (const QPointer<QWidget> &child : QList<QPointer<QWidget>>(children.begin(), children.end())) {
        if (child && child->isWindow()) Step([&] { child->hide(); });
    }
}
} // namespace

void BuryGame(QWidget *Control, const std::shared_ptr<GameTie> &Tie, int EventLoop)
{
    const QPointer<QWidget> control(Control); // its own handlers run below
    Step([&] { HideWindowsOf(control); });
    if (control) Step([&] { control->hide(); });
    if (control) Step([&] { ReleaseInput(control); });
    if (control) Graveyard::The().Take({control, Tie, EventLoop});
}

int BuriedGames() { return Graveyard::The().Count(); }
