// The arithmetic of a chart, apart from its drawing: what is missing, where grid lines and labels stand, and what is
// left of points that lie too close to be told apart.
#pragma once

#include <cstddef>
#include <vector>

namespace ChartScale
{
constexpr double Missing = -1e37; // the Y of a point that is not there

/// The marker, or no finite number.
bool IsMissing(double Y);

struct Point
{
    double X;
    double Y;
};

struct Scale
{
    double From;
    double To;
    double Step; // between two grid lines
};

/// Spacing, or 2, 5, 10, 20, 50, ... times it: the first that makes no more than MostLines steps of the range.
/// A Spacing that is none, 0 or below, counts as 1.
double Step(double Range, double Spacing, int MostLines);
/// A scale for values: 0 is always in it, and its ends are grid lines.
Scale Fitting(double Lowest, double Highest, double Spacing, int MostLines);
/// Which of the grid lines can have a label: each, every second, every third, ...
int LabelEvery(double LineDistance, double LabelSize);

/// The positions of the points that get a mark: every Every-th from First, the last, and each between two gaps, which
/// nothing else would show. Missing ones get none.
std::vector<std::size_t> Marked(const std::vector<Point> &Points, std::size_t Every, std::size_t First);
/// Neighbours taken together, about Count at a time: the mean of those that are there, missing where none is.
std::vector<Point> Means(const std::vector<Point> &Points, std::size_t Count);
} // namespace ChartScale
