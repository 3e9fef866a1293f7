// One number rules the main window: what each mode shows, and what its menu offers.
#include "tests/shell/support/FlowTest.h"

#include "services/CResource.h"
#include "shell/program/modMain.h"
#include "skin/ctlButtonPanel.h"

#include <QTimer>

namespace
{
const std::string PlayerMenu = "practice|exercise|progress|change player|options|help|exit";
const std::string GameMenu = "pause|abandon|options|help|exit";
const std::string PauseMenu = "continue|options|help|exit";
const std::string BareMenu = "options|help|exit";
} // namespace

class Modes : public FlowTest
{
protected:
    void ExpectShown(int mode, const std::string &menu, const std::string &screens)
    {
        EXPECT_EQ(Mode(), mode);
        EXPECT_EQ(Menu(), menu) << "in mode " << mode;
        EXPECT_EQ(Screens(), screens) << "in mode " << mode;
    }
    static std::string Words(std::initializer_list<int> ids)
    {
        QStringList words;
        for (const int id : ids) words << modMain::Resources->GetString(static_cast<std::int16_t>(id), 256);
        return Plain(words.join(u'|'));
    }
};

TEST_F(Modes, EachHasItsMenuAndItsScreen)
{
    Start();
    ExpectShown(0, BareMenu, "ctlPlayerlist1");
    Program.NewPlayer(QStringLiteral("Ann"));
    ExpectShown(2, PlayerMenu, "ctlGameList1 PlayerName1");
    GoTo(1);
    ExpectShown(1, PlayerMenu, "ctlUserInfo1 PlayerName1");
    GoTo(6);
    ExpectShown(6, PlayerMenu, "ctlWorkOut1 PlayerName1");
    StartWorkoutGame();
    ExpectShown(3, GameMenu, "ctlGamePlaySummary1 game");
    Program.ClickMenu(QStringLiteral("pause"));
    ExpectShown(5, PauseMenu, "picPause ctlGamePlaySummary1");
}

TEST_F(Modes, APracticeGameLooksAsAWorkoutGameDoes)
{
    StartPracticeGame();
    ExpectShown(4, GameMenu, "ctlGamePlaySummary1 game");
    Program.ClickMenu(QStringLiteral("pause"));
    ExpectShown(5, PauseMenu, "picPause ctlGamePlaySummary1");
}

TEST_F(Modes, CaptionsOfTheMenuComeFromTheLanguageModule)
{
    StartWithAnn();
    EXPECT_EQ(Plain(Program.MenuCaptions().join(u'|')), Words({305, 306, 307, 308, 312, 313, 314}));
    StartPracticeGame();
    EXPECT_EQ(Plain(Program.MenuCaptions().join(u'|')), Words({309, 310, 312, 313, 314}));
    Program.ClickMenu(QStringLiteral("pause"));
    EXPECT_EQ(Plain(Program.MenuCaptions().join(u'|')), Words({311, 312, 313, 314}));
}

TEST_F(Modes, TheMenuStandsThereOnceWhenItIsMadeWhileItIsBeingMade)
{
    StartWithAnn();
    frmNoggle &window = Program.Window();
    QTimer::singleShot(0, &window, [&] { window.MakePanel(); });
    window.MakePanel();
    EXPECT_EQ(Menu(), PlayerMenu);
}

TEST_F(Modes, AMenuKeyThatIsNotInTheListDoesNothing)
{
    StartWithAnn();
    auto *const panel = Program.Find<ctlButtonPanel>("ctlButtonPanel1");
    for (const char *key : {"", "Practice", "EXERCISE", "progress ", "player", "player 0", "options2", "new player "})
        Q_EMIT panel->Click(QLatin1String(key));
    ExpectShown(2, PlayerMenu, "ctlGameList1 PlayerName1");
    EXPECT_EQ(Plain(Program.Boxes.join(u'|')), "What is your name?");
}

TEST_F(Modes, TheInstructionsLeaveTheModeAsItIs)
{
    StartWithAnn();
    Program.ChoosePractice(QStringLiteral("Kind of Arrows"), QStringLiteral("Arrows"));
    Program.Click("cmdInstructions");
    ExpectShown(2, PlayerMenu, "ctlGameInstructions1");
    GoTo(6);
    Program.ReadInWorkout();
    ExpectShown(6, PlayerMenu, "ctlGameInstructions1");
}

TEST_F(Modes, ProgressWithoutAPlayerHasNothingToShow)
{
    Start();
    Program.Window().ShowPlayer(2, 0);
    EXPECT_EQ(Mode(), 1);
    EXPECT_FALSE(Program.Sees("ctlUserInfo1"));
}
