#include "tests/support/Killing.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <chrono>
#include <random>
#include <thread>

void KillAtRandomMoments(const QString &Program, const QStringList &Arguments, int Times, int LongestWait,
                         const std::function<void()> &AfterEach)
{
    std::mt19937 random(20261121);
    std::uniform_int_distribution wait(0, LongestWait * 1000);
    for (int time = 0; time < Times && !testing::Test::HasFatalFailure(); ++time) {
        QProcess process;
        process.start(Program, Arguments, QIODevice::ReadOnly);
        ASSERT_TRUE(process.waitForReadyRead(30000)) << "no first line";
        std::this_thread::sleep_for(std::chrono::microseconds(wait(random)));
        ASSERT_EQ(process.state(), QProcess::Running);
        process.kill();
        ASSERT_TRUE(process.waitForFinished(30000));
        ASSERT_EQ(process.exitStatus(), QProcess::CrashExit) << "it ended before it was killed";
        AfterEach();
    }
}
