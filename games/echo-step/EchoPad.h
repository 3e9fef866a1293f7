// The buttons of Echo Step, and the card that tells how far back to compare.
#pragma once

#include "EchoRules.h"

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

class QPainter;
struct GameColours;

namespace EchoPad
{
struct Button
{
    QRectF Box;
    QString Caption;
    EchoRules::Trait Trait = EchoRules::Place;
    bool IsOnly = true;       // the space bar presses it, else an arrow key
    bool IsLive = false;      // a press would count
    bool IsOver = false;      // under the pointer
    bool IsDown = false;      // pressed for this step
    bool IsWanted = false;    // a press was missing
    std::optional<bool> Mark; // right or wrong
};
void DrawButton(QPainter &Painter, const Button &Button, const GameColours &Colours);

/// A row of steps with a bow from the newest to the one so many before. With Letters, the newest one last, these
/// stand in the row.
void DrawDistance(QPainter &Painter, const QRectF &Card, int Back, const std::vector<QString> &Letters,
                  const QString &Line, const GameColours &Colours);
} // namespace EchoPad
