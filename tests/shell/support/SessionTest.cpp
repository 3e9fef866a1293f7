#include "tests/shell/support/SessionTest.h"

#include "platform/Clock.h"
#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"

#include "services/colSound.h"
#include "services/modDX.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/colGame.h"

#include "sdk/controls/TransLabel.h"

#include "shell/GameLibraries.h"

#include <QTimerEvent>
#include <QWindow>
#include <QtEndian>

#include <ostream>

namespace
{
const QString ToldClass = QStringLiteral("Told.GameArea");
}

void PrintTo(const QString &Text, std::ostream *Out) { *Out << '"' << Text.toStdString() << '"'; }

QString FailureOf(const std::function<void()> &Work)
{
    try {
        Work();
    } catch (const std::exception &failure) {
        return QString::fromUtf8(failure.what());
    }
    return QStringLiteral("none");
}

SessionTest::SessionTest()
{
    RegisterGame(ToldClass, [this](QWidget *container) { return new ToldGame(container, Story); });
    GivenGame(QStringLiteral("Alpha"), QStringLiteral("Told"));
}

SessionTest::~SessionTest()
{
    RegisterGame(ToldClass, {});
    Program.Stop();
    modDX::SetDevice(nullptr);
}

void SessionTest::GivenGame(const QString &Name, const QString &Component, int TimeLimit, int Levels) const
{
    Program.GivenGame(Name.toLower(),
                      {QStringLiteral("name=") + Name, QStringLiteral("component=") + Component,
                       QStringLiteral("timelimit=%1").arg(TimeLimit), QStringLiteral("levels=%1").arg(Levels),
                       QStringLiteral("category=Memory"), QStringLiteral("colour=blue")});
    Program.Folder.Write(Name.toLower() + QStringLiteral("/Instructions.rtf"), R"({\rtf1 How to play.})");
}

void SessionTest::OpenPractice()
{
    ASSERT_TRUE(Program.Start()) << qPrintable(Program.PlainBoxes.join(u'|'));
    modDX::SetDevice(Loopback.get());
    Program.NewPlayer(QStringLiteral("Ann"));
    Program.Boxes.clear();
    SetClock([this] { return m_Moment; });
}

void SessionTest::OpenWorkout()
{
    ASSERT_NO_FATAL_FAILURE(OpenPractice());
    Menu(QStringLiteral("exercise"));
}

std::shared_ptr<CGame> SessionTest::Game(const QString &Name) const { return modMain::Games->GameByName(Name); }

void SessionTest::Play(const QString &Name, int Level) const { Program.Window().PlayGame(Game(Name), Level); }

void SessionTest::EndAndScore()
{
    Program.CloseNextScore();
    End();
}

void SessionTest::EndAndTell()
{
    Program.AnswerNextBox("cmd2");
    End();
}

void SessionTest::Abandon()
{
    Program.AnswerNextBox("cmd1");
    Menu(QStringLiteral("abandon"));
}

void SessionTest::Menu(const QString &Key) const
{
    QWindow *const window = Program.Window().windowHandle();
    const QWidget *const panel = Program.Find("ctlButtonPanel1");
    for (const int y : {2, panel->height() - 2})
        QTest::mouseMove(window, panel->mapTo(&Program.Window(), QPoint(panel->width() / 2, y)));
    Program.ClickMenu(Key);
}

void SessionTest::PressKey(Qt::Key Key) const { QTest::keyClick(Program.Window().windowHandle(), Key); }

QTimer &SessionTest::GameTimer() const { return *Program.Find<QTimer>("tmrShowTime"); }

void SessionTest::Tick() const
{
    QTimerEvent tick(GameTimer().timerId());
    QCoreApplication::sendEvent(&GameTimer(), &tick);
}

QString SessionTest::TimeShown() const
{
    return Program.Find("ctlGamePlaySummary1")->findChild<TransLabel *>(QStringLiteral("lblTime"))->Caption();
}

SoundBuffer &SessionTest::Sound(const char *Name) const
{
    return *modMain::ShellSounds->Item(QLatin1String(Name)).DSBuffer();
}

QString SessionTest::Stored(const QString &Sql) const
{
    QStringList lines;
    for (const QVariantList &row : Program.Rows(Sql)) {
        QStringList values;
        for (const QVariant &value : row) values << (value.isNull() ? QStringLiteral("null") : value.toString());
        lines << values.join(u'|');
    }
    return lines.join(u'\n');
}

quint32 SessionTest::Commits() const
{
    constexpr int At = 24; // in the file's header
    return qFromBigEndian<quint32>(Program.Folder.Read(QStringLiteral("Noggle.mdb")).constData() + At);
}

int SessionTest::Count(const char *Table) const
{
    return Program.Ask(QStringLiteral("select count(*) from ") + QLatin1String(Table)).toInt();
}

void SessionTest::ExpectThatAGameIsStored()
{
    const int before = Count("GamePlayed");
    Play();
    EndAndScore();
    EXPECT_EQ(Count("GamePlayed"), before + 1);
    EXPECT_EQ(Program.Window().Mode(), 6);
}

QString SessionTest::Results() const
{
    return Stored(QStringLiteral("select GamePlayedScore, GamePlayedPoints, GamePlayedTime, GamePlayedMode, "
                                 "GamePlayedLevel, GamePlayedAward, GamePlayedWorkout from GamePlayed "
                                 "order by GamePlayedKey"));
}

QString SessionTest::States() const
{
    return Stored(QStringLiteral("select PlayerGameLevel, PlayerGameAwards, PlayerGameUnspentAwards from PlayerGame "
                                 "order by PlayerGamePlayer, PlayerGameGame"));
}

QString SessionTest::TakeBox() { return Program.Boxes.isEmpty() ? QString() : Program.Boxes.takeLast(); }
