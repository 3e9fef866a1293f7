// From the click on "Play" to the painted game: every delivered game in the whole program, off screen, and in turn
// with it the blank game, which draws a circle. Times are in milliseconds; the middle turn of each counts.
#include "BenchStore.h"
#include "Painted.h"
#include "RunBenches.h"
#include "platform/Files.h"
#include "services/modIniFile.h"
#include "skin/ScreenSize.h"

#include <benchmark/benchmark.h>

#include <QDir>

namespace
{
constexpr int Turns = 15;
constexpr double Budget = 100; // [ms]

struct Game
{
    QString Category, Name;
};

std::unique_ptr<RunningProgram> program; // ends before the application does
const Game Blank{QStringLiteral("Bare"), QStringLiteral("Blank")};

QString Setting(const QString &Folder, const char *name)
{
    return ReadIniString(QStringLiteral("config"), QLatin1String(name), {},
                         Folder + QStringLiteral("/GameSettings.ini"));
}

QStringList DeliveredFolders()
{
    QStringList folders;
    const QDir dist(QStringLiteral(NOGGLE_DIST));
    for (const QString &name : dist.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (QFile::exists(dist.filePath(name) + QStringLiteral("/GameSettings.ini"))) folders << name;
    return folders;
}

void GiveBlank(const TestFolder &folder)
{
    const QDir from(QStringLiteral(NOGGLE_BLANK));
    for (const QString &file : from.entryList(QDir::Files))
        folder.Write(QStringLiteral("blank/") + file, ReadFile(from.filePath(file)));
    const QString settings = folder.Path() + QStringLiteral("blank/GameSettings.ini");
    WriteIniString(QStringLiteral("config"), QStringLiteral("category"), Blank.Category, settings);
    WriteIniString(QStringLiteral("config"), QStringLiteral("name"), Blank.Name, settings);
}

void StartProgram()
{
    SetScreenSize({1600, 1200});
    program = std::make_unique<RunningProgram>();
    program->GivenDelivered(QStringLiteral("skins/Meadow"));
    for (const QString &folder : DeliveredFolders()) program->GivenDelivered(folder);
    GiveBlank(program->Folder);
    if (!program->Start()) qFatal("the program does not start");
    program->NewPlayer(QStringLiteral("Ann"));
}

double PlayedAfter(const Game &game)
{
    program->ClickMenu(QStringLiteral("practice"));
    program->ChoosePractice(game.Category, game.Name);
    Drain();
    const PaintCount paints;
    const double time = 1000 * Seconds([] {
                            program->Click("cmdPlay");
                            Drain();
                        });
    if (paints.Count == 0) qFatal("nothing was painted");
    program->AnswerNextBox("cmd1");
    program->ClickMenu(QStringLiteral("abandon"));
    return time;
}

void Race(benchmark::State &state, const Game &game)
{
    std::vector<double> ours, floor;
    for ([[maybe_unused]] auto turn : state) {
        floor.push_back(PlayedAfter(Blank));
        ours.push_back(PlayedAfter(game));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["first"] = ours.front(); // its library is loaded then
    state.counters["middle"] = Middle(ours);
    state.counters["floor"] = Middle(floor);
    state.counters["of_budget"] = Middle(ours) / Budget;
}

void RegisterGames()
{
    StartProgram();
    for (const QString &folder : DeliveredFolders()) {
        const QString path = QStringLiteral(NOGGLE_DIST "/") + folder;
        const Game game{Setting(path, "category"), Setting(path, "name")};
        if (game.Category.isEmpty()) continue; // not among the rows of a category
        benchmark::RegisterBenchmark(qPrintable(folder), [game](benchmark::State &state) { Race(state, game); })
            ->UseManualTime()
            ->Iterations(Turns)
            ->Unit(benchmark::kMillisecond);
    }
}
} // namespace

int main(int argc, char *argv[]) { return RunBenches(argc, argv, program, RegisterGames); }
