// The disk that the program's folder is on is full: the person is told and goes on, and nothing that was stored is
// lost. On a small disk of its own where one may be mounted, and always under a limit on the size of files.
#include "tests/shell/support/Messages.h"
#include "tests/shell/support/SessionTest.h"
#include "tests/support/SmallDisk.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"
#include "domain/colPlayer.h"

#include "shell/program/modMain.h"

#include <QDir>
#include <QDirIterator>
#include <QMap>

#include <iostream>

namespace
{
struct OnSmallDisk
{
    explicit OnSmallDisk(bool MayMount) : Disk(MayMount) {}
    SmallDisk Disk;
};

/// The parameter: whether a disk may be mounted.
class FullDisk : protected OnSmallDisk, public SessionTest, public testing::WithParamInterface<bool>
{
protected:
    FullDisk() : OnSmallDisk(GetParam())
    {
        std::cout << (Disk.IsMounted() ? "on a small disk" : "under a limit on the size of files") << std::endl;
    }
    ~FullDisk() override { Disk.MakeRoom(); }

    /// Everything that the store holds of the players.
    QString Rows() const
    {
        return QStringList{
            Stored(QStringLiteral("select * from Player order by PlayerKey")),
            Stored(QStringLiteral("select * from Workout order by WorkoutKey")),
            Stored(QStringLiteral("select * from GamePlayed order by GamePlayedKey")),
            Stored(QStringLiteral("select * from PlayerGame order by PlayerGamePlayer, PlayerGameGame"))}
            .join(u'\n');
    }
    void ExpectWholeStore() const
    {
        EXPECT_EQ(Program.Ask(QStringLiteral("pragma integrity_check")), QStringLiteral("ok"));
    }
    /// Every file of the program's folder with its bytes.
    QMap<QString, QByteArray> Files() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator each(Program.Folder.Path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (each.hasNext()) {
            const QString name = each.next().mid(Program.Folder.Path().size());
            files[name] = Program.Folder.Read(name);
        }
        return files;
    }
    /// And nothing half written beside them.
    void ExpectFiles(const QMap<QString, QByteArray> &before) const
    {
        const auto now = Files();
        EXPECT_EQ(now.keys().join(u'|'), before.keys().join(u'|'));
        for (const QString &name : before.keys())
            EXPECT_TRUE(now[name] == before[name]) << qPrintable(name) << "\n" << now[name].left(300).toStdString();
    }
};
} // namespace

TEST_P(FullDisk, TheEndOfAWorkoutGameIsToldAndTheNextOneIsStored)
{
    OpenWorkout();
    ExpectThatAGameIsStored();
    const QString before = Rows();
    Disk.Fill();
    Messages messages;
    Play();
    Story.Game->Framework->SaveSetting(QStringLiteral("own"), QStringLiteral("speed"), QString(100000, u'x'));
    Program.CloseNextScore();
    EXPECT_EQ(FailureOf([&] { End(); }), QStringLiteral("none"));
    ASSERT_FALSE(messages.Texts.isEmpty());
    for (const QString &text : messages.Texts) EXPECT_TRUE(text.startsWith(u"Error saving ")) << qPrintable(text);
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_TRUE(Program.Sees("ctlWorkOut1"));
    EXPECT_EQ(Rows(), before);
    ExpectWholeStore();
    EXPECT_FALSE(Program.Folder.Read(QStringLiteral("alpha/GameSettings.ini")).isEmpty());
    Disk.MakeRoom();
    ExpectThatAGameIsStored();
    EXPECT_TRUE(Results().startsWith(QStringLiteral("80|160|60|1|1|1|1\n"))) << qPrintable(Results());
}

TEST_P(FullDisk, TheEndOfAPracticeGameIsToldAndTheNextOneIsStored)
{
    OpenPractice();
    Play();
    EndAndTell();
    const QString before = Rows();
    Disk.Fill();
    {
        Messages messages;
        Play();
        Program.AnswerNextBox("cmd2");
        EXPECT_EQ(FailureOf([&] { End(); }), QStringLiteral("none"));
        EXPECT_EQ(messages.FirstLines(), QStringLiteral("Error saving GamePlayed info."));
    }
    EXPECT_EQ(Program.Window().Mode(), 2);
    EXPECT_TRUE(Program.Sees("ctlGameList1"));
    EXPECT_EQ(Rows(), before);
    ExpectWholeStore();
    Disk.MakeRoom();
    Play();
    EndAndTell();
    EXPECT_EQ(Count("GamePlayed"), 2);
}

TEST_P(FullDisk, ANewPlayerIsToldAndMayPlay)
{
    OpenPractice();
    const QString before = Rows();
    Menu(QStringLiteral("change player"));
    Disk.Fill();
    {
        Messages messages;
        Program.NewPlayer(QStringLiteral("Bea"));
        ASSERT_FALSE(messages.Texts.isEmpty());
        for (const QString &text : messages.Texts)
            EXPECT_TRUE(text.startsWith(u"Error saving player info.\r\n")) << qPrintable(text);
    }
    EXPECT_EQ(modMain::CurrentPlayer->Name, QStringLiteral("Bea"));
    EXPECT_EQ(Program.Window().Mode(), 2);
    EXPECT_EQ(Rows(), before);
    Disk.MakeRoom();
    modMain::CurrentPlayer->Save();
    EXPECT_EQ(Program.Ask(QStringLiteral("select group_concat(PlayerName) from Player")), QStringLiteral("Ann,Bea"));
}

TEST_P(FullDisk, AtTheEndOfTheProgramTheSettingsStayAsTheyWere)
{
    OpenWorkout();
    ExpectThatAGameIsStored();
    Program.Folder.Write(QStringLiteral("Settings.ini"), "; mine\r\n[Settings]\r\nLanguage=0\r\nSoundOn=1\r\n");
    const auto before = Files();
    Disk.Fill();
    modMain::SoundOn = false;
    EXPECT_EQ(Program.End(), 0);
    Program.Stop();
    Disk.MakeRoom();
    ExpectFiles(before);
}

TEST_P(FullDisk, AStartEndsInItsMessageAndComesUpWholeOnceThereIsRoom)
{
    OpenWorkout();
    ExpectThatAGameIsStored();
    const QString rows = Rows();
    Program.Stop();
    const auto before = Files();
    Disk.Fill();
    EXPECT_FALSE(Program.Start());
    EXPECT_TRUE(Program.PlainBoxes.value(0).startsWith(u"Error starting program @7\n"))
        << qPrintable(Program.PlainBoxes.join(u'|'));
    EXPECT_EQ(Program.PlainBoxes.size(), 1);
    Program.Stop();
    Disk.MakeRoom();
    ExpectFiles(before);
    Program.PlainBoxes.clear();
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Rows(), rows);
    Program.ClickPlayer(QStringLiteral("Ann"));
    Menu(QStringLiteral("exercise"));
    ExpectThatAGameIsStored();
}

INSTANTIATE_TEST_SUITE_P(Disks, FullDisk, testing::Values(true, false),
                         [](const auto &each) { return each.param ? "SmallWhereMountingIsPermitted" : "Limited"; });
