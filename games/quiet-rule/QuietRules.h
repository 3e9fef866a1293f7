// The rules of Quiet Rule, without a widget: cards and piles by level and seed, the rule that nobody tells, and what
// sorting earns.
//
// The rule is one trait: a card belongs on the pile whose reference card is like it in that trait. No two reference
// cards are alike in any trait that counts, and no card is like one of them in more than one. So under every possible
// rule exactly one pile is right, and under two different rules it is never the same one: what an answer was right
// for is never in doubt.
#pragma once

#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

enum class CardTrait { Shape, Count, Fill, Edge };

struct Card
{
    static constexpr std::size_t Traits = 4;
    static constexpr int ValuesOfEach = 4; // counted from 0: the value 0 of Count is one figure

    std::array<int, Traits> Values{};

    int &operator[](CardTrait On) { return Values[static_cast<std::size_t>(On)]; }
    int operator[](CardTrait On) const { return Values[static_cast<std::size_t>(On)]; }
    bool operator==(const Card &) const = default;
};

class QuietRules
{
public:
    static constexpr int Levels = 7;
    static constexpr int Piles = 4;
    /// What is told of the right pile after a mistake; it fades with the levels.
    enum class Hint { Named, Shown, Brief }; // with the trait's name; for the whole time; for a part of it

    /// Levels beyond the ends play as the nearest one.
    QuietRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    const Rounds &Set() const { return m_Set; }
    Hint HintAfterMistake() const;
    /// The part of the time told after a mistake in which the right pile is seen.
    double HintPart() const;

    /// The traits that count at this level; in the others all cards are alike.
    const std::vector<CardTrait> &Counting() const { return m_Counting; }
    const std::array<Card, Piles> &References() const { return m_References; }
    const Card &Present() const { return m_Present; }
    CardTrait Rule() const { return m_Rule; }
    int RightPile() const { return PileBy(m_Rule); }
    /// The one pile that is like the present card in that trait.
    int PileBy(CardTrait Trait) const;
    /// The one trait in which the present card is like that pile, if there is one.
    std::optional<CardTrait> SharedWith(int Pile) const;

    /// Judges and adds the card to the set; card and rule stay until Next. A mistake costs as much as choosing among
    /// the traits by luck would bring.
    bool Judge(int Pile);
    /// The next card; after a run of right answers another rule, without a word.
    void Next();

private:
    void Deal();
    void Turn();

    int m_Level;
    SeededRandom m_Random;
    Rounds m_Set;
    std::vector<CardTrait> m_Counting;
    std::array<Card, Piles> m_References{};
    Card m_Present;
    CardTrait m_Rule = CardTrait::Shape;
    int m_Run = 0;       // right answers since the last mistake or turn
    int m_RunToTurn = 0; // as long as it gets
};
