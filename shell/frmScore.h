// The score dialog: four lines that come up one a second, each with its sound, the award with the last. Made anew for
// each showing. It can be closed by its button only, and that comes with the last line.
#pragma once

#include "sdk/controls/LarkForm.h"

#include <QColor>
#include <QTimer>

#include <cstdint>

class LarkButton;
class TransLabel;
class cTransPictureBox;

class frmScore : public LarkForm
{
    Q_OBJECT

public:
    frmScore();

    /// Shows the figures over Parent and returns once the dialog is closed. TimeLeft is not displayed. Failure: none.
    void ShowScore(QWidget *Parent, std::int32_t Points, std::int32_t TimeLeft, std::int32_t TimeBonus,
                   std::int32_t Level, std::int32_t LevelBonus, std::int32_t Total, bool Star);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void PlaceControls();
    void PlaceButton(bool UnderStar);
    void Reveal();

    TransLabel *lblGameOver;
    TransLabel *capPoints;
    TransLabel *lblPoints;
    TransLabel *capTimeBonus;
    TransLabel *lblTimeBonus;
    TransLabel *capLevelBonus;
    TransLabel *lblLevelBonus;
    TransLabel *capTotal;
    TransLabel *lblTotal;
    cTransPictureBox *picStar;
    LarkButton *butOK;
    QTimer tmrShow;
    bool m_Star = false;
    QColor m_Ink;
};
