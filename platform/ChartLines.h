// What a series looks like on the plot: its line with dashes and marks, the dots of points that are too many for
// marks, and the faint line under a dashed one. The plot owns what is added.
#pragma once

#include "platform/ChartScale.h"

#include <QColor>

#include <cstddef>
#include <vector>

class QCPGraph;
class QCustomPlot;
struct ChartSeries;

namespace ChartLines
{
/// A line under the series' name, with marks at the positions in Marked. With WholeMarks, marks at the very end of
/// the scale aren't cut in half.
QCPGraph *AddLine(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<ChartScale::Point> &Points,
                  const std::vector<std::size_t> &Marked, bool WholeMarks);
struct DotsOfSeries
{
    QColor Colour; // with its strength
    std::vector<ChartScale::Point> Points;
};
/// Each point as a dot, those of later series over those of earlier ones.
void AddDots(QCustomPlot &Plot, std::vector<DotsOfSeries> All);
/// For below all lines: a dashed one shows faintly between its dashes, or steep pieces would look like gaps. Nothing
/// for a solid one.
void AddTint(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<ChartScale::Point> &Points,
             const QColor &Ground);
} // namespace ChartLines
