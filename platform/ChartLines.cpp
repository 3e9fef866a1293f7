#include "platform/ChartLines.h"

#include "platform/Colour.h"
#include "platform/LarkChart.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <utility>

#include <qcustomplot.h>

using ChartScale::Point;

namespace
{
constexpr double MarkSize = 9, MarkRoom = 6; // [px]
constexpr int MarkDarker = 140;              // [%] the rim of a mark, so that light colours keep a shape
constexpr int DotSize = 2;                   // [px]
constexpr int FaintInk = 60;                 // of 255
constexpr double LongestDashed = 20000;      // [px] what goes that far beyond the plot shows no dashes in it

struct Style
{
    QCPScatterStyle::ScatterShape Shape;
    double Rim;                          // [px]
    std::initializer_list<qreal> Dashes; // in widths of the line
};

const std::array<Style, 6> &Styles()
{
    static const std::array<Style, 6> styles{{{QCPScatterStyle::ssCircle, 1, {}},
                                              {QCPScatterStyle::ssSquare, 1, {4, 2}},
                                              {QCPScatterStyle::ssTriangle, 1, {1, 1.5}},
                                              {QCPScatterStyle::ssDiamond, 1, {7, 2, 1.5, 2}},
                                              {QCPScatterStyle::ssTriangleInverted, 1, {10, 3}},
                                              {QCPScatterStyle::ssCross, 2.4, {6, 1.5, 1, 1.5, 1, 1.5}}}};
    return styles;
}

const Style &StyleOf(const ChartSeries &series)
{
    const auto last = static_cast<int>(Styles().size());
    return Styles()[static_cast<std::size_t>(std::clamp(series.Style, 1, last) - 1)];
}

QPen LinePen(const ChartSeries &series)
{
    QPen pen(ToColour(series.Colour), std::max(1, series.Thickness), Qt::SolidLine, Qt::FlatCap);
    const Style &style = StyleOf(series);
    if (style.Dashes.size() > 0) pen.setDashPattern(QList<qreal>(style.Dashes));
    return pen;
}

// A mark has a solid rim of its own, or it would take the dashes of the line.
QCPScatterStyle MarkOf(const ChartSeries &series)
{
    if (!series.Marks) return {};
    const QColor colour = ToColour(series.Colour);
    const Style &style = StyleOf(series);
    return QCPScatterStyle(style.Shape, QPen(style.Rim > 1 ? colour : colour.darker(MarkDarker), style.Rim), colour,
                           MarkSize);
}

// From point to point, without the gaps.
QVector<QLineF> PiecesOf(const QVector<QPointF> &points)
{
    QVector<QLineF> pieces;
    for (qsizetype i = 1; i < points.size(); ++i)
        if (!qIsNaN(points[i - 1].y()) && !qIsNaN(points[i].y())) pieces.push_back({points[i - 1], points[i]});
    return pieces;
}

// The dashes of a pen along the pieces of a line, as lines of their own. A pattern goes on from piece to piece.
QVector<QLineF> DashesOf(const QVector<QLineF> &pieces, const QPen &pen)
{
    const QList<qreal> pattern = pen.dashPattern(); // dash, space, dash, space, ...
    QVector<QLineF> dashes;
    qsizetype at = 0;
    double left = pattern[0] * pen.widthF(); // [px] of the present dash or space
    for (const QLineF &piece : pieces) {
        const double length = piece.length();
        if (length > LongestDashed) dashes.push_back(piece);
        for (double from = 0; from < length && length <= LongestDashed;) {
            const double to = std::min(length, from + left);
            if (at % 2 == 0) dashes.push_back({piece.pointAt(from / length), piece.pointAt(to / length)});
            left -= to - from;
            from = to;
            if (left > 1e-6) continue;
            at = (at + 1) % pattern.size();
            left = pattern[at] * pen.widthF();
        }
    }
    return dashes;
}

// As if that much ink of the colour stood on a ground. Opaque, since lines that let the ground through are drawn ten
// times slower.
QColor Tint(const QColor &colour, const QColor &ground, int ink)
{
    const auto mix = [ink](int of, int on) { return on + (of - on) * ink / 255; };
    return {mix(colour.red(), ground.red()), mix(colour.green(), ground.green()), mix(colour.blue(), ground.blue())};
}

// A line drawn piece by piece and dash by dash: as one path, a jagged one takes Qt a hundred times longer.
class Pieces : public QCPGraph
{
public:
    explicit Pieces(const QCustomPlot &Plot) : QCPGraph(Plot.xAxis, Plot.yAxis) {}

    void Show(const std::vector<Point> &Points)
    {
        for (const Point &point : Points)
            mDataContainer->add(QCPGraphData(point.X, ChartScale::IsMissing(point.Y) ? qQNaN() : point.Y));
    }

protected:
    void drawLinePlot(QCPPainter *painter, const QVector<QPointF> &lines) const override
    {
        applyDefaultAntialiasingHint(painter);
        const QVector<QLineF> pieces = PiecesOf(lines);
        const bool solid = mPen.style() == Qt::SolidLine;
        painter->setPen(QPen(mPen.color(), mPen.widthF(), Qt::SolidLine, solid ? Qt::SquareCap : Qt::FlatCap));
        painter->drawLines(solid ? pieces : DashesOf(pieces, mPen));
    }
};

// A line whose marks are chosen, and which may stand at the very end of the scale without losing half of its marks.
class Line final : public Pieces
{
public:
    Line(const QCustomPlot &Plot, bool WholeMarks) : Pieces(Plot), m_WholeMarks(WholeMarks) {}

    void Mark(const std::vector<Point> &Points, const std::vector<std::size_t> &Marked)
    {
        for (const std::size_t i : Marked) m_Marks.push_back(Points[i]);
    }

protected:
    QRect clipRect() const override
    {
        const int room = m_WholeMarks ? static_cast<int>(MarkRoom) : 0;
        return QCPGraph::clipRect().adjusted(0, -room, 0, room);
    }
    void drawScatterPlot(QCPPainter *painter, const QVector<QPointF> &, const QCPScatterStyle &style) const override
    {
        applyScattersAntialiasingHint(painter);
        style.applyTo(painter, mPen);
        for (const Point &mark : m_Marks) style.drawShape(painter, coordsToPixels(mark.X, mark.Y));
    }

private:
    bool m_WholeMarks;
    std::vector<Point> m_Marks;
};

// All four parts of a colour times a share of 255, two parts in one multiplication.
QRgb Share(QRgb colour, quint32 share)
{
    constexpr quint32 twoParts = 0xFF00FF, halves = 0x800080;
    const auto times = [&](quint32 parts) {
        const quint32 product = parts * share;
        return (product + ((product >> 8) & twoParts) + halves) >> 8 & twoParts; // rounded division by 255
    };
    return times(colour & twoParts) | times(colour >> 8 & twoParts) << 8;
}

// Points that are too many for marks, of all series in one picture that is drawn at once: tens of thousands of small
// squares take a painter half a frame.
class Dots final : public QCPGraph
{
public:
    explicit Dots(const QCustomPlot &Plot) : QCPGraph(Plot.xAxis, Plot.yAxis) {}
    void Show(std::vector<ChartLines::DotsOfSeries> All) { m_All = std::move(All); }

protected:
    void draw(QCPPainter *painter) override
    {
        const QRect plot = clipRect();
        QImage picture(plot.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        for (const auto &[colour, points] : m_All)
            SetDots(picture, plot.topLeft(), points, qPremultiply(colour.rgba()));
        painter->setAntialiasing(false); // or it stands half a pixel aside
        painter->drawImage(plot.topLeft(), picture);
    }

private:
    // Both axes are even, so the places of two points tell those of all.
    void SetDots(QImage &picture, const QPointF &corner, const std::vector<Point> &points, QRgb ink) const
    {
        const QPointF zero = QPointF(keyAxis()->coordToPixel(0), valueAxis()->coordToPixel(0)) - corner;
        const QPointF one = QPointF(keyAxis()->coordToPixel(1), valueAxis()->coordToPixel(1)) - corner - zero;
        auto *const pixels = reinterpret_cast<QRgb *>(picture.bits());
        for (const Point &point : points)
            if (!ChartScale::IsMissing(point.Y))
                SetDot(pixels, picture.size(),
                       QPointF(zero.x() + one.x() * point.X, zero.y() + one.y() * point.Y).toPoint(), ink);
    }
    // A line of the picture follows on the one above it without a gap, as with all pictures of four bytes a pixel.
    static void SetDot(QRgb *pixels, const QSize &size, const QPoint &place, QRgb ink)
    {
        const quint32 through = 255 - static_cast<quint32>(qAlpha(ink));
        const int right = std::min(place.x() + DotSize, size.width());
        const int bottom = std::min(place.y() + DotSize, size.height());
        for (int y = std::max(0, place.y()); y < bottom; ++y) {
            QRgb *const line = pixels + static_cast<std::ptrdiff_t>(y) * size.width();
            for (int x = std::max(0, place.x()); x < right; ++x) line[x] = ink + Share(line[x], through);
        }
    }

    std::vector<ChartLines::DotsOfSeries> m_All;
};
} // namespace

QCPGraph *ChartLines::AddLine(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<Point> &Points,
                              const std::vector<std::size_t> &Marked, bool WholeMarks)
{
    auto *line = new Line(Plot, WholeMarks);
    line->setName(Series.Name);
    line->setPen(LinePen(Series));
    line->setScatterStyle(MarkOf(Series));
    line->Show(Points);
    line->Mark(Points, Marked);
    return line;
}

void ChartLines::AddDots(QCustomPlot &Plot, std::vector<DotsOfSeries> All) { (new Dots(Plot))->Show(std::move(All)); }

void ChartLines::AddTint(QCustomPlot &Plot, const ChartSeries &Series, const std::vector<Point> &Points,
                         const QColor &Ground)
{
    const QPen pen = LinePen(Series);
    if (pen.style() == Qt::SolidLine) return;
    auto *tint = new Pieces(Plot);
    tint->setPen(QPen(Tint(pen.color(), Ground, FaintInk), pen.widthF()));
    tint->Show(Points);
}
