// The page before a game: its name, the time allowed, its instructions, and the buttons to start it or to go back.
#pragma once

#include "screens/Screen.h"

#include <memory>

class CGame;
class QTextEdit;
class cTransPictureBox;

class ctlGameInstructions final : public Screen
{
    Q_OBJECT

public:
    explicit ctlGameInstructions(QWidget *Container);

    /// Fills the page. The text comes from the file of the present language in the game's folder, else from
    /// "Instructions.rtf". Failure: passed on, when neither can be read.
    void ShowInstructions(const std::shared_ptr<CGame> &Game);
    void SkinUp();
    void SetStrings();

Q_SIGNALS:
    void StartGame();
    void CancelGame();

protected:
    void Arrange() override;
    void MakeBoxes() override;

private:
    void MakeControls();

    cTransPictureBox *lblGameName = nullptr;
    cTransPictureBox *lblTimeAllowed = nullptr;
    QTextEdit *txtInstructions = nullptr;
    LarkButton *butStartGame = nullptr;
    LarkButton *butCancelGame = nullptr;
};
