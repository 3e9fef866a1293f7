// What the program takes while nobody does anything: processor time and wakes of its event loop, five seconds on each
// screen.
#include "tests/shell/support/RunningProgram.h"

#include "platform/SoundDevice.h"
#include "services/modDX.h"
#include "shell/GuardedApplication.h"

#include <cstdio>
#include <ctime>

namespace
{
constexpr int While = 5000;    // [ms]
constexpr int Resting = 500;   // [ms]
constexpr int Settling = 1500; // [ms] what a click sets going has ended by then

double ProcessorTime() // [ms], of all threads
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

void Measure(RunningProgram &program, const char *screen)
{
    // A device mixes silence for half a minute after the last sound; here it rests soon.
    if (SoundDevice *const device = modDX::Device()) device->SetRestAfter(Resting);
    program.WakesWithin(Settling);
    const double begun = ProcessorTime();
    const int wakes = program.WakesWithin(While);
    std::printf("%-18s %8.2f ms of processor time, %d wakes\n", screen, ProcessorTime() - begun, wakes);
    std::fflush(stdout);
}

void MeasureAll()
{
    RunningProgram program({QStringLiteral("tally-rush"), QStringLiteral("lantern-row")});
    program.GivenDelivered(QStringLiteral("skins/Meadow"));
    if (!program.Start()) qFatal("the program does not start");
    Measure(program, "choice of player");
    program.NewPlayer(QStringLiteral("Ann"));
    RunningProgram::Until([&] { return program.Sees("ctlGameList1"); });
    Measure(program, "practice");
    program.ClickMenu(QStringLiteral("progress"));
    RunningProgram::Until([&] { return program.Sees("ctlUserInfo1"); });
    Measure(program, "progress");
    program.ClickMenu(QStringLiteral("exercise"));
    RunningProgram::Until([&] { return program.Sees("ctlWorkOut1"); });
    Measure(program, "workout");
    program.ReadInWorkout();
    RunningProgram::Until([&] { return program.Sees("ctlGameInstructions1"); });
    Measure(program, "instructions");
    program.Click("butStartGame");
    RunningProgram::Until([&] { return program.Window().Mode() == 3; });
    Measure(program, "game (it moves)");
    program.ClickMenu(QStringLiteral("pause"));
    RunningProgram::Until([&] { return program.Window().Mode() == 5; });
    Measure(program, "paused game");
}
} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("ALSOFT_DRIVERS", "null");
    GuardedApplication application(argc, argv);
    MeasureAll();
    return 0;
}
