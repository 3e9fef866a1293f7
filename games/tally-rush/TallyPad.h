// The number pad on the right: twelve keys, drawn and found by place.
#pragma once

#include <QRectF>

#include <optional>

class QPainter;
struct GameColours;

class TallyPad
{
public:
    // Virtual-key numbers, so that a click is a key like any other.
    static constexpr int Backspace = 8;
    static constexpr int Enter = 13;
    static constexpr int Delete = 46;
    static constexpr int Zero = 48;

    explicit TallyPad(const QRectF &Place) : m_Place(Place) {}

    /// The key at that place.
    std::optional<int> KeyAt(QPointF Place) const;
    QRectF PlaceOf(int Key) const;
    /// Down is the key held by the mouse, Over the one under it; Awake is false while no answer is taken.
    void Draw(QPainter &Painter, const GameColours &Colours, std::optional<int> Down, std::optional<int> Over,
              bool Awake) const;

private:
    QRectF Cell(int column, int row, int columns) const;

    QRectF m_Place;
};
