#include "tests/upload/UploadTest.h"

#include "domain/Store.h"
#include "platform/Clock.h"
#include "sdk/controls/LarkButton.h"
#include "services/modIniFile.h"

#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <ostream>

void PrintTo(const QString &Text, std::ostream *Out) { *Out << '"' << Text.toStdString() << '"'; }
void PrintTo(const QByteArray &Bytes, std::ostream *Out) { *Out << '"' << Bytes.toStdString() << '"'; }

UploadTest::UploadTest() : m_Framework(RecordingFramework::Install())
{
    modMain::Language = QStringLiteral("0");
    modMain::SettingsFile =
        m_Store.Folder().Write(QStringLiteral("Settings.ini"), "[Settings]\r\nEmail=ann@example.org\r\n");
    m_Store.Folder().Write(QStringLiteral("arrows/GameSettings.ini"),
                           "[config]\r\nname=Arrows & Co\r\ncomponent=A\r\ncategory=Logic\r\ntimelimit=60\r\n");
    QDateTime moment(QDate(2026, 3, 5), QTime(9, 7, 3));
    SetClock([moment] { return moment; });
    LoadRecords();
}

UploadTest::~UploadTest()
{
    ForgetRecords();
    SetClock({});
    modMain::Framework.reset();
    modMain::SettingsFile.clear();
}

void UploadTest::GivenSite(const QString &Host) const
{
    WriteIniString(QStringLiteral("Settings"), QStringLiteral("ScoreSite"), Host, modMain::SettingsFile);
}

std::shared_ptr<CPlayer> UploadTest::GivenPlayer(const QString &Name) const
{
    auto player = modMain::Players->Add();
    player->Name = Name;
    player->Save();
    return player;
}

void UploadTest::GivenResults(std::int32_t Player, int Count) const
{
    m_Store.Ask(QStringLiteral("with recursive n(i) as (select 1 union all select i + 1 from n where i < ?) "
                               "insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, "
                               "GamePlayedScore, GamePlayedPoints, GamePlayedTime, GamePlayedMode, GamePlayedLevel, "
                               "GamePlayedAward, GamePlayedUploaded) "
                               "select ?, 1, 46000 + i / 86400.0, i, i, 10, 3, 1, 0, 0 from n"),
                {Count, Player});
}

void UploadTest::GivenAnnsResults(int Count) const
{
    GivenResults(GivenPlayer(QStringLiteral("Ann"))->Key, Count);
    LoadRecords();
}

void UploadTest::Show(const std::function<void(frmUpload &)> &Act)
{
    frmUpload form;
    QTimer::singleShot(0, &form, [&] {
        Act(form);
        if (form.isVisible()) Click(form, "butOK");
    });
    form.ShowModal(nullptr);
}

void UploadTest::Run()
{
    Show([](frmUpload &form) { Click(form, "butUpload"); });
}

void UploadTest::Click(frmUpload &form, const char *name)
{
    QTest::mouseClick(Of<LarkButton>(form, name), Qt::LeftButton);
}

QString UploadTest::TakeMessage()
{
    return m_Framework->TakeLast().Message.replace(QStringLiteral("\r\n"), QStringLiteral("/"));
}

QString UploadTest::Marked() const
{
    return m_Store
        .Ask(QStringLiteral("select GamePlayedKey from GamePlayed where GamePlayedUploaded <> 0 "
                            "order by GamePlayedKey"))
        .replace(u'\n', u' ');
}

int UploadTest::MarkedCount() const
{
    return m_Store.Ask(QStringLiteral("select count(*) from GamePlayed where GamePlayedUploaded <> 0")).toInt();
}

QList<int> UploadTest::ScoresOf(const std::vector<QByteArray> &Lines)
{
    static const QRegularExpression score(QStringLiteral("&SC=(\\d+)&"));
    QList<int> scores;
    for (const QByteArray &line : Lines) scores << score.match(QString::fromUtf8(line)).captured(1).toInt();
    return scores;
}

QString UploadTest::Setting(const char *Key) const
{
    return ReadIniString(QStringLiteral("Settings"), QLatin1String(Key), {}, modMain::SettingsFile);
}
