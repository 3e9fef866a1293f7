// The end of the program: its question, whoever asked for it, and what is done last.
#include "tests/shell/support/FlowTest.h"

#include "services/CResource.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"

#include <QApplication>
#include <QWindow>

class Closing : public FlowTest
{
protected:
    static constexpr int StillRunning = 99;

    /// The event loop of the program, with a story told inside it. Answer: the exit code, or StillRunning.
    int RunWhile(const std::function<void()> &story)
    {
        QTimer::singleShot(0, &Program.Window(), [this, story] {
            story();
            if (Program.Window().isVisible()) QCoreApplication::exit(StillRunning);
        });
        return QApplication::exec();
    }
    int Close(const char *button)
    {
        return RunWhile([this, button] {
            Program.AnswerNextBox(button);
            Program.Window().close();
        });
    }
    std::string Settings() const { return Program.Folder.Read(QStringLiteral("Settings.ini")).toStdString(); }
};

TEST_F(Closing, AsksWithTheNameOfTheProgramAndEndsOnYes)
{
    Start();
    EXPECT_EQ(Close("cmd1"), 0);
    EXPECT_EQ(Plain(Program.Boxes.last()), "Do you want to close Noggle?");
    EXPECT_FALSE(Program.Window().isVisible());
}

TEST_F(Closing, StaysOnNo)
{
    Start();
    EXPECT_EQ(Close("cmd2"), StillRunning);
    EXPECT_TRUE(Program.Window().isVisible());
    EXPECT_TRUE(modMain::Resources->hLibrary() != 0);
    EXPECT_EQ(Menu(), "options|help|exit");
}

TEST_F(Closing, EveryNameMarkOfTheQuestionIsReplaced)
{
    Start();
    modMain::ProductTitle = QStringLiteral("<b>");
    EXPECT_EQ(Close("cmd2"), StillRunning);
    EXPECT_EQ(Plain(Program.Boxes.last()), "Do you want to close <b>?");
}

TEST_F(Closing, TheMenuThePictureAndTheDesktopAllAsk)
{
    Start();
    for (int boxes = 1; boxes <= 3; ++boxes) {
        RunWhile([&] {
            Program.AnswerNextBox("cmd2");
            if (boxes == 1) Program.ClickMenu(QStringLiteral("exit"));
            if (boxes == 2) Program.Click("picClose");
            if (boxes == 3) Program.Window().windowHandle()->close();
            Program.Until([&] { return Program.HasAnsweredAll(); });
        });
        EXPECT_EQ(Program.Boxes.size(), boxes);
        EXPECT_TRUE(Program.Window().isVisible());
    }
}

TEST_F(Closing, AMinimisedWindowIsRestoredSoThatTheQuestionCanBeSeen)
{
    Start();
    Program.Window().showMinimized();
    RunWhile([&] {
        Program.AnswerNextBox("cmd2", {}, [&] { EXPECT_FALSE(Program.Window().isMinimized()); });
        Program.Window().close();
    });
    EXPECT_EQ(Program.Boxes.size(), 1);
    EXPECT_FALSE(Program.Window().isMinimized());
}

TEST_F(Closing, IsNotAskedForTwiceWhileTheQuestionIsOpen)
{
    Start();
    RunWhile([&] {
        Program.AnswerNextBox("cmd2", {}, [&] {
            Program.Window().close();
            Program.Window().windowHandle()->close();
        });
        Program.Window().close();
    });
    EXPECT_EQ(Program.Boxes.size(), 1);
    EXPECT_TRUE(Program.Window().isVisible());
}

TEST_F(Closing, IsRefusedWhileADialogIsOpen)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.AnswerNextBox("cmd2", {}, [&] {
        Program.Window().close();
        Program.Window().windowHandle()->close();
    });
    Program.ClickMenu(QStringLiteral("abandon"));
    EXPECT_EQ(Program.Boxes.size(), 2) << "the name of the player, and the question of the game";
    EXPECT_TRUE(Program.Window().isVisible());
    EXPECT_EQ(Mode(), 3);
}

TEST_F(Closing, ARunningGameGoesOnDuringTheQuestionAndIsUnloadedAfterIt)
{
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    EXPECT_EQ(RunWhile([&] {
                  Program.AnswerNextBox("cmd1", {}, [&] {
                      Program.PassTime(5);
                      EXPECT_TRUE(Program.Find<QTimer>("tmrShowTime")->isActive());
                      EXPECT_EQ(Plain(Game.TakeVerbs()), "");
                  });
                  Program.Window().close();
              }),
              0);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "unload 0 0");
}

TEST_F(Closing, OnNoARunningGameRunsOn)
{
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    EXPECT_EQ(Close("cmd2"), StillRunning);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "");
    EXPECT_EQ(Mode(), 3);
    EXPECT_TRUE(Game.IsShown());
}

TEST_F(Closing, ClosesTheLanguageModuleAndWritesSoundBackgroundAndSkin)
{
    Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nOnline=1\r\nLanguage=0\r\n");
    Start();
    modMain::SoundOn = false;
    modMain::WhiteBackground = true;
    modMain::Online = false;
    modMain::Language = QStringLiteral("7");
    EXPECT_EQ(Settings(), "[Settings]\r\nOnline=1\r\nLanguage=0\r\nSoundOn=1\r\nWhiteBackground=0\r\n")
        << "changes reach the file at the end only";
    EXPECT_EQ(Close("cmd1"), 0);
    EXPECT_EQ(Settings(), "[Settings]\r\nOnline=1\r\nLanguage=0\r\nSoundOn=0\r\nWhiteBackground=1\r\nSkin=Plain\r\n");
    EXPECT_EQ(modMain::Resources->hLibrary(), 0);
}

TEST_F(Closing, SettingsThatCannotBeSavedAreReportedAndTheProgramEndsAllTheSame)
{
    Start();
    modMain::CurrentSkin.reset();
    EXPECT_EQ(RunWhile([&] {
                  Program.AnswerNextBox("cmd1");
                  Program.AnswerNextBox("cmd2");
                  Program.Window().close();
              }),
              0);
    EXPECT_EQ(Plain(Program.Boxes.last()), "Error saving settings.\r\nThere is no skin.");
}
