#include "TurnArea.h"

#include "TurnDrawing.h"
#include "TurnWords.h"
#include "sdk/author/Cards.h"
#include "sdk/author/Marks.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr int RightTime = 450;  // [ms]
constexpr int WrongTime = 2600; // [ms]
constexpr int LeftArrow = 37;
constexpr int RightArrow = 39;

constexpr QRectF LeftCard{20, 50, 282, 222};
constexpr QRectF RightCard{318, 50, 282, 222};
constexpr QRectF TurnButton{20, 290, 282, 72};
constexpr QRectF MirrorButton{318, 290, 282, 72};
} // namespace

TurnArea::TurnArea(QWidget *Container) : ChoiceGame(RightTime, WrongTime, Container) {}

std::vector<QRectF> TurnArea::Places() const { return {TurnButton, MirrorButton}; }

// The arrow that points to a button presses it.
std::optional<int> TurnArea::ChoiceOf(int Key)
{
    if (Key == LeftArrow) return Turned;
    if (Key == RightArrow) return Mirrored;
    return ChoiceCanvas::ChoiceOf(Key);
}

QString TurnArea::ItemInWords() const
{
    const TurnItem &item = Rules().Item();
    const auto word = [this](const char *name) { return Word(name); };
    if (!item.Solid)
        return Word("FlatTold")
            .arg(TurnWords::Flat(item.Left, item.LeftTurn), TurnWords::Flat(item.Right, item.RightTurn));
    return Word("SolidTold")
        .arg(TurnWords::Solid(item.Left, item.LeftTurn, word), TurnWords::Solid(item.Right, item.RightTurn, word));
}

QString TurnArea::Line() const
{
    if (!Chosen() || WasRight()) return Word("Hint");
    return Word(Rules().Item().IsMirror ? "WasMirror" : "WasTurned");
}

double TurnArea::Matched() const
{
    constexpr double From = 0.08, To = 0.55; // of the time for which the answer is told
    if (!Chosen() || WasRight()) return 0;
    const double way = std::clamp((Telling() - From) / (To - From), 0.0, 1.0);
    return way * way * (3 - 2 * way);
}

void TurnArea::PaintTable(QPainter &Painter)
{
    const TurnItem &item = Rules().Item();
    for (const QRectF &card : {LeftCard, RightCard})
        Cards::Draw(Painter, card, Colours().ground, QPen(Colours().edge, 1.5), 18);
    PaintFigure(Painter, LeftCard, item.Left, item.LeftTurn);
    PaintFigure(Painter, RightCard, item.Right,
                QQuaternion::slerp(item.RightTurn, item.Matching(), static_cast<float>(Matched())));
    if (item.IsMirror && Matched() > 0) {
        const double x = (LeftCard.right() + RightCard.left()) / 2;
        TurnDrawing::Mirror(Painter, {x, LeftCard.top() + 6}, {x, LeftCard.bottom() - 4}, Colours());
    }
    PaintButton(Painter, Turned);
    PaintButton(Painter, Mirrored);
}

void TurnArea::PaintFigure(QPainter &painter, const QRectF &card, const Figure &blocks, const QQuaternion &turn) const
{
    const double edge = TurnDrawing::EdgeThatFits(blocks, card);
    const int item = Set().Done() - (Chosen() ? 1 : 0);
    const auto draw = Rules().Item().Solid ? TurnDrawing::Solid : TurnDrawing::Flat;
    draw(painter, card.center(), edge, blocks, turn, TurnDrawing::ColourOf(item, Dark()));
}

void TurnArea::PaintButton(QPainter &painter, int choice) const
{
    const QRectF button = Places()[static_cast<std::size_t>(choice)];
    const bool isAnswer = Rules().Item().IsMirror == (choice == Mirrored);
    const bool isChosen = Chosen() == choice;
    const bool isOver = Offered().Over() == choice && !Chosen() && Running();
    const bool isLit = isOver || isChosen;
    Cards::Draw(painter, button, Colours().key, QPen(isLit ? Colours().accent : Colours().keyEdge, isLit ? 3 : 1.5),
                14, 3);

    const QPointF sign(button.left() + 72, button.center().y());
    choice == Turned ? TurnDrawing::TurnSign(painter, sign, Colours())
                     : TurnDrawing::MirrorSign(painter, sign, Colours());
    painter.setPen(Colours().keyText);
    WriteLine(painter, {button.left() + 102, button.top(), button.width() - 156, button.height()},
              Qt::AlignLeft | Qt::AlignVCenter, Word(choice == Turned ? "Turned" : "Mirrored"), 20, QFont::DemiBold);
    Choices::DrawNumber(painter, {button.left() + 28, button.center().y()}, choice, Colours());

    const QPointF mark(button.right() - 28, button.center().y());
    if (Chosen() && isAnswer && (isChosen || Matched() > 0)) Marks::DrawRight(painter, mark, 34);
    if (isChosen && !isAnswer) Marks::DrawWrong(painter, mark, 34);
}
