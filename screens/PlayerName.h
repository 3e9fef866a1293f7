// The strip at the top of the working screens: the current player's name, which can be edited in place, and the way
// to delete the player. The name is locked or being edited; leaving the box saves it.
#pragma once

#include "screens/Screen.h"

class PictureBox;
class QFocusEvent;
class QLineEdit;
class cTransPictureBox;

class PlayerName final : public Screen
{
    Q_OBJECT

public:
    explicit PlayerName(QWidget *Container);

    /// Shows the name of the current player. Locked or not stays as it is.
    void ShowDetails();
    void SkinUp();
    void SetStrings();

Q_SIGNALS:
    /// The user has agreed to delete the current player.
    void DeletePlayer();

protected:
    void Arrange() override;
    void MakeBoxes() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void MakeControls();
    bool IsEditing() const;
    void EditOrSave();
    void StartEditing();
    void SaveName();
    void NameLosesFocus(const QFocusEvent &event);
    void AskToDelete();

    QWidget *shpDetails = nullptr;
    PictureBox *picDetails = nullptr;
    cTransPictureBox *lblTitle = nullptr;
    QLineEdit *txtName = nullptr;
    LarkButton *cmdUpdate = nullptr;
    LarkButton *cmdDelete = nullptr;
};
