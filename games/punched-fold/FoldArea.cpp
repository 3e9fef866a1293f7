#include "FoldArea.h"

#include "FoldDrawing.h"
#include "FoldWords.h"
#include "sdk/author/Cards.h"
#include "sdk/author/Marks.h"

#include <QPainter>

namespace
{
constexpr int RightTime = 600;  // [ms]
constexpr int WrongTime = 3200; // [ms]

constexpr QRectF Strip{20, 48, 580, 128};
constexpr double StripPitch = 116;
constexpr double Picture = 92;
constexpr QRectF FirstSheet{20, 192, 108, 170};
constexpr double SheetPitch = 118;
constexpr double Sheet = 92;
constexpr double OpeningTime = 0.6; // of the time for which a mistake is told
} // namespace

FoldArea::FoldArea(QWidget *Container) : ChoiceGame(RightTime, WrongTime, Container) {}

std::vector<QRectF> FoldArea::Places() const
{
    std::vector<QRectF> places;
    places.reserve(FoldItem::Choices);
    for (int i = 0; i < FoldItem::Choices; ++i) places.push_back(FirstSheet.translated(SheetPitch * i, 0));
    return places;
}

QString FoldArea::ItemInWords() const
{
    const FoldItem &item = Rules().Item();
    const auto word = [this](const char *name) { return Word(name); };
    return Word("Told").arg(FoldWords::Folds(item, word), FoldWords::Holes(item.Punches), FoldWords::Sheets(item));
}

QString FoldArea::Line() const
{
    if (!Chosen() || WasRight()) return Word("Hint");
    return Word("WasRight").arg(Rules().Item().Answer + 1);
}

void FoldArea::PaintTable(QPainter &Painter)
{
    Cards::Draw(Painter, Strip, Colours().ground, QPen(Colours().edge, 1.5), 14);
    PaintFolds(Painter);
    for (int choice = 0; choice < FoldItem::Choices; ++choice) PaintSheet(Painter, choice);
}

// Folds from left to right, the punched paper last. While a mistake is told the row is opened from right to left.
void FoldArea::PaintFolds(QPainter &painter) const
{
    const FoldItem &item = Rules().Item();
    const int folds = static_cast<int>(item.Folds.size());
    const bool isOpening = Chosen() && !WasRight();
    const int opened = isOpening ? static_cast<int>(Telling() / OpeningTime * (folds + 1)) : -1;
    const double left = Strip.center().x() - StripPitch * (folds + 1) / 2;
    for (int step = 0; step <= folds; ++step) {
        const QPointF centre(left + StripPitch * (step + 0.5), Strip.center().y());
        const QRectF square(centre - QPointF(Picture, Picture) / 2, QSizeF(Picture, Picture));
        const bool isPunched = step == folds;
        // opened, each picture shows what it showed before its own fold
        if (isOpening && folds - step <= opened)
            FoldDrawing::Folds(painter, square, item, step, true, Dark());
        else
            FoldDrawing::Folds(painter, square, item, isPunched ? folds : step + 1, isPunched, Dark());
        if (step > 0) FoldDrawing::Chevron(painter, {centre.x() - StripPitch / 2, centre.y()}, isOpening, Colours());
    }
}

void FoldArea::PaintSheet(QPainter &painter, int choice) const
{
    const QRectF card = Places()[static_cast<std::size_t>(choice)];
    const FoldItem &item = Rules().Item();
    const bool isChosen = Chosen() == choice;
    const bool isTold = Chosen() && (isChosen || choice == item.Answer);
    Cards::Draw(painter, card, Colours().ground, QPen(Colours().edge, 1.5), 14);
    if (isTold || (Offered().Over() == choice && !Chosen() && Running())) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Colours().accent, 3));
        painter.drawRoundedRect(card, 14, 14);
    }
    const QRectF square(card.center().x() - Sheet / 2, card.top() + 10, Sheet, Sheet);
    FoldDrawing::OpenSheet(painter, square, item.Sheets[static_cast<std::size_t>(choice)], Dark());
    const QPointF foot(card.center().x(), card.bottom() - 32);
    if (!isTold) return Choices::DrawNumber(painter, foot, choice, Colours());
    Choices::DrawNumber(painter, foot - QPointF(24, 0), choice, Colours());
    const QPointF mark = foot + QPointF(16, 0);
    choice == item.Answer ? Marks::DrawRight(painter, mark, 34) : Marks::DrawWrong(painter, mark, 34);
}
