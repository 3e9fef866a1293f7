// Punched Fold as the player sees it: how the paper is folded and punched above, five open sheets below. After a
// mistake the row above shows the paper opened again, fold by fold, with its holes.
#pragma once

#include "FoldRules.h"
#include "sdk/author/ChoiceCanvas.h"

#include <memory>

class FoldArea final : public ChoiceCanvas
{
public:
    explicit FoldArea(QWidget *Container);

protected:
    void Begin(int Level, std::uint32_t Seed) override { m_Rules = std::make_unique<FoldRules>(Level, Seed); }
    int Level() const override { return m_Rules->Level(); }
    const Rounds &Set() const override { return m_Rules->Set(); }
    std::vector<QRectF> Places() const override;
    bool Judge(int Choice) override { return m_Rules->Judge(Choice); }
    void Next() override { m_Rules->Next(); }
    void PaintTable(QPainter &Painter) override;
    QString ItemInWords() const override;
    QString Line() const override;

private:
    void PaintFolds(QPainter &painter) const;
    void PaintSheet(QPainter &painter, int choice) const;

    std::unique_ptr<FoldRules> m_Rules;
};
