// Waits at its own end, for a second at most, until the threads that Qt's pool has let go are gone from the system.
// They hold their data until then in memory of their own, which the leak check does not look at.
#pragma once

#include <chrono>
#include <filesystem>
#include <thread>

class ThreadsEnd
{
public:
    ThreadsEnd() = default;
    ThreadsEnd(const ThreadsEnd &) = delete;
    ThreadsEnd &operator=(const ThreadsEnd &) = delete;
    ~ThreadsEnd()
    {
        for (int look = 0; look < 100 && Threads() > 1; ++look)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

private:
    static long Threads()
    {
        std::error_code none; // a system without that folder has no leak check either
        return std::distance(std::filesystem::directory_iterator("/proc/self/task", none), {});
    }
};
