#include "games/scale-tip/ScaleRules.h"
#include "tests/games/stage/Stage.h"

#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <optional>

namespace
{
const QString Folder = QStringLiteral(NOGGLE_DIST_FOLDER "scale-tip/");
constexpr std::uint32_t Seed = 7;
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int Enter = 13, Space = 32;

/// The game with a known seed, and its rules beside it, which know what is right.
class ScaleTip : public testing::Test
{
protected:
    Stage Table{QStringLiteral("ScaleTip.GameArea"), WithSeed(Folder, Seed)};
    std::optional<ScaleRules> Known;

    void Start(int level)
    {
        Known.emplace(level, Seed);
        Table.Start(level);
    }
    QString Word(const char *name) const { return Table.Framework->LangString(QLatin1String(name)); }
    QString Described() const { return Table.Game->Control()->accessibleDescription(); }
    QString Told() const { return Table.Game->Control()->accessibleName(); }
    int Heavier() const { return Known->Item().Heavier(); }
    bool WaitForNext() const
    {
        return Stage::Until([this] { return Described() == Word("Hint"); });
    }
    int Count(const char *call) const { return Table.Framework->Count(QLatin1String(call)); }
    /// A place of the drawing, in the game's pixels.
    QPoint At(QPointF place) const
    {
        const QSize size = Table.Game->Control()->size();
        const double scale = std::min(size.width() / 620.0, size.height() / 420.0);
        return (QPointF((size.width() - 620 * scale) / 2, (size.height() - 420 * scale) / 2) + place * scale)
            .toPoint();
    }
    QPoint Side(int side) const { return At({side == 0 ? 165.0 : 455.0, 200}); }
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
        ASSERT_TRUE(WaitForNext());
        EXPECT_EQ(Count("gameover"), 0);
        Press(Heavier(), true);
        ASSERT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100 * round / count);
    }
    EXPECT_EQ(Count("gameover"), 1) << "before any picture of the end";
    EXPECT_GE(shown, 125);
    EXPECT_EQ(shown, Known->Set().Points());
    EXPECT_EQ(Count("playsound done"), 1);
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
        EXPECT_EQ(Described(), Word("Right")) << place.width();
        ASSERT_TRUE(WaitForNext());
        Press(Heavier(), false);
        EXPECT_EQ(Table.Score(), Known->Set().Points()) << place.width();
        EXPECT_GT(Table.Score(), 0);
    }
}

TEST_F(ScaleTip, DigitsChooseTooAndTheOtherKeysDoNothing)
{
    Start(1);
    for (const int key : {Up, Down, Enter, Space, int(u'3'), int(u'A'), 0, -1}) Table.Key(key);
    EXPECT_EQ(Described(), Word("Hint"));
    Table.Key(u'1' + Heavier());
    EXPECT_EQ(Described(), Word("Right"));
}

TEST_F(ScaleTip, AClickBesideBothSidesDoesNothing)
{
    Start(1);
    Table.Click(At({310, 30}));
    Table.Click(At({310, 400}));
    QTest::mouseClick(Table.Game->Control(), Qt::RightButton, {}, Side(0));
    EXPECT_EQ(Described(), Word("Hint"));
}

TEST_F(ScaleTip, TheBalanceTipsToTheHeavierSideWhateverWasPressed)
{
    for (const bool right : {true, false}) {
        Start(1);
        const int heavier = Heavier();
        const QImage level = Table.Picture();
        Press(right ? heavier : 1 - heavier, true);
        // the plate of the heavier side goes down, so the row above it holds no brass any more
        const QPoint plate = At({heavier == 0 ? 164.0 : 456.0, 303});
        const QRgb before = level.pixel(plate);
        EXPECT_TRUE(Stage::Until([&] { return Table.Picture().pixel(plate) != before; }));
    }
}

TEST_F(ScaleTip, AWrongPressTakesOneAwayAndTellsSo)
{
    Start(1);
    Press(Heavier(), true);
    ASSERT_TRUE(WaitForNext());
    Press(Heavier(), true);
    ASSERT_TRUE(WaitForNext());
    EXPECT_EQ(Table.Score(), 200 / 33);
    Press(1 - Heavier(), true);
    EXPECT_EQ(Described(), Word("Wrong"));
    EXPECT_EQ(Count("playsound wrong"), 1);
    EXPECT_EQ(Table.Score(), 100 / 33);
    Table.Key(Left);
    Table.Key(Right);
    Table.Click(Side(0));
    EXPECT_EQ(Table.Score(), 100 / 33) << "no key counts while the answer is told";
}

TEST_F(ScaleTip, HiddenItsClockStandsStill)
{
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
    EXPECT_EQ(Described(), Word("Right")) << "still told";
    ASSERT_TRUE(WaitForNext());
    seen += clock.elapsed();
    EXPECT_GE(seen, 495) << "[ms] for which the answer was in view";
    Press(1 - Heavier(), true);
    EXPECT_EQ(Described(), Word("Wrong"));
}

TEST_F(ScaleTip, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Press(Heavier(), true);
    ASSERT_TRUE(WaitForNext());
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(Described(), Word("TimeUp"));
    Table.Key(Arrow(Heavier()));
    Table.Click(Side(Heavier()));
    EXPECT_EQ(Table.Score(), 100 / 33);
    EXPECT_EQ(Count("gameover"), 0);
}

TEST_F(ScaleTip, BeforeStartNothingHappens)
{
    Table.Key(Left);
    Table.Click(Side(0));
    EXPECT_FALSE(Table.Picture().isNull());
    EXPECT_EQ(Table.Score(), 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_FALSE(Table.Picture().isNull());
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
    EXPECT_EQ(Told(), QStringLiteral("Left: %1 dots. Right: %2 dots.").arg(sides[0].First).arg(sides[1].First));
    Start(5);
    EXPECT_TRUE(Told().startsWith(QStringLiteral("Left: %1 + %2. Right: ").arg(sides[0].First).arg(sides[0].Second)))
        << qPrintable(Told());
    modMain::Language = QStringLiteral("1");
    Start(8);
    EXPECT_TRUE(Told().startsWith(QStringLiteral("Links: %1/%2. Rechts: ").arg(sides[0].First).arg(sides[0].Second)))
        << qPrintable(Told());
}

TEST_F(ScaleTip, ALevelOutOfRangePlaysAsTheNearest)
{
    Start(1);
    const QString first = Told();
    Start(8);
    const QString last = Told();
    Start(-3);
    EXPECT_EQ(Told(), first);
    Start(99);
    EXPECT_EQ(Told(), last);
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
        Stage::Turn(180);
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Press(1 - Heavier(), true);
        Stage::Turn(220);
        const QImage wrong = Table.Picture();
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
