// Odd Stone as the player sees it: a bed of sand with stones in rows, one of which is there only once.
#pragma once

#include "StoneRules.h"
#include "sdk/author/ChoiceCanvas.h"

#include <memory>

class StoneArea final : public ChoiceCanvas
{
public:
    explicit StoneArea(QWidget *Container);

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
    /// No digits where there are more stones than digits; tells which stone the ring has come to.
    std::optional<int> ChoiceOf(int Key) override;

private:
    QString InWords(int stone) const;
    double StoneWidth() const;
    QPointF CentreOf(int stone) const { return m_Centres[static_cast<std::size_t>(stone)]; }
    void PaintStone(QPainter &painter, int stone, double grown) const;
    void PaintTold(QPainter &painter) const;

    std::unique_ptr<StoneRules> m_Rules;
    std::vector<QPointF> m_Centres; // of the present stones
};
