#include "games/ninth-tile/NinthRules.h"
#include "shell/program/modMain.h"
#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

namespace
{
const QString Folder = QStringLiteral(NOGGLE_DIST_FOLDER "ninth-tile/");
constexpr std::uint32_t Seed = 7;
constexpr int Enter = 13, Space = 32;
constexpr int Left = 37, Up = 38, Right = 39, Down = 40;

/// The game with a known seed, and beside it the same rules, which tell what is right.
class NinthTile : public testing::Test
{
protected:
    Stage Table{QStringLiteral("NinthTile.GameArea"), WithSeed(Folder, Seed)};
    std::unique_ptr<NinthRules> Known;

    void Start(int level)
    {
        Known = std::make_unique<NinthRules>(level, Seed);
        Table.Start(level);
    }
    int RightOne() const { return Known->Item().Right; }
    int WrongOne() const { return (RightOne() + 1) % Offered(); }
    int Offered() const { return static_cast<int>(Known->Item().Offered.size()); }
    QString Told() const { return Table.Game->Control()->accessibleName(); }
    QString Verdict() const { return Table.Game->Control()->accessibleDescription(); }
    QString Word(const char *name) const { return Table.Framework->LangString(QLatin1String(name)); }
    int Sounds(const char *name) const
    {
        return Table.Framework->Count(QStringLiteral("playsound ") + QLatin1String(name));
    }
    bool UntilNext()
    {
        return Stage::Until([this] { return Verdict() == Word("Hint"); });
    }
    /// What both sides think of an answer: the game has been told already.
    void Follow(int choice)
    {
        Known->Answer(choice);
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
        const QPointF design(470 + (choice % columns - (inRow - 1) / 2.0) * step, 208 + (row - 1) * step);
        const QSize whole = Table.Game->Control()->size();
        const double scale = std::min(whole.width() / 620.0, whole.height() / 420.0);
        return (QPointF((whole.width() - 620 * scale) / 2, (whole.height() - 420 * scale) / 2) + design * scale)
            .toPoint();
    }
};
} // namespace

TEST_F(NinthTile, IsPlayedWithNumbersAlone)
{
    Start(1);
    for (int round = 1; round <= 3; ++round) {
        AnswerByKey(RightOne());
        EXPECT_EQ(Sounds("right"), round);
        EXPECT_EQ(Verdict(), Word("Right"));
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
    EXPECT_EQ(Sounds("right"), 2);
}

TEST_F(NinthTile, IsPlayedWithTheMouseAlone)
{
    Start(10);
    for (int round = 1; round <= 2; ++round) {
        const int right = RightOne();
        Table.Click(Place(right));
        Follow(right);
        EXPECT_EQ(Sounds("right"), round);
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
                EXPECT_EQ(Verdict(), Word(choice == RightOne() ? "Right" : "Wrong")) << size.width() << ' ' << choice;
            }
        }
    }
}

TEST_F(NinthTile, AWrongAnswerShowsWhatWasRightAndTakesNoOther)
{
    Start(3);
    const QImage before = Table.Picture();
    const QString fitting = QStringLiteral("%1: %2").arg(Word("RightTile")).arg(RightOne() + 1);
    AnswerByKey(WrongOne());
    EXPECT_EQ(Told(), fitting);
    EXPECT_EQ(Sounds("wrong"), 1);
    EXPECT_EQ(Verdict(), Word("Wrong"));
    EXPECT_NE(Table.Picture(), before);
    for (int key = '1'; key <= '6'; ++key) Table.Key(key);
    Table.Click(Place(0));
    EXPECT_EQ(Sounds("right") + Sounds("wrong"), 1) << "nothing counts while the answer is told";
    ASSERT_TRUE(UntilNext());
    AnswerByKey(RightOne());
    EXPECT_EQ(Sounds("right"), 1);
}

TEST_F(NinthTile, TheTellingStandsStillWhileHidden)
{
    Start(1);
    AnswerByKey(RightOne());
    Table.Game->SetVisible(false);
    EXPECT_TRUE(Table.UntilStill());
    Stage::Turn(1200); // longer than a right answer is told
    EXPECT_EQ(Verdict(), Word("Right"));
    Table.Key('1');
    EXPECT_EQ(Sounds("right") + Sounds("wrong"), 1);
    Table.Game->SetVisible(true);
    EXPECT_TRUE(UntilNext());
}

TEST_F(NinthTile, AWholeSetEndsTheSessionAtOnceAndOnceAndNothingCountsAfterwards)
{
    Start(10);
    int atTheEnd = -1;
    Table.Framework->GameOver = [&] { atTheEnd = Table.Score(); }; // asked for inside, before anything closes
    while (!Known->Set().Over()) {
        EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
        ASSERT_TRUE(UntilNext());
        AnswerByKey(RightOne());
    }
    EXPECT_EQ(atTheEnd, Known->Set().Points());
    EXPECT_GT(atTheEnd, 120);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Sounds("done"), 1);
    EXPECT_TRUE(Table.UntilStill());

    const int calls = static_cast<int>(Table.Framework->Calls.size());
    for (const int key : {'1' + RightOne(), int{Enter}, int{Space}, int{Down}}) Table.Key(key);
    Table.Click(Place(RightOne()));
    EXPECT_EQ(Table.Score(), atTheEnd);
    EXPECT_EQ(Table.Framework->Calls.size(), calls);
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 1);
}

TEST_F(NinthTile, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    AnswerByKey(RightOne());
    const int points = Table.Score();
    EXPECT_GT(points, 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(Verdict(), Word("TimeUp"));
    EXPECT_TRUE(Table.UntilStill());
    Table.Key('1' + RightOne());
    Table.Click(Place(RightOne()));
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
}

TEST_F(NinthTile, BeforeStartNothingHappens)
{
    Table.Key('1');
    Table.Key(Enter);
    Table.Click({400, 200});
    EXPECT_FALSE(Table.Picture().isNull());
    EXPECT_EQ(Table.Score(), 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_FALSE(Table.Picture().isNull());
}

TEST_F(NinthTile, ALevelOutOfRangePlaysAsTheNearest)
{
    for (const auto &[asked, played] : {std::pair{-5, 1}, {0, 1}, {99, 10}}) {
        Start(played);
        const QString expected = Told();
        Table.Start(asked);
        EXPECT_EQ(Told(), expected) << asked;
        AnswerByKey(RightOne());
    }
}

TEST_F(NinthTile, TellsTheWholeItemInWords)
{
    Start(9);
    EXPECT_EQ(Told().count(u';'), 2) << qPrintable(Told());
    EXPECT_TRUE(Told().contains(QStringLiteral("?. 1: "))) << qPrintable(Told());
    EXPECT_TRUE(Told().contains(QStringLiteral(". 8: "))) << qPrintable(Told());
    const QString english = Told();
    modMain::Language = QStringLiteral("1");
    Table.Start(9);
    EXPECT_NE(Told(), english);
}

TEST_F(NinthTile, TheOfferedTilesAreToldInDifferentWords)
{
    for (int level = 1; level <= NinthRules::Levels; ++level) {
        Start(level);
        QStringList tiles = Told().split(QStringLiteral(". ")).mid(1);
        for (QString &tile : tiles) tile = tile.section(QStringLiteral(": "), 1);
        EXPECT_EQ(tiles.size(), Offered());
        EXPECT_EQ(tiles.removeDuplicates(), 0) << qPrintable(Told());
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
    const int rest = qEnvironmentVariableIsSet("NOGGLE_PICTURES") ? 600 : 20; // [ms], until what moves has arrived
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
        Stage::Turn(rest);
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Table.Key(Down);
        QTest::mouseMove(Table.Game->Control(), Place(WrongOne()));
        Table.Keep(name + QStringLiteral("-3-ring"));
        AnswerByKey(WrongOne());
        Stage::Turn(rest);
        const QImage mistake = Table.Picture();
        Table.Keep(name + QStringLiteral("-4-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, mistake);
        EXPECT_NE(mistake, Table.Picture());
        Table.Keep(name + QStringLiteral("-5-timeup"));
    }
}
