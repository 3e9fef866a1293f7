#include "games/odd-stone/StoneRules.h"
#include "tests/games/stage/EveryChoiceGame.h"

#include <QTest>

namespace
{
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
constexpr int Enter = 13, Space = 32;

class OddStone : public KnownGame<StoneRules>
{
protected:
    OddStone() : KnownGame("odd-stone", StoneRules::Levels) {}

    int Offered() const override { return static_cast<int>(Known->Item().Stones.size()); }
    int RightOne() const override { return Known->Item().Odd; }
    QPoint PlaceOf(int stone) const override
    {
        const StoneItem &item = Known->Item();
        const double height = 304.0 / item.Rows;
        const double width = std::min(564.0 / item.Columns, 1.3 * height);
        const int row = stone / item.Columns;
        return Table.At({310 + width * (stone % item.Columns + 0.5 - item.Columns / 2.0),
                         208 + height * (row + 0.5 - item.Rows / 2.0)});
    }
    void MoveRingTo(int stone)
    {
        if (m_Ring < 0) {
            Table.Key(Down); // shows it
            m_Ring = 0;
        }
        const int columns = Known->Item().Columns;
        for (; m_Ring % columns < stone % columns; ++m_Ring) Table.Key(Right);
        for (; m_Ring % columns > stone % columns; --m_Ring) Table.Key(Left);
        for (; m_Ring < stone; m_Ring += columns) Table.Key(Down);
        for (; m_Ring > stone; m_Ring -= columns) Table.Key(Up);
    }
    void PressKeys(int stone) override
    {
        MoveRingTo(stone);
        m_Swaps = !m_Swaps;
        Table.Key(m_Swaps ? Enter : Space);
    }

private:
    int m_Ring = -1; // -1 before an arrow has shown it on the first stone
    bool m_Swaps = false;
};
} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, OddStone);

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
    Table.Key(u'1' + RightOne());
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
    const QPoint odd = PlaceOf(RightOne());
    const int size = qRound(304.0 / Known->Item().Rows);
    const QRect around(odd - QPoint(size / 2, size / 2), QSize(size, size));
    const QImage before = Table.Picture().copy(around);
    AnswerByKeys(WrongOne());
    EXPECT_NE(Table.Picture().copy(around), before) << "a ring and a tick";
}

TEST_F(OddStone, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name",     "Hint",      "Right",      "Wrong",  "Stones", "Stone",   "Circle", "Square",
                       "Triangle", "Hexagon",   "Pentagon",   "Oval",   "Plain",  "Striped", "Dotted", "Ringed",
                       "Small",    "LeansLeft", "LeansRight", "Points", "Level",  "TimeUp"});
}

TEST_F(OddStone, PicturesDifferBetweenItemRightWrongAndTimeUp)
{
    ExpectPicturesToDiffer("stone",
                           {{"first", {620, 420}, 1, false},
                            {"close", {620, 420}, 4, true},
                            {"middle", {620, 420}, 5, false},
                            {"plain", {620, 420}, 8, true},
                            {"last", {620, 420}, 9, false},
                            {"large", {1600, 1000}, 9, true},
                            {"large-middle", {1600, 1000}, 5, false},
                            {"small", {380, 290}, 3, true}},
                           120);
}
