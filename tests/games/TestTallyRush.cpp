#include "tests/games/TallyResult.h"
#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

namespace
{
constexpr int Enter = 13;
constexpr int Backspace = 8;
constexpr int Delete = 46;

const QString Folder = QStringLiteral(NOGGLE_DIST_FOLDER "tally-rush/");

/// The game, played by what a screen reader would tell of it.
class TallyRush : public testing::Test
{
protected:
    TallyRush() { Table.SetPace(Quick); }

    Stage Table{Folder};

    QString Task() const { return Table.Name().section(QStringLiteral(" = "), 0, 0); }
    QString Typed() const { return Table.Name().section(QStringLiteral(" = "), 1); }
    int Result() const { return TallyResult(Task()); }
    void WaitForMistake() { EXPECT_TRUE(Table.UntilStill()); }
    /// A place of the number pad, as parts of the whole at its design size.
    QPoint PadKey(int column, int row) const { return Table.At(QPointF(380 + 37 + column * 76, 58 + 37 + row * 77)); }
    QPoint PadDigit(int digit) const
    {
        return digit == 0 ? PadKey(1, 3) : PadKey((digit - 1) % 3, 2 - (digit - 1) / 3);
    }
};
} // namespace

TEST_F(TallyRush, ARightAnswerCountsAndTheNextTaskIsThereAtOnce)
{
    Table.Start(1);
    const QString first = Task();
    Table.Type(Result());
    EXPECT_NE(Task(), first);
    EXPECT_EQ(Table.Sounds("right"), 1);
    EXPECT_EQ(Table.Score(), 4);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 3);
}

TEST_F(TallyRush, AWrongAnswerEarnsNothingAndShowsTheRightOneForAWhile)
{
    Table.Start(1);
    Table.Type(Result() + 1);
    EXPECT_EQ(Table.Sounds("wrong"), 1);
    EXPECT_EQ(Table.Score(), 0);
    Table.Key(u'5');
    EXPECT_EQ(Typed(), QString()) << "no digit counts while the mistake is shown";
    WaitForMistake();
    Table.Type(Result());
    EXPECT_EQ(Table.Sounds("right"), 1);
}

TEST_F(TallyRush, AMistakeStaysInViewOverAPause)
{
    Table.Start(1);
    Table.Type(Result() + 1);
    Table.Game->SetVisible(false);
    WaitForMistake();
    Table.Game->SetVisible(true);
    Table.Key(u'5');
    EXPECT_EQ(Typed(), QString());
    WaitForMistake();
    Table.Key(u'5');
    EXPECT_EQ(Typed(), QStringLiteral("5"));
}

TEST_F(TallyRush, TypingCanBeTakenBack)
{
    Table.Start(1);
    for (const int key : {0x31, 0x32, 0x33}) Table.Key(key);
    EXPECT_EQ(Typed(), QStringLiteral("123"));
    Table.Key(Backspace);
    EXPECT_EQ(Typed(), QStringLiteral("12"));
    Table.Key(Delete);
    EXPECT_EQ(Typed(), QString());
    Table.Key(Backspace);
    Table.Key(Enter);
    EXPECT_EQ(Table.Sounds(""), 0) << "an empty answer is no answer";
}

TEST_F(TallyRush, TheNumberBlockTypesToo)
{
    Table.Start(1);
    Table.Key(96 + 4);
    Table.Key(96);
    EXPECT_EQ(Typed(), QStringLiteral("40"));
}

TEST_F(TallyRush, ADigitNeverGrowsBeyondTheFieldAndZeroDoesNotLead)
{
    Table.Start(1);
    for (const int key : {0x30, 0x30, 0x37, 0x37, 0x37, 0x37, 0x37}) Table.Key(key);
    EXPECT_EQ(Typed(), QStringLiteral("7777"));
}

TEST_F(TallyRush, AKeyPressedWithTheFocusCountsOnceOnly)
{
    Table.Start(1);
    QTest::keyClick(Table.Game->Control(), Qt::Key_5); // goes up to the window, which sends the verb
    EXPECT_EQ(Typed(), QString());
    Table.Key(u'5');
    EXPECT_EQ(Typed(), QStringLiteral("5"));
}

TEST_F(TallyRush, KeysAreNotTakenWhilePaused)
{
    Table.Start(1);
    Table.Game->SetVisible(false);
    Table.Key(u'5');
    EXPECT_EQ(Typed(), QString());
}

TEST_F(TallyRush, CanBePlayedWithTheMouseAloneAtEverySize)
{
    for (const QSize size : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
        Table.Resize(size);
        Table.Start(3);
        for (int task = 1; task <= 3; ++task) {
            for (const QChar digit : QString::number(Result())) Table.Click(PadDigit(digit.digitValue()));
            Table.Click(PadKey(2, 3));
            EXPECT_EQ(Table.Score(), 5 * task) << size.width();
        }
        Table.Click(PadDigit(7));
        Table.Click(PadKey(0, 3));
        EXPECT_EQ(Typed(), QString());
    }
}

TEST_F(TallyRush, OnlyTheLeftButtonPresses)
{
    Table.Start(1);
    QTest::mouseClick(Table.Game->Control(), Qt::RightButton, {}, PadDigit(5));
    EXPECT_EQ(Typed(), QString());
}

TEST_F(TallyRush, FastClicksOnOneKeyAllCount)
{
    Table.Start(1);
    Table.Click(PadDigit(5));
    QTest::mouseDClick(Table.Game->Control(), Qt::LeftButton, {}, PadDigit(5));
    EXPECT_EQ(Typed(), QStringLiteral("55")); // the second press of a double click comes as one event of its own
}

TEST_F(TallyRush, AWholeSetEndsTheSessionAtOnceAndOnce)
{
    Table.UnloadAtTheEnd([this] { EXPECT_EQ(Table.Score(), 128); });
    Table.Start(1);
    for (int task = 0; task < 32; ++task) {
        EXPECT_EQ(Table.Count("gameover"), 0);
        Table.Type(Result());
    }
    EXPECT_EQ(Table.Count("gameover"), 1);
    EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(Table.Sounds("done"), 1);
    Stage::Turn(20);
}

TEST_F(TallyRush, AfterTimeUpNothingCountsAndThePointsStand)
{
    Table.Start(1);
    Table.Type(Result());
    Table.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(Table.Score(), 4);
    Table.Type(Result());
    Table.Click(PadDigit(5));
    EXPECT_EQ(Table.Score(), 4);
    EXPECT_EQ(Table.Count("gameover"), 0);
}

TEST_F(TallyRush, StandsStillWhileNothingMoves)
{
    Table.Start(1);
    Table.Type(Result());
    EXPECT_FALSE(Table.Game->Control()->findChildren<QTimer *>().isEmpty());
    EXPECT_TRUE(Table.UntilStill());
}

TEST_F(TallyRush, ASeedInTheSettingsFileMakesTheBoardKnown)
{
    const auto tasks = [](std::uint32_t seed) {
        const Stage table(WithSeed(Folder, seed));
        QStringList told;
        for (int start = 0; start < 2; ++start) {
            table.Game->Message(QStringLiteral("start"), 9);
            told += table.Name();
        }
        return told;
    };
    EXPECT_EQ(tasks(7)[0], tasks(7)[1]);
    EXPECT_NE(tasks(7)[0], tasks(8)[0]);
}

TEST_F(TallyRush, EveryWordOfItsOwnIsThereInBothLanguages)
{
    Table.ExpectWords({"Name", "Hint", "Points", "Level", "TimeUp", "Right"});
}

TEST_F(TallyRush, PicturesDifferBetweenRightWrongAndTimeUp)
{
    Table.SetPace(Stage::IsSeen() ? 100 : Quick);
    for (const View &view : {View{"small", {380, 290}, 1, false}, View{"designed", {632, 440}, 5, false},
                             View{"dark", {632, 440}, 10, true}, View{"large", {1600, 1000}, 8, false},
                             View{"wide", {1000, 420}, 3, true}}) {
        const QString name = QStringLiteral("tally-") + QLatin1String(view.Name);
        Table.Show(view);
        Table.Start(view.Level);
        const QImage fresh = Table.Picture();
        Table.Keep(name + QStringLiteral("-1-first"));
        Table.Type(Result());
        Stage::Settle(60);
        for (int task = 0; task < 3; ++task) Table.Type(Result());
        Table.Type(Result() + 1);
        Stage::Settle(300);
        const QImage mistake = Table.Picture();
        Table.Keep(name + QStringLiteral("-2-mistake"));
        WaitForMistake();
        Table.Type(Result());
        Table.Key(u'4');
        Table.Key(u'2');
        Stage::Settle(120);
        Table.Keep(name + QStringLiteral("-3-typing"));
        Table.Game->Message(QStringLiteral("timeup"));
        EXPECT_NE(fresh, mistake);
        EXPECT_NE(mistake, Table.Picture());
        Table.Keep(name + QStringLiteral("-4-timeup"));
    }
}
