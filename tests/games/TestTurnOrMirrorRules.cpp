#include "games/turn-or-mirror/TurnRules.h"
#include "games/turn-or-mirror/TurnViews.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <set>
#include <tuple>

// Items are proved by their pictures alone: what can be seen there is put together again, and compared in every turn
// that there is.
namespace
{
using Point = std::array<double, 2>;
using Cell = std::array<int, 3>;
using Cells = std::vector<Cell>;

constexpr int FirstSolid = 6; // level

// ---- flat figures: squares anywhere in the plane ------------------------------------------------------------------

std::vector<Point> Centres(const std::vector<SeenFace> &faces)
{
    std::vector<Point> centres;
    for (const SeenFace &face : faces) {
        Point centre{};
        for (const QPointF &corner : face.Corners) {
            centre[0] += corner.x() / 4;
            centre[1] += corner.y() / 4;
        }
        centres.push_back(centre);
    }
    return centres;
}

/// Whether some turn in the plane about the centre of mass brings every point of one onto a point of the other.
bool AreOneTurned(const std::vector<Point> &one, const std::vector<Point> &other)
{
    constexpr double Same = 1e-3;
    if (one.size() != other.size()) return false;
    const auto radius = [](const Point &p) { return std::hypot(p[0], p[1]); };
    const Point far = *std::max_element(one.begin(), one.end(),
                                        [&](const Point &a, const Point &b) { return radius(a) < radius(b); });
    for (const Point &goal : other) { // the farthest point has to fall on a point as far away: no other turn can do
        if (std::abs(radius(goal) - radius(far)) > Same) continue;
        const double turn = std::atan2(goal[1], goal[0]) - std::atan2(far[1], far[0]);
        const double c = std::cos(turn);
        const double s = std::sin(turn);
        const bool all = std::all_of(one.begin(), one.end(), [&](const Point &p) {
            const Point turned{c * p[0] - s * p[1], s * p[0] + c * p[1]};
            return std::any_of(other.begin(), other.end(), [&](const Point &q) {
                return std::abs(q[0] - turned[0]) < Same && std::abs(q[1] - turned[1]) < Same;
            });
        });
        if (all) return true;
    }
    return false;
}

std::vector<Point> InAMirror(std::vector<Point> points)
{
    for (Point &point : points) point[0] = -point[0];
    return points;
}

// ---- solids: cubes put together again from the faces that are seen ------------------------------------------------

/// How much of each cube is to be seen, in squares of one edge: painted face by face on a grid, as on the screen.
std::vector<double> SeenByPainting(const std::vector<SeenFace> &faces, std::size_t cubes)
{
    constexpr int Edge = 8; // cells of the grid to an edge
    constexpr int Half = 48;
    static std::array<std::array<int, 2 * Half>, 2 * Half> grid;
    for (auto &row : grid) row.fill(-1);
    for (const SeenFace &face : faces) {
        std::array<Point, 4> corners{};
        double left = Half, right = -Half, top = Half, bottom = -Half;
        for (std::size_t i = 0; i < 4; ++i) {
            const auto &[x, y] = corners[i] = {face.Corners[i].x() * Edge, face.Corners[i].y() * Edge};
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
        for (int y = static_cast<int>(std::floor(top)); y <= static_cast<int>(bottom); ++y) {
            for (int x = static_cast<int>(std::floor(left)); x <= static_cast<int>(right); ++x) {
                int turns = 0; // a point lies inside when it is on one side of all four edges
                for (std::size_t i = 0; i < 4; ++i) {
                    const Point &from = corners[i];
                    const Point &to = corners[(i + 1) % 4];
                    const double turn =
                        (to[0] - from[0]) * (y + 0.5 - from[1]) - (to[1] - from[1]) * (x + 0.5 - from[0]);
                    turns += turn > 0 ? 1 : -1;
                }
                if (std::abs(turns) == 4)
                    grid.at(static_cast<std::size_t>(y + Half)).at(static_cast<std::size_t>(x + Half)) = face.Block;
            }
        }
    }
    std::vector<double> seen(cubes);
    for (const auto &row : grid)
        for (const int block : row)
            if (block >= 0) seen.at(static_cast<std::size_t>(block)) += 1.0 / (Edge * Edge);
    return seen;
}

/// Where the three edges of a cube point to on the screen when it is turned so far and seen from 33 degrees above.
std::array<Point, 3> Axes(double turn)
{
    const double a = turn * std::numbers::pi / 180;
    const double h = 33 * std::numbers::pi / 180;
    return {{{std::cos(a), -std::sin(a) * std::sin(h)}, {0, -std::cos(h)}, {std::sin(a), std::cos(a) * std::sin(h)}}};
}

bool AreParallel(const QPointF &edge, const Point &axis)
{
    constexpr double Same = 1e-3;
    return std::hypot(edge.x() - axis[0], edge.y() - axis[1]) < Same ||
           std::hypot(edge.x() + axis[0], edge.y() + axis[1]) < Same;
}

/// The cell of the lattice that lies there on the screen; empty when there is none, or more than one.
std::optional<Cell> CellAt(const Point &place, const std::array<Point, 3> &axes)
{
    constexpr int Widest = 4;     // steps between two cubes of one figure
    constexpr double Near = 0.12; // half of what lies between two cells
    std::optional<Cell> found;
    for (int x = -Widest; x <= Widest; ++x) {
        for (int y = -Widest; y <= Widest; ++y) {
            for (int z = -Widest; z <= Widest; ++z) {
                const double across = x * axes[0][0] + y * axes[1][0] + z * axes[2][0] - place[0];
                const double down = x * axes[0][1] + y * axes[1][1] + z * axes[2][1] - place[1];
                if (std::abs(across) > Near || std::abs(down) > Near) continue;
                if (found) return {};
                found = Cell{x, y, z};
            }
        }
    }
    return found;
}

/// The cubes of a picture, by the faces' places on the screen alone; empty when they can't be told.
std::optional<Cells> PutTogether(const std::vector<SeenFace> &faces, const std::array<Point, 3> &axes)
{
    std::map<int, Point> places;
    const std::vector<Point> centres = Centres(faces);
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const QPointF one = faces[i].Corners[1] - faces[i].Corners[0];
        const QPointF other = faces[i].Corners[2] - faces[i].Corners[1];
        std::optional<std::size_t> normal;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const auto &a = axes[(axis + 1) % 3];
            const auto &b = axes[(axis + 2) % 3];
            if ((AreParallel(one, a) && AreParallel(other, b)) || (AreParallel(one, b) && AreParallel(other, a)))
                normal = axis;
        }
        if (!normal) return {};
        // of the two faces across this axis, the one that looks up or to the viewer; the cube lies behind it
        const double towards = *normal == 0 ? -0.5 : 0.5;
        places[faces[i].Block] = {centres[i][0] - towards * axes[*normal][0],
                                  centres[i][1] - towards * axes[*normal][1]};
    }
    Cells cells;
    const Point first = places.begin()->second;
    for (const auto &[block, place] : places) {
        const auto cell = CellAt({place[0] - first[0], place[1] - first[1]}, axes);
        if (!cell || std::find(cells.begin(), cells.end(), *cell) != cells.end()) return {};
        cells.push_back(*cell);
    }
    return cells;
}

/// Moved to the corner of the lattice, in order.
Cells AtZero(Cells cells)
{
    Cell least = cells.front();
    for (const Cell &cell : cells)
        for (std::size_t i = 0; i < 3; ++i) least[i] = std::min(least[i], cell[i]);
    for (Cell &cell : cells)
        for (std::size_t i = 0; i < 3; ++i) cell[i] -= least[i];
    std::sort(cells.begin(), cells.end());
    return cells;
}

/// Where the three edges point to after a turn, for all turns: those that come about by turning a quarter about one
/// edge and another again and again.
const std::set<Cells> &AllTurns()
{
    static const std::set<Cells> all = [] {
        std::set<Cells> turns{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
        std::vector<Cells> fresh(turns.begin(), turns.end());
        while (!fresh.empty()) {
            Cells aboutX, aboutY;
            for (const auto &[x, y, z] : fresh.back()) {
                aboutX.push_back({x, -z, y});
                aboutY.push_back({z, y, -x});
            }
            fresh.pop_back();
            for (const Cells &turned : {aboutX, aboutY})
                if (turns.insert(turned).second) fresh.push_back(turned);
        }
        return turns;
    }();
    return all;
}

/// The least of a figure's 24 turns: two figures are one turned if these are the same.
Cells LeastTurn(const Cells &cells)
{
    Cells least;
    Cells turned(cells.size());
    int count = 0;
    for (const Cells &edges : AllTurns()) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            for (std::size_t k = 0; k < 3; ++k)
                turned[i][k] = cells[i][0] * edges[0][k] + cells[i][1] * edges[1][k] + cells[i][2] * edges[2][k];
        const Cells settled = AtZero(turned);
        if (settled == least) ++count;
        if (!least.empty() && !(settled < least)) continue;
        least = settled;
        count = 1;
    }
    EXPECT_EQ(count, 1) << "it looks the same again after less than a whole turn";
    return least;
}

Cells InAMirror(Cells cells)
{
    for (Cell &cell : cells) cell[0] = -cell[0];
    return cells;
}

/// What a picture of a solid tells.
struct Told
{
    Cells figure, mirrored; // the least turns
};

Told Read(const Figure &blocks, const QQuaternion &turn)
{
    constexpr double LeastSeen = 0.2; // of a square of one edge
    const auto faces = TurnViews::Picture(blocks, turn);
    for (const double seen : SeenByPainting(faces, blocks.size())) EXPECT_GE(seen, LeastSeen) << "a cube is hidden";
    std::optional<Cells> cells;
    for (const double yaw : {30.0, 60.0})
        if (!cells) cells = PutTogether(faces, Axes(yaw));
    if (!cells || cells->size() != blocks.size()) {
        ADD_FAILURE() << "the cubes can't be told from their places";
        return {};
    }
    return {LeastTurn(*cells), LeastTurn(InAMirror(*cells))};
}

// ---- both ---------------------------------------------------------------------------------------------------------

/// What has been found out about each picture: the same few thousand come again and again.
template <typename Found>
class Pictures
{
public:
    template <typename Reader>
    const Found &Of(const Figure &blocks, const QQuaternion &turn, Reader read)
    {
        const auto [entry, isNew] = m_Known.try_emplace(KeyOf(blocks, turn));
        if (isNew) entry->second = read(blocks, turn);
        return entry->second;
    }

private:
    using Key = std::array<std::uint64_t, 5>;

    /// The turn to a thousandth, and three bits for each place of a block: all of the picture.
    static Key KeyOf(const Figure &blocks, const QQuaternion &turn)
    {
        Key key{};
        for (const float part : {turn.scalar(), turn.x(), turn.y(), turn.z()})
            key[0] = key[0] << 16 | static_cast<std::uint64_t>(std::lround(1000 * part) + 2000);
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            EXPECT_LT(std::max({blocks[i].x, blocks[i].y, blocks[i].z}), 7);
            const int place = (blocks[i].x + 1) << 6 | blocks[i].y << 3 | blocks[i].z;
            key[1 + i / 5] = key[1 + i / 5] << 9 | static_cast<std::uint64_t>(place);
        }
        return key;
    }

    std::map<Key, Found> m_Known;
};

void ExpectOneRightAnswer(const TurnItem &item)
{
    static Pictures<std::vector<Point>> flat;
    static Pictures<Told> solid;
    bool isTurned = false;
    bool isMirror = false;
    if (item.Solid) {
        const Told &left = solid.Of(item.Left, item.LeftTurn, Read);
        const Told &right = solid.Of(item.Right, item.RightTurn, Read);
        isTurned = left.figure == right.figure;
        isMirror = left.mirrored == right.figure;
    } else {
        const auto points = [](const Figure &blocks, const QQuaternion &turn) {
            return Centres(TurnViews::FlatPicture(blocks, turn));
        };
        const auto &left = flat.Of(item.Left, item.LeftTurn, points);
        const auto &right = flat.Of(item.Right, item.RightTurn, points);
        isTurned = AreOneTurned(left, right);
        isMirror = AreOneTurned(InAMirror(left), right);
    }
    ASSERT_NE(isTurned, isMirror);
    ASSERT_EQ(item.IsMirror, isMirror);
}
} // namespace

class TurnLevel : public testing::TestWithParam<int>
{};
INSTANTIATE_TEST_SUITE_P(TurnRules, TurnLevel, testing::Range(1, TurnRules::Levels + 1));

TEST_P(TurnLevel, EveryItemHasOneRightAnswer)
{
    constexpr int Items = 100000;
    int items = 0;
    int mirrors = 0;
    for (std::uint32_t seed = 0; items < Items; ++seed) {
        TurnRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next(), ++items) {
            ExpectOneRightAnswer(rules.Item());
            if (HasFailure()) FAIL() << "seed " << seed << ", item " << rules.Set().Done();
            if (rules.Item().IsMirror) ++mirrors;
            rules.Judge(true);
        }
    }
    EXPECT_NEAR(mirrors, items / 2, items / 50);
}

TEST_P(TurnLevel, FiguresAreTurnedAsFarAsTheLevelSays)
{
    constexpr std::array<std::array<int, 2>, TurnRules::Levels> turns{
        {{30, 60}, {60, 120}, {90, 180}, {30, 120}, {60, 180}, {30, 60}, {60, 180}, {90, 180}}};
    const auto [least, most] = turns.at(static_cast<std::size_t>(GetParam() - 1));
    std::set<int> seen;
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        TurnRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next()) {
            const TurnItem &item = rules.Item();
            const QQuaternion between = item.RightTurn * item.LeftTurn.conjugated();
            const double angle = 2 * std::acos(std::min(1.0F, std::abs(between.scalar()))) * 180 / std::numbers::pi;
            EXPECT_NEAR(angle, item.Angle, 0.1);
            seen.insert(item.Angle);
            rules.Judge(true);
        }
    }
    EXPECT_EQ(*seen.begin(), least);
    EXPECT_EQ(*seen.rbegin(), most);
}

TEST_P(TurnLevel, TheMatchingPictureIsTheLeftOneOrItsMirrorImage)
{
    const auto key = [](const std::vector<SeenFace> &faces, double sign) {
        std::set<std::pair<int, int>> corners;
        for (const SeenFace &face : faces)
            for (const QPointF &corner : face.Corners)
                corners.insert({qRound(200 * sign * corner.x()), qRound(200 * corner.y())});
        return corners;
    };
    const auto near = [](const auto &one, const auto &other) {
        return std::all_of(one.begin(), one.end(), [&](const auto &a) {
            return std::any_of(other.begin(), other.end(), [&](const auto &b) {
                return std::abs(a.first - b.first) <= 1 && std::abs(a.second - b.second) <= 1;
            });
        });
    };
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        TurnRules rules(GetParam(), seed);
        for (; !rules.Set().Over(); rules.Next()) {
            const TurnItem &item = rules.Item();
            const auto picture = item.Solid ? TurnViews::Picture : TurnViews::FlatPicture;
            const auto left = key(picture(item.Left, item.LeftTurn), item.IsMirror ? -1 : 1);
            const auto right = key(picture(item.Right, item.Matching()), 1);
            EXPECT_TRUE(near(left, right) && near(right, left)) << seed;
            rules.Judge(true);
        }
    }
}

TEST_P(TurnLevel, OneSeedGivesOneSet)
{
    TurnRules one(GetParam(), 7);
    TurnRules other(GetParam(), 7);
    TurnRules third(GetParam(), 8);
    bool differs = false;
    for (; !one.Set().Over(); one.Next(), other.Next(), third.Next()) {
        EXPECT_EQ(one.Item().Left, other.Item().Left);
        EXPECT_EQ(one.Item().RightTurn, other.Item().RightTurn);
        EXPECT_EQ(one.Item().IsMirror, other.Item().IsMirror);
        differs = differs || one.Item().Left != third.Item().Left;
        for (TurnRules *rules : {&one, &other, &third}) rules->Judge(true);
    }
    EXPECT_TRUE(differs);
}

TEST_P(TurnLevel, NoFigureComesTwiceInARow)
{
    TurnRules rules(GetParam(), 5);
    while (!rules.Set().Over()) {
        const Figure before = rules.Item().Left;
        rules.Judge(true);
        rules.Next();
        EXPECT_NE(rules.Item().Left, before);
    }
}

TEST_P(TurnLevel, AWholeSetWithoutAMistakeIsAQuarterMoreThanPar)
{
    TurnRules rules(GetParam(), 2);
    for (; !rules.Set().Over(); rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().IsMirror));
    EXPECT_GE(rules.Set().Points(), 120);
    EXPECT_LE(rules.Set().Points(), 135);
    EXPECT_EQ(rules.Set().Progress(), 100);
}

TEST(TurnRules, LevelsBeyondTheEndsPlayAsTheNearest)
{
    EXPECT_EQ(TurnRules(0, 1).Level(), 1);
    EXPECT_EQ(TurnRules(-2147483647, 1).Level(), 1);
    EXPECT_EQ(TurnRules(9, 1).Level(), 8);
}

TEST(TurnRules, SolidsComeFromLevelSixOn)
{
    for (int level = 1; level <= TurnRules::Levels; ++level)
        EXPECT_EQ(TurnRules(level, 3).Item().Solid, level >= FirstSolid);
}

TEST(TurnRules, AMistakeTakesBackOneAndAHalfRightAnswers)
{
    TurnRules rules(1, 4);
    for (int i = 0; i < 6; ++i, rules.Next()) EXPECT_TRUE(rules.Judge(rules.Item().IsMirror));
    const Rounds six = rules.Set();
    for (int i = 0; i < 2; ++i, rules.Next()) EXPECT_FALSE(rules.Judge(!rules.Item().IsMirror));
    TurnRules three(1, 4);
    for (int i = 0; i < 3; ++i, three.Next()) three.Judge(three.Item().IsMirror);
    EXPECT_LT(rules.Set().Points(), six.Points());
    EXPECT_EQ(rules.Set().Points(), three.Set().Points());
}

TEST(TurnRules, AnAnswerAfterTheEndDoesNothing)
{
    TurnRules rules(1, 4);
    for (; !rules.Set().Over(); rules.Next()) rules.Judge(rules.Item().IsMirror);
    const int points = rules.Set().Points();
    EXPECT_FALSE(rules.Judge(rules.Item().IsMirror));
    EXPECT_EQ(rules.Set().Points(), points);
}

TEST(TurnFigures, ThereAreTwentyFourTurnsOfASolidAndFourInThePlane)
{
    const std::set<RightAngles> all(Figures::SolidTurns().begin(), Figures::SolidTurns().end());
    EXPECT_EQ(all.size(), 24U);
    EXPECT_EQ(Figures::FlatTurns().size(), 4U);
}

TEST(TurnFigures, EveryLetterIsOneFitPiece)
{
    for (const Figure &letter : Figures::Letters()) {
        EXPECT_TRUE(Figures::IsFit(letter, false));
        Figure reached{letter.front()};
        for (std::size_t i = 0; i < reached.size(); ++i)
            for (const Block &block : letter)
                if (std::abs(block.x - reached[i].x) + std::abs(block.y - reached[i].y) == 1 &&
                    std::find(reached.begin(), reached.end(), block) == reached.end())
                    reached.push_back(block);
        EXPECT_EQ(reached.size(), letter.size());
    }
}

TEST(TurnFigures, FiguresLikeTheirMirrorImageAreNotFit)
{
    EXPECT_FALSE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {1, 1, 0}}, false)) << "T";
    EXPECT_FALSE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {2, 1, 0}}, false)) << "Z, the same upside down";
    EXPECT_TRUE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}}, false)) << "L";
    EXPECT_FALSE(Figures::IsFit({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}}, true)) << "L, turned over in space";
}
