#include "games/quiet-rule/QuietRules.h"
#include "shell/program/modMain.h"
#include "tests/games/stage/KnownGame.h"

#include <QTest>
#include <QTimer>

namespace
{
constexpr int Enter = 13, Space = 32;
constexpr int Left = 37, Right = 39;

class QuietRule : public KnownGame<QuietRules>
{
protected:
    QuietRule() : KnownGame("quiet-rule") {}

    int RightOne() const { return Known->RightPile(); }
    int WrongOne() const { return (RightOne() + 1) % QuietRules::Piles; }
    /// What both sides think of an answer: the game has been told already.
    void Follow(int pile)
    {
        Known->Judge(pile);
        EXPECT_EQ(Table.Score(), Known->Set().Points());
        if (!Known->Set().Over()) Known->Next();
    }
    void AnswerByKey(int pile)
    {
        Table.Key('1' + pile);
        Follow(pile);
    }
    /// A point of a pile; 0.5, 0.5 is its middle.
    QPoint Place(int pile, double across = 0.5, double down = 0.5) const
    {
        return Table.At({35 + pile * 146 + 112 * across, 58 + 132 * down});
    }
};
} // namespace

TEST_F(QuietRule, IsPlayedWithNumbersAloneOverATurnOfTheRule)
{
    Start(7);
    const CardTrait first = Known->Rule();
    int cards = 0;
    while (Known->Rule() == first) {
        AnswerByKey(RightOne());
        EXPECT_EQ(Table.Sounds("right"), ++cards);
        EXPECT_EQ(Table.Description(), Table.Word("Right"));
        ASSERT_TRUE(UntilNext());
    }
    const int oldPile = Known->PileBy(first);
    AnswerByKey(oldPile);
    EXPECT_EQ(Table.Description(), Table.Word("Wrong")) << "the old rule does not count any more";
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100 * (cards + 1) / Known->Set().Count());
}

TEST_F(QuietRule, IsPlayedWithArrowsAndTheRing)
{
    Start(1);
    Table.Key(Right);
    for (const int key : {Enter, Space}) {
        for (int step = 0; step < 3; ++step) Table.Key(Left);
        for (int pile = 0; pile < RightOne(); ++pile) Table.Key(Right);
        Table.Key(key);
        Follow(RightOne());
        ASSERT_TRUE(UntilNext());
    }
    EXPECT_EQ(Table.Sounds("right"), 2);
}

TEST_F(QuietRule, IsPlayedWithTheMouseAlone)
{
    Start(4);
    for (int card = 1; card <= 3; ++card) {
        const int right = RightOne();
        Table.Click(Place(right));
        Follow(right);
        EXPECT_EQ(Table.Sounds("right"), card);
        ASSERT_TRUE(UntilNext());
    }
}

TEST_F(QuietRule, EveryPileIsFoundByTheMouseAtEverySize)
{
    for (const QSize size : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
        Table.Resize(size);
        for (int pile = 0; pile < QuietRules::Piles; ++pile) {
            for (const double part : {0.05, 0.5, 0.95}) {
                Start(7);
                Table.Click(Place(pile, part, part));
                EXPECT_EQ(Table.Description(), Table.Word(pile == RightOne() ? "Right" : "Wrong"))
                    << size.width() << ' ' << pile;
            }
        }
        Start(7);
        Table.Click(Place(0, 0.5, 1.3));
        EXPECT_EQ(Table.Description(), Table.Word("Hint")) << "beside the piles nothing happens";
    }
}

TEST_F(QuietRule, AWrongAnswerShowsWhatWasRightAndTakesNoOther)
{
    Start(3);
    const QImage before = Table.Picture();
    AnswerByKey(WrongOne());
    EXPECT_EQ(Table.Sounds("wrong"), 1);
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_TRUE(Table.Name().startsWith(Table.Word("RightPile"))) << qPrintable(Table.Name());
    EXPECT_NE(Table.Picture(), before);
    for (int key = '1'; key <= '4'; ++key) Table.Key(key);
    Table.Click(Place(0));
    EXPECT_EQ(Table.Sounds("right") + Table.Sounds("wrong"), 1) << "nothing counts while the answer is told";
    ASSERT_TRUE(UntilNext());
    AnswerByKey(RightOne());
    EXPECT_EQ(Table.Sounds("right"), 1);
}

// The tick on the right pile, as a spot of its colour in the pile's corner.
TEST_F(QuietRule, AtTheLastLevelTheRightPileIsSeenForAMomentOnly)
{
    const auto showsTick = [this](int pile) {
        return Table.Picture().pixelColor(Place(pile, 0.946, -0.049)) == QColor(0x17, 0x80, 0x50);
    };
    Table.Resize({620, 420});
    Table.SetPace(100);
    for (const bool isLast : {false, true}) {
        Start(isLast ? 7 : 3);
        const int right = RightOne();
        EXPECT_FALSE(showsTick(right));
        Table.Key('1' + WrongOne());
        EXPECT_TRUE(showsTick(right));
        bool isGoneBeforeTheEnd = false;
        EXPECT_TRUE(Stage::Until([&] {
            const bool isTold = Table.Description() == Table.Word("Wrong");
            isGoneBeforeTheEnd = isGoneBeforeTheEnd || (isTold && !showsTick(right));
            return !isTold;
        }));
        EXPECT_EQ(isGoneBeforeTheEnd, isLast);
    }
}

TEST_F(QuietRule, TheTellingStandsStillWhileHidden)
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

TEST_F(QuietRule, AWholeSetEndsTheSessionAtOnceAndOnceAndNothingCountsAfterwards)
{
    Start(7);
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

    const auto calls = Table.Framework->Calls.size();
    for (const int key : {'1' + RightOne(), int{Enter}, int{Space}, int{Left}}) Table.Key(key);
    Table.Click(Place(RightOne()));
    EXPECT_EQ(Table.Score(), atTheEnd);
    EXPECT_EQ(Table.Framework->Calls.size(), calls);
}

TEST_F(QuietRule, AfterTimeUpNothingCountsAndThePointsStand)
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

TEST_F(QuietRule, TellsCardAndPilesInWordsAndNeverTheRule)
{
    for (int level = 1; level <= QuietRules::Levels; ++level) {
        Start(level);
        const QStringList parts = Table.Name().split(QStringLiteral(". "));
        ASSERT_EQ(parts.size(), 5) << qPrintable(Table.Name());
        for (int pile = 1; pile <= QuietRules::Piles; ++pile)
            EXPECT_TRUE(parts[pile].startsWith(QStringLiteral("%1: ").arg(pile))) << qPrintable(parts[pile]);
        EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    }
    const QString english = Table.Name();
    modMain::Language = QStringLiteral("1");
    Table.Start(7);
    EXPECT_NE(Table.Name(), english);
}

TEST_F(QuietRule, StandsStillWhileNothingMoves)
{
    Start(1);
    EXPECT_TRUE(Table.UntilStill());
    AnswerByKey(RightOne());
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
}

TEST_F(QuietRule, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name",    "Hint",    "Right",   "Wrong",   "RightPile", "ItGoesBy", "TimeUp",
                       "Points",  "Level",   "ByShape", "ByCount", "ByFill",    "ByEdge",   "Star",
                       "Flower",  "Diamond", "Moon",    "Open",    "Striped",   "Dotted",   "Solid",
                       "Rounded", "Cut",     "Scooped", "Stamped"});
}

TEST_F(QuietRule, PicturesDifferBetweenCardRightWrongAndTimeUp)
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
         {Row{"first", {620, 420}, 1, false}, Row{"middle", {620, 420}, 4, false}, Row{"last", {620, 420}, 7, false},
          Row{"dark", {620, 420}, 7, true}, Row{"dark1", {620, 420}, 2, true}, Row{"large", {1600, 1000}, 5, false},
          Row{"small", {380, 290}, 7, false}}) {
        const QString name = QStringLiteral("quiet-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Table.Resize(row.size);
        Start(row.level);
        const QImage fresh = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-card"));
        AnswerByKey(RightOne());
        Stage::Settle(200);
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Table.Key(Right);
        QTest::mouseMove(Table.Game->Control(), Place(WrongOne()));
        Table.Keep(name + QStringLiteral("-3-ring"));
        AnswerByKey(WrongOne());
        Stage::Settle(250);
        const QImage mistake = Table.Picture();
        Table.Keep(name + QStringLiteral("-4-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, mistake);
        EXPECT_NE(mistake, Table.Picture());
        Table.Keep(name + QStringLiteral("-5-timeup"));
    }
}
