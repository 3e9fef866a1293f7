// The rules of Tally Rush, without a widget: tasks by level and seed, judgement of answers, points.
//
// A session is a set of tasks of one level. Points follow from right answers alone: as many as the level's par make
// 100, whatever the level. A wrong answer costs the time in which the right one is shown.
#pragma once

#include "sdk/author/SeededRandom.h"

#include <QString>

#include <cstdint>

struct TallyTask
{
    QString Text; // "7 × 8 − 3", without an equals sign
    int Result = 0;
    int Steps = 1; // single facts to work out, a carry counting as one: how hard it is

    bool operator==(const TallyTask &other) const { return Text == other.Text; }
};

class TallyRules
{
public:
    static constexpr int Levels = 10;
    static constexpr int LongestAnswer = 4; // [digits]

    /// Levels beyond the ends play as the nearest one.
    TallyRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    /// The tasks of a whole set, and how many of them are done.
    int Tasks() const;
    int Done() const { return m_Done; }
    int Right() const { return m_Right; }
    bool Over() const { return m_Done == Tasks(); }
    /// From 0 to 100, of the set.
    int Progress() const { return 100 * m_Done / Tasks(); }
    /// 100 for the level's par of right answers, cut to the whole number.
    int Points() const;
    /// Right answers that make 100 points.
    static int Par(int Level);

    const TallyTask &Task() const { return m_Task; }
    /// Judges the answer and goes to the next task; the answer says whether it was right. Over before, it does
    /// nothing.
    bool Answer(int Result);

private:
    int Between(int low, int high) { return m_Random.Between(low, high); }
    void Next();
    TallyTask Make();

    TallyTask Sum(int low, int high, int lowSecond, int highSecond);
    TallyTask Difference(int low, int high, int lowSecond, int highSecond);
    TallyTask Product(int low, int high, int lowSecond, int highSecond);
    TallyTask Quotient(int low, int high);
    TallyTask Chain(int low, int high);
    TallyTask ProductChain(int low, int high, int lowLast, int highLast);

    int m_Level;
    SeededRandom m_Random;
    TallyTask m_Task;
    int m_Done = 0;
    int m_Right = 0;
};
