// From a click to the painted screen: the whole program over a store of 8 players, 200 games and 100,000 results, its
// real clicks, and in the same run what a bare window of the same size needs to be painted anew. Times are in
// milliseconds; the middle turn of each counts, since it is what a person mostly meets, and the worst is told.
#include "BenchStore.h"
#include "Painted.h"
#include "RunBenches.h"
#include "platform/Files.h"
#include "platform/store/Connection.h"
#include "platform/store/Statement.h"
#include "shell/program/modMain.h"
#include "skin/PanelSurface.h"
#include "skin/ScreenSize.h"

#include "domain/colPlayer.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QPainter>
#include <QRegularExpression>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <vector>

namespace
{
constexpr double Frame = 16; // [ms]

// Player 1 has 3,000 workouts of ten results; the others share 20,000 results of workouts. Half of the practice is of
// one game at one level, the worst case of the table of best results.
const char *const Filling[] = {
    "begin",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 8) "
    "insert into Player (PlayerName) select 'Player ' || n from N",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 10) "
    "insert into Category (CategoryName) select 'Category ' || char(64 + n) from N",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 200) insert into Game (GameName, "
    "GameComponent, GameTimeLimit, GameCategory) select 'Game ' || (1000 + n), 'C', 60, n % 10 + 1 from N",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 5000) insert into Workout "
    "(WorkoutPlayer, WorkoutPoints, WorkoutStatus, WorkoutMode, WorkoutTimestamp) "
    "select case when n <= 3000 then 1 else n % 7 + 2 end, 0, n not in (3000, 4999), 1, 43083 + n % 3001 from N",
    "insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, "
    "GamePlayedPoints, GamePlayedTime, GamePlayedMode, GamePlayedLevel, GamePlayedAward, GamePlayedUploaded, "
    "GamePlayedWorkout) select WorkoutPlayer, First, WorkoutTimestamp + 0.4, 50, "
    "(WorkoutKey * 37 + First * 91) % 150, 30, 1, 1, 0, 0, WorkoutKey from Workout, (select min(GameKey) as First "
    "from Game group by GameCategory) where WorkoutKey not in (3000, 4999)",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 50020) insert into GamePlayed "
    "(GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, GamePlayedPoints, GamePlayedTime, "
    "GamePlayedMode, GamePlayedLevel, GamePlayedAward, GamePlayedUploaded) select n % 8 + 1, "
    "case when n % 2 = 0 then 10 else n % 200 + 1 end, 43083 + n * 0.05, n * 7919 % 1000, 50, n * 31 % 600, 3, 1, 0, "
    "0 from N",
    "commit"};

std::unique_ptr<RunningProgram> program; // ends before the application does

void Fill(const QString &path)
{
    Connection store;
    store.Open(path);
    for (const char *sql : Filling) Execute(store.Handle(), sql);
}

RunningProgram &Program()
{
    if (program) return *program;
    SetScreenSize({1600, 1200});
    program = std::make_unique<RunningProgram>();
    program->GivenDelivered(QStringLiteral("skins/Meadow"));
    Fill(program->Folder.Path() + QStringLiteral("Noggle.mdb"));
    // One game has its folder, and in it instructions as they are delivered.
    program->GivenGame(QStringLiteral("read"),
                       {QStringLiteral("name=Game 1010"), QStringLiteral("component=C"),
                        QStringLiteral("timelimit=60"), QStringLiteral("category=Category A")});
    program->Folder.Write(QStringLiteral("read/Instructions.rtf"),
                          ReadFile(QStringLiteral(NOGGLE_DIST "/echo-step/Instructions.rtf")));
    if (!program->Start()) qFatal("the program does not start");
    const auto asked = [](const char *table) {
        return program->Ask(QStringLiteral("select count(*) from ") + QLatin1String(table)).toInt();
    };
    if (asked("Player") != 8 || asked("Game") != 200 || asked("GamePlayed") != 100'000) qFatal("another store");
    return *program;
}

class BareWindow final : public QWidget
{
public:
    explicit BareWindow(const QImage &picture) : m_Picture(picture)
    {
        resize(picture.size());
        show();
        if (!QTest::qWaitForWindowExposed(this)) qFatal("the bare window does not show");
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, m_Picture); }

private:
    QImage m_Picture;
};

void Race(benchmark::State &state, const std::function<void()> &setUp, const std::function<void()> &click)
{
    RunningProgram &running = Program();
    PaintCount paints;
    BareWindow bare(running.Window().grab().toImage());
    std::vector<double> ours, floor;
    for ([[maybe_unused]] auto turn : state) {
        setUp();
        Drain();
        const int before = paints.Count;
        ours.push_back(1000 * Seconds([&] {
                           click();
                           Drain();
                       }));
        if (paints.Count == before) return state.SkipWithError("nothing was painted");
        floor.push_back(1000 * Seconds([&] {
                            bare.update();
                            Drain();
                        }));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["middle"] = Middle(ours);
    state.counters["worst"] = *std::max_element(ours.begin(), ours.end());
    state.counters["floor"] = Middle(floor);
    state.counters["of_frame"] = Middle(ours) / Frame;
}

QPoint MiddleOf(const QWidget &control) { return control.mapTo(control.window(), control.rect().center()); }

void ClickOn(const char *name)
{
    const QWidget &control = *Program().Find(name);
    QTest::mouseClick(control.window()->windowHandle(), Qt::LeftButton, {}, MiddleOf(control));
}

// The row lights up before; what is measured begins with the press.
QPoint LightUp(const char *panel, const QString &caption)
{
    static const QRegularExpression normal(QStringLiteral("^picNormal"));
    for (const PanelSurface *row : Program().Find(panel)->findChildren<PanelSurface *>(normal)) {
        if (row->isHidden() || row->accessibleName() != caption) continue;
        const QPoint place = MiddleOf(*row);
        QWindow *window = Program().Window().windowHandle();
        const auto isLit = [&] {
            const QWidget *over = Program().Window().childAt(place);
            return over != nullptr && over->objectName().startsWith(u"picHover");
        };
        QTest::mouseMove(window, QPoint(Program().Window().width() / 2, 2));
        QTest::mouseMove(window, place);
        if (!RunningProgram::Until(isLit)) qFatal("%s does not light up", qPrintable(caption));
        return place;
    }
    qFatal("no row %s", qPrintable(caption));
}

void Press(const QPoint &place) { QTest::mouseClick(Program().Window().windowHandle(), Qt::LeftButton, {}, place); }

void RaceRow(benchmark::State &state, const char *panel, const QString &caption, const std::function<void()> &setUp)
{
    QPoint place;
    Race(
        state,
        [&] {
            setUp();
            place = LightUp(panel, caption);
        },
        [&] { Press(place); });
}

void ToPlayers()
{
    if (Program().Window().Mode() != 0) Program().ClickMenu(QStringLiteral("change player"));
}

// As after a start: nothing of the player was read yet.
void ToFreshPlayer()
{
    ToPlayers();
    modMain::Players->Load();
    Program().ClickPlayer(QStringLiteral("Player 1"));
}

void ToPractice()
{
    if (Program().Window().Mode() == 0) Program().ClickPlayer(QStringLiteral("Player 1"));
    Program().ClickMenu(QStringLiteral("practice"));
}

void ChoosePlayer(benchmark::State &state)
{
    Race(
        state, [] { ToPlayers(), modMain::Players->Load(); }, [] { ClickOn("butPlayer(0)"); });
}
void ChangePlayer(benchmark::State &state)
{
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Change player"), ToPractice);
}
void PracticeScreen(benchmark::State &state)
{
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Practice"), [] {
        ToPractice();
        Program().ClickMenu(QStringLiteral("progress"));
    });
}
void PracticeCategory(benchmark::State &state)
{
    bool other = false;
    QPoint place;
    Race(
        state,
        [&] {
            ToPractice();
            other = !other;
            place = LightUp("cCatList", other ? QStringLiteral("Category A") : QStringLiteral("Category B"));
        },
        [&] { Press(place); });
}
// The game that half of the practice is of, which shows its levels and the table of its first one.
void PracticeGame(benchmark::State &state)
{
    RaceRow(state, "cGameList", QStringLiteral("Game 1010"), [] {
        ToPractice();
        Program().ClickRow("cCatList", QStringLiteral("Category B"));
        Program().ClickRow("cCatList", QStringLiteral("Category A"));
    });
}
void WorkoutFirstTime(benchmark::State &state)
{
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Workout"), ToFreshPlayer);
}
void WorkoutAgain(benchmark::State &state)
{
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Workout"), ToPractice);
}
void ReadInstructions(benchmark::State &state)
{
    Race(
        state,
        [] {
            ToPractice();
            Program().ClickRow("cCatList", QStringLiteral("Category B")); // a chosen row can't be pressed
            Program().ClickRow("cCatList", QStringLiteral("Category A"));
            Program().ClickRow("cGameList", QStringLiteral("Game 1010"));
        },
        [] { ClickOn("cmdInstructions"); });
    Program().Click("butCancelGame");
}
void WorkoutTile(benchmark::State &state)
{
    bool other = false;
    Race(
        state,
        [&] {
            if (Program().Window().Mode() != 6) Program().ClickMenu(QStringLiteral("exercise"));
            other = !other;
        },
        [&] { ClickOn(other ? "picCat(1)" : "picCat(2)"); });
}
void ProgressFirstTime(benchmark::State &state)
{
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Progress"), ToFreshPlayer);
}
// One turn in a process, and only before all others: the first chart since the start, after a second on the choice of
// player. Events are looked for all the while, so that the processor is as awake as for the other clicks.
void FirstChart(benchmark::State &state)
{
    Program();
    QElapsedTimer second;
    for (second.start(); second.elapsed() < 1000;) QCoreApplication::processEvents();
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Progress"), ToFreshPlayer);
}
void ProgressAgain(benchmark::State &state)
{
    RaceRow(state, "ctlButtonPanel1", QStringLiteral("Progress"), ToPractice);
}
} // namespace

#define SCREEN(Name) BENCHMARK(Name)->UseManualTime()->Iterations(31)->Unit(benchmark::kMillisecond)
BENCHMARK(FirstChart)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
SCREEN(ChoosePlayer);
SCREEN(ChangePlayer);
SCREEN(PracticeScreen);
SCREEN(PracticeCategory);
SCREEN(PracticeGame);
SCREEN(ReadInstructions);
SCREEN(WorkoutFirstTime);
SCREEN(WorkoutAgain);
SCREEN(WorkoutTile);
SCREEN(ProgressFirstTime);
SCREEN(ProgressAgain);

int main(int argc, char *argv[]) { return RunBenches(argc, argv, program); }
