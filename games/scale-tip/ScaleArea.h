// Scale Tip as the player sees it: a balance with something on each plate, which tips once a side has been pressed.
#pragma once

#include "ScaleRules.h"
#include "sdk/author/ChoiceCanvas.h"

#include <memory>

class ScaleArea final : public ChoiceCanvas
{
public:
    explicit ScaleArea(QWidget *Container);

protected:
    void Begin(int Level, std::uint32_t Seed) override;
    int Level() const override { return m_Rules->Level(); }
    const Rounds &Set() const override { return m_Rules->Set(); }
    std::vector<QRectF> Places() const override;
    bool Judge(int Choice) override { return m_Rules->Judge(Choice); }
    void Next() override { m_Rules->Next(); }
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

    std::unique_ptr<ScaleRules> m_Rules;
    std::array<std::vector<ScaleDot>, 2> m_Dots; // of the present item
};
