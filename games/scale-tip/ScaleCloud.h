// Clouds of dots: where the dots of a field lie.
#pragma once

#include "sdk/author/SeededRandom.h"

#include <QPointF>

#include <vector>

struct ScaleDot
{
    QPointF Place; // from the middle of the field, in units of the drawing
    double Radius = 0;
};

namespace ScaleCloud
{
/// A dot is larger or smaller than the mean by so much at most.
constexpr double Swing = 0.15;

/// Count dots in a round field of that radius, without order and none touching another. Dot is their mean radius.
std::vector<ScaleDot> Scatter(SeededRandom &Random, int Count, double Field, double Dot);
} // namespace ScaleCloud
