#include "games/turn-or-mirror/TurnRules.h"
#include "tests/games/stage/Stage.h"

#include "platform/Files.h"
#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QTimer>

namespace
{
const QString Delivered = QStringLiteral(NOGGLE_DIST_FOLDER "turn-or-mirror/");
constexpr std::uint32_t Seed = 7;
constexpr int Enter = 13, Space = 32, LeftArrow = 37, RightArrow = 39;

/// The game on a known board, and the rules beside it that tell what is right.
class TurnOrMirror : public testing::Test
{
protected:
    QString Folder = WithSeed(Delivered, Seed);
    Stage Table{QStringLiteral("TurnOrMirror.GameArea"), Folder};
    TurnRules Rules{1, Seed};

    void Start(int level)
    {
        Rules = TurnRules(level, Seed);
        Table.Start(level);
    }
    /// Notes the answer that is about to be given, and goes on.
    void Note(bool right)
    {
        Rules.Judge(Rules.Item().IsMirror == right);
        if (!Rules.Set().Over()) Rules.Next();
    }
    /// Answers by keys and waits for the next item.
    void Answer(bool right)
    {
        Table.Key(Rules.Item().IsMirror == right ? RightArrow : LeftArrow);
        Note(right);
        if (!Rules.Set().Over()) WaitForItem();
    }
    void WaitForItem()
    {
        EXPECT_TRUE(Stage::Until([this] { return Line() == Word("Hint"); }));
    }
    QString Word(const char *name) const { return Table.Framework->LangString(QLatin1String(name)); }
    QString Told() const { return Table.Game->Control()->accessibleName(); }
    QString Line() const { return Table.Game->Control()->accessibleDescription(); }
    QPoint Button(bool mirror) const
    {
        const QSize size = Table.Game->Control()->size();
        const double scale = std::min(size.width() / 620.0, size.height() / 420.0);
        const QPointF origin((size.width() - 620 * scale) / 2, (size.height() - 420 * scale) / 2);
        return (origin + QPointF(mirror ? 459 : 161, 326) * scale).toPoint();
    }
    int Sounds(const char *name) const
    {
        return Table.Framework->Count(QStringLiteral("playsound ") + QLatin1String(name));
    }
};
} // namespace

TEST_F(TurnOrMirror, IsPlayedWithTheKeysAlone)
{
    Start(1);
    for (int item = 0; item < 2; ++item) {
        const bool mirror = Rules.Item().IsMirror;
        Table.Key(item % 2 == 0 ? (mirror ? RightArrow : LeftArrow) : (mirror ? u'2' : u'1'));
        EXPECT_EQ(Line(), Word("Right"));
        Note(true);
        EXPECT_EQ(Table.Score(), Rules.Set().Points());
        WaitForItem();
    }
    EXPECT_EQ(Sounds("right"), 2);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Rules.Set().Progress());
}

TEST_F(TurnOrMirror, IsPlayedWithTheMouseAloneAtAnySize)
{
    for (const QSize size : {QSize(620, 420), QSize(1600, 1000), QSize(1000, 420)}) {
        Table.Resize(size);
        Start(2);
        for (int item = 0; item < 2; ++item) {
            Table.Click(Button(Rules.Item().IsMirror));
            EXPECT_EQ(Line(), Word("Right")) << size.width();
            Note(true);
            WaitForItem();
        }
        EXPECT_EQ(Table.Score(), Rules.Set().Points());
    }
}

TEST_F(TurnOrMirror, TheRestOfTheTableAndOtherKeysChooseNothing)
{
    Start(1);
    Table.Click({160, 150});
    Table.Click({310, 330});
    for (const int key : {Enter, Space, int(u'3'), int(u'0'), 38, 40}) Table.Key(key);
    EXPECT_EQ(Line(), Word("Hint"));
    EXPECT_EQ(Rules.Set().Done(), 0);
    EXPECT_EQ(Sounds("wrong") + Sounds("right"), 0);
}

TEST_F(TurnOrMirror, AMistakeTakesPointsBackAndShowsWhatWasRight)
{
    Start(3);
    Answer(true);
    const int before = Table.Score();
    const QImage asked = Table.Picture();
    Table.Key(Rules.Item().IsMirror ? u'1' : u'2');
    EXPECT_EQ(Line(), Word("Wrong"));
    EXPECT_EQ(Sounds("wrong"), 1);
    Note(false);
    EXPECT_LT(Table.Score(), before);
    EXPECT_EQ(Table.Score(), Rules.Set().Points());
    EXPECT_NE(Table.Picture(), asked);
    Table.Key(u'1');
    Table.Click(Button(true));
    EXPECT_EQ(Table.Score(), Rules.Set().Points()) << "nothing counts while it is told";
    WaitForItem();
    Answer(true);
    EXPECT_EQ(Table.Score(), Rules.Set().Points());
}

TEST_F(TurnOrMirror, TheFigureTurnsWhileAMistakeIsTold)
{
    Start(8);
    Table.Key(Rules.Item().IsMirror ? u'1' : u'2');
    const QImage first = Table.Picture();
    EXPECT_TRUE(
        Stage::Until([&] { return Table.Picture().copy(320, 60, 280, 200) != first.copy(320, 60, 280, 200); }));
}

TEST_F(TurnOrMirror, HiddenStandsStill)
{
    Start(1);
    Table.Key(Rules.Item().IsMirror ? u'1' : u'2');
    Note(false);
    Table.Game->SetVisible(false);
    Stage::Turn(2700); // longer than a mistake is told
    EXPECT_EQ(Line(), Word("Wrong"));
    Table.Key(u'1');
    Table.Game->SetVisible(true);
    Table.Key(u'1');
    EXPECT_EQ(Line(), Word("Wrong"));
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Rules.Set().Progress());
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
    Table.Framework->GameOver = [this] { // what the shell does, with the points asked for inside
        EXPECT_EQ(Table.Score(), 127);
        Table.Game->Message(QStringLiteral("unload"));
        Table.Game->Unload();
    };
    Start(8);
    while (!Rules.Set().Over()) {
        EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
        Answer(true);
    }
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 1);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Sounds("done"), 1);
    Stage::Turn(20);
}

TEST_F(TurnOrMirror, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Answer(true);
    Table.Game->Message(QStringLiteral("timeup"));
    const int points = Table.Score();
    EXPECT_GT(points, 0);
    EXPECT_EQ(Line(), Word("TimeUp"));
    for (const int key : {int(u'1'), int(u'2'), LeftArrow, RightArrow}) Table.Key(key);
    Table.Click(Button(false));
    Table.Click(Button(true));
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
}

TEST_F(TurnOrMirror, BeforeStartNothingHappens)
{
    Table.Key(u'1');
    Table.Click(Button(true));
    EXPECT_FALSE(Table.Picture().isNull());
    EXPECT_EQ(Table.Score(), 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_FALSE(Table.Picture().isNull());
}

TEST_F(TurnOrMirror, ALevelOutOfRangePlaysAsTheNearest)
{
    Start(8);
    const QString highest = Told();
    Start(99);
    EXPECT_EQ(Told(), highest);
    Start(1);
    const QString lowest = Told();
    Start(-3);
    EXPECT_EQ(Told(), lowest);
}

TEST_F(TurnOrMirror, TellsItsItemsInWords)
{
    Start(1);
    EXPECT_TRUE(Told().startsWith(QStringLiteral("Left, row by row: "))) << qPrintable(Told());
    EXPECT_TRUE(Told().contains(QStringLiteral("x"))) << qPrintable(Told());
    const QString first = Told();
    Answer(true);
    EXPECT_NE(Told(), first);
    modMain::Language = QStringLiteral("1");
    Start(8);
    EXPECT_EQ(Told().count(QStringLiteral("nach ")), 8) << "four arms twice: " << qPrintable(Told());
}

TEST_F(TurnOrMirror, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name", "Hint", "Turned", "Mirrored", "Right", "Wrong", "WasTurned", "WasMirror", "FlatTold",
                       "SolidTold", "Rightwards", "Leftwards", "Upwards", "Downwards", "Forwards", "Backwards",
                       "Points", "Level", "TimeUp"});
}

TEST_F(TurnOrMirror, ItsFolderIsComplete)
{
    for (const char *file : {"GameSettings.ini", "Instructions.rtf", "turn-or-mirror.so", "sounds/right.wav",
                             "sounds/wrong.wav", "sounds/done.wav"})
        EXPECT_TRUE(FileExists(Delivered + QLatin1String(file))) << file;
    const auto config = [this](const char *name) {
        return Table.Framework->GetSetting(QStringLiteral("config"), QLatin1String(name));
    };
    EXPECT_EQ(config("component"), QStringLiteral("TurnOrMirror"));
    EXPECT_EQ(config("levels").toInt(), TurnRules::Levels);
    EXPECT_EQ(config("timelimit"), QStringLiteral("60"));
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
        Table.Key(Rules.Item().IsMirror ? u'2' : u'1');
        const QImage right = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-right"));
        Table.Start(row.level);
        Table.Key(Rules.Item().IsMirror ? u'1' : u'2');
        const QImage wrong = Table.Picture();
        if (qEnvironmentVariableIsSet("NOGGLE_PICTURES")) Stage::Turn(1700); // until the figure has come around
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        Table.Keep(name + QStringLiteral("-4-timeup"));
        EXPECT_NE(asked, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
