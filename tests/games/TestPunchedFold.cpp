#include "games/punched-fold/FoldRules.h"
#include "tests/games/stage/Stage.h"

#include "platform/Files.h"
#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QTimer>

namespace
{
const QString Delivered = QStringLiteral(NOGGLE_DIST_FOLDER "punched-fold/");
constexpr std::uint32_t Seed = 7;
constexpr int Enter = 13, Space = 32, RightArrow = 39;

/// The game on a known board, and the rules beside it that tell what is right.
class PunchedFold : public testing::Test
{
protected:
    QString Folder = WithSeed(Delivered, Seed);
    Stage Table{QStringLiteral("PunchedFold.GameArea"), Folder};
    FoldRules Rules{1, Seed};

    void Start(int level)
    {
        Rules = FoldRules(level, Seed);
        Table.Start(level);
    }
    int RightOne() const { return Rules.Item().Answer; }
    int WrongOne() const { return (Rules.Item().Answer + 1) % FoldItem::Choices; }
    void Note(int choice)
    {
        Rules.Judge(choice);
        if (!Rules.Set().Over()) Rules.Next();
    }
    /// Answers by its number and waits for the next item.
    void Answer(int choice)
    {
        Table.Key(u'1' + choice);
        Note(choice);
        if (!Rules.Set().Over()) WaitForItem();
    }
    void WaitForItem()
    {
        EXPECT_TRUE(Stage::Until([this] { return Line() == Word("Hint"); }));
    }
    QString Word(const char *name) const { return Table.Framework->LangString(QLatin1String(name)); }
    QString Told() const { return Table.Game->Control()->accessibleName(); }
    QString Line() const { return Table.Game->Control()->accessibleDescription(); }
    QPoint Sheet(int choice) const
    {
        const QSize size = Table.Game->Control()->size();
        const double scale = std::min(size.width() / 620.0, size.height() / 420.0);
        const QPointF origin((size.width() - 620 * scale) / 2, (size.height() - 420 * scale) / 2);
        return (origin + QPointF(74 + 118 * choice, 277) * scale).toPoint();
    }
    int Sounds(const char *name) const
    {
        return Table.Framework->Count(QStringLiteral("playsound ") + QLatin1String(name));
    }
};
} // namespace

TEST_F(PunchedFold, IsPlayedWithTheKeysAlone)
{
    Start(1);
    Table.Key(u'1' + RightOne());
    EXPECT_EQ(Line(), Word("Right"));
    Note(RightOne());
    WaitForItem();
    Table.Key(RightArrow); // shows the ring at the first sheet
    for (int sheet = 0; sheet < RightOne(); ++sheet) Table.Key(RightArrow);
    Table.Key(Space);
    EXPECT_EQ(Line(), Word("Right"));
    Note(RightOne());
    EXPECT_EQ(Sounds("right"), 2);
    EXPECT_EQ(Table.Score(), Rules.Set().Points());
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Rules.Set().Progress());
}

TEST_F(PunchedFold, IsPlayedWithTheMouseAloneAtAnySize)
{
    for (const QSize size : {QSize(620, 420), QSize(1600, 1000), QSize(1000, 420)}) {
        Table.Resize(size);
        Start(3);
        Table.Click(Sheet(RightOne()));
        EXPECT_EQ(Line(), Word("Right")) << size.width();
        Note(RightOne());
        EXPECT_EQ(Table.Score(), Rules.Set().Points());
    }
}

TEST_F(PunchedFold, TheFoldsAndOtherKeysChooseNothing)
{
    Start(1);
    Table.Click({310, 110});
    Table.Click({310, 400});
    for (const int key : {Enter, Space, int(u'6'), int(u'0')}) Table.Key(key);
    EXPECT_EQ(Line(), Word("Hint"));
    EXPECT_EQ(Sounds("wrong") + Sounds("right"), 0);
}

TEST_F(PunchedFold, AMistakeTakesPointsBackAndShowsHowThePaperOpens)
{
    Start(4);
    Answer(RightOne());
    const int before = Table.Score();
    const QImage asked = Table.Picture();
    Table.Key(u'1' + WrongOne());
    EXPECT_EQ(Line(), Word("Wrong"));
    EXPECT_EQ(Sounds("wrong"), 1);
    Note(WrongOne());
    EXPECT_LT(Table.Score(), before);
    EXPECT_EQ(Table.Score(), Rules.Set().Points());
    EXPECT_TRUE(Stage::Until([&] { // the row of folds
        return Table.Picture().copy(40, 60, 540, 110) != asked.copy(40, 60, 540, 110);
    }));
    Table.Key(u'1');
    Table.Click(Sheet(2));
    EXPECT_EQ(Table.Score(), Rules.Set().Points()) << "nothing counts while it is told";
    WaitForItem();
    Answer(RightOne());
    EXPECT_EQ(Table.Score(), Rules.Set().Points());
}

TEST_F(PunchedFold, HiddenStandsStill)
{
    Start(1);
    Table.Key(u'1' + RightOne());
    Note(RightOne());
    Table.Game->SetVisible(false);
    Stage::Turn(1200); // longer than a right answer is told
    EXPECT_EQ(Line(), Word("Right"));
    Table.Key(u'1');
    Table.Game->SetVisible(true);
    Table.Key(u'1');
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Rules.Set().Progress());
    WaitForItem();
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
    Table.Framework->GameOver = [this] { // what the shell does, with the points asked for inside
        EXPECT_EQ(Table.Score(), 128);
        Table.Game->Message(QStringLiteral("unload"));
        Table.Game->Unload();
    };
    Start(8);
    while (!Rules.Set().Over()) {
        EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
        Answer(RightOne());
    }
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 1);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Sounds("done"), 1);
    Stage::Turn(20);
}

TEST_F(PunchedFold, AfterTimeUpNothingCountsAndThePointsStand)
{
    Start(1);
    Answer(RightOne());
    Table.Game->Message(QStringLiteral("timeup"));
    const int points = Table.Score();
    EXPECT_GT(points, 0);
    EXPECT_EQ(Line(), Word("TimeUp"));
    for (int choice = 0; choice < FoldItem::Choices; ++choice) {
        Table.Key(u'1' + choice);
        Table.Click(Sheet(choice));
    }
    EXPECT_EQ(Table.Score(), points);
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
}

TEST_F(PunchedFold, BeforeStartNothingHappens)
{
    Table.Key(u'1');
    Table.Click(Sheet(1));
    EXPECT_FALSE(Table.Picture().isNull());
    EXPECT_EQ(Table.Score(), 0);
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_FALSE(Table.Picture().isNull());
}

TEST_F(PunchedFold, ALevelOutOfRangePlaysAsTheNearest)
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

TEST_F(PunchedFold, TellsItsItemsInWords)
{
    Start(8);
    EXPECT_EQ(Told().count(QStringLiteral("over the line from")), 4) << qPrintable(Told());
    EXPECT_TRUE(Told().contains(QStringLiteral("Sheets: 1: "))) << qPrintable(Told());
    modMain::Language = QStringLiteral("1");
    Start(2);
    EXPECT_EQ(Told().count(QStringLiteral("die Linie von")), 1) << qPrintable(Told());
}

TEST_F(PunchedFold, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name", "Hint", "Right", "Wrong", "WasRight", "Told", "FoldTold", "RightPart", "LeftPart",
                       "UpperPart", "LowerPart", "UpperRightPart", "UpperLeftPart", "LowerRightPart", "LowerLeftPart",
                       "Points", "Level", "TimeUp"});
}

TEST_F(PunchedFold, ItsFolderIsComplete)
{
    for (const char *file : {"GameSettings.ini", "Instructions.rtf", "punched-fold.so", "sounds/right.wav",
                             "sounds/wrong.wav", "sounds/done.wav"})
        EXPECT_TRUE(FileExists(Delivered + QLatin1String(file))) << file;
    const auto config = [this](const char *name) {
        return Table.Framework->GetSetting(QStringLiteral("config"), QLatin1String(name));
    };
    EXPECT_EQ(config("component"), QStringLiteral("PunchedFold"));
    EXPECT_EQ(config("levels").toInt(), FoldRules::Levels);
    EXPECT_EQ(config("timelimit"), QStringLiteral("105"));
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
        if (qEnvironmentVariableIsSet("NOGGLE_PICTURES")) Stage::Turn(2400); // until the paper is open
        Table.Keep(name + QStringLiteral("-3-wrong"));
        Table.Game->Message(QStringLiteral("timeup"));
        Table.Keep(name + QStringLiteral("-4-timeup"));
        EXPECT_NE(asked, right);
        EXPECT_NE(right, wrong);
        EXPECT_NE(wrong, Table.Picture());
    }
}
