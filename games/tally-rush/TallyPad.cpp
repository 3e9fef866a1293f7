#include "TallyPad.h"

#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <QPainter>

#include <array>

namespace
{
struct PadKey
{
    int key, column, row, columns;
};

constexpr int Digit = TallyPad::Zero;
constexpr std::array Keys{
    PadKey{Digit + 7, 0, 0, 1},           PadKey{Digit + 8, 1, 0, 1}, PadKey{Digit + 9, 2, 0, 1},
    PadKey{Digit + 4, 0, 1, 1},           PadKey{Digit + 5, 1, 1, 1}, PadKey{Digit + 6, 2, 1, 1},
    PadKey{Digit + 1, 0, 2, 1},           PadKey{Digit + 2, 1, 2, 1}, PadKey{Digit + 3, 2, 2, 1},
    PadKey{TallyPad::Backspace, 0, 3, 1}, PadKey{Digit, 1, 3, 1},     PadKey{TallyPad::Enter, 2, 3, 1},
};
constexpr int Columns = 3;
constexpr int Rows = 4;
constexpr double Gap = 8;
constexpr double Corner = 12;

// Enter: the corner arrow that keyboards show.
void DrawEnter(QPainter &painter, const QRectF &box, const QColor &colour)
{
    painter.save();
    painter.translate(box.center());
    painter.setPen({colour, 4.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{-14, 3}, {14, 3}, {14, -12}});
    painter.drawPolyline(QPolygonF{{-6, -5}, {-14, 3}, {-6, 11}});
    painter.restore();
}

// Backspace: a label that points to what it takes away.
void DrawBackspace(QPainter &painter, const QRectF &box, const QColor &colour)
{
    painter.save();
    painter.translate(box.center());
    painter.setPen({colour, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(QPolygonF{{-19, 0}, {-8, -12}, {16, -12}, {16, 12}, {-8, 12}});
    painter.drawLine(QPointF(-1, -5), QPointF(9, 5));
    painter.drawLine(QPointF(-1, 5), QPointF(9, -5));
    painter.restore();
}
} // namespace

QRectF TallyPad::Cell(int column, int row, int columns) const
{
    const double width = (m_Place.width() - Gap * (Columns - 1)) / Columns;
    const double height = (m_Place.height() - Gap * (Rows - 1)) / Rows;
    return {m_Place.left() + column * (width + Gap), m_Place.top() + row * (height + Gap),
            columns * width + (columns - 1) * Gap, height};
}

QRectF TallyPad::PlaceOf(int Key) const
{
    for (const PadKey &key : Keys) {
        if (key.key == Key) return Cell(key.column, key.row, key.columns);
    }
    return {};
}

std::optional<int> TallyPad::KeyAt(QPointF Place) const
{
    for (const PadKey &key : Keys) {
        // half the gap belongs to the key, so that a click between two is never lost
        if (Cell(key.column, key.row, key.columns).adjusted(-Gap / 2, -Gap / 2, Gap / 2, Gap / 2).contains(Place))
            return key.key;
    }
    return {};
}

void TallyPad::Draw(QPainter &Painter, const GameColours &Colours, std::optional<int> Down, std::optional<int> Over,
                    bool Awake) const
{
    Painter.save();
    Painter.setOpacity(Awake ? 1.0 : 0.45);
    for (const PadKey &key : Keys) {
        const bool enter = key.key == Enter;
        const bool down = Awake && Down == key.key;
        QRectF box = Cell(key.column, key.row, key.columns);
        QColor face = enter ? Colours.accent : Colours.key;
        if (Awake && Over == key.key && !down) face = face.lighter(enter ? 108 : 100).darker(enter ? 100 : 105);
        if (down) face = face.darker(118);

        Painter.setPen(Qt::NoPen);
        if (!down) { // a little shadow: a key that is up
            Painter.setBrush(QColor(0, 0, 0, 38));
            Painter.drawRoundedRect(box.translated(0, 3), Corner, Corner);
        } else {
            box.translate(0, 2);
        }
        Painter.setBrush(face);
        Painter.setPen({enter ? Colours.accent.darker(125) : Colours.keyEdge, 1.5});
        Painter.drawRoundedRect(box, Corner, Corner);

        const QColor ink = enter ? Colours.accentText : Colours.keyText;
        Painter.setPen(ink);
        if (enter)
            DrawEnter(Painter, box, ink);
        else if (key.key == Backspace)
            DrawBackspace(Painter, box, ink);
        else
            GameCanvas::WriteLine(Painter, box, Qt::AlignCenter, QString::number(key.key - Zero), 34,
                                  QFont::DemiBold);
    }
    Painter.restore();
}
