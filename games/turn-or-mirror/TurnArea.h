// Turn or Mirror as the player sees it: two cards and two buttons. After a mistake the right figure turns until it
// looks like the left one, or like the left one in the mirror between them.
#pragma once

#include "TurnRules.h"
#include "sdk/author/ChoiceGame.h"

class TurnArea final : public ChoiceGame<TurnRules>
{
public:
    explicit TurnArea(QWidget *Container);

protected:
    std::vector<QRectF> Places() const override;
    bool Judge(int Choice) override { return ChoiceGame::Judge(Choice == Mirrored); }
    void PaintTable(QPainter &Painter) override;
    QString ItemInWords() const override;
    QString Line() const override;
    std::optional<int> ChoiceOf(int Key) override;

private:
    static constexpr int Turned = 0;
    static constexpr int Mirrored = 1;

    void PaintFigure(QPainter &painter, const QRectF &card, const Figure &blocks, const QQuaternion &turn) const;
    void PaintButton(QPainter &painter, int choice) const;
    /// How far the right figure has come to match the left one, from 0 to 1.
    double Matched() const;
};
