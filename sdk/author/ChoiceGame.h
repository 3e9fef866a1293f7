// A ChoiceCanvas on rules of a class of their own, which are made of a level and a seed alone and have:
//   int Level() const;            the level that is played
//   const Rounds &Set() const;
//   bool Judge(int Choice);       whether it was right; adds the round to the set
//   void Next();                  the next item
// What is left to the game is its places, its drawing and its words.
#pragma once

#include "sdk/author/ChoiceCanvas.h"

#include <optional>

template <typename GameRules>
class ChoiceGame : public ChoiceCanvas
{
protected:
    using ChoiceCanvas::ChoiceCanvas;

    const GameRules &Rules() const { return *m_Rules; }

    void Begin(int Level, std::uint32_t Seed) override { m_Rules.emplace(Level, Seed); }
    int Level() const override { return m_Rules->Level(); }
    const Rounds &Set() const override { return m_Rules->Set(); }
    bool Judge(int Choice) override { return m_Rules->Judge(Choice); }
    void Next() override { m_Rules->Next(); }

private:
    std::optional<GameRules> m_Rules;
};
