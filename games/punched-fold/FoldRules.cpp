#include "FoldRules.h"

#include <algorithm>
#include <bit>

namespace
{
struct LevelPlan
{
    int folds, slanted;
    int fewestPunches, mostPunches;
    int par;   // right answers for 100 points
    int items; // of a whole set
};

// Pars are measured with the model players of the tests: a good one gets about 100 points at every level.
constexpr std::array<LevelPlan, FoldRules::Levels> Plans{{
    {1, 0, 1, 1, 21, 26},
    {1, 0, 2, 2, 19, 24},
    {2, 0, 1, 2, 15, 19},
    {2, 1, 1, 2, 15, 19},
    {2, 1, 2, 3, 13, 16},
    {3, 1, 1, 2, 11, 14},
    {3, 2, 2, 3, 9, 12},
    {4, 2, 2, 3, 7, 9},
}};

const LevelPlan &Plan(int level) { return Plans[static_cast<std::size_t>(level - 1)]; }

constexpr int Pitch = 2;              // between two places of holes
constexpr int SmallestFlap = 2 * 16;  // twice the area of what is folded over
constexpr int SmallestPaper = 2 * 24; // and of what is left in the end
constexpr std::array<FoldPoint, 4> Beside{{{Pitch, 0}, {-Pitch, 0}, {0, Pitch}, {0, -Pitch}}};
} // namespace

FoldRules::FoldRules(int Level, std::uint32_t Seed)
    : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed), m_Set(Plan(m_Level).items, Plan(m_Level).par)
{
    Next();
}

bool FoldRules::Judge(int Choice)
{
    if (m_Set.Over()) return false;
    const bool right = Choice == m_Item.Answer;
    m_Set.Add(right, right ? 1 : -Mistake);
    return right;
}

void FoldRules::Next()
{
    const auto before = m_Item.Folds;
    const auto isNew = [&] {
        return !std::equal(
            before.begin(), before.end(), m_Item.Folds.begin(), m_Item.Folds.end(),
            [](const Fold &a, const Fold &b) { return a.Across == b.Across && a.Down == b.Down && a.At == b.At; });
    };
    while (!FoldPaper() || !isNew() || !Punch() || !Offer()) {
    }
}

bool FoldRules::FoldPaper()
{
    const LevelPlan &plan = Plan(m_Level);
    std::vector<int> slanted(static_cast<std::size_t>(plan.folds), 0);
    std::fill_n(slanted.begin(), plan.slanted, 1);
    m_Random.Shuffle(slanted);
    m_Item.Folds.clear();
    m_Stages.clear();
    m_Folded = Outline::Sheet();
    for (const int isSlanted : slanted) {
        const auto fold = AnyFold(m_Folded, isSlanted == 1);
        if (!fold) return false;
        FoldPoint ends;
        const Outline flap = m_Folded.Beyond(*fold);
        for (int corner = 0; corner < flap.Corners(); ++corner)
            if (fold->Beyond(flap[corner]) == 0) ends = {ends.x + flap[corner].x, ends.y + flap[corner].y};
        m_Stages.push_back({m_Folded, m_Folded.Extent(*fold)[1], ends});
        m_Item.Folds.push_back(*fold);
        m_Folded = m_Folded.Within(*fold);
    }
    return m_Folded.TwiceArea() >= SmallestPaper;
}

// One that brings all of the flap onto paper: then the folded paper has the outline of what stays.
std::optional<Fold> FoldRules::AnyFold(const Outline &paper, bool isSlanted)
{
    constexpr int Tries = 12;
    for (int i = 0; i < Tries; ++i) {
        const int sign = m_Random.Coin() ? 1 : -1;
        Fold fold = m_Random.Coin() ? Fold{sign, 0, 0} : Fold{0, sign, 0};
        if (isSlanted) fold = {sign, m_Random.Coin() ? 1 : -1, 0};
        const auto [least, most] = paper.Extent(fold);
        const int step = isSlanted ? 2 * Pitch : Pitch; // slanted creases cross one another at whole numbers so
        const int middle = (least + most) / 2;
        const int first = middle + (((-middle) % step) + step) % step;
        if (first > most - step) continue;
        fold.At = m_Random.Coin() ? first : first + step * m_Random.Between(0, (most - step - first) / step);
        const Outline flap = paper.Beyond(fold);
        if (flap.TwiceArea() < SmallestFlap) continue;
        bool fits = true;
        for (int corner = 0; corner < flap.Corners(); ++corner)
            fits = fits && paper.Holds(fold.Over(flap[corner])) >= 0;
        if (fits) return fold;
    }
    return {};
}

// Never through an edge or a crease, and each fold brings another hole.
bool FoldRules::Punch()
{
    constexpr int Tries = 12;
    const LevelPlan &plan = Plan(m_Level);
    const int count = m_Random.Between(plan.fewestPunches, plan.mostPunches);
    for (int i = 0; i < Tries; ++i) {
        m_Item.Punches.clear();
        for (int k = 0; k < 4 * Tries && static_cast<int>(m_Item.Punches.size()) < count; ++k) {
            const FoldPoint place{2 * m_Random.Between(0, 7) + 1, 2 * m_Random.Between(0, 7) + 1};
            if (m_Folded.Holds(place) <= 0) continue;
            if (std::find(m_Item.Punches.begin(), m_Item.Punches.end(), place) == m_Item.Punches.end())
                m_Item.Punches.push_back(place);
        }
        if (static_cast<int>(m_Item.Punches.size()) != count) return false;
        const auto open = Open({});
        if (!open || std::popcount(*open) > MostHoles) continue;
        m_Opened = *open;
        if (EveryFoldCounts()) return true;
    }
    return false;
}

bool FoldRules::EveryFoldCounts() const
{
    for (std::size_t i = 0; i < m_Item.Folds.size(); ++i) {
        Reading forgotten;
        forgotten.folds[i] = Unfolding::Forgotten;
        if (Open(forgotten) == m_Opened) return false;
    }
    return true;
}

/// Opens the folds from the last to the first; empty where a hole would lie beside the sheet, on an edge, or twice.
std::optional<std::uint64_t> FoldRules::Open(const Reading &reading) const
{
    constexpr int Most = 64;
    std::array<FoldPoint, Most> holes;
    std::size_t count = 0;
    for (const FoldPoint &punch : m_Item.Punches) holes[count++] = punch;
    if (reading.punch >= 0) {
        FoldPoint &moved = holes[static_cast<std::size_t>(reading.punch)];
        moved = {moved.x + reading.beside.x, moved.y + reading.beside.y};
        if (m_Folded.Holds(moved) <= 0) return {};
    }
    for (int fold = static_cast<int>(m_Item.Folds.size()) - 1; fold >= 0; --fold) {
        const auto index = static_cast<std::size_t>(fold);
        const Unfolding how = reading.folds[index];
        if (how == Unfolding::Forgotten) continue;
        const std::size_t before = count;
        for (std::size_t i = 0; i < before; ++i) {
            const auto hole = Opened(holes[i], fold, how);
            if (!hole) return {};
            if (how != Unfolding::Right) { // who errs does not see where the paper ends, only where the sheet does
                if (!Outline::IsOnSheet(*hole) || count == Most) return {};
                holes[count++] = *hole;
                continue;
            }
            const int holds = m_Stages[index].paper.Holds(*hole);
            if (holds == 0 || m_Item.Folds[index].Beyond(*hole) == 0 || count == Most) return {};
            if (holds > 0) holes[count++] = *hole;
        }
    }
    std::uint64_t sheet = 0;
    for (std::size_t i = 0; i < count; ++i) sheet |= Holes::Bit(holes[i]);
    return std::popcount(sheet) == static_cast<int>(count) ? std::optional(sheet) : std::nullopt;
}

/// Where a hole's other one lies when that fold is opened; empty where there is no such place.
std::optional<FoldPoint> FoldRules::Opened(const FoldPoint &hole, int fold, Unfolding how) const
{
    const auto index = static_cast<std::size_t>(fold);
    const Fold &crease = m_Item.Folds[index];
    if (how == Unfolding::Right) return crease.Over(hole);
    if (how == Unfolding::Slid) {
        const int step = crease.IsSlanted() ? m_Stages[index].reach / 2 : m_Stages[index].reach;
        if (step % Pitch != 0) return {};
        return FoldPoint{hole.x + step * crease.Across, hole.y + step * crease.Down};
    }
    return FoldPoint{m_Stages[index].ends.x - hole.x, m_Stages[index].ends.y - hole.y};
}

void FoldRules::Err(Reading &reading)
{
    const int folds = static_cast<int>(m_Item.Folds.size());
    const int slot = m_Random.Between(0, folds); // the last one is the punches'
    if (slot < folds) {
        constexpr std::array mistakes{Unfolding::Forgotten, Unfolding::Slid, Unfolding::AboutMiddle, Unfolding::Slid,
                                      Unfolding::AboutMiddle};
        reading.folds[static_cast<std::size_t>(slot)] = mistakes[static_cast<std::size_t>(m_Random.Between(0, 4))];
        return;
    }
    reading.punch = m_Random.Between(0, static_cast<int>(m_Item.Punches.size()) - 1);
    reading.beside = Beside[static_cast<std::size_t>(m_Random.Between(0, 3))];
}

bool FoldRules::Offer()
{
    constexpr int Tries = 12;
    for (int i = 0; i < Tries; ++i) {
        std::vector<std::uint64_t> sheets;
        sheets.reserve(FoldItem::Choices);
        sheets.push_back(m_Opened);
        const auto one = AddMistaken(sheets, {{}});
        const auto other = one ? AddMistaken(sheets, {{}}) : std::nullopt;
        if (!other || !Add(sheets, Both(*one, *other))) continue;
        if (!AddMistaken(sheets, {{}, *one, *other, Both(*one, *other)})) continue;
        m_Random.Shuffle(sheets);
        std::copy(sheets.begin(), sheets.end(), m_Item.Sheets.begin());
        m_Item.Answer = static_cast<int>(std::find(sheets.begin(), sheets.end(), m_Opened) - sheets.begin());
        return true;
    }
    return false;
}

// The other mistake comes on top of the first one.
FoldRules::Reading FoldRules::Both(const Reading &one, const Reading &other)
{
    Reading both = one;
    for (std::size_t fold = 0; fold < both.folds.size(); ++fold)
        if (other.folds[fold] != Unfolding::Right) both.folds[fold] = other.folds[fold];
    if (other.punch < 0) return both;
    both.punch = other.punch;
    both.beside = other.beside;
    return both;
}

bool FoldRules::Add(std::vector<std::uint64_t> &sheets, const Reading &reading) const
{
    const auto sheet = Open(reading);
    if (!sheet || std::find(sheets.begin(), sheets.end(), *sheet) != sheets.end()) return false;
    sheets.push_back(*sheet);
    return true;
}

std::optional<FoldRules::Reading> FoldRules::AddMistaken(std::vector<std::uint64_t> &sheets,
                                                         const std::vector<Reading> &bases)
{
    constexpr int Tries = 12;
    for (int i = 0; i < Tries; ++i) {
        Reading reading = bases[static_cast<std::size_t>(m_Random.Between(0, static_cast<int>(bases.size()) - 1))];
        Err(reading);
        if (Add(sheets, reading)) return reading;
    }
    return {};
}
