// The catalogue at a start, and the lists of results, each beside its floor: what the bare engine needs for the same
// rows in the same run. "ratio" is ours by the floor; times are in milliseconds.
#include "BenchStore.h"
#include "domain/Store.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "platform/Files.h"
#include "shell/program/modMain.h"
#include "tests/support/RecordingFramework.h"
#include "tests/support/Records.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <limits>
#include <map>

namespace
{
constexpr std::int32_t Million = 1'000'000;
constexpr int GameFolders = 1000;

TestStore &StoreWith(std::int32_t Results)
{
    static std::map<std::int32_t, std::unique_ptr<TestStore>> stores;
    auto &store = stores[Results];
    if (!store) {
        store = std::make_unique<TestStore>();
        BareStore(*store).Fill(Results);
    }
    SetProgramFolder(store->Folder().Path());
    modMain::ForgetConnection();
    return *store;
}

// Takes turns between the two, so that both see the same machine, and keeps the best of each.
class Race
{
public:
    void Run(
        benchmark::State &state, const std::function<void()> &ours, const std::function<void()> &floor,
        const std::function<void()> &before = [] {})
    {
        for ([[maybe_unused]] auto turn : state) {
            before();
            m_Floor = std::min(m_Floor, Seconds(floor));
            before();
            const double taken = Seconds(ours);
            m_Ours = std::min(m_Ours, taken);
            state.SetIterationTime(taken);
        }
        state.counters["best"] = m_Ours * 1000;
        state.counters["floor"] = m_Floor * 1000;
        state.counters["ratio"] = m_Ours / m_Floor;
    }

private:
    double m_Ours = std::numeric_limits<double>::max();
    double m_Floor = std::numeric_limits<double>::max();
};

CPlayer PlayerOne()
{
    CPlayer player;
    player.Key = 1;
    return player;
}

// A history of half of the results.
void GamesPlayed(benchmark::State &state)
{
    BareStore bare(StoreWith(Million));
    modMain::GetConnection();
    const auto ours = [&] { state.counters["rows"] = PlayerOne().GamesPlayed().Count(); };
    const auto floor = [&] {
        bare.Walk("select * from GamePlayed where GamePlayedPlayer=? order by GamePlayedTimestamp", {1});
    };
    Race().Run(state, ours, floor);
}

// A leaderboard of half of the results.
void BestTimes(benchmark::State &state)
{
    BareStore bare(StoreWith(Million));
    modMain::GetConnection();
    CGame game;
    game.Key = 1;
    const auto ours = [&] { state.counters["rows"] = game.BestTimes(1, 3)->Count(); };
    const auto floor = [&] {
        bare.Walk("select * from GamePlayed where GamePlayedGame=? and GamePlayedLevel=? and GamePlayedMode=? "
                  "order by GamePlayedScore desc, GamePlayedTime, gamePlayedTimestamp",
                  {1, 1, 3});
    };
    Race().Run(state, ours, floor);
}

// What the practice screen shows of it. The floor is the bare loop up to its fifth row.
void BestTable(benchmark::State &state)
{
    BareStore bare(StoreWith(Million));
    modMain::GetConnection();
    CGame game;
    game.Key = 1;
    const auto ours = [&] { state.counters["rows"] = game.BestTimes(1, 3, 5)->Count(); };
    const auto floor = [&] {
        bare.Walk("select * from GamePlayed where GamePlayedGame=? and GamePlayedLevel=? and GamePlayedMode=? "
                  "order by GamePlayedScore desc, GamePlayedTime, gamePlayedTimestamp limit 5",
                  {1, 1, 3});
    };
    Race().Run(state, ours, floor);
}

void Workouts(benchmark::State &state)
{
    BareStore bare(StoreWith(Million));
    modMain::GetConnection();
    const auto ours = [&] { state.counters["rows"] = PlayerOne().Workouts().Count(); };
    const auto floor = [&] {
        bare.Walk("select * from Workout where WorkOutPlayer=? order by WorkoutTimestamp", {1});
    };
    Race().Run(state, ours, floor);
}

// The results of a hundred workouts, one list each: what a history of workouts shows.
void ResultsOfWorkouts(benchmark::State &state)
{
    constexpr std::int32_t Lists = 100;
    BareStore bare(StoreWith(Million));
    modMain::GetConnection();
    const auto ours = [&] {
        std::int32_t rows = 0;
        for (std::int32_t key = 1; key <= Lists; ++key) {
            CWorkout workout;
            workout.Key = key;
            rows += workout.GamesPlayed().Count();
        }
        state.counters["rows"] = rows;
    };
    const auto floor = [&] {
        for (std::int32_t key = 1; key <= Lists; ++key)
            bare.Walk("select * from GamePlayed where GamePlayedWorkout=? order by GamePlayedTimestamp", {key});
    };
    Race().Run(state, ours, floor);
}

// The chart's series of one category.
void GameData(benchmark::State &state)
{
    BareStore bare(StoreWith(Million));
    modMain::GetConnection();
    std::vector<double> dates;
    std::vector<double> points;
    const auto ours = [&] {
        PlayerOne().GetGameData(1, dates, points, 1);
        state.counters["rows"] = static_cast<double>(dates.size());
    };
    const auto floor = [&] {
        bare.Walk("select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=? and GamePlayedMode=? "
                  "order by GamePlayedTimestamp",
                  {1, 1, 1});
    };
    Race().Run(state, ours, floor);
}

// Beside one row of the same statement. The history is the argument: the time must not follow it.
void NextGameToPlay(benchmark::State &state)
{
    BareStore bare(StoreWith(static_cast<std::int32_t>(state.range(0))));
    LoadRecords();
    const auto next = [](std::int32_t category) { benchmark::DoNotOptimize(PlayerOne().NextGameToPlay(category)); };
    const auto ours = [&] {
        for (std::int32_t category = 1; category <= 11; ++category) next(category); // the last was never played
    };
    const auto floor = [&] {
        for (std::int32_t category = 1; category <= 11; ++category)
            bare.Walk("select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=? limit 1",
                      {category, 1});
    };
    Race().Run(state, ours, floor);
}

// The floor reads each settings file once and writes each row twice, in one commit.
void BareCatalogue(const TestStore &store, BareStore &bare, bool isKnown)
{
    for (const QString &entry : EntriesOf(store.Folder().Path())) {
        const QString path = store.Folder().Path() + entry + QStringLiteral("/GameSettings.ini");
        if (FileExists(path)) benchmark::DoNotOptimize(ReadFile(path));
    }
    const char *update = "update Game set GameName = GameName, GameTimeLimit = 60 where GameKey = ?";
    const char *insert = "insert into Game (GameKey) values (?)";
    bare.Execute("begin");
    for (std::int32_t key = 1; key <= GameFolders; ++key) bare.Walk(isKnown ? update : insert, {key});
    for (std::int32_t key = 1; key <= GameFolders; ++key) bare.Walk(update, {key});
    bare.Execute("commit");
}

void Catalogue(benchmark::State &state, bool isKnown)
{
    TestStore store;
    WriteGameFolders(store.Folder(), GameFolders);
    BareStore bare(store);
    LoadRecords();
    int commits = 0;
    BareStore::CountCommits(modMain::GetConnection().Handle(), commits);
    const auto ours = [&] {
        commits = 0;
        LoadRecords();
    };
    const auto forget = [&] {
        if (!isKnown) bare.Execute("delete from Game; delete from Category");
    };
    Race().Run(
        state, ours, [&] { BareCatalogue(store, bare, isKnown); }, forget);
    state.counters["commits"] = commits;
    state.counters["games"] = modMain::Games->Count();
}
void CatalogueOfNewGames(benchmark::State &state) { Catalogue(state, false); }
void CatalogueOfKnownGames(benchmark::State &state) { Catalogue(state, true); }

constexpr auto Milliseconds = benchmark::kMillisecond;
BENCHMARK(CatalogueOfNewGames)->UseManualTime()->Unit(Milliseconds)->Iterations(5);
BENCHMARK(CatalogueOfKnownGames)->UseManualTime()->Unit(Milliseconds)->Iterations(5);
BENCHMARK(NextGameToPlay)->Arg(1000)->Arg(Million)->UseManualTime()->Unit(Milliseconds)->Iterations(200);
BENCHMARK(GamesPlayed)->UseManualTime()->Unit(Milliseconds)->Iterations(7);
BENCHMARK(BestTimes)->UseManualTime()->Unit(Milliseconds)->Iterations(7);
BENCHMARK(BestTable)->UseManualTime()->Unit(Milliseconds)->Iterations(200);
BENCHMARK(Workouts)->UseManualTime()->Unit(Milliseconds)->Iterations(50);
BENCHMARK(ResultsOfWorkouts)->UseManualTime()->Unit(Milliseconds)->Iterations(50);
BENCHMARK(GameData)->UseManualTime()->Unit(Milliseconds)->Iterations(20);
} // namespace

int main(int argc, char *argv[])
{
    RecordingFramework::Install();
    modMain::Language = QStringLiteral("0");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
