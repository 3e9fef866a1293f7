// The values of a chart as a table.
#include "platform/ChartScale.h"
#include "platform/Dates.h"
#include "platform/LarkChart.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace
{
QString Number(double value)
{
    return ChartScale::IsMissing(value) ? QString() : QString::number(value, 'g', QLocale::FloatingPointShortest);
}
} // namespace

// Points of one place stand in one row; the second of a series at the same place stands in a second row.
QList<QStringList> LarkChart::Table(const QString &XName) const
{
    QStringList head{XName};
    std::map<std::pair<double, std::size_t>, std::map<std::size_t, double>> rows; // (place, which) to the values
    std::map<std::pair<double, std::size_t>, double> labels;
    bool hasTimes = false;
    for (std::size_t s = 0; s < m_Series.size(); ++s) {
        const ChartSeries &series = *m_Series[s];
        head << series.Name;
        std::map<double, std::size_t> met;
        for (std::size_t i = 0; i < Count(series); ++i) {
            const double along = Along(series, i);
            const std::pair place(along, met[along]++);
            rows[place][s] = series.Y[i];
            labels[place] = series.X[i];
            hasTimes = hasTimes || series.X[i] != std::floor(series.X[i]);
        }
    }
    QList<QStringList> table{head};
    for (const auto &[place, values] : rows) {
        const double x = labels[place];
        QStringList row{xaxistextformat.isEmpty() ? Number(x) : hasTimes ? IsoDateTime(x) : IsoDate(x)};
        for (std::size_t s = 0; s < m_Series.size(); ++s)
            row << Number(values.contains(s) ? values.at(s) : ChartScale::Missing);
        table << row;
    }
    return table;
}
