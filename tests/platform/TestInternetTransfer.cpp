// One transfer after the other, as the upload uses them.
#include "platform/InternetTransfer.h"
#include "platform/ReplyHeader.h"
#include "tests/support/HttpServer.h"
#include "tests/support/TlsSite.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace
{
int Result(InternetTransfer &transfer, const QByteArray &address)
{
    transfer.OpenURL(address);
    while (transfer.StillExecuting()) transfer.Wait(50);
    return transfer.ResponseCode();
}

std::string Collected(std::initializer_list<const char *> lines)
{
    ReplyHeader header;
    for (const char *line : lines) header.Take(line);
    return header.Text().toStdString();
}
} // namespace

TEST(InternetTransfer, SendsEachByteOfTheTargetAsItStands)
{
    HttpServer site(HttpServer::Ok());
    InternetTransfer transfer;
    QByteArray target = "/a b?";
    for (int byte = 0x20; byte < 0x100; ++byte)
        if (byte != 0x7f) target.append(static_cast<char>(byte));
    ASSERT_EQ(Result(transfer, "http://" + site.Host().toUtf8() + target), 0);
    EXPECT_EQ(site.Lines()[0], "GET " + target + " HTTP/1.1");
    EXPECT_TRUE(transfer.GetHeader().startsWith("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n"));
}

TEST(InternetTransfer, SendsATargetOfAHundredThousandBytes)
{
    HttpServer site(HttpServer::Ok());
    InternetTransfer transfer;
    const QByteArray target = "/?" + QByteArray(100'000, 'x');
    ASSERT_EQ(Result(transfer, "http://" + site.Host().toUtf8() + target), 0);
    EXPECT_EQ(site.Lines()[0].size(), target.size() + 13);
}

TEST(InternetTransfer, WithoutAPathAsksForTheRoot)
{
    HttpServer site(HttpServer::Ok());
    InternetTransfer transfer;
    ASSERT_EQ(Result(transfer, "http://" + site.Host().toUtf8()), 0);
    EXPECT_EQ(site.Lines()[0], "GET / HTTP/1.1");
}

TEST(InternetTransfer, RefusesEachControlByteAndSendsNothing)
{
    HttpServer site(HttpServer::Ok());
    InternetTransfer transfer;
    for (int byte = 0; byte < 0x21; ++byte) {
        const char control = static_cast<char>(byte == 0x20 ? 0x7f : byte);
        EXPECT_EQ(Result(transfer, "http://" + site.Host().toUtf8() + "/a" + control + "b"), 3) << byte;
        EXPECT_EQ(transfer.GetHeader(), QByteArray());
    }
    EXPECT_EQ(site.Count(), 0);
}

TEST(InternetTransfer, KeepsNothingOfTheReplyBefore)
{
    HttpServer site([](int number, const QByteArray &) {
        return HttpServer::Reply{.Bytes = number == 1 ? HttpServer::Ok() : "nothing like a header"};
    });
    InternetTransfer transfer;
    const QByteArray address = "http://" + site.Host().toUtf8() + "/";
    EXPECT_EQ(Result(transfer, address), 0);
    EXPECT_EQ(Result(transfer, address), 0);
    EXPECT_EQ(transfer.GetHeader(), QByteArray());
    EXPECT_EQ(Result(transfer, "http://" + RefusingHost().toUtf8() + "/"), 7);
    EXPECT_EQ(transfer.GetHeader(), QByteArray());
}

TEST(InternetTransfer, GivesUpASiteThatTakesLongerThanTheLimit)
{
    HttpServer site([](int, const QByteArray &) { return HttpServer::Reply{.IsHeld = true}; });
    InternetTransfer transfer;
    transfer.SetLimits({.Connect = 30'000, .Whole = 300});
    EXPECT_EQ(Result(transfer, "http://" + site.Host().toUtf8() + "/"), 28);
    site.Release();
}

TEST(InternetTransfer, SendsOnceEachTimeThoughTheSiteClosesWithoutAWord)
{
    HttpServer site("");
    InternetTransfer transfer;
    for (int time = 1; time <= 3; ++time) {
        EXPECT_EQ(Result(transfer, "http://" + site.Host().toUtf8() + "/"), 52);
        EXPECT_EQ(site.Count(), time);
    }
}

TEST(InternetTransfer, EndsAReplyWhoseHeadersNeverEnd)
{
    HttpServer site("HTTP/1.1 200 OK\r\n" +
                    QByteArray("X-Long: 0123456789012345678901234567890123456789\r\n").repeated(40'000));
    InternetTransfer transfer;
    EXPECT_NE(Result(transfer, "http://" + site.Host().toUtf8() + "/"), 0);
    EXPECT_LT(transfer.GetHeader().size(), 2 << 20);
}

TEST(InternetTransfer, OneThatIsUnderWayIsGivenUpByTheNext)
{
    HttpServer slow([](int, const QByteArray &) { return HttpServer::Reply{.IsHeld = true}; });
    HttpServer site(HttpServer::Ok());
    InternetTransfer transfer;
    transfer.OpenURL("http://" + slow.Host().toUtf8() + "/");
    while (slow.Count() == 0) {
        ASSERT_TRUE(transfer.StillExecuting());
        transfer.Wait(10);
    }
    EXPECT_EQ(Result(transfer, "http://" + site.Host().toUtf8() + "/"), 0);
    slow.Release();
}

TEST(InternetTransfer, WithinTlsTooTheTargetStandsAsItIsAndNoOtherProtocolIsOffered)
{
    TlsSite site;
    InternetTransfer transfer;
    transfer.SetTrusted(site.Certificate().toUtf8());
    ASSERT_EQ(Result(transfer, "https://" + site.Host().toUtf8() + "/a b?PN=Ann & Ωμέγα#%20"), 0);
    EXPECT_TRUE(transfer.GetHeader().startsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_EQ(site.EndAndTell(), QStringList{QStringLiteral("http/1.1 GET /a b?PN=Ann & Ωμέγα#%20 HTTP/1.1")});
}

TEST(InternetTransfer, ASiteWhoseCertificateNobodyVouchesForIsToldNothing)
{
    TlsSite site;
    InternetTransfer transfer;
    EXPECT_EQ(Result(transfer, "https://" + site.Host().toUtf8() + "/secret"), 60);
    EXPECT_EQ(transfer.GetHeader(), QByteArray());
    EXPECT_EQ(site.EndAndTell(), QStringList());
}

TEST(InternetTransfer, ASiteWithTheCertificateOfAnotherIsToldNothing)
{
    TlsSite site(QStringLiteral("127.0.0.2"));
    InternetTransfer transfer;
    transfer.SetTrusted(site.Certificate().toUtf8());
    EXPECT_EQ(Result(transfer, "https://" + site.Host().toUtf8() + "/secret"), 60);
    EXPECT_EQ(site.EndAndTell(), QStringList());
}

TEST(InternetTransfer, APlainSiteIsNoneBehindTls)
{
    HttpServer site([](int, const QByteArray &) { return HttpServer::Reply{.Bytes = HttpServer::Ok()}; });
    InternetTransfer transfer;
    transfer.SetLimits({.Connect = 500, .Whole = 500}); // it waits for a request that never ends
    EXPECT_NE(Result(transfer, "https://" + site.Host().toUtf8() + "/secret"), 0);
    EXPECT_EQ(transfer.GetHeader(), QByteArray());
    for (const QByteArray &request : site.Requests()) EXPECT_FALSE(request.contains("secret"));
}

TEST(InternetTransfer, OtherSchemesAreNone)
{
    InternetTransfer transfer;
    EXPECT_EQ(Result(transfer, "file:///etc/hostname"), 3);
    EXPECT_EQ(Result(transfer, "ftp://127.0.0.1/a"), 1);
    EXPECT_EQ(Result(transfer, ""), 3);
}

TEST(ReplyHeader, TakesLinesWhateverEndsThem)
{
    EXPECT_EQ(Collected({"HTTP/1.1 200 OK\r\n", "A: 1\n", "B: 2", "\r\n"}), "HTTP/1.1 200 OK\r\nA: 1\r\nB: 2\r\n");
    EXPECT_EQ(Collected({}), "");
    EXPECT_EQ(Collected({"\r\n", "HTTP/1.1 200 OK\r\n"}), "HTTP/1.1 200 OK\r\n");
}

TEST(ReplyHeader, ForgetsInterimRepliesAndOnlyThose)
{
    EXPECT_EQ(Collected({"HTTP/1.1 100 Continue\r\n", "\r\n", "HTTP/1.1 103 Early\r\n", "L: 1\r\n", "\r\n",
                         "HTTP/1.1 404 No\r\n", "\r\n"}),
              "HTTP/1.1 404 No\r\n");
    EXPECT_EQ(Collected({"HTTP/1.1 404 No\r\n", "HTTP/1.1 200 OK\r\n", "\r\n"}),
              "HTTP/1.1 404 No\r\nHTTP/1.1 200 OK\r\n");
}

TEST(ReplyHeader, WhatComesBehindTheEndIsNone)
{
    EXPECT_EQ(Collected({"HTTP/1.1 404 No\r\n", "\r\n", "HTTP/1.1 200 OK\r\n", "Trailer: 1\r\n"}),
              "HTTP/1.1 404 No\r\n");
}
