#include "platform/ChartPlot.h"

#include "platform/Colour.h"
#include "platform/LarkChart.h"

#include <QFontMetrics>

#include <algorithm>
#include <array>
#include <cmath>

#include <qcustomplot.h>

using ChartScale::Point;

namespace
{
constexpr double EndRoom = 12;               // [px] between the ends of the plot and the outer points
constexpr double MarkSize = 9, MarkRoom = 6; // [px]
constexpr double MarkDistance = 11;          // [px] from mark to mark, at least
constexpr double TooClose = 3, MeanWidth = 16, MeanMarkDistance = 24; // [px] from point to point
constexpr int SmallestPlot = 10;                                      // [px]
constexpr double LineDistance = 26;                                   // [px] between lines of the Y grid, at least
constexpr int MostLinesOfY = 12, MostLinesOfX = 100;
constexpr int TickLength = 4, LabelGap = 4;             // [px]
constexpr int IconWidth = 40, IconGap = 7, KeyGap = 22; // [px]
constexpr int KeyFoot = 10, KeyLeading = 4;             // [px] below the key; between its lines
constexpr double KeyShare = 0.4, LabelShare = 0.4;      // of the height: what key and labels may take at most
constexpr double SmallestKeyFont = 8.25, Shrink = 0.94;
constexpr int GridInk = 40, DotInk = 70, FaintInk = 60, NoteInk = 210; // of 255
constexpr int DotSize = 2;                                             // [px]
constexpr double LongestDashed = 20000; // [px] what goes that far beyond the plot shows no dashes in it
constexpr int MarkDarker = 140;         // [%] the rim of a mark, so that light colours keep a shape

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

// Points that are too many for marks.
class Dots final : public QCPGraph
{
public:
    Dots(const QCustomPlot &Plot, QColor Colour) : QCPGraph(Plot.xAxis, Plot.yAxis)
    {
        Colour.setAlpha(DotInk);
        setPen(QPen(Colour));
        setLineStyle(lsNone);
        setScatterStyle(QCPScatterStyle::ssDot);
    }
    void Show(const std::vector<Point> &Points)
    {
        for (const Point &point : Points)
            if (!ChartScale::IsMissing(point.Y)) mDataContainer->add(QCPGraphData(point.X, point.Y));
    }

protected:
    void drawScatterPlot(QCPPainter *painter, const QVector<QPointF> &scatters,
                         const QCPScatterStyle &) const override
    {
        std::vector<QRect> dots;
        dots.reserve(static_cast<std::size_t>(scatters.size()));
        for (const QPointF &place : scatters) dots.emplace_back(place.toPoint(), QSize(DotSize, DotSize));
        painter->setAntialiasing(false);
        painter->setPen(Qt::NoPen);
        painter->setBrush(
            mPen.color()); // squares of whole pixels, since they are filled many times faster than points
        painter->drawRects(dots.data(), static_cast<int>(dots.size()));
    }
};

void SetLook(QCPAxis *axis, const QFont &font, const QColor &colour, const QColor &text, QColor grid)
{
    axis->setBasePen(QPen(colour, 1));
    axis->setTickPen(QPen(colour, 1));
    axis->setTickLength(0, TickLength);
    axis->setSubTicks(false);
    axis->setTickLabelPadding(LabelGap);
    axis->setTickLabelFont(font);
    axis->setTickLabelColor(text);
    grid.setAlpha(GridInk);
    axis->grid()->setPen(QPen(grid, 0));
    axis->grid()->setZeroLinePen(Qt::NoPen);
}

QSharedPointer<QCPAxisTickerText> Ticks(QCPAxis *axis)
{
    QSharedPointer<QCPAxisTickerText> ticks(new QCPAxisTickerText);
    axis->setTicker(ticks);
    return ticks;
}

// Grid lines are counted from the start of the scale, so that none is lost to rounding on the way.
template <typename Each>
void ForEachLine(const ChartScale::Scale &scale, Each each)
{
    const int last = static_cast<int>(std::floor((scale.To - scale.From) / scale.Step + 1e-6));
    for (int n = 0; n <= last; ++n) each(n, scale.From + n * scale.Step);
}

QString Number(double value) { return QString::number(value, 'g', 10); }
} // namespace

ChartPlot::ChartPlot(LarkChart *Chart) : m_Chart(*Chart), m_Plot(new QCustomPlot(Chart))
{
    m_Plot->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_Plot->setFocusPolicy(Qt::NoFocus);
    m_Plot->setAutoAddPlottableToLegend(false);
    m_Plot->setAntialiasedElements(QCP::aeAll);
    m_Plot->setNotAntialiasedElements(QCP::aeAxes | QCP::aeGrid);
    m_Plot->plotLayout()->setAutoMargins(QCP::msNone);
    m_Plot->plotLayout()->setMargins({});
    m_Plot->axisRect()->setAutoMargins(QCP::msNone);
    m_Plot->axisRect()->setMinimumSize(1, 1);
    m_Plot->axisRect()->insetLayout()->setMargins({});
    m_Plot->legend->setAutoMargins(QCP::msNone);
    m_Plot->legend->setMargins({});
    m_Plot->legend->setRowSpacing(KeyLeading);
    m_Plot->legend->setColumnSpacing(0);
    m_Plot->legend->setBorderPen(Qt::NoPen);
    m_Plot->legend->setBrush(Qt::NoBrush);
    m_Plot->legend->setIconTextPadding(IconGap);
    m_Plot->axisRect()->insetLayout()->setInsetPlacement(0, QCPLayoutInset::ipFree);
}

void ChartPlot::Draw()
{
    if (m_Chart.rect().isEmpty()) return; // the surface can't be painted on
    m_Plot->clearItems();
    m_Plot->clearPlottables();
    m_Plot->setGeometry(m_Chart.rect());
    m_Plot->setViewport(m_Chart.rect()); // a hidden surface learns of its size later
    m_Plot->setBackground(QBrush(ToColour(m_Chart.backcolour)));
    m_Plot->axisRect()->setBackground(QBrush(ToColour(m_Chart.plotbackcolour)));
    DrawAxes();
    DrawSeries();
    DrawKey();
    DrawNote();
    m_Plot->replot(QCustomPlot::rpQueuedRefresh);
}

QRect ChartPlot::Area() const
{
    const QRect all = m_Chart.rect();
    return all.adjusted(m_Margins.left(), m_Margins.top(), -m_Margins.right(), -m_Margins.bottom());
}

QPointF ChartPlot::PlaceOf(double X, double Y) const
{
    return {m_Plot->xAxis->coordToPixel(X), m_Plot->yAxis->coordToPixel(Y)};
}

// The points within the range of the X axis.
std::vector<Point> ChartPlot::PointsOf(const ChartSeries &Series) const
{
    std::vector<Point> points;
    for (std::size_t i = 0; i < LarkChart::Count(Series); ++i) {
        const double along = m_Chart.Along(Series, i);
        if (along >= m_X.From && along <= m_X.To) points.push_back({along, Series.Y[i]});
    }
    return points;
}

// The family is set, since a painter would take its own for what a font leaves open.
QFont ChartPlot::Resolved(const QFont &Font) const
{
    QFont font = Font.resolve(m_Chart.font());
    font.setFamilies(font.families());
    return font;
}

// The step of the X axis comes first, since its labels decide about the height; then the key and the height of the
// plot, then the scale of Y, and with its labels the width.
void ChartPlot::FindScales()
{
    const double from = std::isfinite(m_Chart.xmin) ? m_Chart.xmin : 0;
    const double to = std::isfinite(m_Chart.xmax) && m_Chart.xmax > from ? m_Chart.xmax : from + 1;
    m_X = {from, to, ChartScale::Step(to - from, m_Chart.xgridspacing, MostLinesOfX)};
    m_Margins = QMargins(std::max(0, m_Chart.leftmargin), std::max(0, m_Chart.topmargin),
                         std::max(0, m_Chart.rightmargin), std::max(0, m_Chart.bottommargin));
    LeaveRoom();
    FindKey();
    const int most = static_cast<int>(m_Chart.height() * LabelShare);
    const QSize label = LargestXLabel();
    const int needed = TickLength + LabelGap + (m_Chart.xaxisverticaltext ? label.width() : label.height()) + 2;
    m_Margins.setBottom(std::max(m_Margins.bottom(), std::min(most, needed)));
    LeaveRoom();
    FindY();
    LeaveRoom();
}

// Margins that leave no plot between them are halves of what there is.
void ChartPlot::LeaveRoom()
{
    const int across = std::max(0, (m_Chart.width() - SmallestPlot) / 2);
    const int down = std::max(0, (m_Chart.height() - SmallestPlot) / 2);
    if (Area().width() < SmallestPlot) m_Margins = {across, m_Margins.top(), across, m_Margins.bottom()};
    if (Area().height() < SmallestPlot) m_Margins = {m_Margins.left(), down, m_Margins.right(), down};
}

void ChartPlot::FindY()
{
    double lowest = 0;
    double highest = 0;
    bool found = false;
    for (const auto &series : m_Chart.AllSeries())
        for (const Point &point : PointsOf(*series)) {
            if (ChartScale::IsMissing(point.Y)) continue;
            found = true;
            lowest = std::min(lowest, point.Y);
            highest = std::max(highest, point.Y);
        }
    const int most = std::clamp(static_cast<int>(Area().height() / LineDistance), 1, MostLinesOfY);
    if (found && m_Chart.autoscaley)
        m_Y = ChartScale::Fitting(lowest, highest, m_Chart.ygridspacing, most);
    else {
        const double top = std::isfinite(m_Chart.ymax) && m_Chart.ymax > 0 ? m_Chart.ymax : 1;
        m_Y = {0, top, ChartScale::Step(top, m_Chart.ygridspacing, most)};
    }
    const QFontMetrics text(Resolved(m_Chart.yaxisfont));
    ForEachLine(m_Y, [&](int, double y) {
        const int needed = text.horizontalAdvance(Number(y)) + TickLength + LabelGap + 2;
        m_Margins.setLeft(std::max(m_Margins.left(), std::min(needed, m_Chart.width() / 3)));
    });
}

QSize ChartPlot::LargestXLabel() const
{
    const QFontMetrics text(Resolved(m_Chart.xaxisfont));
    int width = 0;
    ForEachLine(m_X, [&](int, double x) { width = std::max(width, text.horizontalAdvance(m_Chart.LabelAt(x))); });
    return {width, text.height()};
}

// The largest font with which the key fits into the margin above the plot; with the smallest, the margin grows.
void ChartPlot::FindKey()
{
    m_Key = {};
    const auto &all = m_Chart.AllSeries();
    if (!m_Chart.showkey || all.empty()) return;
    const int width = std::max(1, m_Chart.width() - m_Margins.left() - m_Margins.right());
    const int count = static_cast<int>(all.size());
    m_Key.Font = Resolved(m_Chart.chartfont);
    for (;;) {
        const QFontMetrics text(m_Key.Font);
        int widest = 0;
        for (const auto &series : all) widest = std::max(widest, text.horizontalAdvance(series->Name));
        m_Key.Item = QSize(std::min(width, IconWidth + IconGap + widest + KeyGap), text.height());
        m_Key.Columns = std::min(count, width / m_Key.Item.width());
        m_Key.Rows = (count + m_Key.Columns - 1) / m_Key.Columns;
        const bool fits = KeyHeight() <= m_Margins.top();
        if (fits || m_Key.Font.pointSizeF() * Shrink < SmallestKeyFont) break;
        m_Key.Font.setPointSizeF(m_Key.Font.pointSizeF() * Shrink);
    }
    const int most = std::max(m_Margins.top(), static_cast<int>(m_Chart.height() * KeyShare));
    while (m_Key.Rows > 1 && KeyHeight() > most) --m_Key.Rows;
    if (KeyHeight() > m_Margins.top()) m_Margins.setTop(KeyHeight() + KeyLeading);
}

// With the room below it.
int ChartPlot::KeyHeight() const { return m_Key.Rows * (m_Key.Item.height() + KeyLeading) + KeyFoot; }

void ChartPlot::DrawAxes()
{
    FindScales();
    m_Plot->axisRect()->setMargins(m_Margins);
    const QColor axis = ToColour(m_Chart.axiscolour);
    const QColor grid = ToColour(m_Chart.gridcolour);
    SetLook(m_Plot->xAxis, Resolved(m_Chart.xaxisfont), axis, axis, grid);
    SetLook(m_Plot->yAxis, Resolved(m_Chart.yaxisfont), axis, ToColour(m_Chart.yaxistextcolour), grid);
    m_Plot->xAxis->setTickLabelRotation(m_Chart.xaxisverticaltext ? -90 : 0);
    const double perPixel = (m_X.To - m_X.From) / PointsWidth();
    m_Plot->xAxis->setRange(m_X.From - EndRoom * perPixel, m_X.To + EndRoom * perPixel);
    m_Plot->yAxis->setRange(m_Y.From, m_Y.To);

    const QSize label = LargestXLabel();
    const int size = m_Chart.xaxisverticaltext ? label.height() : label.width() + LabelGap * 2;
    const int every = ChartScale::LabelEvery(m_X.Step / perPixel, size);
    const auto ticks = Ticks(m_Plot->xAxis);
    ForEachLine(m_X, [&](int n, double x) { ticks->addTick(x, n % every == 0 ? m_Chart.LabelAt(x) : QString()); });
    const auto levels = Ticks(m_Plot->yAxis);
    ForEachLine(m_Y, [&](int, double y) { levels->addTick(y, Number(y)); });
}

// [px] From the first to the last place of a point.
double ChartPlot::PointsWidth() const { return std::max(1.0, Area().width() - 2 * EndRoom); }

void ChartPlot::DrawSeries()
{
    std::vector<std::vector<Point>> all;
    std::size_t most = 2;
    for (const auto &series : m_Chart.AllSeries()) {
        all.push_back(PointsOf(*series));
        most = std::max(most, all.back().size());
    }
    double apart = PointsWidth() / static_cast<double>(most - 1);
    m_MeanOf = m_Chart.averages && apart < TooClose ? static_cast<std::size_t>(std::ceil(MeanWidth / apart)) : 1;
    if (m_MeanOf > 1) DrawDots(all);
    apart *= static_cast<double>(m_MeanOf);
    for (std::vector<Point> &points : all)
        if (m_MeanOf > 1) points = ChartScale::Means(points, m_MeanOf);
    DrawTints(all);
    const double between = m_MeanOf > 1 ? MeanMarkDistance : MarkDistance;
    const auto every = static_cast<std::size_t>(std::ceil(between / apart));
    for (std::size_t i = 0; i < all.size(); ++i) {
        const ChartSeries &series = *m_Chart.AllSeries()[i];
        auto *line = new Line(*m_Plot, m_Chart.autoscaley);
        line->setName(series.Name);
        line->setPen(LinePen(series));
        line->setScatterStyle(MarkOf(series));
        line->Show(all[i]);
        line->Mark(all[i], ChartScale::Marked(all[i], every, i));
    }
}

// The points themselves, where the lines are their means.
void ChartPlot::DrawDots(const std::vector<std::vector<Point>> &All)
{
    for (std::size_t i = 0; i < All.size(); ++i)
        (new Dots(*m_Plot, ToColour(m_Chart.AllSeries()[i]->Colour)))->Show(All[i]);
}

// Below all lines, each dashed one shows faintly between its dashes, or steep pieces would look like gaps.
void ChartPlot::DrawTints(const std::vector<std::vector<Point>> &All)
{
    for (std::size_t i = 0; i < All.size(); ++i) {
        const QPen pen = LinePen(*m_Chart.AllSeries()[i]);
        if (pen.style() == Qt::SolidLine) continue;
        auto *tint = new Pieces(*m_Plot);
        tint->setPen(QPen(Tint(pen.color(), ToColour(m_Chart.plotbackcolour), FaintInk), pen.widthF()));
        tint->Show(All[i]);
    }
}

void ChartPlot::DrawKey()
{
    QCPLegend *key = m_Plot->legend;
    key->setVisible(m_Key.Rows > 0);
    if (m_Key.Rows == 0) return;
    key->setFont(m_Key.Font);
    key->setTextColor(ToColour(m_Chart.axiscolour));
    key->setIconSize(IconWidth, m_Key.Item.height());
    key->setWrap(m_Key.Columns);
    key->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    const QFontMetrics text(m_Key.Font);
    int left = m_Key.Columns * m_Key.Rows;
    for (int i = 0; i < m_Plot->plottableCount() && left > 0; ++i) {
        auto *line = dynamic_cast<Line *>(m_Plot->plottable(i));
        if (line == nullptr) continue;
        line->setName(text.elidedText(line->name(), Qt::ElideRight, m_Key.Item.width() - IconWidth - IconGap));
        line->addToLegend();
        --left;
    }
    const QSizeF plot = Area().size();
    const QSizeF size(m_Key.Columns * m_Key.Item.width(), KeyHeight() - KeyFoot);
    m_Plot->axisRect()->insetLayout()->setInsetRect(0, QRectF(0, -(size.height() + KeyFoot) / plot.height(),
                                                              size.width() / plot.width(),
                                                              size.height() / plot.height()));
}

// Tells that the lines are means, and of how many points.
void ChartPlot::DrawNote()
{
    if (m_MeanOf == 1) return;
    QColor ground = ToColour(m_Chart.plotbackcolour);
    ground.setAlpha(NoteInk);
    auto *note = new QCPItemText(m_Plot);
    note->position->setType(QCPItemPosition::ptAxisRectRatio);
    note->position->setCoords(1, 0);
    note->setPositionAlignment(Qt::AlignRight | Qt::AlignTop);
    note->setFont(Resolved(m_Chart.yaxisfont));
    note->setColor(ToColour(m_Chart.axiscolour));
    note->setBrush(ground);
    note->setPadding(QMargins(6, 3, 6, 3));
    note->setText(QStringLiteral("Ø %1").arg(m_MeanOf));
}
