#include "games/ninth-tile/NinthRules.h"
#include "shell/program/modMain.h"
#include "tests/games/stage/KnownGame.h"

#include <QTest>
#include <QTimer>

namespace
{
constexpr int Enter = 13, Space = 32;
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;

class NinthTile : public KnownGame<NinthRules>
{
protected:
    NinthTile() : KnownGame("ninth-tile") {}

    int RightOne() const { return Known->Item().Right; }
    int WrongOne() const { return (RightOne() + 1) % Offered(); }
    int Offered() const { return static_cast<int>(Known->Item().Offered.size()); }
    /// What both sides think of an answer: the game has been told already.
    void Follow(int choice)
    {
        Known->Judge(choice);
        EXPECT_EQ(Table.Score(), Known->Set().Points());
        if (!Known->Set().Over()) Known->Next();
    }
    void AnswerByKey(int choice)
    {
        Table.Key('1' + choice);
        Follow(choice);
    }
    /// The middle of an offered tile.
    QPoint Place(int choice) const
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

TEST_F(NinthTile, IsPlayedWithNumbersAlone)
{
    Start(1);
    for (int round = 1; round <= 3; ++round) {
        AnswerByKey(RightOne());
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
        Follow(RightOne());
        ASSERT_TRUE(UntilNext());
    }
    EXPECT_EQ(Table.Sounds("right"), 2);
}

TEST_F(NinthTile, IsPlayedWithTheMouseAlone)
{
    Start(10);
    for (int round = 1; round <= 2; ++round) {
        const int right = RightOne();
        Table.Click(Place(right));
        Follow(right);
        EXPECT_EQ(Table.Sounds("right"), round);
        ASSERT_TRUE(UntilNext());
    }
}

TEST_F(NinthTile, EveryTileIsFoundByTheMouseAtEverySize)
{
    for (const int level : {1, 10}) {
        for (const QSize size : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
            Table.Resize(size);
            for (int choice = 0; choice < (level == 1 ? 6 : 8); ++choice) {
                Start(level);
                Table.Click(Place(choice));
                EXPECT_EQ(Table.Description(), Table.Word(choice == RightOne() ? "Right" : "Wrong"))
                    << size.width() << ' ' << choice;
            }
        }
    }
}

TEST_F(NinthTile, AWrongAnswerShowsWhatWasRightAndTakesNoOther)
{
    Start(3);
    const QImage before = Table.Picture();
    const QString fitting = QStringLiteral("%1: %2").arg(Table.Word("RightTile")).arg(RightOne() + 1);
    AnswerByKey(WrongOne());
    EXPECT_EQ(Table.Name(), fitting);
    EXPECT_EQ(Table.Sounds("wrong"), 1);
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_NE(Table.Picture(), before);
    for (int key = '1'; key <= '6'; ++key) Table.Key(key);
    Table.Click(Place(0));
    EXPECT_EQ(Table.Sounds("right") + Table.Sounds("wrong"), 1) << "nothing counts while the answer is told";
    ASSERT_TRUE(UntilNext());
    AnswerByKey(RightOne());
    EXPECT_EQ(Table.Sounds("right"), 1);
}

TEST_F(NinthTile, TheTellingStandsStillWhileHidden)
{
    Start(1);
    AnswerByKey(RightOne());
    Table.Game->SetVisible(false);
    EXPECT_TRUE(Table.UntilStill());
    Stage::Turn(200); // longer than a right answer is told
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
    Table.Key('1');
    EXPECT_EQ(Table.Sounds("right") + Table.Sounds("wrong"), 1);
    Table.Game->SetVisible(true);
    EXPECT_TRUE(UntilNext());
}

TEST_F(NinthTile, AWholeSetEndsTheSessionAtOnceAndOnceAndNothingCountsAfterwards)
{
    Start(10);
    int atTheEnd = -1;
    Table.Framework->GameOver = [&] { atTheEnd = Table.Score(); }; // asked for inside, before anything closes
    while (!Known->Set().Over()) {
        EXPECT_EQ(Table.Count("gameover"), 0);
        ASSERT_TRUE(UntilNext());
        AnswerByKey(RightOne());
    }
    EXPECT_EQ(atTheEnd, Known->Set().Points());
    EXPECT_GT(atTheEnd, 120);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Table.Sounds("done"), 1);
    EXPECT_TRUE(Table.UntilStill());

    const int calls = static_cast<int>(Table.Framework->Calls.size());
    for (const int key : {'1' + RightOne(), int{Enter}, int{Space}, int{Down}}) Table.Key(key);
    Table.Click(Place(RightOne()));
    EXPECT_EQ(Table.Score(), atTheEnd);
    EXPECT_EQ(Table.Framework->Calls.size(), calls);
    EXPECT_EQ(Table.Count("gameover"), 1);
}

TEST_F(NinthTile, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    AnswerByKey(RightOne());
    const int points = Table.Score();
    EXPECT_GT(points, 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(Table.Description(), Table.Word("TimeUp"));
    EXPECT_TRUE(Table.UntilStill());
    Table.Key('1' + RightOne());
    Table.Click(Place(RightOne()));
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Count("gameover"), 0);
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

TEST_F(NinthTile, StandsStillWhileNothingMoves)
{
    Start(1);
    EXPECT_TRUE(Table.UntilStill());
    AnswerByKey(RightOne());
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
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
    struct Row
    {
        const char *name;
        QSize size;
        int level;
        bool dark;
    };
    SetPaceOfPictures();
    for (const Row &row :
         {Row{"first", {620, 420}, 1, false}, Row{"middle", {620, 420}, 5, false}, Row{"size", {620, 420}, 7, false},
          Row{"last", {620, 420}, 10, false}, Row{"dark", {620, 420}, 9, true}, Row{"dark5", {620, 420}, 5, true},
          Row{"large", {1600, 1000}, 8, false}, Row{"small", {380, 290}, 10, false}}) {
        const QString name = QStringLiteral("ninth-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Table.Resize(row.size);
        Start(row.level);
        const QImage fresh = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-item"));
        AnswerByKey(RightOne());
        Stage::Settle(600);
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Table.Key(Down);
        QTest::mouseMove(Table.Game->Control(), Place(WrongOne()));
        Table.Keep(name + QStringLiteral("-3-ring"));
        AnswerByKey(WrongOne());
        Stage::Settle(600);
        const QImage mistake = Table.Picture();
        Table.Keep(name + QStringLiteral("-4-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, mistake);
        EXPECT_NE(mistake, Table.Picture());
        Table.Keep(name + QStringLiteral("-5-timeup"));
    }
}
