#include "shell/frmScore.h"

#include "services/CResource.h"
#include "services/colSound.h"

#include "shell/program/modMain.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/cTransPictureBox.h"

namespace
{
constexpr std::int16_t OKString = 1;
constexpr std::int16_t GameOverString = 304;
constexpr std::int16_t PointsString = 4600;
constexpr std::int16_t TimeBonusString = 4601;
constexpr std::int16_t LevelBonusString = 4602;
constexpr std::int16_t TotalString = 4603;

QString Words(std::int16_t ID) { return modMain::Resources->GetString(ID, 256); }

void Play(const QString &Sound) { modMain::ShellSounds->Item(Sound).Play(0); }

template <typename Control>
Control *Named(Control *control, const char *name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}
} // namespace

frmScore::frmScore()
    : lblGameOver(Named(new TransLabel(this), "lblGameOver")),
      capPoints(Named(new TransLabel(this), "capPoints")),
      lblPoints(Named(new TransLabel(this), "lblPoints")),
      capTimeBonus(Named(new TransLabel(this), "capTimeBonus")),
      lblTimeBonus(Named(new TransLabel(this), "lblTimeBonus")),
      capLevelBonus(Named(new TransLabel(this), "capLevelBonus")),
      lblLevelBonus(Named(new TransLabel(this), "lblLevelBonus")),
      capTotal(Named(new TransLabel(this), "capTotal")),
      lblTotal(Named(new TransLabel(this), "lblTotal")),
      picStar(Named(new cTransPictureBox(this), "picStar")),
      butOK(Named(new LarkButton(this), "butOK"))
{
    setObjectName(QStringLiteral("frmScore"));
    PlaceControls();
    for (QWidget *later : {static_cast<QWidget *>(capTimeBonus), static_cast<QWidget *>(lblTimeBonus),
                           static_cast<QWidget *>(capLevelBonus), static_cast<QWidget *>(lblLevelBonus),
                           static_cast<QWidget *>(capTotal), static_cast<QWidget *>(lblTotal),
                           static_cast<QWidget *>(picStar), static_cast<QWidget *>(butOK)})
        later->hide();
    DragBy(lblGameOver);
    tmrShow.setParent(this);
    tmrShow.setObjectName(QStringLiteral("tmrShow"));
    tmrShow.setInterval(1000);
    connect(&tmrShow, &QTimer::timeout, this, &frmScore::Reveal);
    connect(butOK, &LarkButton::clicked, this, &QWidget::hide);
}

void frmScore::PlaceControls()
{
    constexpr int Width = 420; // [px]
    constexpr int Left = 48;
    constexpr int Right = Width - 48;
    constexpr int FirstLine = 92;
    constexpr int LineHeight = 36;
    resize(Width, 336);

    lblGameOver->setGeometry(24, 28, Width - 48, 44);
    lblGameOver->SetAlignment(Qt::AlignCenter);
    lblGameOver->SetFont(20, true);

    struct Line
    {
        TransLabel *caption;
        TransLabel *value;
    };
    int top = FirstLine;
    for (const Line line : {Line{capPoints, lblPoints}, Line{capTimeBonus, lblTimeBonus},
                            Line{capLevelBonus, lblLevelBonus}, Line{capTotal, lblTotal}}) {
        const bool isTotal = line.value == lblTotal;
        if (isTotal) top += 10;
        line.caption->setGeometry(Left, top, 220, LineHeight);
        line.value->setGeometry(Right - 130, top, 100, LineHeight);
        line.value->SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        line.caption->SetFont(isTotal ? 16 : 13, isTotal);
        line.value->SetFont(isTotal ? 16 : 13, true);
        top += LineHeight;
    }
    picStar->SetPictureFile(QImage(QStringLiteral(":/pictures/star.png")));
    picStar->SizeToPicture();
    picStar->move(Right - 24, lblTotal->geometry().center().y() - picStar->height() / 2);
    butOK->setGeometry((Width - 120) / 2, 336 - 62, 120, 30);
    butOK->SetFont(11, true);
}

void frmScore::ShowScore(QWidget *Parent, std::int32_t Points, std::int32_t /*TimeLeft*/, std::int32_t TimeBonus,
                         std::int32_t Level, std::int32_t LevelBonus, std::int32_t Total, bool Star)
{
    modMain::Framework->SkinButton(butOK);
    modMain::Framework->SkinPicbox(this);
    for (TransLabel *label : findChildren<TransLabel *>()) label->SetForeColour(Look::ReadableOn(picture()));
    capLevelBonus->SetCaption(Words(LevelBonusString).replace(QStringLiteral("<x>"), QString::number(Level)));
    lblPoints->SetCaption(QString::number(Points));
    lblTimeBonus->SetCaption(QString::number(TimeBonus));
    lblLevelBonus->SetCaption(QString::number(LevelBonus));
    lblTotal->SetCaption(QString::number(Total));
    capPoints->SetCaption(Words(PointsString));
    capTimeBonus->SetCaption(Words(TimeBonusString));
    lblGameOver->SetCaption(Words(GameOverString));
    capTotal->SetCaption(Words(TotalString));
    butOK->SetCaption(Words(OKString));
    m_Star = Star;
    tmrShow.start();
    Play(QStringLiteral("shortbeep"));
    ShowModal(Parent);
}

void frmScore::Reveal()
{
    // What is still hidden tells how far the dialog is; isHidden holds before the dialog itself shows, too.
    if (lblTimeBonus->isHidden()) {
        lblTimeBonus->show();
        capTimeBonus->show();
        Play(QStringLiteral("shortbeep"));
    } else if (lblLevelBonus->isHidden()) {
        lblLevelBonus->show();
        capLevelBonus->show();
        Play(QStringLiteral("shortbeep"));
    } else if (lblTotal->isHidden()) {
        lblTotal->show();
        capTotal->show();
        picStar->setVisible(m_Star);
        butOK->show();
        butOK->setFocus();
        Play(m_Star ? QStringLiteral("ding") : QStringLiteral("shortbeep"));
    }
}
