// What a start does that fails: where it ends, and where it goes on.
#include "tests/shell/support/FlowTest.h"

#include "domain/Store.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "platform/store/Command.h"
#include "shell/program/modMain.h"

#include <QDir>

class StartUpFailures : public FlowTest
{
protected:
    void GivenStoreWithout(const char *table)
    {
        Program.Rows(QStringLiteral("drop table ") + QLatin1String(table));
        modMain::ForgetConnection();
    }
    std::string FirstLine() const { return Plain(Program.PlainBoxes.value(0).section(u'\n', 0, 0)); }
    std::string SecondLine() const { return Plain(Program.PlainBoxes.value(0).section(u'\n', 1)); }
};

/// The process ends, so each of these runs in one of its own.
class StartUpWithBadStore : public StartUpFailures
{
protected:
    StartUpWithBadStore() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
    QString Store() const { return Program.Folder.Path() + QStringLiteral("Noggle.mdb"); }
    /// Starts, and says what the box shows.
    void StartAndTell()
    {
        Program.AnswerNextBox("cmd2", {}, [&] { std::cerr << "box: " << Plain(Program.Boxes.last()) << std::endl; });
        Program.Start();
        std::cerr << "the program runs" << std::endl;
    }
    static constexpr const char *Message = "box: Could not open database, program exiting.";
};

TEST_F(StartUpFailures, AJunkLanguageModuleEndsTheStartAtItsStep)
{
    Program.Folder.Write(QStringLiteral("0.dll"), "no module");
    EXPECT_FALSE(Program.Start());
    EXPECT_EQ(FirstLine(), "Error starting program @6");
    EXPECT_NE(SecondLine(), "");
    EXPECT_EQ(Program.PlainBoxes.size(), 1);
    EXPECT_FALSE(Program.IsRunning());
}

TEST_F(StartUpFailures, NoSkinAtAllEndsTheStartAtTheLastStep)
{
    QDir(Program.Folder.Path() + QStringLiteral("skins")).removeRecursively();
    EXPECT_FALSE(Program.Start());
    EXPECT_EQ(FirstLine(), "Error starting program @12");
    EXPECT_EQ(SecondLine(), "There is no skin that can be used on this screen.");
    EXPECT_EQ(Program.PlainBoxes.size(), 1);
}

TEST_F(StartUpFailures, ASkinWithoutItsFrameEndsTheStartAtTheLastStep)
{
    QFile::remove(Program.Folder.Path() + QStringLiteral("skins/Plain/Frame.gif"));
    EXPECT_FALSE(Program.Start());
    EXPECT_EQ(FirstLine(), "Error starting program @12");
    EXPECT_NE(SecondLine(), "");
}

TEST_F(StartUpFailures, DataThatCannotBeLoadedIsTheStepsMessageAndTheProgramGoesOn)
{
    GivenStoreWithout("Player");
    EXPECT_TRUE(Program.Start());
    EXPECT_EQ(FirstLine(), "Error loading data @1");
    EXPECT_NE(SecondLine(), "");
    EXPECT_EQ(Program.PlainBoxes.size(), 1);
    ASSERT_TRUE(modMain::Players && modMain::Categories && modMain::Games);
    EXPECT_EQ(modMain::Players->Count(), 0);
    EXPECT_EQ(modMain::Categories->Count(), 0);
    EXPECT_EQ(modMain::Games->Count(), 0);
    EXPECT_EQ(Screens(), "ctlPlayerlist1");
    EXPECT_EQ(Menu(), "options|help|exit");
}

TEST_F(StartUpFailures, ACatalogueThatCannotBeLoadedIsToldInTheSkinnedBoxAndThePlayersAreThere)
{
    Program.Rows(QStringLiteral("insert into Player (PlayerName) values ('Ann')"));
    GivenStoreWithout("Game");
    Program.AnswerNextBox("cmd2");
    EXPECT_TRUE(Program.Start());
    EXPECT_EQ(Plain(Program.PlainBoxes.join(u'|')), "");
    EXPECT_EQ(Plain(Program.Boxes.value(0).section(u'\r', 0, 0)), "Error loading Games.");
    EXPECT_EQ(Plain(Program.PlayerButtons().join(u'|')), "Ann|New player");
    Program.ClickPlayer(QStringLiteral("Ann"));
    EXPECT_EQ(Mode(), 2);
}

TEST_F(StartUpWithBadStore, AMissingStoreIsToldAndEndsTheProcess)
{
    EXPECT_EXIT(
        {
            QFile::remove(Store());
            StartAndTell();
        },
        testing::ExitedWithCode(1), Message);
}

TEST_F(StartUpWithBadStore, AJunkStoreIsToldAndEndsTheProcess)
{
    EXPECT_EXIT(
        {
            Program.Folder.Write(QStringLiteral("Noggle.mdb"), QByteArray(8192, 'x'));
            StartAndTell();
        },
        testing::ExitedWithCode(1), Message);
}

TEST_F(StartUpWithBadStore, ALockedStoreIsToldAndEndsTheProcess)
{
    EXPECT_EXIT(
        {
            Connection other;
            other.Open(Store());
            Command(other, QStringLiteral("begin exclusive")).Open();
            StartAndTell();
        },
        testing::ExitedWithCode(1), Message);
}
