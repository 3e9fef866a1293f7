#include "ScaleArea.h"

#include "ScaleDrawing.h"
#include "sdk/author/Marks.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace
{
constexpr int RightTime = 500;  // [ms]
constexpr int WrongTime = 1500; // [ms] long enough to compare the two
constexpr double TipTime = 300; // [ms] in which the balance comes to rest

constexpr int LeftKey = 37, UpKey = 38, RightKey = 39, DownKey = 40;
} // namespace

ScaleArea::ScaleArea(QWidget *Container) : ChoiceGame(RightTime, WrongTime, Container) {}

std::vector<QRectF> ScaleArea::Places() const
{
    const QSizeF half(Table.width() / 2 - 5, Table.height());
    return {QRectF(Table.topLeft(), half), QRectF(QPointF(Table.center().x() + 5, Table.top()), half)};
}

void ScaleArea::ItemShown() { m_Dots = Rules().Item().Dots(); }

std::optional<int> ScaleArea::ChoiceOf(int Key)
{
    if (Key == LeftKey) return 0;
    if (Key == RightKey) return 1;
    if (Key == UpKey || Key == DownKey) return {};
    return ChoiceCanvas::ChoiceOf(Key);
}

QString ScaleArea::InWords(const ScaleSide &side) const
{
    switch (Rules().Item().Kind) {
    case ScaleKind::Cloud:
        return Word("Dots").arg(side.First);
    case ScaleKind::Sum:
        return QStringLiteral("%1 + %2").arg(side.First).arg(side.Second);
    case ScaleKind::Fraction:
        break;
    }
    return QStringLiteral("%1/%2").arg(side.First).arg(side.Second);
}

QString ScaleArea::ItemInWords() const
{
    const auto &sides = Rules().Item().Sides;
    return Word("LeftSide").arg(InWords(sides[0])) + u' ' + Word("RightSide").arg(InWords(sides[1]));
}

QString ScaleArea::Line() const { return Word(!Chosen() ? "Hint" : WasRight() ? "Right" : "Wrong"); }

// The number of dots, the sum, or the fraction in parts of the same size as those of the other one.
QString ScaleArea::Weighed(int side) const
{
    const ScaleItem &item = Rules().Item();
    const QString weight = QString::number(item.Weight(side));
    return item.Kind == ScaleKind::Fraction ? QStringLiteral("%1/%2").arg(weight).arg(item.Parts()) : weight;
}

// It swings a little beyond before it comes to rest.
double ScaleArea::Tilt() const
{
    if (!Chosen()) return 0;
    const double passed = Telling() * (WasRight() ? RightTime : WrongTime) / TipTime;
    const double tip = 1 - std::exp(-4.5 * passed) * std::cos(1.6 * std::numbers::pi * passed);
    return Rules().Item().Heavier() == 0 ? -tip : tip;
}

void ScaleArea::PaintTable(QPainter &Painter)
{
    const ScaleItem &item = Rules().Item();
    const double tilt = Tilt();
    ScaleDrawing::DrawBalance(Painter, tilt, Colours(), Dark());
    for (const int side : {0, 1}) {
        const auto at = static_cast<std::size_t>(side);
        const QPointF foot = ScaleDrawing::Plate(side, tilt);
        const bool over = Running() && !Chosen() && Offered().Over() == side;
        if (item.Kind == ScaleKind::Cloud)
            ScaleDrawing::DrawGlobe(Painter, foot, m_Dots[at], over, Colours(), Dark());
        else
            ScaleDrawing::DrawWeight(Painter, foot, item.Kind, item.Sides[at], over, Colours(), Dark());
        const QRectF place = Offered().Places()[at];
        ScaleDrawing::DrawArrowKey(Painter, {side == 0 ? place.left() + 16 : place.right() - 16, 348}, side,
                                   Colours());
    }
    if (Chosen()) PaintTold(Painter, tilt);
}

void ScaleArea::PaintTold(QPainter &painter, double tilt) const
{
    constexpr double MarkSize = 42;
    const int heavier = Rules().Item().Heavier();
    for (const int side : {0, 1}) {
        const QPointF top = ScaleDrawing::Plate(side, tilt) - QPointF(0, ScaleDrawing::Height);
        ScaleDrawing::DrawLabel(painter, top + QPointF(0, 4), Weighed(side), Colours());
        const QPointF mark = top + QPointF(84, 6);
        if (side == heavier) Marks::DrawRight(painter, mark, MarkSize);
        if (side == Chosen() && side != heavier) Marks::DrawWrong(painter, mark, MarkSize);
    }
    painter.setPen(Dark() ? Qt::white : Qt::black);
    WriteLine(painter, {Table.center().x() - 30, 150, 60, 70}, Qt::AlignCenter, QString(heavier == 0 ? u'>' : u'<'),
              60, QFont::Bold);
}
