#include "games/odd-stone/StoneRules.h"
#include "tests/games/stage/KnownGame.h"

#include "shell/program/modMain.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

namespace
{
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int Enter = 13, Space = 32;

class OddStone : public KnownGame<StoneRules>
{
protected:
    OddStone() : KnownGame("odd-stone") {}

    int Ring = -1; // -1 before an arrow has shown it on the first stone

    int Odd() const { return Known->Item().Odd; }
    int AnyOther() const { return Odd() == 0 ? 1 : 0; }
    QPoint PlaceOf(int stone) const
    {
        const StoneItem &item = Known->Item();
        const double height = 304.0 / item.Rows;
        const double width = std::min(564.0 / item.Columns, 1.3 * height);
        return Table.At({310 + width * (stone % item.Columns + 0.5 - item.Columns / 2.0),
                         208 + height * (stone / item.Columns + 0.5 - item.Rows / 2.0)});
    }
    void Click(int stone)
    {
        Table.Click(PlaceOf(stone));
        Known->Judge(stone);
        Known->Next();
    }
    void MoveRingTo(int stone)
    {
        if (Ring < 0) {
            Table.Key(Down); // shows it
            Ring = 0;
        }
        const int columns = Known->Item().Columns;
        for (; Ring % columns < stone % columns; ++Ring) Table.Key(Right);
        for (; Ring % columns > stone % columns; --Ring) Table.Key(Left);
        for (; Ring < stone; Ring += columns) Table.Key(Down);
        for (; Ring > stone; Ring -= columns) Table.Key(Up);
    }
    void PressByKeys(int stone, int key)
    {
        MoveRingTo(stone);
        Table.Key(key);
        Known->Judge(stone);
        Known->Next();
    }
};
} // namespace

TEST_F(OddStone, AWholeSetIsPlayedWithTheKeysAloneAndEndsOnce)
{
    constexpr int Most = 9; // stones, and the shortest set
    int shown = -1;
    Table.Framework->GameOver = [&] { shown = Table.Score(); }; // what the shell asks inside
    Start(Most);
    const int count = Known->Set().Count();
    for (int round = 1; round <= count; ++round) {
        ASSERT_TRUE(UntilNext());
        EXPECT_EQ(Table.Count("gameover"), 0);
        PressByKeys(Odd(), round % 2 == 0 ? Enter : Space);
        ASSERT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100 * round / count);
    }
    EXPECT_EQ(Table.Count("gameover"), 1) << "before any picture of the end";
    EXPECT_EQ(shown, 125);
    EXPECT_EQ(Table.Count("playsound done"), 1);
    const int calls = Table.Framework->Count({});
    EXPECT_TRUE(Table.UntilStill());
    Table.Key(Enter);
    Table.Click(PlaceOf(5));
    EXPECT_EQ(Table.Framework->Count({}), calls) << "nothing counts after the end";
    EXPECT_EQ(Table.Score(), shown);
}

TEST_F(OddStone, IsPlayedWithTheMouseAloneAtEverySize)
{
    int level = 3;
    for (const QSize place : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
        Table.Resize(place);
        Start(level++);
        for (int round = 0; round < 2; ++round) {
            ASSERT_TRUE(UntilNext());
            Click(Odd());
            EXPECT_EQ(Table.Description(), Table.Word("Right")) << place.width();
        }
        EXPECT_EQ(Table.Score(), Known->Set().Points()) << place.width();
        EXPECT_GT(Table.Score(), 0);
    }
}

TEST_F(OddStone, DigitsPressEightStonesButNoneOfTwelve)
{
    Start(2);
    for (int digit = 1; digit <= 9; ++digit) {
        Table.Key(u'0' + digit);
        Table.Key(96 + digit);
    }
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    Start(1);
    Table.Key(u'9');
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    Table.Key(u'1' + Odd());
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
}

TEST_F(OddStone, TheRingTellsWhatLiesUnderIt)
{
    Start(6);
    EXPECT_EQ(Table.Name(), QStringLiteral("30 stones in 5 rows"));
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    const StoneItem &item = Known->Item();
    static constexpr std::array Shapes{"circle", "square", "triangle", "hexagon", "pentagon", "oval"};
    for (int stone = 0; stone < 30; ++stone) {
        MoveRingTo(stone);
        const Stone &seen = item.Stones[static_cast<std::size_t>(stone)];
        EXPECT_TRUE(Table.Description().startsWith(QStringLiteral("%1, %2: ").arg(stone % 6 + 1).arg(stone / 6 + 1)))
            << qPrintable(Table.Description());
        EXPECT_TRUE(Table.Description().contains(QLatin1String(Shapes.at(static_cast<std::size_t>(seen.Shape)))));
        EXPECT_EQ(Table.Description().contains(u"small"), seen.Size < 100);
        EXPECT_EQ(Table.Description().contains(u"leans to the right"), seen.Tilt > 0);
    }
}

TEST_F(OddStone, AClickBesideTheStonesDoesNothing)
{
    Start(1);
    Table.Click(Table.At({310, 30}));
    Table.Click(Table.At({310, 400}));
    QTest::mouseClick(Table.Game->Control(), Qt::RightButton, {}, PlaceOf(0));
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
}

TEST_F(OddStone, AWrongPressShowsTheRightStone)
{
    Start(5);
    const QPoint odd = PlaceOf(Odd());
    const int size = qRound(304.0 / Known->Item().Rows);
    const QRect around(odd - QPoint(size / 2, size / 2), QSize(size, size));
    const QImage before = Table.Picture().copy(around);
    Click(AnyOther());
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Count("playsound wrong"), 1);
    EXPECT_EQ(Table.Score(), 0);
    EXPECT_NE(Table.Picture().copy(around), before) << "a ring and a tick";
    Table.Key(Down);
    Table.Key(Enter);
    Table.Click(odd);
    EXPECT_EQ(Table.Count("progress"), 1) << "no key counts while the answer is told";
}

TEST_F(OddStone, HiddenItsClockStandsStill)
{
    Table.SetPace(100);
    Start(1);
    QElapsedTimer clock;
    clock.start();
    Click(Odd());
    Table.Game->SetVisible(false);
    qint64 seen = clock.elapsed();
    Stage::Turn(700); // longer than a right answer is told
    Table.Key(u'1');
    Table.Game->SetVisible(true);
    clock.restart();
    EXPECT_EQ(Table.Description(), Table.Word("Right")) << "still told";
    ASSERT_TRUE(UntilNext());
    seen += clock.elapsed();
    EXPECT_GE(seen, 395) << "[ms] for which the answer was in view";
    Click(AnyOther());
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
}

TEST_F(OddStone, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Click(Odd());
    ASSERT_TRUE(UntilNext());
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(Table.Description(), Table.Word("TimeUp"));
    Table.Key(u'1' + Odd());
    Table.Click(PlaceOf(Odd()));
    EXPECT_EQ(Table.Score(), 1000 / 295);
    EXPECT_EQ(Table.Count("gameover"), 0);
}

TEST_F(OddStone, StandsStillWhileNothingMoves)
{
    Start(1);
    Click(Odd());
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
}

TEST_F(OddStone, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name",     "Hint",      "Right",      "Wrong",  "Stones", "Stone",   "Circle", "Square",
                       "Triangle", "Hexagon",   "Pentagon",   "Oval",   "Plain",  "Striped", "Dotted", "Ringed",
                       "Small",    "LeansLeft", "LeansRight", "Points", "Level",  "TimeUp"});
}

TEST_F(OddStone, PicturesDifferBetweenRightWrongAndTimeUp)
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
         {Row{"first", {620, 420}, 1, false}, Row{"close", {620, 420}, 4, true}, Row{"middle", {620, 420}, 5, false},
          Row{"plain", {620, 420}, 8, true}, Row{"last", {620, 420}, 9, false}, Row{"large", {1600, 1000}, 9, true},
          Row{"large-middle", {1600, 1000}, 5, false}, Row{"small", {380, 290}, 3, true}}) {
        const QString name = QStringLiteral("stone-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Table.Resize(row.size);
        Start(row.level);
        Table.Key(Right);
        const QImage fresh = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-first"));
        Click(Odd());
        Stage::Settle(80);
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Click(AnyOther());
        Stage::Settle(120);
        const QImage wrong = Table.Picture();
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
