// How the chart draws settings and series.
#include "ChartTest.h"
#include "platform/ChartScale.h"

#include <QDir>
#include <QRandomGenerator>

#include <cmath>
#include <limits>
#include <set>

namespace
{
class Chart : public ChartTest
{};
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

TEST_F(Chart, WhereTheLineIsAMeanEachPointIsADotInItsColour)
{
    std::vector<double> low(1200, 20), high(1200, 20);
    low[600] = 120;
    high[900] = 160;
    Given(S("Memory"), low);
    Given(S("Logic"), high, Blue, 4);
    for (const QImage &picture : {Drawn(), m_Chart.Picture().scaled(ScreenSize)}) {
        EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(601, 120), Red));
        EXPECT_TRUE(Inked(picture, m_Chart.PlaceOf(901, 160), Blue));
        EXPECT_FALSE(Inked(picture, m_Chart.PlaceOf(601, 160), Red, 4));
        EXPECT_FALSE(Inked(picture, m_Chart.PlaceOf(601, 90), Red, 4)) << "one point hardly moves the mean";
    }
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
