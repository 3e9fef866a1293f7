#include "BenchStore.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <random>

namespace
{
constexpr int Players = 8;
constexpr int Games = 200;
constexpr int Categories = 10;
constexpr int Workouts = 10'000;
constexpr double FirstDay = 40'000;
constexpr double Second = 1.0 / 86400;

void Check(sqlite3 *handle, int answer)
{
    if (answer != SQLITE_OK && answer != SQLITE_ROW && answer != SQLITE_DONE) qFatal("%s", sqlite3_errmsg(handle));
}

// What reading a row costs without a layer above the engine.
double SumOfColumns(sqlite3_stmt *statement, int columns)
{
    double sum = 0;
    for (int column = 0; column < columns; ++column) switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            sum += static_cast<double>(sqlite3_column_int64(statement, column));
            break;
        case SQLITE_FLOAT:
            sum += sqlite3_column_double(statement, column);
            break;
        case SQLITE_TEXT:
            sum += sqlite3_column_bytes(statement, column);
            break;
        default:
            break;
        }
    return sum;
}
} // namespace

double Seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

BareStore::BareStore(const TestStore &Store)
{
    Check(m_Handle, sqlite3_open_v2(Store.Path().toUtf8().constData(), &m_Handle, SQLITE_OPEN_READWRITE, nullptr));
}

BareStore::~BareStore() { sqlite3_close(m_Handle); }

void BareStore::Execute(const char *Sql) { Check(m_Handle, sqlite3_exec(m_Handle, Sql, nullptr, nullptr, nullptr)); }

std::int64_t BareStore::Walk(const char *Sql, const std::vector<std::int32_t> &Values)
{
    sqlite3_stmt *statement = nullptr;
    Check(m_Handle, sqlite3_prepare_v2(m_Handle, Sql, -1, &statement, nullptr));
    for (std::size_t i = 0; i < Values.size(); ++i) sqlite3_bind_int(statement, static_cast<int>(i) + 1, Values[i]);
    const int columns = sqlite3_column_count(statement);
    std::int64_t rows = 0;
    double sum = 0;
    int answer = SQLITE_DONE;
    for (; (answer = sqlite3_step(statement)) == SQLITE_ROW; ++rows) sum += SumOfColumns(statement, columns);
    Check(m_Handle, answer);
    sqlite3_finalize(statement);
    benchmark::DoNotOptimize(sum);
    return rows;
}

void BareStore::Fill(std::int32_t Results)
{
    const QByteArray players = QByteArray::number(Players);
    const QByteArray games = QByteArray::number(Games);
    const QByteArray categories = QByteArray::number(Categories);
    const QByteArray workouts = QByteArray::number(Workouts);
    const auto numbers = [](const QByteArray &count) {
        return "with recursive N(n) as (values(1) union all select n + 1 from N where n < " + count + ") ";
    };
    Execute("begin");
    Execute((numbers(players) + "insert into Player (PlayerName) select 'Player ' || n from N").constData());
    Execute((numbers(categories) + "insert into Category (CategoryName) select 'Category ' || n from N").constData());
    Execute((numbers(games) +
             "insert into Game (GameName, GameComponent, GameTimeLimit, GameCategory) "
             "select 'Game ' || n, 'Component', 60, n % " +
             categories + " + 1 from N")
                .constData());
    Execute((numbers(workouts) + "insert into Workout (WorkoutPlayer, WorkoutPoints, WorkoutStatus, WorkoutMode, "
                                 "WorkoutTimestamp) select 1, 0, 1, 1, 40000 + n from N")
                .constData());
    FillResults(Results);
    Execute("commit");
}

void BareStore::FillResults(std::int32_t Results)
{
    sqlite3_stmt *insert = nullptr;
    Check(m_Handle, sqlite3_prepare_v2(m_Handle,
                                       "insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, "
                                       "GamePlayedTimestamp, GamePlayedScore, GamePlayedPoints, GamePlayedTime, "
                                       "GamePlayedMode, GamePlayedLevel, GamePlayedAward, GamePlayedUploaded, "
                                       "GamePlayedWorkout) values (?,?,?,?,?,?,?,?,?,?,?)",
                                       -1, &insert, nullptr));
    std::minstd_rand random; // the same numbers in every run
    const auto below = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    for (std::int32_t i = 0; i < Results; ++i) {
        const bool isPractice = (i / 2) % 2 == 0;
        const int player = i % 2 == 0 ? 1 : 2 + below(Players - 1);
        const int score = below(1000);
        sqlite3_bind_int(insert, 1, player);
        sqlite3_bind_int(insert, 2, isPractice ? 1 : 1 + below(Games));
        sqlite3_bind_double(insert, 3, FirstDay + i * 60 * Second);
        sqlite3_bind_int(insert, 4, score);
        sqlite3_bind_int(insert, 5, score);
        sqlite3_bind_int(insert, 6, below(60));
        sqlite3_bind_int(insert, 7, isPractice ? 3 : 1);
        sqlite3_bind_int(insert, 8, isPractice ? 1 : 1 + below(10));
        sqlite3_bind_int(insert, 9, 0);
        sqlite3_bind_int(insert, 10, 0);
        if (isPractice || player != 1)
            sqlite3_bind_null(insert, 11);
        else
            sqlite3_bind_int(insert, 11, 1 + i / 4 % Workouts);
        Check(m_Handle, sqlite3_step(insert));
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
}

void BareStore::CountCommits(sqlite3 *Handle, int &Count)
{
    const auto raise = [](void *count) { return ++*static_cast<int *>(count), 0; };
    sqlite3_commit_hook(Handle, raise, &Count);
}

void WriteGameFolders(const TestFolder &Folder, int Count)
{
    for (int i = 0; i < Count; ++i) {
        const QByteArray number = QByteArray::number(i);
        Folder.Write(QString::fromUtf8("game" + number + "/GameSettings.ini"),
                     "[config]\r\nname=Game " + number + "\r\ncomponent=Game" + number +
                         "\r\ntimelimit=60\r\ncontrolpanel=0\r\nlevels=10\r\ncategory=Category " +
                         QByteArray::number(i % Categories) + "\r\n[0]\r\nName=Local " + number +
                         "\r\n[default]\r\ngo=Go\r\nstop=Stop\r\n");
    }
}
