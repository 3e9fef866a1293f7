#include "shell/frmScore.h"

#include "platform/Picture.h"

#include "services/colSound.h"

#include "shell/program/modMain.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/cTransPictureBox.h"

#include <QPainter>

namespace
{
constexpr std::int16_t OKString = 1;
constexpr std::int16_t GameOverString = 304;
constexpr std::int16_t PointsString = 4600;
constexpr std::int16_t TimeBonusString = 4601;
constexpr std::int16_t LevelBonusString = 4602;
constexpr std::int16_t TotalString = 4603;

// Measures of the dialog. [px]
constexpr int Width = 420;
constexpr int Margin = 28;
constexpr int Left = 64; // and as much on the right
constexpr int FirstLine = 88;
constexpr int LineHeight = 36;
constexpr int GapAboveTotal = 14;
constexpr int GapAroundStar = 10;
constexpr int ValueWidth = 110;
constexpr QSize ButtonSize(128, 34);
constexpr double RuleOpacity = 0.3;

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

// The lines are two columns, captions and figures, as a block in the middle.
void frmScore::PlaceControls()
{
    lblGameOver->setGeometry(Left, 26, Width - 2 * Left, 44);
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
        const double points = isTotal ? 18 : 14;
        if (isTotal) top += GapAboveTotal;
        line.caption->setGeometry(Left, top, Width - 2 * Left - ValueWidth, LineHeight);
        line.value->setGeometry(Width - Left - ValueWidth, top, ValueWidth, LineHeight);
        line.value->SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        line.caption->SetFont(points, isTotal);
        line.value->SetFont(points, true);
        top += LineHeight;
    }
    QImage award = OwnPicture(QStringLiteral("award"));
    award.setDevicePixelRatio(2); // drawn at twice its size, for screens of higher scales
    picStar->SetPictureFile(award);
    picStar->SizeToPicture();
    picStar->move((Width - picStar->width()) / 2, lblTotal->geometry().bottom() + GapAroundStar);
    butOK->SetFont(12, true);
    PlaceButton(false);
}

// Under the award where there is one, else under the total: no gap tells that something is missing.
void frmScore::PlaceButton(bool UnderStar)
{
    const int above = UnderStar ? picStar->geometry().bottom() : lblTotal->geometry().bottom() + GapAroundStar;
    butOK->setGeometry(QRect(QPoint((Width - ButtonSize.width()) / 2, above + GapAroundStar), ButtonSize));
    resize(Width, butOK->geometry().bottom() + 1 + Margin);
}

void frmScore::ShowScore(QWidget *Parent, std::int32_t Points, std::int32_t /*TimeLeft*/, std::int32_t TimeBonus,
                         std::int32_t Level, std::int32_t LevelBonus, std::int32_t Total, bool Star)
{
    modMain::Framework->SkinButton(butOK);
    modMain::Framework->SkinPicbox(this);
    m_Ink = Look::ReadableOn(picture());
    for (TransLabel *label : findChildren<TransLabel *>()) label->SetForeColour(m_Ink);
    capLevelBonus->SetCaption(modMain::Word(LevelBonusString).replace(QStringLiteral("<x>"), QString::number(Level)));
    lblPoints->SetCaption(QString::number(Points));
    lblTimeBonus->SetCaption(QString::number(TimeBonus));
    lblLevelBonus->SetCaption(QString::number(LevelBonus));
    lblTotal->SetCaption(QString::number(Total));
    capPoints->SetCaption(modMain::Word(PointsString));
    capTimeBonus->SetCaption(modMain::Word(TimeBonusString));
    lblGameOver->SetCaption(modMain::Word(GameOverString));
    capTotal->SetCaption(modMain::Word(TotalString));
    butOK->SetCaption(modMain::Word(OKString));
    m_Star = Star;
    PlaceButton(Star);
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
        update();
        Play(m_Star ? QStringLiteral("ding") : QStringLiteral("shortbeep"));
    }
}

void frmScore::paintEvent(QPaintEvent *event)
{
    LarkForm::paintEvent(event);
    if (lblTotal->isHidden()) return;
    QPainter painter(this);
    painter.setOpacity(RuleOpacity);
    painter.fillRect(Left, lblTotal->y() - GapAboveTotal / 2, Width - 2 * Left, 1, m_Ink); // the rule above the sum
}
