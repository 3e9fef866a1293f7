// How figures look: turned as told, in a parallel projection. Lengths are edges of a block, x to the right, y down,
// and the figure's centre of mass lies at the origin.
#pragma once

#include "TurnFigures.h"

#include <QPointF>
#include <QQuaternion>

struct SeenFace
{
    int Block = 0;    // its number in the figure
    double Light = 0; // from 0, in the dark, to 1
    std::array<QPointF, 4> Corners;
};

namespace TurnViews
{
/// Turned about the upright axis and seen from somewhat above. [degrees]
/// The height is where two cubes of one figure that lie apart look apart as well: by a quarter of an edge or more in
/// figures of up to five cubes a side, for turns by 30 or 60 degrees and right angles besides.
QQuaternion FromAbove(double Turn);
/// Turned in the plane, against the clock. [degrees]
QQuaternion InThePlane(double Turn);
QQuaternion RotationOf(const RightAngles &Turn);

/// The faces that look at the viewer, each before what it may cover.
std::vector<SeenFace> Picture(const Figure &Blocks, const QQuaternion &Turn);
/// The squares of a flat figure.
std::vector<SeenFace> FlatPicture(const Figure &Blocks, const QQuaternion &Turn);
/// How far the farthest corner is from the origin, however the figure is turned.
double Reach(const Figure &Blocks);

/// Whether of every cube so much can be seen that nobody has to guess where it is.
bool EverythingIsSeen(const Figure &Blocks, const QQuaternion &Turn);
} // namespace TurnViews
