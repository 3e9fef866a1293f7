// Games that break every rule, on the whole program: each is told to the player or shrugged at, and the next one
// plays.
#include "tests/shell/support/SessionTest.h"

#include "domain/CGame.h"

#include "shell/program/modMain.h"

#include <QApplication>
#include <QLibrary>

namespace
{
class RudeGames : public SessionTest
{
protected:
    void GivenRude(const QStringList &classes) const
    {
        Program.Folder.Copy(QStringLiteral(NOGGLE_RUDE_FOLDER "rude.so"), QStringLiteral("components/rude.so"));
        Program.Folder.Copy(QStringLiteral(NOGGLE_RUDE_NEXT_FOLDER "rude-next.so"),
                            QStringLiteral("components/rude-next.so"));
        for (const QString &name : classes) GivenGame(name, name);
    }
    /// Plays a game that must be as good as any, to see that the program is well.
    void ExpectThatAnotherGamePlays()
    {
        const QString before = Program.Ask(QStringLiteral("select count(*) from GamePlayed"));
        Play();
        EndAndScore();
        EXPECT_EQ(Program.Ask(QStringLiteral("select count(*) from GamePlayed")).toInt(), before.toInt() + 1);
    }
    QString LastResult() const
    {
        return Stored(QStringLiteral("select GamePlayedScore, GamePlayedMode from GamePlayed "
                                     "order by GamePlayedKey desc limit 1"));
    }
};
} // namespace

TEST_F(RudeGames, WhatCantBeStartedIsToldAndCostsOnlyItself)
{
    GivenRude({QStringLiteral("RudeThrowsOnCreate"), QStringLiteral("RudeThrowsOnFramework"),
               QStringLiteral("RudeMakesNothing"), QStringLiteral("RudeNext"), QStringLiteral("Nobody")});
    GivenGame(QStringLiteral("Junk"), QStringLiteral("Junk"));
    Program.Folder.Write(QStringLiteral("junk/junk.so"), "no library");
    GivenGame(QStringLiteral("Unnamed"), {});
    OpenWorkout();
    for (const auto &[name, why] : {std::pair("RudeThrowsOnCreate", "thrown on creation"),
                                    std::pair("RudeThrowsOnFramework", "thrown on framework"),
                                    std::pair("RudeMakesNothing", "does not make it"),
                                    std::pair("RudeNext", "version"), std::pair("Nobody", "Nobody.GameArea"),
                                    std::pair("Junk", "Junk.GameArea"), std::pair("Unnamed", ".GameArea")}) {
        SCOPED_TRACE(name);
        Program.AnswerNextBox("cmd2");
        Play(QLatin1String(name));
        const QString box = TakeBox();
        EXPECT_EQ(box.section(QStringLiteral("\r\n"), 0, 0),
                  QStringLiteral("Error loading game: ") + QLatin1String(name));
        EXPECT_TRUE(box.section(QStringLiteral("\r\n"), 1).contains(QLatin1String(why))) << qPrintable(box);
        EXPECT_EQ(Program.Window().Mode(), 6);
    }
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, ThrowingAfterTheStartIsToldAndTheSessionGoesOn)
{
    GivenRude({QStringLiteral("RudeThrowsOnKey"), QStringLiteral("RudeThrowsOnSkin")});
    OpenWorkout();
    Play(QStringLiteral("RudeThrowsOnKey"));
    Program.AnswerNextBox("cmd2");
    PressKey(Qt::Key_A);
    EXPECT_TRUE(TakeBox().endsWith(u"\r\nthrown on keypress"));
    EXPECT_EQ(Program.Window().Mode(), 3);
    Abandon();
    Play(QStringLiteral("RudeThrowsOnSkin"));
    EXPECT_EQ(FailureOf([&] { Program.Window().SetSkin(modMain::CurrentSkin); }),
              QStringLiteral("thrown on changeskin"));
    EXPECT_EQ(Program.Window().Mode(), 3);
    Abandon();
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, ThrowingAtTimeUpAndAtUnloadIsIgnored)
{
    GivenRude({QStringLiteral("RudeThrowsOnTimeUp"), QStringLiteral("RudeThrowsOnUnload")});
    OpenWorkout();
    for (const char *name : {"RudeThrowsOnTimeUp", "RudeThrowsOnUnload"}) {
        SCOPED_TRACE(name);
        Play(QLatin1String(name));
        Pass(61);
        Program.CloseNextScore();
        Tick();
        EXPECT_EQ(LastResult(), QStringLiteral("50|1"));
        EXPECT_EQ(Program.Window().Mode(), 6);
    }
    EXPECT_EQ(Program.Boxes.join(u'|'), QString());
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, ThrowingAtScoreLeavesAGameToAbandonAndNoneThatCanEnd)
{
    GivenRude({QStringLiteral("RudeThrowsOnScore"), QStringLiteral("RudeThrowsANumber")});
    OpenWorkout();
    Play(QStringLiteral("RudeThrowsOnScore"));
    Pass(61);
    Tick();
    EXPECT_EQ(Program.Window().Mode(), 3);
    EXPECT_FALSE(GameTimer().isActive());
    Abandon();
    EXPECT_EQ(Program.Window().Mode(), 6);
    Play();
    End();
    EXPECT_EQ(Program.Window().Mode(), 3);
    EXPECT_EQ(Results(), QString());
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    Program.ClickPlayer(QStringLiteral("Ann"));
    Menu(QStringLiteral("exercise"));
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, WhatIsThrownMayBeAnything)
{
    GivenRude({QStringLiteral("RudeThrowsANumber")});
    OpenWorkout();
    Program.AnswerNextBox("cmd2");
    Play(QStringLiteral("RudeThrowsANumber"));
    EXPECT_EQ(TakeBox(), QStringLiteral("Error loading game: RudeThrowsANumber\r\nUnknown failure."));
    EXPECT_EQ(Program.Window().Mode(), 3) << "it was thrown at the start";
    Abandon();
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, EndingInAnyVerbYieldsOneResult)
{
    const QStringList names{QStringLiteral("RudeEndsOnStart"),      QStringLiteral("RudeEndsOnKey"),
                            QStringLiteral("RudeEndsTwice"),        QStringLiteral("RudeEndsOnTimeUp"),
                            QStringLiteral("RudeEndsOnScore"),      QStringLiteral("RudeEndsOnUnload"),
                            QStringLiteral("RudeCallsOnUnload"),    QStringLiteral("RudeCallsLate"),
                            QStringLiteral("RudeEndsInsideOwnLoop")};
    GivenRude(names);
    OpenWorkout();
    int ended = 0;
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        Program.CloseNextScore();
        Play(name);
        PressKey(Qt::Key_A);
        if (Program.Window().Mode() == 3) {
            Pass(61);
            Tick();
        }
        EXPECT_EQ(Program.Ask(QStringLiteral("select count(*) from GamePlayed")).toInt(), ++ended);
        EXPECT_EQ(LastResult(), QStringLiteral("50|1"));
        EXPECT_EQ(Program.Window().Mode(), 6);
    }
    RunningProgram::Turn(60); // the late calls
    EXPECT_EQ(qApp->property("rudeLateInfo").toString(), QString());
    EXPECT_EQ(Program.Ask(QStringLiteral("select count(*) from GamePlayed")).toInt(), ended);
    EXPECT_EQ(Program.Boxes.join(u'|'), QString());
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, AGameThatEndsOnStartLeavesNoLoopBehind)
{
    GivenRude({QStringLiteral("RudeEndsOnStart")});
    OpenWorkout();
    Program.CloseNextScore();
    Play(QStringLiteral("RudeEndsOnStart"));
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_TRUE(Program.Sees("ctlWorkOut1"));
    EXPECT_FALSE(GameTimer().isActive());
}

TEST_F(RudeGames, WaitingAndVanishingGamesAreAbandonedLikeAny)
{
    const QStringList names{QStringLiteral("RudeDeletesItself"), QStringLiteral("RudeOpensWindows"),
                            QStringLiteral("RudeShowsItself"), QStringLiteral("RudeIsAWindow"),
                            QStringLiteral("RudeWaitsInLoop")};
    GivenRude(names);
    OpenWorkout();
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        Play(name);
        PressKey(Qt::Key_A);
        RunningProgram::Turn(30);
        EXPECT_EQ(Program.Window().Mode(), 3);
        Abandon();
        EXPECT_EQ(Program.Window().Mode(), 6);
    }
    EXPECT_EQ(Results(), QString());
    ExpectThatAnotherGamePlays();
}

TEST_F(RudeGames, WhatAGameHoldsIsGivenBackWhenItEnds)
{
    GivenRude({QStringLiteral("RudeHoldsInput")});
    OpenWorkout();
    Play(QStringLiteral("RudeHoldsInput"));
    EXPECT_NE(QWidget::keyboardGrabber(), nullptr);
    Story.Verbs.clear();
    QWidget::mouseGrabber()->releaseMouse(); // so that the dialog can be clicked at all
    Pass(61);
    Program.CloseNextScore();
    Tick();
    EXPECT_EQ(LastResult(), QStringLiteral("50|1"));
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
    ExpectThatAnotherGamePlays();
}
