#include "LetterPad.h"

#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <set>

namespace
{
constexpr int MostColumns = 13;
constexpr double WidestKey = 64;
constexpr double HighestKey = 52;
constexpr double Gap = 5;

QPen Stroke(const QColor &colour, double width)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// The arrows that keyboards show on these two keys.
void DrawSign(QPainter &painter, QPointF centre, bool isEnter, const QColor &colour)
{
    painter.save();
    painter.translate(centre);
    painter.setPen(Stroke(colour, 3));
    painter.setBrush(Qt::NoBrush);
    if (isEnter) {
        painter.drawPolyline(QPolygonF{{-9, 2}, {9, 2}, {9, -8}});
        painter.drawPolyline(QPolygonF{{-4, -3}, {-9, 2}, {-4, 7}});
    } else {
        painter.drawLine(QPointF(-9, 0), QPointF(9, 0));
        painter.drawPolyline(QPolygonF{{-3, -6}, {-9, 0}, {-3, 6}});
    }
    painter.restore();
}
} // namespace

void LetterPad::SetAnswers(const QStringList &Plain, const QRectF &Place)
{
    std::set<QChar> letters;
    for (const QString &answer : Plain) {
        for (const QChar letter : answer) {
            letters.insert(letter);
            const bool isDigit = letter >= u'0' && letter <= u'9';
            const bool isLatin = letter >= u'a' && letter <= u'z';
            for (char16_t one = isDigit ? u'0' : u'a'; (isDigit || isLatin) && one <= (isDigit ? u'9' : u'z'); ++one)
                letters.insert(one);
        }
    }
    std::vector<QChar> keys(letters.begin(), letters.end());
    keys.emplace_back(Backspace);
    keys.emplace_back(Enter);

    const int count = static_cast<int>(keys.size());
    const int rows = (count + MostColumns - 1) / MostColumns;
    const int columns = (count + rows - 1) / rows;
    const double width = std::min(WidestKey, Place.width() / columns);
    const double height = std::min(HighestKey, Place.height() / rows);
    m_Keys.clear();
    for (int i = 0; i < count; ++i) {
        const int row = i / columns;
        const int inRow = std::min(columns, count - row * columns);
        const double left = Place.center().x() - width * inRow / 2 + width * (i % columns);
        m_Keys.push_back({keys[static_cast<std::size_t>(i)], {left, Place.top() + height * row, width, height}});
    }
}

std::optional<QChar> LetterPad::At(QPointF Point) const
{
    for (const Key &key : m_Keys)
        if (key.place.contains(Point)) return key.letter;
    return {};
}

QRectF LetterPad::PlaceOf(QChar Letter) const
{
    for (const Key &key : m_Keys)
        if (key.letter == Letter) return key.place;
    return {};
}

void LetterPad::Draw(QPainter &Painter, const GameColours &Colours, std::optional<QChar> Over) const
{
    for (const Key &key : m_Keys) {
        const bool isEnter = key.letter == QChar(Enter);
        const QRectF box = key.place.adjusted(Gap / 2, Gap / 2, -Gap / 2, -Gap / 2);
        const QColor face = isEnter ? Colours.accent : Colours.key;
        Painter.setPen(Qt::NoPen);
        Painter.setBrush(QColor(0, 0, 0, 38));
        Painter.drawRoundedRect(box.translated(0, 2), 8, 8);
        Painter.setPen({isEnter ? Colours.accent.darker(125) : Colours.keyEdge, 1.3});
        Painter.setBrush(Over == key.letter ? face.darker(106) : face);
        Painter.drawRoundedRect(box, 8, 8);
        const QColor ink = isEnter ? Colours.accentText : Colours.keyText;
        Painter.setPen(ink);
        if (isEnter || key.letter == QChar(Backspace))
            DrawSign(Painter, box.center(), isEnter, ink);
        else
            GameCanvas::WriteLine(Painter, box, Qt::AlignCenter, QString(key.letter).toUpper(), 21, QFont::DemiBold);
    }
}
