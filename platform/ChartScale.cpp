#include "platform/ChartScale.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
constexpr std::array RoundNumbers{1.0, 2.0, 5.0};

bool IsThere(const std::vector<ChartScale::Point> &points, std::size_t i)
{
    return i < points.size() && !ChartScale::IsMissing(points[i].Y);
}

ChartScale::Point MeanOf(const std::vector<ChartScale::Point> &points, std::size_t from, std::size_t to)
{
    ChartScale::Point sum{0, 0};
    double there = 0;
    for (std::size_t i = from; i < to; ++i) {
        sum.X += points[i].X;
        if (!IsThere(points, i)) continue;
        sum.Y += points[i].Y;
        ++there;
    }
    return {sum.X / static_cast<double>(to - from), there > 0 ? sum.Y / there : ChartScale::Missing};
}
} // namespace

bool ChartScale::IsMissing(double Y) { return !std::isfinite(Y) || Y <= Missing; }

double ChartScale::Step(double Range, double Spacing, int MostLines)
{
    const double spacing = std::isfinite(Spacing) && Spacing > 0 ? Spacing : 1;
    if (!std::isfinite(Range)) return spacing;
    for (double ten = 1; std::isfinite(ten * spacing); ten *= 10)
        for (const double times : RoundNumbers)
            if (Range <= spacing * times * ten * std::max(1, MostLines)) return spacing * times * ten;
    return spacing;
}

ChartScale::Scale ChartScale::Fitting(double Lowest, double Highest, double Spacing, int MostLines)
{
    const double lowest = std::min(0.0, Lowest);
    const double highest = std::max(0.0, Highest);
    const double step = Step(highest - lowest, Spacing, MostLines);
    const double from = std::floor(lowest / step) * step;
    return {from, std::max(std::ceil(highest / step) * step, from + step), step};
}

int ChartScale::LabelEvery(double LineDistance, double LabelSize)
{
    constexpr double most = 1e6;
    if (!(LineDistance > 0)) return static_cast<int>(most);
    return static_cast<int>(std::clamp(std::ceil(LabelSize / LineDistance), 1.0, most));
}

std::vector<std::size_t> ChartScale::Marked(const std::vector<Point> &Points, std::size_t Every, std::size_t First)
{
    const std::size_t every = std::max<std::size_t>(1, Every);
    std::vector<std::size_t> marked;
    for (std::size_t i = 0; i < Points.size(); ++i) {
        if (!IsThere(Points, i)) continue;
        const bool alone = (i == 0 || !IsThere(Points, i - 1)) && !IsThere(Points, i + 1);
        if (alone || i % every == First % every || i + 1 == Points.size()) marked.push_back(i);
    }
    return marked;
}

std::vector<ChartScale::Point> ChartScale::Means(const std::vector<Point> &Points, std::size_t Count)
{
    std::vector<Point> means;
    if (Points.empty()) return means;
    // Groups of equal size, so that the last one is no single point that jumps.
    const std::size_t groups = std::max<std::size_t>(1, Points.size() / std::max<std::size_t>(1, Count));
    for (std::size_t group = 0; group < groups; ++group)
        means.push_back(MeanOf(Points, group * Points.size() / groups, (group + 1) * Points.size() / groups));
    return means;
}
