#include "StoneArea.h"

#include "StoneDrawing.h"
#include "sdk/author/Marks.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr int RightTime = 400;  // [ms]
constexpr int WrongTime = 1500; // [ms] long enough to find the ring

constexpr QRectF Bed{20, 48, 580, 320};
constexpr double Margin = 8;        // of the sand around the stones
constexpr double WidestPlace = 1.3; // a place is wider than high by so much at most
constexpr double StoneShare = 0.76; // of a place's smaller side
constexpr double ShiftShare = 0.09;

constexpr int One = 49, Nine = 57, NumberBlockOne = 97, NumberBlockNine = 105;
constexpr std::size_t Digits = 9;
} // namespace

StoneArea::StoneArea(QWidget *Container) : ChoiceGame(RightTime, WrongTime, Container) {}

std::vector<QRectF> StoneArea::Places() const
{
    const StoneItem &item = Rules().Item();
    const double height = (Bed.height() - 2 * Margin) / item.Rows;
    const double width = std::min((Bed.width() - 2 * Margin) / item.Columns, WidestPlace * height);
    const QPointF corner = Bed.center() - QPointF(width * item.Columns, height * item.Rows) / 2;
    std::vector<QRectF> places;
    for (int row = 0; row < item.Rows; ++row)
        for (int column = 0; column < item.Columns; ++column)
            places.emplace_back(corner + QPointF(column * width, row * height), QSizeF(width, height));
    return places;
}

double StoneArea::StoneWidth() const
{
    const QSizeF place = Offered().Places().front().size();
    return StoneShare * std::min(place.width(), place.height());
}

void StoneArea::ItemShown()
{
    SeededRandom random(Rules().Item().Scatter);
    const auto share = [&] { return ShiftShare * random.Between(-100, 100) / 100.0; };
    m_Centres.clear();
    for (const QRectF &place : Offered().Places()) {
        const double across = share() * place.width();
        m_Centres.push_back(place.center() + QPointF(across, share() * place.height()));
    }
}

std::optional<int> StoneArea::ChoiceOf(int Key)
{
    const bool isDigit = (Key >= One && Key <= Nine) || (Key >= NumberBlockOne && Key <= NumberBlockNine);
    if (isDigit && Rules().Item().Stones.size() > Digits) return {};
    const auto before = Offered().Ring();
    const auto chosen = ChoiceCanvas::ChoiceOf(Key);
    if (const auto ring = Offered().Ring(); ring && ring != before) setAccessibleDescription(InWords(*ring));
    return chosen;
}

// Where it lies and what it looks like: "2, 3: striped square, small".
QString StoneArea::InWords(int stone) const
{
    static constexpr std::array Patterns{"Plain", "Striped", "Dotted", "Ringed"};
    static constexpr std::array Shapes{"Circle", "Square", "Triangle", "Hexagon", "Pentagon", "Oval"};
    const StoneItem &item = Rules().Item();
    const Stone &seen = item.Stones[static_cast<std::size_t>(stone)];
    QString words = QStringLiteral("%1, %2: ").arg(stone % item.Columns + 1).arg(stone / item.Columns + 1);
    words += Word("Stone").arg(Word(Shapes.at(static_cast<std::size_t>(seen.Shape))),
                               Word(Patterns.at(static_cast<std::size_t>(seen.Pattern))));
    if (seen.Size < 100) words += QStringLiteral(", ") + Word("Small");
    if (seen.Tilt != 0) words += QStringLiteral(", ") + Word(seen.Tilt < 0 ? "LeansLeft" : "LeansRight");
    return words;
}

QString StoneArea::ItemInWords() const
{
    return Word("Stones").arg(Rules().Item().Stones.size()).arg(Rules().Item().Rows);
}

QString StoneArea::Line() const { return Word(!Chosen() ? "Hint" : WasRight() ? "Right" : "Wrong"); }

void StoneArea::PaintTable(QPainter &Painter)
{
    constexpr double Raised = 1.08; // under the pointer
    StoneDrawing::DrawSand(Painter, Bed, Dark());
    StoneDrawing::DrawStones(Painter, Rules().Item().Stones, m_Centres, StoneWidth(), Dark());
    if (Running() && !Chosen() && Offered().Over()) PaintStone(Painter, *Offered().Over(), Raised);
    if (!Chosen()) return;
    StoneDrawing::DrawMist(Painter, Bed, Dark());
    PaintStone(Painter, Rules().Item().Odd, 1);
    PaintStone(Painter, *Chosen(), 1);
    PaintTold(Painter);
}

void StoneArea::PaintStone(QPainter &painter, int stone, double grown) const
{
    StoneDrawing::DrawStone(painter, CentreOf(stone), StoneWidth() * grown,
                            Rules().Item().Stones[static_cast<std::size_t>(stone)], Dark());
}

void StoneArea::PaintTold(QPainter &painter) const
{
    const double radius = StoneWidth() * 0.62;
    const double markSize = std::clamp(StoneWidth() * 0.5, 22.0, 34.0);
    const QPointF aside(radius * 0.75, -radius * 0.75);
    const QPointF odd = CentreOf(Rules().Item().Odd);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Marks::RightColour, 4));
    painter.drawEllipse(odd, radius, radius);
    Marks::DrawRight(painter, odd + aside, markSize);
    if (!WasRight()) Marks::DrawWrong(painter, CentreOf(*Chosen()) + aside, markSize);
}
