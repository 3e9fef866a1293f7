// Who is at the machine: picking, making, renaming and deleting players in the main window.
#include "tests/shell/support/FlowTest.h"

#include "domain/CPlayer.h"
#include "domain/colCategory.h"
#include "domain/colPlayer.h"
#include "services/CResource.h"
#include "shell/program/modMain.h"
#include "skin/ctlButtonPanel.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

class Players : public FlowTest
{
protected:
    void SendMenuKey(const char *key) { Q_EMIT Menu()->Click(QLatin1String(key)); }
    ctlButtonPanel *Menu() { return Program.Find<ctlButtonPanel>("ctlButtonPanel1"); }
    std::string Buttons() { return Plain(Program.PlayerButtons().join(u'|')); }
    std::string NameShown() { return Plain(Program.Find<QLineEdit>("txtName")->text()); }
    void ChangePlayer() { Program.ClickMenu(QStringLiteral("change player")); }
};

TEST_F(Players, ANewPlayerIsAskedForANameAndComesToThePracticeScreen)
{
    Start();
    EXPECT_EQ(Buttons(), "New player");
    Program.NewPlayer(QStringLiteral("Ann"));
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Plain(Program.Boxes.value(0)), Plain(modMain::Resources->GetString(315, 256)));
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select PlayerName from Player"))), "Ann");
    EXPECT_EQ(Plain(modMain::CurrentPlayer->Name), "Ann");
    EXPECT_EQ(NameShown(), "Ann");
}

TEST_F(Players, ACancelledNameMakesNoPlayer)
{
    Start();
    Program.AnswerNextBox("cmd2", QStringLiteral("Ann"));
    Program.ClickPlayer(QStringLiteral("New player"));
    EXPECT_EQ(Mode(), 0);
    EXPECT_EQ(Screens(), "ctlPlayerlist1");
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select count(*) from Player"))), "0");
    EXPECT_FALSE(modMain::CurrentPlayer);
}

TEST_F(Players, APickedPlayerComesToThePracticeScreen)
{
    StartWithAnn();
    ChangePlayer();
    Program.NewPlayer(QStringLiteral("Ben"));
    ChangePlayer();
    EXPECT_EQ(Buttons(), "Ann|Ben|New player");
    Program.ClickPlayer(QStringLiteral("Ann"));
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Plain(modMain::CurrentPlayer->Name), "Ann");
    EXPECT_EQ(NameShown(), "Ann");
}

TEST_F(Players, ChangingThePlayerLeadsToTheChoiceFromEveryScreen)
{
    StartWithAnn();
    for (const int from : {1, 2, 6}) {
        GoTo(from);
        ChangePlayer();
        EXPECT_EQ(Mode(), 0);
        EXPECT_EQ(Screens(), "ctlPlayerlist1");
        EXPECT_EQ(Plain(modMain::CurrentPlayer->Name), "Ann") << "until another one is picked";
        Program.ClickPlayer(QStringLiteral("Ann"));
    }
}

TEST_F(Players, ARenamedPlayerStandsOnTheChoiceUnderTheNewName)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    auto *const name = Program.Find<QLineEdit>("txtName");
    name->selectAll();
    QTest::keyClicks(name, QStringLiteral("Anna"));
    Program.Click("cmdUpdate");
    ChangePlayer();
    EXPECT_EQ(Buttons(), "Anna|New player");
}

TEST_F(Players, ADeletedPlayerIsGoneAndTheChoiceShowsWhicheverScreenItWas)
{
    Start();
    for (const int from : {1, 2, 6}) {
        Program.NewPlayer(QStringLiteral("Ann"));
        GoTo(from);
        Program.AnswerNextBox("cmd1");
        Program.Click("cmdDelete");
        EXPECT_EQ(Mode(), 0);
        EXPECT_EQ(Screens(), "ctlPlayerlist1");
        EXPECT_FALSE(modMain::CurrentPlayer);
        EXPECT_EQ(Buttons(), "New player");
        EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select count(*) from Player"))), "0");
    }
}

TEST_F(Players, OfADeletedPlayerNothingStaysCurrentThatCouldBeWrittenTo)
{
    StartWithAnn();
    GoTo(6);
    Program.Click("butNextWorkout");
    ASSERT_TRUE(modMain::CurrentWorkout);
    ASSERT_TRUE(modMain::CurrentPlayerGame);
    Program.AnswerNextBox("cmd1");
    Program.Click("cmdDelete");
    EXPECT_FALSE(modMain::CurrentWorkout);
    EXPECT_FALSE(modMain::CurrentPlayerGame);
}

TEST_F(Players, OneWhoIsDeletedWhileTheNameIsEditedIsGoneAndNothingIsWrittenOfThem)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    QTest::keyClicks(Program.Find<QLineEdit>("txtName"), QStringLiteral("Anna"));
    QString meanwhile;
    Program.AnswerNextBox("cmd1", {},
                          [&] { meanwhile = Program.Ask(QStringLiteral("select PlayerName from Player")); });
    Program.Click("cmdDelete");
    EXPECT_EQ(Plain(meanwhile), "Anna") << "the box was left for the question";
    EXPECT_EQ(Mode(), 0);
    EXPECT_FALSE(modMain::CurrentPlayer);
    EXPECT_EQ(Buttons(), "New player");
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select count(*) from Player"))), "0");

    Program.NewPlayer(QStringLiteral("Bob"));
    EXPECT_EQ(NameShown(), "Bob");
    EXPECT_TRUE(Program.Find<QLineEdit>("txtName")->isReadOnly());
    ChangePlayer();
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select group_concat(PlayerName) from Player"))), "Bob");
}

TEST_F(Players, OneWhoIsDeletedByKeysOutOfTheOpenNameBoxLeavesNothingToTheNext)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    QTest::keyClicks(Program.Find<QLineEdit>("txtName"), QStringLiteral("Anna"));
    Program.PressKey(Qt::Key_Tab); // to the button that saves, which leaves the box open
    Program.PressKey(Qt::Key_Tab);
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select PlayerName from Player"))), "Ann");
    Program.AnswerNextBox("cmd1");
    Program.PressKey(Qt::Key_Space);
    EXPECT_EQ(Plain(Program.Boxes.value(1)), Plain(modMain::Resources->GetString(505, 256)));
    EXPECT_EQ(Mode(), 0);
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select count(*) from Player"))), "0");

    Program.NewPlayer(QStringLiteral("Bob"));
    EXPECT_EQ(NameShown(), "Bob");
    ChangePlayer();
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select group_concat(PlayerName) from Player"))), "Bob");
}

TEST_F(Players, OneWhoseNameIsBeingWrittenKeepsItWhenTheWindowIsClosed)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    QTest::keyClicks(Program.Find<QLineEdit>("txtName"), QStringLiteral("Anna"));
    QString asked;
    Program.AnswerNextBox("cmd2", {}, [&] { asked = Program.Ask(QStringLiteral("select PlayerName from Player")); });
    Program.Click("picClose");
    Program.Until([&] { return Program.HasAnsweredAll(); });
    EXPECT_EQ(Plain(asked), "Anna");
    EXPECT_EQ(Mode(), 2);
}

TEST_F(Players, OneWhoIsNotDeletedAfterAllKeepsTheEditedName)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    QTest::keyClicks(Program.Find<QLineEdit>("txtName"), QStringLiteral("Anna"));
    Program.AnswerNextBox("cmd2");
    Program.Click("cmdDelete");
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Plain(modMain::CurrentPlayer->Name), "Anna");
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select PlayerName from Player"))), "Anna");
}

// Options opens a dialog and ending the program a question: neither takes the focus from the box by itself.
TEST_F(Players, APressOnTheMenuSavesTheNameThatIsBeingWritten)
{
    StartWithAnn();
    const auto stored = [this] { return Plain(Program.Ask(QStringLiteral("select PlayerName from Player"))); };
    auto *const name = Program.Find<QLineEdit>("txtName");
    Program.Click("cmdUpdate");
    QTest::keyClicks(name, QStringLiteral("Anna"));
    std::string meanwhile;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        const QWidget *const options = QApplication::activeModalWidget();
        if (options == nullptr || !options->isActiveWindow()) return;
        look.stop();
        meanwhile = stored();
        Program.Click(options->findChild<QWidget *>(QStringLiteral("cmdCancel")));
    });
    look.start(5);
    Program.ClickMenu(QStringLiteral("options"));
    EXPECT_EQ(meanwhile, "Anna");
    EXPECT_TRUE(name->isReadOnly());

    Program.Click("cmdUpdate");
    QTest::keyClicks(name, QStringLiteral("Annika"));
    Program.AnswerNextBox("cmd2", {}, [&] { meanwhile = stored(); });
    Program.ClickMenu(QStringLiteral("exit"));
    EXPECT_EQ(meanwhile, "Annika");
}

TEST_F(Players, APressOnACategoryOfThePracticeScreenSavesTheNameToo)
{
    StartWithAnn();
    Program.Click("cmdUpdate");
    QTest::keyClicks(Program.Find<QLineEdit>("txtName"), QStringLiteral("Anna"));
    Program.ClickRow("cCatList", (*modMain::Categories->begin())->LocalName());
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select PlayerName from Player"))), "Anna");
    EXPECT_TRUE(Program.Find<QLineEdit>("txtName")->isReadOnly());
}

TEST_F(Players, EightArePossibleAndNoNinth)
{
    Start();
    for (int player = 1; player <= 8; ++player) {
        Program.NewPlayer(QStringLiteral("Player of day %1").arg(player));
        ChangePlayer();
    }
    EXPECT_EQ(Program.PlayerButtons().size(), 8);
    EXPECT_FALSE(Program.PlayerButtons().contains(QStringLiteral("New player")));
}

TEST_F(Players, MenusThatListPlayersAreStillUnderstood)
{
    StartWithAnn();
    ChangePlayer();
    Program.NewPlayer(QStringLiteral("Ben"));
    SendMenuKey("player 1");
    EXPECT_EQ(Mode(), 1);
    EXPECT_EQ(Plain(modMain::CurrentPlayer->Name), "Ann");
    EXPECT_EQ(Screens(), "ctlUserInfo1 PlayerName1");

    Program.AnswerNextBox("cmd1", QStringLiteral("Cleo"));
    SendMenuKey("new player");
    EXPECT_EQ(Mode(), 2);
    EXPECT_EQ(Plain(modMain::CurrentPlayer->Name), "Cleo");
}

TEST_F(Players, AMenuKeyOfAPlayerOfTwoDigitsIsInTheOrderOfTexts)
{
    Start();
    for (int player = 1; player <= 12; ++player) modMain::Players->Add();
    SendMenuKey("player 12");
    EXPECT_EQ(modMain::CurrentPlayer->Key, 12);
    SendMenuKey("player 9");
    EXPECT_EQ(modMain::CurrentPlayer->Key, 9);
    SendMenuKey("player 90"); // behind "player 9", so no key of a player
    EXPECT_EQ(modMain::CurrentPlayer->Key, 9);
}
