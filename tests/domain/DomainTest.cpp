#include "DomainTest.h"

#include "domain/Store.h"
#include "platform/Clock.h"
#include "services/colSound.h"
#include "tests/support/Records.h"

#include <ostream>

void PrintTo(const QString &Text, std::ostream *Out) { *Out << '"' << Text.toStdString() << '"'; }

QByteArray GameFile::Text() const
{
    return "[config]\r\nname=" + Name + "\r\ncomponent=" + Name + "Component\r\ntimelimit=" + TimeLimit +
           "\r\ncategory=" + Category + "\r\n" + More + "\r\n";
}

DomainTest::DomainTest() : m_framework(RecordingFramework::Install())
{
    modMain::Language = QStringLiteral("0");
    modMain::SoundOn = true;
}

DomainTest::~DomainTest()
{
    ForgetRecords();
    SetClock({});
    modMain::Framework.reset();
}

QString DomainTest::GivenGame(const QString &Folder, const GameFile &Game)
{
    return m_folder.Write(Folder + QStringLiteral("/GameSettings.ini"), Game.Text());
}

void DomainTest::Start() { LoadRecords(); }

void DomainTest::StartAgain()
{
    ForgetRecords();
    modMain::ForgetConnection();
    Start();
}

QStringList DomainTest::Stored(const QString &Sql) const
{
    const QString rows = m_store.Ask(Sql);
    return rows.isEmpty() ? QStringList() : rows.split(QLatin1Char('\n'));
}

QString DomainTest::Names(const colGame &Games)
{
    QStringList names;
    for (const auto &game : Games) names.append(game->Name());
    return names.join(u' ');
}

std::shared_ptr<CGame> DomainTest::Game(const QString &StoredName)
{
    for (const auto &game : *modMain::Games)
        if (game->StoredName() == StoredName) return game;
    ADD_FAILURE() << "no game " << StoredName.toStdString();
    return std::make_shared<CGame>();
}

std::shared_ptr<CPlayer> DomainTest::GivenCurrentPlayer()
{
    modMain::CurrentPlayer = modMain::Players->Add();
    return modMain::CurrentPlayer;
}

void DomainTest::SetTime(int Year, int Month, int Day, int Hour, int Minute, int Second, int Millisecond)
{
    QDateTime moment(QDate(Year, Month, Day), QTime(Hour, Minute, Second, Millisecond));
    SetClock([moment] { return moment; });
}

QString DomainTest::TakeMessages()
{
    QStringList lines;
    for (const ShownBox &box : m_framework->Boxes) lines.append(box.FirstLine());
    m_framework->Boxes.clear();
    return lines.join(QStringLiteral("; "));
}
