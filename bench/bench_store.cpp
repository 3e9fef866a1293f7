// The store with 1,000 and with 1,000,000 results: each list beside the engine's own loop over the same rows, and
// what must not grow with the history.
#include "domain/Store.h"
#include "domain/colGamePlayed.h"
#include "platform/Files.h"
#include "platform/store/Statement.h"

#include <benchmark/benchmark.h>

#include <sqlite3.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
// Nine of ten results are of game 1 in category 1, at level 1 in mode 1; the others go round games 2 to 21 in
// categories 2 to 11. Category 12 was never played; category 13 was, with the very first result.
constexpr int NeverPlayed = 12;
constexpr int LongAgo = 13;
constexpr const char *Fill = R"sql(
    begin;
    with recursive n(i) as (values (1) union all select i + 1 from n where i < 23)
    insert into Game (GameName, GameCategory)
    select 'Game ' || i, case when i = 1 then 1 when i = 22 then 12 when i = 23 then 13 else 2 + (i - 2) / 2 end from n;
    with recursive n(i) as (values (0) union all select i + 1 from n where i < %1 - 1)
    insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, GamePlayedPoints,
        GamePlayedTime, GamePlayedMode, GamePlayedLevel, GamePlayedAward, GamePlayedUploaded, GamePlayedWorkout)
    select 1, case when i = 0 then 23 when i % 10 = 0 then 2 + (i / 10) % 20 else 1 end, 40000 + i / 1000.0,
        (i * 7919) % 1000, (i * 104729) % 1500, i % 60, 1, 1, i % 3 = 0, 0, 1 + i / 5 from n;
    commit;
)sql";

QString FilledStore(const QString &folder, qint64 results)
{
    QFile::copy(QStringLiteral(NOGGLE_STORE), folder + u"/Noggle.mdb"_s);
    sqlite3 *handle = nullptr;
    sqlite3_open((folder + u"/Noggle.mdb"_s).toUtf8().constData(), &handle);
    Execute(handle, QString::fromUtf8(Fill).arg(results).toUtf8().constData());
    sqlite3_close(handle);
    return folder + u'/';
}

// Stores are made once a size and kept until the program ends.
void UseStore(qint64 results)
{
    static std::map<qint64, std::unique_ptr<QTemporaryDir>> stores;
    auto &folder = stores[results];
    if (!folder) {
        folder = std::make_unique<QTemporaryDir>();
        FilledStore(folder->path(), results);
    }
    SetProgramFolder(folder->path() + u'/');
    modMain::ForgetConnection();
    modMain::GetConnection();
}

struct Result
{
    std::int32_t Key, Player, Game, Score, Points, Time, Mode, Level, Award, Workout;
    double Timestamp;
    bool Uploaded;
};

const char16_t *const ByPlayer = u"select * from GamePlayed where GamePlayedPlayer=? order by GamePlayedTimestamp";
const char16_t *const Best =
    u"select * from GamePlayed where GamePlayedGame=? and GamePlayedLevel=? and GamePlayedMode=? order by "
    u"GamePlayedScore desc, GamePlayedTime, gamePlayedTimestamp";
const char16_t *const ByCategory = u"select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=?";
const char16_t *const Progress =
    u"select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=? order by GamePlayedTimestamp";

QString Text(const char16_t *sql) { return QStringView(sql).toString(); }

sqlite3_stmt *Prepared(const char16_t *sql, int values)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare16_v2(modMain::GetConnection().Handle(), sql, -1, &statement, nullptr);
    for (int at = 1; at <= values; ++at) sqlite3_bind_int(statement, at, 1);
    return statement;
}

Result RawRow(sqlite3_stmt *row)
{
    return {sqlite3_column_int(row, 0),  sqlite3_column_int(row, 1),    sqlite3_column_int(row, 2),
            sqlite3_column_int(row, 4),  sqlite3_column_int(row, 5),    sqlite3_column_int(row, 6),
            sqlite3_column_int(row, 7),  sqlite3_column_int(row, 8),    sqlite3_column_int(row, 9),
            sqlite3_column_int(row, 11), sqlite3_column_double(row, 3), sqlite3_column_int(row, 10) != 0};
}

Result NamedRow(const Recordset &row)
{
    return {row.Long(u"GamePlayedKey"),     row.Long(u"GamePlayedPlayer"),    row.Long(u"GamePlayedGame"),
            row.Long(u"GamePlayedScore"),   row.Long(u"GamePlayedPoints"),    row.Long(u"GamePlayedTime"),
            row.Long(u"GamePlayedMode"),    row.Long(u"GamePlayedLevel"),     row.Long(u"GamePlayedAward"),
            row.Long(u"GamePlayedWorkout"), row.Date(u"GamePlayedTimestamp"), row.Flag(u"GamePlayedUploaded")};
}

void RawList(benchmark::State &state, const char16_t *sql, int values)
{
    UseStore(state.range(0));
    for ([[maybe_unused]] auto turn : state) {
        std::vector<Result> results;
        sqlite3_stmt *statement = Prepared(sql, values);
        while (sqlite3_step(statement) == SQLITE_ROW) results.push_back(RawRow(statement));
        sqlite3_finalize(statement);
        state.counters["rows"] = static_cast<double>(results.size());
        benchmark::DoNotOptimize(results);
    }
}

void RecordsetList(benchmark::State &state, const char16_t *sql, int values)
{
    UseStore(state.range(0));
    for ([[maybe_unused]] auto turn : state) {
        std::vector<Result> results;
        for (const auto set = modMain::GetRecordset(Text(sql), QVariantList(values, 1)); !set->Eof(); set->MoveNext())
            results.push_back(NamedRow(*set));
        state.counters["rows"] = static_cast<double>(results.size());
        benchmark::DoNotOptimize(results);
    }
}

void RecordsList(benchmark::State &state, void (*filter)(colGamePlayed &))
{
    UseStore(state.range(0));
    for ([[maybe_unused]] auto turn : state) {
        colGamePlayed list;
        filter(list);
        list.Load();
        state.counters["rows"] = list.Count();
    }
}

void OfPlayer(colGamePlayed &list) { list.SetPlayer(1); }
void OfGame(colGamePlayed &list) { list.SetGame(1), list.SetLevel(1), list.SetMode(1); }

void RawProgress(benchmark::State &state)
{
    UseStore(state.range(0));
    const auto columns = modMain::GetRecordset(Text(Progress), QVariantList{1, 1});
    const int timestamp = columns->Column(u"GamePlayedTimestamp");
    const int points = columns->Column(u"GamePlayedPoints");
    for ([[maybe_unused]] auto turn : state) {
        std::vector<std::pair<double, double>> results;
        sqlite3_stmt *statement = Prepared(Progress, 2);
        while (sqlite3_step(statement) == SQLITE_ROW)
            results.emplace_back(sqlite3_column_double(statement, timestamp),
                                 sqlite3_column_double(statement, points));
        sqlite3_finalize(statement);
        state.counters["rows"] = static_cast<double>(results.size());
    }
}

void RecordsetProgress(benchmark::State &state)
{
    UseStore(state.range(0));
    for ([[maybe_unused]] auto turn : state) {
        std::vector<std::pair<double, double>> results;
        for (const auto set = modMain::GetRecordset(Text(Progress), QVariantList{1, 1}); !set->Eof(); set->MoveNext())
            results.emplace_back(set->Date(u"GamePlayedTimestamp"), set->Long(u"GamePlayedPoints"));
        state.counters["rows"] = static_cast<double>(results.size());
    }
}

// What the choice of the next game asks for: the first row alone.
void Newest(benchmark::State &state, int category)
{
    UseStore(state.range(0));
    for ([[maybe_unused]] auto turn : state) {
        const auto set = modMain::GetRecordset(Text(ByCategory), QVariantList{category, 1});
        if (!set->Eof()) benchmark::DoNotOptimize(set->Long(u"GameKey"));
    }
}

void AddResult(benchmark::State &state)
{
    UseStore(state.range(0));
    for ([[maybe_unused]] auto turn : state) {
        const auto set = modMain::GetRecordset(u"select * from GamePlayed where GamePlayedKey=?"_s, QVariantList{0});
        set->AddNew();
        set->SetValue(u"GamePlayedPlayer", 2);
        set->SetValue(u"GamePlayedGame", 2);
        set->SetValue(u"GamePlayedTimestamp", 46000.5);
        set->MoveLast();
    }
}
} // namespace

BENCHMARK_CAPTURE(RawList, history, ByPlayer, 1)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsetList, history, ByPlayer, 1)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsList, history, OfPlayer)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RawList, best, Best, 3)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsetList, best, Best, 3)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsList, best, OfGame)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(RawProgress)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(RecordsetProgress)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Newest, often, 1)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Newest, now_and_then, 5)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Newest, long_ago, LongAgo)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Newest, never, NeverPlayed)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(AddResult)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    modMain::ForgetConnection();
    return 0;
}
