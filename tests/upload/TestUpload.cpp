// What goes out to the score site, and what its answers do.
#include "tests/upload/UploadTest.h"

#include "domain/CWorkout.h"
#include "platform/Clock.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"
#include "services/colSound.h"
#include "services/modIniFile.h"

#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QTest>
#include <QTimer>

namespace
{
class Upload : public UploadTest
{};

std::shared_ptr<CGamePlayed> Practised(CPlayer &player, std::int32_t game, std::int32_t score)
{
    return player.GamesPlayed().Add(player.Key, game, score, 34, score, 3, 2, 0);
}

std::int32_t Arrows() { return modMain::Games->GameByName(QStringLiteral("Arrows & Co"))->Key; }

std::vector<QByteArray> ValuesOf(const QByteArray &name, const std::vector<QByteArray> &lines)
{
    std::vector<QByteArray> values;
    for (const QByteArray &line : lines) {
        const qsizetype at = line.indexOf('&' + name + '=') + name.size() + 2;
        values.push_back(line.mid(at, line.indexOf('&', at) - at));
    }
    return values;
}
using Bytes = std::vector<QByteArray>;
} // namespace

TEST_F(Upload, TheRequestHasEveryPairInItsOrderAndNothingIsEncoded)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    const auto player = GivenPlayer(QStringLiteral("Ann & Bob Ωμέγα <é> 100% #1"));
    const auto workout = player->Workouts().Add();
    workout->GamesPlayed().Add(player->Key, Arrows(), 80, 25, 113, 1, 4, 1);
    Run();
    const Bytes requests = site.Requests();
    ASSERT_EQ(requests.size(), 1U);
    const QByteArray expected =
        "GET /submit.asp?E=ann@example.org&PK=1&PN=Ann & Bob Ωμέγα <é> 100% #1&GN=Arrows & Co&SC=80&PT=113"
        "&TS=05-03-2026&TM=25&AW=1&LV=4&MO=1&WO=1&WT=05/03/2026 HTTP/1.1\r\nHost: " +
        site.Host().toUtf8() + "\r\nUser-Agent: Noggle\r\nAccept: */*\r\n\r\n";
    EXPECT_EQ(requests[0], expected) << "to its last byte: a GET has no body, and no packing is asked for";
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
    EXPECT_EQ(Marked(), QStringLiteral("1"));
}

TEST_F(Upload, FiguresAndDatesAreTheSameInEveryLanguageAndTheAddressIsNotEncodedEither)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    WriteIniString(QStringLiteral("Settings"), QStringLiteral("Email"), QStringLiteral("Ann & Bob <a+b@example.org>"),
                   modMain::SettingsFile);
    const auto player = GivenPlayer(QStringLiteral("Ann"));
    player->Workouts().Add()->GamesPlayed().Add(player->Key, Arrows(), 1234567, 25, 7654321, 1, 4, 1);
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt)); // figures of its own, and another order of dates
    Run();
    QLocale::setDefault(before);
    ASSERT_EQ(site.Count(), 1);
    EXPECT_EQ(site.Lines()[0],
              "GET /submit.asp?E=Ann & Bob <a+b@example.org>&PK=1&PN=Ann&GN=Arrows & Co&SC=1234567&PT=7654321"
              "&TS=05-03-2026&TM=25&AW=1&LV=4&MO=1&WO=1&WT=05/03/2026 HTTP/1.1");
}

TEST_F(Upload, AResultOfNoWorkoutSendsWTEmptyAsTheLastPair)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    const auto player = GivenPlayer(QStringLiteral("Ann"));
    Practised(*player, Arrows(), 7);
    Run();
    ASSERT_EQ(site.Count(), 1);
    EXPECT_TRUE(site.Lines()[0].endsWith("&MO=3&WO=0&WT= HTTP/1.1"));
}

TEST_F(Upload, WhatIsGoneLeavesItsValueEmptyAndTheOthersStand)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    const auto player = GivenPlayer(QStringLiteral("Ann"));
    auto lost = Practised(*player, 999, 7);
    lost->Workout = 77;
    Run();
    ASSERT_EQ(site.Count(), 1);
    EXPECT_EQ(site.Lines()[0], "GET /submit.asp?E=ann@example.org&PK=1&PN=Ann&GN=&SC=7&PT=7&TS=05-03-2026&TM=34&AW=0"
                               "&LV=2&MO=3&WO=77&WT= HTTP/1.1");
    EXPECT_EQ(Marked(), QStringLiteral("1"));
}

TEST_F(Upload, NegativeAndLargestNumbersGoOutInDecimal)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    const auto player = GivenPlayer(QStringLiteral("Ann"));
    player->GamesPlayed().Add(player->Key, Arrows(), INT32_MIN, -1, INT32_MAX, 3, 0, 0);
    Run();
    ASSERT_EQ(site.Count(), 1);
    EXPECT_TRUE(site.Lines()[0].contains("&SC=-2147483648&PT=2147483647&TS=05-03-2026&TM=-1&AW=0&LV=0&"));
}

TEST_F(Upload, PlayersAndTheirResultsComeInTheOrderOfTheirLists)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    const auto ann = GivenPlayer(QStringLiteral("Zoe"));
    const auto bob = GivenPlayer(QStringLiteral("Ann"));
    Practised(*bob, Arrows(), 1);
    Practised(*ann, Arrows(), 2);
    Practised(*bob, Arrows(), 3)->Uploaded = true;
    Practised(*bob, Arrows(), 4);
    Run();
    EXPECT_EQ(ValuesOf("SC", site.Lines()), (Bytes{"2", "1", "4"}));
    EXPECT_EQ(ValuesOf("PN", site.Lines()), (Bytes{"Zoe", "Ann", "Ann"}));
}

TEST_F(Upload, EachResultIsMarkedInTheStoreBeforeTheNextIsSent)
{
    Bytes markedBefore;
    HttpServer site([&](int, const QByteArray &) {
        markedBefore.push_back(m_Store
                                   .Ask(QStringLiteral("select count(*) from GamePlayed where "
                                                       "GamePlayedUploaded <> 0"))
                                   .toUtf8());
        return HttpServer::Reply{.Bytes = HttpServer::Ok()};
    });
    GivenSite(site.Host());
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, 3);
    Run();
    EXPECT_EQ(markedBefore, (Bytes{"0", "1", "2"}));
    EXPECT_EQ(Marked(), QStringLiteral("1 2 3"));
}

TEST_F(Upload, TheSecondRunFindsNothing)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, 2);
    Show([&](frmUpload &form) {
        Click(form, "butUpload");
        EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
        EXPECT_TRUE(Of<QWidget>(form, "butUpload")->isVisible()) << "idle again";
        Click(form, "butUpload");
        EXPECT_EQ(TakeMessage(), QStringLiteral("No games to upload."));
    });
    EXPECT_EQ(site.Count(), 2);
}

TEST_F(Upload, TheDialogSaysWhereResultsGoAndWhatBecomesOfTheAddress)
{
    GivenSite(QStringLiteral("https://brain.example.org/scores"));
    Show([&](frmUpload &form) {
        const auto words = [&](const char *name) { return Of<TransLabel>(form, name)->Caption(); };
        EXPECT_EQ(words("lblTitle"), QStringLiteral("Upload Game Scores"));
        EXPECT_TRUE(words("cTransPictureBox1").contains(QStringLiteral("brain.example.org/scores web site")));
        EXPECT_EQ(words("lblEmail"), QStringLiteral("Please provide your email address:"));
        EXPECT_EQ(words("lblEmail2"), QStringLiteral("We will not make this public or pass it to 3rd parties."));
        EXPECT_EQ(words("lblProgress"), QStringLiteral("Uploaded X of XXX games."));
        EXPECT_EQ(Of<LarkButton>(form, "butUpload")->Caption(), QStringLiteral("Upload"));
        EXPECT_EQ(Of<LarkButton>(form, "butOK")->Caption(), QStringLiteral("Close"));
        for (const char *name : {"lblTitle", "cTransPictureBox1", "lblEmail", "lblEmail2", "butUpload", "butOK"})
            EXPECT_TRUE(Of<QWidget>(form, name)->isVisible()) << name;
        EXPECT_FALSE(Of<QWidget>(form, "lblProgress")->isVisible());
    });
}

TEST_F(Upload, TheSitesOfTheSettingsAreReadAndNeverWritten)
{
    const QString file = QStringLiteral("Settings.ini");
    const QByteArray before = m_Store.Folder().Read(file);
    Show([](frmUpload &form) {
        EXPECT_TRUE(Of<TransLabel>(form, "cTransPictureBox1")
                        ->Caption()
                        .contains(QStringLiteral(" scores.noggle.example.org ")));
    });
    EXPECT_EQ(m_Store.Folder().Read(file), before);
    GivenSite(RefusingHost());
    GivenAnnsResults(1);
    Run();
    EXPECT_TRUE(TakeMessage().endsWith(QStringLiteral("visit http://noggle.example.org/upload-help")));
    EXPECT_FALSE(m_Store.Folder().Read(file).contains("SupportPage"));
    WriteIniString(QStringLiteral("Settings"), QStringLiteral("SupportPage"), QStringLiteral("help.example.org/a b"),
                   modMain::SettingsFile);
    Run();
    EXPECT_TRUE(TakeMessage().endsWith(QStringLiteral("/For help on this error visit help.example.org/a b")));
}

TEST_F(Upload, WithoutAKeptAddressItsFieldIsEmptyAndNoKeyIsMade)
{
    m_Store.Folder().Write(QStringLiteral("Settings.ini"), "[Settings]\r\nSkin=Night\r\n");
    Show([&](frmUpload &form) {
        EXPECT_EQ(Of<QLineEdit>(form, "txtEmail")->text(), QString());
        Click(form, "butUpload");
        EXPECT_EQ(TakeMessage(), QStringLiteral("Please enter your email address"));
    });
    EXPECT_EQ(m_Store.Folder().Read(QStringLiteral("Settings.ini")), "[Settings]\r\nSkin=Night\r\n");
}

TEST_F(Upload, ItsButtonsAreSilent)
{
    modMain::ShellSounds = std::make_shared<colSound>(true);
    Show([&](frmUpload &form) {
        Click(form, "butUpload");
        Click(form, "butOK");
    });
    EXPECT_EQ(modMain::ShellSounds->Count(), 0) << "an effect is loaded when it is first played";
    modMain::ShellSounds.reset();
}

TEST_F(Upload, WithoutAnAddressAsksForItAndChangesNothing)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, 1);
    Show([&](frmUpload &form) {
        EXPECT_EQ(Of<QLineEdit>(form, "txtEmail")->text(), QStringLiteral("ann@example.org"));
        Of<QLineEdit>(form, "txtEmail")->clear();
        Click(form, "butUpload");
        EXPECT_EQ(TakeMessage(), QStringLiteral("Please enter your email address"));
        EXPECT_TRUE(Of<QWidget>(form, "txtEmail")->isVisible());
    });
    EXPECT_EQ(site.Count(), 0);
    EXPECT_EQ(Setting("Email"), QStringLiteral("ann@example.org"));
}

TEST_F(Upload, TheAddressIsKeptEvenWhenNothingIsToBeSent)
{
    Show([&](frmUpload &form) {
        auto *address = Of<QLineEdit>(form, "txtEmail");
        address->selectAll();
        QTest::keyClicks(address, QStringLiteral("bob@example.org"));
        Click(form, "butUpload");
        EXPECT_EQ(TakeMessage(), QStringLiteral("No games to upload."));
    });
    EXPECT_EQ(Setting("Email"), QStringLiteral("bob@example.org"));
}

TEST_F(Upload, TheAddressIsKeptBeforeAnythingIsSent)
{
    QString kept;
    HttpServer site([&](int, const QByteArray &) {
        kept = QString::fromUtf8(m_Store.Folder().Read(QStringLiteral("Settings.ini")));
        return HttpServer::Reply{.Bytes = HttpServer::Status("500 Oops")};
    });
    GivenSite(site.Host());
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, 1);
    Show([&](frmUpload &form) {
        Of<QLineEdit>(form, "txtEmail")->setText(QStringLiteral("new@example.org"));
        Click(form, "butUpload");
    });
    EXPECT_TRUE(kept.contains(QStringLiteral("Email=new@example.org")));
}

TEST_F(Upload, TheDialogSaysWhichGameOfHowManyIsUnderWay)
{
    QStringList seen;
    frmUpload *shown = nullptr;
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, 3);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (shown == nullptr || !Of<QWidget>(*shown, "lblProgress")->isVisible()) return;
        seen << Of<TransLabel>(*shown, "lblProgress")->Caption();
        for (const char *name : {"butUpload", "lblEmail", "lblEmail2", "txtEmail"})
            EXPECT_FALSE(Of<QWidget>(*shown, name)->isVisible()) << name;
        EXPECT_TRUE(Of<QWidget>(*shown, "butOK")->isVisible());
    });
    watch.start(0);
    Show([&](frmUpload &form) {
        shown = &form;
        EXPECT_FALSE(Of<QWidget>(form, "lblProgress")->isVisible());
        Click(form, "butUpload");
        EXPECT_FALSE(Of<QWidget>(form, "lblProgress")->isVisible());
        EXPECT_TRUE(Of<QWidget>(form, "txtEmail")->isVisible());
        shown = nullptr;
    });
    seen.removeDuplicates();
    EXPECT_EQ(seen, (QStringList{QStringLiteral("Uploading game 1 of 3"), QStringLiteral("Uploading game 2 of 3"),
                                 QStringLiteral("Uploading game 3 of 3")}));
}

TEST_F(Upload, AControlByteIsNeverSentAndStopsTheRunLikeAnyError)
{
    for (const char *name : {"Ann\r\nX-Forged: 1", "Ann\nBob", "Ann\rBob", "Ann\tBob", "Ann\x7f"}) {
        SCOPED_TRACE(name);
        HttpServer site(HttpServer::Ok());
        GivenSite(site.Host());
        m_Store.Ask(QStringLiteral("delete from GamePlayed"));
        m_Store.Ask(QStringLiteral("delete from Player"));
        LoadRecords();
        const auto good = GivenPlayer(QStringLiteral("Good"));
        const auto bad = GivenPlayer(QString::fromUtf8(name));
        const auto last = GivenPlayer(QStringLiteral("Last"));
        for (const auto &player : {good, bad, last}) Practised(*player, Arrows(), 5);
        Run();
        EXPECT_EQ(ValuesOf("PN", site.Lines()), Bytes{"Good"});
        EXPECT_EQ(TakeMessage(), QStringLiteral("Error uploading:/A name or an address holds a character that can't "
                                                "be sent./For help on this error visit "
                                                "http://noggle.example.org/upload-help"));
        EXPECT_EQ(m_Store.Ask(QStringLiteral("select count(*), max(GamePlayedPlayer) from GamePlayed where "
                                             "GamePlayedUploaded <> 0")),
                  QStringLiteral("1|%1").arg(good->Key));
    }
}

TEST_F(Upload, TheInterfaceHasItsTurnBeforeAResultThoughNoRequestIsMade)
{
    Practised(*GivenPlayer(QStringLiteral("Ann\tBob")), Arrows(), 5);
    QString seen;
    QTimer eye;
    Show([&](frmUpload &form) {
        QObject::connect(&eye, &QTimer::timeout, [&] { seen = Of<TransLabel>(form, "lblProgress")->Caption(); });
        eye.start(0);
        Click(form, "butUpload");
        eye.stop();
    });
    EXPECT_EQ(seen, QStringLiteral("Uploading game 1 of 1"));
}

TEST_F(Upload, AStoreThatFailsAfterTheSiteSaidYesIsToldAndTheRunGoesOn)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, 2);
    for (const auto &player : *modMain::Players) player->GamesPlayed(); // read before the store fails
    m_Store.FailAtCall(1);
    Run();
    ASSERT_EQ(m_Framework->Boxes.size(), 2U);
    EXPECT_EQ(m_Framework->Boxes[0].FirstLine(), QStringLiteral("Error saving GamePlayed info."));
    EXPECT_EQ(m_Framework->Boxes[1].Message, QStringLiteral("All games uploaded."));
    EXPECT_EQ(Marked(), QStringLiteral("2"));
    m_Framework->Boxes.clear();
    Run();
    EXPECT_EQ(TakeMessage(), QStringLiteral("No games to upload.")) << "marked in memory";
    m_Store.FailAtCall(0);
    LoadRecords();
    Run();
    EXPECT_EQ(ValuesOf("SC", site.Lines()), (Bytes{"1", "2", "1"})) << "sent again on the next start";
    EXPECT_EQ(Marked(), QStringLiteral("1 2"));
}

TEST_F(Upload, AResultThatCameInSinceTheListWasReadWaitsForTheNextStart)
{
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    const auto player = GivenPlayer(QStringLiteral("Ann"));
    EXPECT_EQ(player->GamesPlayed().Count(), 0);
    player->Workouts().Add()->GamesPlayed().Add(player->Key, Arrows(), 80, 25, 113, 1, 4, 1);
    Run();
    EXPECT_EQ(TakeMessage(), QStringLiteral("No games to upload."));
    LoadRecords();
    Run();
    EXPECT_EQ(TakeMessage(), QStringLiteral("All games uploaded."));
}

TEST_F(Upload, MessagesHaveNoParentAndTheErrorIsSmaller)
{
    class Sized final : public RecordingFramework
    {
    public:
        std::int32_t MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent, QString *Answer,
                            std::int32_t FontSize) override
        {
            Sizes.push_back(FontSize);
            const QWidget *const dialog = QApplication::activeModalWidget();
            Counts << dialog->findChild<QWidget *>(QStringLiteral("lblProgress"))->isVisible();
            EXPECT_EQ(Parent, nullptr);
            EXPECT_EQ(Options, 0);
            return RecordingFramework::MsgBox(Message, Options, Parent, Answer, FontSize);
        }
        std::vector<int> Sizes;
        QList<bool> Counts; // whether the dialog still shows how far the run has come
    };
    const auto framework = std::make_shared<Sized>();
    modMain::Framework = framework;
    GivenSite(RefusingHost());
    Show([](frmUpload &form) {
        Of<QLineEdit>(form, "txtEmail")->clear();
        Click(form, "butUpload");
    });
    Run(); // nothing to send
    GivenAnnsResults(1);
    Run();
    HttpServer site(HttpServer::Ok());
    GivenSite(site.Host());
    Run();
    QStringList told;
    for (const ShownBox &box : framework->Boxes) told << box.FirstLine();
    EXPECT_EQ(told,
              (QStringList{QStringLiteral("Please enter your email address"), QStringLiteral("No games to upload."),
                           QStringLiteral("Error uploading:"), QStringLiteral("All games uploaded.")}));
    EXPECT_EQ(framework->Sizes, (std::vector<int>{16, 16, 12, 16}));
    EXPECT_EQ(framework->Counts, (QList<bool>{false, false, true, true})) << "the dialog is idle after the message";
}
