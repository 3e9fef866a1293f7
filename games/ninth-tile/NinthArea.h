// Ninth Tile as the player sees it: the square on the left, the tiles offered for its ninth place on the right.
#pragma once

#include "NinthDrawing.h"
#include "NinthRules.h"
#include "sdk/author/ChoiceGame.h"

class NinthArea final : public ChoiceGame<NinthRules>
{
public:
    explicit NinthArea(QWidget *Container);

protected:
    std::vector<QRectF> Places() const override;
    bool Judge(int Choice) override;
    void PaintTable(QPainter &Painter) override;
    void PaintOverRing(QPainter &Painter) override;
    QString ItemInWords() const override;
    QString Line() const override;

private:
    void PaintSquare(QPainter &painter) const;
    void PaintNinth(QPainter &painter) const;
    void PaintOffered(QPainter &painter) const;
    /// The tile that was right, on its way to its place.
    void PaintFlight(QPainter &painter) const;
    NinthDrawing::Look Look() const;
    QString InWords(const Tile &tile, const std::array<bool, Traits> &told) const;
};
