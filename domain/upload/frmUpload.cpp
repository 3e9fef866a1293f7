#include "domain/upload/frmUpload.h"

#include "domain/CGamePlayed.h"
#include "domain/CPlayer.h"
#include "domain/colPlayer.h"
#include "domain/upload/Query.h"
#include "platform/Step.h"
#include "sdk/CNoggleFramework.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/cTransPictureBox.h"
#include "services/modIniFile.h"
#include "shell/program/Sites.h"
#include "shell/program/modMain.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>

namespace
{
// Measures of the dialog. [px]
constexpr QSize FormSize(480, 356);
constexpr int Margin = 36;
constexpr int Inner = FormSize.width() - 2 * Margin;
constexpr QSize ButtonSize(128, 34);
constexpr double TextPoints = 11;

constexpr std::int32_t MessageFontSize = 16; // [pt]
constexpr std::int32_t ErrorFontSize = 12;   // [pt]
constexpr int Nap = 50;                      // [ms] the longest wait without looking at the interface
constexpr int Attempts = 2;
const QString LineBreak = QStringLiteral("\r\n");

template <typename Control>
Control *Named(Control *control, const char *name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}

void Say(const QString &message, std::int32_t fontSize = MessageFontSize)
{
    if (modMain::Framework) modMain::Framework->MsgBox(message, 0, nullptr, nullptr, fontSize);
}

// Empty for the one status that means yes; the status decides alone.
QString ErrorIn(const QByteArray &header)
{
    constexpr qsizetype statusAt = 9; // behind "HTTP/1.1 "
    if (!header.startsWith("HTTP")) return QStringLiteral("Unknown error");
    if (header.mid(statusAt, 3) == "200") return {};
    return QString::fromUtf8(header.left(header.indexOf('\r') + 1));
}
} // namespace

frmUpload::frmUpload()
    : lblTitle(Named(new TransLabel(this), "lblTitle")),
      cTransPictureBox1(Named(new cTransPictureBox(this), "cTransPictureBox1")),
      lblEmail(Named(new cTransPictureBox(this), "lblEmail")),
      txtEmail(Named(new QLineEdit(this), "txtEmail")),
      lblEmail2(Named(new cTransPictureBox(this), "lblEmail2")),
      lblProgress(Named(new cTransPictureBox(this), "lblProgress")),
      butUpload(Named(new LarkButton(this), "butUpload")),
      butOK(Named(new LarkButton(this), "butOK"))
{
    setObjectName(QStringLiteral("frmUpload"));
    MakeControls();
    PlaceControls();
    Skin();
    txtEmail->setText(ReadIniString(QStringLiteral("Settings"), QStringLiteral("Email"), {}, modMain::SettingsFile));
    lblProgress->hide();
}

void frmUpload::MakeControls()
{
    lblTitle->SetCaption(QStringLiteral("Upload Game Scores"));
    cTransPictureBox1->SetCaption(QStringLiteral("All game results are uploaded to the %1 web site, where you can "
                                                 "compare them with those of other players.")
                                      .arg(modMain::ScoreSite()));
    lblEmail->SetCaption(QStringLiteral("Please provide your email address:"));
    lblEmail2->SetCaption(QStringLiteral("We will not make this public or pass it to 3rd parties."));
    lblProgress->SetCaption(QStringLiteral("Uploaded X of XXX games."));
    butUpload->SetCaption(QStringLiteral("Upload"));
    butOK->SetCaption(QStringLiteral("Close"));
    txtEmail->setAccessibleName(lblEmail->Caption());
    setWindowTitle(lblTitle->Caption());
    connect(butUpload, &LarkButton::clicked, this, &frmUpload::Upload);
    connect(butOK, &LarkButton::clicked, this, &frmUpload::Close);
}

void frmUpload::PlaceControls()
{
    resize(FormSize);
    lblTitle->setGeometry(Margin, 22, Inner, 44);
    cTransPictureBox1->setGeometry(Margin, 74, Inner, 62);
    lblEmail->setGeometry(Margin, 150, Inner, 24);
    txtEmail->setGeometry(Margin, 178, Inner, 36);
    lblEmail2->setGeometry(Margin, 220, Inner, 22);
    lblProgress->setGeometry(Margin, 150, Inner, 64);
    const int buttons = FormSize.height() - 28 - ButtonSize.height();
    butOK->setGeometry(QRect(QPoint(FormSize.width() - Margin - ButtonSize.width(), buttons), ButtonSize));
    butUpload->setGeometry(butOK->geometry().translated(-ButtonSize.width() - 18, 0));
    cTransPictureBox1->SetWordWrap(true);
    cTransPictureBox1->SetAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblProgress->SetAlignment(Qt::AlignCenter);
    setTabOrder(txtEmail, butUpload);
    setTabOrder(butUpload, butOK);
}

void frmUpload::Skin()
{
    for (LarkButton *button : {butUpload, butOK}) {
        button->SetFont(12, true);
        if (modMain::Framework) modMain::Framework->SkinButton(button);
    }
    if (modMain::Framework) modMain::Framework->SkinPicbox(this);
    for (TransLabel *label : findChildren<TransLabel *>()) {
        label->SetForeColour(Look::ReadableOn(picture()));
        label->SetFont(TextPoints, false);
        DragBy(label);
    }
    lblTitle->SetFont(20, true);
    lblEmail->SetFont(TextPoints, true);
    lblEmail2->SetFont(9.5, false);
    lblProgress->SetFont(15, true);
    txtEmail->setStyleSheet(QStringLiteral("QLineEdit { background: white; color: #12332b; padding: 2px 10px;"
                                           " border: 1px solid #8aa69b; border-radius: 8px; font-size: 16px; }"
                                           "QLineEdit:focus { border: 2px solid #c77700; }"));
}

std::vector<frmUpload::Item> frmUpload::NotYetUploaded()
{
    std::vector<Item> items;
    for (const auto &player : *modMain::Players)
        for (const auto &result : player->GamesPlayed())
            if (!result->Uploaded) items.push_back({player, result});
    return items;
}

void frmUpload::Upload()
{
    m_Cancel = false;
    const QString email = txtEmail->text();
    if (email.isEmpty()) return Say(QStringLiteral("Please enter your email address"));
    WriteIniString(QStringLiteral("Settings"), QStringLiteral("Email"), email, modMain::SettingsFile);
    const std::vector<Item> items = NotYetUploaded();
    if (items.empty()) return Say(QStringLiteral("No games to upload."));
    const QString error = Send(items);
    if (m_Cancel) return; // whatever else has happened: the dialog is gone, and so is who would read it
    if (error.isEmpty()) {
        Say(QStringLiteral("All games uploaded."));
    } else {
        Say(QStringLiteral("Error uploading:") + LineBreak + error + LineBreak +
                QStringLiteral("For help on this error visit ") + modMain::SupportPage(),
            ErrorFontSize);
    }
    ShowUploadProgress(0, 0);
}

// The items are held here: once the dialog is closed the rest of the program may change the lists that they are from.
QString frmUpload::Send(const std::vector<Item> &Items)
{
    const auto total = static_cast<std::int32_t>(Items.size());
    std::int32_t number = 0;
    for (const Item &item : Items) {
        if (m_Cancel) break;
        ShowUploadProgress(++number, total);
        QString error = UploadGame(*item.Player, *item.Result);
        if (!error.isEmpty()) return error;
    }
    return {};
}

void frmUpload::ShowUploadProgress(std::int32_t Current, std::int32_t Total)
{
    const bool isIdle = Total < 1;
    butUpload->setVisible(isIdle);
    lblEmail->setVisible(isIdle);
    lblEmail2->setVisible(isIdle);
    txtEmail->setVisible(isIdle);
    lblProgress->setVisible(!isIdle);
    if (isIdle) return;
    lblProgress->SetCaption(QStringLiteral("Uploading game %1 of %2").arg(Current).arg(Total));
    QCoreApplication::processEvents();
}

QString frmUpload::UploadGame(CPlayer &Player, CGamePlayed &Result)
{
    const QByteArray address = (modMain::ScoreSiteScheme() + modMain::ScoreSite() + QStringLiteral("/submit.asp?") +
                                QueryOf(txtEmail->text(), Player, Result))
                                   .toUtf8();
    // It would end the line of the request or forge another one.
    if (!InternetTransfer::IsSafe(address))
        return QStringLiteral("A name or an address holds a character that can't be sent.");
    QString error;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        error = Attempt(address);
        if (!error.isEmpty()) continue;
        Result.Uploaded = true;
        Step([&] { Result.Save(); });
        break;
    }
    return error;
}

QString frmUpload::Attempt(const QByteArray &Address)
{
    Inet1.OpenURL(Address);
    while (Inet1.StillExecuting()) {
        Inet1.Wait(Nap);
        QCoreApplication::processEvents();
    }
    if (Inet1.ResponseCode() != 0) return QStringLiteral("Error: %1").arg(Inet1.ResponseCode());
    return ErrorIn(Inet1.GetHeader());
}

void frmUpload::Close()
{
    m_Cancel = true;
    hide();
}

void frmUpload::changeEvent(QEvent *event)
{
    LarkForm::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && focusWidget() == nullptr)
        txtEmail->setFocus(Qt::ActiveWindowFocusReason);
}
