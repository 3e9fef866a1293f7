#include "tests/shell/support/PlaysOn.h"

#include "tests/shell/support/SessionTest.h"

#include "domain/colPlayer.h"

#include "shell/program/modMain.h"

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
    QByteArray Folder() const { return Program.Folder.Path().toUtf8(); }
    void TestBody() override {}

    // Each game in a workout of its own, so that there is one more to be stored.
    [[noreturn]] void Play()
    {
        OpenProgram();
        for (;;) {
            modMain::CurrentWorkout.reset();
            SessionTest::Play();
            Program.CloseNextScore([] { Tell("c"); });
            End();
        }
    }

private:
    void OpenProgram()
    {
        if (!Program.Start()) _exit(3);
        const bool isNew = modMain::Players->Count() == 0;
        isNew ? Program.NewPlayer(QStringLiteral("Ann")) : Program.ClickPlayer(QStringLiteral("Ann"));
        Menu(QStringLiteral("exercise"));
    }
};
} // namespace

int PlayOnDemand()
{
    PlaysOn player;
    Tell(player.Folder());
    while (std::getchar() != EOF) {
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            player.Play();
        }
        Tell(QByteArray::number(child));
        waitpid(child, nullptr, 0);
        Tell("gone");
    }
    return 0;
}
