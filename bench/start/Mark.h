// What a measured program tells when its first screen has been painted: one record on a pipe, then it ends.
#pragma once

#include <cstdint>

/// Names the file descriptor of the pipe, in the environment of the measured program.
constexpr char MarkPipe[] = "BENCH_MARK_PIPE";

struct Mark
{
    std::int64_t at = 0;         // [ns] on the monotonic clock
    std::int64_t processor = 0;  // [ns] of all threads, since the start of the process
    std::int64_t mainThread = 0; // [ns] of the thread that paints
    std::int64_t skipped = 0;    // [ns] sleep that was asked for and not slept
    std::int32_t sleeps = 0;     // how many such sleeps
    std::int32_t width = 0;      // [px] of the window
    std::int32_t height = 0;
    std::int64_t shared = 0; // [bytes] proportional set size
    std::int64_t own = 0;    // [bytes] private pages
};
