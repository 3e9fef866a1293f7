#include "tests/games/stage/PacedStage.h"

#include "platform/Files.h"

#include <gtest/gtest.h>

#include <QThread>
#include <QTimer>

namespace
{
const QString Folder = QStringLiteral(NOGGLE_DIST_FOLDER "lantern-row/");
constexpr std::uint32_t Seed = 7;
constexpr int Enter = 13;
constexpr int Space = 32;

class LanternRow : public testing::Test
{
protected:
    PacedStage Table{QStringLiteral("LanternRow.GameArea"), Folder, Seed, Quick};
    int Columns = 3;
    int Rows = 3;

    /// Column and row, from 1, as they light: what a screen reader hears.
    QList<QPoint> Watch()
    {
        QList<QPoint> lit;
        QString last;
        const auto isWatched = [this] { return Table.Name() == Table.Word("Watch"); };
        EXPECT_TRUE(Table.Sees(isWatched));
        EXPECT_TRUE(Table.Sees([&] {
            const QString now = Table.Description();
            if (now != last) lit.append({now.section(u',', 0, 0).toInt(), now.section(u',', 1).toInt()});
            last = now;
            return !isWatched();
        }));
        return lit;
    }
    void Press(QPoint lantern)
    {
        Table.Click(Table.At({30 + (lantern.x() - 0.5) * 560 / Columns, 52 + (lantern.y() - 0.5) * 312 / Rows}));
    }
};
} // namespace

TEST_F(LanternRow, IsWatchedThenPlayedWithTheMouse)
{
    Table.Start(1);
    const QList<QPoint> order = Watch();
    ASSERT_EQ(order.size(), 2);
    EXPECT_EQ(Table.Name(), Table.Word("Same"));
    for (const QPoint lantern : order) Press(lantern);
    EXPECT_EQ(Table.Sounds("right"), 1);
    EXPECT_EQ(Table.Score(), 125 * 2 / 40);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100 / 16);
    EXPECT_TRUE(Table.Sees([this] { return Table.Name() == Table.Word("Watch"); }))
        << "the next round begins by itself";
}

TEST_F(LanternRow, IsPlayedWithTheKeysAlone)
{
    Table.Start(1);
    QPoint ring(2, 2); // it begins in the middle
    const QList<QPoint> order = Watch();
    for (const QPoint lantern : order) {
        for (; ring.x() < lantern.x(); ring.rx()++) Table.Key(39);
        for (; ring.x() > lantern.x(); ring.rx()--) Table.Key(37);
        for (; ring.y() < lantern.y(); ring.ry()++) Table.Key(40);
        for (; ring.y() > lantern.y(); ring.ry()--) Table.Key(38);
        Table.Key(lantern == order.first() ? Enter : Space);
    }
    EXPECT_EQ(Table.Sounds("right"), 1);
}

TEST_F(LanternRow, TheRingStopsAtTheEdges)
{
    Table.Start(1);
    for (int i = 0; i < 9; ++i) Table.Key(37);
    for (int i = 0; i < 9; ++i) Table.Key(38);
    Watch();
    Table.Key(Enter);
    EXPECT_EQ(Table.Description(), QStringLiteral("1, 1"));
}

TEST_F(LanternRow, AMistakeIsShownWithTheRightOrder)
{
    Table.Start(1);
    QList<QPoint> order = Watch();
    Press(order.last());
    EXPECT_EQ(Table.Sounds("wrong"), 1);
    EXPECT_EQ(Table.Name(), Table.Word("Wrong"));
    EXPECT_EQ(Table.Score(), 0);
    Press(order.first());
    EXPECT_EQ(Table.Score(), 0) << "nothing counts while it is told";
}

TEST_F(LanternRow, PressesDoNotCountWhileWatching)
{
    Table.Start(1);
    Press({2, 2});
    Table.Key(Enter);
    EXPECT_EQ(Table.Name(), Table.Word("Watch"));
    EXPECT_EQ(Table.Sounds("wrong"), 0);
}

TEST_F(LanternRow, HiddenStandsStill)
{
    Table.Start(1);
    Stage::Turn(10);
    Table.Game->SetVisible(false);
    Stage::Turn(800); // longer than both lanterns take
    EXPECT_EQ(Table.Description(), QString());
    Table.Game->SetVisible(true);
    EXPECT_EQ(Watch().size(), 2) << "no lantern was lit unseen";
}

TEST_F(LanternRow, AMachineThatStandsStillSwallowsNoLantern)
{
    Columns = 4;
    Table.SetPace(20);
    Table.Start(3);
    EXPECT_TRUE(Table.Sees([this] { return !Table.Description().isEmpty(); }));
    QThread::msleep(500); // more than the time of three lanterns
    EXPECT_EQ(Watch().size(), 4);
}

TEST_F(LanternRow, NoTimerRunsWhileThePlayerThinks)
{
    Table.Start(1);
    Watch();
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
}

TEST_F(LanternRow, TheLastRoundEndsTheSessionAtOnce)
{
    Table.UnloadAtTheEnd([this] { EXPECT_EQ(Table.Score(), 0); });
    Columns = 4;
    Table.Start(5);
    for (int round = 0; round < 8; ++round) {
        EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 0);
        const QList<QPoint> order = Watch();
        ASSERT_FALSE(order.isEmpty());
        Press(order.last());
    }
    EXPECT_EQ(Table.Framework->Count(QStringLiteral("gameover")), 1);
    Stage::Turn(20);
}

TEST_F(LanternRow, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name", "Watch", "Same", "Backward", "Right", "Wrong", "Points", "Level", "TimeUp"});
}

TEST_F(LanternRow, HasASoundForEveryStepOfEveryField)
{
    for (const char *name : {"note0", "note1", "note2", "note3", "note4", "note5", "note6", "right", "wrong", "done"})
        EXPECT_TRUE(FileExists(Folder + QStringLiteral("sounds/%1.wav").arg(QLatin1String(name)))) << name;
}

TEST_F(LanternRow, PicturesDifferBetweenItsParts)
{
    struct Row
    {
        const char *name;
        QSize size;
        int level, columns, rows;
        bool dark;
    };
    for (const Row &row : {Row{"designed", {632, 440}, 1, 3, 3, false}, Row{"dark", {632, 440}, 8, 4, 4, true},
                           Row{"small", {380, 290}, 3, 4, 3, false}, Row{"large", {1600, 1000}, 4, 4, 3, true}}) {
        const QString name = QStringLiteral("lantern-") + QLatin1String(row.name);
        Table.Dress(row.dark);
        Columns = row.columns;
        Rows = row.rows;
        Table.Resize(row.size);
        Table.SetPace(Stage::IsSeen() ? 100 : Quick);
        Table.Start(row.level);
        Table.Key(39);
        EXPECT_TRUE(Table.Sees([this] { return !Table.Description().isEmpty(); }));
        Stage::Settle(150);
        const QImage lit = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-lit"));
        QList<QPoint> order = Watch();
        if (row.level >= 6) std::reverse(order.begin(), order.end());
        const QImage play = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-play"));
        Press(order.at(0));
        Press(order.at(0));
        Stage::Settle(500);
        EXPECT_NE(lit, play);
        EXPECT_NE(play, Table.Picture());
        Table.Keep(name + QStringLiteral("-3-mistake"));
    }
}
