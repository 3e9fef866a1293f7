// One session of questions by level and seed, without a widget: which are asked, in which order, with which choices
// in which places, and what the answers earn.
//
// A wrong choice takes away its share of a guess, so that guessing earns nothing on the average; a wrong typed answer
// takes nothing away, since nobody guesses a word. All right makes 110 points, so a good session makes about 100.
#pragma once

#include "QuestionSet.h"

#include "sdk/author/SeededRandom.h"

#include <cstdint>

class QuestionRules
{
public:
    static constexpr int AllRight = 110; // points
    struct Asked
    {
        Question Text;
        QStringList Choices; // as they are shown; empty when the answer is typed
        int RightChoice = -1;
    };

    /// A level without questions plays the nearest lower one that has some, or else the lowest. Set must have
    /// questions and no problems.
    QuestionRules(const QuestionSet &Set, int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    int Rounds() const { return static_cast<int>(m_Asked.size()); }
    int Done() const { return m_Done; }
    bool Over() const { return m_Done == Rounds(); }
    int Progress() const { return 100 * m_Done / Rounds(); }
    int Points() const;

    /// The question to be answered; the last one when all are done.
    const Asked &Present() const
    {
        return m_Asked[static_cast<std::size_t>(m_Done < Rounds() ? m_Done : m_Done - 1)];
    }
    /// Judges and goes on to the next one. Choices count from 0.
    bool Choose(int Choice);
    bool Type(const QString &Text);

private:
    Asked AskedFrom(const QuestionSet &set, const Question &question);
    bool Judged(bool right);

    int m_Level;
    SeededRandom m_Random;
    std::vector<Asked> m_Asked;
    int m_Done = 0;
    double m_Earned = 0;
    int m_All = 0;
};
