// Odd Stone as the player sees it: a bed of sand with stones in rows, one of which is there only once.
#pragma once

#include "StoneRules.h"
#include "sdk/author/ChoiceGame.h"

class StoneArea final : public ChoiceGame<StoneRules>
{
public:
    explicit StoneArea(QWidget *Container);

protected:
    std::vector<QRectF> Places() const override;
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

    std::vector<QPointF> m_Centres; // of the present stones
};
