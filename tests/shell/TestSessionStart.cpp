// What surrounds the beginning of sessions: the program's own start as games meet it, and games that do everything at
// once.
#include "tests/shell/support/SessionTest.h"

#include "platform/SoundBuffer.h"

#include "services/modDX.h"

#include <QEventLoop>
#include <QTimer>

#include <cstdlib>
#include <utility>

class SessionStart : public SessionTest
{};

TEST_F(SessionStart, AGameThatEndsWhileItTakesTheFrameworkLeavesWhatItsEndChose)
{
    OpenPractice();
    Story.AtFramework = [](ToldGame &game) { game.End(); };
    Program.AnswerNextBox("cmd2");
    Play();
    EXPECT_TRUE(TakeBox().startsWith(u"Game over\r\n"));
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("score,unload"));
    EXPECT_EQ(Program.Window().Mode(), 2);
    EXPECT_TRUE(Program.Sees("ctlGameList1"));
    EXPECT_FALSE(Program.Sees("ctlGamePlaySummary1"));
    EXPECT_TRUE(Program.MenuKeys().contains(QStringLiteral("practice")));
    EXPECT_FALSE(GameTimer().isActive());
}

TEST_F(SessionStart, AGameThatPlaysInsideItsStartCanBeLeftForAnother)
{
    OpenWorkout();
    QEventLoop own;
    const auto leaveForAnother = [&] {
        Abandon();
        EXPECT_EQ(Program.Window().Mode(), 6);
        Play();
        EXPECT_EQ(Program.Window().Mode(), 3) << "another one has started inside of the first one's start";
        own.quit();
    };
    Story.At = [&](ToldGame &, const QString &cmd) {
        if (cmd != u"start" || own.isRunning()) return;
        QTimer::singleShot(0, leaveForAnother);
        own.exec();
    };
    bool result = true;
    Program.Window().StartGame(Game(), 1, result);
    EXPECT_FALSE(result) << "this one does not run any more";
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,unload,start"));
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
}

TEST_F(SessionStart, TheStartOfTheProgramIsHeardOnceUnlessSoundIsOff)
{
    for (const bool isOn : {true, false}) {
        Program.Folder.Write(QStringLiteral("Settings.ini"),
                             isOn ? "[Settings]\r\nSoundOn=1\r\n" : "[Settings]\r\nSoundOn=0\r\n");
        modDX::SetDevice(Loopback.get());
        ASSERT_TRUE(Program.Start());
        EXPECT_EQ(Sound("start").IsPlaying(), isOn);
        Loopback->Render(44100 * 10);
        EXPECT_FALSE(Sound("start").IsPlaying()) << "it does not repeat";
        Program.Stop();
    }
}

TEST_F(SessionStart, EachStartDealsGamesOtherNumbers)
{
    const auto numbers = [&] {
        EXPECT_TRUE(Program.Start());
        const std::pair drawn{std::rand(), std::rand()};
        Program.Stop();
        return drawn;
    };
    const auto first = numbers();
    Program.PassTime(-Program.StartTakes);
    EXPECT_EQ(numbers(), first) << "at the same moment";
    Program.PassTime(1 - Program.StartTakes);
    EXPECT_NE(numbers(), first);
}
