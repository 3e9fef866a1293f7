// The upload: sends every result that has not been sent yet, of all players on this machine, to the score site, one
// request after the other. A result that the site has accepted is marked at once and for good, so a run that was
// broken off goes on where it stopped. Made anew for each showing.
//
// Requests are waited for on the interface thread, which goes on answering meanwhile. A dialog that is closed in
// mid-run hides, and ShowModal returns once the request under way has ended: until then the object must stay.
#pragma once

#include "platform/InternetTransfer.h"
#include "sdk/controls/LarkForm.h"

#include <cstdint>
#include <memory>
#include <vector>

class CGamePlayed;
class CPlayer;
class LarkButton;
class QLineEdit;
class TransLabel;
class cTransPictureBox;

class frmUpload : public LarkForm
{
    Q_OBJECT

public:
    /// Failure: passed on, when there can't be a transfer at all.
    frmUpload();

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Item
    {
        std::shared_ptr<CPlayer> Player;
        std::shared_ptr<CGamePlayed> Result;
    };
    /// The results to send, players and results in the order of their lists. Failure: passed on.
    static std::vector<Item> NotYetUploaded();

    void MakeControls();
    void PlaceControls();
    void Skin();
    void Upload();
    /// Sends them until one fails or the dialog is closed. Answer: the error text, empty without one.
    QString Send(const std::vector<Item> &Items);
    void ShowUploadProgress(std::int32_t Current, std::int32_t Total);
    /// Sends one result, twice at most, and marks it when the site accepts it. Answer: empty, or the error text of
    /// the last attempt. Failure: ignored step by step.
    QString UploadGame(CPlayer &Player, CGamePlayed &Result);
    /// One attempt. Answer: as above.
    QString Attempt(const QByteArray &Address);
    void Close();

    bool m_Cancel = false;
    InternetTransfer Inet1;

    TransLabel *lblTitle;
    cTransPictureBox *cTransPictureBox1;
    cTransPictureBox *lblEmail;
    QLineEdit *txtEmail;
    cTransPictureBox *lblEmail2;
    cTransPictureBox *lblProgress;
    LarkButton *butUpload;
    LarkButton *butOK;
};
