// A figure as it can be told: what is seen where, without what would be the answer.
#pragma once

#include "TurnFigures.h"

#include <QQuaternion>
#include <QString>

#include <functional>

namespace TurnWords
{
/// "xxx, xoo, xxo, 30°": the squares of each row from above, x for one and o for none, after the nearest right angle,
/// and how much farther it is turned, against the clock.
QString Flat(const Figure &Blocks, const QQuaternion &Turn);
/// "2 right, 1 up, 3 back": the way along the cubes from the end that has the longer arm, as the viewer sees it. Word
/// gives the words for directions.
QString Solid(const Figure &Blocks, const QQuaternion &Turn, const std::function<QString(const char *)> &Word);
} // namespace TurnWords
