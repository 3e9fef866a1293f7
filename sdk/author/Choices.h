// One of several places, chosen by a click, by its number, or by moving a ring with the arrow keys and pressing Enter
// or the space bar. Places are in the units that the caller draws in.
#pragma once

#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

class QPainter;
struct GameColours;

class Choices
{
public:
    /// Other places: nothing is under the pointer, and the ring keeps its number where there still is one.
    void SetPlaces(std::vector<QRectF> Places);
    const std::vector<QRectF> &Places() const { return m_Places; }

    /// The place at that point.
    std::optional<int> At(QPointF Point) const;
    /// The pointer moved: whether something looks different now.
    bool PointAt(QPointF Point);
    /// What a virtual-key number chooses: digits from 1 the places in their order, Enter and Space the one with the
    /// ring. An arrow moves the ring to the next place in its direction and chooses nothing.
    std::optional<int> Key(int Key);
    /// Takes the ring off, as a click does.
    void HideRing() { m_RingSeen = false; }

    std::optional<int> Over() const { return m_Over; }
    std::optional<int> Ring() const { return m_RingSeen ? std::optional(m_Ring) : std::nullopt; }

    /// The ring around its place, where it is seen; Round is the radius of the place's corners.
    void DrawRing(QPainter &Painter, const GameColours &Colours, double Round = 14) const;
    /// The number that chooses a place, as a small key around that point.
    static void DrawNumber(QPainter &Painter, QPointF Centre, int Choice, const GameColours &Colours);

private:
    void Move(QPointF direction);

    std::vector<QRectF> m_Places;
    std::optional<int> m_Over;
    int m_Ring = 0;
    bool m_RingSeen = false;
};
