// A run of very many results.
#include "tests/upload/UploadTest.h"

#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>

namespace
{
class ManyResults : public UploadTest
{};
} // namespace

TEST_F(ManyResults, TenThousandResultsGoOutOnceEachInTheirOrder)
{
    constexpr int results = 10'000;
    GivenAnnsResults(results);
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    int ticks = 0;
    QTimer alive;
    QObject::connect(&alive, &QTimer::timeout, [&] { ++ticks; });
    alive.start(0);
    QElapsedTimer taken;
    taken.start();
    Run();
    std::printf("%d results in %lld ms\n", results, static_cast<long long>(taken.elapsed()));
    const QList<int> scores = ScoresOf(site.Lines());
    ASSERT_EQ(scores.size(), results);
    for (int i = 0; i < results; ++i) ASSERT_EQ(scores[i], i + 1);
    EXPECT_GE(ticks, results) << "the interface had its turn at each of them";
    EXPECT_EQ(MarkedCount(), results);
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
}
