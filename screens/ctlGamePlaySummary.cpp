#include "screens/ctlGamePlaySummary.h"

#include "platform/Colour.h"
#include "screens/Design.h"
#include "sdk/controls/Caption.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/modMain.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr QSize DesignSize(573, 30); // [px]
constexpr int Gap = 3;               // [px]
constexpr int TextLeft = 3;          // [px]
constexpr double BarFont = SmallFont;
constexpr std::int32_t Green = 65280, Red = 255;

enum Words : std::int16_t { CompleteWord = 4500, TimeLeftWord = 4501, TimeTakenWord = 4502 };

// Written by its bar, in the middle of the bar's height: the label itself is lower than its letters need.
class BarText final : public TransLabel
{
public:
    using TransLabel::TransLabel;

protected:
    void paintEvent(QPaintEvent *) override {}
};

void DrawBar(PictureBox *Bar, const TransLabel *Text, double Share)
{
    const int green = static_cast<int>(std::lround(std::clamp(Share, 0.0, 1.0) * Bar->width()));
    QPainter painter(&Bar->Surface());
    painter.fillRect(0, 0, green, Bar->height(), ToColour(Green));
    painter.fillRect(green, 0, Bar->width() - green, Bar->height(), ToColour(Red));
    painter.setFont(Text->font());
    const QRect place(Text->x() + TextLeft, 0, Bar->width() - Text->x() - 2 * TextLeft, Bar->height());
    Caption::Draw(painter, place, Text->Caption(), Text->ForeColour(), Qt::AlignLeft | Qt::AlignVCenter, false);
    painter.end();
    Bar->Refresh();
}
} // namespace

ctlGamePlaySummary::ctlGamePlaySummary(QWidget *Container) : Screen(Container)
{
    MakeControls();
    resize(DesignSize);
    Arrange();
}

void ctlGamePlaySummary::MakeControls()
{
    lblGame = PutLabel<cTransPictureBox>(this, QStringLiteral("lblGame"), {2, 2, 152, 22},
                                         QStringLiteral("Spelling Test"), SmallFont, true, Qt::AlignHCenter);
    picComplete = Put<PictureBox>(this, QStringLiteral("picComplete"), {157, 3, 132, 20});
    lblPercent = PutLabel<BarText>(picComplete, QStringLiteral("lblPercent"), {0, 1, 127, 15},
                                   QStringLiteral("Complete: 100%"), BarFont, true);
    picTime = Put<PictureBox>(this, QStringLiteral("picTime"), {291, 3, 132, 20});
    lblTime = PutLabel<BarText>(picTime, QStringLiteral("lblTime"), {3, 1, 124, 14}, QStringLiteral("Time left: 99"),
                                BarFont, true);
    lblPlayer = PutLabel<cTransPictureBox>(this, QStringLiteral("lblPlayer"), {440, 2, 126, 22},
                                           QStringLiteral("Player Name"), SmallFont, true, Qt::AlignHCenter);
}

void ctlGamePlaySummary::SetPlayerName(const QString &Name) { lblPlayer->SetCaption(Name); }

void ctlGamePlaySummary::SetGameName(const QString &Name) { lblGame->SetCaption(Name); }

void ctlGamePlaySummary::SetComplete(std::int32_t Percent)
{
    lblPercent->SetCaption(QStringLiteral("%1 %2%").arg(Word(CompleteWord), QString::number(Percent)));
    m_CompleteShare = Percent / 100.0;
    DrawBar(picComplete, lblPercent, m_CompleteShare);
}

void ctlGamePlaySummary::FetchWords()
{
    if (!m_TimeLeftText.isEmpty()) return;
    m_TimeLeftText = Word(TimeLeftWord) + u' ';
    m_TimeTakenText = Word(TimeTakenWord) + u' ';
}

void ctlGamePlaySummary::SetTimeLeft(std::int32_t Seconds)
{
    FetchWords();
    if (m_TimeLimit != 0) {
        lblTime->SetCaption(m_TimeLeftText + QString::number(Seconds));
        m_TimeShare = static_cast<double>(Seconds) / m_TimeLimit;
    } else {
        const std::int32_t taken = Seconds == std::numeric_limits<std::int32_t>::min() ? 0 : -Seconds;
        lblTime->SetCaption(m_TimeTakenText + modMain::FormatTime(taken, false));
        m_TimeShare = 1;
    }
    DrawBar(picTime, lblTime, m_TimeShare);
}

void ctlGamePlaySummary::Arrange()
{
    const int middle = width() / 2;
    SetLeft(picComplete, middle - picComplete->width() - Gap);
    SetLeft(picTime, middle + Gap);
    lblGame->resize(std::max(0, picComplete->x() - lblGame->x() - Gap), lblGame->height());
    SetLeft(lblPlayer, picTime->x() + picTime->width() + Gap);
    lblPlayer->resize(std::max(0, width() - lblPlayer->x() - Gap), lblPlayer->height());
    if (isVisible()) DrawBars();
}

// Not before it is seen: a first letter costs as much as a font.
void ctlGamePlaySummary::showEvent(QShowEvent *) { DrawBars(); }

void ctlGamePlaySummary::DrawBars()
{
    DrawBar(picComplete, lblPercent, m_CompleteShare);
    DrawBar(picTime, lblTime, m_TimeShare);
}
