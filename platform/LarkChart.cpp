#include "platform/LarkChart.h"

#include "platform/ChartScale.h"
#include "platform/ChartSurface.h"
#include "platform/Colour.h"
#include "platform/Dates.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double ChartPoints = 14.25, KeyPoints = 10.5, AxisPoints = 8.25;
constexpr double TipReach = 9;  // [px] how near to a point its tip appears
constexpr int EmptyAround = 40; // [px] beside the empty text, both sides together
constexpr int EmptyPadding = 8; // [px] within its ground
constexpr double PictureScale = 2;
constexpr std::size_t ToldLast = 5; // points of each series in the description

QFont BoldFont(double points)
{
    QFont font; // no family: that of the chart's surroundings
    font.setPointSizeF(points);
    font.setBold(true);
    return font;
}

QAccessibleInterface *InterfaceFor(const QString &className, QObject *object)
{
    if (className != QLatin1String("LarkChart")) return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget *>(object), QAccessible::Chart);
}

QString Number(double value)
{
    return ChartScale::IsMissing(value) ? QStringLiteral("–") : QString::number(value, 'g', 10);
}
} // namespace

LarkChart::LarkChart(QWidget *Parent)
    : QWidget(Parent),
      chartfont(BoldFont(ChartPoints)),
      keyfont(BoldFont(KeyPoints)),
      xaxisfont(BoldFont(AxisPoints)),
      yaxisfont(BoldFont(AxisPoints)),
      m_Empty(new QLabel(this))
{
    static const bool told = [] {
        QAccessible::installFactory(&InterfaceFor);
        return true;
    }();
    Q_UNUSED(told);
    m_Empty->setObjectName(QStringLiteral("Empty"));
    m_Empty->setAlignment(Qt::AlignCenter);
    m_Empty->setWordWrap(true);
    m_Empty->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_Empty->hide();
}

LarkChart::~LarkChart() = default;

ChartSeries &LarkChart::Series(const QString &Name)
{
    const auto known =
        std::find_if(m_Series.begin(), m_Series.end(), [&](const auto &series) { return series->Name == Name; });
    if (known != m_Series.end()) return **known;
    m_Series.push_back(std::make_unique<ChartSeries>());
    m_Series.back()->Name = Name;
    return *m_Series.back();
}

void LarkChart::Clear() { m_Series.clear(); }

void LarkChart::Redraw()
{
    if (!m_Plot) m_Plot = MakeChartSurface(this);
    m_Plot->Draw();
    ShowEmptyText();
    setAccessibleDescription(Description());
}

// In the middle of the plot, on a ground of its own: no grid line runs through the words.
void LarkChart::ShowEmptyText()
{
    m_Empty->setVisible(!HasPoint() && !emptytext.isEmpty());
    if (m_Empty->isHidden()) return;
    QFont font = chartfont.resolve(this->font());
    font.setFamilies(font.families());
    m_Empty->setFont(font);
    m_Empty->setText(emptytext);
    m_Empty->setStyleSheet(QStringLiteral("color: #55636B; background: %1;").arg(ToColour(plotbackcolour).name()));
    m_Empty->setMargin(EmptyPadding);
    const QRect plot = PlotArea();
    const int width = std::min(plot.width(), QFontMetrics(font).size(0, emptytext).width() + EmptyAround);
    QRect place(0, 0, width, std::min(plot.height(), m_Empty->heightForWidth(width)));
    place.moveCenter(plot.center());
    m_Empty->setGeometry(place);
}

QImage LarkChart::Picture() const
{
    if (!m_Plot) return {};
    QImage picture = m_Plot->Picture(PictureScale);
    if (m_Empty->isHidden()) return picture;
    QPainter painter(&picture);
    m_Empty->render(&painter, m_Empty->pos());
    return picture;
}

QRect LarkChart::PlotArea() const { return m_Plot ? m_Plot->Area() : QRect(); }
QPointF LarkChart::PlaceOf(double X, double Y) const { return m_Plot ? m_Plot->PlaceOf(X, Y) : QPointF(); }
double LarkChart::YFrom() const { return m_Plot ? m_Plot->YFrom() : 0; }
double LarkChart::YTo() const { return m_Plot ? m_Plot->YTo() : 0; }

QString LarkChart::LabelAt(double Along) const
{
    double value = Along;
    if (evenspacing) {
        const auto longest = std::max_element(m_Series.begin(), m_Series.end(),
                                              [](const auto &a, const auto &b) { return Count(*a) < Count(*b); });
        if (longest == m_Series.end()) return {};
        if (Along != std::floor(Along) || Along < 1 || Along > static_cast<double>(Count(**longest))) return {};
        value = (*longest)->X[static_cast<std::size_t>(Along) - 1];
    }
    return xaxistextformat.isEmpty() ? Number(value) : FormatDate(value, xaxistextformat);
}

bool LarkChart::HasPoint() const
{
    return std::any_of(m_Series.begin(), m_Series.end(), [](const auto &series) {
        return std::any_of(series->Y.begin(), series->Y.begin() + static_cast<std::ptrdiff_t>(Count(*series)),
                           [](double y) { return !ChartScale::IsMissing(y); });
    });
}

// For who can't see the lines: the last points of each.
QString LarkChart::Description() const
{
    if (!HasPoint()) return emptytext;
    QStringList all;
    for (const auto &series : m_Series) {
        const std::size_t count = Count(*series);
        QStringList last;
        for (std::size_t i = count - std::min(count, ToldLast); i < count; ++i) last << Number(series->Y[i]);
        all << QStringLiteral("%1: %2").arg(series->Name, last.join(QStringLiteral(", ")));
    }
    return all.join(QStringLiteral("; "));
}

QString LarkChart::TipAt(const QPoint &Place) const
{
    QString tip;
    double nearest = TipReach;
    for (const auto &series : m_Series)
        for (std::size_t i = 0; i < Count(*series); ++i) {
            const double along = Along(*series, i);
            if (ChartScale::IsMissing(series->Y[i]) || !(along >= xmin && along <= xmax)) continue;
            const QPointF away = PlaceOf(along, series->Y[i]) - Place;
            const double distance = std::hypot(away.x(), away.y());
            if (distance >= nearest) continue;
            nearest = distance;
            tip = QStringLiteral("%1\n%2: %3").arg(series->Name, LabelAt(along), Number(series->Y[i]));
        }
    return tip;
}

bool LarkChart::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !m_Plot) return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), TipAt(help->pos()), this);
    return true;
}

void LarkChart::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_Plot) Redraw();
}

void LarkChart::mousePressEvent(QMouseEvent *event) { m_Pressed = event->button() == Qt::LeftButton; }

void LarkChart::mouseReleaseEvent(QMouseEvent *event)
{
    const bool clicked = m_Pressed && event->button() == Qt::LeftButton && rect().contains(event->pos());
    if (event->button() == Qt::LeftButton) m_Pressed = false;
    if (clicked) Q_EMIT Click();
}
