#include "ScreenTest.h"
#include "platform/ChartScale.h"
#include "platform/Clock.h"
#include "platform/LarkChart.h"
#include "screens/ctlUserInfo.h"
#include "sdk/controls/LarkButton.h"
#include "services/colSound.h"

#include <QLabel>
#include <QLocale>
#include <QSignalSpy>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class UserInfo : public ScreenTest
{
protected:
    ctlUserInfo &Show()
    {
        StartWithSixGames();
        GivenPlayer(S("Ann"));
        auto *info = new ctlUserInfo(m_Area.get());
        Open(info);
        return *info;
    }
    QString Rows()
    {
        return ShownOf({S("butGo(0)"), S("butGo(1)"), S("butGo(2)"), S("lblScore(0)"), S("lblScore(1)"),
                        S("lblScore(2)"), S("butComplete")});
    }
    LarkChart &Chart() { return *At<LarkChart>(S("LarkChart1")); }
    QString Names()
    {
        QStringList names;
        for (const auto &series : Chart().AllSeries()) names << series->Name;
        return names.join(u' ');
    }
    /// The points of a series, "-" for a missing one.
    QString Points(const QString &Name)
    {
        QStringList points;
        for (const double y : Chart().Series(Name).Y)
            points << (y == ChartScale::Missing ? S("-") : QString::number(y));
        return points.join(u' ');
    }
    /// A workout of a past day with one result, put away again.
    static void Past(double Day, const QString &GameName, std::int32_t Points)
    {
        const auto workout = GivenWorkout(Day);
        Finish(GameName, Points);
        workout->Complete();
    }
};
} // namespace

TEST_F(UserInfo, WithoutAWorkoutAllRowsAreOpen)
{
    Show().ShowDetails(1);
    EXPECT_EQ(Rows(), S("butGo(0) butGo(1) butGo(2)"));
    EXPECT_EQ(Text(S("lblCategory(1)")), S("Logic"));
    EXPECT_EQ(Place(S("butGo(0)")), QRect(353, 128, 60, 23));
    EXPECT_EQ(Place(S("butGo(1)")), QRect(353, 155, 60, 23));
    EXPECT_EQ(Place(S("lblCategory(2)")), QRect(246, 183, 95, 20));
    EXPECT_EQ(At(S("lblWorkout"))->y(), 16);
}

TEST_F(UserInfo, GoTellsItsCategoryWithoutASound)
{
    ctlUserInfo &info = Show();
    info.ShowDetails(1);
    QSignalSpy go(&info, &ctlUserInfo::PlayGame);
    Click(S("butGo(2)"));
    ASSERT_EQ(go.count(), 1);
    EXPECT_EQ(go[0][0].toInt(), Category(S("Memory"))->Key);
    EXPECT_EQ(TakeSounds(), 0);
}

TEST_F(UserInfo, CompleteIsOfferedWhenNoRowIsOpenAndOpensAllOfThem)
{
    ctlUserInfo &info = Show();
    GivenWorkout(Today());
    Finish(S("Arrows"), 140);
    Finish(S("Corners"), 96);
    info.ShowDetails(1);
    EXPECT_EQ(Rows(), S("butGo(2) lblScore(0) lblScore(1)"));
    Finish(S("Echoes"), 118);
    info.ShowDetails(1);
    EXPECT_EQ(Rows(), S("lblScore(0) lblScore(1) lblScore(2) butComplete"));
    EXPECT_EQ(Text(S("lblScore(2)")), S("118"));
    Photograph(S("player-done"));
    Click(S("butComplete"));
    EXPECT_EQ(Rows(), S("butGo(0) butGo(1) butGo(2)"));
    EXPECT_EQ(m_Store.Ask(S("SELECT WorkoutStatus FROM Workout")), S("1"));
    EXPECT_EQ(TakeSounds(), 0);
}

TEST_F(UserInfo, TheListLastsWithoutAWorkoutAndWithoutAPlayer)
{
    ctlUserInfo &info = Show();
    info.ShowDetails(3);
    modMain::CurrentPlayer.reset();
    info.ShowDetails(1);
    EXPECT_FALSE(Shown(S("butGo(0)")));
}

TEST_F(UserInfo, TheOtherFaceCoversTheFirst)
{
    ctlUserInfo &info = Show();
    info.ShowDetails(2);
    EXPECT_TRUE(Shown(S("LarkChart1")));
    EXPECT_EQ(Place(S("LarkChart1")), QRect(0, 0, 632, 505));
    info.ShowDetails(1);
    EXPECT_FALSE(Shown(S("LarkChart1")));
}

TEST_F(UserInfo, APlayerWithoutWorkoutsSeesTheKeyAndNoPoints)
{
    SetToday(2026, 3, 5);
    ctlUserInfo &info = Show();
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Logic Memory"));
    EXPECT_EQ(Points(S("Logic")), S("-"));
    EXPECT_EQ(Chart().xmin, 1);
    EXPECT_EQ(Chart().xmax, 2);
    EXPECT_EQ(Chart().LabelAt(1), S("05-Mar-26"));
    EXPECT_EQ(Chart().LabelAt(2), QString());
    EXPECT_EQ(Chart().YTo(), 200);
    EXPECT_TRUE(Chart().findChild<QLabel *>(S("Empty"))->isVisible());
    Photograph(S("progress-none"));
}

TEST_F(UserInfo, AWorkoutWithoutAResultIsAGapInThatLineAlone)
{
    SetToday(2026, 3, 5);
    ctlUserInfo &info = Show();
    Past(Today() - 3, S("Corners"), 60);
    Past(Today() - 2, S("Arrows"), 70);
    Past(Today() - 1, S("Digits"), 80);
    GivenWorkout(Today()); // open, and nothing played yet
    info.ShowDetails(2);
    EXPECT_EQ(Points(S("Logic")), S("60 - 80 -"));
    EXPECT_EQ(Points(S("Attention")), S("- 70 - -"));
    EXPECT_EQ(Points(S("Memory")), S("- - - -"));
    EXPECT_EQ(Chart().xmax, 4) << "all workouts count, not only those with results";
    EXPECT_EQ(Chart().YTo(), 80);
    EXPECT_EQ(Chart().LabelAt(2), S("03-Mar-26"));
}

TEST_F(UserInfo, OneWorkoutAndSeveralOfOneDayGiveTheRange1To2)
{
    ctlUserInfo &info = Show();
    for (int workouts = 1; workouts <= 3; ++workouts) {
        Past(Today(), S("Arrows"), 70);
        info.ShowDetails(2);
        EXPECT_EQ(Chart().xmin, 1);
        EXPECT_EQ(Chart().xmax, 2) << workouts;
    }
    EXPECT_EQ(Points(S("Attention")), S("70 70 70"));
}

TEST_F(UserInfo, AboutTwentyGridLinesAreDrawn)
{
    ctlUserInfo &info = Show();
    int workouts = 0;
    for (const auto &[upTo, spacing] : {std::pair(2, 1), {20, 1}, {21, 2}, {40, 2}, {41, 3}}) {
        for (; workouts < upTo; ++workouts) Past(Today() - 50 + workouts, S("Arrows"), 50 + workouts);
        info.ShowDetails(2);
        EXPECT_EQ(Chart().xmax, upTo);
        EXPECT_EQ(Chart().xgridspacing, spacing) << upTo;
    }
    Photograph(S("progress-41"));
}

TEST_F(UserInfo, ShowingTheChartAgainRenewsItsSeries)
{
    ctlUserInfo &info = Show();
    Past(Today() - 1, S("Arrows"), 70);
    info.ShowDetails(2);
    Past(Today(), S("Arrows"), 90);
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Logic Memory"));
    EXPECT_EQ(Points(S("Attention")), S("70 90"));
    GivenPlayer(S("Ben"));
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Logic Memory"));
    EXPECT_EQ(Points(S("Attention")), S("-")) << "nothing of the player before";
}

TEST_F(UserInfo, AChartMadeReadyIsNotSeenAndLeavesNothingBehind)
{
    SetToday(2026, 3, 5);
    ctlUserInfo *const other = &Show();
    other->ShowDetails(2);
    const QImage unprepared = Chart().Picture();
    delete other;
    ctlUserInfo &info = Show();
    info.PrepareChart();
    EXPECT_FALSE(Shown(S("LarkChart1")));
    EXPECT_EQ(Names(), QString());
    EXPECT_FALSE(Chart().Picture().isNull()) << "it was drawn";
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Logic Memory"));
    EXPECT_EQ(Chart().Picture(), unprepared);
}

TEST_F(UserInfo, AChartThatSomebodyAskedForBeforeIsNotMadeReadyAnyMore)
{
    ctlUserInfo &info = Show();
    Past(Today(), S("Arrows"), 70);
    info.ShowDetails(2);
    const QImage shown = Chart().Picture();
    info.PrepareChart();
    EXPECT_EQ(Points(S("Attention")), S("70"));
    EXPECT_EQ(Chart().Picture(), shown);
}

TEST_F(UserInfo, TheChartIsOverTheListAndOnlyBeepsWhenClicked)
{
    ctlUserInfo &info = Show();
    info.ShowDetails(1);
    const QPoint go = At(S("butGo(0)"))->mapTo(m_Area.get(), QPoint(5, 5));
    info.ShowDetails(2);
    EXPECT_TRUE(Shown(S("butGo(0)"))) << "the list stays as it was";
    QSignalSpy played(&info, &ctlUserInfo::PlayGame);
    QTest::mouseClick(m_Area->windowHandle(), Qt::LeftButton, {}, go);
    EXPECT_EQ(played.count(), 0);
    EXPECT_TRUE(TakeOnly("shortbeep"));
    EXPECT_TRUE(Shown(S("LarkChart1")));
}

TEST_F(UserInfo, GamesWithoutACategoryKeepARowOpenAndStayOutOfTheChart)
{
    GivenGame(S("Adrift"), S("zzz"));
    ctlUserInfo &info = Show();
    GivenWorkout(Today());
    for (const char *game : {"Arrows", "Corners", "Echoes"}) Finish(QLatin1String(game), 50);
    info.ShowDetails(1);
    EXPECT_EQ(Text(S("lblCategory(3)")), S("zzz"));
    EXPECT_TRUE(Shown(S("butGo(3)")));
    EXPECT_FALSE(Shown(S("butComplete")));
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Logic Memory"));
}

TEST_F(UserInfo, RowsShowNamesAndTheChartLocalNames)
{
    m_Store.Folder().Write(S("Categories/Logic.ini"), QByteArrayLiteral("[0]\r\nName=Reasoning\r\n"));
    ctlUserInfo &info = Show();
    info.ShowDetails(1);
    EXPECT_EQ(Text(S("lblCategory(1)")), S("Logic"));
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Reasoning Memory"));
}

TEST_F(UserInfo, TwoCategoriesOfOneLocalNameShareALine)
{
    m_Store.Folder().Write(S("Categories/Logic.ini"), QByteArrayLiteral("[0]\r\nName=Thinking\r\n"));
    m_Store.Folder().Write(S("Categories/Memory.ini"), QByteArrayLiteral("[0]\r\nName=Thinking\r\n"));
    SetToday(2026, 3, 5);
    ctlUserInfo &info = Show();
    Past(Today() - 1, S("Corners"), 60);
    Past(Today(), S("Echoes"), 70);
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Thinking"));
    EXPECT_EQ(Points(S("Thinking")), S("- 70")) << "the later one's";
}

TEST_F(UserInfo, DatesOnTheChartAreInTheDesktopsLanguage)
{
    QLocale::setDefault(QLocale(QLocale::German));
    SetToday(2026, 10, 5);
    Show().ShowDetails(2);
    EXPECT_TRUE(Chart().LabelAt(1).startsWith(S("05-Okt"))) << Chart().LabelAt(1).toStdString();
    QLocale::setDefault(QLocale::c());
}

TEST_F(UserInfo, TheRowsGetThePicturesOfTheSkin)
{
    ctlUserInfo &info = Show();
    info.ShowDetails(1);
    m_Framework->Skinned.clear();
    info.SkinUp();
    EXPECT_EQ(m_Framework->Skinned.join(u' '), S("butComplete butGo(0) butGo(1) butGo(2)"));
}

TEST_F(UserInfo, CompleteStandsBelowTheLastRow)
{
    Show().ShowDetails(1);
    EXPECT_EQ(Place(S("butComplete")), QRect((632 - 120) / 2, 183 + 50, 120, 23));
    EXPECT_EQ(Place(S("lblScore(1)")), QRect(353, 157, 43, 20));
}

TEST_F(UserInfo, ColoursAndStylesTakeTurnsByTheNumberOfTheCategory)
{
    for (const char *category : {"A", "B", "C", "D", "E", "F", "G"})
        GivenGame(S("Game") + QLatin1String(category), QLatin1String(category));
    Start();
    GivenPlayer(S("Ann"));
    ctlUserInfo info(m_Area.get());
    Open(&info);
    info.ShowDetails(2);
    const struct
    {
        std::int32_t Colour;
        int Style;
    } expected[] = {{0xFF0000, 4}, {65280, 5},    {255 | 132 << 8, 6}, {0xFF00FF, 1},
                    {255, 2},      {0xFF0000, 3}, {65280, 4}};
    ASSERT_EQ(Chart().AllSeries().size(), 7U);
    for (std::size_t i = 0; i < 7; ++i) {
        const ChartSeries &series = *Chart().AllSeries()[i];
        EXPECT_EQ(series.Colour, expected[i].Colour) << i;
        EXPECT_EQ(series.Style, expected[i].Style) << i;
        EXPECT_EQ(series.Thickness, 2);
        EXPECT_TRUE(series.Marks);
    }
}

TEST_F(UserInfo, TheChartByTimeHoldsResultsOfWorkoutsAtTheirTimes)
{
    SetToday(2026, 3, 5);
    ctlUserInfo &info = Show();
    info.ShowStats();
    EXPECT_EQ(Names(), QString());
    EXPECT_EQ(Chart().xmin, Today());
    EXPECT_EQ(Chart().xmax, Today() + 1);
    GivenWorkout(Today());
    Finish(S("Corners"), 60);
    SetToday(2026, 4, 14);
    Finish(S("Digits"), 75);
    info.ShowStats();
    EXPECT_EQ(Names(), S("Logic"));
    EXPECT_EQ(Points(S("Logic")), S("60 75"));
    EXPECT_EQ(Chart().Series(S("Logic")).Colour, 65280) << "the second category";
    EXPECT_EQ(Chart().xmax - Chart().xmin, 41);
    EXPECT_EQ(Chart().xgridspacing, 3);
    EXPECT_EQ(Chart().LabelAt(Chart().xmin), S("05-Mar-26"));
    EXPECT_FALSE(Chart().evenspacing);
    info.ShowDetails(2);
    EXPECT_EQ(Names(), S("Attention Logic Memory"));
    EXPECT_TRUE(Chart().evenspacing);
}

TEST_F(UserInfo, ChartsLastWithoutAPlayerAndWithoutCategories)
{
    ctlUserInfo &info = Show();
    modMain::Categories = std::make_shared<colCategory>();
    info.PrepareChart();
    info.ShowWorkoutStats();
    info.ShowStats();
    info.ShowWorkout();
    modMain::CurrentWorkout.reset();
    Click(S("butComplete"));
    modMain::CurrentPlayer.reset();
    info.ShowWorkoutStats();
    info.ShowStats();
    EXPECT_EQ(Names(), QString());
}

TEST_F(UserInfo, GoAfterCompleteMeansANewPass)
{
    ctlUserInfo &info = Show();
    GivenWorkout(Today());
    for (const char *game : {"Arrows", "Corners", "Echoes"}) Finish(QLatin1String(game), 50);
    info.ShowDetails(1);
    Click(S("butComplete"));
    EXPECT_EQ(modMain::CurrentWorkout, nullptr);
    QSignalSpy played(&info, &ctlUserInfo::PlayGame);
    Click(S("butGo(0)"));
    ASSERT_EQ(played.count(), 1);
    EXPECT_EQ(played[0][0].toInt(), Category(S("Attention"))->Key);
}

TEST_F(UserInfo, ThePanelHidesAndShowsEachRowAsItIs)
{
    ctlUserInfo &info = Show();
    GivenWorkout(Today());
    Finish(S("Arrows"), 140);
    info.ShowDetails(1);
    info.ShowPanel(false);
    EXPECT_EQ(Rows(), QString());
    EXPECT_FALSE(Shown(S("lblWorkout")));
    info.ShowPanel(true);
    EXPECT_EQ(Rows(), S("butGo(1) butGo(2) lblScore(0)"));
}
