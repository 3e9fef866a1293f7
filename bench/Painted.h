// What benches of the whole program share: that something was painted, and the middle of many turns.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <algorithm>
#include <vector>

/// Counts what is painted, so that no turn is measured that painted nothing.
class PaintCount final : public QObject
{
public:
    PaintCount() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) ++Count;
        return false;
    }
    int Count = 0;
};

/// Everything that is due by now: what was posted, and what is to be painted.
inline void Drain()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

inline double Middle(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}
