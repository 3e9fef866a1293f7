// An item as it can be told: folds, punches and sheets by the places of an eight by eight grid, A1 at the upper left.
#pragma once

#include "FoldRules.h"

#include <QString>

#include <functional>

namespace FoldWords
{
using Words = std::function<QString(const char *)>;

/// "right part over the line from 4/0 to 4/8; ...": lines by the grid's own, from 0 to 8 across and down.
QString Folds(const FoldItem &Item, const Words &Word);
/// "B3, C5"
QString Holes(const std::vector<FoldPoint> &Holes);
/// "1: B3, G3; 2: ..."
QString Sheets(const FoldItem &Item);
} // namespace FoldWords
