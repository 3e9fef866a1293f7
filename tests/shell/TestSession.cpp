// The life of one game session on the whole program: how it starts, what the game is told, how it goes.
#include "tests/shell/support/SessionTest.h"

#include "platform/RuntimeError.h"
#include "platform/SoundBuffer.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"

#include "sdk/controls/LarkButton.h"

#include <QApplication>

namespace
{
class Session : public SessionTest
{
protected:
    /// The play button on the workout screen; there is one at most.
    LarkButton *PlayButton() const
    {
        for (auto *button : Program.Find("ctlWorkOut1")->findChildren<LarkButton *>())
            if (button->isVisible() && button->objectName().startsWith(u"butPlay")) return button;
        return nullptr;
    }
    bool IsGameShown() const { return Story.Game && Story.Game->isVisible(); }
};
} // namespace

TEST_F(Session, AWorkoutGameFromTheClickOnPlayToItsStoredRows)
{
    OpenWorkout();
    Program.Click("butNextWorkout");
    ASSERT_NE(PlayButton(), nullptr);
    Program.Click(PlayButton());
    EXPECT_EQ(Program.Window().Mode(), 3);
    EXPECT_EQ(Program.MenuKeys().join(u'|'), QStringLiteral("pause|abandon|options|help|exit"));
    EXPECT_TRUE(IsGameShown());
    EXPECT_TRUE(Program.Sees("ctlGamePlaySummary1"));
    EXPECT_FALSE(Program.Sees("ctlWorkOut1"));
    Pass(15);
    EndAndScore();
    EXPECT_EQ(Program.Totals, std::vector<int>{140});
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_TRUE(Program.Sees("ctlWorkOut1"));
    EXPECT_FALSE(Program.Sees("ctlGamePlaySummary1"));

    const auto asStored = [this] {
        EXPECT_EQ(Results(), QStringLiteral("80|140|45|1|1|1|1")) << "the time of a workout game is what was left";
        EXPECT_EQ(States(), QStringLiteral("1|1|1"));
        EXPECT_EQ(Stored(QStringLiteral("select WorkoutPlayer, WorkoutStatus, WorkoutMode from Workout")),
                  QStringLiteral("1|0|1"));
        EXPECT_EQ(Stored(QStringLiteral("select GamePlayedPlayer, GamePlayedGame, GamePlayedUploaded, "
                                        "round((GamePlayedTimestamp - 46083) * 86400) from GamePlayed")),
                  QStringLiteral("1|1|0|43215"))
            << "15 seconds past noon";
    };
    asStored();
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    asStored();
}

TEST_F(Session, TheFirstGameMakesTheWorkoutAndItsRowKeepsModeZero)
{
    OpenWorkout();
    Play();
    EndAndScore();
    EXPECT_EQ(
        Stored(QStringLiteral("select WorkoutPlayer, WorkoutStatus, WorkoutMode, WorkoutTimestamp from Workout")),
        QStringLiteral("1|0|0|46083"));
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1")) << "the result takes the mode from memory";
    Play();
    EndAndScore();
    EXPECT_EQ(Stored(QStringLiteral("select count(*) from Workout")), QStringLiteral("1"));
}

TEST_F(Session, AGameOfAWorkoutThatWasReadAgainIsStoredWithModeZero)
{
    OpenWorkout();
    Play();
    EndAndScore();
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    Program.ClickPlayer(QStringLiteral("Ann"));
    Menu(QStringLiteral("exercise"));
    Play();
    EndAndScore();
    EXPECT_EQ(
        Stored(QStringLiteral("select GamePlayedMode, GamePlayedWorkout from GamePlayed order by GamePlayedKey")),
        QStringLiteral("1|1\n0|1"));
}

TEST_F(Session, APracticeGameStoresTheTimeTakenAndNoAward)
{
    OpenPractice();
    const QString states = States();
    Play(QStringLiteral("Alpha"), 2);
    EXPECT_EQ(Program.Window().Mode(), 4);
    Pass(75);
    EndAndTell();
    EXPECT_EQ(TakeBox(), QStringLiteral("Game over\r\nYour score: 80\r\nYour time: 1 minute 15 seconds"));
    EXPECT_EQ(Results(), QStringLiteral("80|80|75|3|2|0|null"));
    EXPECT_EQ(States(), states) << "practice never touches the state";
    EXPECT_EQ(Program.Window().Mode(), 2);
    EXPECT_TRUE(Program.Sees("ctlGameList1"));
    EXPECT_EQ(Program.MenuKeys().first(), QStringLiteral("practice"));
}

TEST_F(Session, AGameStartedFromTheProgressScreenIsAWorkoutGameAtLevelOne)
{
    OpenWorkout();
    Program.Click("butNextWorkout");
    auto &state = *modMain::CurrentPlayer->GameData().Item(Game()->Key);
    state.SetLevel(3);
    state.Save();
    Program.Window().ShowPlayer(1, 0);
    LarkButton *go = nullptr;
    for (auto *button : Program.Find("ctlUserInfo1")->findChildren<LarkButton *>())
        if (button->isVisible() && button->objectName().startsWith(u"butGo")) go = button;
    ASSERT_NE(go, nullptr);
    Program.Click(go);
    EXPECT_EQ(Program.Window().Mode(), 3);
    EXPECT_EQ(Story.Verbs.join(u','), QStringLiteral("start int 1 int 0"));
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
    EXPECT_EQ(Program.Window().Mode(), 6);
}

TEST_F(Session, TheVerbsComeInOrderWithIntegersOfTheToldSize)
{
    OpenWorkout();
    Play(QStringLiteral("Alpha"), 2);
    PressKey(Qt::Key_A);
    Program.Window().SetSkin(modMain::CurrentSkin);
    Pass(61);
    Program.CloseNextScore();
    Tick();
    EXPECT_EQ(Story.Verbs.join(u','),
              QStringLiteral("start int 2 int 0,keypress short 65 int 0,changeskin int 0 int 0,"
                             "timeup int 0 int 0,score int 0 int 0,unload int 0 int 0"));
}

TEST_F(Session, StartComesWhenClockAndLoopsRunAndTheGameIsInItsPlace)
{
    OpenWorkout();
    bool started = false;
    Story.At = [&](ToldGame &game, const QString &) {
        if (std::exchange(started, true)) return;
        EXPECT_NE(game.Framework, nullptr);
        EXPECT_EQ(Program.Window().Mode(), 3);
        EXPECT_TRUE(GameTimer().isActive());
        EXPECT_EQ(GameTimer().interval(), 500);
        EXPECT_TRUE(Sound("hum").IsPlaying());
        EXPECT_TRUE(Sound("heart").IsPlaying());
        EXPECT_TRUE(game.isVisible());
        EXPECT_EQ(game.parentWidget(), Program.Find("picPrint"));
        EXPECT_EQ(game.width(), Program.Find("picPrint")->width());
        EXPECT_LT(game.geometry().bottom(), Program.Find("ctlGamePlaySummary1")->y());
    };
    Play();
    EXPECT_TRUE(started);
}

TEST_F(Session, TheGameIsHiddenUntilItHasItsPlace)
{
    OpenWorkout();
    QSize shownAt;
    struct Watch : QObject
    {
        explicit Watch(QSize &size) : Size(size) {}
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Show && Size.isEmpty()) Size = static_cast<QWidget *>(watched)->size();
            return false;
        }
        QSize &Size;
    } watch(shownAt);
    Story.At = [&](ToldGame &, const QString &) {};
    Program.Window().installEventFilter(&watch);
    bool visibleAtFrameWork = true;
    // The first yield comes before the layout.
    QTimer::singleShot(0, [&] { visibleAtFrameWork = IsGameShown(); });
    Play();
    EXPECT_FALSE(visibleAtFrameWork);
    EXPECT_TRUE(IsGameShown());
}

TEST_F(Session, HumAndHeartLoopTogetherAndAPauseLeavesThem)
{
    OpenWorkout();
    Play();
    EXPECT_EQ(Sound("hum").Volume(), -1000);
    EXPECT_EQ(Sound("heart").Volume(), -1000);
    Loopback->Render(SoundDevice::LoopbackRate * 30);
    EXPECT_TRUE(Sound("hum").IsPlaying()) << "half a minute later";
    EXPECT_TRUE(Sound("heart").IsPlaying());
    Menu(QStringLiteral("pause"));
    EXPECT_TRUE(Sound("hum").IsPlaying());
    Menu(QStringLiteral("continue"));
    Story.At = [&](ToldGame &, const QString &cmd) {
        if (cmd == u"unload") {
            EXPECT_FALSE(Sound("hum").IsPlaying());
        }
    };
    Program.CloseNextScore([&] {
        EXPECT_FALSE(Sound("hum").IsPlaying());
        EXPECT_FALSE(Sound("heart").IsPlaying());
    });
    End();
}

TEST_F(Session, MissingLoopsAreSilence)
{
    QFile::remove(Program.Folder.Path() + QStringLiteral("sounds/hum.wav"));
    Program.Folder.Write(QStringLiteral("sounds/heart.wav"), "no wave");
    OpenWorkout();
    Play();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start"));
    EndAndScore();
    EXPECT_EQ(Program.Boxes.join(u'|'), QString());
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
}

TEST_F(Session, AnAbandonedGameGetsNeitherScoreNorRecord)
{
    OpenWorkout();
    Play();
    Story.At = [&](ToldGame &, const QString &cmd) {
        if (cmd == u"unload") {
            EXPECT_FALSE(Sound("heart").IsPlaying());
        }
    };
    Abandon();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,unload"));
    EXPECT_EQ(Results(), QString());
    EXPECT_EQ(Stored(QStringLiteral("select count(*) from Workout")), QStringLiteral("0"));
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_FALSE(Program.Sees("ctlGamePlaySummary1"));

    Menu(QStringLiteral("practice"));
    Play();
    Abandon();
    EXPECT_EQ(Program.Window().Mode(), 2);
    EXPECT_EQ(Results(), QString());
}

TEST_F(Session, KeysReachTheGameAlsoWhileItIsPausedAndNeverFromDialogs)
{
    OpenWorkout();
    Play();
    PressKey(Qt::Key_Left);
    Menu(QStringLiteral("pause"));
    PressKey(Qt::Key_7);
    Program.Window().SetSkin(modMain::CurrentSkin);
    Menu(QStringLiteral("continue"));
    Program.AnswerNextBox("cmd2", {}, [this] { PressKey(Qt::Key_X); });
    Menu(QStringLiteral("abandon"));
    EXPECT_EQ(Story.Verbs.mid(1).join(u','),
              QStringLiteral("keypress short 37 int 0,keypress short 55 int 0,changeskin int 0 int 0"));
}

TEST_F(Session, WithoutAGameVerbsGoNowhere)
{
    OpenWorkout();
    EXPECT_FALSE(Program.Window().SendGameMessage(QStringLiteral("start"), 1, 0).isValid());
    PressKey(Qt::Key_A);
    EXPECT_TRUE(Story.Verbs.isEmpty());
}

TEST_F(Session, TheInstructionsGoWhenTheGameStarts)
{
    OpenWorkout();
    Program.Window().Instructions(Game(), 2);
    EXPECT_TRUE(Program.Sees("ctlGameInstructions1"));
    bool result = false;
    Program.Window().StartGame(nullptr, 0, result);
    EXPECT_TRUE(result);
    EXPECT_FALSE(Program.Sees("ctlGameInstructions1"));
    EXPECT_EQ(Story.Verbs.join(u','), QStringLiteral("start int 2 int 0")) << "the level of Instructions";
}

TEST_F(Session, AnEmptyGameIsToldWithAnEmptyName)
{
    OpenWorkout();
    Program.AnswerNextBox("cmd2");
    Program.Window().PlayGame(nullptr, 1);
    EXPECT_EQ(TakeBox(), QStringLiteral("Error loading game: \r\nThere is no game to play."));
    EXPECT_EQ(Program.Window().Mode(), 6);
}

TEST_F(Session, InstructionsThatCantBeShownAreTold)
{
    OpenWorkout();
    Program.AnswerNextBox("cmd2");
    Program.Window().Instructions(nullptr, 1);
    EXPECT_TRUE(TakeBox().startsWith(u"Error showing instructions: \r\n"));
    EXPECT_EQ(Program.Window().Mode(), 6);
}

TEST_F(Session, AFailureBeforeTheModeIsSetLeavesModeScreenAndMenu)
{
    GivenGame(QStringLiteral("Ghost"), QStringLiteral("Nobody"));
    OpenWorkout();
    const QStringList menu = Program.MenuKeys();
    Program.Window().Instructions(Game(QStringLiteral("Ghost")), 1);
    bool result = true;
    Program.AnswerNextBox("cmd2");
    Program.Window().StartGame(nullptr, 0, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(TakeBox().section(QStringLiteral("\r\n"), 0, 0), QStringLiteral("Error loading game: Ghost"));
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_FALSE(Program.Sees("ctlGameInstructions1"));
    EXPECT_FALSE(Program.Sees("ctlGamePlaySummary1"));
    EXPECT_EQ(Program.MenuKeys(), menu);
    EXPECT_FALSE(GameTimer().isActive());
    Menu(QStringLiteral("exercise"));
    EXPECT_TRUE(Program.Sees("ctlWorkOut1")) << "the way out is the menu";
}

TEST_F(Session, AFailureAfterTheModeIsSetLeavesAGameToAbandon)
{
    OpenWorkout();
    Story.At = [](ToldGame &, const QString &cmd) {
        if (cmd == u"start") throw std::runtime_error("no start");
    };
    Program.AnswerNextBox("cmd2");
    bool result = true;
    Program.Window().StartGame(Game(), 1, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(TakeBox(), QStringLiteral("Error loading game: Alpha\r\nno start"));
    EXPECT_EQ(Program.Window().Mode(), 3);
    EXPECT_TRUE(GameTimer().isActive());
    EXPECT_TRUE(Sound("hum").IsPlaying());
    EXPECT_TRUE(IsGameShown());
    Abandon();
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_FALSE(Sound("hum").IsPlaying());
    Story.At = {};
    Play();
    EndAndScore();
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
}

TEST_F(Session, AGameThatWasLeftIsRemovedWithoutAVerbWhenAnotherStarts)
{
    OpenWorkout();
    Play();
    const QPointer<ToldGame> first = Story.Game;
    Play();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,start"));
    EXPECT_NE(first.data(), Story.Game.data());
    EXPECT_TRUE(Program.Until([&] { return first.isNull(); }));
}

TEST_F(Session, ASecondClickOnPlayDuringTheStartChangesNothing)
{
    OpenPractice();
    bool clicked = false;
    // It is delivered while the menu is being made, when the practice screen still shows.
    QTimer::singleShot(0, [&] {
        clicked = true;
        Play();
    });
    Play();
    EXPECT_TRUE(clicked);
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start"));
    EXPECT_EQ(Program.Window().Mode(), 4) << "practice stays practice";
}

TEST_F(Session, AGameThatEndsWhileItIsBeingStartedLeavesWhatItsEndChose)
{
    OpenWorkout();
    Program.CloseNextScore();
    QTimer::singleShot(0, [&] { End(); });
    Play();
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("score,unload"));
    EXPECT_EQ(Program.Window().Mode(), 6);
    EXPECT_TRUE(Program.Sees("ctlWorkOut1"));
    EXPECT_FALSE(GameTimer().isActive());
    EXPECT_FALSE(Sound("hum").IsPlaying());
    EXPECT_EQ(Results(), QStringLiteral("80|160|60|1|1|1|1"));
}

TEST_F(Session, TheProgressThatAGameTellsIsShownAsItIs)
{
    OpenWorkout();
    Play();
    for (const QVariant &percent : {QVariant(40), QVariant(150), QVariant(-5), QVariant(QStringLiteral("33"))})
        Story.Game->Framework->Message(QStringLiteral("progress"), percent);
    const auto *const shown = Program.Find("ctlGamePlaySummary1")->findChild<QWidget *>(QStringLiteral("lblPercent"));
    EXPECT_EQ(shown->property("Caption").toString(), QStringLiteral("Complete: 33%"));
    Story.Game->Framework->Message(QStringLiteral("progress"), 150);
    EXPECT_EQ(shown->property("Caption").toString(), QStringLiteral("Complete: 150%"));
}

TEST_F(Session, TheLastWorkoutWordsTellThePlayerAndTheGame)
{
    OpenWorkout();
    Play();
    const auto caption = [this](const char *name) {
        return Program.Find("ctlGamePlaySummary1")
            ->findChild<QWidget *>(QLatin1String(name))
            ->property("Caption")
            .toString();
    };
    EXPECT_EQ(caption("lblPlayer"), QStringLiteral("Ann"));
    EXPECT_EQ(caption("lblGame"), QStringLiteral("Alpha"));
    EXPECT_EQ(caption("lblPercent"), QStringLiteral("Complete: 0%"));
    EXPECT_EQ(caption("lblTime"), QStringLiteral("Time left: 60"));
}

TEST_F(Session, EndingTheProgramTakesTheGameAwayWithoutARecord)
{
    OpenWorkout();
    Play();
    Program.AnswerNextBox("cmd1");
    QTimer::singleShot(0, &Program.Window(), [this] { Menu(QStringLiteral("exit")); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(Story.Names().join(u','), QStringLiteral("start,unload"));
    EXPECT_EQ(Results(), QString());
}
