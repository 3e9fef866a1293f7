// What the chart tells beside its lines: in words, as a table, as a picture, and to the mouse.
#include "ChartTest.h"
#include "platform/ChartScale.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace
{
class ChartTold : public ChartTest
{};
} // namespace

TEST_F(ChartTold, ANewChartSaysThatNothingIsRecorded)
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

TEST_F(ChartTold, TheEmptyTextIsNotCut)
{
    Given(S("Memory"), {ChartScale::Missing});
    for (const char *text : {"One line.", "Nothing recorded yet.\nThe points of each workout will appear here.",
                             "A text that is much longer than the chart is wide, so that it needs several lines, and "
                             "then some more of them to say all that it has to say"}) {
        m_Chart.emptytext = S(text);
        Drawn();
        EXPECT_GE(Empty().height(), Empty().heightForWidth(Empty().width())) << text;
        EXPECT_GE(Empty().height(), Empty().fontMetrics().height() * (1 + static_cast<int>(S(text).count(u'\n'))) +
                                        2 * Empty().margin());
    }
}

TEST_F(ChartTold, TheTableHasARowForEachPlaceAndNothingForWhatIsMissing)
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

TEST_F(ChartTold, TheTableByTimeHasOneRowForAMomentAndTellsTimesOnceThereIsOne)
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

TEST_F(ChartTold, ItsPictureIsTwiceAsSharpAndHoldsTheEmptyText)
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

TEST_F(ChartTold, MeansAreToldInTheWordsOfTheOwner)
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

TEST_F(ChartTold, AClickIsAPressAndAReleaseOnTheChart)
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

TEST_F(ChartTold, APointTellsItsValueUnderThePointer)
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

TEST_F(ChartTold, WhoCannotSeeTheLinesIsToldTheLastPoints)
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
