#include "games/punched-fold/FoldRules.h"
#include "tests/games/stage/EveryChoiceGame.h"

#include "shell/program/modMain.h"

namespace
{
constexpr int Enter = 13, Space = 32, RightArrow = 39;

class PunchedFold : public KnownGame<FoldRules>
{
protected:
    PunchedFold() : KnownGame("punched-fold", FoldRules::Levels) {}

    int Offered() const override { return FoldItem::Choices; }
    int RightOne() const override { return Known->Item().Answer; }
    QPoint PlaceOf(int sheet) const override { return Table.At(QPointF(74 + 118 * sheet, 277)); }
};
} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, PunchedFold);

TEST_F(PunchedFold, IsPlayedWithArrowsAndTheRing)
{
    Start(1);
    Table.Key(RightArrow); // shows the ring at the first sheet
    for (int sheet = 0; sheet < RightOne(); ++sheet) Table.Key(RightArrow);
    Table.Key(Space);
    ExpectToFollow(RightOne());
    EXPECT_EQ(Table.Sounds("right"), 1);
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

TEST_F(PunchedFold, PicturesDifferBetweenItemRightWrongAndTimeUp)
{
    ExpectPicturesToDiffer("fold",
                           {{"first", {620, 420}, 1, false},
                            {"second", {620, 420}, 3, true},
                            {"middle", {620, 420}, 5, false},
                            {"last", {620, 420}, 8, false},
                            {"large", {1600, 1000}, 7, true},
                            {"small", {380, 290}, 8, true}},
                           2400);
}
