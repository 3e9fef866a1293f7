#include "platform/ChartScale.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(ChartScale, StepsAreRoundMultiplesOfTheSpacing)
{
    struct
    {
        double Range, Spacing;
        int Most;
        double Step;
    } const table[] = {{200, 20, 10, 20},   {201, 20, 10, 40}, {900, 20, 10, 100},
                       {3000, 20, 12, 400}, {0, 20, 10, 20},   {5, 0, 5, 1},
                       {5, -3, 5, 1},       {50, 1, 0, 50},    {4294967295.0, 20, 12, 4e8}};
    for (const auto &row : table)
        EXPECT_EQ(ChartScale::Step(row.Range, row.Spacing, row.Most), row.Step) << row.Range;
}

TEST(ChartScale, ZeroIsInEveryScaleAndItsEndsAreLines)
{
    struct
    {
        double Lowest, Highest, From, To;
    } const table[] = {{0, 0, 0, 20},     {0, 20, 0, 20},      {0, 21, 0, 40},
                       {50, 130, 0, 140}, {-1, 130, -20, 140}, {-50, -30, -60, 0}};
    for (const auto &row : table) {
        const ChartScale::Scale scale = ChartScale::Fitting(row.Lowest, row.Highest, 20, 10);
        EXPECT_EQ(scale.From, row.From) << row.Lowest;
        EXPECT_EQ(scale.To, row.To) << row.Highest;
    }
}

TEST(ChartScale, MarksAreThinnedButNeverOfALonePoint)
{
    constexpr double gap = ChartScale::Missing;
    const std::vector<ChartScale::Point> points{{1, 5}, {2, 5}, {3, 5}, {4, gap}, {5, 5}, {6, gap}, {7, 5}, {8, 5}};
    EXPECT_EQ(ChartScale::Marked(points, 1, 0), (std::vector<std::size_t>{0, 1, 2, 4, 6, 7}));
    EXPECT_EQ(ChartScale::Marked(points, 3, 0), (std::vector<std::size_t>{0, 4, 6, 7}));
    EXPECT_EQ(ChartScale::Marked(points, 3, 7), (std::vector<std::size_t>{1, 4, 7}));
    EXPECT_EQ(ChartScale::Marked(points, 0, 0).size(), 6U);
    EXPECT_TRUE(ChartScale::Marked({}, 3, 0).empty());
}

TEST(ChartScale, MeansAreOfWhatIsThere)
{
    constexpr double gap = ChartScale::Missing;
    const std::vector<ChartScale::Point> points{{1, 10}, {2, 30}, {3, gap}, {4, 50}, {5, gap}, {6, gap}, {7, 70}};
    const auto means = ChartScale::Means(points, 2);
    ASSERT_EQ(means.size(), 3U); // of 2, 2 and 3
    EXPECT_EQ(means[0].Y, 20);
    EXPECT_EQ(means[1].Y, 50);
    EXPECT_EQ(means[1].X, 3.5);
    EXPECT_EQ(means[2].Y, 70);
    EXPECT_EQ(ChartScale::Means(points, 100).size(), 1U);
    EXPECT_TRUE(ChartScale::IsMissing(ChartScale::Means({{1, gap}}, 5)[0].Y));
    EXPECT_TRUE(ChartScale::Means({}, 5).empty());
}

TEST(ChartScale, LabelsAreAsFarApartAsTheyAreLarge)
{
    EXPECT_EQ(ChartScale::LabelEvery(20, 14), 1);
    EXPECT_EQ(ChartScale::LabelEvery(14, 14), 1);
    EXPECT_EQ(ChartScale::LabelEvery(13.9, 14), 2);
    EXPECT_EQ(ChartScale::LabelEvery(1, 14), 14);
    EXPECT_GT(ChartScale::LabelEvery(0, 14), 1000);
    EXPECT_GT(ChartScale::LabelEvery(std::nan(""), 14), 1000);
}
