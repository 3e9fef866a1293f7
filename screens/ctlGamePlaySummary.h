// The thin strip below a running game: its name, the player's, and two bars, one for how much is complete and one for
// the time. The bars say by figures what they say by colour.
#pragma once

#include "screens/Screen.h"

class PictureBox;
class QColor;
class TransLabel;
class cTransPictureBox;

class ctlGamePlaySummary final : public Screen
{
    Q_OBJECT

public:
    explicit ctlGamePlaySummary(QWidget *Container);

    void SetPlayerName(const QString &Name);
    void SetGameName(const QString &Name);
    /// [s] 0 for a game without a limit. Written before TimeLeft, whose picture it rules.
    void SetTimeLimit(std::int32_t Seconds) { m_TimeLimit = Seconds; }
    /// [%] Shown as it is, also below 0 and above 100; the bar is all red or all green there.
    void SetComplete(std::int32_t Percent);
    /// [s] With a limit what is left of it; without one the time taken, as a negative number.
    void SetTimeLeft(std::int32_t Seconds);

protected:
    void Arrange() override;
    void showEvent(QShowEvent *event) override;

private:
    void MakeControls();
    void DrawBars();
    void FetchWords();

    cTransPictureBox *lblGame = nullptr;
    PictureBox *picComplete = nullptr;
    TransLabel *lblPercent = nullptr;
    PictureBox *picTime = nullptr;
    TransLabel *lblTime = nullptr;
    cTransPictureBox *lblPlayer = nullptr;

    std::int32_t m_TimeLimit = 0;
    QString m_TimeLeftText; // the words of lblTime with a blank behind each, fetched once
    QString m_TimeTakenText;
    double m_CompleteShare = 0; // of the bars, in green
    double m_TimeShare = 0;
};
