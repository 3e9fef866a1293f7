// Loaded before everything else into a program whose start is measured, be it ours or the bare window: it sees the
// first window that is no splash being brought to the screen, tells when that was, and ends the process.
//
// The hold of the splash is left out by not sleeping it: a sleep of a second and more on the main thread returns at
// once and is counted. Nothing goes on meanwhile that would have been done during the hold, so this rather counts
// against us. The program itself knows nothing of all this.
#include "Mark.h"

#include <QBackingStore>
#include <QWindow>

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace
{
constexpr std::int64_t Second = 1'000'000'000; // [ns]
constexpr std::int64_t LongSleep = Second;

Mark theMark;

std::int64_t Nanoseconds(const timespec &Time) { return std::int64_t{Time.tv_sec} * Second + Time.tv_nsec; }

std::int64_t Now(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return Nanoseconds(now);
}

template <typename Function>
Function Next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// True when the sleep is a hold, which is noted and not slept.
bool IsHold(const timespec &Time)
{
    if (gettid() != getpid() || Nanoseconds(Time) < LongSleep) return false;
    theMark.skipped += Nanoseconds(Time);
    ++theMark.sleeps;
    return true;
}

void ReadMemory()
{
    std::FILE *file = std::fopen("/proc/self/smaps_rollup", "re");
    if (file == nullptr) return;
    char line[256];
    long kilobytes = 0;
    while (std::fgets(line, sizeof line, file) != nullptr) {
        if (std::sscanf(line, "Pss: %ld", &kilobytes) == 1) theMark.shared = kilobytes * 1024;
        if (std::sscanf(line, "Private_Clean: %ld", &kilobytes) == 1) theMark.own += kilobytes * 1024;
        if (std::sscanf(line, "Private_Dirty: %ld", &kilobytes) == 1) theMark.own += kilobytes * 1024;
    }
    std::fclose(file);
}

[[noreturn]] void Tell(const QWindow &Window)
{
    theMark.at = Now(CLOCK_MONOTONIC);
    theMark.processor = Now(CLOCK_PROCESS_CPUTIME_ID);
    theMark.mainThread = Now(CLOCK_THREAD_CPUTIME_ID);
    theMark.width = Window.width();
    theMark.height = Window.height();
    ReadMemory();
    const char *const pipe = std::getenv(MarkPipe);
    const bool told = pipe != nullptr && write(std::atoi(pipe), &theMark, sizeof theMark) == sizeof theMark;
    _exit(told ? 0 : 1);
}
} // namespace

extern "C" int nanosleep(const timespec *Time, timespec *Left)
{
    if (IsHold(*Time)) return 0;
    return Next<int (*)(const timespec *, timespec *)>("nanosleep")(Time, Left);
}

extern "C" int clock_nanosleep(clockid_t Clock, int Flags, const timespec *Time, timespec *Left)
{
    if (Flags == 0 && IsHold(*Time)) return 0;
    return Next<int (*)(clockid_t, int, const timespec *, timespec *)>("clock_nanosleep")(Clock, Flags, Time, Left);
}

void QBackingStore::flush(const QRegion &Region, QWindow *Window, const QPoint &Offset)
{
    using Flush = void (*)(QBackingStore *, const QRegion &, QWindow *, const QPoint &);
    static const auto next = Next<Flush>("_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint");
    next(this, Region, Window, Offset);
    const QWindow *const shown = Window != nullptr ? Window : window();
    if (shown->type() != Qt::SplashScreen && shown->isExposed()) Tell(*shown);
}
