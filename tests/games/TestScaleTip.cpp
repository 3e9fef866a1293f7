#include "games/scale-tip/ScaleRules.h"
#include "tests/games/stage/KnownGame.h"

#include "shell/program/modMain.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

namespace
{
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int Enter = 13, Space = 32;

class ScaleTip : public KnownGame<ScaleRules>
{
protected:
    ScaleTip() : KnownGame("scale-tip") {}

    int Heavier() const { return Known->Item().Heavier(); }
    QPoint Side(int side) const { return Table.At({side == 0 ? 165.0 : 455.0, 200}); }
    static int Arrow(int side) { return side == 0 ? Left : Right; }
    /// Presses and lets the rules beside it do the same.
    void Press(int side, bool byKey)
    {
        if (byKey)
            Table.Key(Arrow(side));
        else
            Table.Click(Side(side));
        Known->Judge(side);
        Known->Next();
    }
};
} // namespace

TEST_F(ScaleTip, AWholeSetIsPlayedWithTheArrowsAloneAndEndsOnce)
{
    constexpr int Shortest = 6; // level
    int shown = -1;
    Table.Framework->GameOver = [&] { shown = Table.Score(); }; // what the shell asks inside
    Start(Shortest);
    const int count = Known->Set().Count();
    for (int round = 1; round <= count; ++round) {
        ASSERT_TRUE(UntilNext());
        EXPECT_EQ(Table.Count("gameover"), 0);
        Press(Heavier(), true);
        ASSERT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100 * round / count);
    }
    EXPECT_EQ(Table.Count("gameover"), 1) << "before any picture of the end";
    EXPECT_GE(shown, 125);
    EXPECT_EQ(shown, Known->Set().Points());
    EXPECT_EQ(Table.Count("playsound done"), 1);
    const int calls = Table.Framework->Count({});
    EXPECT_TRUE(Table.UntilStill());
    Table.Key(Left);
    Table.Click(Side(1));
    EXPECT_EQ(Table.Framework->Count({}), calls) << "nothing counts after the end";
    EXPECT_EQ(Table.Score(), shown);
}

TEST_F(ScaleTip, IsPlayedWithTheMouseAloneAtEverySize)
{
    int size = 0;
    for (const QSize place : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
        Table.Resize(place);
        Start(5 + size++ % 4);
        Press(Heavier(), false);
        EXPECT_EQ(Table.Description(), Table.Word("Right")) << place.width();
        ASSERT_TRUE(UntilNext());
        Press(Heavier(), false);
        EXPECT_EQ(Table.Score(), Known->Set().Points()) << place.width();
        EXPECT_GT(Table.Score(), 0);
    }
}

TEST_F(ScaleTip, DigitsChooseTooAndTheOtherKeysDoNothing)
{
    Start(1);
    for (const int key : {Up, Down, Enter, Space, int(u'3'), int(u'A'), 0, -1}) Table.Key(key);
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    Table.Key(u'1' + Heavier());
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
}

TEST_F(ScaleTip, AClickBesideBothSidesDoesNothing)
{
    Start(1);
    Table.Click(Table.At({310, 30}));
    Table.Click(Table.At({310, 400}));
    QTest::mouseClick(Table.Game->Control(), Qt::RightButton, {}, Side(0));
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
}

TEST_F(ScaleTip, TheBalanceTipsToTheHeavierSideWhateverWasPressed)
{
    Table.SetPace(300); // so that the tipping is seen, however busy the machine is
    for (const bool right : {true, false}) {
        Start(1);
        const int heavier = Heavier();
        const QImage level = Table.Picture();
        Press(right ? heavier : 1 - heavier, true);
        // the plate of the heavier side goes down, so the row above it holds no brass any more
        const QPoint plate = Table.At({heavier == 0 ? 164.0 : 456.0, 303});
        const QRgb before = level.pixel(plate);
        EXPECT_TRUE(Stage::Until([&] { return Table.Picture().pixel(plate) != before; }));
    }
}

TEST_F(ScaleTip, AWrongPressTakesOneAwayAndTellsSo)
{
    Start(1);
    Press(Heavier(), true);
    ASSERT_TRUE(UntilNext());
    Press(Heavier(), true);
    ASSERT_TRUE(UntilNext());
    EXPECT_EQ(Table.Score(), 200 / 33);
    Press(1 - Heavier(), true);
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Count("playsound wrong"), 1);
    EXPECT_EQ(Table.Score(), 100 / 33);
    Table.Key(Left);
    Table.Key(Right);
    Table.Click(Side(0));
    EXPECT_EQ(Table.Score(), 100 / 33) << "no key counts while the answer is told";
}

TEST_F(ScaleTip, HiddenItsClockStandsStill)
{
    Table.SetPace(100);
    Start(1);
    QElapsedTimer clock;
    clock.start();
    Press(Heavier(), true);
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
    Press(1 - Heavier(), true);
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
}

TEST_F(ScaleTip, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Press(Heavier(), true);
    ASSERT_TRUE(UntilNext());
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(Table.Description(), Table.Word("TimeUp"));
    Table.Key(Arrow(Heavier()));
    Table.Click(Side(Heavier()));
    EXPECT_EQ(Table.Score(), 100 / 33);
    EXPECT_EQ(Table.Count("gameover"), 0);
}

TEST_F(ScaleTip, StandsStillWhileNothingMoves)
{
    Start(1);
    Press(Heavier(), true);
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
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

TEST_F(ScaleTip, PicturesDifferBetweenRightWrongAndTimeUp)
{
    struct Row
    {
        const char *name;
        QSize size;
        int level;
        bool dark;
    };
    SetPaceOfPictures();
    for (const Row &row :
         {Row{"first", {620, 420}, 1, false}, Row{"third", {620, 420}, 4, true}, Row{"middle", {620, 420}, 5, false},
          Row{"sums", {620, 420}, 6, true}, Row{"last", {620, 420}, 8, true}, Row{"large", {1600, 1000}, 4, false},
          Row{"large-last", {1600, 1000}, 8, true}, Row{"small", {380, 290}, 7, false}}) {
        const QString name = QStringLiteral("scale-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Table.Resize(row.size);
        Start(row.level);
        QTest::mouseMove(Table.Game->Control(), Side(1));
        const QImage fresh = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-first"));
        Press(Heavier(), true);
        Stage::Settle(180);
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Press(1 - Heavier(), true);
        Stage::Settle(220);
        const QImage wrong = Table.Picture();
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
