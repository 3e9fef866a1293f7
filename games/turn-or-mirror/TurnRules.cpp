#include "TurnRules.h"

#include "TurnViews.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace
{
enum class Kind { Letters, Flat, Solid };

struct LevelPlan
{
    Kind kind;
    Arms arms;
    bool leftIsTurned;       // the left figure does not stand upright either, and may be a mirror image
    bool tumbles;            // turned about any axis by right angles
    int leastTurn, mostTurn; // [degrees]
    int par;                 // right answers for 100 points
    int items;               // of a whole set
};

constexpr Arms NoArms{};
// Pars are measured with the model players of the tests: a good one gets about 100 points at every level.
constexpr std::array<LevelPlan, TurnRules::Levels> Plans{{
    {Kind::Letters, NoArms, false, false, 30, 60, 24, 30},
    {Kind::Letters, NoArms, true, false, 60, 120, 22, 28},
    {Kind::Letters, NoArms, true, false, 90, 180, 20, 25},
    {Kind::Flat, {3, 1, 3, 5, 7, false}, true, false, 30, 120, 22, 28},
    {Kind::Flat, {4, 1, 3, 6, 8, false}, true, false, 60, 180, 20, 25},
    {Kind::Solid, {3, 1, 3, 5, 6, true}, true, false, 30, 60, 17, 21},
    {Kind::Solid, {4, 1, 2, 6, 7, true}, true, false, 60, 180, 12, 15},
    {Kind::Solid, {4, 2, 3, 9, 10, true}, true, true, 90, 180, 11, 14},
}};
constexpr int Step = 30; // [degrees]

const LevelPlan &Plan(int level) { return Plans[static_cast<std::size_t>(level - 1)]; }

const std::vector<Figure> &FiguresOf(int level)
{
    static std::map<int, std::vector<Figure>> known;
    const LevelPlan &plan = Plan(level);
    if (plan.kind == Kind::Letters) return Figures::Letters();
    auto &figures = known[level];
    if (figures.empty()) figures = Figures::Crooked(plan.arms);
    return figures;
}

/// The solids of a level in every position: which ones show all of their cubes. Looked at when asked for first, and
/// known from then on.
class Solids
{
public:
    static Solids &Of(int level)
    {
        static std::map<int, Solids> all;
        return all.try_emplace(level, level).first->second;
    }
    explicit Solids(int level) : m_Figures(FiguresOf(level)), m_Known(m_Figures.size() * 2 * 24 * 2) {}

    /// That figure, or its mirror image, after that one of the 24 turns.
    Figure Placed(int figure, bool isMirror, int turn) const
    {
        const Figure &blocks = m_Figures[static_cast<std::size_t>(figure)];
        return Figures::Turned(isMirror ? Figures::Mirrored(blocks) : blocks, TurnAt(turn));
    }
    /// Whether it shows all of its cubes when it is turned so far besides: by 30 or 60 degrees, never a right angle.
    bool IsSeen(int figure, bool isMirror, int turn, int view)
    {
        const auto place =
            ((static_cast<std::size_t>(figure) * 2 + (isMirror ? 1 : 0)) * 24 + static_cast<std::size_t>(turn)) * 2 +
            (view == Step ? 0 : 1);
        Knowledge &known = m_Known[place];
        if (known == Knowledge::None) {
            const Figure blocks = Placed(figure, isMirror, turn);
            known =
                TurnViews::EverythingIsSeen(blocks, TurnViews::FromAbove(view)) ? Knowledge::Seen : Knowledge::Hidden;
        }
        return known == Knowledge::Seen;
    }
    static const RightAngles &TurnAt(int turn) { return Figures::SolidTurns()[static_cast<std::size_t>(turn)]; }

private:
    enum class Knowledge : std::uint8_t { None, Seen, Hidden };

    const std::vector<Figure> &m_Figures;
    std::vector<Knowledge> m_Known;
};

int NumberOf(const RightAngles &turn)
{
    const auto &turns = Figures::SolidTurns();
    return static_cast<int>(std::find(turns.begin(), turns.end(), turn) - turns.begin());
}

RightAngles Product(const RightAngles &second, const RightAngles &first)
{
    RightAngles product{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            for (std::size_t i = 0; i < 3; ++i) product[row][column] += second[row][i] * first[i][column];
    return product;
}

/// The numbers of one turn after another, once for all.
int Then(int first, int second)
{
    static const auto table = [] {
        std::array<std::array<int, 24>, 24> numbers{};
        for (int a = 0; a < 24; ++a)
            for (int b = 0; b < 24; ++b)
                numbers[static_cast<std::size_t>(a)][static_cast<std::size_t>(b)] =
                    NumberOf(Product(Solids::TurnAt(b), Solids::TurnAt(a)));
        return numbers;
    }();
    return table[static_cast<std::size_t>(first)][static_cast<std::size_t>(second)];
}

/// The turn of a mirror image that looks in the mirror like that turn of the figure: left and right change places.
int InTheMirror(int turn)
{
    RightAngles mirrored = Solids::TurnAt(turn);
    for (std::size_t i = 1; i < 3; ++i) {
        mirrored[0][i] = -mirrored[0][i];
        mirrored[i][0] = -mirrored[i][0];
    }
    return NumberOf(mirrored);
}

/// Quarters of a turn about the upright axis, as TurnViews::FromAbove turns.
int Quarters(int count)
{
    static const int quarter = NumberOf({{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}});
    int turn = 0;
    for (int i = 0; i < ((count % 4) + 4) % 4; ++i) turn = Then(turn, quarter);
    return turn;
}

int QuartersIn(int degrees) { return static_cast<int>(std::floor(degrees / 90.0)); }

int AngleOf(const RightAngles &turn)
{
    const int trace = turn[0][0] + turn[1][1] + turn[2][2];
    return trace == 3 ? 0 : trace == 1 ? 90 : trace == 0 ? 120 : 180;
}

bool IsUpright(const RightAngles &turn) { return turn[1][1] == 1; }
} // namespace

// In a mirror that stands upright between the figures, turns about the axis across it stay and the others are undone.
QQuaternion TurnItem::Matching() const
{
    if (!IsMirror) return LeftTurn;
    return {LeftTurn.scalar(), LeftTurn.x(), -LeftTurn.y(), -LeftTurn.z()};
}

TurnRules::TurnRules(int Level, std::uint32_t Seed)
    : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed), m_Set(Plan(m_Level).items, Plan(m_Level).par)
{
    Next();
}

bool TurnRules::Judge(bool IsMirror)
{
    if (m_Set.Over()) return false;
    const bool right = IsMirror == m_Item.IsMirror;
    m_Set.Add(right, right ? 1 : -Mistake);
    return right;
}

void TurnRules::Next() { m_Item = Make(); }

TurnItem TurnRules::Make()
{
    const LevelPlan &plan = Plan(m_Level);
    TurnItem item;
    item.Solid = plan.kind == Kind::Solid;
    item.IsMirror = m_Random.Coin();
    const int angle = Step * m_Random.Between(plan.leastTurn / Step, plan.mostTurn / Step);
    if (plan.tumbles)
        TumbleSolid(item);
    else if (item.Solid)
        TurnSolid(item, angle);
    else
        TurnFlat(item, angle);
    return item;
}

// Never the same one twice in a row.
void TurnRules::OtherFigure()
{
    const int last = static_cast<int>(FiguresOf(m_Level).size()) - 1;
    const int before = m_Figure;
    do m_Figure = m_Random.Between(0, last);
    while (m_Figure == before);
}

void TurnRules::TurnFlat(TurnItem &item, int angle)
{
    constexpr int WholeTurn = 360;
    const int left = Plan(m_Level).leftIsTurned ? Step * m_Random.Between(0, WholeTurn / Step - 1) : 0;
    do {
        OtherFigure();
        item.Left = FiguresOf(m_Level)[static_cast<std::size_t>(m_Figure)];
        if (Plan(m_Level).leftIsTurned && m_Random.Coin()) item.Left = Figures::Mirrored(item.Left);
    } while (item.Left == m_Item.Left); // one figure may be another one's mirror image
    item.Angle = angle;
    item.Right = item.IsMirror ? Figures::Mirrored(item.Left) : item.Left;
    item.LeftTurn = TurnViews::InThePlane(left);
    item.RightTurn = TurnViews::InThePlane(left + (m_Random.Coin() ? angle : -angle));
}

void TurnRules::TurnSolid(TurnItem &item, int angle)
{
    Solids &solids = Solids::Of(m_Level);
    for (;;) {
        OtherFigure();
        const bool isMirror = m_Random.Coin();
        const int turn = AnyTurn();
        const int left = m_Random.Coin() ? Step : 2 * Step;
        const int right = left + (m_Random.Coin() ? angle : -angle);
        if (right % 90 == 0 || !solids.IsSeen(m_Figure, isMirror, turn, left)) continue;
        const int rightTurn = Then(item.IsMirror ? InTheMirror(turn) : turn, Quarters(QuartersIn(right)));
        if (!solids.IsSeen(m_Figure, isMirror != item.IsMirror, rightTurn, right - 90 * QuartersIn(right))) continue;
        item.Angle = angle;
        item.Left = solids.Placed(m_Figure, isMirror, turn);
        item.Right = item.IsMirror ? Figures::Mirrored(item.Left) : item.Left;
        item.LeftTurn = TurnViews::FromAbove(left);
        item.RightTurn = TurnViews::FromAbove(right);
        return;
    }
}

void TurnRules::TumbleSolid(TurnItem &item)
{
    Solids &solids = Solids::Of(m_Level);
    for (;;) {
        OtherFigure();
        const bool isMirror = m_Random.Coin();
        const int turn = AnyTurn();
        const int tumble = AnyTurn();
        const int view = m_Random.Coin() ? Step : 2 * Step;
        if (IsUpright(Solids::TurnAt(tumble)) || !solids.IsSeen(m_Figure, isMirror, turn, view)) continue;
        const int rightTurn = Then(item.IsMirror ? InTheMirror(turn) : turn, tumble);
        if (!solids.IsSeen(m_Figure, isMirror != item.IsMirror, rightTurn, view)) continue;
        item.Angle = AngleOf(Solids::TurnAt(tumble));
        item.Left = solids.Placed(m_Figure, isMirror, turn);
        item.Right = item.IsMirror ? Figures::Mirrored(item.Left) : item.Left;
        item.LeftTurn = TurnViews::FromAbove(view);
        item.RightTurn = TurnViews::FromAbove(view) * TurnViews::RotationOf(Solids::TurnAt(tumble));
        return;
    }
}
