// A session as a row of rounds, each of them right or wrong, and the points that they earn.
#pragma once

#include <algorithm>
#include <vector>

class Rounds
{
public:
    Rounds() = default;
    /// Count rounds end the session; rounds worth Par together make 100 points. Both are above 0.
    Rounds(int Count, double Par) : m_Count(Count), m_Par(Par) {}

    /// A round is done. Worth may be negative: where a guess is often right, a mistake has to cost what luck brings.
    void Add(bool Right, double Worth)
    {
        m_Done.push_back(Right);
        m_Earned += Worth;
    }
    int Count() const { return m_Count; }
    int Done() const { return static_cast<int>(m_Done.size()); }
    int Right() const { return static_cast<int>(std::count(m_Done.begin(), m_Done.end(), true)); }
    const std::vector<bool> &Marks() const { return m_Done; }
    bool Over() const { return Done() >= m_Count; }
    /// From 0 to 100.
    int Progress() const { return std::min(100, 100 * Done() / m_Count); }
    /// Cut to the whole number, and never below 0.
    int Points() const
    {
        constexpr double Rounding = 1e-9; // ten tenths make a whole
        return std::max(0, static_cast<int>(100 * m_Earned / m_Par + Rounding));
    }

private:
    int m_Count = 1;
    double m_Par = 1;
    double m_Earned = 0;
    std::vector<bool> m_Done;
};
