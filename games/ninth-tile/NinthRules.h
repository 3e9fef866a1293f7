// The rules of Ninth Tile, without a widget: squares of tiles by level and seed, the tiles offered for the ninth
// place, and what choosing one earns.
//
// Every item is well-posed in this sense: in each trait, all rules of the language that fit the eight tiles shown
// give the ninth one and the same value. So there is exactly one tile that any rules of the language can ask for, and
// it is among those offered once.
#pragma once

#include "NinthLanguage.h"
#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

#include <array>
#include <cstdint>
#include <vector>

struct NinthItem
{
    std::array<Tile, 9> Square{}; // row by row; the last one is the one to find
    std::vector<Tile> Offered;
    int Right = 0; // its place among the offered
    std::vector<TileRule> Rules;

    const Tile &Answer() const { return Square.back(); }
};

class NinthRules
{
public:
    static constexpr int Levels = 10;

    /// Levels beyond the ends play as the nearest one.
    NinthRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    const Rounds &Set() const { return m_Set; }
    const NinthItem &Item() const { return m_Item; }
    /// Judges and adds the round to the set; the item stays until Next. A mistake costs as much as luck would bring
    /// on the average.
    bool Judge(int Choice);
    void Next();

private:
    void ChooseRules();
    TileRule::Kind KindFor(Trait on);
    void LayStill();
    bool Lay(const TileRule &rule);
    TraitSquare Values(const TileRule &rule);
    std::array<int, 6> Mixed(int count);
    void Offer();
    std::array<int, 4> Instead(Trait on);

    int m_Level;
    SeededRandom m_Random;
    Rounds m_Set;
    NinthItem m_Item;
};
