// The options: skin, sound, white background. Nothing changes until OK; Cancel leaves everything as it was. What is
// chosen reaches the settings file at the end of the program. A skin that can't give the window its shape is refused
// with a message, and the present one stays; the rest is applied. Made anew for each showing.
#pragma once

#include "sdk/controls/LarkForm.h"

#include <memory>

class CSkin;
class LarkButton;
class QCheckBox;
class QComboBox;
class TransLabel;
class cTransPictureBox;

class frmOptions : public LarkForm
{
    Q_OBJECT

public:
    frmOptions();

protected:
    void changeEvent(QEvent *event) override;

private:
    void MakeControls();
    void PlaceControls();
    void SetWords();
    void Skin();
    void FillSkins();
    void ChooseSkin(const QString &name);
    static bool CanBeTaken(CSkin &skin);
    void ApplyOptions();
    void OK();
    void Cancel();

    std::shared_ptr<CSkin> m_Skin;
    bool m_Busy = false;

    cTransPictureBox *lblTitle;
    cTransPictureBox *picSkin;
    cTransPictureBox *picSoundOn;
    cTransPictureBox *picWhiteBackground;
    QComboBox *cboSkin;
    QCheckBox *chkSoundOn;
    QCheckBox *chkWhiteBackground;
    LarkButton *cmdOK;
    LarkButton *cmdCancel;
    TransLabel *lblURL;
    TransLabel *lblNewSkins;
};
