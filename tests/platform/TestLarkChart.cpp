#include "platform/ChartScale.h"
#include "platform/Clock.h"
#include "platform/Dates.h"
#include "platform/LarkChart.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <cmath>
#include <limits>
#include <set>

namespace
{
constexpr QSize ScreenSize(632, 505); // [px]
constexpr int Red = 0x0000FF, Blue = 0xFF0000;

QString S(const char *text) { return QString::fromUtf8(text); }
double Day(int Year, int Month, int TheDay) { return ToDayCount(QDateTime(QDate(Year, Month, TheDay), QTime(0, 0))); }

class Chart : public testing::Test
{
protected:
    Chart()
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
} // namespace

TEST_F(Chart, SettingsArePropertiesUnderTheirNames)
{
    const LarkChart fresh;
    const QList<std::pair<const char *, QVariant>> design{{"xmax", 30.0},
                                                          {"ymax", 200.0},
                                                          {"autoscaley", true},
                                                          {"xaxistextformat", S("dd-mmm-yy")},
                                                          {"xaxisverticaltext", true},
                                                          {"xgridspacing", 5.0},
                                                          {"ygridspacing", 20.0},
                                                          {"topmargin", 40},
                                                          {"bottommargin", 70},
                                                          {"leftmargin", 30},
                                                          {"rightmargin", 10},
                                                          {"showkey", true},
                                                          {"plotbackcolour", 0xFFFFFF},
                                                          {"axiscolour", 0},
                                                          {"gridcolour", 0},
                                                          {"yaxistextcolour", 0}};
    for (const auto &[name, value] : design) EXPECT_EQ(fresh.property(name), value) << name;
    EXPECT_EQ(fresh.chartfont.pointSizeF(), 14.25);
    EXPECT_EQ(fresh.xaxisfont.pointSizeF(), 8.25);
    EXPECT_TRUE(fresh.chartfont.bold() && fresh.xaxisfont.bold() && fresh.yaxisfont.bold());
}

TEST_F(Chart, EveryPropertyKeepsWhatIsSet)
{
    const QList<std::pair<const char *, QVariant>> others{{"xmin", -3.5},
                                                          {"xmax", 12.5},
                                                          {"ymax", 90.0},
                                                          {"autoscaley", false},
                                                          {"evenspacing", false},
                                                          {"xaxistextformat", S("yyyy")},
                                                          {"xaxisverticaltext", false},
                                                          {"xgridspacing", 2.5},
                                                          {"ygridspacing", 7.0},
                                                          {"topmargin", 1},
                                                          {"bottommargin", 2},
                                                          {"leftmargin", 3},
                                                          {"rightmargin", 4},
                                                          {"showkey", false},
                                                          {"backcolour", 5},
                                                          {"plotbackcolour", 6},
                                                          {"axiscolour", 7},
                                                          {"gridcolour", 8},
                                                          {"yaxistextcolour", 9},
                                                          {"chartfont", QFont(S("Inter"), 20)},
                                                          {"xaxisfont", QFont(S("Inter"), 21)},
                                                          {"yaxisfont", QFont(S("Inter"), 22)},
                                                          {"keyfont", QFont(S("Inter"), 23)},
                                                          {"averages", false},
                                                          {"averagesnote", S("%1")},
                                                          {"emptytext", S("nothing")}};
    for (const auto &[name, value] : others) {
        ASSERT_TRUE(m_Chart.setProperty(name, value)) << name;
        EXPECT_EQ(m_Chart.property(name), value) << name;
    }
    Drawn();
}

TEST_F(Chart, AskingForASeriesAgainRenewsIt)
{
    Given(S("Memory"), {10, 20, 30});
    ChartSeries &again = Given(S("Memory"), {40, 50});
    EXPECT_EQ(m_Chart.AllSeries().size(), 1U);
    EXPECT_EQ(again.Y.size(), 2U);
    Drawn();
    Drawn();
    EXPECT_EQ(m_Chart.AllSeries().size(), 1U);
    EXPECT_EQ(m_Chart.YTo(), 60);
}

TEST_F(Chart, AMissingValueNeverEntersTheScale)
{
    Given(S("Memory"), {ChartScale::Missing, 130, ChartScale::Missing});
    Drawn();
    EXPECT_EQ(m_Chart.YFrom(), 0);
    EXPECT_EQ(m_Chart.YTo(), 140);
}

TEST_F(Chart, AMissingValueIsAGapAndOtherLinesGoOn)
{
    Given(S("Memory"), {100, 100, 100, ChartScale::Missing, 100, 100}).Marks = false;
    Given(S("Logic"), {50, 50, 50, 50, 50, 50}, Blue).Marks = false;
    const QImage picture = Drawn();
    EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(2.5, 100), Red));
    EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(5.5, 100), Red));
    for (const double x : {3.3, 3.7, 4.0, 4.3, 4.7}) {
        EXPECT_FALSE(Inked(picture, m_Chart.PlaceOf(x, 100), Red)) << x;
        EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(x, 50), Blue)) << x;
    }
}

TEST_F(Chart, APointBetweenTwoGapsShowsItsMark)
{
    std::vector<double> y(90, ChartScale::Missing); // so close that not every point has a mark
    y[1] = y[44] = y[46] = 100;
    Given(S("Memory"), y);
    const QImage picture = Drawn();
    for (const double number : {2.0, 45.0, 47.0})
        EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(number, 100), Red)) << number;
    EXPECT_FALSE(Inked(picture, m_Chart.PlaceOf(20, 100), Red));
}

TEST_F(Chart, NumbersThatAreNoneAreMissingToo)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    Given(S("Memory"), {10, infinite, -infinite, std::nan(""), 20});
    Drawn();
    EXPECT_EQ(m_Chart.YTo(), 20);
}

TEST_F(Chart, EvenSpacingPutsPointsOneStepApartWhateverTheirDates)
{
    ChartSeries &series = Given(S("Memory"), {10, 20, 30, 40});
    series.X = {Day(2026, 3, 1), Day(2026, 3, 2), Day(2026, 9, 30), Day(2027, 1, 9)};
    Drawn();
    const double step = m_Chart.PlaceOf(2, 0).x() - m_Chart.PlaceOf(1, 0).x();
    EXPECT_NEAR(m_Chart.PlaceOf(4, 0).x() - m_Chart.PlaceOf(1, 0).x(), 3 * step, 0.01);
    EXPECT_EQ(m_Chart.LabelAt(1), S("01-Mar-26"));
    EXPECT_EQ(m_Chart.LabelAt(3), S("30-Sep-26"));
    EXPECT_EQ(m_Chart.LabelAt(4), S("09-Jan-27"));
    EXPECT_EQ(m_Chart.LabelAt(5), QString());
    EXPECT_EQ(m_Chart.LabelAt(1.5), QString());
}

TEST_F(Chart, WithoutEvenSpacingPointsStandAtTheirDates)
{
    ChartSeries &series = Given(S("Memory"), {10, 20, 30});
    m_Chart.evenspacing = false;
    series.X = {46082, 46083, 46092};
    m_Chart.xmin = 46082;
    m_Chart.xmax = 46093;
    m_Chart.xgridspacing = 1;
    const QImage picture = Drawn();
    EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(46092, 30), Red, 3));
    EXPECT_EQ(m_Chart.LabelAt(46082), S("01-Mar-26"));
}

TEST_F(Chart, PointsBeyondTheRangeAreNotDrawn)
{
    Given(S("Memory"), {100, 100, 100, 100}).Marks = true;
    m_Chart.xmax = 2;
    const QImage picture = Drawn();
    const double last = m_Chart.PlaceOf(2, 100).x();
    const QRect right(QPoint(qRound(last) + 7, 0), QPoint(picture.width() - 1, picture.height() - 1));
    for (int x = right.left(); x < right.right(); ++x)
        EXPECT_FALSE(Inked(picture, QPointF(x, m_Chart.PlaceOf(2, 100).y()), Red, 0)) << x;
}

TEST_F(Chart, TheScaleHoldsNegativeAndHugeValues)
{
    Given(S("Memory"), {-30, 1990});
    Drawn();
    EXPECT_LE(m_Chart.YFrom(), -30);
    EXPECT_GE(m_Chart.YTo(), 1990);
    Given(S("Memory"), {2147483647, -2147483648.0}, Red, 3);
    Drawn();
    EXPECT_LE(m_Chart.YFrom(), -2147483648.0);
    EXPECT_GE(m_Chart.YTo(), 2147483647);
    m_Chart.autoscaley = false;
    Drawn();
    EXPECT_EQ(m_Chart.YTo(), 200);
}

TEST_F(Chart, ANewChartSaysThatNothingIsRecorded)
{
    ChartSeries &series = Given(S("Memory"), {ChartScale::Missing});
    m_Chart.show();
    const QImage picture = Drawn();
    EXPECT_TRUE(Empty().isVisible());
    EXPECT_EQ(Empty().text(), S("No workout is recorded yet."));
    EXPECT_TRUE(AnythingIn(picture, QRect(QPoint(0, 0), QPoint(300, m_Chart.PlotArea().top() - 2)))) << "the key";
    EXPECT_EQ(m_Chart.YFrom(), 0);
    EXPECT_EQ(m_Chart.YTo(), 200);
    series.Y = {0};
    Drawn();
    EXPECT_FALSE(Empty().isVisible());
    m_Chart.Clear();
    Drawn();
    EXPECT_TRUE(Empty().isVisible());
}

TEST_F(Chart, TheEmptyTextIsNotCut)
{
    Given(S("Memory"), {ChartScale::Missing});
    for (const char *text : {"One line.", "Nothing recorded yet.\nThe points of each workout will appear here.",
                             "A text that is much longer than the chart is wide, so that it needs several lines, and "
                             "then some more of them to say all that it has to say"}) {
        m_Chart.emptytext = S(text);
        Drawn();
        EXPECT_GE(Empty().height(), Empty().heightForWidth(Empty().width())) << text;
        EXPECT_GE(Empty().height(),
                  Empty().fontMetrics().height() * (1 + S(text).count(u'\n')) + 2 * Empty().margin());
    }
}

TEST_F(Chart, TheTableHasARowForEachPlaceAndNothingForWhatIsMissing)
{
    m_Chart.evenspacing = true;
    Given(S("Memory"), {10, ChartScale::Missing, 12.5});
    Given(S("Logic, \"hard\""), {ChartScale::Missing, 20, 30});
    const QStringList head{S("Date"), S("Memory"), S("Logic, \"hard\"")};
    const QString first = IsoDate(m_Chart.AllSeries()[0]->X[0]);
    const auto table = m_Chart.Table(S("Date"));
    ASSERT_EQ(table.size(), 4);
    EXPECT_EQ(table[0], head);
    EXPECT_EQ(table[1], QStringList({first, S("10"), QString()}));
    EXPECT_EQ(table[2].mid(1), QStringList({QString(), S("20")}));
    EXPECT_EQ(table[3].mid(1), QStringList({S("12.5"), S("30")}));
}

TEST_F(Chart, TheTableByTimeHasOneRowForAMomentAndTellsTimesOnceThereIsOne)
{
    m_Chart.evenspacing = false;
    ChartSeries &one = m_Chart.Series(S("One"));
    one.X = {46086, 46086, 46087.75};
    one.Y = {1, 2, 3};
    ChartSeries &two = m_Chart.Series(S("Two"));
    two.X = {46086, 46085.5};
    two.Y = {4, 5};
    const auto table = m_Chart.Table(S("Date"));
    ASSERT_EQ(table.size(), 5);
    EXPECT_EQ(table[1], QStringList({S("2026-03-04T12:00:00"), QString(), S("5")}));
    EXPECT_EQ(table[2], QStringList({S("2026-03-05T00:00:00"), S("1"), S("4")}));
    EXPECT_EQ(table[3], QStringList({S("2026-03-05T00:00:00"), S("2"), QString()}));
    EXPECT_EQ(table[4], QStringList({S("2026-03-06T18:00:00"), S("3"), QString()}));
}

TEST_F(Chart, ItsPictureIsTwiceAsSharpAndHoldsTheEmptyText)
{
    Given(S("Memory"), {ChartScale::Missing});
    Drawn();
    const QImage picture = m_Chart.Picture();
    EXPECT_EQ(picture.size(), m_Chart.size() * 2);
    const QRect middle(m_Chart.PlotArea().center() * 2 - QPoint(60, 10), QSize(120, 20));
    int dark = 0;
    for (int y = middle.top(); y <= middle.bottom(); ++y)
        for (int x = middle.left(); x <= middle.right(); ++x) dark += qGray(picture.pixel(x, y)) < 160 ? 1 : 0;
    EXPECT_GT(dark, 50);
}

TEST_F(Chart, MeansAreToldInTheWordsOfTheOwner)
{
    m_Chart.evenspacing = true;
    std::vector<double> many(2000, 10);
    Given(S("Memory"), many);
    m_Chart.xmax = 2000;
    m_Chart.averagesnote = QString();
    const QImage plain = Drawn();
    m_Chart.averagesnote = S("Mean of %1");
    EXPECT_NE(Drawn(), plain);
}

TEST_F(Chart, SixStylesAreToldApartWithoutColour)
{
    std::set<QByteArray> pictures;
    for (int style = 1; style <= 6; ++style) {
        Given(S("Memory"), {20, 80, 50}, 0, style);
        const QImage grey = Drawn().convertToFormat(QImage::Format_Grayscale8);
        pictures.insert(QByteArray(reinterpret_cast<const char *>(grey.constBits()), grey.sizeInBytes()));
    }
    EXPECT_EQ(pictures.size(), 6U);
    for (const int style : {-5, 0, 7, 1000}) { // the nearest one there is
        Given(S("Memory"), {20, 80, 50}, 0, style);
        const QImage grey = Drawn().convertToFormat(QImage::Format_Grayscale8);
        EXPECT_TRUE(pictures.count(QByteArray(reinterpret_cast<const char *>(grey.constBits()), grey.sizeInBytes())));
    }
}

TEST_F(Chart, MarginsAreKeptWhereNothingIsCut)
{
    Given(S("Memory"), {20, 80, 50});
    Drawn();
    EXPECT_EQ(m_Chart.PlotArea(), QRect(30, 40, ScreenSize.width() - 40, ScreenSize.height() - 110));
}

TEST_F(Chart, MarginsGrowWhereLabelsWouldBeCut)
{
    Given(S("Memory"), {20, 123456, 50});
    m_Chart.bottommargin = m_Chart.leftmargin = m_Chart.topmargin = 2;
    const QImage picture = Drawn();
    const QRect plot = m_Chart.PlotArea();
    EXPECT_GT(picture.height() - plot.bottom(), 50);
    EXPECT_GT(plot.left(), 30);
    EXPECT_GT(plot.top(), 15);
    EXPECT_FALSE(AnythingIn(picture, QRect(0, picture.height() - 1, picture.width(), 1))) << "a label is cut";
    EXPECT_FALSE(AnythingIn(picture, QRect(0, 0, 1, picture.height()))) << "a number is cut";
}

TEST_F(Chart, LabelsThatWouldOverlapAreLeftOut)
{
    Given(S("Memory"), std::vector<double>(100, 10));
    m_Chart.xgridspacing = 1;
    const QImage picture = Drawn();
    int written = 0; // runs of columns with ink, below the axis and its ticks
    bool before = false;
    const QRect plot = m_Chart.PlotArea();
    for (int x = 0; x < picture.width(); ++x) {
        const bool ink = AnythingIn(picture, QRect(x, plot.bottom() + 8, 1, picture.height() - plot.bottom() - 8));
        written += ink && !before ? 1 : 0;
        before = ink;
    }
    EXPECT_GT(written, 15);
    EXPECT_LT(written, 60);
}

TEST_F(Chart, AClickIsAPressAndAReleaseOnTheChart)
{
    Given(S("Memory"), {20, 80, 50});
    m_Chart.show();
    Drawn();
    QSignalSpy click(&m_Chart, &LarkChart::Click);
    QTest::mouseClick(m_Chart.window()->windowHandle(), Qt::LeftButton, {}, m_Chart.PlotArea().center());
    EXPECT_EQ(click.count(), 1);
    QTest::mouseClick(&m_Chart, Qt::RightButton, {}, m_Chart.PlotArea().center());
    QTest::mousePress(&m_Chart, Qt::LeftButton, {}, m_Chart.PlotArea().center());
    QTest::mouseRelease(&m_Chart, Qt::LeftButton, {}, QPoint(-5, 10));
    EXPECT_EQ(click.count(), 1);
}

TEST_F(Chart, APointTellsItsValueUnderThePointer)
{
    Given(S("Memory"), {20, 80, 50});
    m_Chart.show();
    Drawn();
    const QPoint place = m_Chart.PlaceOf(2, 80).toPoint() + QPoint(3, 2);
    QHelpEvent help(QEvent::ToolTip, place, m_Chart.mapToGlobal(place));
    QApplication::sendEvent(&m_Chart, &help);
    EXPECT_EQ(QToolTip::text(), S("Memory\n02-Mar-26: 80"));
    QToolTip::hideText();
}

TEST_F(Chart, WhoCannotSeeTheLinesIsToldTheLastPoints)
{
    Given(S("Memory"), {1, 2, 3, 4, 5, ChartScale::Missing});
    Given(S("Logic"), {7});
    Drawn();
    EXPECT_EQ(m_Chart.accessibleDescription(), S("Memory: 2, 3, 4, 5, –; Logic: 7"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&m_Chart)->role(), QAccessible::Chart);
    m_Chart.Clear();
    Drawn();
    EXPECT_EQ(m_Chart.accessibleDescription(), m_Chart.emptytext);
}

TEST_F(Chart, LastsInEverySizeAndWithEverySetting)
{
    Given(S("Memory"), {20, 80, 50});
    Given(S("A name that is much longer than any key could ever show in one line of its own"), {20, 80, 50});
    m_Chart.show();
    for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(30, 20), QSize(150, 90), QSize(2000, 1500)}) {
        m_Chart.resize(size);
        Drawn();
    }
    m_Chart.resize(ScreenSize);
    for (const double bad : {0.0, -1.0, 1e300, -1e300, std::nan(""), std::numeric_limits<double>::infinity()}) {
        m_Chart.xmax = m_Chart.ymax = m_Chart.xgridspacing = m_Chart.ygridspacing = bad;
        for (const bool automatic : {true, false}) {
            m_Chart.autoscaley = automatic;
            Drawn();
        }
    }
    m_Chart.topmargin = m_Chart.leftmargin = m_Chart.rightmargin = m_Chart.bottommargin = 100000;
    Drawn();
    m_Chart.topmargin = m_Chart.leftmargin = m_Chart.rightmargin = m_Chart.bottommargin = -100000;
    Drawn();
    EXPECT_EQ(m_Chart.AllSeries().size(), 2U);
}

TEST_F(Chart, ArraysOfUnequalLengthLoseTheirRest)
{
    ChartSeries &series = Given(S("Memory"), {20, 80, 50});
    series.X.pop_back();
    EXPECT_EQ(LarkChart::Count(series), 2U);
    Drawn();
    EXPECT_EQ(m_Chart.YTo(), 80);
}

// For the eye: what any number of workouts and categories looks like.
TEST_F(Chart, LooksRightWithAnyNumberOfPointsAndSeries)
{
    const QString folder = QStringLiteral(NOGGLE_PICTURES);
    QDir().mkpath(folder);
    const char *const names[] = {"Attention", "Language", "Logic",  "Memory", "Numbers", "Observation",
                                 "Patience",  "Reaction", "Shapes", "Sounds", "Speed",   "Word finding"};
    const int colours[] = {255, 0xFF0000, 65280, 255 | 132 << 8, 0xFF00FF};
    m_Chart.grab(); // nothing was asked for yet
    Given(S("Attention"), {ChartScale::Missing});
    Given(S("Memory"), {ChartScale::Missing}, Blue, 4);
    ASSERT_TRUE(Drawn().save(folder + S("/chart-empty.png")));
    for (const int count : {1, 2, 5, 30, 100, 300, 3000})
        for (const int categories : {1, 3, 12}) {
            LarkChart chart;
            chart.setFont(QFont(S("Inter")));
            chart.resize(ScreenSize);
            chart.evenspacing = true;
            chart.xmin = 1;
            chart.xmax = std::max(2, count);
            chart.xgridspacing = std::floor((chart.xmax - 1) / 20) + 1;
            QRandomGenerator dice(7);
            for (int i = 1; i <= categories; ++i) {
                ChartSeries &series = chart.Series(QLatin1String(names[i - 1]));
                for (int n = 0; n < count; ++n) {
                    series.X.push_back(Day(2026, 3, 1) + n);
                    const double level = 40 + i * 9 + 70.0 * n / (count + 10);
                    const bool gap = dice.bounded(12) == 0;
                    series.Y.push_back(gap ? ChartScale::Missing : std::round(level + dice.bounded(50) - 25));
                }
                series.Colour = colours[i % 5];
                series.Style = (i + 2) % 6 + 1;
            }
            chart.Redraw();
            const QString name = QStringLiteral("%1/chart-%2x%3.png").arg(folder).arg(count).arg(categories);
            ASSERT_TRUE(chart.grab().save(name));
            EXPECT_LE(chart.PlotArea().top(), ScreenSize.height() * 2 / 5);
        }
}
