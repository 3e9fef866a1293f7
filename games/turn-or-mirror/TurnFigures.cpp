#include "TurnFigures.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <limits>
#include <string_view>

namespace
{
Block Sum(const Block &one, const Block &other) { return {one.x + other.x, one.y + other.y, one.z + other.z}; }

int Dot(const Block &one, const Block &other) { return one.x * other.x + one.y * other.y + one.z * other.z; }

constexpr std::array<Block, 6> Directions{{{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}}};

bool Touch(const Block &one, const Block &other)
{
    return std::abs(one.x - other.x) + std::abs(one.y - other.y) + std::abs(one.z - other.z) == 1;
}

// The third row is what the first two leave: a turn, never a mirror image.
std::vector<RightAngles> AllTurns()
{
    std::vector<RightAngles> turns;
    for (const Block &a : Directions) {
        for (const Block &b : Directions) {
            if (Dot(a, b) != 0) continue;
            turns.push_back({{{a.x, a.y, a.z},
                              {b.x, b.y, b.z},
                              {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}}});
        }
    }
    return turns;
}

Figure Drawn(std::initializer_list<std::string_view> rows)
{
    Figure blocks;
    int y = static_cast<int>(rows.size());
    for (const std::string_view row : rows) {
        --y;
        for (std::size_t x = 0; x < row.size(); ++x)
            if (row[x] == '#') blocks.push_back({static_cast<int>(x), y, 0});
    }
    return Figures::Settled(std::move(blocks));
}

/// Grows figures arm by arm.
class Grower
{
public:
    explicit Grower(const Arms &kind) : m_Kind(kind) {}

    std::vector<Figure> All()
    {
        // where the first two arms point is a matter of turning
        Grow({{0, 0, 0}}, {0, 1, 0}, 1);
        std::sort(m_Found.begin(), m_Found.end());
        m_Found.erase(std::unique(m_Found.begin(), m_Found.end()), m_Found.end());
        return m_Found;
    }

private:
    void Grow(const Figure &blocks, const Block &direction, int arm)
    {
        Figure grown = blocks;
        for (int length = 1; length <= m_Kind.Longest; ++length) {
            const Block next = Sum(grown.back(), direction);
            if (std::count_if(grown.begin(), grown.end(), [&](const Block &b) { return Touch(b, next); }) != 1)
                return;
            grown.push_back(next);
            if (length < m_Kind.Shortest) continue;
            if (arm == m_Kind.Count) {
                Keep(grown);
                continue;
            }
            for (const Block &turned : Directions)
                if (IsWanted(turned, direction, arm)) Grow(grown, turned, arm + 1);
        }
    }
    bool IsWanted(const Block &direction, const Block &before, int arm) const
    {
        if (Dot(direction, before) != 0) return false;
        return arm == 1 ? direction == Block{1, 0, 0} : m_Kind.Solid || direction.z == 0;
    }
    void Keep(const Figure &blocks)
    {
        const int count = static_cast<int>(blocks.size());
        if (count < m_Kind.Fewest || count > m_Kind.Most) return;
        const Figure settled = Figures::Settled(blocks);
        if (std::any_of(settled.begin(), settled.end(), [](const Block &b) {
                return std::max({b.x, b.y, b.z}) >= Figures::Widest;
            }))
            return;
        const auto isFlat = std::all_of(blocks.begin(), blocks.end(), [](const Block &b) { return b.z == 0; });
        if (isFlat == m_Kind.Solid || !Figures::IsFit(blocks, m_Kind.Solid)) return;
        m_Found.push_back(settled);
    }

    Arms m_Kind;
    std::vector<Figure> m_Found;
};
} // namespace

Figure Figures::Settled(Figure Blocks)
{
    constexpr int Far = std::numeric_limits<int>::max();
    Block least{Far, Far, Far};
    for (const Block &block : Blocks)
        least = {std::min(least.x, block.x), std::min(least.y, block.y), std::min(least.z, block.z)};
    for (Block &block : Blocks) block = {block.x - least.x, block.y - least.y, block.z - least.z};
    std::sort(Blocks.begin(), Blocks.end());
    return Blocks;
}

Figure Figures::Turned(const Figure &Blocks, const RightAngles &Turn)
{
    const auto row = [&](std::size_t i, const Block &b) {
        return Turn[i][0] * b.x + Turn[i][1] * b.y + Turn[i][2] * b.z;
    };
    Figure turned;
    turned.reserve(Blocks.size());
    for (const Block &block : Blocks) turned.push_back({row(0, block), row(1, block), row(2, block)});
    return Settled(std::move(turned));
}

Figure Figures::Mirrored(const Figure &Blocks)
{
    Figure mirrored(Blocks);
    for (Block &block : mirrored) block.x = -block.x;
    return Settled(std::move(mirrored));
}

const std::vector<RightAngles> &Figures::SolidTurns()
{
    static const std::vector<RightAngles> turns = AllTurns();
    return turns;
}

const std::vector<RightAngles> &Figures::FlatTurns()
{
    static const std::vector<RightAngles> turns = [] {
        std::vector<RightAngles> flat;
        for (const RightAngles &turn : SolidTurns())
            if (turn[2][2] == 1) flat.push_back(turn);
        return flat;
    }();
    return turns;
}

bool Figures::IsFit(const Figure &Blocks, bool Solid)
{
    const Figure settled = Settled(Blocks);
    const Figure mirrored = Mirrored(Blocks);
    int same = 0;
    for (const RightAngles &turn : Solid ? SolidTurns() : FlatTurns()) {
        const Figure turned = Turned(settled, turn);
        if (turned == mirrored) return false;
        if (turned == settled) ++same;
    }
    return same == 1;
}

const std::vector<Figure> &Figures::Letters()
{
    static const std::vector<Figure> letters{
        Drawn({"###", "#..", "##.", "#..", "#.."}),      // F
        Drawn({"####", "#...", "#.##", "#..#", "####"}), // G
        Drawn({".###", "..#.", "..#.", "#.#.", "###."}), // J
        Drawn({"#..", "#..", "#..", "#..", "###"}),      // L
        Drawn({"###", "#.#", "###", "#..", "#.."}),      // P
        Drawn({"####", "#..#", "####", "#.#.", "#.##"}), // R
        Drawn({"#.#", "#.#", "###", "..#", "..#"}),      // 4
        Drawn({"####", "...#", "..##", "..#.", "..#."}), // 7
    };
    return letters;
}

std::vector<Figure> Figures::Crooked(const Arms &Kind) { return Grower(Kind).All(); }
