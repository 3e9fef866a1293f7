// The dialog on the delivered skins, for people to look at.
#include "domain/colPlayer.h"
#include "domain/upload/frmUpload.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"
#include "services/modIniFile.h"
#include "shell/program/modMain.h"
#include "skin/ScreenSize.h"
#include "skin/colSkin.h"
#include "tests/skin/SkinTest.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>

class UploadPictures : public SkinTest
{};

TEST_F(UploadPictures, EveryTextHasItsRoomOnBothSkins)
{
    SetScreenSize({1280, 800});
    modMain::SettingsFile = m_Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nEmail=ann@example.org\r\n");
    modMain::Players = std::make_shared<colPlayer>();
    for (const char *name : {"Meadow", "Night"}) {
        GivenDeliveredSkin(QLatin1String(name));
        frmUpload form;
        form.show();
        for (const TransLabel *label : form.findChildren<TransLabel *>())
            EXPECT_TRUE(form.rect().contains(label->geometry())) << label->objectName().toStdString();
        EXPECT_FALSE(form.picture().isNull());
        for (const LarkButton *button : form.findChildren<LarkButton *>())
            EXPECT_EQ(button->PictureUp(), modMain::CurrentSkin->VeryWideButton());
        Keep(form, QStringLiteral("upload-") + QLatin1String(name));
        for (const char *control : {"butUpload", "lblEmail", "lblEmail2", "txtEmail"})
            form.findChild<QWidget *>(QLatin1String(control))->hide();
        auto *progress = form.findChild<TransLabel *>(QStringLiteral("lblProgress"));
        progress->SetCaption(QStringLiteral("Uploading game 9998 of 10000"));
        progress->show();
        Keep(form, QStringLiteral("uploading-") + QLatin1String(name));
    }
    modMain::Players.reset();
    modMain::SettingsFile.clear();
}
