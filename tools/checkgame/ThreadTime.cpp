#include "tools/checkgame/ThreadTime.h"

#include <ctime>

#if defined(__SANITIZE_ADDRESS__)
#include <cstddef>
// The sanitizer's own; its header does not come with every compiler. NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

double ThreadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double LiveBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<double>(__sanitizer_get_current_allocated_bytes());
#elif defined(__GLIBC__)
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}
