// Scale Tip as the player sees it: a balance with something on each plate, which tips once a side has been pressed.
#pragma once

#include "ScaleRules.h"
#include "sdk/author/ChoiceGame.h"

class ScaleArea final : public ChoiceGame<ScaleRules>
{
public:
    explicit ScaleArea(QWidget *Container);

protected:
    std::vector<QRectF> Places() const override;
    void ItemShown() override;
    void PaintTable(QPainter &Painter) override;
    QString ItemInWords() const override;
    QString Line() const override;
    /// The arrow to a side chooses it.
    std::optional<int> ChoiceOf(int Key) override;

private:
    QString InWords(const ScaleSide &side) const;
    QString Weighed(int side) const;
    double Tilt() const;
    void PaintTold(QPainter &painter, double tilt) const;

    std::array<std::vector<ScaleDot>, 2> m_Dots; // of the present item
};
