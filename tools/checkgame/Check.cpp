#include "tools/checkgame/Check.h"

#include "tools/checkgame/CheckedSession.h"
#include "tools/checkgame/GameFolder.h"
#include "tools/checkgame/Report.h"
#include "tools/checkgame/ThreadTime.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "shell/GameLibraries.h"

#include <QEventLoop>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace
{
#if defined(__SANITIZE_ADDRESS__)
constexpr double SlowAct = 2500; // [ms] the sanitizers take their share
#else
constexpr double SlowAct = 250; // [ms] a click that takes longer feels stuck
#endif
constexpr std::size_t FewSessions = 200; // too few to tell growth from caches that fill
constexpr double MuchGrowth = 4096;      // [bytes] a session
constexpr int LatePatience = 150;        // [ms] for calls of games that have gone

double MedianOf(std::vector<double> values)
{
    if (values.empty()) return 0;
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// What a session leaves behind, told by the second half of the sessions: caches have filled by then. The medians of
/// its two ends, so that one large cache counts nothing.
double GrowthOf(const std::vector<double> &live)
{
    if (live.size() < FewSessions) return 0;
    const auto tenth = static_cast<std::ptrdiff_t>(live.size() / 10);
    const auto middle = live.begin() + static_cast<std::ptrdiff_t>(live.size() / 2);
    const double early = MedianOf({middle, middle + tenth});
    const double late = MedianOf({live.end() - tenth, live.end()});
    return (late - early) / static_cast<double>(live.end() - middle - tenth);
}

void LetLateCallsIn()
{
    QEventLoop loop;
    QTimer::singleShot(LatePatience, &loop, &QEventLoop::quit);
    loop.exec();
}
} // namespace

CheckFigures CheckGame(const CheckOptions &Options, Report &Report,
                       const std::function<void(int Session, const QString &Step)> &Doing)
{
    CheckFigures figures;
    SetProgramFolder(Options.ProgramFolder);
    static std::vector<std::unique_ptr<GameFolder>> kept; // games that have gone may still ask for it
    const GameFolder &folder = *kept.emplace_back(std::make_unique<GameFolder>(Options.Folder, Report));
    CheckedSession::Maker make;
    try {
        make = FindGameMaker(folder.ClassName(), Options.Folder);
    } catch (...) {
        Report.Mend(DescriptionOf(std::current_exception()));
        return figures;
    }

    QWidget window;
    window.show();
    std::vector<double> starts;
    std::vector<double> live;
    QString slowest;
    for (int session = 1; session <= Options.Sessions; ++session) {
        CheckedSession played(PlanOf(session, Options.Seed, folder.Levels()), folder, Report, window,
                              [&](const QString &step) { Doing(session, step); });
        const CheckedSession::Figures one = played.Play(make);
        if (one.Start > 0) starts.push_back(one.Start);
        if (one.SlowestAct > figures.SlowestAct) {
            figures.SlowestAct = one.SlowestAct;
            slowest = one.Slowest;
        }
        live.push_back(LiveBytes());
        ++figures.Sessions;
    }
    LetLateCallsIn();
    figures.MedianStart = MedianOf(starts);
    figures.Growth = GrowthOf(live);
    if (figures.SlowestAct > SlowAct)
        Report.Mend(
            QStringLiteral("It works for %1 ms at %2: the program stands still meanwhile. Go in smaller steps.")
                .arg(qRound(figures.SlowestAct))
                .arg(slowest));
    if (figures.Growth > MuchGrowth)
        Report.Mend(QStringLiteral("Each session leaves %1 bytes of memory behind. Is something made with new that "
                                   "nobody deletes?")
                        .arg(qRound(figures.Growth)));
    return figures;
}
