#include "platform/ChartPlot.h"

#include "platform/ChartLines.h"
#include "platform/Colour.h"
#include "platform/LarkChart.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>

#include <algorithm>
#include <cmath>
#include <utility>

#include <qcustomplot.h>

using ChartScale::Point;

namespace
{
constexpr double EndRoom = 12;                          // [px] between the ends of the plot and the outer points
constexpr double MarkDistance = 11;                     // [px] from mark to mark, at least
constexpr double TooClose = 2.6, CloserByLine = 0.4;    // [px] from point to point; the second for each line
constexpr double MeanWidth = 16, MeanMarkDistance = 24; // [px] the same
constexpr int SmallestPlot = 10;                        // [px]
constexpr double LineDistance = 26;                     // [px] between lines of the Y grid, at least
constexpr int MostLinesOfY = 12, MostLinesOfX = 100;
constexpr int TickLength = 4, LabelGap = 4;             // [px]
constexpr int IconWidth = 40, IconGap = 7, KeyGap = 22; // [px]
constexpr int KeyFoot = 10, KeyLeading = 4;             // [px] below the key; between its lines
constexpr double WantedKeyShare = 0.2, KeyShare = 0.4;  // of the height: what the key should take, and may at most
constexpr int NarrowestKey = 150;                       // [px] of an entry
constexpr double LabelShare = 0.4;                      // of the height: what labels may take at most
constexpr double SmallestKeyFont = 8.25, Shrink = 0.94;
constexpr int GridInk = 40, NoteInk = 230;                             // of 255
constexpr double MostDotInk = 170, LeastDotInk = 45, DotInkFades = 22; // of 255; by each doubling of the dots
constexpr double FewDots = 300;

// Few dots are strong, many are a haze behind the lines.
int DotInk(std::size_t count)
{
    const double doublings = std::log2(static_cast<double>(count) / FewDots);
    return static_cast<int>(std::clamp(MostDotInk - DotInkFades * doublings, LeastDotInk, MostDotInk));
}

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

// What was drawn while it was hidden is not drawn once more when it is shown and learns of its size.
class Surface final : public QCustomPlot
{
public:
    using QCustomPlot::QCustomPlot;

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        if (viewport() != rect()) QCustomPlot::resizeEvent(event);
    }
};
} // namespace

ChartPlot::ChartPlot(LarkChart *Chart) : m_Chart(*Chart), m_Plot(new Surface(Chart))
{
    QCoreApplication::removePostedEvents(m_Plot, QEvent::MetaCall); // to draw itself once more, after the first Draw
    m_Plot->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_Plot->setFocusPolicy(Qt::NoFocus);
    m_Plot->lower();                                                        // the empty text lies on it
    m_Plot->show();                                                         // the chart may be on the screen already
    m_Plot->layer(QStringLiteral("overlay"))->setMode(QCPLayer::lmLogical); // nothing is on it: no picture of its own
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
    m_Lines.clear();
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

QImage ChartPlot::Picture(double Scale) const
{
    QImage picture = m_Plot->toPixmap(m_Plot->width(), m_Plot->height(), Scale).toImage();
    picture.setDevicePixelRatio(Scale);
    return picture;
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
    m_Points.clear();
    for (const auto &series : m_Chart.AllSeries()) m_Points.push_back(PointsOf(*series));
    LeaveRoom();
    FindKey();
    const int most = static_cast<int>(m_Chart.height() * LabelShare);
    m_XLabel = LargestXLabel();
    const int needed = TickLength + LabelGap + (m_Chart.xaxisverticaltext ? m_XLabel.width() : m_XLabel.height()) + 2;
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
    for (const std::vector<Point> &points : m_Points)
        for (const Point &point : points) {
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

QSize ChartPlot::LargestName() const
{
    const QFontMetrics text(m_Key.Font);
    int widest = 0;
    for (const auto &series : m_Chart.AllSeries()) widest = std::max(widest, text.horizontalAdvance(series->Name));
    return {widest, text.height()};
}

// The largest font with which the key fits into the margin above the plot; with the smallest, the margin grows.
void ChartPlot::FindKey()
{
    m_Key = {};
    const auto &all = m_Chart.AllSeries();
    if (!m_Chart.showkey || all.empty()) return;
    const int width = std::max(1, m_Chart.width() - m_Margins.left() - m_Margins.right());
    const int count = static_cast<int>(all.size());
    m_Key.Font = Resolved(m_Chart.keyfont);
    const auto layOut = [&](const QSizeF &name) {
        const int item = IconWidth + IconGap + static_cast<int>(std::ceil(name.width())) + KeyGap;
        m_Key.Item = QSize(std::min(width, item), static_cast<int>(std::ceil(name.height())));
        m_Key.Columns = std::min(count, width / m_Key.Item.width());
        m_Key.Rows = (count + m_Key.Columns - 1) / m_Key.Columns;
        return KeyHeight() <= m_Margins.top() || m_Key.Font.pointSizeF() * Shrink < SmallestKeyFont;
    };
    // A font takes a millisecond to load: names are measured in the first and in the chosen one, and their size in
    // those between is taken for even.
    QSizeF name = LargestName();
    while (!layOut(name)) {
        do {
            m_Key.Font.setPointSizeF(m_Key.Font.pointSizeF() * Shrink);
            name *= Shrink;
        } while (!layOut(name));
        name = LargestName();
    }
    // Long names stand beside each other all the same, and lose their middle.
    const int wanted = std::max(m_Margins.top(), static_cast<int>(m_Chart.height() * WantedKeyShare));
    while (KeyHeight() + KeyLeading > wanted && m_Key.Columns < count &&
           width / (m_Key.Columns + 1) >= NarrowestKey) {
        m_Key.Item.setWidth(width / ++m_Key.Columns);
        m_Key.Rows = (count + m_Key.Columns - 1) / m_Key.Columns;
    }
    const int most = std::max(m_Margins.top(), static_cast<int>(m_Chart.height() * KeyShare));
    while (m_Key.Rows > 1 && KeyHeight() + KeyLeading > most) --m_Key.Rows;
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

    const int size = m_Chart.xaxisverticaltext ? m_XLabel.height() : m_XLabel.width() + LabelGap * 2;
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
    auto all = std::move(m_Points);
    std::size_t most = 2;
    for (const std::vector<Point> &points : all) most = std::max(most, points.size());
    double apart = PointsWidth() / static_cast<double>(most - 1);
    // The more lines there are, the sooner they are a tangle.
    const double tooClose = TooClose + CloserByLine * static_cast<double>(all.size());
    m_MeanOf = m_Chart.averages && apart < tooClose ? static_cast<std::size_t>(std::ceil(MeanWidth / apart)) : 1;
    if (m_MeanOf > 1) DrawDots(all);
    apart *= static_cast<double>(m_MeanOf);
    for (std::vector<Point> &points : all)
        if (m_MeanOf > 1) points = ChartScale::Means(points, m_MeanOf);
    DrawTints(all);
    const double between = m_MeanOf > 1 ? MeanMarkDistance : MarkDistance;
    const auto every = static_cast<std::size_t>(std::ceil(between / apart));
    for (std::size_t i = 0; i < all.size(); ++i) {
        const ChartSeries &series = *m_Chart.AllSeries()[i];
        const auto marked = ChartScale::Marked(all[i], every, i);
        m_Lines.push_back(ChartLines::AddLine(*m_Plot, series, all[i], marked, m_Chart.autoscaley));
    }
}

// The points themselves, where the lines are their means.
void ChartPlot::DrawDots(const std::vector<std::vector<Point>> &All)
{
    std::size_t count = 1;
    for (const std::vector<Point> &points : All) count += points.size();
    std::vector<ChartLines::DotsOfSeries> dots;
    for (std::size_t i = 0; i < All.size(); ++i) {
        QColor colour = ToColour(m_Chart.AllSeries()[i]->Colour);
        colour.setAlpha(DotInk(count));
        dots.push_back({colour, All[i]});
    }
    ChartLines::AddDots(*m_Plot, std::move(dots));
}

void ChartPlot::DrawTints(const std::vector<std::vector<Point>> &All)
{
    const QColor ground = ToColour(m_Chart.plotbackcolour);
    for (std::size_t i = 0; i < All.size(); ++i)
        ChartLines::AddTint(*m_Plot, *m_Chart.AllSeries()[i], All[i], ground);
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
    const auto room = static_cast<std::size_t>(m_Key.Columns) * static_cast<std::size_t>(m_Key.Rows);
    for (std::size_t i = 0; i < std::min(room, m_Lines.size()); ++i) {
        QCPGraph *line = m_Lines[i];
        line->setName(text.elidedText(line->name(), Qt::ElideMiddle, m_Key.Item.width() - IconWidth - IconGap));
        line->addToLegend();
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
    note->setText(QString(m_Chart.averagesnote).replace(QStringLiteral("%1"), QString::number(m_MeanOf)));
}

extern "C" Q_DECL_EXPORT ChartSurface *MakeChartPlot(LarkChart *Chart) { return new ChartPlot(Chart); }
