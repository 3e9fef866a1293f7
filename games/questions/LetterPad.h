// Keys to click for an answer that is typed: the letters and digits that answers may have, one to take back and one
// to give the answer. Who has a keyboard does not need it.
#pragma once

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

class QPainter;
struct GameColours;

class LetterPad
{
public:
    static constexpr char16_t Backspace = 8;
    static constexpr char16_t Enter = 13;

    /// All that the answers need: the whole alphabet where one of them has a letter, all digits where one has a
    /// digit, besides every other character of them. Place is the room for the keys.
    void SetAnswers(const QStringList &Plain, const QRectF &Place);
    void Clear() { m_Keys.clear(); }
    /// The key at that point, a letter or one of the two above.
    std::optional<QChar> At(QPointF Point) const;
    /// Where a key is; for tests and for drawing.
    QRectF PlaceOf(QChar Key) const;
    void Draw(QPainter &Painter, const GameColours &Colours, std::optional<QChar> Over) const;

private:
    struct Key
    {
        QChar letter;
        QRectF place;
    };
    std::vector<Key> m_Keys;
};
