#include "games/ninth-tile/NinthRules.h"
#include "shell/program/modMain.h"
#include "tests/games/stage/EveryChoiceGame.h"

namespace
{
constexpr int Enter = 13, Space = 32;
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;

class NinthTile : public KnownGame<NinthRules>
{
protected:
    NinthTile() : KnownGame("ninth-tile", NinthRules::Levels) {}

    int Offered() const override { return static_cast<int>(Known->Item().Offered.size()); }
    int RightOne() const override { return Known->Item().Right; }
    QPoint PlaceOf(int choice) const override
    {
        const int columns = Offered() == 6 ? 2 : 3;
        const double size = columns == 2 ? 88 : 79;
        const double step = size + (columns == 2 ? 14 : 11.5);
        const int row = choice / columns;
        const int inRow = std::min(columns, Offered() - row * columns);
        return Table.At({470 + (choice % columns - (inRow - 1) / 2.0) * step, 208 + (row - 1) * step});
    }
};
} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, NinthTile);

TEST_F(NinthTile, IsPlayedWithNumbersAlone)
{
    Start(1);
    for (int round = 1; round <= 3; ++round) {
        AnswerByKeys(RightOne());
        EXPECT_EQ(Table.Sounds("right"), round);
        EXPECT_EQ(Table.Description(), Table.Word("Right"));
        ASSERT_TRUE(UntilNext());
    }
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 300 / Known->Set().Count());
}

TEST_F(NinthTile, IsPlayedWithArrowsAndTheRing)
{
    Start(1); // three rows of two
    Table.Key(Right);
    for (const int key : {Enter, Space}) {
        for (int step = 0; step < 3; ++step) {
            Table.Key(Left);
            Table.Key(Up);
        }
        if (RightOne() % 2 == 1) Table.Key(Right);
        for (int row = 0; row < RightOne() / 2; ++row) Table.Key(Down);
        Table.Key(key);
        ExpectToFollow(RightOne());
        ASSERT_TRUE(UntilNext());
    }
    EXPECT_EQ(Table.Sounds("right"), 2);
}

TEST_F(NinthTile, AWrongAnswerNamesTheRightTile)
{
    Start(3);
    const QString fitting = QStringLiteral("%1: %2").arg(Table.Word("RightTile")).arg(RightOne() + 1);
    AnswerByKeys(WrongOne());
    EXPECT_EQ(Table.Name(), fitting);
}

TEST_F(NinthTile, EveryTileIsFoundByTheMouseAtEverySize)
{
    for (const int level : {1, 10}) {
        for (const QSize size : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
            Table.Resize(size);
            for (int choice = 0; choice < (level == 1 ? 6 : 8); ++choice) {
                Start(level);
                Table.Click(PlaceOf(choice));
                EXPECT_EQ(Table.Description(), Table.Word(choice == RightOne() ? "Right" : "Wrong"))
                    << size.width() << ' ' << choice;
            }
        }
    }
}

TEST_F(NinthTile, TellsTheWholeItemInWords)
{
    Start(9);
    EXPECT_EQ(Table.Name().count(u';'), 2) << qPrintable(Table.Name());
    EXPECT_TRUE(Table.Name().contains(QStringLiteral("?. 1: "))) << qPrintable(Table.Name());
    EXPECT_TRUE(Table.Name().contains(QStringLiteral(". 8: "))) << qPrintable(Table.Name());
    const QString english = Table.Name();
    modMain::Language = QStringLiteral("1");
    Table.Start(9);
    EXPECT_NE(Table.Name(), english);
}

TEST_F(NinthTile, TheOfferedTilesAreToldInDifferentWords)
{
    for (int level = 1; level <= NinthRules::Levels; ++level) {
        Start(level);
        QStringList tiles = Table.Name().split(QStringLiteral(". ")).mid(1);
        for (QString &tile : tiles) tile = tile.section(QStringLiteral(": "), 1);
        EXPECT_EQ(tiles.size(), Offered());
        EXPECT_EQ(tiles.removeDuplicates(), 0) << qPrintable(Table.Name());
    }
}

TEST_F(NinthTile, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name",    "Hint",        "Right",      "Wrong",     "RightTile", "TimeUp", "Points",
                       "Level",   "Heart",       "Drop",       "House",     "Arrow",     "Dome",   "Crown",
                       "Open",    "Striped",     "Dotted",     "Solid",     "Small",     "Medium", "Large",
                       "Upright", "TurnedRight", "UpsideDown", "TurnedLeft"});
}

TEST_F(NinthTile, PicturesDifferBetweenItemRightWrongAndTimeUp)
{
    ExpectPicturesToDiffer("ninth",
                           {{"first", {620, 420}, 1, false},
                            {"middle", {620, 420}, 5, false},
                            {"size", {620, 420}, 7, false},
                            {"last", {620, 420}, 10, false},
                            {"dark", {620, 420}, 9, true},
                            {"dark5", {620, 420}, 5, true},
                            {"large", {1600, 1000}, 8, false},
                            {"small", {380, 290}, 10, false}},
                           600);
}
