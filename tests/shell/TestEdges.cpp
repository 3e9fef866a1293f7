// The program's edges on the whole program: options and help while a game runs and while it is paused, the wheel, and
// a program that is ended while an upload has its last request under way.
#include "tests/shell/support/FlowTest.h"

#include "platform/SoundBuffer.h"
#include "platform/SoundDevice.h"

#include "services/CSound.h"
#include "services/colSound.h"
#include "services/modDX.h"
#include "services/modHelp.h"
#include "services/modIniFile.h"
#include "services/modWheel.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/CGamePlayed.h"
#include "domain/CPlayer.h"
#include "domain/colGame.h"

#include "sdk/controls/LarkButton.h"
#include "sdk/controls/PictureBox.h"

#include "skin/CSkin.h"
#include "skin/frmOptions.h"

#include "tests/support/HttpServer.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPointer>
#include <QScrollBar>
#include <QTextEdit>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

namespace
{
class Edges : public FlowTest
{
protected:
    Edges() { Program.GivenSkin(QStringLiteral("Wide"), {QStringLiteral("Position/GameAreaWidth=560")}); }

    ~Edges() override
    {
        Program.Stop(); // before its sound device goes
        modDX::SetDevice(nullptr);
    }

    /// Whether the loop that runs with a game is heard. With the loopback device.
    static bool Hums() { return modMain::ShellSounds->Item(QStringLiteral("hum")).DSBuffer()->IsPlaying(); }

    /// An effect in the folder of the game that runs.
    CSound &SoundOfTheGame()
    {
        CGame &game = *modMain::CurrentGame;
        QDir(game.Path()).mkdir(QStringLiteral("sounds"));
        EXPECT_TRUE(QFile::copy(Program.Folder.Path() + QStringLiteral("sounds/ding.wav"),
                                game.Path() + QStringLiteral("/sounds/tick.wav")));
        return game.Sounds().Item(QStringLiteral("tick"));
    }

    struct Wish
    {
        QString Skin;
        bool Sound = true;
        bool White = false;
        bool OK = true;
    };
    /// Opens the options by the menu, sets them with the mouse and the keys, and closes them.
    void SetOptions(const Wish &wish)
    {
        bool wasOpen = false;
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, [&] {
            auto *const dialog = qobject_cast<frmOptions *>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isActiveWindow()) return;
            hand.stop();
            wasOpen = true;
            auto *const list = dialog->findChild<QComboBox *>(QStringLiteral("cboSkin"));
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Home);
            while (list->currentText() != wish.Skin && list->currentIndex() + 1 < list->count())
                QTest::keyClick(list, Qt::Key_Down);
            Tick(*dialog, "chkSoundOn", wish.Sound);
            Tick(*dialog, "chkWhiteBackground", wish.White);
            Program.Click(
                dialog->findChild<LarkButton *>(wish.OK ? QStringLiteral("cmdOK") : QStringLiteral("cmdCancel")));
        });
        hand.start(5);
        Program.ClickMenu(QStringLiteral("options"));
        EXPECT_TRUE(RunningProgram::Until([&] { return wasOpen && QApplication::activeModalWidget() == nullptr; }));
    }
    /// The event loop of the program, with the story told inside it. It ends with the program.
    static void RunWhile(const std::function<void()> &story)
    {
        QTimer::singleShot(0, modMain::Form->Window(), story);
        EXPECT_EQ(QApplication::exec(), 0);
    }
    QRgb GroundOfTheGameArea() const { return Program.Window().GameBackground().pixel(4, 4); }
    QString Setting(const char *key) const
    {
        return ReadIniString(QStringLiteral("Settings"), QLatin1String(key), {}, modMain::SettingsFile);
    }
    static QWidget *HelpShown()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->objectName() == u"frmHelp" && window->isVisible()) return window;
        return nullptr;
    }

    std::unique_ptr<SoundDevice> m_Loopback = SoundDevice::OpenLoopback();

private:
    static void Tick(const frmOptions &dialog, const char *name, bool on)
    {
        auto *const box = dialog.findChild<QCheckBox *>(QLatin1String(name));
        box->setFocus();
        if (box->isChecked() != on) QTest::keyClick(box, Qt::Key_Space);
    }
};
} // namespace

TEST_F(Edges, OptionsWhileAGameRunsChangeSkinSoundAndBackgroundAndTheGameGoesOn)
{
    modDX::SetDevice(m_Loopback.get());
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    ASSERT_TRUE(Hums());
    CSound &tick = SoundOfTheGame();
    tick.Play(1);
    ASSERT_TRUE(tick.DSBuffer()->IsPlaying());
    SetOptions({.Skin = QStringLiteral("Wide"), .Sound = false, .White = true});
    EXPECT_EQ(Plain(modMain::CurrentSkin->Name()), "Wide");
    EXPECT_EQ(Program.Find("picPrint")->width(), 560);
    EXPECT_FALSE(modMain::SoundOn);
    EXPECT_FALSE(Hums());
    EXPECT_FALSE(tick.DSBuffer()->IsPlaying()) << "the game's own, too";
    EXPECT_EQ(GroundOfTheGameArea(), 0xffffffffU);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "changeskin 0 0");
    EXPECT_EQ(Mode(), 3);
    EXPECT_TRUE(Game.IsShown());
    EXPECT_TRUE(Program.Find<QTimer>("tmrShowTime")->isActive()) << "the clock never stopped";
    SetOptions({.Skin = QStringLiteral("Wide"), .Sound = true, .White = false});
    EXPECT_TRUE(Hums()) << "the loops go on";
    EXPECT_TRUE(tick.DSBuffer()->IsPlaying());
    EXPECT_NE(GroundOfTheGameArea(), 0xffffffffU);
}

TEST_F(Edges, OptionsWhileAGameIsPausedChangeAllAndThePauseStays)
{
    StartWithAnn();
    StartPracticeGame();
    Program.ClickMenu(QStringLiteral("pause"));
    Game.TakeVerbs();
    SetOptions({.Skin = QStringLiteral("Wide"), .Sound = false, .White = true});
    EXPECT_EQ(Plain(modMain::CurrentSkin->Name()), "Wide");
    EXPECT_EQ(GroundOfTheGameArea(), 0xffffffffU);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "changeskin 0 0") << "also while it is paused";
    EXPECT_EQ(Mode(), 5);
    EXPECT_FALSE(Game.IsShown());
    EXPECT_FALSE(Program.Find<QTimer>("tmrShowTime")->isActive());
    Program.ClickMenu(QStringLiteral("continue"));
    EXPECT_EQ(Mode(), 4);
    EXPECT_TRUE(Game.IsShown());
}

TEST_F(Edges, OptionsThatAreCancelledWhileAGameRunsChangeNothing)
{
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    const QRgb ground = GroundOfTheGameArea();
    SetOptions({.Skin = QStringLiteral("Wide"), .Sound = false, .White = true, .OK = false});
    EXPECT_EQ(Plain(modMain::CurrentSkin->Name()), "Plain");
    EXPECT_TRUE(modMain::SoundOn);
    EXPECT_FALSE(modMain::WhiteBackground);
    EXPECT_EQ(GroundOfTheGameArea(), ground);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "");
    EXPECT_EQ(Mode(), 3);
}

TEST_F(Edges, OptionsReachTheSettingsFileAtTheEndOfTheProgramAndNotBefore)
{
    StartWithAnn();
    SetOptions({.Skin = QStringLiteral("Wide"), .Sound = false, .White = true});
    EXPECT_EQ(Plain(Setting("SoundOn") + Setting("WhiteBackground") + Setting("Skin")), "10");
    RunWhile([this] {
        Program.AnswerNextBox("cmd1");
        Program.Window().close();
    });
    EXPECT_EQ(Plain(Setting("SoundOn") + Setting("WhiteBackground") + Setting("Skin")), "01Wide");
    Program.Stop();
    Start();
    EXPECT_FALSE(modMain::SoundOn);
    EXPECT_TRUE(modMain::WhiteBackground);
    EXPECT_EQ(Plain(modMain::CurrentSkin->Name()), "Wide");
    EXPECT_EQ(GroundOfTheGameArea(), 0xffffffffU);
}

TEST_F(Edges, OptionsWorkAgainAfterASkinThatCouldNotBeTaken)
{
    Program.GivenSkin(QStringLiteral("Ruined"));
    Program.Folder.Write(QStringLiteral("skins/Ruined/Frame.gif"), "GIF89a and no more");
    StartWithAnn();
    Program.AnswerNextBox("cmd2");
    SetOptions({.Skin = QStringLiteral("Ruined"), .Sound = false});
    ASSERT_EQ(Program.Boxes.size(), 2) << "the name, and the failure";
    SetOptions({.Skin = QStringLiteral("Wide"), .Sound = true});
    EXPECT_EQ(Plain(modMain::CurrentSkin->Name()), "Wide");
    EXPECT_EQ(Program.Find("picPrint")->width(), 560);
    EXPECT_TRUE(modMain::SoundOn);
}

TEST_F(Edges, AGameThatEndsWhileTheOptionsAreOpenShowsItsScoreOverThem)
{
    StartWithAnn();
    StartWorkoutGame();
    bool wasOver = false;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        auto *const dialog = qobject_cast<frmOptions *>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow()) return;
        clock.stop();
        Program.CloseNextScore([&] { wasOver = dialog->isVisible(); });
        Game.End();
        EXPECT_EQ(QApplication::activeModalWidget(), dialog) << "and they are there again";
        Program.Click(dialog->findChild<LarkButton *>(QStringLiteral("cmdOK")));
    });
    clock.start(5);
    Program.ClickMenu(QStringLiteral("options"));
    EXPECT_TRUE(RunningProgram::Until([&] { return QApplication::activeModalWidget() == nullptr; }));
    EXPECT_TRUE(wasOver);
    EXPECT_EQ(Mode(), 6);
}

TEST_F(Edges, HelpPausesNothingAndTheGameHearsNoneOfItsKeys)
{
    Program.Folder.Copy(QStringLiteral(NOGGLE_HELP), QStringLiteral("Help.chm"));
    qputenv("XDG_DATA_DIRS", Program.Folder.Path().toUtf8()); // a desktop without a viewer
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    Program.ClickMenu(QStringLiteral("help"));
    ASSERT_NE(HelpShown(), nullptr);
    EXPECT_FALSE(HelpShown()->isModal());
    EXPECT_EQ(Mode(), 3);
    EXPECT_TRUE(Program.Find<QTimer>("tmrShowTime")->isActive());
    QTest::keyClick(HelpShown(), Qt::Key_A);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "");
    Program.ClickMenu(QStringLiteral("pause"));
    EXPECT_EQ(Mode(), 5) << "the program is used beside it";
    HelpShown()->close();
    qunsetenv("XDG_DATA_DIRS");
}

TEST_F(Edges, HelpWithoutItsFileChangesNothingAndSaysNothing)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.ClickMenu(QStringLiteral("help"));
    EXPECT_EQ(HelpShown(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(Mode(), 3);
    EXPECT_EQ(Plain(modHelp::HelpFile), "Help.chm");
}

TEST_F(Edges, TheWheelStillScrollsWhatItIsOverWhileTheHookIsLive)
{
    StartWithAnn();
    ASSERT_TRUE(RunningProgram::Until([&] { return modWheel::HookedForm() == &Program.Window(); }));
    QTextEdit text(QString(5000, u'x'), &Program.Window());
    text.setGeometry(0, 0, 200, 100);
    text.show();
    const auto turn = [](QWidget *over) {
        QWheelEvent event(QPointF(5, 5), over->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(over, &event);
        return event.isAccepted();
    };
    turn(text.viewport());
    EXPECT_GT(text.verticalScrollBar()->value(), 0);
    EXPECT_FALSE(turn(&Program.Window())) << "nobody has used it, and the hook does not pretend to";
}

TEST_F(Edges, TheHookIsNotLiveWhileADialogIsOpen)
{
    StartWithAnn();
    ASSERT_TRUE(RunningProgram::Until([&] { return modWheel::HookedForm() == &Program.Window(); }));
    bool wasLive = true;
    Program.AnswerNextBox("cmd2", {}, [&] { wasLive = modWheel::HookedForm() != nullptr; });
    Program.Window().close();
    EXPECT_FALSE(wasLive);
    EXPECT_TRUE(RunningProgram::Until([&] { return modWheel::HookedForm() == &Program.Window(); }));
}

TEST_F(Edges, AMessageOfTheUploadStandsOverItsDialogAndIsAnsweredThere)
{
    Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nOnline=1\r\nEmail=a@example.org\r\n");
    StartWithAnn();
    QPointer<QWidget> dialog;
    bool wasOver = false;
    bool wasThereAgain = false;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
        dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog->objectName() != u"frmUpload" || !dialog->isActiveWindow()) return;
        hand.stop();
        Program.AnswerNextBox("cmd2", {}, [&] {
            const QWidget *const box = QApplication::activeModalWidget();
            wasOver = dialog->isVisible() && box->windowHandle()->transientParent() == dialog->windowHandle();
        });
        Program.Click(dialog->findChild<LarkButton *>(QStringLiteral("butUpload")));
        wasThereAgain = QApplication::activeModalWidget() == dialog;
        Program.Click(dialog->findChild<LarkButton *>(QStringLiteral("butOK")));
    });
    hand.start(5);
    Program.Click("butUpload");
    EXPECT_EQ(Plain(Program.Boxes.last()), "No games to upload.");
    EXPECT_TRUE(wasOver) << "not beside it, over the main window";
    EXPECT_TRUE(wasThereAgain);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Edges, TheProgramMayBeEndedWhileAClosedUploadHasItsLastRequestUnderWay)
{
    HttpServer site(
        [](int, const QByteArray &) { return HttpServer::Reply{.Bytes = HttpServer::Ok(), .IsHeld = true}; });
    Program.Folder.Write(QStringLiteral("Settings.ini"),
                         "[Settings]\r\nOnline=1\r\nEmail=a@example.org\r\nScoreSite=" + site.Host().toUtf8() +
                             "\r\n");
    StartWithAnn();
    CPlayer &ann = *modMain::CurrentPlayer;
    for (int score = 1; score <= 3; ++score)
        ann.GamesPlayed().Add(ann.Key, modMain::Games->GameByName(QStringLiteral("Arrows"))->Key, score, 5, score, 3,
                              1, 0);
    bool wasEnded = false;
    // A timer of its own for each look, since the press that begins the upload returns when it has ended.
    std::function<void()> look = [&] {
        if (wasEnded) return;
        QTimer::singleShot(5, &Program.Window(), look);
        auto *const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog->objectName() != u"frmUpload" || !dialog->isActiveWindow()) return;
        auto *const upload = dialog->findChild<LarkButton *>(QStringLiteral("butUpload"));
        if (upload->isVisible()) return Program.Click(upload);
        if (site.Count() == 0) return;
        Program.Click(dialog->findChild<LarkButton *>(QStringLiteral("butOK")));
        Program.AnswerNextBox("cmd1");
        Program.Window().close();
        wasEnded = !Program.Window().isVisible();
        site.Release();
    };
    look();
    RunWhile([this] { Program.Click("butUpload"); });
    EXPECT_TRUE(wasEnded);
    EXPECT_EQ(site.Count(), 1);
    EXPECT_EQ(Plain(Program.Ask(QStringLiteral("select group_concat(GamePlayedScore) from GamePlayed where "
                                               "GamePlayedUploaded <> 0"))),
              "1");
}
