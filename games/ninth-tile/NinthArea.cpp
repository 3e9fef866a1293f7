#include "NinthArea.h"

#include "sdk/author/Marks.h"

#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace
{
constexpr int RightTime = 900;      // [ms] for which an answer is told
constexpr int WrongTime = 2600;     // [ms]
constexpr double FlightPart = 0.38; // of the time in which a right answer is told

constexpr QRectF Board{24, 54, 300, 308};
constexpr QRectF OfferedBox{340, 54, 260, 308};
constexpr double TileSize = 88;
constexpr double TileGap = 8;
constexpr double SmallSize = 79; // where three stand in a row
constexpr double OfferedGap = 11.5;
constexpr double MarkSize = 30;

// A grid of equal tiles around the middle of a box; a last row that is not full stands in the middle.
std::vector<QRectF> Grid(const QRectF &box, int count, int columns, double size, double gap)
{
    std::vector<QRectF> places;
    const int rows = (count + columns - 1) / columns;
    const double top = box.center().y() - (rows * (size + gap) - gap) / 2;
    for (int i = 0; i < count; ++i) {
        const int row = i / columns;
        const int inRow = std::min(columns, count - row * columns);
        const double left = box.center().x() - (inRow * (size + gap) - gap) / 2;
        places.emplace_back(left + i % columns * (size + gap), top + row * (size + gap), size, size);
    }
    return places;
}

const std::vector<QRectF> &SquarePlaces()
{
    static const std::vector<QRectF> places = Grid(Board, 9, 3, TileSize, TileGap);
    return places;
}

QPointF CornerOf(const QRectF &place) { return place.topRight() + QPointF(-5, 5); }
} // namespace

NinthArea::NinthArea(QWidget *Container) : ChoiceGame(RightTime, WrongTime, Container) {}

std::vector<QRectF> NinthArea::Places() const
{
    const int count = static_cast<int>(Rules().Item().Offered.size());
    return count == 6 ? Grid(OfferedBox, count, 2, TileSize, TileGap + 6)
                      : Grid(OfferedBox, count, 3, SmallSize, OfferedGap);
}

// Who hears the game is told the right tile where others see it.
bool NinthArea::Judge(int Choice)
{
    const bool right = ChoiceGame::Judge(Choice);
    if (!right) setAccessibleName(QStringLiteral("%1: %2").arg(Word("RightTile")).arg(Rules().Item().Right + 1));
    return right;
}

QString NinthArea::Line() const
{
    if (!Chosen()) return Word("Hint");
    return Word(WasRight() ? "Right" : "Wrong");
}

// Only what differs somewhere is told. Rows end in semicolons.
QString NinthArea::ItemInWords() const
{
    const NinthItem &item = Rules().Item();
    std::array<bool, Traits> told{};
    const auto compare = [&](const Tile &tile) {
        for (std::size_t i = 0; i < Traits; ++i) told[i] = told[i] || tile.Values[i] != item.Square[0].Values[i];
    };
    std::for_each(item.Square.begin(), item.Square.end() - 1, compare);
    std::for_each(item.Offered.begin(), item.Offered.end(), compare);

    QString words;
    for (std::size_t i = 0; i + 1 < item.Square.size(); ++i)
        words += InWords(item.Square[i], told) + (i % 3 == 2 ? QStringLiteral("; ") : QStringLiteral(", "));
    words += u'?';
    for (std::size_t i = 0; i < item.Offered.size(); ++i)
        words += QStringLiteral(". %1: %2").arg(i + 1).arg(InWords(item.Offered[i], told));
    return words;
}

QString NinthArea::InWords(const Tile &tile, const std::array<bool, Traits> &told) const
{
    static constexpr std::array Shapes{"Heart", "Drop", "House", "Arrow", "Dome", "Crown"};
    static constexpr std::array Fills{"Open", "Striped", "Dotted", "Solid"};
    static constexpr std::array Sizes{"Small", "Medium", "Large"};
    static constexpr std::array Turns{"Upright", "TurnedRight", "UpsideDown", "TurnedLeft"};
    const auto isTold = [&](Trait on) { return told[static_cast<std::size_t>(on)]; };
    const auto word = [&](const auto &words, Trait on) { return Word(words.at(static_cast<std::size_t>(tile[on]))); };
    QStringList parts;
    if (isTold(Trait::Count)) parts += QString::number(tile[Trait::Count] + 1);
    if (isTold(Trait::Shape)) parts += word(Shapes, Trait::Shape);
    if (isTold(Trait::Fill)) parts += word(Fills, Trait::Fill);
    if (isTold(Trait::Size)) parts += word(Sizes, Trait::Size);
    if (isTold(Trait::Turn)) parts += word(Turns, Trait::Turn);
    return parts.join(u' ');
}

NinthDrawing::Look NinthArea::Look() const
{
    int most = 0;
    for (const Tile &tile : Rules().Item().Square) most = std::max(most, tile[Trait::Count]);
    for (const Tile &tile : Rules().Item().Offered) most = std::max(most, tile[Trait::Count]);
    return {most + 1, Dark()};
}

void NinthArea::PaintTable(QPainter &Painter)
{
    PaintSquare(Painter);
    PaintOffered(Painter);
    PaintNinth(Painter);
    if (Chosen()) PaintFlight(Painter);
}

void NinthArea::PaintSquare(QPainter &painter) const
{
    QColor board = Colours().edge;
    board.setAlpha(Dark() ? 110 : 90);
    painter.setPen(Qt::NoPen);
    painter.setBrush(board);
    painter.drawRoundedRect(Board, 20, 20);
    const auto look = Look();
    for (std::size_t i = 0; i + 1 < SquarePlaces().size(); ++i) {
        NinthDrawing::DrawCard(painter, SquarePlaces()[i], look, Colours().edge, 1.4);
        NinthDrawing::DrawFigures(painter, SquarePlaces()[i], Rules().Item().Square[i], look);
    }
}

// The gap: a dashed field with a question mark.
void NinthArea::PaintNinth(QPainter &painter) const
{
    const QRectF place = SquarePlaces().back();
    QPen dashes(Colours().accent, 3, Qt::DashLine, Qt::RoundCap);
    dashes.setDashPattern({2.4, 2.2});
    painter.setPen(dashes);
    painter.setBrush(Colours().well);
    painter.drawRoundedRect(place.adjusted(2, 2, -2, -2), 11, 11);
    painter.setPen(Colours().text);
    if (!Chosen()) WriteLine(painter, place, Qt::AlignCenter, QStringLiteral("?"), 46, QFont::Bold);
}

void NinthArea::PaintOffered(QPainter &painter) const
{
    const NinthItem &item = Rules().Item();
    const auto look = Look();
    for (int i = 0; i < static_cast<int>(item.Offered.size()); ++i) {
        const QRectF place = Offered().Places()[static_cast<std::size_t>(i)];
        const bool isRight = Chosen() && i == item.Right;
        const bool isWrong = Chosen() == i && !isRight;
        const bool isLit = !Chosen() && Running() && Offered().Over() == i;
        painter.save();
        if (Chosen() && !isRight && !isWrong) painter.setOpacity(0.45);
        const QColor edge = isRight   ? Marks::RightColour
                            : isWrong ? Marks::WrongColour
                            : isLit   ? Colours().accent
                                      : Colours().keyEdge;
        NinthDrawing::DrawCard(painter, place, look, edge, isRight || isWrong || isLit ? 3 : 1.4, isLit);
        NinthDrawing::DrawFigures(painter, place, item.Offered[static_cast<std::size_t>(i)], look);
        painter.restore();
    }
}

void NinthArea::PaintOverRing(QPainter &Painter)
{
    const auto &places = Offered().Places();
    for (int i = 0; i < static_cast<int>(places.size()); ++i) {
        const QRectF place = places[static_cast<std::size_t>(i)];
        if (!Chosen())
            Choices::DrawNumber(Painter, place.topLeft() + QPointF(2, 2), i, Colours());
        else if (i == Rules().Item().Right)
            Marks::DrawRight(Painter, CornerOf(place), MarkSize);
        else if (Chosen() == i)
            Marks::DrawWrong(Painter, CornerOf(place), MarkSize);
    }
}

void NinthArea::PaintFlight(QPainter &painter) const
{
    const NinthItem &item = Rules().Item();
    const QRectF from = Offered().Places()[static_cast<std::size_t>(item.Right)];
    const QRectF to = SquarePlaces().back();
    const double part = WasRight() ? FlightPart : FlightPart * RightTime / WrongTime;
    const double way = std::min(1.0, Telling() / part);
    const double eased = 1 - (1 - way) * (1 - way) * (1 - way);
    const double size = from.width() + (to.width() - from.width()) * eased;
    const QPointF centre = from.center() + (to.center() - from.center()) * eased;
    const QRectF place(centre - QPointF(size, size) / 2, QSizeF(size, size));
    NinthDrawing::DrawCard(painter, place, Look(), Marks::RightColour, 3);
    NinthDrawing::DrawFigures(painter, place, item.Answer(), Look());
    if (way >= 1) Marks::DrawRight(painter, CornerOf(to), MarkSize);
}
