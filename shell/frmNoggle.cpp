// The main window's flow: modes, menu, transitions, close.
#include "shell/frmNoggle.h"

#include "platform/Clock.h"
#include "platform/Convert.h"
#include "platform/Picture.h"
#include "platform/Units.h"

#include "services/CResource.h"
#include "services/modDX.h"
#include "services/modHelp.h"

#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include "domain/colPlayer.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"

#include "skin/CSkin.h"
#include "skin/colSkin.h"
#include "skin/ctlButtonPanel.h"
#include "skin/frmOptions.h"

#include "screens/PlayerName.h"
#include "screens/ctlGameInstructions.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"
#include "screens/ctlPlayerlist.h"
#include "screens/ctlUserInfo.h"
#include "screens/ctlWorkOut.h"

#include "shell/GameHost.h"
#include "shell/GuardedApplication.h"
#include "shell/StartUp.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <array>
#include <cstdlib>
#include <span>

namespace
{
constexpr int QuestionFontSize = 16; // [pt]
constexpr int UntilRest = 500;       // [ms]

// Options and answers of the message box.
constexpr std::int32_t YesNo = 4;
constexpr std::int32_t AskForText = 33;    // OK, Cancel, a line of text
constexpr std::int32_t YesNoQuestion = 36; // Yes, No, question mark
constexpr std::int32_t AnswerOK = 1;
constexpr std::int32_t AnswerYes = 6;
constexpr std::int32_t AnswerNo = 7;

// Codes of ShowScreen.
enum ScreenCode {
    Progress = 0,
    InstructionsPage = 1,
    Game = 2,
    PlayerChoice = 3,
    Practice = 4,
    Paused = 5,
    Workout = 6
};

constexpr std::int16_t TitleString = 100;
constexpr std::int16_t LogoLinkString = 101;
constexpr std::int16_t LogoPicture = 1002;
constexpr std::int16_t AbandonQuestion = 301;
constexpr std::int16_t CloseQuestion = 302;
constexpr std::int16_t NewPlayerQuestion = 315;

struct MenuEntry
{
    const char *key;
    std::int16_t caption;
};
constexpr std::array PlayerMenu{MenuEntry{"practice", 305}, MenuEntry{"exercise", 306}, MenuEntry{"progress", 307},
                                MenuEntry{"change player", 308}};
constexpr std::array GameMenu{MenuEntry{"pause", 309}, MenuEntry{"abandon", 310}};
constexpr std::array PauseMenu{MenuEntry{"continue", 311}};
constexpr std::array MenuTail{MenuEntry{"options", 312}, MenuEntry{"help", 313}, MenuEntry{"exit", 314}};

std::span<const MenuEntry> MenuHead(std::int32_t Mode)
{
    switch (Mode) {
    case 1:
    case 2:
    case 6:
        return PlayerMenu;
    case 3:
    case 4:
        return GameMenu;
    case 5:
        return PauseMenu;
    default:
        return {};
    }
}

template <typename Control>
Control *Named(Control *control, const char *name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}
} // namespace

frmNoggle::Pictures::Pictures()
    : Minimize(OwnPicture(QStringLiteral("minimize"))), Close(OwnPicture(QStringLiteral("close")))
{}

frmNoggle::frmNoggle(const Pictures &pictures) : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmNoggle"));
    setAttribute(Qt::WA_TranslucentBackground);
    setMinimumSize(620, 460);
    MakeControls(pictures);
    ConnectControls();
    modMain::Form = this;
    setWindowTitle(modMain::Word(TitleString));
}

frmNoggle::~frmNoggle()
{
    if (modMain::Form == this) modMain::Form = nullptr;
}

void frmNoggle::MakeControls(const Pictures &pictures)
{
    picPrint = Named(new PictureBox(this), "picPrint");
    // Tab leads through them in this order: the strip at the top, the screen below it, the menu.
    PlayerName1 = Named(new PlayerName(picPrint), "PlayerName1");
    ctlWorkOut1 = Named(new ctlWorkOut(picPrint), "ctlWorkOut1");
    ctlUserInfo1 = Named(new ctlUserInfo(picPrint), "ctlUserInfo1");
    ctlGameList1 = Named(new ctlGameList(picPrint), "ctlGameList1");
    ctlPlayerlist1 = Named(new ctlPlayerlist(picPrint), "ctlPlayerlist1");
    ctlGameInstructions1 = Named(new ctlGameInstructions(picPrint), "ctlGameInstructions1");
    ctlGamePlaySummary1 = Named(new ctlGamePlaySummary(picPrint), "ctlGamePlaySummary1");
    picPause = Named(new cTransPictureBox(picPrint), "picPause");
    ctlButtonPanel1 = Named(new ctlButtonPanel(this), "ctlButtonPanel1");
    picLogo = Named(new PictureBox(this), "picLogo");
    picMinimize = Named(new cTransPictureBox(this), "picMinimize");
    picClose = Named(new cTransPictureBox(this), "picClose");
    lblTime = Named(new cTransPictureBox(this), "lblTime");

    picMinimize->SetPictureFile(pictures.Minimize);
    picClose->SetPictureFile(pictures.Close);
    for (cTransPictureBox *box : {picMinimize, picClose}) box->SizeToPicture();
    lblTime->setAttribute(Qt::WA_TransparentForMouseEvents); // the window is dragged through it
    lblTime->resize(0, 0); // nothing fills it, and beyond the outline it would have to be painted over
    ctlGamePlaySummary1->hide();
    tmrShowTime.setParent(this);
    tmrShowTime.setObjectName(QStringLiteral("tmrShowTime"));
    tmrShowTime.setInterval(500);
}

void frmNoggle::ConnectControls()
{
    connect(ctlButtonPanel1, &ctlButtonPanel::Click, this, &frmNoggle::ClickMenu);
    connect(ctlPlayerlist1, &ctlPlayerlist::Player, this, &frmNoggle::PickPlayer);
    connect(PlayerName1, &PlayerName::DeletePlayer, this, &frmNoggle::DeletePlayer);
    connect(ctlUserInfo1, &ctlUserInfo::PlayGame, this,
            [this](std::int32_t categoryKey) { PlayGame(modMain::CurrentPlayer->NextGameToPlay(categoryKey), 1); });
    connect(ctlGameInstructions1, &ctlGameInstructions::StartGame, this, [this] {
        bool result = false;
        StartGame(nullptr, 0, result);
    });
    connect(ctlGameInstructions1, &ctlGameInstructions::CancelGame, this, &frmNoggle::CancelInstructions);
    connect(&tmrShowTime, &QTimer::timeout, this, &frmNoggle::Tick);
    connect(picLogo, &PictureBox::Click, this, &frmNoggle::OpenLogoLink);
    connect(picMinimize, &cTransPictureBox::Click, this, &QWidget::showMinimized);
    connect(picClose, &cTransPictureBox::Click, this, &QWidget::close);
    if (const auto *const application = qobject_cast<GuardedApplication *>(qApp)) {
        connect(application, &GuardedApplication::KeyPressed, this,
                [this](QWidget *receiver, QKeyEvent *event) { PressKey(receiver, *event); });
    }
}

void frmNoggle::Init(const std::function<void()> &closeSplash)
{
    modDX::SetCooperativeLevel(this, 2);
    lblTime->SetCaption({});
    SetStrings();
    m_GameControl.reset();
    // For games that draw their numbers from the process's own generator: each start deals other ones.
    std::srand(static_cast<unsigned int>(qRound64(Now() * SecondsPerDay)));
    modHelp::HelpFile = QStringLiteral("Help.chm");
    ClickMenu(QStringLiteral("change player"));
    QThread::msleep(static_cast<unsigned long>(modMain::SplashHold(modMain::SplashTime, Timer())));
    closeSplash();
    SetSkin(modMain::CurrentSkin);
    show();
    activateWindow(); // where there is no window manager, nobody else gives it the keys
    QTimer::singleShot(UntilRest, this, &frmNoggle::MakeTheRest);
}

// While a person looks for their name; the first click on a screen would wait for it else.
void frmNoggle::MakeTheRest()
{
    if (modMain::Skins) modMain::Skins->LoadSkins();
    PlayerName1->MakeTextBoxes();
    ctlGameInstructions1->MakeTextBoxes();
    ctlUserInfo1->PrepareChart();
}

void frmNoggle::SetStrings()
{
    modMain::ProductTitle = modMain::Word(TitleString);
    ctlButtonPanel1->setAccessibleName(modMain::ProductTitle);
    m_LogoTag = modMain::Word(LogoLinkString);
    if (!m_LogoTag.isEmpty()) picLogo->setCursor(Qt::WhatsThisCursor);
    const QImage logo = modMain::Resources->LoadJPEG(LogoPicture);
    picLogo->Setpicture(logo);
    if (!logo.isNull()) picLogo->resize(logo.size());
}

void frmNoggle::ShowScreen(std::int32_t Code)
{
    // What is hidden while it has the keyboard passes it on to whatever stands next, often the menu: its first row
    // would light up, and the next Enter press it.
    picPrint->setFocus(Qt::MouseFocusReason); // without a mark: it is no control
    ctlUserInfo1->setVisible(Code == ScreenCode::Progress);
    ctlGameInstructions1->setVisible(Code == ScreenCode::InstructionsPage);
    ctlPlayerlist1->setVisible(Code == ScreenCode::PlayerChoice);
    ctlGameList1->setVisible(Code == ScreenCode::Practice);
    picPause->setVisible(Code == ScreenCode::Paused);
    ctlWorkOut1->setVisible(Code == ScreenCode::Workout);
    if (m_GameControl) m_GameControl->SetVisible(Code == ScreenCode::Game);
    PlayerName1->setVisible(Code == ScreenCode::Progress || Code == ScreenCode::Practice ||
                            Code == ScreenCode::Workout);
}

void frmNoggle::MakePanel()
{
    ctlButtonPanel1->ClearButtons();
    QCoreApplication::processEvents();
    // What ran just now may have made the panel itself; the menu must not stand there twice.
    ctlButtonPanel1->ClearButtons();
    // A game keeps the keyboard when the menu is pressed; on the screens a press leaves the name that is being
    // written.
    ctlButtonPanel1->setFocusPolicy(m_Mode == 3 || m_Mode == 4 ? Qt::TabFocus : Qt::StrongFocus);
    const auto add = [this](const MenuEntry &entry) {
        ctlButtonPanel1->Add(modMain::Word(entry.caption), QLatin1String(entry.key));
    };
    for (const MenuEntry &entry : MenuHead(m_Mode)) add(entry);
    for (const MenuEntry &entry : MenuTail) add(entry);
    ctlButtonPanel1->UpdateButtons();
}

void frmNoggle::ClickMenu(const QString &Key)
{
    // Kept for menus that list the players themselves.
    if (Key >= u"player 1" && Key <= u"player 9") return ShowPlayer(1, WholeNumber(Key.mid(7)));
    if (Key == u"new player") return NewPlayer();
    if (Key == u"exercise") return ShowWorkoutScreen(false);
    if (Key == u"progress") return ShowPlayer(2, 0);
    if (Key == u"options") {
        frmOptions().ShowModal(this);
        return;
    }
    if (Key == u"help") return modHelp::ShowHelp(this);
    if (Key == u"exit") {
        close();
        return;
    }
    if (Key == u"pause" || Key == u"continue") return TogglePause(false);
    if (Key == u"change player") return ChangePlayer();
    if (Key == u"abandon") return Abandon();
    if (Key == u"practice") return ShowPracticeScreen();
}

void frmNoggle::ChangePlayer()
{
    m_Mode = 0;
    ctlUserInfo1->hide();
    ctlPlayerlist1->ListPlayers();
    ShowScreen(ScreenCode::PlayerChoice);
    MakePanel();
}

void frmNoggle::Abandon()
{
    // The clock goes on during the question, so the game may have ended on its own when the answer comes. Its end has
    // chosen mode and screen then, and they stay. An end that failed on its way may have left the mode of a game
    // without one, or the menu of a game in another mode: this is the way out of both. And the window may have been
    // minimised meanwhile, which has paused the game: the answer holds for it all the same.
    const std::int32_t answer =
        modMain::Framework->MsgBox(modMain::Word(AbandonQuestion), YesNo, this, nullptr, QuestionFontSize);
    if (answer != AnswerYes) return;
    if (!m_GameControl && m_Mode != 3 && m_Mode != 4) return MakePanel();
    UnloadGame();
    if (m_Mode == 3) return ShowWorkoutScreen(false);
    ShowScreen(ScreenCode::Practice);
    m_Mode = 2;
    MakePanel();
}

void frmNoggle::ShowPlayer(std::int32_t Mode, std::int32_t Key)
{
    if (Key != 0) modMain::CurrentPlayer = modMain::Players->Item(Key);
    if (!modMain::CurrentPlayer) {
        ctlUserInfo1->hide();
    } else {
        ctlUserInfo1->ShowDetails(Mode);
        ShowScreen(ScreenCode::Progress);
    }
    m_Mode = 1;
    MakePanel();
}

void frmNoggle::PickPlayer(std::int32_t Key)
{
    if (Key == 0) return NewPlayer();
    modMain::CurrentPlayer = modMain::Players->Item(Key);
    PlayerName1->ShowDetails();
    ShowPracticeScreen();
}

void frmNoggle::NewPlayer()
{
    QString name;
    const std::int32_t answer =
        modMain::Framework->MsgBox(modMain::Word(NewPlayerQuestion), AskForText, this, &name, QuestionFontSize);
    if (answer != AnswerOK) return;
    modMain::CurrentPlayer = modMain::Players->Add();
    modMain::CurrentPlayer->Name = name;
    modMain::CurrentPlayer->Save();
    PlayerName1->ShowDetails();
    ShowPracticeScreen();
    MakePanel();
}

void frmNoggle::DeletePlayer()
{
    modMain::Players->Remove(modMain::CurrentPlayer->Key);
    modMain::CurrentPlayer.reset();
    modMain::CurrentWorkout.reset();
    modMain::CurrentPlayerGame.reset();
    ChangePlayer();
}

void frmNoggle::ShowWorkoutScreen(bool PlayFanfare)
{
    m_Mode = 6;
    ctlWorkOut1->ListCats(PlayFanfare);
    ShowScreen(ScreenCode::Workout);
    MakePanel();
}

void frmNoggle::ShowPracticeScreen()
{
    m_Mode = 2;
    ctlGameList1->LoadCatList();
    ShowScreen(ScreenCode::Practice);
    MakePanel();
}

void frmNoggle::CancelInstructions()
{
    ctlGameInstructions1->hide();
    if (m_Mode != 2) return ShowWorkoutScreen(false);
    ctlGameList1->show();
    PlayerName1->show();
}

void frmNoggle::TogglePause(bool OnlyToPause)
{
    if (OnlyToPause && m_Mode == 5) return;
    if (m_Mode == 3 || m_Mode == 4) {
        m_ModeBeforePause = m_Mode;
        m_Mode = 5;
    } else if (m_Mode == 5) {
        m_Mode = m_ModeBeforePause;
    }
    ApplyPause();
    MakePanel();
}

void frmNoggle::ApplyPause()
{
    if (m_Mode == 5) {
        ShowScreen(ScreenCode::Paused);
        PauseTimer();
    } else if (m_Mode == 3 || m_Mode == 4) {
        ShowScreen(ScreenCode::Game);
        ResumeTimer();
    }
}

bool frmNoggle::MayClose()
{
    if (isMinimized()) {
        showNormal();
        raise();
    }
    const QString text = modMain::Word(CloseQuestion).replace(QStringLiteral("<name>"), modMain::ProductTitle);
    return modMain::Framework->MsgBox(text, YesNoQuestion, this, nullptr, QuestionFontSize) != AnswerNo;
}

void frmNoggle::closeEvent(QCloseEvent *event)
{
    event->ignore();
    // A dialog is open, this one's own question perhaps: the request waits until it has been answered and is made
    // anew.
    if (m_Closing || QApplication::activeModalWidget() != nullptr) return;
    // A name that is being written is kept, as it is when a button is pressed; a game keeps the keyboard.
    if (QWidget *const box = focusWidget(); box != nullptr && !m_GameControl) box->clearFocus();
    m_Closing = true;
    const bool close = qApp->isSavingSession() || MayClose();
    m_Closing = false;
    if (!close) return;
    event->accept();
    EndProgram();
}

void frmNoggle::EndProgram()
{
    if (m_GameControl) UnloadGame();
    modMain::Resources->CloseLibrary();
    Trapped(QStringLiteral("Error saving settings."), [] { modMain::SaveSettings(); });
    QCoreApplication::exit(0);
}
