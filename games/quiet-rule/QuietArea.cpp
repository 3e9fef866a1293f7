#include "QuietArea.h"

#include "QuietDrawing.h"
#include "sdk/author/Marks.h"

#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
using QuietDrawing::CardHeight;
using QuietDrawing::CardWidth;

constexpr int RightTime = 350;  // [ms] for which an answer is told
constexpr int WrongTime = 1500; // [ms]

constexpr double PileGap = 34;
constexpr double PileLeft = 310 - (4 * CardWidth + 3 * PileGap) / 2;
constexpr double PileTop = 58;
constexpr QRectF PresentPlace{310 - CardWidth / 2, 228, CardWidth, CardHeight};
constexpr QRectF DeckPlace{PileLeft + 8, 238, 84, 99};
constexpr QRectF TraitsBox{404, 232, 178, 120};
constexpr double TraitHeight = 36;
constexpr double MarkSize = 34;
constexpr double Way = 0.55; // of the time told in which a card gets to its pile

const char *NameOf(CardTrait trait)
{
    static constexpr std::array names{"ByShape", "ByCount", "ByFill", "ByEdge"};
    return names.at(static_cast<std::size_t>(trait));
}

QRectF PlaceOf(int pile) { return {PileLeft + pile * (CardWidth + PileGap), PileTop, CardWidth, CardHeight}; }
QPointF CornerOf(const QRectF &place) { return place.topRight() + QPointF(-6, 6); }
} // namespace

QuietArea::QuietArea(QWidget *Container) : ChoiceGame(RightTime, WrongTime, Container) {}

std::vector<QRectF> QuietArea::Places() const
{
    std::vector<QRectF> places;
    places.reserve(QuietRules::Piles);
    for (int pile = 0; pile < QuietRules::Piles; ++pile) places.push_back(PlaceOf(pile));
    return places;
}

// Who hears the game is told the right pile where others see it.
bool QuietArea::Judge(int Choice)
{
    const bool right = ChoiceGame::Judge(Choice);
    if (!right) setAccessibleName(QStringLiteral("%1: %2").arg(Word("RightPile")).arg(Rules().RightPile() + 1));
    return right;
}

bool QuietArea::ShowsRightPile() const
{
    return Chosen() && !WasRight() && (Telling() <= Rules().HintPart() || TimeIsUp());
}

QString QuietArea::Line() const
{
    if (!Chosen()) return Word("Hint");
    if (WasRight()) return Word("Right");
    if (Rules().HintAfterMistake() != QuietRules::Hint::Named) return Word("Wrong");
    return QStringLiteral("%1. %2: %3").arg(Word("Wrong"), Word("ItGoesBy"), Word(NameOf(Rules().Rule())));
}

QString QuietArea::ItemInWords() const
{
    QString words = InWords(Rules().Present());
    for (std::size_t pile = 0; pile < QuietRules::Piles; ++pile)
        words += QStringLiteral(". %1: %2").arg(pile + 1).arg(InWords(Rules().References()[pile]));
    return words;
}

// Only the traits that count; in the others all cards are alike.
QString QuietArea::InWords(const Card &card) const
{
    static constexpr std::array Shapes{"Star", "Flower", "Diamond", "Moon"};
    static constexpr std::array Fills{"Open", "Striped", "Dotted", "Solid"};
    static constexpr std::array Edges{"Rounded", "Cut", "Scooped", "Stamped"};
    const auto &counting = Rules().Counting();
    const auto word = [&](const auto &words, CardTrait on) {
        return Word(words.at(static_cast<std::size_t>(card[on])));
    };
    QStringList parts;
    for (const CardTrait trait : {CardTrait::Count, CardTrait::Shape, CardTrait::Fill, CardTrait::Edge}) {
        if (std::find(counting.begin(), counting.end(), trait) == counting.end()) continue;
        if (trait == CardTrait::Count) parts += QString::number(card[trait] + 1);
        if (trait == CardTrait::Shape) parts += word(Shapes, trait);
        if (trait == CardTrait::Fill) parts += word(Fills, trait);
        if (trait == CardTrait::Edge) parts += word(Edges, trait);
    }
    return parts.join(u' ');
}

void QuietArea::PaintTable(QPainter &Painter)
{
    for (int pile = 0; pile < QuietRules::Piles; ++pile) PaintPile(Painter, pile);
    PaintDeck(Painter);
    if (Rules().HintAfterMistake() != QuietRules::Hint::Brief) PaintTraits(Painter);
    PaintPresent(Painter);
}

void QuietArea::PaintPile(QPainter &painter, int pile) const
{
    const Card &card = Rules().References()[static_cast<std::size_t>(pile)];
    const QRectF place = PlaceOf(pile);
    const bool isRight =
        Chosen() && ((WasRight() && Chosen() == pile) || (ShowsRightPile() && Rules().RightPile() == pile));
    const bool isWrong = Chosen() == pile && !WasRight();
    const bool isLit = !Chosen() && Running() && Offered().Over() == pile;
    for (const double below : {8.0, 4.0}) // the cards under it
        QuietDrawing::DrawCard(painter, place.translated(0, below), card, Dark(), Colours().keyEdge, 1.5);
    const QColor line = isRight   ? Marks::RightColour
                        : isWrong ? Marks::WrongColour
                        : isLit   ? Colours().accent
                                  : Colours().faint;
    QuietDrawing::DrawCard(painter, place, card, Dark(), line, isRight || isWrong || isLit ? 4 : 2, isLit);
}

void QuietArea::PaintDeck(QPainter &painter) const
{
    constexpr int Thickest = 4;
    const int left = Set().Count() - Set().Done() - (Chosen() ? 0 : 1);
    const int cards = std::min(Thickest, (left * Thickest + Set().Count() - 1) / Set().Count());
    for (int card = cards - 1; card >= 0; --card)
        QuietDrawing::DrawBack(painter, DeckPlace.translated(0, 5.0 * card), Dark());
}

// A right card goes to its pile and stays; a wrong one goes half of the way and comes back.
void QuietArea::PaintPresent(QPainter &painter) const
{
    QPointF way;
    double size = 1;
    if (Chosen()) {
        const double part = std::min(1.0, Telling() / (WasRight() ? Way : Way / 2));
        const double there = WasRight() ? 1 - (1 - part) * (1 - part) : 0.4 * std::sin(std::numbers::pi * part);
        way = (PlaceOf(*Chosen()).center() - PresentPlace.center()) * there;
        if (WasRight()) size = 1 - 0.25 * there;
    }
    const QSizeF whole = PresentPlace.size() * size;
    const QRectF place(PresentPlace.center() + way - QPointF(whole.width(), whole.height()) / 2, whole);
    QuietDrawing::DrawCard(painter, place, Rules().Present(), Dark(), Colours().faint, 2);
}

void QuietArea::PaintTraits(QPainter &painter) const
{
    const auto &counting = Rules().Counting();
    const bool isNamed = ShowsRightPile() && Rules().HintAfterMistake() == QuietRules::Hint::Named;
    double top = TraitsBox.center().y() - TraitHeight * static_cast<double>(counting.size()) / 2;
    for (const CardTrait trait : {CardTrait::Shape, CardTrait::Count, CardTrait::Fill, CardTrait::Edge}) {
        if (std::find(counting.begin(), counting.end(), trait) == counting.end()) continue;
        const bool isIt = isNamed && trait == Rules().Rule();
        const QRectF row(TraitsBox.left(), top + 3, TraitsBox.width(), TraitHeight - 6);
        painter.setPen({isIt ? Marks::RightColour : Colours().edge, isIt ? 3.0 : 1.4});
        painter.setBrush(Colours().ground);
        painter.drawRoundedRect(row, row.height() / 2, row.height() / 2);
        painter.setPen(isIt ? Colours().text : Colours().faint);
        WriteLine(painter, row.adjusted(14, 0, -14, 0), Qt::AlignCenter, Word(NameOf(trait)), 18,
                  isIt ? QFont::Bold : QFont::Medium);
        if (isIt) Marks::DrawRight(painter, {row.right() - 16, row.center().y()}, 22);
        top += TraitHeight;
    }
}

void QuietArea::PaintOverRing(QPainter &Painter)
{
    for (int pile = 0; pile < QuietRules::Piles; ++pile) {
        const QRectF place = PlaceOf(pile);
        if (!Chosen())
            Choices::DrawNumber(Painter, place.topLeft() + QPointF(2, 2), pile, Colours());
        else if (ShowsRightPile() && pile == Rules().RightPile())
            Marks::DrawRight(Painter, CornerOf(place), MarkSize);
        else if (Chosen() == pile)
            WasRight() ? Marks::DrawRight(Painter, CornerOf(place), MarkSize)
                       : Marks::DrawWrong(Painter, CornerOf(place), MarkSize);
    }
}
