#include "sdk/author/Choices.h"

#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <QPainter>

#include <limits>

namespace
{
constexpr int Enter = 13;
constexpr int Space = 32;
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int One = 49, Nine = 57;
constexpr int NumberBlockOne = 97, NumberBlockNine = 105;

constexpr double Aside = 2.5; // a step aside counts as so much further than one ahead

bool IsBetween(int value, int low, int high) { return value >= low && value <= high; }
} // namespace

void Choices::SetPlaces(std::vector<QRectF> Places)
{
    m_Places = std::move(Places);
    m_Over.reset();
    if (m_Ring >= static_cast<int>(m_Places.size())) m_Ring = 0;
}

std::optional<int> Choices::At(QPointF Point) const
{
    for (std::size_t i = 0; i < m_Places.size(); ++i) {
        if (m_Places[i].contains(Point)) return static_cast<int>(i);
    }
    return {};
}

bool Choices::PointAt(QPointF Point)
{
    const auto before = m_Over;
    m_Over = At(Point);
    return m_Over != before;
}

std::optional<int> Choices::Key(int Key)
{
    std::optional<int> chosen;
    if (IsBetween(Key, One, Nine)) chosen = Key - One;
    if (IsBetween(Key, NumberBlockOne, NumberBlockNine)) chosen = Key - NumberBlockOne;
    if (Key == Enter || Key == Space) chosen = Ring();
    if (Key == Left) Move({-1, 0});
    if (Key == Up) Move({0, -1});
    if (Key == Right) Move({1, 0});
    if (Key == Down) Move({0, 1});
    if (chosen && *chosen >= static_cast<int>(m_Places.size())) return {};
    return chosen;
}

// The first arrow only shows the ring.
void Choices::Move(QPointF direction)
{
    if (m_Places.empty()) return;
    if (!m_RingSeen) {
        m_RingSeen = true;
        return;
    }
    const QPointF from = m_Places[static_cast<std::size_t>(m_Ring)].center();
    double nearest = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < m_Places.size(); ++i) {
        const QPointF way = m_Places[i].center() - from;
        const double ahead = QPointF::dotProduct(way, direction);
        const double aside = std::abs(way.x() * direction.y()) + std::abs(way.y() * direction.x());
        if (ahead < 1 || ahead + Aside * aside >= nearest) continue;
        nearest = ahead + Aside * aside;
        m_Ring = static_cast<int>(i);
    }
}

void Choices::DrawRing(QPainter &Painter, const GameColours &Colours, double Round) const
{
    constexpr double Gap = 5;
    if (!Ring()) return;
    const QRectF place = m_Places[static_cast<std::size_t>(m_Ring)].adjusted(-Gap, -Gap, Gap, Gap);
    Painter.save();
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(Colours.text, 3.5));
    Painter.drawRoundedRect(place, Round + Gap, Round + Gap);
    Painter.restore();
}

void Choices::DrawNumber(QPainter &Painter, QPointF Centre, int Choice, const GameColours &Colours)
{
    constexpr double Half = 11;
    const QRectF key(Centre - QPointF(Half, Half), QSizeF(2 * Half, 2 * Half));
    Painter.save();
    Painter.setBrush(Colours.key);
    Painter.setPen(QPen(Colours.keyEdge, 1.4));
    Painter.drawRoundedRect(key, 5, 5);
    Painter.setPen(Colours.keyText);
    GameCanvas::WriteLine(Painter, key, Qt::AlignCenter, QString::number(Choice + 1), 15, QFont::Bold);
    Painter.restore();
}
