// A clock that counts only while it runs: a game stops it when hidden, since hidden means paused.
#pragma once

#include <QElapsedTimer>

class ShownClock
{
public:
    void Start() { m_Since.start(); }
    void Stop()
    {
        m_Before = Elapsed();
        m_Since.invalidate();
    }
    bool Running() const { return m_Since.isValid(); }
    /// [ms] of running so far
    qint64 Elapsed() const { return m_Before + (m_Since.isValid() ? m_Since.elapsed() : 0); }

private:
    QElapsedTimer m_Since;
    qint64 m_Before = 0;
};
