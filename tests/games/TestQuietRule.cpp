#include "games/quiet-rule/QuietRules.h"
#include "shell/program/modMain.h"
#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

namespace
{
const QString Folder = QStringLiteral(NOGGLE_DIST_FOLDER "quiet-rule/");
constexpr std::uint32_t Seed = 7;
constexpr int Enter = 13, Space = 32;
constexpr int Left = 37, Right = 39;

/// The game with a known seed, and beside it the same rules, which tell what is right.
class QuietRule : public testing::Test
{
protected:
    Stage Table{QStringLiteral("QuietRule.GameArea"), WithSeed(Folder, Seed)};
    std::unique_ptr<QuietRules> Known;

    void Start(int level)
    {
        Known = std::make_unique<QuietRules>(level, Seed);
        Table.Start(level);
    }
    int RightOne() const { return Known->RightPile(); }
    int WrongOne() const { return (RightOne() + 1) % QuietRules::Piles; }
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
    void Follow(int pile)
    {
        Known->Answer(pile);
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
        const QPointF design(35 + pile * 146 + 112 * across, 58 + 132 * down);
        const QSize whole = Table.Game->Control()->size();
        const double scale = std::min(whole.width() / 620.0, whole.height() / 420.0);
        return (QPointF((whole.width() - 620 * scale) / 2, (whole.height() - 420 * scale) / 2) + design * scale)
            .toPoint();
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
        EXPECT_EQ(Sounds("right"), ++cards);
        EXPECT_EQ(Verdict(), Word("Right"));
        ASSERT_TRUE(UntilNext());
    }
    const int oldPile = Known->PileBy(first);
    AnswerByKey(oldPile);
    EXPECT_EQ(Verdict(), Word("Wrong")) << "the old rule does not count any more";
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
    EXPECT_EQ(Sounds("right"), 2);
}

TEST_F(QuietRule, IsPlayedWithTheMouseAlone)
{
    Start(4);
    for (int card = 1; card <= 3; ++card) {
        const int right = RightOne();
        Table.Click(Place(right));
        Follow(right);
        EXPECT_EQ(Sounds("right"), card);
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
                EXPECT_EQ(Verdict(), Word(pile == RightOne() ? "Right" : "Wrong")) << size.width() << ' ' << pile;
            }
        }
        Start(7);
        Table.Click(Place(0, 0.5, 1.3));
        EXPECT_EQ(Verdict(), Word("Hint")) << "beside the piles nothing happens";
    }
}

TEST_F(QuietRule, AWrongAnswerShowsWhatWasRightAndTakesNoOther)
{
    Start(3);
    const QImage before = Table.Picture();
    AnswerByKey(WrongOne());
    EXPECT_EQ(Sounds("wrong"), 1);
    EXPECT_EQ(Verdict(), Word("Wrong"));
    EXPECT_TRUE(Told().startsWith(Word("RightPile"))) << qPrintable(Told());
    EXPECT_NE(Table.Picture(), before);
    for (int key = '1'; key <= '4'; ++key) Table.Key(key);
    Table.Click(Place(0));
    EXPECT_EQ(Sounds("right") + Sounds("wrong"), 1) << "nothing counts while the answer is told";
    ASSERT_TRUE(UntilNext());
    AnswerByKey(RightOne());
    EXPECT_EQ(Sounds("right"), 1);
}

// The tick on the right pile, as a spot of its colour in the pile's corner.
TEST_F(QuietRule, AtTheLastLevelTheRightPileIsSeenForAMomentOnly)
{
    const auto showsTick = [this](int pile) {
        return Table.Picture().pixelColor(Place(pile, 0.946, -0.049)) == QColor(0x17, 0x80, 0x50);
    };
    Table.Resize({620, 420});
    for (const bool isLast : {false, true}) {
        Start(isLast ? 7 : 3);
        const int right = RightOne();
        EXPECT_FALSE(showsTick(right));
        Table.Key('1' + WrongOne());
        EXPECT_TRUE(showsTick(right));
        bool isGoneBeforeTheEnd = false;
        EXPECT_TRUE(Stage::Until([&] {
            const bool isTold = Verdict() == Word("Wrong");
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
    Stage::Turn(600); // longer than a right answer is told
    EXPECT_EQ(Verdict(), Word("Right"));
    Table.Key('1');
    EXPECT_EQ(Sounds("right") + Sounds("wrong"), 1);
    Table.Game->SetVisible(true);
    EXPECT_TRUE(UntilNext());
}

TEST_F(QuietRule, AWholeSetEndsTheSessionAtOnceAndOnceAndNothingCountsAfterwards)
{
    Start(7);
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
    EXPECT_EQ(Verdict(), Word("TimeUp"));
    EXPECT_TRUE(Table.UntilStill());
    Table.Key('1' + RightOne());
    Table.Click(Place(RightOne()));
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
}

TEST_F(QuietRule, BeforeStartNothingHappens)
{
    Table.Key('1');
    Table.Key(Enter);
    Table.Click(Place(1));
    EXPECT_FALSE(Table.Picture().isNull());
    EXPECT_EQ(Table.Score(), 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_FALSE(Table.Picture().isNull());
}

TEST_F(QuietRule, ALevelOutOfRangePlaysAsTheNearest)
{
    for (const auto &[asked, played] : {std::pair{-5, 1}, {0, 1}, {99, 7}}) {
        Start(played);
        const QString expected = Told();
        Table.Start(asked);
        EXPECT_EQ(Told(), expected) << asked;
        AnswerByKey(RightOne());
    }
}

TEST_F(QuietRule, TellsCardAndPilesInWordsAndNeverTheRule)
{
    for (int level = 1; level <= QuietRules::Levels; ++level) {
        Start(level);
        const QStringList parts = Told().split(QStringLiteral(". "));
        ASSERT_EQ(parts.size(), 5) << qPrintable(Told());
        for (int pile = 1; pile <= QuietRules::Piles; ++pile)
            EXPECT_TRUE(parts[pile].startsWith(QStringLiteral("%1: ").arg(pile))) << qPrintable(parts[pile]);
        EXPECT_EQ(Verdict(), Word("Hint"));
    }
    const QString english = Told();
    modMain::Language = QStringLiteral("1");
    Table.Start(7);
    EXPECT_NE(Told(), english);
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
    const bool isKept = qEnvironmentVariableIsSet("NOGGLE_PICTURES");
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
        Stage::Turn(isKept ? 200 : 20); // [ms], so that what moves is on its way
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Start(row.level);
        Table.Key(Right);
        QTest::mouseMove(Table.Game->Control(), Place(WrongOne()));
        Table.Keep(name + QStringLiteral("-3-ring"));
        AnswerByKey(WrongOne());
        Stage::Turn(isKept ? 250 : 20);
        const QImage mistake = Table.Picture();
        Table.Keep(name + QStringLiteral("-4-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, right);
        EXPECT_NE(right, mistake);
        EXPECT_NE(mistake, Table.Picture());
        Table.Keep(name + QStringLiteral("-5-timeup"));
    }
}
