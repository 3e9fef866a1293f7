#include "games/quiet-rule/QuietRules.h"
#include "shell/program/modMain.h"
#include "tests/games/stage/EveryChoiceGame.h"

namespace
{
constexpr int Enter = 13, Space = 32;
constexpr int Left = 37, Right = 39;

class QuietRule : public KnownGame<QuietRules>
{
protected:
    QuietRule() : KnownGame("quiet-rule", QuietRules::Levels) {}

    int Offered() const override { return QuietRules::Piles; }
    int RightOne() const override { return Known->RightPile(); }
    QPoint PlaceOf(int pile) const override { return PointOf(pile, 0.5, 0.5); }
    /// A point of a pile, as parts of its width and height.
    QPoint PointOf(int pile, double across, double down) const
    {
        return Table.At({35 + pile * 146 + 112 * across, 58 + 132 * down});
    }
};
} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, QuietRule);

TEST_F(QuietRule, IsPlayedWithNumbersAloneOverATurnOfTheRule)
{
    Start(7);
    const CardTrait first = Known->Rule();
    int cards = 0;
    while (Known->Rule() == first) {
        AnswerByKeys(RightOne());
        EXPECT_EQ(Table.Sounds("right"), ++cards);
        EXPECT_EQ(Table.Description(), Table.Word("Right"));
        ASSERT_TRUE(UntilNext());
    }
    const int oldPile = Known->PileBy(first);
    AnswerByKeys(oldPile);
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
        ExpectToFollow(RightOne());
        ASSERT_TRUE(UntilNext());
    }
    EXPECT_EQ(Table.Sounds("right"), 2);
}

TEST_F(QuietRule, EveryPileIsFoundByTheMouseAtEverySize)
{
    for (const QSize size : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
        Table.Resize(size);
        for (int pile = 0; pile < QuietRules::Piles; ++pile) {
            for (const double part : {0.05, 0.5, 0.95}) {
                Start(7);
                Table.Click(PointOf(pile, part, part));
                EXPECT_EQ(Table.Description(), Table.Word(pile == RightOne() ? "Right" : "Wrong"))
                    << size.width() << ' ' << pile;
            }
        }
        Start(7);
        Table.Click(PointOf(0, 0.5, 1.3));
        EXPECT_EQ(Table.Description(), Table.Word("Hint")) << "beside the piles nothing happens";
    }
}

TEST_F(QuietRule, AWrongAnswerNamesTheRightPile)
{
    Start(3);
    const QString right = QStringLiteral("%1: %2").arg(Table.Word("RightPile")).arg(RightOne() + 1);
    AnswerByKeys(WrongOne());
    EXPECT_EQ(Table.Name(), right);
}

// The tick on the right pile, as a spot of its colour in the pile's corner.
TEST_F(QuietRule, AtTheLastLevelTheRightPileIsSeenForAMomentOnly)
{
    const auto showsTick = [this](int pile) {
        return Table.Picture().pixelColor(PointOf(pile, 0.946, -0.049)) == QColor(0x17, 0x80, 0x50);
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

TEST_F(QuietRule, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name",    "Hint",    "Right",   "Wrong",   "RightPile", "ItGoesBy", "TimeUp",
                       "Points",  "Level",   "ByShape", "ByCount", "ByFill",    "ByEdge",   "Star",
                       "Flower",  "Diamond", "Moon",    "Open",    "Striped",   "Dotted",   "Solid",
                       "Rounded", "Cut",     "Scooped", "Stamped"});
}

TEST_F(QuietRule, PicturesDifferBetweenItemRightWrongAndTimeUp)
{
    ExpectPicturesToDiffer("quiet",
                           {{"first", {620, 420}, 1, false},
                            {"middle", {620, 420}, 4, false},
                            {"last", {620, 420}, 7, false},
                            {"dark", {620, 420}, 7, true},
                            {"dark1", {620, 420}, 2, true},
                            {"large", {1600, 1000}, 5, false},
                            {"small", {380, 290}, 7, false}},
                           250);
}
