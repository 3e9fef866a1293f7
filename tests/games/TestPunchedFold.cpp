#include "games/punched-fold/FoldRules.h"
#include "tests/games/stage/KnownGame.h"

#include "shell/program/modMain.h"

#include <QTimer>

namespace
{
constexpr int Enter = 13, Space = 32, RightArrow = 39;

class PunchedFold : public KnownGame<FoldRules>
{
protected:
    PunchedFold() : KnownGame("punched-fold") {}

    int RightOne() const { return Known->Item().Answer; }
    int WrongOne() const { return (Known->Item().Answer + 1) % FoldItem::Choices; }
    void Note(int choice)
    {
        Known->Judge(choice);
        if (!Known->Set().Over()) Known->Next();
    }
    /// Answers by its number and waits for the next item.
    void Answer(int choice)
    {
        Table.Key(u'1' + choice);
        Note(choice);
        if (Known->Set().Over()) return;
        EXPECT_TRUE(UntilNext());
    }
    QPoint Sheet(int choice) const { return Table.At(QPointF(74 + 118 * choice, 277)); }
};
} // namespace

TEST_F(PunchedFold, IsPlayedWithTheKeysAlone)
{
    Start(1);
    Table.Key(u'1' + RightOne());
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
    Note(RightOne());
    EXPECT_TRUE(UntilNext());
    Table.Key(RightArrow); // shows the ring at the first sheet
    for (int sheet = 0; sheet < RightOne(); ++sheet) Table.Key(RightArrow);
    Table.Key(Space);
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
    Note(RightOne());
    EXPECT_EQ(Table.Sounds("right"), 2);
    EXPECT_EQ(Table.Score(), Known->Set().Points());
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Known->Set().Progress());
}

TEST_F(PunchedFold, IsPlayedWithTheMouseAloneAtAnySize)
{
    for (const QSize size : {QSize(620, 420), QSize(1600, 1000), QSize(1000, 420)}) {
        Table.Resize(size);
        Start(3);
        Table.Click(Sheet(RightOne()));
        EXPECT_EQ(Table.Description(), Table.Word("Right")) << size.width();
        Note(RightOne());
        EXPECT_EQ(Table.Score(), Known->Set().Points());
    }
}

TEST_F(PunchedFold, TheFoldsAndOtherKeysChooseNothing)
{
    Start(1);
    Table.Click({310, 110});
    Table.Click({310, 400});
    for (const int key : {Enter, Space, int(u'6'), int(u'0')}) Table.Key(key);
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    EXPECT_EQ(Table.Sounds("wrong") + Table.Sounds("right"), 0);
}

TEST_F(PunchedFold, AMistakeTakesPointsBack)
{
    Start(4);
    Answer(RightOne());
    const int before = Table.Score();
    Table.Key(u'1' + WrongOne());
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Sounds("wrong"), 1);
    Note(WrongOne());
    EXPECT_LT(Table.Score(), before);
    EXPECT_EQ(Table.Score(), Known->Set().Points());
    Table.Key(u'1');
    Table.Click(Sheet(2));
    EXPECT_EQ(Table.Score(), Known->Set().Points()) << "nothing counts while it is told";
    EXPECT_TRUE(UntilNext());
    Answer(RightOne());
    EXPECT_EQ(Table.Score(), Known->Set().Points());
}

TEST_F(PunchedFold, ThePaperOpensWhileAMistakeIsTold)
{
    Table.SetPace(200); // so that it is seen, however busy the machine is
    Start(4);
    const auto folds = [this] { return Table.Picture().copy(40, 60, 540, 110); };
    const QImage asked = folds();
    Table.Key(u'1' + WrongOne());
    EXPECT_TRUE(Stage::Until([&] { return folds() != asked; }));
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
}

TEST_F(PunchedFold, HiddenStandsStill)
{
    Start(1);
    Table.Key(u'1' + RightOne());
    Note(RightOne());
    Table.Game->SetVisible(false);
    Stage::Turn(200); // longer than a right answer is told
    EXPECT_EQ(Table.Description(), Table.Word("Right"));
    Table.Key(u'1');
    Table.Game->SetVisible(true);
    Table.Key(u'1');
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Known->Set().Progress());
    EXPECT_TRUE(UntilNext());
}

TEST_F(PunchedFold, NoTimerRunsWhileThePlayerThinks)
{
    Start(6);
    Answer(RightOne());
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
}

TEST_F(PunchedFold, TheLastItemEndsTheSessionAtOnceWithThePointsSafe)
{
    Table.UnloadAtTheEnd([this] { EXPECT_EQ(Table.Score(), 128); });
    Start(8);
    while (!Known->Set().Over()) {
        EXPECT_EQ(Table.Count("gameover"), 0);
        Answer(RightOne());
    }
    EXPECT_EQ(Table.Count("gameover"), 1);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Table.Sounds("done"), 1);
    Stage::Turn(20);
}

TEST_F(PunchedFold, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Answer(RightOne());
    Table.Game->Message(QStringLiteral("timeup"));
    const int points = Table.Score();
    EXPECT_GT(points, 0);
    EXPECT_EQ(Table.Description(), Table.Word("TimeUp"));
    for (int choice = 0; choice < FoldItem::Choices; ++choice) {
        Table.Key(u'1' + choice);
        Table.Click(Sheet(choice));
    }
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Count("gameover"), 0);
}

TEST_F(PunchedFold, TellsItsItemsInWords)
{
    Start(8);
    EXPECT_EQ(Table.Name().count(QStringLiteral("over the line from")), 4) << qPrintable(Table.Name());
    EXPECT_TRUE(Table.Name().contains(QStringLiteral("Sheets: 1: "))) << qPrintable(Table.Name());
    modMain::Language = QStringLiteral("1");
    Start(2);
    EXPECT_EQ(Table.Name().count(QStringLiteral("die Linie von")), 1) << qPrintable(Table.Name());
}

TEST_F(PunchedFold, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name", "Hint", "Right", "Wrong", "WasRight", "Told", "FoldTold", "RightPart", "LeftPart",
                       "UpperPart", "LowerPart", "UpperRightPart", "UpperLeftPart", "LowerRightPart", "LowerLeftPart",
                       "Points", "Level", "TimeUp"});
}

TEST_F(PunchedFold, PicturesDifferBetweenItsParts)
{
    struct Row
    {
        const char *name;
        QSize size;
        int level;
        bool dark;
    };
    SetPaceOfPictures();
    for (const Row &row : {Row{"first", {620, 420}, 1, false}, Row{"second", {620, 420}, 3, true},
                           Row{"middle", {620, 420}, 5, false}, Row{"last", {620, 420}, 8, false},
                           Row{"large", {1600, 1000}, 7, true}, Row{"small", {380, 290}, 8, true}}) {
        const QString name = QStringLiteral("fold-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Table.Resize(row.size);
        Start(row.level);
        Table.Key(RightArrow);
        const QImage asked = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-asked"));
        Table.Key(u'1' + RightOne());
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Table.Start(row.level);
        Table.Key(u'1' + WrongOne());
        const QImage wrong = Table.Picture();
        Stage::Settle(2400);
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        Table.Keep(name + QStringLiteral("-4-timeup"));
        EXPECT_NE(asked, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
