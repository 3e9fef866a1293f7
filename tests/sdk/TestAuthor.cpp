#include "sdk/author/Choices.h"
#include "sdk/author/Countdown.h"
#include "sdk/author/Patterns.h"
#include "sdk/author/Rounds.h"
#include "sdk/author/SeenTime.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <vector>

namespace
{
constexpr int Enter = 13, Space = 32, Left = 37, Up = 38, Right = 39, Down = 40;

/// Three places above two.
Choices Five()
{
    Choices choices;
    choices.SetPlaces({{0, 0, 80, 80}, {100, 0, 80, 80}, {200, 0, 80, 80}, {50, 100, 80, 80}, {150, 100, 80, 80}});
    return choices;
}
} // namespace

TEST(Rounds, ParMakesAHundredPoints)
{
    Rounds rounds(12, 10);
    for (int i = 0; i < 10; ++i) rounds.Add(true, 1);
    EXPECT_EQ(rounds.Points(), 100);
    EXPECT_FALSE(rounds.Over());
    EXPECT_EQ(rounds.Progress(), 83);
}

TEST(Rounds, TenTenthsAreAWhole)
{
    Rounds rounds(10, 1);
    for (int i = 0; i < 10; ++i) rounds.Add(true, 0.1);
    EXPECT_EQ(rounds.Points(), 100);
    EXPECT_TRUE(rounds.Over());
}

TEST(Rounds, PointsNeverFallBelowNothing)
{
    Rounds rounds(5, 5);
    rounds.Add(false, -1);
    EXPECT_EQ(rounds.Points(), 0);
    rounds.Add(true, 1.5);
    EXPECT_EQ(rounds.Points(), 10);
    EXPECT_EQ(rounds.Right(), 1);
}

TEST(Choices, ADigitChoosesItsPlaceAndOneBeyondThemNothing)
{
    Choices choices = Five();
    EXPECT_EQ(choices.Key('1'), 0);
    EXPECT_EQ(choices.Key('5'), 4);
    EXPECT_EQ(choices.Key('6'), std::nullopt);
    EXPECT_EQ(choices.Key('0'), std::nullopt);
    EXPECT_EQ(choices.Key(99), 2) << "the three of the number block";
}

TEST(Choices, EnterChoosesNothingWhileNoRingIsSeen)
{
    Choices choices = Five();
    EXPECT_EQ(choices.Key(Enter), std::nullopt);
    EXPECT_EQ(choices.Ring(), std::nullopt);
}

TEST(Choices, TheFirstArrowShowsTheRingAndTheNextOnesMoveIt)
{
    Choices choices = Five();
    choices.Key(Right);
    EXPECT_EQ(choices.Ring(), 0);
    choices.Key(Right);
    EXPECT_EQ(choices.Ring(), 1);
    EXPECT_EQ(choices.Key(Space), 1);
    choices.Key(Down);
    EXPECT_EQ(choices.Ring(), 3);
    choices.Key(Right);
    EXPECT_EQ(choices.Ring(), 4);
    choices.Key(Up);
    EXPECT_EQ(choices.Key(Enter), 1);
    choices.Key(Left);
    choices.Key(Left);
    EXPECT_EQ(choices.Ring(), 0) << "it stops at the edge";
}

TEST(Choices, AClickTakesTheRingOff)
{
    Choices choices = Five();
    choices.Key(Right);
    choices.HideRing();
    EXPECT_EQ(choices.Ring(), std::nullopt);
}

TEST(Choices, APointerTellsOnlyWhenItsPlaceChanges)
{
    Choices choices = Five();
    EXPECT_TRUE(choices.PointAt({10, 10}));
    EXPECT_FALSE(choices.PointAt({20, 10}));
    EXPECT_EQ(choices.Over(), 0);
    EXPECT_TRUE(choices.PointAt({90, 10}));
    EXPECT_EQ(choices.Over(), std::nullopt);
    EXPECT_EQ(choices.At({90, 10}), std::nullopt);
}

TEST(Choices, FewerPlacesBringTheRingBackToTheFirst)
{
    Choices choices = Five();
    choices.Key(Right);
    choices.Key(Right);
    choices.SetPlaces({{0, 0, 80, 80}});
    EXPECT_EQ(choices.Ring(), 0);
    choices.SetPlaces({});
    EXPECT_EQ(choices.Key(Enter), std::nullopt);
    EXPECT_EQ(choices.Key(Right), std::nullopt);
}

TEST(Countdown, RunsFromOneToNothing)
{
    Countdown countdown;
    EXPECT_FALSE(countdown.IsOver(100000)) << "one that was never started does not end";
    EXPECT_EQ(countdown.Left(100000), 0);
    countdown.Start(1000, 400);
    EXPECT_EQ(countdown.Left(1000), 1);
    EXPECT_DOUBLE_EQ(countdown.Left(1100), 0.75);
    EXPECT_FALSE(countdown.IsOver(1399));
    EXPECT_TRUE(countdown.IsOver(1400));
    countdown.Stop();
    EXPECT_FALSE(countdown.Runs());
}

TEST(SeenTime, PassesWithTheClock)
{
    SeenTime time;
    time.Start(1000, 600);
    for (qint64 now = 1016; now <= 1592; now += 16) time.Pass(now);
    EXPECT_EQ(time.Passed(), 592);
    EXPECT_EQ(time.Left(), 8);
    EXPECT_FALSE(time.IsOver());
    time.Pass(1608);
    EXPECT_TRUE(time.IsOver());
    EXPECT_EQ(time.Left(), 0);
    EXPECT_EQ(time.Phase(), 1);
}

TEST(SeenTime, AMachineThatStoodStillTakesLittleOfIt)
{
    SeenTime time;
    time.Start(1000, 600);
    time.Pass(9000);
    EXPECT_EQ(time.Passed(), 100);
    time.Pass(9016);
    EXPECT_EQ(time.Passed(), 116);
}

TEST(SeenTime, HasSixPicturesHoweverShortItIs)
{
    SeenTime time;
    time.Start(0, 12);
    for (int picture = 1; picture <= 5; ++picture) {
        time.Pass(qint64{1000} * picture);
        EXPECT_FALSE(time.IsOver());
    }
    time.Pass(6000);
    EXPECT_TRUE(time.IsOver());
    time.Start(7000, 0);
    EXPECT_FALSE(time.IsOver()) << "what lasts no time is over with the first picture";
    time.Pass(7001);
    EXPECT_TRUE(time.IsOver());
}

TEST(Patterns, DifferWithoutAnyColour)
{
    QPainterPath figure;
    figure.addEllipse(QRectF(10, 10, 40, 40));
    std::vector<double> greys; // the middle of the figure, from black to white
    for (int fill = 0; fill < Patterns::Count; ++fill) {
        QImage picture(60, 60, QImage::Format_Grayscale8);
        picture.fill(Qt::gray);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        Patterns::Draw(painter, figure, static_cast<Pattern>(fill), Qt::black, Qt::white, 8);
        painter.end();
        double sum = 0;
        for (int y = 20; y < 40; ++y)
            for (int x = 20; x < 40; ++x) sum += qGray(picture.pixel(x, y));
        greys.push_back(sum / 400);
        EXPECT_EQ(picture.pixelColor(2, 30), picture.pixelColor(5, 5)) << "beyond the outline nothing is drawn";
    }
    std::sort(greys.begin(), greys.end());
    for (std::size_t i = 1; i < greys.size(); ++i) EXPECT_GT(greys[i] - greys[i - 1], 20);
}
