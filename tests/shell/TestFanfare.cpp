// When the fanfare is heard, by the samples that the program renders: all other effects are silent here.
#include "tests/shell/support/SessionTest.h"
#include "tests/support/WaveBytes.h"

#include "platform/SoundDevice.h"

#include <QDir>

#include <algorithm>

namespace
{
class Fanfare : public SessionTest
{
protected:
    void SetUp() override
    {
        Program.GivenGame(QStringLiteral("beta"), {QStringLiteral("name=Beta"), QStringLiteral("component=Told"),
                                                   QStringLiteral("timelimit=60"), QStringLiteral("category=Logic")});
        const QString sounds = Program.Folder.Path() + QStringLiteral("sounds");
        for (const QString &file : QDir(sounds).entryList(QDir::Files))
            Program.Folder.Write(QStringLiteral("sounds/") + file,
                                 SteadyWave(file == u"fanfare.wav" ? std::int16_t{16384} : std::int16_t{0}));
        OpenWorkout();
        Program.Click("butNextWorkout");
    }
    /// Whether anything sounds now; what does has come to its end afterwards.
    bool IsHeard() const
    {
        const auto rendered = Loopback->Render(64);
        Loopback->Render(SoundDevice::LoopbackRate * 5);
        return std::any_of(rendered.begin(), rendered.end(), [](float sample) { return sample != 0.0F; });
    }
};
} // namespace

TEST_F(Fanfare, SoundsOnceWhenTheLastCategoryIsDone)
{
    EXPECT_FALSE(IsHeard()) << "a new workout";
    Play(QStringLiteral("Alpha"));
    EndAndScore();
    EXPECT_FALSE(IsHeard()) << "a category is left";
    Play(QStringLiteral("Beta"));
    Program.CloseNextScore([&] { EXPECT_FALSE(IsHeard()) << "not before the score is read"; });
    End();
    EXPECT_TRUE(IsHeard());
    EXPECT_FALSE(IsHeard()) << "once";
}

TEST_F(Fanfare, IsNotHeardAgainWhoeverComesBackToADoneWorkout)
{
    for (const char *game : {"Alpha", "Beta"}) {
        Play(QLatin1String(game));
        EndAndScore();
    }
    ASSERT_TRUE(IsHeard());
    Menu(QStringLiteral("practice"));
    Menu(QStringLiteral("exercise"));
    EXPECT_FALSE(IsHeard()) << "back from practice";
    Program.Click("picCat(1)");
    EXPECT_FALSE(IsHeard()) << "another tile";
    Menu(QStringLiteral("progress"));
    Menu(QStringLiteral("exercise"));
    EXPECT_FALSE(IsHeard()) << "back from the chart";
    Menu(QStringLiteral("practice"));
    Play(QStringLiteral("Alpha"));
    EndAndTell();
    EXPECT_FALSE(IsHeard()) << "a practice game has ended";
    Pass(86400);
    Menu(QStringLiteral("exercise"));
    EXPECT_FALSE(IsHeard()) << "the next morning";
    Program.Click("butNextWorkout");
    EXPECT_FALSE(IsHeard()) << "a new workout";
}

TEST_F(Fanfare, IsNotHeardWhenTheLastGameIsLeft)
{
    Play(QStringLiteral("Alpha"));
    EndAndScore();
    Play(QStringLiteral("Beta"));
    Abandon();
    EXPECT_FALSE(IsHeard());
}
