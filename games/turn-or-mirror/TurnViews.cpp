#include "TurnViews.h"

#include <QVector3D>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{
constexpr float Height = 33;      // [degrees] above the ground plane
constexpr double LeastSeen = 0.3; // of a square of one edge, of each cube
constexpr int Samples = 5;        // along each side of a face
constexpr float Grazing = 1e-4F;  // faces seen at so flat an angle are not seen

struct Side
{
    Block normal, across, down;
};
constexpr std::array<Side, 6> Sides{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                                     {{-1, 0, 0}, {0, 0, 1}, {0, 1, 0}},
                                     {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}},
                                     {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}},
                                     {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},
                                     {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}};

QVector3D Vector(const Block &block)
{
    return {static_cast<float>(block.x), static_cast<float>(block.y), static_cast<float>(block.z)};
}

QVector3D Middle(const Figure &blocks)
{
    QVector3D sum;
    for (const Block &block : blocks) sum += Vector(block);
    return sum / static_cast<float>(blocks.size());
}

bool Holds(const Figure &blocks, const Block &at, const Block &step)
{
    const Block next{at.x + step.x, at.y + step.y, at.z + step.z};
    return std::find(blocks.begin(), blocks.end(), next) != blocks.end();
}

// The middle of a point of a side, from -1 to 1 along both of its edges.
QVector3D OnSide(const Block &block, const Side &side, float across, float down)
{
    return Vector(block) + (Vector(side.normal) + Vector(side.across) * across + Vector(side.down) * down) / 2;
}

// Light falls from above, somewhat from the left and from the viewer.
double LightOn(const QVector3D &normal)
{
    static const QVector3D light = QVector3D(-0.40F, 0.80F, 0.45F).normalized();
    return std::clamp(0.5 + 0.5 * static_cast<double>(QVector3D::dotProduct(normal, light)), 0.0, 1.0);
}

SeenFace Seen(const Figure &blocks, int block, const Side &side, const QQuaternion &turn, const QVector3D &middle)
{
    constexpr std::array<std::array<float, 2>, 4> corners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    SeenFace face{block, LightOn(turn.rotatedVector(Vector(side.normal))), {}};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Block &at = blocks[static_cast<std::size_t>(block)];
        const QVector3D corner = turn.rotatedVector(OnSide(at, side, corners[i][0], corners[i][1]) - middle);
        face.Corners[i] = QPointF(static_cast<double>(corner.x()), -static_cast<double>(corner.y()));
    }
    return face;
}

// Whether a ray from there enters the cube around the middle.
bool Meets(const QVector3D &from, const QVector3D &ray, const QVector3D &middle)
{
    constexpr float Touch = 1e-3F;
    float enter = Touch;
    float leave = 1e6F;
    for (int axis = 0; axis < 3; ++axis) {
        const float start = from[axis] - middle[axis];
        if (std::abs(ray[axis]) < Grazing) {
            if (std::abs(start) > 0.5F) return false;
            continue;
        }
        const float one = (-0.5F - start) / ray[axis];
        const float other = (0.5F - start) / ray[axis];
        enter = std::max(enter, std::min(one, other));
        leave = std::min(leave, std::max(one, other));
    }
    return leave > enter + Touch;
}

bool IsCovered(const Figure &blocks, int self, const QVector3D &point, const QVector3D &ray)
{
    for (int other = 0; other < static_cast<int>(blocks.size()); ++other)
        if (other != self && Meets(point, ray, Vector(blocks[static_cast<std::size_t>(other)]))) return true;
    return false;
}

double SeenOf(const Figure &blocks, int self, const QVector3D &ray)
{
    const Block &block = blocks[static_cast<std::size_t>(self)];
    double seen = 0;
    for (const Side &side : Sides) {
        const float facing = QVector3D::dotProduct(Vector(side.normal), ray);
        if (facing < Grazing || Holds(blocks, block, side.normal)) continue;
        int open = 0;
        for (int i = 0; i < Samples * Samples; ++i) {
            const auto along = [](int step) { return 2 * (static_cast<float>(step) + 0.5F) / Samples - 1; };
            if (!IsCovered(blocks, self, OnSide(block, side, along(i % Samples), along(i / Samples)), ray)) ++open;
        }
        seen += static_cast<double>(facing) * open / (Samples * Samples);
        if (seen >= LeastSeen) break;
    }
    return seen;
}
} // namespace

QQuaternion TurnViews::FromAbove(double Turn)
{
    return QQuaternion::fromAxisAndAngle(1, 0, 0, Height) *
           QQuaternion::fromAxisAndAngle(0, 1, 0, static_cast<float>(Turn));
}

QQuaternion TurnViews::InThePlane(double Turn)
{
    return QQuaternion::fromAxisAndAngle(0, 0, 1, static_cast<float>(Turn));
}

QQuaternion TurnViews::RotationOf(const RightAngles &Turn)
{
    QMatrix3x3 matrix;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            matrix(row, column) =
                static_cast<float>(Turn[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    }
    return QQuaternion::fromRotationMatrix(matrix);
}

// A cube covers another only where it lies no farther from the viewer along every edge: the sum tells the order.
std::vector<SeenFace> TurnViews::Picture(const Figure &Blocks, const QQuaternion &Turn)
{
    const QVector3D ray = Turn.conjugated().rotatedVector({0, 0, 1});
    const auto sign = [](float along) { return along < 0 ? -1 : 1; };
    const Block ahead{sign(ray.x()), sign(ray.y()), sign(ray.z())};
    const auto nearness = [&](int i) {
        const Block &block = Blocks[static_cast<std::size_t>(i)];
        return ahead.x * block.x + ahead.y * block.y + ahead.z * block.z;
    };
    std::vector<int> order(Blocks.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return nearness(a) < nearness(b); });

    std::vector<SeenFace> faces;
    const QVector3D middle = Middle(Blocks);
    for (const int i : order) {
        for (const Side &side : Sides) {
            if (QVector3D::dotProduct(Vector(side.normal), ray) < Grazing) continue;
            if (Holds(Blocks, Blocks[static_cast<std::size_t>(i)], side.normal)) continue;
            faces.push_back(Seen(Blocks, i, side, Turn, middle));
        }
    }
    return faces;
}

std::vector<SeenFace> TurnViews::FlatPicture(const Figure &Blocks, const QQuaternion &Turn)
{
    constexpr std::size_t TowardsTheViewer = 4;
    std::vector<SeenFace> squares;
    squares.reserve(Blocks.size());
    const QVector3D middle = Middle(Blocks) + QVector3D(0, 0, 0.5F);
    for (int i = 0; i < static_cast<int>(Blocks.size()); ++i)
        squares.push_back(Seen(Blocks, i, Sides[TowardsTheViewer], Turn, middle));
    return squares;
}

double TurnViews::Reach(const Figure &Blocks)
{
    constexpr double ToCorner = 0.71; // of a square; of a cube it is less than this beyond the middle of the picture
    const QVector3D middle = Middle(Blocks);
    double reach = 0;
    for (const Block &block : Blocks) reach = std::max(reach, static_cast<double>((Vector(block) - middle).length()));
    return reach + ToCorner;
}

bool TurnViews::EverythingIsSeen(const Figure &Blocks, const QQuaternion &Turn)
{
    const QVector3D ray = Turn.conjugated().rotatedVector({0, 0, 1});
    for (int i = 0; i < static_cast<int>(Blocks.size()); ++i)
        if (SeenOf(Blocks, i, ray) < LeastSeen) return false;
    return true;
}
