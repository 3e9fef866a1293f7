// The rules of Echo Step, without a widget: where each step goes and which letter it carries, by level and seed,
// which of them equal the one so many steps ago, and what presses earn.
//
// A third of the judged steps are echoes, of the place and of the letter each. An echo that is pressed counts one, a
// false press takes a half: who presses always or never ends with nothing, and so does chance.
#pragma once

#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

class EchoRules
{
public:
    static constexpr int Levels = 9;
    static constexpr int Places = 9; // three rows of three, from the upper left
    static constexpr std::array Letters{'F', 'H', 'K', 'M', 'R', 'S', 'T', 'X'};

    enum Trait : std::size_t { Place, Letter };
    static constexpr std::size_t Traits = 2;
    using Step = std::array<int, Traits>; // its place, and its letter among Letters

    /// Levels beyond the ends play as the nearest one.
    EchoRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    /// How many steps ago the one was that each step is compared to.
    int Back() const;
    bool HasLetters() const;
    /// From one step to the next. [ms]
    int Beat() const;

    /// All steps of the set; the first Back() of them are not judged.
    const std::vector<Step> &Steps() const { return m_Steps; }
    int Index() const { return m_Index; }
    bool IsJudged() const { return m_Index >= Back(); }
    /// Whether the present step equals the one Back() steps ago; false for one that is not judged.
    bool IsEcho(Trait Trait) const;

    /// "The same": counts once for a step and trait, and not at all for a step that is not judged. Tells whether it
    /// counted.
    bool Press(Trait Trait);
    bool IsPressed(Trait Trait) const { return m_Pressed[Trait]; }
    /// Whether all there was to press has been pressed, and nothing else.
    bool IsRight() const { return IsRight(Place) && IsRight(Letter); }
    bool IsRight(Trait Trait) const { return IsPressed(Trait) == IsEcho(Trait); }
    /// Ends the present step: one that is judged makes a round of the set.
    void Close();
    /// Goes to the next step, after Close and before the set is over.
    void Next();

    const Rounds &Set() const { return m_Set; }

private:
    std::vector<int> Values(int count, int choices);
    int Other(const std::vector<int> &values, int index, int choices);
    double Earned() const;

    int m_Level;
    SeededRandom m_Random;
    std::vector<Step> m_Steps;
    std::array<bool, Traits> m_Pressed{};
    int m_Index = 0;
    Rounds m_Set;
};
