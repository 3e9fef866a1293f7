// What a LarkChart draws on. The plotting library stands behind it, in a library of our own beside the program that
// is loaded with the first chart: a start needs none, and it brings half of Qt's printing along.
#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>

#include <memory>

class LarkChart;

class ChartSurface
{
public:
    virtual ~ChartSurface() = default;

    /// Draws settings and series of the chart in its present size.
    virtual void Draw() = 0;
    /// What was drawn last, anew on a finer ground.
    virtual QImage Picture(double Scale) const = 0;

    virtual QRect Area() const = 0; // [px]
    virtual QPointF PlaceOf(double X, double Y) const = 0;
    virtual double YFrom() const = 0;
    virtual double YTo() const = 0;
};

/// A surface on the chart, as its child; it lets the mouse through. Failure: passed on, where the library is missing.
std::unique_ptr<ChartSurface> MakeChartSurface(LarkChart *Chart);
