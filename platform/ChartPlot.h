// How a LarkChart gets onto the screen: with `ChartLines` the one place that knows the plotting library, and all that
// is in the library beside the program. Of the chart it uses fields and what is inline or virtual, since the library
// is linked without it.
#pragma once

#include "platform/ChartScale.h"
#include "platform/ChartSurface.h"

#include <QFont>
#include <QImage>
#include <QMargins>
#include <QSize>

#include <cstddef>
#include <vector>

class QCPGraph;
class QCustomPlot;
struct ChartSeries;

class ChartPlot final : public ChartSurface
{
public:
    explicit ChartPlot(LarkChart *Chart);

    void Draw() override;
    QImage Picture(double Scale) const override;
    QRect Area() const override;
    QPointF PlaceOf(double X, double Y) const override;
    double YFrom() const override { return m_Y.From; }
    double YTo() const override { return m_Y.To; }

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
    QSize LargestName() const;
    int KeyHeight() const;
    double PointsWidth() const;

    const LarkChart &m_Chart;
    QCustomPlot *m_Plot;
    std::vector<std::vector<ChartScale::Point>> m_Points; // of each series, until they are drawn
    std::vector<QCPGraph *> m_Lines;                      // in the order of the series; the plot owns them
    ChartScale::Scale m_X{0, 1, 1};
    ChartScale::Scale m_Y{0, 1, 1};
    QMargins m_Margins; // [px]
    QSize m_XLabel;     // [px] the largest one
    Key m_Key;
    std::size_t m_MeanOf = 1; // points that a point of a line stands for
};
