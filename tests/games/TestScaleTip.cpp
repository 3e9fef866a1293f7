#include "games/scale-tip/ScaleRules.h"
#include "tests/games/stage/EveryChoiceGame.h"

#include "shell/program/modMain.h"

#include <QElapsedTimer>
#include <QTest>

namespace
{
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int Enter = 13, Space = 32;

class ScaleTip : public KnownGame<ScaleRules>
{
protected:
    ScaleTip() : KnownGame("scale-tip", 6) {}

    int Offered() const override { return 2; }
    int RightOne() const override { return Known->Item().Heavier(); }
    QPoint PlaceOf(int side) const override { return Table.At({side == 0 ? 165.0 : 455.0, 200}); }
    void PressKeys(int side) override { Table.Key(side == 0 ? Left : Right); }
};
} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, ScaleTip);

TEST_F(ScaleTip, DigitsChooseTooAndTheOtherKeysDoNothing)
{
    Start(1);
    for (const int key : {Up, Down, Enter, Space, int(u'3'), int(u'A'), 0, -1}) Table.Key(key);
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    Table.Key(u'1' + RightOne());
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
}

TEST_F(ScaleTip, AClickBesideBothSidesDoesNothing)
{
    Start(1);
    Table.Click(Table.At({310, 30}));
    Table.Click(Table.At({310, 400}));
    QTest::mouseClick(Table.Game->Control(), Qt::RightButton, {}, PlaceOf(0));
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
}

TEST_F(ScaleTip, TheBalanceTipsToTheHeavierSideWhateverWasPressed)
{
    Table.SetPace(300); // so that the tipping is seen, however busy the machine is
    for (const bool right : {true, false}) {
        Start(1);
        const int heavier = RightOne();
        const QImage level = Table.Picture();
        AnswerByKeys(right ? heavier : 1 - heavier);
        // the plate of the heavier side goes down, so the row above it holds no brass any more
        const QPoint plate = Table.At({heavier == 0 ? 164.0 : 456.0, 303});
        const QRgb before = level.pixel(plate);
        EXPECT_TRUE(Stage::Until([&] { return Table.Picture().pixel(plate) != before; }));
    }
}

TEST_F(ScaleTip, AWrongPressTakesOneAwayAndTellsSo)
{
    Start(1);
    AnswerByKeys(RightOne());
    ASSERT_TRUE(UntilNext());
    AnswerByKeys(RightOne());
    ASSERT_TRUE(UntilNext());
    EXPECT_EQ(Table.Score(), 200 / 33);
    AnswerByKeys(WrongOne());
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Count("playsound wrong"), 1);
    EXPECT_EQ(Table.Score(), 100 / 33);
}

TEST_F(ScaleTip, HiddenItsClockStandsStill)
{
    Table.SetPace(100);
    Start(1);
    QElapsedTimer clock;
    clock.start();
    AnswerByKeys(RightOne());
    Table.Game->SetVisible(false);
    qint64 seen = clock.elapsed();
    Stage::Turn(700); // longer than a right answer is told
    Table.Key(Left);
    Table.Game->SetVisible(true);
    clock.restart();
    EXPECT_EQ(Table.Description(), Table.Word("Right")) << "still told";
    ASSERT_TRUE(UntilNext());
    seen += clock.elapsed();
    EXPECT_GE(seen, 495) << "[ms] for which the answer was in view";
    AnswerByKeys(WrongOne());
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
}

TEST_F(ScaleTip, TellsWhatLiesOnEachSideInWords)
{
    Start(2);
    const auto &sides = Known->Item().Sides;
    EXPECT_EQ(Table.Name(), QStringLiteral("Left: %1 dots. Right: %2 dots.").arg(sides[0].First).arg(sides[1].First));
    Start(5);
    EXPECT_TRUE(
        Table.Name().startsWith(QStringLiteral("Left: %1 + %2. Right: ").arg(sides[0].First).arg(sides[0].Second)))
        << qPrintable(Table.Name());
    modMain::Language = QStringLiteral("1");
    Start(8);
    EXPECT_TRUE(
        Table.Name().startsWith(QStringLiteral("Links: %1/%2. Rechts: ").arg(sides[0].First).arg(sides[0].Second)))
        << qPrintable(Table.Name());
}

TEST_F(ScaleTip, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords(
        {"Name", "Hint", "Right", "Wrong", "LeftSide", "RightSide", "Dots", "Points", "Level", "TimeUp"});
}

TEST_F(ScaleTip, PicturesDifferBetweenItemRightWrongAndTimeUp)
{
    ExpectPicturesToDiffer("scale",
                           {{"first", {620, 420}, 1, false},
                            {"third", {620, 420}, 4, true},
                            {"middle", {620, 420}, 5, false},
                            {"sums", {620, 420}, 6, true},
                            {"last", {620, 420}, 8, true},
                            {"large", {1600, 1000}, 4, false},
                            {"large-last", {1600, 1000}, 8, true},
                            {"small", {380, 290}, 7, false}},
                           220);
}
