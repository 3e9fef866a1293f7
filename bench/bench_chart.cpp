// The progress chart of 3,000 workouts in 12 categories: its drawing beside one frame of the screen, and the screen
// that shows it beside the bare engine's reading of the same rows. Times are in milliseconds.
#include "BenchStore.h"
#include "domain/CPlayer.h"
#include "domain/Store.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "platform/Files.h"
#include "platform/LarkChart.h"
#include "screens/ctlUserInfo.h"
#include "shell/program/modMain.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <limits>

namespace
{
constexpr QSize ScreenSize(632, 505); // [px]
constexpr std::int32_t WorkoutCount = 3000, CategoryCount = 12;
constexpr double Frame = 16; // [ms]

const char *const Filling[] = {
    "begin",
    "insert into Player (PlayerName) values ('Ann')",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 12) "
    "insert into Category (CategoryName) select 'Category ' || n from N",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 12) "
    "insert into Game (GameName, GameComponent, GameTimeLimit, GameCategory) select 'Game ' || n, 'C', 60, n from N",
    "with recursive N(n) as (values(1) union all select n + 1 from N where n < 3000) insert into Workout "
    "(WorkoutPlayer, WorkoutPoints, WorkoutStatus, WorkoutMode, WorkoutTimestamp) select 1, 0, 1, 1, 40000 + n from "
    "N",
    "insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, "
    "GamePlayedPoints, "
    "GamePlayedTime, GamePlayedMode, GamePlayedLevel, GamePlayedAward, GamePlayedUploaded, GamePlayedWorkout) "
    "select 1, GameKey, WorkoutTimestamp, 50, (WorkoutKey * 37 + GameKey * 91) % 150, 30, 1, 1, 0, 0, WorkoutKey "
    "from Workout, Game",
    "commit"};

TestStore &FilledStore()
{
    static const auto store = [] {
        auto made = std::make_unique<TestStore>();
        BareStore bare(*made);
        for (const char *sql : Filling) bare.Execute(sql);
        return made;
    }();
    SetProgramFolder(store->Folder().Path());
    modMain::ForgetConnection();
    modMain::GetConnection();
    return *store;
}

std::shared_ptr<CPlayer> PlayerOne()
{
    auto player = std::make_shared<CPlayer>();
    player->Key = 1;
    return player;
}

void Report(benchmark::State &state, double best, double floor)
{
    state.counters["best"] = best * 1000;
    state.counters["floor"] = floor * 1000;
    state.counters["ratio"] = best / floor;
}

// The floor is one frame.
void DrawChart(benchmark::State &state)
{
    LarkChart chart;
    chart.resize(ScreenSize);
    chart.evenspacing = true;
    chart.xmin = 1;
    chart.xmax = WorkoutCount;
    chart.xgridspacing = 150;
    for (int i = 1; i <= CategoryCount; ++i) {
        ChartSeries &series = chart.Series(QStringLiteral("Category %1").arg(i));
        for (int n = 0; n < WorkoutCount; ++n) {
            series.X.push_back(40000 + n);
            series.Y.push_back((n * 37 + i * 91) % 150);
        }
        series.Style = i % 6 + 1;
    }
    double best = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto turn : state) {
        const double taken = Seconds([&] {
            chart.Redraw();
            chart.grab();
        });
        best = std::min(best, taken);
        state.SetIterationTime(taken);
    }
    Report(state, best, Frame / 1000);
}

// From the click to the chart, for a player whose workouts were not read before, and again.
void ShowProgress(benchmark::State &state, bool Again)
{
    BareStore bare(FilledStore());
    modMain::Categories = std::make_shared<colCategory>();
    modMain::Games = std::make_shared<colGame>();
    modMain::Categories->Load();
    modMain::Games->Load();
    double best = std::numeric_limits<double>::max();
    double floor = best;
    QWidget area;
    ctlUserInfo screen(&area);
    screen.resize(ScreenSize);
    modMain::CurrentPlayer = PlayerOne();
    screen.ShowDetails(2);
    for ([[maybe_unused]] auto turn : state) {
        if (!Again) modMain::CurrentPlayer = PlayerOne();
        floor = std::min(floor, Seconds([&] {
                             bare.Walk("select * from Workout where WorkOutPlayer=? order by WorkoutTimestamp", {1});
                             bare.Walk(
                                 "select GamePlayedWorkout, GamePlayedGame, GamePlayedPoints from Workout cross join "
                                 "GamePlayed on GamePlayedWorkout=WorkoutKey where WorkoutPlayer=? order by "
                                 "WorkoutTimestamp, WorkoutKey, GamePlayedTimestamp, GamePlayedKey",
                                 {1});
                         }));
        const double taken = Seconds([&] { screen.ShowDetails(2); });
        best = std::min(best, taken);
        state.SetIterationTime(taken);
    }
    Report(state, best, floor);
    modMain::CurrentPlayer.reset();
    modMain::Games.reset();
    modMain::Categories.reset();
}

BENCHMARK(DrawChart)->UseManualTime()->Iterations(30)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShowProgress, FirstTime, false)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShowProgress, Again, true)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
