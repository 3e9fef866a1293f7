#include "Hands.h"

#include "Camera.h"
#include "TourClock.h"

#include "shell/program/modMain.h"

#include "sdk/CGameArea.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"

#include "skin/PanelSurface.h"

#include "shell/frmNoggle.h"

#include <QAbstractEventDispatcher>
#include <QCursor>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTextEdit>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace
{
constexpr int Glance = 20;    // [ms] between two looks at what is awaited
constexpr int Quick = 20;     // [ms]
constexpr int Steadying = 60; // [ms] in which what was drawn reaches the screen

QWidget &TopWindow()
{
    if (QWidget *modal = QApplication::activeModalWidget()) return *modal;
    if (modMain::Form == nullptr) throw TourFailure(QStringLiteral("There is no window."));
    return *modMain::Form->Window();
}

// Some of it at least lies inside of all that holds it; rows that are scrolled away can't be seen.
bool CanBeSeen(const QWidget *control)
{
    if (!control->isVisible()) return false;
    QRect part = control->rect();
    for (const QWidget *widget = control; !widget->isWindow(); widget = widget->parentWidget())
        part = part.translated(widget->pos()) & widget->parentWidget()->rect();
    return !part.isEmpty();
}

QWidget *Seen(const QString &name)
{
    if (QApplication::activeModalWidget() == nullptr && modMain::Form == nullptr) return nullptr;
    QWidget *holder = &TopWindow();
    if (name.contains(u'/')) holder = holder->findChild<QWidget *>(name.section(u'/', 0, 0));
    if (holder == nullptr) return nullptr;
    for (QWidget *control : holder->findChildren<QWidget *>(name.section(u'/', -1)))
        if (CanBeSeen(control)) return control;
    return nullptr;
}

QWidget &Named(const QString &name)
{
    QWidget *control = Seen(name);
    if (control == nullptr) throw TourFailure(QStringLiteral("%1 can't be seen.").arg(name));
    return *control;
}

QList<PanelSurface *> RowsOf(const QString &panel)
{
    QList<PanelSurface *> rows;
    for (PanelSurface *row : Named(panel).findChildren<PanelSurface *>())
        if (row->objectName().startsWith(u"picNormal") && CanBeSeen(row)) rows << row;
    std::sort(rows.begin(), rows.end(), [](const QWidget *a, const QWidget *b) { return a->y() < b->y(); });
    return rows;
}

CGameArea *Game()
{
    const auto *const ground = modMain::Form == nullptr
                                   ? nullptr
                                   : modMain::Form->Window()->findChild<QWidget *>(QStringLiteral("picPrint"));
    if (ground == nullptr) return nullptr;
    for (QObject *child : ground->children())
        if (auto *game = dynamic_cast<CGameArea *>(child); game != nullptr && CanBeSeen(game)) return game;
    return nullptr;
}

QString TextOf(const QWidget &control)
{
    if (const auto *label = qobject_cast<const TransLabel *>(&control)) return label->Caption();
    if (const auto *button = qobject_cast<const LarkButton *>(&control)) return button->Caption();
    if (const auto *box = qobject_cast<const QLineEdit *>(&control)) return box->text();
    if (const auto *page = qobject_cast<const QTextEdit *>(&control)) return page->toPlainText();
    return control.accessibleName();
}

// A place of a control on its window, which a click there would reach: the control itself, what lies in it, or a
// surface of the same button.
QPoint PlaceIn(const QWidget &control, const QPoint &place)
{
    const QPoint onWindow = control.mapTo(control.window(), place);
    const QWidget *const reached = control.window()->childAt(onWindow);
    const bool isSurface = qobject_cast<const PanelSurface *>(&control) != nullptr;
    const QWidget *const owner = isSurface ? control.parentWidget() : &control;
    if (reached == nullptr || (reached != owner && !owner->isAncestorOf(reached)))
        throw TourFailure(QStringLiteral("%1 is covered by %2.")
                              .arg(control.objectName(), reached == nullptr
                                                             ? QStringLiteral("nothing that feels the mouse")
                                                             : reached->objectName()));
    return onWindow;
}

void CheckForPlainBox()
{
    if (const auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
        throw TourFailure(QStringLiteral("The program says: ") + box->text());
}
} // namespace

bool Hands::IsProgramsThread() { return QThread::currentThread() == qApp->thread(); }

void Hands::Post(std::function<void()> Act) { QMetaObject::invokeMethod(qApp, std::move(Act), Qt::QueuedConnection); }

void Hands::Settle()
{
    const auto idle = std::make_shared<std::promise<void>>();
    auto waits = idle->get_future();
    Post([idle] {
        // Emitted by a loop that is about to wait for the next event, never while events are let through in between.
        auto *const dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(
            dispatcher, &QAbstractEventDispatcher::aboutToBlock, dispatcher, [idle] { idle->set_value(); },
            static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    });
    if (waits.wait_for(Patience) != std::future_status::ready)
        throw TourFailure(QStringLiteral("The program does not come to rest."));
}

// An act may open a dialog, and then it returns when that has been closed; so nobody waits for its return.
void Hands::Act(std::function<void()> Act)
{
    const auto failure = std::make_shared<std::exception_ptr>();
    Post([act = std::move(Act), failure] {
        try {
            act();
        } catch (...) {
            *failure = std::current_exception();
        }
    });
    Settle();
    const auto thrown = Ask([failure] { return *failure; });
    if (thrown) std::rethrow_exception(thrown);
}

void Hands::PointAt(const Place &place)
{
    Act([place] {
        // The pointer itself goes there as well: some controls ask where it is.
        QCursor::setPos(place.window->mapToGlobal(place.point));
        QTest::mouseMove(place.window, place.point);
    });
}

void Hands::ClickAt(const std::function<Place()> &FindPlace)
{
    const Place place = Ask(FindPlace);
    PointAt(place);
    Act([place] { QTest::mousePress(place.window, Qt::LeftButton, {}, place.point); });
    Act([place] {
        if (place.window) QTest::mouseRelease(place.window, Qt::LeftButton, {}, place.point);
    });
}

namespace
{
Hands::Place MiddleOf(const QWidget &control)
{
    return {control.window()->windowHandle(), PlaceIn(control, control.rect().center())};
}
} // namespace

void Hands::Click(const QString &Name)
{
    ClickAt([Name] { return MiddleOf(Named(Name)); });
}

void Hands::ClickLast(const QString &Name)
{
    const Place place = Ask([Name] { return MiddleOf(Named(Name)); });
    Post([place] { QTest::mouseClick(place.window, Qt::LeftButton, {}, place.point); });
}

// A row feels a press once it has lit up under the pointer.
void Hands::ClickRow(const QString &Panel, const QString &Caption)
{
    const auto place = [=] {
        for (const PanelSurface *row : RowsOf(Panel))
            if (row->accessibleName() == Caption) return MiddleOf(*row);
        throw TourFailure(QStringLiteral("%1 has no row \"%2\".").arg(Panel, Caption));
    };
    PointAt(Ask(place));
    WaitUntil(QStringLiteral("the light of the row ") + Caption, [=] {
        const QWidget *const reached = TopWindow().childAt(place().point);
        return reached != nullptr && reached->objectName().startsWith(u"picHover");
    });
    ClickAt(place);
}

void Hands::ClickGame(double Across, double Down)
{
    ClickAt([=] {
        const CGameArea *const game = Game();
        if (game == nullptr) throw TourFailure(QStringLiteral("There is no game to click into."));
        const QPoint place(qRound(game->width() * Across), qRound(game->height() * Down));
        return Place{game->window()->windowHandle(), PlaceIn(*game, place)};
    });
}

void Hands::Type(const QString &Text)
{
    for (const char letter : Text.toLatin1()) Act([letter] { QTest::keyClick(TopWindow().windowHandle(), letter); });
}

void Hands::Press(Qt::Key Key)
{
    const QPointer<QWindow> window = Ask([] { return QPointer<QWindow>(TopWindow().windowHandle()); });
    Act([=] { QTest::keyPress(window, Key); });
    Act([=] {
        if (window) QTest::keyRelease(window, Key);
    });
}

void Hands::Picture(const QString &Name)
{
    if (!m_KeepsPictures) return;
    Settle();
    QThread::msleep(Steadying);
    WaitUntil(QStringLiteral("something to be seen for ") + Name, [this] { return m_Camera.SeesSomething(); });
    Ask([&] { m_Camera.Take(Name); });
}

void Hands::PassTime(int Seconds) { m_Clock.MoveOn(Seconds); }

void Hands::PassToNextMorning()
{
    const QDateTime now = m_Clock.Moment();
    m_Clock.MoveOn(static_cast<int>(now.secsTo(QDateTime(now.date().addDays(1), QTime(9, 0)))));
}

void Hands::Quicken(const QString &Timer)
{
    Ask([&] {
        auto *const timer = TopWindow().findChild<QTimer *>(Timer);
        if (timer == nullptr) throw TourFailure(QStringLiteral("There is no %1.").arg(Timer));
        timer->setInterval(Quick);
    });
}

void Hands::Wait(int Seconds) { QThread::sleep(static_cast<unsigned long>(Seconds)); }

void Hands::Restore()
{
    Act([] {
        modMain::Form->Window()->showNormal();
        modMain::Form->Window()->activateWindow();
    });
}

bool Hands::Sees(const QString &Name)
{
    return Ask([&] { return Seen(Name) != nullptr; });
}

QString Hands::Reads(const QString &Name)
{
    return Ask([&] { return TextOf(Named(Name)); });
}

QString Hands::Describes(const QString &Name)
{
    return Ask([&] { return Named(Name).accessibleDescription(); });
}

QStringList Hands::SeesAll(const QString &BeginningOfName)
{
    return Ask([&] {
        QWidgetList seen;
        for (QWidget *control : TopWindow().findChildren<QWidget *>())
            if (control->objectName().startsWith(BeginningOfName) && CanBeSeen(control)) seen << control;
        const auto top = [](const QWidget *control) { return control->mapTo(control->window(), QPoint()).y(); };
        std::sort(seen.begin(), seen.end(), [&](const QWidget *a, const QWidget *b) { return top(a) < top(b); });
        QStringList names;
        for (const QWidget *control : seen) names << control->objectName();
        return names;
    });
}

QStringList Hands::Rows(const QString &Panel)
{
    return Ask([&] {
        QStringList captions;
        for (const PanelSurface *row : RowsOf(Panel)) captions << row->accessibleName();
        return captions;
    });
}

bool Hands::SeesGame()
{
    return Ask([] { return Game() != nullptr && QApplication::activeModalWidget() == nullptr; });
}

QString Hands::GameName()
{
    return Ask([] { return Game() == nullptr ? QString() : Game()->accessibleName(); });
}

QString Hands::GameDescription()
{
    return Ask([] { return Game() == nullptr ? QString() : Game()->accessibleDescription(); });
}

bool Hands::IsMinimized()
{
    return Ask([] { return modMain::Form->Window()->isMinimized(); });
}

void Hands::WaitUntil(const QString &What, const std::function<bool()> &IsSo)
{
    QElapsedTimer waited;
    waited.start();
    while (!Ask([&] { return CheckForPlainBox(), IsSo(); })) {
        if (waited.elapsed() > std::chrono::milliseconds(Patience).count())
            throw TourFailure(QStringLiteral("Waited in vain for %1.").arg(What));
        QThread::msleep(Glance);
    }
    Settle();
}

void Hands::WaitFor(const QString &Name)
{
    WaitUntil(Name, [&] { return Seen(Name) != nullptr; });
}
