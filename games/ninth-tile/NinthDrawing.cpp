#include "NinthDrawing.h"

#include "sdk/author/GameColours.h"
#include "sdk/author/Patterns.h"

#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <array>
#include <vector>

namespace
{
// Figures are drawn from -1 to 1, pointing up. Each looks the same in a mirror and different in every turn.

QPainterPath Polygon(const QPolygonF &corners)
{
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

QPainterPath Heart()
{
    QPainterPath path({0, 0.95});
    path.cubicTo({-0.35, 0.55}, {-1, 0.25}, {-1, -0.3});
    path.cubicTo({-1, -0.95}, {-0.2, -1.1}, {0, -0.4});
    path.cubicTo({0.2, -1.1}, {1, -0.95}, {1, -0.3});
    path.cubicTo({1, 0.25}, {0.35, 0.55}, {0, 0.95});
    return path;
}

QPainterPath Drop()
{
    QPainterPath path({0, -1.05});
    path.cubicTo({0.2, -0.5}, {0.78, -0.2}, {0.78, 0.28});
    path.cubicTo({0.78, 0.75}, {0.4, 1}, {0, 1});
    path.cubicTo({-0.4, 1}, {-0.78, 0.75}, {-0.78, 0.28});
    path.cubicTo({-0.78, -0.2}, {-0.2, -0.5}, {0, -1.05});
    return path;
}

QPainterPath House() { return Polygon({{0, -1}, {0.85, -0.25}, {0.85, 0.85}, {-0.85, 0.85}, {-0.85, -0.25}}); }

QPainterPath Arrow()
{
    return Polygon({{0, -1}, {0.95, 0.05}, {0.4, 0.05}, {0.4, 0.95}, {-0.4, 0.95}, {-0.4, 0.05}, {-0.95, 0.05}});
}

QPainterPath Dome()
{
    QPainterPath path({-1, 0.5});
    path.arcTo(QRectF(-1, -0.6, 2, 2.2), 180, -180);
    path.closeSubpath();
    return path;
}

QPainterPath Crown()
{
    return Polygon({{-0.8, 0.75}, {-1, -0.6}, {-0.45, 0}, {0, -0.9}, {0.45, 0}, {1, -0.6}, {0.8, 0.75}});
}

const QPainterPath &Figure(int shape)
{
    static const std::array figures{Heart(), Drop(), House(), Arrow(), Dome(), Crown()};
    return figures.at(static_cast<std::size_t>(shape));
}

// Where so many figures stand, from -1 to 1, as on dice.
const std::vector<QPointF> &Stands(int count)
{
    static const std::array<std::vector<QPointF>, 6> stands{{
        {{0, 0}},
        {{-0.5, 0}, {0.5, 0}},
        {{0, -0.48}, {-0.5, 0.48}, {0.5, 0.48}},
        {{-0.5, -0.5}, {0.5, -0.5}, {-0.5, 0.5}, {0.5, 0.5}},
        {{-0.6, -0.6}, {0.6, -0.6}, {0, 0}, {-0.6, 0.6}, {0.6, 0.6}},
        {{-0.66, -0.45}, {0, -0.45}, {0.66, -0.45}, {-0.66, 0.45}, {0, 0.45}, {0.66, 0.45}},
    }};
    return stands.at(static_cast<std::size_t>(count - 1));
}

constexpr std::array HalfOf{0.72, 0.43, 0.42, 0.42, 0.34, 0.285}; // a large figure, by the most that stand on a tile
constexpr std::array Sizes{0.44, 0.70, 1.0};
constexpr double Inside = 0.44; // half of what the figures have of a tile
constexpr double Corner = 0.14; // of a tile's width

constexpr double FinestPitch = 5.2; // of stripes and dots; coarser ones would be lost on small figures
constexpr double CoarsestPitch = 7.5;

QColor Ink(bool isDark) { return isDark ? QColor(0xa5, 0xd2, 0xf2) : QColor(0x1d, 0x4f, 0x80); }
QColor Paper(bool isDark) { return isDark ? QColor(0x17, 0x24, 0x2c) : QColor(0xf2, 0xf8, 0xff); }
} // namespace

void NinthDrawing::DrawCard(QPainter &Painter, const QRectF &Place, const Look &Look, const QColor &Edge,
                            double Width, bool Lit)
{
    const double round = Place.width() * Corner;
    const QColor ground = GameColours::For(Look.Dark).ground;
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(0, 0, 0, Look.Dark ? 70 : 30));
    Painter.drawRoundedRect(Place.translated(0, 3), round, round);
    Painter.setBrush(!Lit ? ground : Look.Dark ? ground.lighter(135) : GameColours::For(false).well);
    Painter.setPen({Edge, Width});
    Painter.drawRoundedRect(Place, round, round);
}

void NinthDrawing::DrawFigures(QPainter &Painter, const QRectF &Place, const Tile &Tile, const Look &Look)
{
    const double inside = Place.width() * Inside;
    const double half = inside * HalfOf.at(static_cast<std::size_t>(Look.Most - 1));
    const double size = half * Sizes.at(static_cast<std::size_t>(Tile[Trait::Size]));
    for (const QPointF stand : Stands(Tile[Trait::Count] + 1)) {
        const QPointF centre = Place.center() + stand * inside;
        const QTransform place =
            QTransform::fromTranslate(centre.x(), centre.y()).rotate(90.0 * Tile[Trait::Turn]).scale(size, size);
        Patterns::Draw(Painter, place.map(Figure(Tile[Trait::Shape])), static_cast<Pattern>(Tile[Trait::Fill]),
                       Ink(Look.Dark), Paper(Look.Dark), std::clamp(half * 0.42, FinestPitch, CoarsestPitch));
    }
}
