#include "tests/shell/support/PlaysOn.h"

#include "tests/shell/support/SessionTest.h"

#include "services/modDX.h"

#include "shell/StartUp.h"
#include "shell/program/modMain.h"

#include "domain/CPlayer.h"
#include "domain/Store.h"
#include "domain/colPlayer.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace
{
void Tell(const QByteArray &line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

class PlaysOn : public SessionTest
{
public:
    // One level, so that every award stays unspent and can be counted.
    PlaysOn() { GivenGame(QStringLiteral("Alpha"), QStringLiteral("Told"), 60, 1); }
    void TestBody() override {}

    /// Answer: when the input has ended. In a copy there is none: it plays until it is killed.
    void Play()
    {
        modDX::SetDevice(Loopback.get()); // which has no thread of its own
        ASSERT_TRUE(Program.Start());
        Program.NewPlayer(QStringLiteral("Ann"));
        Menu(QStringLiteral("exercise"));
        Tell(Program.Folder.Path().toUtf8());
        PlayOne([this] { MakeCopies(); });
        while (m_IsCopy) PlayOne([] { Tell("c"); });
    }

private:
    // Each game in a workout of its own, so that there is one more to be stored.
    void PlayOne(const std::function<void()> &beforeItIsStored)
    {
        modMain::CurrentWorkout.reset();
        SessionTest::Play();
        Program.CloseNextScore(beforeItIsStored);
        End();
    }
    void MakeCopies()
    {
        modMain::ForgetConnection(); // an open store is for one process
        while (std::getchar() != EOF) {
            const pid_t child = fork();
            if (child == 0) return GoOnAsCopy();
            waitpid(child, nullptr, 0);
            Tell("gone");
        }
    }
    // What earlier copies have stored is read anew, as a start does.
    void GoOnAsCopy()
    {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        m_IsCopy = true;
        Tell(QByteArray::number(getpid())); // by itself, so that it comes before what it tells next
        modMain::LoadData();
        modMain::CurrentPlayer = *modMain::Players->begin();
        modMain::CurrentGame = Game();
        modMain::CurrentWorkout.reset();
        Tell("c");
    }

    bool m_IsCopy = false;
};
} // namespace

int PlayOnDemand()
{
    PlaysOn().Play();
    return testing::Test::HasFailure() ? 1 : 0;
}
