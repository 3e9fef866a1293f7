// Long runs, slow sites, runs that are closed, killed and taken up again.
#include "tests/upload/UploadTest.h"

#include "platform/store/Command.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"

#include <QLineEdit>
#include <QProcess>
#include <QSet>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <mutex>
#include <random>
#include <thread>

namespace
{
class Runs : public UploadTest
{
protected:
    /// Presses "Close" once the request of that number is under way, and only then lets its reply go.
    void CloseDuring(int request, int results, const QByteArray &reply = HttpServer::Ok())
    {
        GivenAnnsResults(results);
        HttpServer site([=](int number, const QByteArray &) {
            return HttpServer::Reply{.Bytes = reply, .IsHeld = number == request};
        });
        GivenSite(site.Host());
        bool wasClosed = false;
        Show([&](frmUpload &form) {
            QTimer hand;
            QObject::connect(&hand, &QTimer::timeout, [&] {
                if (wasClosed || site.Count() < request) return;
                wasClosed = true;
                Click(form, "butOK");
                EXPECT_FALSE(form.isVisible()) << "at once, whatever is under way";
                EXPECT_EQ(MarkedCount(), request - 1);
                site.Release();
            });
            hand.start(5);
            Click(form, "butUpload");
        });
        EXPECT_TRUE(wasClosed);
        m_Requests = site.Count();
    }
    int m_Requests = 0;
};
} // namespace

TEST_F(Runs, ClosedDuringTheFirstResultThatOneEndsAndNoOtherIsSent)
{
    CloseDuring(1, 5);
    EXPECT_EQ(m_Requests, 1);
    EXPECT_EQ(Marked(), QStringLiteral("1"));
    EXPECT_EQ(TakeMessage(), QString());
}

TEST_F(Runs, ClosedInTheMiddleKeepsWhatIsDoneAndIsSilent)
{
    CloseDuring(3, 5);
    EXPECT_EQ(m_Requests, 3);
    EXPECT_EQ(Marked(), QStringLiteral("1 2 3"));
    EXPECT_EQ(TakeMessage(), QString());
}

TEST_F(Runs, ClosedDuringTheLastResultIsSilentThoughAllAreUploaded)
{
    CloseDuring(5, 5);
    EXPECT_EQ(m_Requests, 5);
    EXPECT_EQ(Marked(), QStringLiteral("1 2 3 4 5"));
    EXPECT_EQ(TakeMessage(), QString());
}

TEST_F(Runs, ClosedAndFailedIsSilentToo)
{
    CloseDuring(1, 5, HttpServer::Status("500 Oops"));
    EXPECT_EQ(m_Requests, 2) << "the result's own two attempts";
    EXPECT_EQ(Marked(), QString());
    EXPECT_EQ(TakeMessage(), QString());
}

TEST_F(Runs, WhatIsDeletedAfterTheDialogWasClosedHarmsNothing)
{
    GivenAnnsResults(3);
    HttpServer site(
        [](int, const QByteArray &) { return HttpServer::Reply{.Bytes = HttpServer::Ok(), .IsHeld = true}; });
    GivenSite(site.Host());
    Show([&](frmUpload &form) {
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, [&] {
            if (!form.isVisible() || site.Count() == 0) return;
            Click(form, "butOK");
            modMain::Players->Remove(1);
            ForgetRecords();
            site.Release();
        });
        hand.start(5);
        Click(form, "butUpload");
    });
    EXPECT_EQ(Marked(), QStringLiteral("1"));
}

TEST_F(Runs, TheInterfaceGoesOnWhileASiteKeepsSilent)
{
    GivenAnnsResults(1);
    HttpServer site(
        [](int, const QByteArray &) { return HttpServer::Reply{.Bytes = HttpServer::Ok(), .IsHeld = true}; });
    GivenSite(site.Host());
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        if (site.Count() == 1 && ++ticks == 20) site.Release();
    });
    clock.start(10);
    Run();
    EXPECT_GE(ticks, 20);
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
}

TEST_F(Runs, ASiteThatTakesThirtySecondsIsWaitedFor)
{
    GivenAnnsResults(1);
    HttpServer site([](int, const QByteArray &) {
        std::this_thread::sleep_for(std::chrono::seconds(30));
        return HttpServer::Reply{.Bytes = HttpServer::Ok()};
    });
    GivenSite(site.Host());
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] { ++ticks; });
    clock.start(50);
    Run();
    EXPECT_GT(ticks, 60) << "of six hundred, on the slowest machine too: the interface is alive";
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
    EXPECT_EQ(site.Count(), 1);
}

// A process of its own uploads and is killed while some request is under way; the next one takes the run up.
TEST_F(Runs, KilledAtAnyMomentSendsNoMarkedResultTwiceAndLosesNone)
{
    constexpr int results = 400;
    GivenAnnsResults(results);
    std::mutex lock;
    QProcess *child = nullptr;
    std::mt19937 random(20261121);
    int killAt = 0;
    HttpServer site([&](int number, const QByteArray &) {
        const std::lock_guard guard(lock);
        if (number == killAt && child != nullptr) ::kill(static_cast<pid_t>(child->processId()), SIGKILL);
        return HttpServer::Reply{.Bytes = HttpServer::Ok()};
    });
    GivenSite(site.Host());

    QSet<int> sent;
    int twice = 0;
    int kills = 0;
    for (std::size_t seen = 0; MarkedCount() < results;) {
        ASSERT_LT(kills, 100);
        const QSet<int> marked = [&] {
            QSet<int> keys;
            for (const QString &key : Marked().split(u' ', Qt::SkipEmptyParts)) keys << key.toInt();
            return keys;
        }();
        QProcess process;
        {
            const std::lock_guard guard(lock);
            killAt = site.Count() + std::uniform_int_distribution(1, 60)(random);
        }
        process.start(QStringLiteral(NOGGLE_UPLOAD_CHILD), {m_Store.Folder().Path()});
        ASSERT_TRUE(process.waitForStarted());
        {
            const std::lock_guard guard(lock);
            child = &process;
        }
        // Half of them not at the request but a moment later, in the middle of the mark or of the next request.
        if (kills % 2 == 1) {
            while (process.state() == QProcess::Running && site.Count() < killAt - 1) process.waitForFinished(1);
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
            process.kill();
        }
        ASSERT_TRUE(process.waitForFinished(60'000));
        {
            const std::lock_guard guard(lock);
            child = nullptr;
        }
        if (process.exitStatus() == QProcess::CrashExit) ++kills;
        const QList<int> scores = ScoresOf(site.Lines());
        for (; seen < static_cast<std::size_t>(scores.size()); ++seen) {
            const int score = scores[static_cast<qsizetype>(seen)]; // the same number as the result's key
            EXPECT_FALSE(marked.contains(score)) << "sent though it was marked: " << score;
            if (sent.contains(score)) ++twice;
            sent << score;
        }
        ASSERT_EQ(m_Store.Ask(QStringLiteral("pragma integrity_check")), QStringLiteral("ok"));
    }
    EXPECT_EQ(sent.size(), results) << "none is lost";
    EXPECT_GT(kills, 5);
    EXPECT_LE(twice, kills) << "at most the one that was under way";
    std::printf("%d kills, %d results sent again that were not marked yet\n", kills, twice);
}
