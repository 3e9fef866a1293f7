// The drawing of QuestionArea.
#include "QuestionArea.h"

#include "sdk/author/Cards.h"
#include "sdk/author/Marks.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr QRectF SetRow{20, 14, 580, 26};
constexpr QRectF Foot{20, 374, 580, 34};
constexpr QRectF Field{110, 148, 400, 50};
constexpr double ChoicesEnd = 364;
constexpr double Gap = 12;
constexpr double Corner = 16;
constexpr qsizetype ShortChoice = 3; // [characters] signs and digits

QPen Line(const QColor &colour, double width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

bool Fits(const QRectF &box, const QString &text, double size, QFont::Weight weight, int flags)
{
    const QRectF needed = QFontMetricsF(GameCanvas::Font(size, weight)).boundingRect(box, flags, text);
    return needed.height() <= box.height() && needed.width() <= box.width();
}

/// Words in the box, as large as they fit and no larger than Size: in one line where that takes little away, else in
/// as many as they need.
void WriteFitted(QPainter &painter, const QRectF &box, const QString &text, double size, QFont::Weight weight)
{
    constexpr double Smallest = 12;
    constexpr double Step = 2;
    constexpr double LeastInOneLine = 0.7;
    int flags = Qt::AlignCenter | Qt::TextSingleLine;
    double fitted = size;
    while (fitted > size * LeastInOneLine && !Fits(box, text, fitted, weight, flags)) fitted -= Step;
    if (fitted <= size * LeastInOneLine) {
        flags = Qt::AlignCenter | Qt::TextWordWrap;
        for (fitted = size; fitted > Smallest && !Fits(box, text, fitted, weight, flags);) fitted -= Step;
    }
    painter.setFont(GameCanvas::Font(fitted, weight));
    painter.drawText(box, flags, text);
}

void DrawCard(QPainter &painter, const QRectF &box, const GameColours &colours)
{
    Cards::Draw(painter, box, colours.ground, Line(colours.edge, 1.5), Corner);
}
} // namespace

QRectF QuestionArea::Card() const
{
    const bool hasPicture = !m_Picture.isNull();
    if (m_Shown.Text.Typed()) return {20, 52, 580, 86};
    return {20, 52, 580, hasPicture ? 176.0 : 132.0};
}

// Short ones stand side by side, longer ones in two columns.
std::vector<QRectF> QuestionArea::ChoicePlaces() const
{
    const int count = static_cast<int>(m_Shown.Choices.size());
    if (count == 0) return {};
    const bool inOneRow =
        std::ranges::all_of(m_Shown.Choices, [](const QString &one) { return one.size() <= ShortChoice; });
    const int columns = inOneRow ? count : 2;
    const int rows = (count + columns - 1) / columns;
    const double top = Card().bottom() + 16;
    const double width = (580 - Gap * (columns - 1)) / columns;
    const double height = std::min(120.0, (ChoicesEnd - top - Gap * (rows - 1)) / rows);
    std::vector<QRectF> places;
    places.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const int column = i % columns;
        const int row = i / columns;
        places.emplace_back(20 + column * (width + Gap), top + row * (height + Gap), width, height);
    }
    return places;
}

void QuestionArea::Paint(QPainter &Painter)
{
    if (!m_Problems.isEmpty()) return PaintProblems(Painter);
    if (!m_Rules) return;
    const double growth = IsTelling() ? 0.3 * m_Telling.Left(Now()) : 0;
    Marks::DrawSet(Painter, SetRow, m_Rules->Rounds(), m_Marks, 1 + growth, Running(), Colours());
    PaintQuestion(Painter);
    if (m_Shown.Text.Typed())
        PaintTyped(Painter);
    else
        PaintChoices(Painter);
    const QString hint = m_Shown.Text.Typed() ? WordOr("TypeHint", "Type the answer and press Enter")
                                              : WordOr("Hint", "Choose the right answer");
    PaintFoot(Painter, m_TimeUp ? WordOr("TimeUp", "Time is up") : hint);
}

void QuestionArea::PaintFoot(QPainter &painter, const QString &line) const
{
    constexpr double Figures = 200; // their part of the width
    painter.setPen(Dark() ? Qt::white : Qt::black);
    WriteLine(painter, Foot.adjusted(0, 0, -Figures, 0), Qt::AlignLeft | Qt::AlignVCenter, line, 19, QFont::Medium);
    WriteLine(painter, Foot.adjusted(Foot.width() - Figures + 10, 0, 0, 0), Qt::AlignRight | Qt::AlignVCenter,
              QStringLiteral("%1 %2   %3 %4")
                  .arg(WordOr("Level", "Level"))
                  .arg(m_Rules->Level())
                  .arg(WordOr("Points", "Points"))
                  .arg(Points()),
              19, QFont::Bold);
}

void QuestionArea::PaintQuestion(QPainter &painter) const
{
    DrawCard(painter, Card(), Colours());
    QRectF words = Card().adjusted(20, 8, -20, -8);
    if (!m_Picture.isNull()) {
        QRectF frame(words.left(), words.top(), words.width() * 0.45, words.height());
        QRectF place(QPointF(), QSizeF(m_Picture.size()).scaled(frame.size(), Qt::KeepAspectRatio));
        place.moveCenter(frame.center());
        painter.drawImage(place, m_Picture);
        words.setLeft(frame.right() + 16);
    }
    painter.setPen(Colours().text);
    WriteFitted(painter, words, m_Shown.Text.Prompt, 54, QFont::Bold);
}

void QuestionArea::PaintChoices(QPainter &painter) const
{
    for (int choice = 0; choice < static_cast<int>(m_Shown.Choices.size()); ++choice) PaintChoice(painter, choice);
    if (!IsTelling() && Running()) m_Choices.DrawRing(painter, Colours(), Corner);
}

void QuestionArea::PaintChoice(QPainter &painter, int choice) const
{
    const QRectF box = m_Choices.Places()[static_cast<std::size_t>(choice)];
    const bool isTold = m_Chosen.has_value();
    const bool isRight = isTold && choice == m_Shown.RightChoice;
    const bool isMistake = isTold && choice == *m_Chosen && !isRight;
    painter.save();
    if (isTold && !isRight && !isMistake) painter.setOpacity(0.45);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 38));
    painter.drawRoundedRect(box.translated(0, 3), Corner, Corner);
    painter.setBrush(!isTold && m_Choices.Over() == choice ? Colours().key.darker(105) : Colours().key);
    painter.setPen(isRight     ? Line(Marks::RightColour, 4)
                   : isMistake ? QPen(Marks::WrongColour, 4, Qt::DashLine)
                               : Line(Colours().keyEdge, 1.5));
    painter.drawRoundedRect(box, Corner, Corner);

    const bool isNarrow = box.width() < 200;
    const QPointF number(box.left() + 24, isNarrow ? box.top() + 22 : box.center().y());
    Choices::DrawNumber(painter, number, choice, Colours());
    painter.setPen(Colours().keyText);
    WriteFitted(painter, isNarrow ? box.adjusted(8, 8, -8, -8) : box.adjusted(44, 4, -44, -4),
                m_Shown.Choices[choice], m_Shown.Choices[choice].size() <= ShortChoice ? 52 : 28, QFont::DemiBold);
    const QPointF mark(box.right() - 24, isNarrow ? box.top() + 22 : box.center().y());
    if (isRight) Marks::DrawRight(painter, mark, 30);
    if (isMistake) Marks::DrawWrong(painter, mark, 30);
    painter.restore();
}

// While the answer is told the field shows what was right, and above it what was typed, struck out.
void QuestionArea::PaintTyped(QPainter &painter) const
{
    const bool wasRight = IsTelling() && m_Marks.back();
    painter.setPen(Line(IsTelling() ? wasRight ? Marks::RightColour : Marks::WrongColour : Colours().accent, 3));
    painter.setBrush(Colours().well);
    painter.drawRoundedRect(Field, 12, 12);
    painter.setPen(Colours().text);
    const QString shown = m_Typed.isEmpty() ? QStringLiteral("…") : m_Typed;
    WriteLine(painter, Field.adjusted(44, 0, -44, 0), Qt::AlignCenter, shown, 30, QFont::Bold);
    if (!IsTelling()) return m_Pad.Draw(painter, Colours(), m_Over);
    if (wasRight) return Marks::DrawRight(painter, {Field.left() + 26, Field.center().y()}, 32);

    const double half = QFontMetricsF(painter.font()).horizontalAdvance(shown) / 2 + 4;
    painter.setPen(Line(Marks::WrongColour, 3));
    painter.drawLine(Field.center() - QPointF(half, 0), Field.center() + QPointF(half, 0));
    Marks::DrawWrong(painter, {Field.left() + 26, Field.center().y()}, 32);
    const QRectF solution = Field.translated(0, Field.height() + 24).adjusted(0, 0, 0, 14);
    DrawCard(painter, solution, Colours());
    painter.setPen(Colours().text);
    WriteLine(painter, solution.adjusted(48, 0, -44, 0), Qt::AlignCenter, m_Shown.Text.Solution(), 36, QFont::Bold);
    Marks::DrawRight(painter, {solution.left() + 28, solution.center().y()}, 34);
}

// For who wrote the file.
void QuestionArea::PaintProblems(QPainter &painter) const
{
    const QRectF card(20, 30, 580, 360);
    DrawCard(painter, card, Colours());
    painter.setPen(Colours().text);
    WriteLine(painter, {40, 44, 540, 44}, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Questions.txt"), 28,
              QFont::Bold);
    painter.setFont(Font(17));
    painter.drawText(QRectF(40, 96, 540, 280), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     m_Problems.mid(0, 8).join(u'\n'));
}
