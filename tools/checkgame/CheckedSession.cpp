#include "tools/checkgame/CheckedSession.h"

#include "tools/checkgame/GameFolder.h"
#include "tools/checkgame/ThreadTime.h"
#include "tools/checkgame/WatchedFramework.h"

#include "platform/Convert.h"
#include "platform/RuntimeError.h"
#include "platform/VirtualKeys.h"

#include <QApplication>
#include <QEventLoop>
#include <QImage>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QTimer>

#include <array>
#include <deque>

namespace
{
constexpr std::array Sizes{QSize(620, 420), QSize(632, 440), QSize(860, 560), QSize(1200, 760)};
constexpr int WatchedPause = 25;    // [ms] for which a hidden game is watched
constexpr int WatchedSessions = 20; // in which it is; later ones only let waiting events through
constexpr std::array<int, 16> OtherKeys{Qt::Key_Return, Qt::Key_Space, Qt::Key_Left,      Qt::Key_Right,
                                        Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Backspace, Qt::Key_Delete,
                                        Qt::Key_Tab,    Qt::Key_Home,  Qt::Key_F1,        Qt::Key_Shift,
                                        Qt::Key_Comma,  Qt::Key_End,   Qt::Key_Insert,    Qt::Key_AE};

QString Quoted(const QString &verb) { return u'"' + verb + u'"'; }
} // namespace

CheckedSession::CheckedSession(const Plan &Plan, const GameFolder &Folder, Report &Report, QWidget &Window,
                               std::function<void(const QString &)> Doing)
    : m_Plan(Plan),
      m_Folder(Folder),
      m_Report(Report),
      m_Window(Window),
      m_Doing(std::move(Doing)),
      m_Random(Plan.Seed)
{}

CheckedSession::Figures CheckedSession::Play(const Maker &Make)
{
    // never deleted: a game that forgot a timer calls it later
    static auto &frameworks = *new std::deque<WatchedFramework>;
    m_Framework = &frameworks.emplace_back(*this, m_Folder, m_Report, m_Plan.Seed);
    m_Clock.start();
    if (this->Make(Make)) {
        if (m_Plan.End != Ending::AbandonBeforeStart) Start();
        for (const Act act : m_Plan.Acts) {
            if (IsOver()) break;
            Do(act);
            if (!m_Control && !m_Ended)
                m_Report.Mend(QStringLiteral("It deletes itself: the program makes and deletes games."));
        }
        if (!IsOver() && m_Hidden) Pause();
        if (!IsOver() && m_Plan.End == Ending::TimeUp) Verb(QStringLiteral("timeup"));
        if (!IsOver()) Finish(m_Plan.End == Ending::TimeUp);
    }
    Turn(0);
    if (!m_Ended) m_Framework->Close();
    Guarded(QStringLiteral("its end"), [this] { delete m_Control.data(); });
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != &m_Window && window->isVisible()) {
            m_Report.Mend(QStringLiteral("It leaves a window open when it is taken away."));
            window->hide();
        }
    return m_Figures;
}

bool CheckedSession::Make(const Maker &make)
{
    if (!Guarded(QStringLiteral("its creation"), [&] { m_Control = make(&m_Window); })) return false;
    if (!m_Control) {
        m_Report.Mend(QStringLiteral("Its library lists the class and does not make it."));
        return false;
    }
    if (m_Control->isWindow() || m_Control->isVisible())
        m_Report.Mend(QStringLiteral("It comes as a window, or shown: make it a hidden child of Container."));
    m_Control->hide();
    m_Control->setParent(&m_Window, Qt::Widget);
    Guarded(QStringLiteral("SetNoggleFrameWork"), [this] { m_Control->SetNoggleFrameWork(m_Framework); });
    return m_Control != nullptr;
}

void CheckedSession::Start()
{
    const QSize size = Sizes[static_cast<std::size_t>(m_Plan.Number) % Sizes.size()];
    m_Dark = m_Plan.Number % 2 == 0;
    m_Framework->SetDark(m_Dark);
    m_Window.resize(size);
    Guarded(QStringLiteral("its place"), [&] {
        m_Control->setGeometry(QRect(QPoint(0, 0), size));
        m_Control->show();
    });
    m_Started = true;
    Verb(QStringLiteral("start"), m_Plan.Level);
    if (!IsOver()) LookAtPicture();
    m_Figures.Start = static_cast<double>(m_Clock.nsecsElapsed()) / 1e6;
}

void CheckedSession::LookAtPicture()
{
    QImage picture(m_Control->size(), QImage::Format_RGB32);
    QImage ground = picture;
    Guarded(QStringLiteral("its drawing"), [&] { m_Control->render(&picture); });
    if (m_Plan.Number > WatchedSessions) return;
    QPainter painter(&ground);
    PaintGround(painter, m_Dark);
    if (picture == ground) m_Report.Note(QStringLiteral("It draws nothing after \"start\" but the background."));
}

void CheckedSession::Do(Act act)
{
    switch (act) {
    case Act::Key:
        return Key();
    case Act::Click:
        return Click();
    case Act::Skin:
        m_Dark = !m_Dark;
        m_Framework->SetDark(m_Dark);
        Verb(QStringLiteral("changeskin"));
        break;
    case Act::Score:
        Score();
        break;
    case Act::Resize: {
        const QSize size = Sizes[static_cast<std::size_t>(m_Random.Between(0, static_cast<int>(Sizes.size()) - 1))];
        Guarded(QStringLiteral("a new size"), [&] { m_Control->resize(size); });
        if (!IsOver() && !m_Hidden) LookAtPicture();
        break;
    }
    case Act::Pause:
        return Pause();
    case Act::Turn:
        m_Doing(QStringLiteral("its own timers"));
        Turn(m_Random.Between(0, 4));
        break;
    }
}

// The verb, and the key event for who has the focus, as in the program.
void CheckedSession::Key()
{
    const int kind = m_Random.Between(0, 3);
    const int key = kind == 0   ? m_Random.Between(Qt::Key_A, Qt::Key_Z)
                    : kind == 1 ? m_Random.Between(Qt::Key_0, Qt::Key_9)
                                : OtherKeys[static_cast<std::size_t>(m_Random.Between(0, OtherKeys.size() - 1))];
    const bool hasText = kind < 2;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, hasText ? QString(QChar(key)) : QString());
    Verb(QStringLiteral("keypress"), QVariant::fromValue<short>(VirtualKeyOf(press)));
    if (IsOver() || m_Hidden) return;
    QWidget *focus = m_Control->focusWidget();
    Guarded(QStringLiteral("a key"), [&] { QApplication::sendEvent(focus ? focus : m_Control.data(), &press); });
}

void CheckedSession::Click()
{
    if (m_Hidden) return;
    const QPoint place(m_Random.Between(0, m_Control->width() - 1), m_Random.Between(0, m_Control->height() - 1));
    QWidget *const child = m_Control->childAt(place);
    const QPointer<QWidget> target = child ? child : m_Control.data();
    const QPointF local = target->mapFrom(m_Control, place);
    const auto send = [&](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons) {
        if (IsOver() || !target) return;
        QMouseEvent event(type, local, target->mapToGlobal(local), button, buttons, Qt::NoModifier);
        Guarded(QStringLiteral("a click"), [&] { QApplication::sendEvent(target, &event); });
    };
    send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
    send(m_Random.Between(1, 5) == 1 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, Qt::LeftButton,
         Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void CheckedSession::Pause()
{
    if (m_Hidden) {
        JudgeHidden();
        if (IsOver()) return;
        m_Hidden = false;
        Guarded(QStringLiteral("being shown"), [this] { m_Control->show(); });
        return;
    }
    m_PointsWhenHidden = Score();
    if (IsOver()) return;
    m_Hidden = true;
    Guarded(QStringLiteral("being hidden"), [this] { m_Control->hide(); });
    Turn(m_Plan.Number <= WatchedSessions ? WatchedPause : 0);
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != &m_Window && window->isVisible())
            m_Report.Mend(QStringLiteral("A window of its own is still seen while the game is paused. Draw it inside "
                                         "the game, or ask by MsgBox."));
}

void CheckedSession::JudgeHidden()
{
    if (m_Control->isVisible())
        m_Report.Mend(QStringLiteral("It shows itself while it is paused: only the program shows a game."));
    for (QWidget *grabber : {QWidget::keyboardGrabber(), QWidget::mouseGrabber()}) {
        if (grabber == nullptr) continue;
        m_Report.Mend(QStringLiteral("It holds on to the keyboard or the mouse (grabKeyboard, grabMouse): the menu "
                                     "can't be reached."));
        grabber->releaseKeyboard();
        grabber->releaseMouse();
    }
    if (Score() != m_PointsWhenHidden)
        m_Report.Mend(
            QStringLiteral("Its points change while it is hidden: hidden means paused, so take no keys then "
                           "and stop your clocks."));
}

void CheckedSession::GameOver()
{
    if (m_Verb == u"start")
        m_Report.Mend(QStringLiteral("It says \"gameover\" inside \"start\": nobody has seen it yet."));
    else if (m_Verb == u"timeup" || m_Verb == u"score" || m_Verb == u"unload")
        return m_Report.Mend(
            QStringLiteral("It says \"gameover\" inside %1: the session ends there by itself.").arg(Quoted(m_Verb)));
    else if (!m_Started)
        return m_Report.Mend(QStringLiteral("It says \"gameover\" before \"start\"."));
    if (m_Hidden) m_Report.Mend(QStringLiteral("It says \"gameover\" while it is hidden: hidden means paused."));
    Finish(true);
}

void CheckedSession::Finish(bool withScore)
{
    if (m_Ended) return;
    if (withScore) Score();
    if (m_Control) Verb(QStringLiteral("unload"));
    TakeAway();
}

void CheckedSession::TakeAway()
{
    m_Ended = true;
    m_Framework->Close();
    if (!m_Control) return;
    for (QWidget *grabber : {QWidget::keyboardGrabber(), QWidget::mouseGrabber()})
        if (grabber != nullptr) {
            grabber->releaseKeyboard();
            grabber->releaseMouse();
        }
    Guarded(QStringLiteral("being taken away"), [this] {
        m_Control->hide();
        const auto children = m_Control->findChildren<QWidget *>();
        for (QWidget *child : children)
            if (child->isWindow()) child->hide();
    });
}

int CheckedSession::Score()
{
    const std::optional<QVariant> answer = Verb(QStringLiteral("score"));
    return answer ? JudgedPoints(*answer) : 0;
}

int CheckedSession::JudgedPoints(const QVariant &answer)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[+-]?(\\d|\\.\\d)"));
    const bool isText = answer.typeId() == QMetaType::QString;
    if (!answer.isValid()) {
        m_Report.Mend(QStringLiteral("It answers \"score\" with nothing: that counts 0."));
    } else if (isText && !number.match(answer.toString()).hasMatch()) {
        m_Report.Mend(QStringLiteral("It answers \"score\" with the text \"%1\", which starts with no number: that "
                                     "counts 0.")
                          .arg(answer.toString()));
    } else if (!isText && !answer.canConvert<double>()) {
        m_Report.Mend(QStringLiteral("It answers \"score\" with neither a number nor a text: that counts 0."));
    }
    try {
        const int points = NumberIn(answer);
        if (points < 0) m_Report.Note(QStringLiteral("It answers \"score\" with a number below 0."));
        return points;
    } catch (...) {
        m_Report.Mend(QStringLiteral("It answers \"score\" with a number that is too large: the session is lost."));
        return 0;
    }
}

std::optional<QVariant> CheckedSession::Verb(const QString &cmd, const QVariant &info)
{
    QVariant answer;
    const QString before = std::exchange(m_Verb, cmd);
    const bool cameThrough = Guarded(Quoted(cmd), [&] {
        QVariant first = info;
        QVariant second = 0;
        answer = m_Control->Message(cmd, first, second);
    });
    m_Verb = before;
    return cameThrough ? std::optional(answer) : std::nullopt;
}

// A timer that comes while the work still runs tells of a loop of the game's own.
bool CheckedSession::Guarded(const QString &doing, const std::function<void()> &work)
{
    const bool wasInAct = std::exchange(m_InAct, true);
    const int act = ++m_Acts;
    m_Doing(doing);
    QTimer::singleShot(0, &m_Guard, [this, act, doing] {
        if (m_InAct && act == m_Acts && !m_Waits) Waits(doing);
    });
    const double before = ThreadTime();
    bool cameThrough = false;
    try {
        work();
        cameThrough = true;
    } catch (...) {
        m_Report.Mend(QStringLiteral("It throws at %1: %2").arg(doing, DescriptionOf(std::current_exception())));
    }
    const double taken = ThreadTime() - before;
    if (taken > m_Figures.SlowestAct) {
        m_Figures.SlowestAct = taken;
        m_Figures.Slowest = doing;
    }
    m_InAct = wasInAct;
    return cameThrough;
}

// As the program would, should the player leave the game meanwhile. What the game calls afterwards is no fault.
void CheckedSession::Waits(const QString &doing)
{
    m_Report.Note(QStringLiteral("It waits in an event loop of its own at %1: the session may end meanwhile. MsgBox "
                                 "asks, timers wait.")
                      .arg(doing));
    m_Framework->Forgive();
    m_Waits = true;
    Finish(false);
}

void CheckedSession::Turn(int milliseconds) const
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void CheckedSession::PaintGround(QPainter &Painter, bool Dark)
{
    constexpr int Beyond = 4000; // larger than any game area
    QLinearGradient ground(0, 0, 0, 600);
    ground.setColorAt(0, Dark ? QColor(0x18, 0x22, 0x2c) : QColor(0xfa, 0xfd, 0xfb));
    ground.setColorAt(1, Dark ? QColor(0x0e, 0x14, 0x1a) : QColor(0xe0, 0xf0, 0xe8));
    Painter.fillRect(0, 0, Beyond, Beyond, ground);
}
