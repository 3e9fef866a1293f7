#include "tests/shell/support/RunningProgram.h"

#include "platform/Clock.h"
#include "platform/Files.h"

#include "services/CResource.h"
#include "services/colSound.h"
#include "services/modIniFile.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"
#include "domain/CWorkout.h"
#include "domain/Store.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"

#include "skin/CSkin.h"
#include "skin/PanelSurface.h"
#include "skin/colSkin.h"
#include "skin/frmMsgBox.h"

#include "shell/StartUp.h"
#include "shell/frmScore.h"

#include "tests/support/Records.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDirIterator>
#include <QEventLoop>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace
{
const QString Dist = QStringLiteral(NOGGLE_DIST "/");
const QDateTime Morning(QDate(2026, 3, 2), QTime(10, 0));
constexpr int PollInterval = 5; // [ms]
constexpr int Patience = 10000; // [ms] for what is awaited to come
constexpr int QuickReveal = 5;  // [ms] between the lines of a score dialog

void CopyTree(const QString &Source, const QString &Name, const TestFolder &Folder)
{
    QDirIterator files(Source, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        Folder.Copy(file, Name + file.mid(Source.size()));
    }
}

void ForgetObjects()
{
    using namespace modMain;
    ForgetRecords();
    CurrentSkin.reset();
    Skins.reset();
    ShellSounds.reset();
    Framework.reset();
    Resources.reset();
}

// As a person does: at a place of a window, whatever lies there.
void ClickAt(const QWidget *Control, QPoint Place)
{
    const QWidget *const window = Control->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, Control->mapTo(window, Place));
}

QPoint MiddleOf(const QWidget *Control) { return Control->mapTo(Control->window(), Control->rect().center()); }

// The normal surfaces of the menu, by their places. Those given up are hidden until they are deleted.
std::vector<PanelSurface *> MenuRows(const QWidget *Panel)
{
    std::vector<PanelSurface *> rows;
    static const QRegularExpression normal(QStringLiteral("^picNormal"));
    for (PanelSurface *surface : Panel->findChildren<PanelSurface *>(normal))
        if (!surface->isHidden()) rows.push_back(surface);
    std::sort(rows.begin(), rows.end(), [](const auto *one, const auto *other) { return one->y() < other->y(); });
    return rows;
}

bool IsLit(const QWidget *Panel, const PanelSurface &Row)
{
    const QString hover = QStringLiteral("picHover") + Row.objectName().mid(QStringLiteral("picNormal").size());
    const auto surfaces = Panel->findChildren<PanelSurface *>(hover); // those given up among them
    return std::any_of(surfaces.begin(), surfaces.end(), [](const auto *surface) { return surface->isVisible(); });
}

std::vector<LarkButton *> PlayerButtonsOf(const QWidget *List)
{
    std::vector<LarkButton *> shown;
    for (LarkButton *button : List->findChildren<LarkButton *>())
        if (!button->isHidden()) shown.push_back(button);
    std::sort(shown.begin(), shown.end(), [](const auto *one, const auto *other) { return one->y() < other->y(); });
    return shown;
}
} // namespace

RunningProgram::RunningProgram(const QStringList &Games)
{
    Folder.Copy(QStringLiteral(NOGGLE_STORE), QStringLiteral("Noggle.mdb"));
    Folder.Copy(Dist + QStringLiteral("0.dll"), QStringLiteral("0.dll"));
    CopyTree(Dist + QStringLiteral("sounds"), QStringLiteral("sounds"), Folder);
    CopyTree(QStringLiteral(NOGGLE_PLAIN_SKIN), QStringLiteral("skins/Plain"), Folder);
    for (const QString &game : Games) CopyTree(Dist + game, game, Folder);
    m_SinceStart.start();
}

RunningProgram::~RunningProgram()
{
    Stop();
    if (!HasAnsweredAll()) ADD_FAILURE() << m_Awaited.size() << " dialogs that were awaited never came";
}

QDateTime RunningProgram::Moment()
{
    // A start takes what the test says, however busy the machine is; its first look is that of the splash.
    if (m_InStart && ++m_Looks == 2) m_Offset += StartTakes;
    return Morning.addMSecs((m_InStart ? 0 : m_SinceStart.elapsed()) + static_cast<qint64>(m_Offset * 1000));
}

bool RunningProgram::Start()
{
    m_InStart = true;
    m_Looks = 0;
    SetClock([this] { return Moment(); });
    QTimer::singleShot(PollInterval, &m_Polling, [this] { Poll(); });
    const bool runs = modMain::Main();
    m_InStart = false;
    m_SinceStart.restart();
    m_Window = static_cast<frmNoggle *>(modMain::Form);
    if (runs && !QTest::qWaitForWindowExposed(m_Window)) ADD_FAILURE() << "the main window did not come up";
    return runs;
}

void RunningProgram::Stop()
{
    m_Window = nullptr;
    modMain::ReleaseWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ForgetObjects();
    modMain::ForgetConnection();
    SetClock({});
}

int RunningProgram::End()
{
    QTimer::singleShot(0, m_Window, [this] {
        AnswerNextBox("cmd1");
        ClickMenu(QStringLiteral("exit"));
        if (m_Window->isVisible()) QCoreApplication::exit(StillRunning);
    });
    return QApplication::exec();
}

bool RunningProgram::Sees(const char *Name) const { return Find(Name)->isVisible(); }

void RunningProgram::Click(QWidget *Control) const
{
    if (!Control->isVisible()) qFatal("%s is not visible", qPrintable(Control->objectName()));
    LastClick = MiddleOf(Control);
    ClickAt(Control, Control->rect().center());
}

QStringList RunningProgram::MenuKeys() const
{
    QStringList keys;
    for (const PanelSurface *row : MenuRows(Find("ctlButtonPanel1"))) keys << row->Tag;
    return keys;
}

QStringList RunningProgram::MenuCaptions() const
{
    QStringList captions;
    for (const PanelSurface *row : MenuRows(Find("ctlButtonPanel1"))) captions << row->accessibleName();
    return captions;
}

void RunningProgram::ClickMenu(const QString &Key) const
{
    ClickRow("ctlButtonPanel1", [&](const PanelSurface &row) { return row.Tag == Key; });
}

void RunningProgram::ClickRow(const char *Panel, const QString &Caption) const
{
    ClickRow(Panel, [&](const PanelSurface &row) { return row.accessibleName() == Caption; });
}

void RunningProgram::ClickRow(const char *Panel, const std::function<bool(const PanelSurface &)> &IsIt) const
{
    const auto rows = MenuRows(Find(Panel));
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto *one) { return IsIt(*one); });
    if (row == rows.end()) qFatal("%s has no such row", Panel);
    QWindow *const window = m_Window->windowHandle();
    // The pointer comes along over other rows; a row is pressed through what lights up under it. The light goes out
    // again where the panel finds the desktop's own pointer elsewhere before the press. Then the row is approached
    // once more, from beside its middle, since a pointer that stays in its place does not move.
    const auto lights = [&] {
        for (const PanelSurface *other : rows)
            if (other != *row) QTest::mouseMove(window, MiddleOf(other));
        QTest::mouseMove(window, MiddleOf(*row) + QPoint(1, 0));
        QTest::mouseMove(window, MiddleOf(*row));
        return IsLit(Find(Panel), **row);
    };
    if (!Until(lights)) qFatal("%s does not light up", qPrintable((*row)->Tag));
    QTest::mouseClick(window, Qt::LeftButton, {}, MiddleOf(*row));
}

void RunningProgram::PressKey(Qt::Key Key) const
{
    QWindow *const window = QGuiApplication::focusWindow();
    if (window == nullptr) qFatal("no window has the focus");
    QTest::keyClick(window, Key);
}

void RunningProgram::Poll()
{
    if (m_LeftAlone) return;
    // A timer of its own for each look: one that repeats does not come while its own handler still runs a loop.
    QTimer::singleShot(PollInterval, &m_Polling, [this] { Poll(); });
    TakePlainBox();
    WatchForStuck();
    if (m_Awaited.empty()) return;
    const Answer first = m_Awaited.front();
    m_Awaited.erase(m_Awaited.begin());
    if (!first()) m_Awaited.insert(m_Awaited.begin(), first);
}

int RunningProgram::WakesWithin(int Milliseconds)
{
    m_LeftAlone = true;
    Turn(2 * PollInterval); // what was still to come of the tests' own comes now
    QEventLoop loop;
    QTimer::singleShot(Milliseconds, Qt::CoarseTimer, &loop, &QEventLoop::quit);
    QCoreApplication::processEvents(); // a timer that is new wakes the dispatcher once
    int wakes = 0;
    const auto counting = QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                                           &loop, [&wakes] { ++wakes; });
    loop.exec();
    QObject::disconnect(counting);
    m_LeftAlone = false;
    Poll();
    return wakes - 1; // the end of the while
}

bool RunningProgram::ComesToRest()
{
    constexpr int While = 1200; // [ms] more than twice the slowest timer that repeats
    for (int look = 0; look < Patience / While; ++look)
        if (WakesWithin(While) <= 0) return true;
    return false;
}

void RunningProgram::TakePlainBox()
{
    auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    PlainBoxes << box->text();
    if (WhilePlainBox) WhilePlainBox();
    box->accept();
}

void RunningProgram::WatchForStuck()
{
    auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog != m_Dialog) m_SinceDialog.restart();
    m_Dialog = dialog;
    if (dialog == nullptr || m_SinceDialog.elapsed() < Patience) return;
    const auto *const label = dialog->findChild<TransLabel *>(QStringLiteral("Label"));
    ADD_FAILURE() << "nobody could close the dialog " << qPrintable(dialog->objectName()) << " "
                  << (label != nullptr ? qPrintable(label->Caption()) : "");
    m_Dialog = nullptr;
    dialog->hide();
}

void RunningProgram::AnswerNextBox(const char *Button, const QString &Text, const std::function<void()> &Meanwhile)
{
    m_Awaited.push_back([this, button = QByteArray(Button), Text, Meanwhile] {
        auto *const box = qobject_cast<frmMsgBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isActiveWindow()) return false; // a person waits until it is there
        Boxes << box->findChild<TransLabel *>(QStringLiteral("Label"))->Caption();
        if (Meanwhile) Meanwhile();
        if (!Text.isEmpty()) QTest::keyClicks(box->findChild<QLineEdit *>(QStringLiteral("txtAnswer")), Text);
        Click(box->findChild<LarkButton *>(QLatin1String(button)));
        return true;
    });
}

void RunningProgram::CloseNextScore(const std::function<void()> &Meanwhile)
{
    m_Awaited.push_back([this, Meanwhile] {
        auto *const score = qobject_cast<frmScore *>(QApplication::activeModalWidget());
        if (score == nullptr || !score->isActiveWindow()) return false;
        auto *const reveal = score->findChild<QTimer *>(QStringLiteral("tmrShow"));
        if (reveal->interval() != QuickReveal)
            reveal->setInterval(QuickReveal); // each time sets it back to its start
        auto *const ok = score->findChild<LarkButton *>(QStringLiteral("butOK"));
        if (!ok->isVisible()) return false;
        if (Meanwhile) Meanwhile();
        Totals.push_back(score->findChild<TransLabel *>(QStringLiteral("lblTotal"))->Caption().toInt());
        Click(ok);
        return true;
    });
}

void RunningProgram::Turn(int Milliseconds) { QTest::qWait(Milliseconds); }

bool RunningProgram::Until(const std::function<bool()> &IsSo) { return QTest::qWaitFor(IsSo, Patience); }

QList<QVariantList> RunningProgram::Rows(const QString &Sql) const
{
    QList<QVariantList> rows;
    const auto set = modMain::GetRecordset(Sql);
    for (; !set->Eof(); set->MoveNext()) {
        QVariantList row;
        for (int column = 0; column < set->ColumnCount(); ++column) row << set->Value(column);
        rows << row;
    }
    return rows;
}

void RunningProgram::NewPlayer(const QString &Name)
{
    AnswerNextBox("cmd1", Name);
    Click(PlayerButtonsOf(Find("ctlPlayerlist1")).back());
}

QStringList RunningProgram::PlayerButtons() const
{
    QStringList captions;
    for (const LarkButton *button : PlayerButtonsOf(Find("ctlPlayerlist1"))) captions << button->Caption();
    return captions;
}

void RunningProgram::ClickPlayer(const QString &Caption) const
{
    for (LarkButton *button : PlayerButtonsOf(Find("ctlPlayerlist1")))
        if (button->Caption() == Caption) return Click(button);
    qFatal("no player %s", qPrintable(Caption));
}

void RunningProgram::ChoosePractice(const QString &Category, const QString &GameName) const
{
    ClickRow("cCatList", Category);
    ClickRow("cGameList", GameName);
}

void RunningProgram::ClickInWorkout(const char *Name) const
{
    if (Sees("butNextWorkout")) Click("butNextWorkout");
    Click(ShownOf(Name));
}

QWidget *RunningProgram::ShownOf(const char *Name) const
{
    const QRegularExpression element(QStringLiteral("^%1\\(").arg(QLatin1String(Name)));
    for (QWidget *control : m_Window->findChildren<QWidget *>(element))
        if (control->isVisible()) return control;
    qFatal("no %s can be seen", Name);
}

void RunningProgram::GivenSkin(const QString &Name, const QStringList &Settings) const
{
    const QString folder = QStringLiteral("skins/") + Name;
    CopyTree(QStringLiteral(NOGGLE_PLAIN_SKIN), folder, Folder);
    for (const QString &setting : Settings)
        WriteIniString(setting.section(u'/', 0, 0), setting.section(u'/', 1).section(u'=', 0, 0),
                       setting.section(u'=', 1), Folder.Path() + folder + QStringLiteral("/Skin.ini"));
}

void RunningProgram::GivenDelivered(const QString &Name) const { CopyTree(Dist + Name, Name, Folder); }

void RunningProgram::GivenGame(const QString &FolderName, const QStringList &Config) const
{
    const QString lines = QStringLiteral("[config]\r\n") + Config.join(QStringLiteral("\r\n"));
    Folder.Write(FolderName + QStringLiteral("/GameSettings.ini"), (lines + QStringLiteral("\r\n")).toUtf8());
}
