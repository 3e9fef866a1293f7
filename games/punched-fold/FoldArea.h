// Punched Fold as the player sees it: how the paper is folded and punched above, five open sheets below. After a
// mistake the row above shows the paper opened again, fold by fold, with its holes.
#pragma once

#include "FoldRules.h"
#include "sdk/author/ChoiceGame.h"

class FoldArea final : public ChoiceGame<FoldRules>
{
public:
    explicit FoldArea(QWidget *Container);

protected:
    std::vector<QRectF> Places() const override;
    void PaintTable(QPainter &Painter) override;
    QString ItemInWords() const override;
    QString Line() const override;

private:
    void PaintFolds(QPainter &painter) const;
    void PaintSheet(QPainter &painter, int choice) const;
};
