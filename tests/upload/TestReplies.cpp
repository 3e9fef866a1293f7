// Every kind of answer that a score site may give, and none at all.
#include "tests/support/TlsSite.h"
#include "tests/upload/UploadTest.h"

#include <QTest>
#include <QTimer>

#include <map>

namespace
{
class Replies : public UploadTest
{
protected:
    Replies() { GivenAnnsResults(2); }

    /// The line that the error message tells, "yes" when there was no error.
    QString ErrorFrom(const QByteArray &bytes, bool isReset = false)
    {
        HttpServer site([=](int, const QByteArray &) {
            return HttpServer::Reply{.Bytes = bytes, .IsHeld = true, .IsReset = isReset};
        });
        return ErrorOf(site);
    }
    QString ErrorOf(HttpServer &site)
    {
        GivenSite(site.Host());
        QString error = RunForError(&site);
        m_Sent = site.Count();
        return error;
    }
    /// A reply that the site holds back goes out at a turn of the interface after its request came: an upload that
    /// waits without letting the interface live gets none.
    QString RunForError(HttpServer *site = nullptr)
    {
        int ticks = 0;
        int let = site == nullptr ? 0 : site->Count();
        QTimer alive;
        QObject::connect(&alive, &QTimer::timeout, [&] {
            ++ticks;
            if (site == nullptr || site->Count() == let) return;
            ++let;
            site->Release();
        });
        Show([&alive](frmUpload &form) {
            alive.start(0);
            Click(form, "butUpload");
            alive.stop();
        });
        EXPECT_GT(ticks, 0) << "the interface is alive";
        const QString message = m_Framework->TakeLast().Message;
        if (message == u"All games uploaded.") return QStringLiteral("yes");
        const QString head = QStringLiteral("Error uploading:\r\n");
        const QString tail = QStringLiteral("\r\nFor help on this error visit http://noggle.example.org/upload-help");
        EXPECT_TRUE(message.startsWith(head) && message.endsWith(tail)) << message.toStdString();
        return message.mid(head.size(), message.size() - head.size() - tail.size());
    }
    void ExpectRefusal(const QString &error, const char *told)
    {
        EXPECT_EQ(error, QString::fromUtf8(told));
        EXPECT_EQ(m_Sent, 2) << "two attempts at the first result, and none at the second";
        EXPECT_EQ(Marked(), QString());
    }
    int m_Sent = 0;
};
} // namespace

TEST_F(Replies, TwoHundredIsYes)
{
    EXPECT_EQ(ErrorFrom(HttpServer::Ok()), QStringLiteral("yes"));
    EXPECT_EQ(m_Sent, 2);
    EXPECT_EQ(Marked(), QStringLiteral("1 2"));
}

TEST_F(Replies, TwoHundredOverHTTP10WithoutALengthIsYes)
{
    EXPECT_EQ(ErrorFrom("HTTP/1.0 200 OK\r\n\r\nsaid no in the body"), QStringLiteral("yes"));
}

TEST_F(Replies, TwoHundredWithLinesEndedByLFAloneIsYes)
{
    EXPECT_EQ(ErrorFrom("HTTP/1.1 200 OK\nContent-Length: 0\n\n"), QStringLiteral("yes"));
    EXPECT_EQ(Marked(), QStringLiteral("1 2"));
}

TEST_F(Replies, AnInterimReplyIsNotTheAnswer)
{
    EXPECT_EQ(ErrorFrom("HTTP/1.1 100 Continue\r\n\r\n" + HttpServer::Ok()), QStringLiteral("yes"));
}

TEST_F(Replies, AnInterimReplyBeforeARefusalIsNotTheAnswer)
{
    ExpectRefusal(ErrorFrom("HTTP/1.1 100 Continue\r\n\r\n" + HttpServer::Status("404 Not Found")),
                  "HTTP/1.1 404 Not Found\r");
}

TEST_F(Replies, TwoHundredAndOneIsARefusal)
{
    ExpectRefusal(ErrorFrom(HttpServer::Status("201 Created")), "HTTP/1.1 201 Created\r");
}

TEST_F(Replies, ARedirectIsARefusalAndNotFollowed)
{
    HttpServer other(HttpServer::Ok());
    ExpectRefusal(ErrorFrom("HTTP/1.1 302 Found\r\nLocation: http://" + other.Host().toUtf8() +
                            "/\r\nContent-Length: 0\r\n\r\n"),
                  "HTTP/1.1 302 Found\r");
    EXPECT_EQ(other.Count(), 0);
}

TEST_F(Replies, FourHundredAndFourTellsItsStatusLine)
{
    ExpectRefusal(ErrorFrom(HttpServer::Status("404 Not Found")), "HTTP/1.1 404 Not Found\r");
}

TEST_F(Replies, FiveHundredTellsItsStatusLineEvenWithLFAlone)
{
    ExpectRefusal(ErrorFrom("HTTP/1.1 500 Oops\nContent-Length: 0\n\n"), "HTTP/1.1 500 Oops\r");
}

TEST_F(Replies, AStatusThatOnlyStartsLikeTwoHundredElsewhereIsARefusal)
{
    ExpectRefusal(ErrorFrom("HTTP/1.1 404 200\r\nX-Status: 200\r\nContent-Length: 0\r\n\r\n"), "HTTP/1.1 404 200\r");
}

TEST_F(Replies, AReplyWithoutHeadersIsAnUnknownError)
{
    ExpectRefusal(ErrorFrom("200 OK, says the body alone\r\n"), "Unknown error");
}

TEST_F(Replies, BytesWithoutSenseAreAnUnknownError)
{
    ExpectRefusal(ErrorFrom(QByteArray("\0\1\2\xff\xfe garbage \x80", 16)), "Unknown error");
}

TEST_F(Replies, NoByteAtAllIsTheNumberOfTheTransfer) { ExpectRefusal(ErrorFrom(""), "Error: 52"); }

TEST_F(Replies, AConnectionThatBreaksOffIsTheNumberOfTheTransfer) { ExpectRefusal(ErrorFrom("", true), "Error: 56"); }

TEST_F(Replies, ABodyShorterThanItsLengthIsTheNumberOfTheTransfer)
{
    ExpectRefusal(ErrorFrom("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf"), "Error: 18");
}

TEST_F(Replies, HalfAStatusLineIsNoAnswer)
{
    EXPECT_NE(ErrorFrom("HTTP/1.1 20"), QStringLiteral("yes"));
    EXPECT_EQ(m_Sent, 2);
    EXPECT_EQ(Marked(), QString());
}

TEST_F(Replies, HalfTheHeadersOfARefusalIsNoYes)
{
    EXPECT_NE(ErrorFrom("HTTP/1.1 404 Not Found\r\nContent-Le"), QStringLiteral("yes"));
    EXPECT_EQ(Marked(), QString());
}

TEST_F(Replies, HalfTheHeadersBehindTwoHundredStillHoldItsStatus)
{
    EXPECT_EQ(ErrorFrom("HTTP/1.1 200 OK\r\nContent-Le"), QStringLiteral("yes"));
}

TEST_F(Replies, ASiteThatRefusesTheConnectionIsTheNumberOfTheTransfer)
{
    GivenSite(RefusingHost());
    EXPECT_EQ(RunForError(), QStringLiteral("Error: 7"));
    EXPECT_EQ(Marked(), QString());
}

TEST_F(Replies, ASiteWithoutANameThatCanBeReadIsTheNumberOfTheTransfer)
{
    GivenSite(QStringLiteral("no host at all"));
    EXPECT_EQ(RunForError(), QStringLiteral("Error: 3"));
}

TEST_F(Replies, TheSecondAttemptCounts)
{
    HttpServer site([](int number, const QByteArray &) {
        return HttpServer::Reply{.Bytes = number % 2 == 1 ? HttpServer::Status("503 Busy") : HttpServer::Ok()};
    });
    EXPECT_EQ(ErrorOf(site), QStringLiteral("yes"));
    EXPECT_EQ(m_Sent, 4);
    EXPECT_EQ(site.Lines()[0], site.Lines()[1]);
    EXPECT_EQ(Marked(), QStringLiteral("1 2"));
}

TEST_F(Replies, TheErrorIsThatOfTheLastAttemptAndNothingOfTheFirstIsLeft)
{
    HttpServer site([](int number, const QByteArray &) {
        return HttpServer::Reply{.Bytes = number == 1 ? HttpServer::Status("404 Not Found") : "no headers"};
    });
    ExpectRefusal(ErrorOf(site), "Unknown error");
}

TEST_F(Replies, ARunThatBrokeOffGoesOnWhereItStopped)
{
    HttpServer site([](int number, const QByteArray &) {
        return HttpServer::Reply{.Bytes =
                                     number == 2 || number == 3 ? HttpServer::Status("500 Oops") : HttpServer::Ok()};
    });
    EXPECT_EQ(ErrorOf(site), QStringLiteral("HTTP/1.1 500 Oops\r"));
    EXPECT_EQ(Marked(), QStringLiteral("1"));
    EXPECT_EQ(ErrorOf(site), QStringLiteral("yes"));
    EXPECT_EQ(m_Sent, 4) << "one yes, two refusals, and the second result alone";
    EXPECT_EQ(Marked(), QStringLiteral("1 2"));
}

TEST_F(Replies, NoProxyIsTakenFromTheEnvironment)
{
    const QByteArray proxy = "http://" + RefusingHost().toUtf8();
    // A machine may name hosts to ask without one.
    const std::map<const char *, QByteArray> wanted{
        {"http_proxy", proxy}, {"all_proxy", proxy}, {"ALL_PROXY", proxy}, {"no_proxy", {}}, {"NO_PROXY", {}}};
    std::map<const char *, QByteArray> before;
    for (const auto &[name, value] : wanted) {
        if (qEnvironmentVariableIsSet(name)) before[name] = qgetenv(name);
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    }
    EXPECT_EQ(ErrorFrom(HttpServer::Ok()), QStringLiteral("yes"));
    for (const auto &[name, value] : wanted) before.contains(name) ? qputenv(name, before[name]) : qunsetenv(name);
}

TEST_F(Replies, AFolderAndASchemeInTheSettingAreUnderstood)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(QStringLiteral("http://") + site.Host() + QStringLiteral("/scores/"));
    EXPECT_EQ(RunForError(), QStringLiteral("yes"));
    EXPECT_TRUE(site.Lines()[0].startsWith("GET /scores/submit.asp?E="));
}

TEST_F(Replies, ASiteBehindTlsWithoutATrustedCertificateIsToldNothingAndTheRunStops)
{
    TlsSite site;
    GivenSite(QStringLiteral("HTTPS://") + site.Host() + u'/');
    EXPECT_EQ(RunForError(), QStringLiteral("Error: 60"));
    EXPECT_EQ(Marked(), QString());
    EXPECT_EQ(site.EndAndTell(), QStringList());
}
