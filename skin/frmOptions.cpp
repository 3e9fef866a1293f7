#include "skin/frmOptions.h"

#include "domain/colGame.h"
#include "platform/Process.h"
#include "sdk/CNoggleFramework.h"
#include "sdk/CSkinPic.h"
#include "sdk/controls/Caption.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/cTransPictureBox.h"
#include "services/colSound.h"
#include "shell/program/MainForm.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"
#include "skin/FrameFace.h"
#include "skin/Region.h"
#include "skin/ShellSound.h"
#include "skin/colSkin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QScopedValueRollback>

namespace
{
enum Words : std::int16_t {
    WordOK = 1,
    WordCancel = 2,
    WordTitle = 601,
    WordSkin = 602,
    WordSound = 603,
    WordWhiteBackground = 604
};

// Measures of the dialog. [px]
constexpr QSize FormSize(480, 328);
constexpr int Margin = 36;
constexpr int FirstRow = 88;
constexpr int RowHeight = 48;
constexpr int ControlLeft = 250;
constexpr QSize ControlSize(194, 32);
constexpr QSize ButtonSize(128, 34);
constexpr double RowPoints = 12;

using modMain::Word;

template <typename Control>
Control *Named(Control *control, const char *name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}

// The same whatever the desktop's theme is, since the ground is the skin's.
QString StyleOn(const QColor &ink)
{
    return QStringLiteral("QComboBox { background: white; color: #12332b; border: 1px solid #6f8f84;"
                          " border-radius: 8px; padding: 2px 12px; }"
                          "QComboBox:focus { border: 2px solid #b86b00; }"
                          "QComboBox::drop-down { border: none; width: 30px; }"
                          "QComboBox::down-arrow { image: url(:/pictures/unfold.png); }"
                          "QComboBox QAbstractItemView { background: white; color: #12332b;"
                          " selection-background-color: #ffd36b; selection-color: #12332b; }"
                          "QCheckBox { color: %1; spacing: 0px; padding: 3px; border: 2px solid transparent;"
                          " border-radius: 6px; }"
                          "QCheckBox:focus { border-color: #b86b00; }"
                          "QCheckBox::indicator { width: 22px; height: 22px; border: 1px solid #6f8f84;"
                          " border-radius: 6px; background: white; }"
                          "QCheckBox::indicator:checked { border-image: url(:/pictures/checked.png); }")
        .arg(ink.name());
}
} // namespace

frmOptions::frmOptions()
{
    setObjectName(QStringLiteral("frmOptions"));
    MakeControls();
    PlaceControls();
    SetWords();
    Skin();
    chkSoundOn->setChecked(modMain::SoundOn);
    chkWhiteBackground->setChecked(modMain::WhiteBackground);
    lblURL->setVisible(modMain::OnlineEnabled());
    lblNewSkins->setVisible(modMain::OnlineEnabled());
    FillSkins();
}

void frmOptions::MakeControls()
{
    lblTitle = Named(new cTransPictureBox(this), "lblTitle");
    picSkin = Named(new cTransPictureBox(this), "picSkin");
    picSoundOn = Named(new cTransPictureBox(this), "picSoundOn");
    picWhiteBackground = Named(new cTransPictureBox(this), "picWhiteBackground");
    cboSkin = Named(new QComboBox(this), "cboSkin");
    chkSoundOn = Named(new QCheckBox(this), "chkSoundOn");
    chkWhiteBackground = Named(new QCheckBox(this), "chkWhiteBackground");
    cmdOK = Named(new LarkButton(this), "cmdOK");
    cmdCancel = Named(new LarkButton(this), "cmdCancel");
    lblURL = Named(new TransLabel(this), "lblURL");
    lblNewSkins = Named(new TransLabel(this), "lblNewSkins");
    for (TransLabel *label : {static_cast<TransLabel *>(lblTitle), static_cast<TransLabel *>(picSkin),
                              static_cast<TransLabel *>(picSoundOn), static_cast<TransLabel *>(picWhiteBackground)}) {
        label->SetFont(RowPoints, true);
        DragBy(label);
    }
    lblTitle->SetFont(20, true);
    lblURL->setCursor(Qt::PointingHandCursor);
    connect(cboSkin, &QComboBox::currentTextChanged, this, &frmOptions::ChooseSkin);
    connect(cmdOK, &LarkButton::clicked, this, &frmOptions::OK);
    connect(cmdCancel, &LarkButton::clicked, this, &frmOptions::Cancel);
    connect(lblURL, &TransLabel::Click, this,
            [this] { OpenWithDesktop(QStringLiteral("http://") + lblURL->Caption()); });
}

void frmOptions::PlaceControls()
{
    resize(FormSize);
    lblTitle->setGeometry(Margin, 24, FormSize.width() - 2 * Margin, 44);
    int top = FirstRow;
    for (const auto &[label, control] : std::initializer_list<std::pair<QWidget *, QWidget *>>{
             {picSkin, cboSkin}, {picSoundOn, chkSoundOn}, {picWhiteBackground, chkWhiteBackground}}) {
        label->setGeometry(Margin, top, ControlLeft - Margin - 8, ControlSize.height());
        control->setGeometry(QRect(QPoint(ControlLeft, top), ControlSize));
        top += RowHeight;
    }
    for (QCheckBox *box : {chkSoundOn, chkWhiteBackground}) box->resize(34, ControlSize.height());
    lblNewSkins->setGeometry(Margin, top - 6, ControlLeft - Margin - 8, 26);
    lblURL->setGeometry(ControlLeft, top - 6, ControlSize.width(), 26);
    const int buttons = FormSize.height() - 28 - ButtonSize.height();
    cmdCancel->setGeometry(QRect(QPoint(FormSize.width() - Margin - ButtonSize.width(), buttons), ButtonSize));
    cmdOK->setGeometry(cmdCancel->geometry().translated(-ButtonSize.width() - 18, 0));
}

void frmOptions::SetWords()
{
    lblTitle->SetCaption(Word(WordTitle));
    picSkin->SetCaption(Word(WordSkin));
    picSoundOn->SetCaption(Word(WordSound));
    picWhiteBackground->SetCaption(Word(WordWhiteBackground));
    cmdOK->SetCaption(Word(WordOK));
    cmdCancel->SetCaption(Word(WordCancel));
    lblNewSkins->SetCaption(QStringLiteral("More skins"));
    lblURL->SetCaption(QStringLiteral(NOGGLE_SKIN_SITE));
    cboSkin->setAccessibleName(picSkin->Caption());
    chkSoundOn->setAccessibleName(picSoundOn->Caption());
    chkWhiteBackground->setAccessibleName(picWhiteBackground->Caption());
    setWindowTitle(lblTitle->Caption());
}

void frmOptions::Skin()
{
    for (LarkButton *button : {cmdOK, cmdCancel}) {
        button->SetFont(RowPoints, true);
        if (modMain::Framework) modMain::Framework->SkinButton(button);
    }
    // Told, but a skin without the picture must not lock its user out of choosing another one.
    Trapped(QStringLiteral("The skin's picture for dialogs can't be loaded."), [&] {
        if (modMain::CurrentSkin) Setpicture(modMain::CurrentSkin->DialogPicture());
    });
    const QColor ink = Look::ReadableOn(picture());
    for (TransLabel *label : findChildren<TransLabel *>()) label->SetForeColour(ink);
    QFont underlined = Caption::DesignFont(font(), RowPoints - 1, false);
    lblNewSkins->setFont(underlined);
    underlined.setUnderline(true);
    lblURL->setFont(underlined);
    cboSkin->setFont(Caption::DesignFont(font(), RowPoints, false));
    setStyleSheet(StyleOn(ink));
}

// In the order of the list, unsorted, so that names and skins go together.
void frmOptions::FillSkins()
{
    if (modMain::Skins)
        for (const auto &skin : *modMain::Skins) cboSkin->addItem(skin->Name());
    // Set by itself too: no change is told when the text was right from the start.
    m_Skin = modMain::CurrentSkin;
    if (m_Skin) cboSkin->setCurrentIndex(cboSkin->findText(m_Skin->Name()));
    m_Skin = modMain::CurrentSkin;
}

void frmOptions::ChooseSkin(const QString &name)
{
    if (modMain::Skins && !name.isEmpty()) m_Skin = modMain::Skins->Item(name);
}

// Asked before anything of the skin is taken: a window that can't be shaped by it would stay between two skins, and
// the next start would fail with the name that is stored at the end.
bool frmOptions::CanBeTaken(CSkin &skin)
{
    return Trapped(QStringLiteral("The skin \"%1\" can't be used, so the present one stays.").arg(skin.Name()),
                   [&] { OutlineOf(skin.Frame()->picture()); });
}

void frmOptions::ApplyOptions()
{
    if (m_Busy) return;
    const QScopedValueRollback<bool> busy(m_Busy, true);
    hide();
    if (m_Skin != modMain::CurrentSkin && CanBeTaken(*m_Skin)) modMain::CurrentSkin = m_Skin;
    modMain::SoundOn = chkSoundOn->isChecked();
    if (modMain::ShellSounds) modMain::ShellSounds->SetSoundOn(modMain::SoundOn);
    if (modMain::Games) // or a game that runs would go on as it began
        for (const auto &game : *modMain::Games) game->Sounds().SetSoundOn(modMain::SoundOn);
    modMain::WhiteBackground = chkWhiteBackground->isChecked();
    if (modMain::Form != nullptr) modMain::Form->SetSkin(modMain::CurrentSkin);
}

void frmOptions::OK()
{
    PlayShellSound(QStringLiteral("highbeep"));
    ApplyOptions();
    hide();
}

void frmOptions::Cancel()
{
    PlayShellSound(QStringLiteral("highbeep"));
    hide();
}

void frmOptions::changeEvent(QEvent *event)
{
    LarkForm::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && focusWidget() == nullptr)
        cboSkin->setFocus(Qt::ActiveWindowFocusReason);
}
