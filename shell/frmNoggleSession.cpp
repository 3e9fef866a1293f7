// The main window's session: one game from its start to what is stored of it.
#include "shell/frmNoggle.h"

#include "platform/Clock.h"
#include "platform/Convert.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "platform/Units.h"

#include "services/colSound.h"

#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"
#include "domain/CPlayerGame.h"
#include "domain/CWorkout.h"
#include "domain/Store.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/PictureBox.h"

#include "screens/ctlGameInstructions.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"

#include "shell/GameHost.h"
#include "shell/Score.h"
#include "shell/frmScore.h"

#include <QScopedValueRollback>
#include <QTimer>

namespace
{
constexpr std::int32_t WorkoutResult = 1;
constexpr std::int32_t PracticeResult = 3;
constexpr std::int32_t LoopVolume = -1000; // [1/100 dB]
constexpr std::int32_t Looping = 1;
constexpr std::int16_t PracticeResultString = 303;
constexpr std::int16_t GameOverString = 304;
constexpr int MessageFontSize = 16; // [pt]

QString NameOf(const std::shared_ptr<CGame> &Game) { return Game ? Game->Name() : QString(); }

CGame &PresentGame()
{
    if (!modMain::CurrentGame) throw RuntimeError(QStringLiteral("There is no game to play."));
    return *modMain::CurrentGame;
}

CPlayer &PresentPlayer()
{
    if (!modMain::CurrentPlayer) throw RuntimeError(QStringLiteral("There is no player."));
    return *modMain::CurrentPlayer;
}

std::int32_t SecondsSince(double StartTime) { return ToInt32((Now() - StartTime) * SecondsPerDay); }
} // namespace

void frmNoggle::Instructions(const std::shared_ptr<CGame> &Game, std::int32_t Level)
{
    modMain::CurrentGame = Game;
    m_Level = Level;
    Trapped(
        QStringLiteral("Error showing instructions: ") + NameOf(Game),
        [this] {
            ctlGameInstructions1->ShowInstructions(modMain::CurrentGame);
            ShowScreen(1);
        },
        this);
}

void frmNoggle::PlayGame(const std::shared_ptr<CGame> &Game, std::int32_t Level)
{
    modMain::CurrentGame = Game;
    m_Level = Level;
    Trapped(
        QStringLiteral("Error starting game: ") + NameOf(Game),
        [this] {
            bool result = false;
            StartGame(nullptr, 0, result);
        },
        this);
}

void frmNoggle::StartGame(const std::shared_ptr<CGame> &Game, std::int32_t Level, bool &Result)
{
    Result = false;
    // The menu lets pending clicks through while a game starts: the second click of a double click is one.
    if (m_InStartGame) return;
    if (Game) {
        modMain::CurrentGame = Game;
        m_Level = Level;
    }
    Step([this] { LetGameGo(); });
    ctlGameInstructions1->hide();
    repaint();
    Trapped(
        QStringLiteral("Error loading game: ") + NameOf(modMain::CurrentGame), [&] { Result = HostGame(); }, this);
}

bool frmNoggle::HostGame()
{
    const std::shared_ptr<HostedGame> game = PlacedGame();
    if (!game) return false;
    // Sent when the game may be replaced again: it may play from its start to its end inside of this verb.
    SendGameMessage(QStringLiteral("start"), m_Level, 0);
    return m_GameControl == game;
}

std::shared_ptr<HostedGame> frmNoggle::PlacedGame()
{
    const QScopedValueRollback<bool> inStart(m_InStartGame, true);
    const CGame &present = PresentGame();
    std::shared_ptr<HostedGame> game =
        CreateGame(present.ComponentName + QStringLiteral(".GameArea"), present.Path(), picPrint);
    m_GameControl = game;
    // The clock starts now as well as below: neither a tick left over from an earlier session nor a game that ends at
    // once must meet the old start.
    m_StartTime = Now();
    game->SetNoggleFrameWork();
    // A game that has ended already has been taken away, and what its end chose is shown.
    if (m_GameControl != game) return nullptr;
    m_Mode = m_Mode == 2 ? 4 : 3;
    ShowStrip();
    MakePanel();
    if (m_GameControl != game) return nullptr; // pending events ran just now, the game's own among them
    Layout();
    m_StartTime = Now();
    tmrShowTime.start();
    ShowScreen(2);
    StartLoops();
    return game;
}

void frmNoggle::ShowStrip()
{
    const std::int32_t limit = m_Mode == 3 ? PresentGame().TimeLimit : 0;
    ctlGamePlaySummary1->SetPlayerName(PresentPlayer().Name);
    ctlGamePlaySummary1->SetGameName(PresentGame().Name());
    ctlGamePlaySummary1->SetTimeLimit(limit);
    ctlGamePlaySummary1->SetTimeLeft(limit);
    ctlGamePlaySummary1->SetComplete(0);
    ctlGamePlaySummary1->show();
}

void frmNoggle::StartLoops()
{
    for (const QString &name : {QStringLiteral("hum"), QStringLiteral("heart")}) {
        CSound &sound = modMain::ShellSounds->Item(name);
        sound.SetVolume(LoopVolume);
        sound.Play(Looping);
    }
}

void frmNoggle::StopLoops()
{
    modMain::ShellSounds->Item(QStringLiteral("hum")).Halt();
    modMain::ShellSounds->Item(QStringLiteral("heart")).Halt();
}

QVariant frmNoggle::SendGameMessage(const QString &Cmd, const QVariant &Info1, const QVariant &Info2)
{
    // Held while it answers: the verb may end with the game taken away.
    const std::shared_ptr<HostedGame> game = m_GameControl;
    return game ? game->Message(Cmd, Info1, Info2) : QVariant();
}

void frmNoggle::Progress(std::int32_t Percent) { ctlGamePlaySummary1->SetComplete(Percent); }

std::int32_t frmNoggle::TimeTaken() const { return SecondsSince(m_StartTime); }

void frmNoggle::PauseTimer()
{
    m_PausedFor = Now() - m_StartTime;
    tmrShowTime.stop();
}

void frmNoggle::ResumeTimer()
{
    m_StartTime = Now() - m_PausedFor;
    tmrShowTime.start();
}

void frmNoggle::Tick()
{
    // Ticks may come in any mode: after an abandoned game the timer is left running. Only mode 3 may end by them.
    std::int32_t value = 0;
    Step([&] {
        const double taken = (Now() - m_StartTime) * SecondsPerDay;
        if (m_Mode == 3) value = ToInt32(PresentGame().TimeLimit - taken);
        if (m_Mode == 4) value = ToInt32(-taken);
    });
    Step([&] { ctlGamePlaySummary1->SetTimeLeft(value); });
    Step([&] {
        if (m_Mode == 3 && PresentGame().TimeLimit >= 1 && value < 1) TimeUp();
    });
}

void frmNoggle::TimeUp()
{
    const std::shared_ptr<HostedGame> game = m_GameControl;
    Step([this] { SendGameMessage(QStringLiteral("timeup"), 0, 0); });
    // A game may answer with "gameover", and has been scored and taken away then.
    if (m_GameControl == game) Step([this] { GameOver(); });
}

void frmNoggle::UnloadGame()
{
    Step([this] { StopLoops(); });
    Step([this] { SendGameMessage(QStringLiteral("unload"), 0, 0); });
    Step([this] { LetGameGo(); });
    Step([this] { ctlGamePlaySummary1->hide(); });
}

void frmNoggle::LetGameGo()
{
    const std::shared_ptr<HostedGame> game = std::move(m_GameControl);
    m_GameControl.reset();
    if (game) game->Unload();
}

void frmNoggle::GameOver()
{
    // A second "gameover" during the score dialog, or a tick, does nothing. After a failure the mark stays set: what
    // became of the records is not known then.
    if (m_InGameOver) return;
    m_InGameOver = true;
    tmrShowTime.stop();
    const std::int32_t taken = TimeTaken();
    const std::int32_t points = NumberIn(SendGameMessage(QStringLiteral("score"), 0, 0));
    StopLoops();
    if (m_Mode == 3)
        EndWorkoutGame(taken, points);
    else
        EndPracticeGame(taken, points);
    m_InGameOver = false;
}

// What a game's end changes in memory, to be put back when the store took nothing of it: a workout and a result that
// are not in the store would carry keys that the next ones get, and an award would be stored without its result.
struct frmNoggle::WorkoutEnd
{
    std::int32_t Award = 0;
    std::shared_ptr<CWorkout> WorkoutBefore = modMain::CurrentWorkout;
    std::shared_ptr<CGamePlayed> Result = {};
    std::shared_ptr<CPlayerGame> State = {};
    CPlayerGame StateBefore = {};

    void Forget(CPlayer &player) const
    {
        if (State) *State = StateBefore;
        if (modMain::CurrentWorkout != WorkoutBefore)
            player.Workouts().Remove(player.Workouts().Count());
        else if (Result)
            WorkoutBefore->GamesPlayed().Remove(WorkoutBefore->GamesPlayed().Count());
        modMain::CurrentWorkout = WorkoutBefore;
    }
};

void frmNoggle::EndWorkoutGame(std::int32_t TimeTaken, std::int32_t Points)
{
    const ScoreSheet sheet = Score(PresentGame().TimeLimit, TimeTaken, Points, m_Level);
    frmScore().ShowScore(this, Points, sheet.TimeLeft, sheet.TimeBonus, m_Level, sheet.LevelBonus, sheet.Total,
                         sheet.Star);
    UnloadGame();
    WorkoutEnd end{sheet.Star ? 1 : 0};
    modMain::OneCommit(
        QStringLiteral("Error saving GamePlayed info."),
        [&] { StoreWorkoutResult(sheet.TimeLeft, Points, sheet.Total, end); }, [&] { end.Forget(PresentPlayer()); });
    ShowWorkoutScreen(true);
}

void frmNoggle::StoreWorkoutResult(std::int32_t TimeLeft, std::int32_t Points, std::int32_t Total, WorkoutEnd &End)
{
    CPlayer &player = PresentPlayer();
    CGame &game = PresentGame();
    if (!modMain::CurrentWorkout) {
        // Its row keeps mode 0 until the workout is saved again.
        modMain::CurrentWorkout = player.Workouts().Add();
        modMain::CurrentWorkout->Mode = WorkoutResult;
    }
    CWorkout &workout = *modMain::CurrentWorkout;
    End.Result =
        workout.GamesPlayed().Add(player.Key, game.Key, Points, TimeLeft, Total, workout.Mode, m_Level, End.Award);

    modMain::CurrentPlayerGame = player.GameData().Item(game.Key);
    CPlayerGame &state = *modMain::CurrentPlayerGame;
    End.State = modMain::CurrentPlayerGame;
    End.StateBefore = state;
    state.AddAward(End.Award);
    const Standing standing = Promoted({state.Level(), state.UnspentAwards}, game.Levels());
    state.SetLevel(standing.Level);
    state.UnspentAwards = standing.UnspentAwards;
    state.Save();
}

void frmNoggle::EndPracticeGame(std::int32_t TimeTaken, std::int32_t Points)
{
    const QString result = modMain::Word(PracticeResultString)
                               .replace(QStringLiteral("<score>"), QString::number(Points))
                               .replace(QStringLiteral("<time>"), modMain::FormatTime(TimeTaken, true));
    modMain::Framework->MsgBox(modMain::Word(GameOverString) + QStringLiteral("\r\n") + result, 0, this, nullptr,
                               MessageFontSize);
    UnloadGame();
    CPlayer &player = PresentPlayer();
    player.GamesPlayed().Add(player.Key, PresentGame().Key, Points, TimeTaken, Points, PracticeResult, m_Level, 0);
    m_Mode = 2;
    ctlGameList1->ShowBestTimes();
    ShowScreen(4);
    MakePanel();
}
