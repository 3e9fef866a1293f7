#include "tests/games/TurnProof.h"

#include "games/turn-or-mirror/TurnViews.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <set>

namespace
{
using Point = std::array<double, 2>;
using Cell = std::array<int, 3>;
using Cells = std::vector<Cell>;

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
    constexpr std::size_t Whole = 96;
    static std::array<std::array<int, Whole>, Whole> grid;
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
                const int row = y + Half;
                const int column = x + Half;
                if (std::abs(turns) == 4)
                    grid.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)) = face.Block;
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
} // namespace

void ExpectOneRightAnswer(const TurnItem &Item)
{
    static Pictures<std::vector<Point>> flat;
    static Pictures<Told> solid;
    bool isTurned = false;
    bool isMirror = false;
    if (Item.Solid) {
        const Told &left = solid.Of(Item.Left, Item.LeftTurn, Read);
        const Told &right = solid.Of(Item.Right, Item.RightTurn, Read);
        isTurned = left.figure == right.figure;
        isMirror = left.mirrored == right.figure;
    } else {
        const auto points = [](const Figure &blocks, const QQuaternion &turn) {
            return Centres(TurnViews::FlatPicture(blocks, turn));
        };
        const auto &left = flat.Of(Item.Left, Item.LeftTurn, points);
        const auto &right = flat.Of(Item.Right, Item.RightTurn, points);
        isTurned = AreOneTurned(left, right);
        isMirror = AreOneTurned(InAMirror(left), right);
    }
    ASSERT_NE(isTurned, isMirror);
    ASSERT_EQ(Item.IsMirror, isMirror);
}
