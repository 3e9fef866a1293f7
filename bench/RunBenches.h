// The frame of a program of benchmarks over the whole program, without a screen and without a sound card.
#pragma once

#include "shell/GuardedApplication.h"
#include "tests/shell/support/RunningProgram.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

/// Runs what was registered, and what Register adds, and ends Program while the application is still there. Answer:
/// what main returns.
inline int RunBenches(
    int argc, char *argv[], std::unique_ptr<RunningProgram> &Program, const std::function<void()> &Register = [] {})
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("ALSOFT_DRIVERS", "null");
    GuardedApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Register();
    benchmark::RunSpecifiedBenchmarks();
    Program.reset();
    return 0;
}
