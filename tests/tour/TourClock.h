// The tour's wall clock: the program begins at nine o'clock of a set day, so that no run meets midnight and all
// pictures show the same dates. It goes on as a clock does, and can be moved forward from any thread.
#pragma once

#include <QDateTime>
#include <QElapsedTimer>

#include <atomic>
#include <functional>

class TourClock
{
public:
    /// Becomes the program's clock. Day counts from 1.
    explicit TourClock(int Day);
    ~TourClock();
    TourClock(const TourClock &) = delete;
    TourClock &operator=(const TourClock &) = delete;

    void MoveOn(int Seconds) { m_Ahead += 1000LL * Seconds; }
    QDateTime Moment() const;

    /// Called whenever the program looks at the clock; to be set before it starts.
    std::function<void()> OnLook;

private:
    QDateTime m_Begin;
    QElapsedTimer m_Passed;
    std::atomic<qint64> m_Ahead = 0; // [ms]
};
