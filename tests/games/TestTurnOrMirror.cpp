#include "games/turn-or-mirror/TurnRules.h"
#include "tests/games/stage/EveryChoiceGame.h"

#include "shell/program/modMain.h"

namespace
{
constexpr int Enter = 13, Space = 32, LeftArrow = 37, RightArrow = 39;

class TurnOrMirror : public KnownGame<TurnRules>
{
protected:
    TurnOrMirror() : KnownGame("turn-or-mirror", TurnRules::Levels) {}

    int Offered() const override { return 2; }
    int RightOne() const override { return Known->Item().IsMirror ? 1 : 0; }
    QPoint PlaceOf(int button) const override { return Table.At(QPointF(button == 0 ? 161 : 459, 326)); }
    void PressKeys(int button) override { Table.Key(button == 0 ? LeftArrow : RightArrow); }
};
} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, TurnOrMirror);

TEST_F(TurnOrMirror, IsPlayedWithNumbersToo)
{
    Start(1);
    for (int item = 1; item <= 2; ++item) {
        Table.Key(u'1' + RightOne());
        ExpectToFollow(RightOne());
        EXPECT_EQ(Table.Sounds("right"), item);
        ASSERT_TRUE(UntilNext());
    }
}

TEST_F(TurnOrMirror, TheRestOfTheTableAndOtherKeysChooseNothing)
{
    Start(1);
    Table.Click({160, 150});
    Table.Click({310, 330});
    for (const int key : {Enter, Space, int(u'3'), int(u'0'), 38, 40}) Table.Key(key);
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    EXPECT_EQ(Table.Sounds(""), 0);
}

TEST_F(TurnOrMirror, TheFigureTurnsWhileAMistakeIsTold)
{
    Table.SetPace(200); // so that it is seen, however busy the machine is
    Start(8);
    PressKeys(WrongOne());
    const QImage first = Table.Picture();
    EXPECT_TRUE(
        Stage::Until([&] { return Table.Picture().copy(320, 60, 280, 200) != first.copy(320, 60, 280, 200); }));
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
}

TEST_F(TurnOrMirror, TellsItsItemsInWords)
{
    Start(1);
    EXPECT_TRUE(Table.Name().startsWith(QStringLiteral("Left, row by row: "))) << qPrintable(Table.Name());
    EXPECT_TRUE(Table.Name().contains(QStringLiteral("x"))) << qPrintable(Table.Name());
    const QString first = Table.Name();
    AnswerByKeys(RightOne());
    ASSERT_TRUE(UntilNext());
    EXPECT_NE(Table.Name(), first);
    modMain::Language = QStringLiteral("1");
    Start(8);
    EXPECT_EQ(Table.Name().count(QStringLiteral("nach ")), 8) << "four arms twice: " << qPrintable(Table.Name());
}

TEST_F(TurnOrMirror, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name", "Hint", "Turned", "Mirrored", "Right", "Wrong", "WasTurned", "WasMirror", "FlatTold",
                       "SolidTold", "Rightwards", "Leftwards", "Upwards", "Downwards", "Forwards", "Backwards",
                       "Points", "Level", "TimeUp"});
}

TEST_F(TurnOrMirror, PicturesDifferBetweenItemRightWrongAndTimeUp)
{
    ExpectPicturesToDiffer("turn",
                           {{"first", {620, 420}, 1, false},
                            {"letters", {620, 420}, 3, true},
                            {"middle", {620, 420}, 5, false},
                            {"solids", {620, 420}, 6, true},
                            {"last", {620, 420}, 8, false},
                            {"large", {1600, 1000}, 7, true},
                            {"small", {380, 290}, 8, true}},
                           1700);
}
