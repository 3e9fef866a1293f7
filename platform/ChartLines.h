// What a series looks like on the plot: its line with dashes and marks, the dots of points that are too many for
// marks, and the faint line under a dashed one. The plot owns what is added.
#pragma once

#include "platform/ChartScale.h"

#include <cstddef>
#include <vector>

class QColor;
class QCPGraph;
class QCustomPlot;
struct ChartSeries;

namespace ChartLines
{
/// A line under the series' name, with marks at the positions in Marked. With WholeMarks, marks at the very end of
/// the scale aren't cut in half.
QCPGraph *AddLine(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<ChartScale::Point> &Points,
                  const std::vector<std::size_t> &Marked, bool WholeMarks);
/// Each point as a dot in the series' colour, Ink of 255 strong.
void AddDots(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<ChartScale::Point> &Points, int Ink);
/// For below all lines: a dashed one shows faintly between its dashes, or steep pieces would look like gaps. Nothing
/// for a solid one.
void AddTint(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<ChartScale::Point> &Points,
             const QColor &Ground);
} // namespace ChartLines
