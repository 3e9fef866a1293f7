#include "WorkOutTest.h"
#include "domain/Store.h"
#include "platform/Clock.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/PictureBox.h"

#include <QDir>
#include <QLocale>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }
} // namespace

TEST_F(WorkOut, ControlsStandAsDesignedAtTheDesignSize)
{
    StartWithAnn();
    ctlWorkOut &screen = Show();
    screen.resize(522, 322);
    EXPECT_EQ(Place(S("lblWorkout")), QRect(11, 2, 500, 33));
    EXPECT_EQ(Place(S("lblNextDue")), QRect(26, 36, 470, 33));
    EXPECT_EQ(Place(S("butNextWorkout")), QRect(201, 42, 120, 24));
    EXPECT_EQ(Place(S("lblMessage")), QRect(22, 273, 478, 44));
    EXPECT_EQ(Place(S("picCat(0)")), QRect(31, 76, 200, 59));
    EXPECT_EQ(Place(S("picCat(2)")), QRect(31, 202, 200, 59));
    EXPECT_EQ(Place(S("picGame(1)")), QRect(241, 139, 275, 59));
    EXPECT_EQ(At(S("lblCat(0)"))->geometry(), QRect(8, 0, 117, 27));
    EXPECT_EQ(At(S("lblCatScore(1)"))->geometry(), QRect(82, 0, 102, 27));
    EXPECT_EQ(At(S("lblPoints(0)"))->geometry(), QRect(116, 1, 124, 27));
    EXPECT_EQ(At(S("butPlay(1)"))->geometry(), QRect(147, 3, 120, 24));
    EXPECT_EQ(At(S("butInstructions(1)"))->geometry(), QRect(147, 30, 120, 24));
}

TEST_F(WorkOut, TheLayoutFollowsTheWidth)
{
    StartWithAnn();
    ctlWorkOut &screen = Show();
    screen.resize(800, 500);
    EXPECT_EQ(Place(S("picCat(1)")).left(), 800 / 2 - 200 - 30);
    EXPECT_EQ(Place(S("picGame(0)")).left(), 800 / 2 - 20);
    EXPECT_EQ(Place(S("lblMessage")), QRect(161, 451, 478, 44));
}

TEST_F(WorkOut, WithoutAWorkoutTheOnlyWayForwardIsTheButton)
{
    StartWithAnn();
    Show();
    EXPECT_EQ(Foot(), S("butNextWorkout"));
    EXPECT_EQ(Text(S("lblWorkout")), Word(4001));
    EXPECT_EQ(ShownOf({S("picCat(0)"), S("picCat(1)"), S("picCat(2)"), S("picGame(0)"), S("picGame(1)")}),
              S("picCat(0) picCat(1) picCat(2) picGame(0) picGame(1)"));
    EXPECT_EQ(ShownOf({S("lblCatScore(0)"), S("butPlay(0)"), S("butPlay(1)"), S("lblPoints(0)"), S("lblPoints(1)")}),
              QString());
    EXPECT_EQ(Text(S("lblLevel(0)")), Word(4007) + S(" 1"));
    Photograph(S("workout-none"));
}

TEST_F(WorkOut, TheButtonOpensAWorkoutOfToday)
{
    StartWithAnn();
    Show();
    Click(S("butNextWorkout"));
    EXPECT_EQ(
        m_Store.Ask(S("SELECT WorkoutMode, WorkoutStatus, WorkoutPlayer, WorkoutTimestamp = 46347 FROM Workout")),
        S("1|0|1|1"))
        << "the day without a time";
    EXPECT_EQ(Foot(), S("lblNextDue"));
    EXPECT_EQ(Text(S("lblWorkout")), Word(4002) + S("21-Nov-2026"));
    EXPECT_EQ(Text(S("lblNextDue")), Word(4004));
    EXPECT_EQ(Text(S("lblCatScore(0)")), Word(316));
    EXPECT_EQ(ShownOf({S("butPlay(0)"), S("butInstructions(0)"), S("lblPoints(0)")}),
              S("butPlay(0) butInstructions(0)"));
    EXPECT_EQ(ShownOf({S("butPlay(1)"), S("butInstructions(1)"), S("lblPoints(1)")}), S("lblPoints(1)"));
    EXPECT_EQ(Text(S("lblPoints(1)")), Word(4005));
    EXPECT_TRUE(TakeOnly("highbeep"));
}

TEST_F(WorkOut, TheNextWorkoutClosesTheOneBefore)
{
    StartWithAnn();
    GivenWorkout(Today() - 1);
    FinishAll();
    Show();
    Click(S("butNextWorkout"));
    EXPECT_EQ(m_Store.Ask(S("SELECT WorkoutStatus FROM Workout ORDER BY WorkoutKey")), S("1\n0"));
    EXPECT_EQ(Text(S("lblWorkout")), Word(4002) + S("21-Nov-2026"));
}

TEST_F(WorkOut, AnUnfinishedWorkoutOfYesterdayStaysAndKeepsItsDate)
{
    StartWithAnn();
    GivenWorkout(Today() - 1);
    Finish(S("Arrows"), 140);
    Show();
    EXPECT_EQ(Foot(), S("lblNextDue"));
    EXPECT_EQ(Text(S("lblNextDue")), Word(4004));
    EXPECT_EQ(Text(S("lblWorkout")), Word(4002) + S("20-Nov-2026"));
}

TEST_F(WorkOut, OnTheDayItIsDoneTheNextDayIsTold)
{
    StartWithAnn();
    GivenWorkout(Today());
    FinishAll();
    Show();
    EXPECT_EQ(Foot(), S("lblNextDue lblMessage"));
    EXPECT_EQ(Text(S("lblNextDue")), Word(4003) + S("22-Nov-2026"));
    Photograph(S("workout-done"));
}

TEST_F(WorkOut, TomorrowTheButtonTakesThePlaceOfTheDate)
{
    StartWithAnn();
    GivenWorkout(Today());
    FinishAll();
    ctlWorkOut &screen = Show();
    SetToday(2026, 11, 22);
    screen.ListCats(false);
    EXPECT_EQ(Foot(), S("butNextWorkout lblMessage"));
    EXPECT_EQ(Text(S("lblWorkout")), Word(4002) + S("21-Nov-2026"));
}

TEST_F(WorkOut, TheFanfareSoundsOnlyWhenAskedForAndAllIsDone)
{
    StartWithAnn();
    GivenWorkout(Today());
    Finish(S("Arrows"), 140);
    ctlWorkOut &screen = Show();
    screen.ListCats(true);
    EXPECT_EQ(TakeSounds(), 0);
    Finish(S("Corners"), 96);
    Finish(S("Echoes"), 118);
    screen.ListCats(false);
    EXPECT_EQ(TakeSounds(), 0);
    screen.ListCats(true);
    EXPECT_TRUE(TakeOnly("fanfare"));
}

TEST_F(WorkOut, ADoneCategoryShowsItsPointsAndOffersNothingMore)
{
    StartWithAnn();
    GivenWorkout(Today());
    Finish(S("Beacons"), 140, 1);
    Show();
    EXPECT_EQ(Text(S("lblCatScore(0)")), S("140"));
    EXPECT_EQ(ShownOf({S("butPlay(0)"), S("butPlay(1)"), S("butInstructions(0)"), S("butInstructions(1)")}),
              QString());
    EXPECT_EQ(Text(S("lblPoints(0)")), Word(4005));
    EXPECT_EQ(Text(S("lblPoints(1)")), Word(4006) + S(" 140"));
    Photograph(S("workout-one-done"));
}

TEST_F(WorkOut, PlayStartsTheNextGameAtItsOwnLevel)
{
    StartWithAnn();
    GivenWorkout(Today());
    const auto state = modMain::CurrentPlayer->GameData().Item(Game(S("Arrows"))->Key);
    state->SetLevel(4);
    state->Save();
    Show();
    EXPECT_EQ(modMain::CurrentPlayerGame->Game, Game(S("Beacons"))->Key) << "the listing moved it";
    Click(S("butPlay(0)"));
    EXPECT_EQ(m_Form.TakeCalls(), S("PlayGame Arrows 4"));
    EXPECT_EQ(modMain::CurrentPlayerGame, state);
    Click(S("butInstructions(0)"));
    EXPECT_EQ(m_Form.TakeCalls(), S("Instructions Arrows 4"));
}

TEST_F(WorkOut, EnterOnPlayPlays)
{
    StartWithAnn();
    GivenWorkout(Today());
    Show();
    At(S("butPlay(0)"))->setFocus();
    QTest::keyClick(At(S("butPlay(0)")), Qt::Key_Return);
    EXPECT_EQ(m_Form.TakeCalls(), S("PlayGame Arrows 1"));
}

TEST_F(WorkOut, AClickOnATileOrItsLabelsSelectsTheCategory)
{
    StartWithAnn();
    Show();
    Click(S("picCat(1)"));
    EXPECT_EQ(Text(S("lblGame(0)")), S("Corners"));
    EXPECT_EQ(At<PictureBox>(S("picCat(1)"))->BackColour(), QColor(255, 255, 0));
    EXPECT_EQ(At<PictureBox>(S("picCat(0)"))->BackColour(), QColor(255, 255, 255));
    Click(S("lblCat(2)"));
    EXPECT_EQ(Text(S("lblGame(1)")), S("Faces"));
    EXPECT_TRUE(TakeOnly("highbeep"));
    Click(S("lblCatScore(0)"));
    EXPECT_EQ(Text(S("lblGame(1)")), S("Beacons"));
}

TEST_F(WorkOut, AClickOnATileWhileAListingRunsIsIgnored)
{
    StartWithAnn();
    Show();
    TakeSounds();
    int clicks = 0;
    // As a message of a failing store would let it in.
    modMain::GetConnection().BeforeCall = [&](const QString &) {
        if (clicks++ == 0) Click(S("picCat(2)"));
    };
    Click(S("picCat(1)"));
    modMain::GetConnection().BeforeCall = nullptr;
    EXPECT_GT(clicks, 0);
    EXPECT_EQ(Text(S("lblGame(0)")), S("Corners"));
    EXPECT_EQ(At<PictureBox>(S("picCat(1)"))->BackColour(), QColor(255, 255, 0));
    EXPECT_EQ(At<PictureBox>(S("picCat(2)"))->BackColour(), QColor(255, 255, 255));
    Click(S("picCat(2)"));
    EXPECT_EQ(Text(S("lblGame(0)")), S("Echoes")) << "the next one counts";
}

TEST_F(WorkOut, ATileIsChosenByKeysAndKeepsTheFocus)
{
    StartWithAnn();
    Show();
    At(S("picCat(2)"))->setFocus();
    QTest::keyClick(At(S("picCat(2)")), Qt::Key_Space);
    EXPECT_EQ(Text(S("lblGame(0)")), S("Echoes"));
    EXPECT_TRUE(At(S("picCat(2)"))->hasFocus());
}

TEST_F(WorkOut, FewerGamesHideTheRowsBeyond)
{
    GivenGame(S("Arrows"), S("Attention"));
    GivenGame(S("Beacons"), S("Attention"));
    GivenGame(S("Corners"), S("Logic"));
    Start();
    GivenPlayer(S("Ann"));
    Show();
    EXPECT_TRUE(Shown(S("picGame(1)")));
    Click(S("picCat(1)"));
    EXPECT_FALSE(Shown(S("picGame(1)")));
}

TEST_F(WorkOut, ACategoryWithoutGamesLeavesTheFirstRowStandingAndItsPlayDoesNothing)
{
    GivenGame(S("Arrows"), S("Attention"));
    Start();
    modMain::Categories->Add(S("Empty"));
    modMain::Categories->Load();
    GivenPlayer(S("Ann"));
    GivenWorkout(Today());
    Show();
    Click(S("picCat(1)"));
    EXPECT_EQ(Text(S("lblGame(0)")), S("Arrows"));
    EXPECT_TRUE(Shown(S("picGame(0)")));
    Click(S("butPlay(0)"));
    EXPECT_EQ(m_Form.TakeCalls(), QString());
}

TEST_F(WorkOut, GamesWithoutACategoryAreNeverShown)
{
    GivenGame(S("Arrows"), S("Attention"));
    GivenGame(S("Stray"), {});
    Start();
    GivenPlayer(S("Ann"));
    Show();
    EXPECT_NE(modMain::Categories->CategoryByName(S("zzz")), nullptr);
    EXPECT_EQ(m_Area->findChild<QWidget *>(S("picCat(1)")), nullptr);
}

TEST_F(WorkOut, AnotherPlayersWorkoutDoesNotStayCurrent)
{
    StartWithAnn();
    GivenWorkout(Today());
    ctlWorkOut &screen = Show();
    EXPECT_NE(modMain::CurrentWorkout, nullptr);
    GivenPlayer(S("Bob"));
    screen.ListCats(false);
    EXPECT_EQ(modMain::CurrentWorkout, nullptr);
    EXPECT_FALSE(Shown(S("lblCatScore(0)")));
}

TEST_F(WorkOut, AFirstListingWritesAStateForEachGameShown)
{
    StartWithAnn();
    Show();
    EXPECT_EQ(m_Store.Ask(S("SELECT COUNT(*) FROM PlayerGame")), S("6")) << "awards ask for all of them";
}

TEST_F(WorkOut, LaterRowsReadAndLookLikeTheFirst)
{
    GivenGame(S("Arrows"), S("Attention"));
    for (const char *name : {"Corners", "Digits"}) GivenGame(QLatin1String(name), S("Logic"));
    Start();
    GivenPlayer(S("Ann"));
    ctlWorkOut &screen = Show();
    EXPECT_TRUE(m_Framework->Skinned.contains(S("butPlay(0)")));
    SpeakGerman();
    screen.SkinUp();
    QImage up(120, 24, QImage::Format_RGB32);
    up.fill(Qt::darkGreen);
    const QImage down = up.mirrored();
    for (const char *button : {"butPlay(0)", "butInstructions(0)"}) {
        At<LarkButton>(S(button))->SetPictureUp(up);
        At<LarkButton>(S(button))->SetPictureDown(down);
    }
    Click(S("picCat(1)")); // whose second row is new
    for (const char *button : {"butPlay(1)", "butInstructions(1)"}) {
        EXPECT_EQ(At<LarkButton>(S(button))->PictureUp(), up) << button;
        EXPECT_EQ(At<LarkButton>(S(button))->PictureDown(), down) << button;
    }
    EXPECT_EQ(Text(S("butPlay(1)")), S("Spielen"));
    EXPECT_EQ(Text(S("butInstructions(1)")), S("Anleitung"));
}

TEST_F(WorkOut, ARowThatIsThereKeepsItsWordsWhenTheFirstOneGetsOthers)
{
    StartWithAnn();
    ctlWorkOut &screen = Show();
    SpeakGerman();
    screen.SkinUp();
    EXPECT_EQ(Text(S("butPlay(0)")), S("Spielen"));
    EXPECT_EQ(Text(S("butPlay(1)")), S("Play"));
}

TEST_F(WorkOut, MonthsAreThoseOfTheDesktop)
{
    QLocale::setDefault(QLocale(QLocale::German));
    StartWithAnn();
    GivenWorkout(ToDayCount({QDate(2026, 10, 5), QTime(0, 0)}));
    Show();
    EXPECT_TRUE(Text(S("lblWorkout")).contains(S("5-Okt"))) << Text(S("lblWorkout")).toStdString();
    QLocale::setDefault(QLocale::c());
}

TEST_F(WorkOut, TomorrowIsToldInTheDesktopsLanguage)
{
    QLocale::setDefault(QLocale(QLocale::German));
    SetToday(2026, 4, 30);
    StartWithAnn();
    GivenWorkout(Today());
    FinishAll();
    ctlWorkOut &screen = Show();
    EXPECT_TRUE(Text(S("lblWorkout")).startsWith(Word(4002) + S("30-Apr"))) << Text(S("lblWorkout")).toStdString();
    EXPECT_EQ(Text(S("lblNextDue")), Word(4003) + S("1-Mai-2026"));
    SetToday(2026, 5, 1);
    screen.ListCats(false);
    EXPECT_EQ(Foot(), S("butNextWorkout lblMessage"));
    Click(S("butNextWorkout"));
    EXPECT_EQ(Text(S("lblWorkout")), Word(4002) + S("1-Mai-2026"));
    QLocale::setDefault(QLocale::c());
}

TEST_F(WorkOut, AGameWhoseFolderHasGoneIsListedByItsStoredName)
{
    StartWithAnn();
    ASSERT_TRUE(QDir(m_Store.Folder().Path() + S("Arrows")).removeRecursively());
    Start();
    modMain::CurrentPlayer = modMain::Players->Item(1);
    GivenWorkout(Today());
    Show();
    EXPECT_EQ(Text(S("lblGame(0)")), S("Arrows"));
    Click(S("butPlay(0)"));
    EXPECT_EQ(m_Form.TakeCalls(), S("PlayGame Arrows 1"));
}

TEST_F(WorkOut, WithoutAPlayerItShowsAndWritesNothing)
{
    StartWithSixGames();
    Show().ListCats(true);
    EXPECT_EQ(Foot(), S("butNextWorkout"));
    Click(S("butNextWorkout"));
    EXPECT_EQ(m_Store.Ask(S("SELECT COUNT(*) FROM PlayerGame")), S("0"));
    EXPECT_EQ(m_Store.Ask(S("SELECT COUNT(*) FROM Workout")), S("0"));
}

TEST_F(WorkOut, TwelveCategoriesCanAllBeReached)
{
    for (char letter = 'A'; letter <= 'L'; ++letter)
        GivenGame(S("Game ") + QLatin1Char(letter), S("Category ") + QLatin1Char(letter));
    Start();
    GivenPlayer(S("Ann & <b>Bob</b>"));
    GivenWorkout(Today());
    Show();
    const QWidget *last = At(S("picCat(11)"));
    EXPECT_GT(Place(S("picCat(11)")).top(), m_Screen->height());
    At(S("picCat(11)"))->setFocus();
    EXPECT_LE(Place(S("picCat(11)")).bottom(), m_Screen->height());
    EXPECT_EQ(last->y(), 76 + 11 * 63) << "the design place stays";
    Photograph(S("workout-twelve"));
}
