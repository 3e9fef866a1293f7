// Quiet Rule as the player sees it: four piles at the top, the card to sort below them.
#pragma once

#include "QuietRules.h"
#include "sdk/author/ChoiceCanvas.h"

#include <memory>

class QuietArea final : public ChoiceCanvas
{
public:
    explicit QuietArea(QWidget *Container);

protected:
    void Begin(int Level, std::uint32_t Seed) override;
    int Level() const override { return m_Rules->Level(); }
    const Rounds &Set() const override { return m_Rules->Set(); }
    std::vector<QRectF> Places() const override;
    bool Judge(int Choice) override;
    void Next() override { m_Rules->Next(); }
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

    std::unique_ptr<QuietRules> m_Rules;
};
