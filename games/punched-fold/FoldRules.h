// The rules of Punched Fold, without a widget: items by level and seed, judgement, points.
//
// A sheet is folded and punched through all of its layers; one of five sheets shows where the holes are when it is
// open again. The wrong ones come about by mistakes that people make: a fold forgotten, slid back instead of turned
// over, turned about its middle, or a punch seen beside its place. Two such mistakes, each alone and both together,
// and one more besides: so the right sheet is not the one that is most like the others.
#pragma once

#include "FoldGeometry.h"
#include "sdk/author/Rounds.h"
#include "sdk/author/SeededRandom.h"

struct FoldItem
{
    static constexpr int Choices = 5;

    std::vector<Fold> Folds;
    std::vector<FoldPoint> Punches; // into the folded paper
    std::array<std::uint64_t, Choices> Sheets{};
    int Answer = 0;
};

class FoldRules
{
public:
    static constexpr int Levels = 8;
    static constexpr double Mistake = 0.5; // right answers that a wrong one takes back
    static constexpr int MostHoles = 20;   // of an open sheet

    /// Levels beyond the ends play as the nearest one.
    FoldRules(int Level, std::uint32_t Seed);

    int Level() const { return m_Level; }
    const Rounds &Set() const { return m_Set; }
    const FoldItem &Item() const { return m_Item; }
    /// Judges the answer and adds it to the set; the item stays until Next. Nothing but false once the set is over.
    bool Judge(int Choice);
    void Next();

private:
    enum class Unfolding { Right, Forgotten, Slid, AboutMiddle };
    /// How somebody opens the sheet in mind.
    struct Reading
    {
        std::array<Unfolding, 4> folds{};
        int punch = -1; // seen beside its place
        FoldPoint beside;
    };

    bool FoldPaper();
    std::optional<Fold> AnyFold(const Outline &paper, bool isSlanted);
    bool Punch();
    bool Offer();
    bool EveryFoldCounts() const;
    void Err(Reading &reading);
    static Reading Both(const Reading &one, const Reading &other);
    bool Add(std::vector<std::uint64_t> &sheets, const Reading &reading) const;
    /// The reading that was added: one of the bases with a further mistake.
    std::optional<Reading> AddMistaken(std::vector<std::uint64_t> &sheets, const std::vector<Reading> &bases);
    std::optional<std::uint64_t> Open(const Reading &reading) const;
    std::optional<FoldPoint> Opened(const FoldPoint &hole, int fold, Unfolding how) const;

    int m_Level;
    SeededRandom m_Random;
    Rounds m_Set;
    FoldItem m_Item;
    /// The paper before a fold, how far its flap reaches beyond the crease, and the sum of the crease's ends.
    struct Stage
    {
        Outline paper;
        int reach = 0;
        FoldPoint ends;
    };
    std::vector<Stage> m_Stages;
    Outline m_Folded;           // the paper that is punched
    std::uint64_t m_Opened = 0; // the sheet as the punches leave it
};
