// The one main window. It has three subjects, each with a source file of its own:
//   frmNoggle.cpp         flow: which screen shows, the menu, every way from one mode to another, the close
//   frmNoggleSession.cpp  session: the life of one game, its clock, its end and what is stored of it
//   frmNoggleFace.cpp     face: outline, layout, background, skin change, keys, minimising
//
// Modes: 0 choosing a player, 1 progress, 2 practice, 3 workout game, 4 practice game, 5 paused, 6 workout. The
// numbers are fixed: 2 is what makes a game that starts a practice game, and 5 remembers which of 3 and 4 it came
// from.
#pragma once

#include "shell/program/MainForm.h"

#include "skin/Region.h"

#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>

class CSkin;
class HostedGame;
class PictureBox;
class PlayerName;
class cTransPictureBox;
class ctlButtonPanel;
class ctlGameInstructions;
class ctlGameList;
class ctlGamePlaySummary;
class ctlPlayerlist;
class ctlUserInfo;
class ctlWorkOut;
class QKeyEvent;

class frmNoggle final : public QWidget, public MainForm
{
    Q_OBJECT

public:
    /// The window's own pictures. They can be read before the fonts are known, the window can't be made.
    struct Pictures
    {
        Pictures();
        QImage Minimize, Close;
    };

    explicit frmNoggle(const Pictures &pictures);
    ~frmNoggle() override;

    // ---- flow ----------------------------------------------------------------------------------------------------

    /// Opens on the choice of player: words, logo, menu, skin; closeSplash is called once the splash has been held.
    /// Failure: passed on.
    void Init(const std::function<void()> &closeSplash);
    /// Rebuilds the menu of the present mode. Pending messages run once on the way.
    void MakePanel();
    /// Shows the progress screen in one of its modes; a Key that is not 0 makes that player the current one first.
    /// Failure: passed on.
    void ShowPlayer(std::int32_t Mode, std::int32_t Key);
    std::int32_t Mode() const { return m_Mode; }

    // ---- session -------------------------------------------------------------------------------------------------

    void Instructions(const std::shared_ptr<CGame> &Game, std::int32_t Level) override;
    void PlayGame(const std::shared_ptr<CGame> &Game, std::int32_t Level) override;
    void StartGame(const std::shared_ptr<CGame> &Game, std::int32_t Level, bool &Result) override;
    /// Ends the session: points, score dialog, records. Does nothing while it runs already. Failure: passed on; the
    /// end then counts as still running, and no game can end until the program starts again.
    void GameOver();
    /// Sends a verb to the running game. Empty without one. Failure: passed on, whatever the game threw.
    QVariant SendGameMessage(const QString &Cmd, const QVariant &Info1, const QVariant &Info2);
    /// [%] Shown in the strip below the game, as it is.
    void Progress(std::int32_t Percent);
    /// [s] Since the start, pauses left out, to the nearest second.
    std::int32_t TimeTaken() const;
    void PauseTimer();
    void ResumeTimer();

    // ---- face ----------------------------------------------------------------------------------------------------

    /// Takes the outline, the layout and the pictures of a skin; layout values come from the current skin, which the
    /// caller has set. The window moves to the middle of the screen. Failure: passed on.
    void SetSkin(const std::shared_ptr<CSkin> &Skin) override;
    /// Where the wheel hook leads, by this name, while the window is active; the wheel has no effect on any screen.
    Q_INVOKABLE void MouseWheel(std::int32_t Rotation, std::int32_t Keys, std::int32_t Y, std::int32_t X);
    QImage GameBackground() const override { return m_GameBackground; }
    QWidget *Window() override { return this; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    // flow
    void MakeControls(const Pictures &pictures);
    void MakeTheRest();
    void ConnectControls();
    void SetStrings();
    void ShowScreen(std::int32_t Code);
    void ClickMenu(const QString &Key);
    void ChangePlayer();
    void Abandon();
    void PickPlayer(std::int32_t Key);
    void NewPlayer();
    void DeletePlayer();
    void ShowWorkoutScreen(bool PlayFanfare);
    void ShowPracticeScreen();
    void CancelInstructions();
    void TogglePause(bool OnlyToPause);
    void ApplyPause();
    bool MayClose();
    void EndProgram();

    // session
    bool HostGame();
    std::shared_ptr<HostedGame> PlacedGame(); // empty when the game has ended while it was placed
    void ShowStrip();
    void StartLoops();
    void StopLoops();
    void Tick();
    void TimeUp();
    void UnloadGame();
    void LetGameGo();
    void EndWorkoutGame(std::int32_t TimeTaken, std::int32_t Points);
    struct WorkoutEnd;
    void StoreWorkoutResult(std::int32_t TimeLeft, std::int32_t Points, std::int32_t Total, WorkoutEnd &End);
    void EndPracticeGame(std::int32_t TimeTaken, std::int32_t Points);

    // face
    void TakeOutline(const QImage &Frame, const QImage &Sharp);
    const QImage &Face();
    void Layout();
    void PlaceGame(int Width, int Height);
    void ClipControls();
    void PaintGameBackground();
    void PressKey(QWidget *Receiver, const QKeyEvent &Event);
    void OpenLogoLink();

    // All of them live as long as the window, which is their parent.
    PictureBox *picPrint;
    ctlWorkOut *ctlWorkOut1;
    PlayerName *PlayerName1;
    ctlUserInfo *ctlUserInfo1;
    ctlGameList *ctlGameList1;
    ctlPlayerlist *ctlPlayerlist1;
    ctlGameInstructions *ctlGameInstructions1;
    ctlGamePlaySummary *ctlGamePlaySummary1;
    ctlButtonPanel *ctlButtonPanel1;
    PictureBox *picLogo;
    cTransPictureBox *picMinimize;
    cTransPictureBox *picClose;
    cTransPictureBox *picPause;
    cTransPictureBox *lblTime;
    QTimer tmrShowTime;

    std::int32_t m_Mode = 0;
    std::int32_t m_ModeBeforePause = 0;
    bool m_Closing = false;

    std::shared_ptr<HostedGame> m_GameControl; // the running game, or empty
    std::int32_t m_Level = 0;
    double m_StartTime = 0; // [days] wall clock; a pause moves it forward
    double m_PausedFor = 0; // [days] what had gone by at the last pause
    bool m_InStartGame = false;
    bool m_InGameOver = false;

    Region m_Region;
    QImage m_FramePicture;
    QImage m_SharpFrame;     // twice its size, where the skin has one and the screen can use it
    QImage m_Face;           // what the window paints, for one scale of the screen
    QImage m_GameBackground; // "picGameBackground": what lies under the screens
    QString m_LogoTag;
};
