// Two sets of colours that go together, for light and for dark backgrounds; text has a contrast of 7:1 or more on its
// ground.
#pragma once

#include <QColor>

struct GameColours
{
    QColor ground; // cards and fields
    QColor well;   // inside of a field
    QColor edge;
    QColor text;
    QColor faint; // of lesser weight, still to be read
    QColor key;
    QColor keyEdge;
    QColor keyText;
    QColor accent;
    QColor accentText;

    static const GameColours &For(bool Dark);
};
