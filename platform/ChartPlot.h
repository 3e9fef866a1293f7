// How a LarkChart gets onto the screen: with `ChartLines` the one place that knows the plotting
// library.
#pragma once

#include "platform/ChartScale.h"

#include <QFont>
#include <QMargins>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <cstddef>
#include <vector>

class LarkChart;
class QCPGraph;
class QCustomPlot;
struct ChartSeries;

class ChartPlot
{
public:
    /// The surface is a child of the chart, and lets the mouse through to it.
    explicit ChartPlot(LarkChart *Chart);

    /// Draws settings and series of the chart in its present size.
    void Draw();

    QRect Area() const; // [px]
    QPointF PlaceOf(double X, double Y) const;
    double YFrom() const { return m_Y.From; }
    double YTo() const { return m_Y.To; }

private:
    struct Key
    {
        QFont Font;
        QSize Item; // [px]
        int Columns = 0;
        int Rows = 0; // 0 for no key
    };

    void FindScales();
    void LeaveRoom();
    void FindKey();
    void FindY();
    void DrawAxes();
    void DrawSeries();
    void DrawDots(const std::vector<std::vector<ChartScale::Point>> &All);
    void DrawTints(const std::vector<std::vector<ChartScale::Point>> &All);
    void DrawKey();
    void DrawNote();
    std::vector<ChartScale::Point> PointsOf(const ChartSeries &Series) const;
    QFont Resolved(const QFont &Font) const;
    QSize LargestXLabel() const;
    int KeyHeight() const;
    double PointsWidth() const;

    const LarkChart &m_Chart;
    QCustomPlot *m_Plot;
    std::vector<QCPGraph *> m_Lines; // in the order of the series; the plot owns them
    ChartScale::Scale m_X{0, 1, 1};
    ChartScale::Scale m_Y{0, 1, 1};
    QMargins m_Margins; // [px]
    Key m_Key;
    std::size_t m_MeanOf = 1; // points that a point of a line stands for
};
