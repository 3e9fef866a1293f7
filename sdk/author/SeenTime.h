// A stretch of the game's time for what must be seen or answered within it. It passes in small steps, one for each
// picture at most: where the machine stood still for a while, the player still gets nearly the whole of it.
#pragma once

#include <QtGlobal>

#include <algorithm>

class SeenTime
{
public:
    /// From that moment on the game's clock, for so long. [ms]
    void Start(qint64 Now, int Duration)
    {
        m_Last = Now;
        m_Passed = 0;
        m_Duration = std::max(1, Duration);
    }
    /// Call it in Ticked, before each picture.
    void Pass(qint64 Now)
    {
        const int longest = std::max(1, std::min(LongestStep, m_Duration / LeastPictures));
        m_Passed += static_cast<int>(std::clamp<qint64>(Now - m_Last, 0, longest));
        m_Last = Now;
    }
    int Duration() const { return m_Duration; }
    int Passed() const { return m_Passed; }
    int Left() const { return std::max(0, m_Duration - m_Passed); }
    bool IsOver() const { return m_Passed >= m_Duration; }
    /// From 0 to 1.
    double Phase() const { return std::min(1.0, static_cast<double>(m_Passed) / m_Duration); }

private:
    static constexpr int LongestStep = 100; // [ms] a longer one was no step, but a machine that stood still
    static constexpr int LeastPictures = 6;

    qint64 m_Last = 0;
    int m_Passed = 0;
    int m_Duration = 1;
};
