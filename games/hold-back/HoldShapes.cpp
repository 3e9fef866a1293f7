#include "HoldShapes.h"

#include <QPainter>
#include <QPolygonF>

#include <array>

namespace
{
using Family = HoldRules::Family;

constexpr double FullTurn = 360;   // [degrees]
constexpr double Gap = 70;         // [degrees] of a ring
constexpr double RingRadius = 0.8; // of half the size, to the middle of its line
constexpr double RingLine = 0.34;  // of half the size
constexpr double DotRadius = 0.24; // of half the size
constexpr double Line = 0.07;      // of half the size

constexpr std::array Plain{"Circle", "Square", "Triangle", "Cross"};
constexpr std::array Directions{"Up", "UpRight", "ToTheRight", "DownRight", "Down", "DownLeft", "Left", "UpLeft"};

QPolygonF ArrowUp()
{
    return {{0, -1}, {0.84, -0.06}, {0.36, -0.06}, {0.36, 0.94}, {-0.36, 0.94}, {-0.36, -0.06}, {-0.84, -0.06}};
}

void DrawPlain(QPainter &painter, int kind)
{
    constexpr double Arm = 0.32;
    constexpr double End = 0.95;
    if (kind == 0) painter.drawEllipse(QPointF(), 0.94, 0.94);
    if (kind == 1) painter.drawRect(QRectF(-0.84, -0.84, 1.68, 1.68));
    if (kind == 2) painter.drawPolygon(QPolygonF{{0, -0.95}, {1, 0.8}, {-1, 0.8}});
    if (kind == 3)
        painter.drawPolygon(QPolygonF{{-Arm, -End},
                                      {Arm, -End},
                                      {Arm, -Arm},
                                      {End, -Arm},
                                      {End, Arm},
                                      {Arm, Arm},
                                      {Arm, End},
                                      {-Arm, End},
                                      {-Arm, Arm},
                                      {-End, Arm},
                                      {-End, -Arm},
                                      {-Arm, -Arm}});
}

// Open at the top; a turn brings the gap to its place.
void DrawRing(QPainter &painter, const QColor &colour, bool hasDot)
{
    constexpr int Fine = 16; // Qt counts in sixteenths of a degree
    const QRectF middle(-RingRadius, -RingRadius, 2 * RingRadius, 2 * RingRadius);
    painter.setPen({colour, RingLine, Qt::SolidLine, Qt::FlatCap});
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(middle, static_cast<int>((90 + Gap / 2) * Fine), static_cast<int>((FullTurn - Gap) * Fine));
    if (!hasDot) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(), DotRadius, DotRadius);
}

// The upper half is full.
void DrawHalf(QPainter &painter, const QColor &colour, const QColor &inner)
{
    constexpr double Radius = 0.94;
    constexpr int Half = 180 * 16;
    const QRectF disc(-Radius, -Radius, 2 * Radius, 2 * Radius);
    painter.setPen({colour, 1.6 * Line});
    painter.setBrush(inner);
    painter.drawEllipse(disc);
    painter.setBrush(colour);
    painter.drawChord(disc, 0, Half);
}

bool HasFourDirections(Family family)
{
    return family == Family::FourArrows || family == Family::FourRings || family == Family::DottedRings;
}

// In eighths of a full turn, clockwise from the top.
int DirectionOf(Family family, int kind)
{
    if (family == Family::Plain) return 0;
    return HasFourDirections(family) ? 2 * (kind % 4) : kind;
}

bool HasDot(Family family, int kind) { return family == Family::DottedRings && kind >= 4; }
} // namespace

void HoldShapes::Draw(QPainter &Painter, QPointF Centre, double Size, HoldRules::Family Family, int Kind,
                      const QColor &Colour, const QColor &Inner)
{
    Painter.save();
    Painter.translate(Centre);
    Painter.scale(Size / 2, Size / 2);
    Painter.rotate(FullTurn / 8 * DirectionOf(Family, Kind));
    Painter.setPen({Colour, Line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    Painter.setBrush(Colour);
    switch (Family) {
    case HoldRules::Family::Plain:
        DrawPlain(Painter, Kind);
        break;
    case HoldRules::Family::FourArrows:
    case HoldRules::Family::EightArrows:
        Painter.drawPolygon(ArrowUp());
        break;
    case HoldRules::Family::EightHalves:
        DrawHalf(Painter, Colour, Inner);
        break;
    case HoldRules::Family::FourRings:
    case HoldRules::Family::EightRings:
    case HoldRules::Family::DottedRings:
        DrawRing(Painter, Colour, HasDot(Family, Kind));
        break;
    }
    Painter.restore();
}

std::vector<const char *> HoldShapes::Words(HoldRules::Family Family, int Kind)
{
    if (Family == HoldRules::Family::Plain) return {Plain.at(static_cast<std::size_t>(Kind))};
    const bool isArrow = Family == HoldRules::Family::FourArrows || Family == HoldRules::Family::EightArrows;
    const bool isHalf = Family == HoldRules::Family::EightHalves;
    const char *shape = isArrow ? "Arrow" : isHalf ? "Half" : HasDot(Family, Kind) ? "DottedRing" : "Ring";
    return {shape, Directions.at(static_cast<std::size_t>(DirectionOf(Family, Kind)))};
}

QColor HoldShapes::Tint(int Tint, bool Dark)
{
    static const std::array light{QColor(0x1f, 0x86, 0x7c), QColor(0x2f, 0x6f, 0xb5), QColor(0x86, 0x55, 0xad),
                                  QColor(0xb8, 0x5a, 0x26)};
    static const std::array dark{QColor(0x55, 0xc4, 0xb4), QColor(0x74, 0xb0, 0xee), QColor(0xc0, 0x98, 0xe4),
                                 QColor(0xf0, 0x9c, 0x66)};
    return (Dark ? dark : light).at(static_cast<std::size_t>(Tint));
}
