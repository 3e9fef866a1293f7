// Quiet Rule as the player sees it: four piles at the top, the card to sort below them.
#pragma once

#include "QuietRules.h"
#include "sdk/author/ChoiceGame.h"

class QuietArea final : public ChoiceGame<QuietRules>
{
public:
    explicit QuietArea(QWidget *Container);

protected:
    std::vector<QRectF> Places() const override;
    bool Judge(int Choice) override;
    void PaintTable(QPainter &Painter) override;
    void PaintOverRing(QPainter &Painter) override;
    QString ItemInWords() const override;
    QString Line() const override;

private:
    void PaintPile(QPainter &painter, int pile) const;
    void PaintDeck(QPainter &painter) const;
    void PaintPresent(QPainter &painter) const;
    /// The traits that count, where they are told at all.
    void PaintTraits(QPainter &painter) const;
    /// Whether the right pile is to be seen at this moment.
    bool ShowsRightPile() const;
    QString InWords(const Card &card) const;
};
