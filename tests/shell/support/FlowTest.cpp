#include "tests/shell/support/FlowTest.h"

#include "sdk/controls/LarkButton.h"

namespace
{
const QByteArray Instructions = R"({\rtf1\ansi Find the arrow.\par})";
}

FlowTest::FlowTest()
{
    for (const char *name : {"Arrows", "Beacons"}) {
        const QString game = QLatin1String(name);
        Program.GivenGame(game, {QStringLiteral("name=") + game, QStringLiteral("component=Listening"),
                                 QStringLiteral("category=Kind of ") + game, QStringLiteral("timelimit=60"),
                                 QStringLiteral("levels=3")});
        Program.Folder.Write(game + QStringLiteral("/Instructions.rtf"), Instructions);
    }
}

void FlowTest::Start()
{
    ASSERT_TRUE(Program.Start());
    ASSERT_EQ(Plain(Program.PlainBoxes.join(u'|')), "");
}

void FlowTest::StartWithAnn()
{
    Start();
    Program.NewPlayer(QStringLiteral("Ann"));
    ASSERT_EQ(Mode(), 2);
}

void FlowTest::StartWorkoutGame()
{
    GoTo(6);
    Program.PlayInWorkout();
    ASSERT_EQ(Mode(), 3);
}

void FlowTest::StartPracticeGame()
{
    GoTo(2);
    Program.ChoosePractice(QStringLiteral("Kind of Arrows"), QStringLiteral("Arrows"));
    Program.Click("cmdPlay");
    ASSERT_EQ(Mode(), 4);
}

void FlowTest::GoTo(int Mode)
{
    if (!Program.IsRunning()) StartWithAnn();
    if (Mode == 1) Program.ClickMenu(QStringLiteral("progress"));
    if (Mode == 2) Program.ClickMenu(QStringLiteral("practice"));
    if (Mode == 6) Program.ClickMenu(QStringLiteral("exercise"));
    ASSERT_EQ(this->Mode(), Mode);
}

std::string FlowTest::Screens() const
{
    QStringList shown;
    for (const char *name : {"ctlUserInfo1", "ctlGameInstructions1", "ctlPlayerlist1", "ctlGameList1", "picPause",
                             "ctlWorkOut1", "PlayerName1", "ctlGamePlaySummary1"})
        if (Program.Sees(name)) shown << QLatin1String(name);
    if (Game.IsShown()) shown << QStringLiteral("game");
    return Plain(shown.join(u' '));
}

std::string Plain(const QString &Text) { return Text.toStdString(); }
