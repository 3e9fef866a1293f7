#include "games/turn-or-mirror/TurnRules.h"
#include "tests/games/stage/KnownGame.h"

#include "shell/program/modMain.h"

#include <QTimer>

namespace
{
constexpr int Enter = 13, Space = 32, LeftArrow = 37, RightArrow = 39;

class TurnOrMirror : public KnownGame<TurnRules>
{
protected:
    TurnOrMirror() : KnownGame("turn-or-mirror") {}

    /// Notes the answer that is about to be given, and goes on.
    void Note(bool right)
    {
        Known->Judge(Known->Item().IsMirror == right);
        if (!Known->Set().Over()) Known->Next();
    }
    /// Answers by keys and waits for the next item.
    void Answer(bool right)
    {
        Table.Key(Known->Item().IsMirror == right ? RightArrow : LeftArrow);
        Note(right);
        if (Known->Set().Over()) return;
        EXPECT_TRUE(UntilNext());
    }
    QPoint Button(bool mirror) const { return Table.At(QPointF(mirror ? 459 : 161, 326)); }
};
} // namespace

TEST_F(TurnOrMirror, IsPlayedWithTheKeysAlone)
{
    Start(1);
    for (int item = 0; item < 2; ++item) {
        const bool mirror = Known->Item().IsMirror;
        Table.Key(item % 2 == 0 ? (mirror ? RightArrow : LeftArrow) : (mirror ? u'2' : u'1'));
        EXPECT_EQ(Table.Description(), Table.Word("Right"));
        Note(true);
        EXPECT_EQ(Table.Score(), Known->Set().Points());
        EXPECT_TRUE(UntilNext());
    }
    EXPECT_EQ(Table.Sounds("right"), 2);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Known->Set().Progress());
}

TEST_F(TurnOrMirror, IsPlayedWithTheMouseAloneAtAnySize)
{
    for (const QSize size : {QSize(620, 420), QSize(1600, 1000), QSize(1000, 420)}) {
        Table.Resize(size);
        Start(2);
        for (int item = 0; item < 2; ++item) {
            Table.Click(Button(Known->Item().IsMirror));
            EXPECT_EQ(Table.Description(), Table.Word("Right")) << size.width();
            Note(true);
            EXPECT_TRUE(UntilNext());
        }
        EXPECT_EQ(Table.Score(), Known->Set().Points());
    }
}

TEST_F(TurnOrMirror, TheRestOfTheTableAndOtherKeysChooseNothing)
{
    Start(1);
    Table.Click({160, 150});
    Table.Click({310, 330});
    for (const int key : {Enter, Space, int(u'3'), int(u'0'), 38, 40}) Table.Key(key);
    EXPECT_EQ(Table.Description(), Table.Word("Hint"));
    EXPECT_EQ(Known->Set().Done(), 0);
    EXPECT_EQ(Table.Sounds("wrong") + Table.Sounds("right"), 0);
}

TEST_F(TurnOrMirror, AMistakeTakesPointsBackAndShowsWhatWasRight)
{
    Start(3);
    Answer(true);
    const int before = Table.Score();
    const QImage asked = Table.Picture();
    Table.Key(Known->Item().IsMirror ? u'1' : u'2');
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Sounds("wrong"), 1);
    Note(false);
    EXPECT_LT(Table.Score(), before);
    EXPECT_EQ(Table.Score(), Known->Set().Points());
    EXPECT_NE(Table.Picture(), asked);
    Table.Key(u'1');
    Table.Click(Button(true));
    EXPECT_EQ(Table.Score(), Known->Set().Points()) << "nothing counts while it is told";
    EXPECT_TRUE(UntilNext());
    Answer(true);
    EXPECT_EQ(Table.Score(), Known->Set().Points());
}

TEST_F(TurnOrMirror, TheFigureTurnsWhileAMistakeIsTold)
{
    Table.SetPace(200); // so that it is seen, however busy the machine is
    Start(8);
    Table.Key(Known->Item().IsMirror ? u'1' : u'2');
    const QImage first = Table.Picture();
    EXPECT_TRUE(
        Stage::Until([&] { return Table.Picture().copy(320, 60, 280, 200) != first.copy(320, 60, 280, 200); }));
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
}

TEST_F(TurnOrMirror, HiddenStandsStill)
{
    Start(1);
    Table.Key(Known->Item().IsMirror ? u'1' : u'2');
    Note(false);
    Table.Game->SetVisible(false);
    Stage::Turn(400); // longer than a mistake is told
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    Table.Key(u'1');
    Table.Game->SetVisible(true);
    Table.Key(u'1');
    EXPECT_EQ(Table.Description(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Known->Set().Progress());
}

TEST_F(TurnOrMirror, NoTimerRunsWhileThePlayerThinks)
{
    Start(6);
    Answer(true);
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
}

TEST_F(TurnOrMirror, TheLastItemEndsTheSessionAtOnceWithThePointsSafe)
{
    Table.UnloadAtTheEnd([this] { EXPECT_EQ(Table.Score(), 127); });
    Start(8);
    while (!Known->Set().Over()) {
        EXPECT_EQ(Table.Count("gameover"), 0);
        Answer(true);
    }
    EXPECT_EQ(Table.Count("gameover"), 1);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Table.Sounds("done"), 1);
    Stage::Turn(20);
}

TEST_F(TurnOrMirror, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Answer(true);
    Table.Game->Message(QStringLiteral("timeup"));
    const int points = Table.Score();
    EXPECT_GT(points, 0);
    EXPECT_EQ(Table.Description(), Table.Word("TimeUp"));
    for (const int key : {int(u'1'), int(u'2'), LeftArrow, RightArrow}) Table.Key(key);
    Table.Click(Button(false));
    Table.Click(Button(true));
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Count("gameover"), 0);
}

TEST_F(TurnOrMirror, TellsItsItemsInWords)
{
    Start(1);
    EXPECT_TRUE(Table.Name().startsWith(QStringLiteral("Left, row by row: "))) << qPrintable(Table.Name());
    EXPECT_TRUE(Table.Name().contains(QStringLiteral("x"))) << qPrintable(Table.Name());
    const QString first = Table.Name();
    Answer(true);
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

TEST_F(TurnOrMirror, PicturesDifferBetweenItsParts)
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
         {Row{"first", {620, 420}, 1, false}, Row{"letters", {620, 420}, 3, true},
          Row{"middle", {620, 420}, 5, false}, Row{"solids", {620, 420}, 6, true}, Row{"last", {620, 420}, 8, false},
          Row{"large", {1600, 1000}, 7, true}, Row{"small", {380, 290}, 8, true}}) {
        const QString name = QStringLiteral("turn-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Table.Resize(row.size);
        Start(row.level);
        const QImage asked = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-asked"));
        Table.Key(Known->Item().IsMirror ? u'2' : u'1');
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Table.Start(row.level);
        Table.Key(Known->Item().IsMirror ? u'1' : u'2');
        const QImage wrong = Table.Picture();
        Stage::Settle(1700);
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        Table.Keep(name + QStringLiteral("-4-timeup"));
        EXPECT_NE(asked, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
