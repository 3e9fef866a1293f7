#include "TurnWords.h"

#include "TurnViews.h"

#include <QStringList>
#include <QVector3D>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace
{
struct Arm
{
    Block direction;
    int blocks = 0;
};

Block Step(const Block &from, const Block &to) { return {to.x - from.x, to.y - from.y, to.z - from.z}; }

bool Touch(const Block &one, const Block &other)
{
    const Block step = Step(one, other);
    return std::abs(step.x) + std::abs(step.y) + std::abs(step.z) == 1;
}

/// Block after block from one end to the other.
Figure Way(const Figure &blocks)
{
    const auto neighbours = [&](const Block &block) {
        return std::count_if(blocks.begin(), blocks.end(), [&](const Block &b) { return Touch(b, block); });
    };
    Figure rest = blocks;
    Figure way;
    auto next = std::find_if(rest.begin(), rest.end(), [&](const Block &b) { return neighbours(b) == 1; });
    while (next != rest.end()) {
        way.push_back(*next);
        rest.erase(next);
        next = std::find_if(rest.begin(), rest.end(), [&](const Block &b) { return Touch(b, way.back()); });
    }
    return way;
}

std::vector<Arm> ArmsOf(const Figure &way)
{
    std::vector<Arm> arms;
    for (std::size_t i = 1; i < way.size(); ++i) {
        const Block step = Step(way[i - 1], way[i]);
        if (arms.empty() || arms.back().direction != step) arms.push_back({step, 0});
        ++arms.back().blocks;
    }
    return arms;
}

const char *Direction(const QVector3D &seen)
{
    const float x = std::abs(seen.x());
    const float y = std::abs(seen.y());
    const float z = std::abs(seen.z());
    if (x > y && x > z) return seen.x() > 0 ? "Rightwards" : "Leftwards";
    if (y > z) return seen.y() > 0 ? "Upwards" : "Downwards";
    return seen.z() > 0 ? "Forwards" : "Backwards";
}
} // namespace

QString TurnWords::Flat(const Figure &Blocks, const QQuaternion &Turn)
{
    const double angle = 2 * std::atan2(Turn.z(), Turn.scalar()) * 180 / std::numbers::pi;
    const int quarters = static_cast<int>(std::lround(angle / 90));
    Figure upright = Blocks;
    for (int i = 0; i < ((quarters % 4) + 4) % 4; ++i)
        for (Block &block : upright) block = {-block.y, block.x, 0};
    upright = Figures::Settled(upright);

    QStringList rows;
    for (const Block &block : upright) {
        while (rows.size() <= block.y) rows.append(QString());
        QString &row = rows[block.y];
        while (row.size() < block.x) row += u'o';
        row += u'x';
    }
    std::reverse(rows.begin(), rows.end());
    return QStringLiteral("%1, %2°").arg(rows.join(QStringLiteral(", "))).arg(std::lround(angle) - 90L * quarters);
}

QString TurnWords::Solid(const Figure &Blocks, const QQuaternion &Turn,
                         const std::function<QString(const char *)> &Word)
{
    Figure way = Way(Blocks);
    const auto forth = ArmsOf(way);
    std::reverse(way.begin(), way.end());
    const auto back = ArmsOf(way);
    const bool isForth =
        !std::lexicographical_compare(forth.begin(), forth.end(), back.begin(), back.end(),
                                      [](const Arm &a, const Arm &b) { return a.blocks < b.blocks; });
    const QQuaternion level = TurnViews::FromAbove(0).conjugated() * Turn;
    QStringList told;
    for (const Arm &arm : isForth ? forth : back) {
        const QVector3D direction(static_cast<float>(arm.direction.x), static_cast<float>(arm.direction.y),
                                  static_cast<float>(arm.direction.z));
        told += QStringLiteral("%1 %2").arg(arm.blocks).arg(Word(Direction(level.rotatedVector(direction))));
    }
    return told.join(QStringLiteral(", "));
}
