// A chart over numbered days, drawn for real, and what can be seen on it.
#pragma once

#include "platform/Clock.h"
#include "platform/Dates.h"
#include "platform/LarkChart.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QImage>
#include <QLabel>
#include <QString>

#include <algorithm>
#include <cmath>
#include <vector>

class ChartTest : public testing::Test
{
protected:
    static constexpr QSize ScreenSize{632, 505}; // [px]
    static constexpr int Red = 0x0000FF, Blue = 0xFF0000;
    static QString S(const char *text) { return QString::fromUtf8(text); }
    static double Day(int Year, int Month, int TheDay)
    {
        return ToDayCount(QDateTime(QDate(Year, Month, TheDay), QTime(0, 0)));
    }

    ChartTest()
    {
        m_Chart.setFont(QFont(S("Inter")));
        m_Chart.resize(ScreenSize);
        m_Chart.evenspacing = true;
        m_Chart.emptytext = S("No workout is recorded yet.");
    }

    /// A series over the days from 1 March 2026 on, with the axis over all of it.
    ChartSeries &Given(const QString &Name, const std::vector<double> &Y, int Colour = Red, int Style = 1)
    {
        ChartSeries &series = m_Chart.Series(Name);
        series.Y = Y;
        series.X.clear();
        for (std::size_t i = 0; i < Y.size(); ++i) series.X.push_back(Day(2026, 3, 1) + static_cast<double>(i));
        series.Colour = Colour;
        series.Style = Style;
        m_Chart.xmin = 1;
        m_Chart.xmax = std::max(2.0, static_cast<double>(Y.size()));
        m_Chart.xgridspacing = std::floor((m_Chart.xmax - 1) / 20) + 1;
        return series;
    }
    QImage Drawn()
    {
        m_Chart.Redraw();
        return m_Chart.grab().toImage();
    }
    /// Whether something of that colour is drawn within Reach of a place.
    static bool Inked(const QImage &Picture, const QPointF &Place, int Colour, int Reach = 1)
    {
        const QPoint at = Place.toPoint();
        for (int x = at.x() - Reach; x <= at.x() + Reach; ++x)
            for (int y = at.y() - Reach; y <= at.y() + Reach; ++y) {
                if (!Picture.valid(x, y)) continue;
                const QColor found = Picture.pixelColor(x, y);
                const bool red = found.red() > found.blue() + 90;
                const bool blue = found.blue() > found.red() + 90;
                if (Colour == Red ? red : blue) return true;
            }
        return false;
    }
    /// Whether any pixel of the columns in a part of the picture differs from its ground.
    static bool AnythingIn(const QImage &Picture, const QRect &Part)
    {
        const QRgb ground = Picture.pixel(Part.topLeft());
        for (int x = Part.left(); x <= Part.right(); ++x)
            for (int y = Part.top(); y <= Part.bottom(); ++y)
                if (Picture.pixel(x, y) != ground) return true;
        return false;
    }
    QLabel &Empty() { return *m_Chart.findChild<QLabel *>(S("Empty")); }

    LarkChart m_Chart;
};
