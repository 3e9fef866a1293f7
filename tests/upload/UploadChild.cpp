// A second process for tests of the upload: upload_child FOLDER. It uploads what the store of that folder holds, by
// the dialog and its button, until it is done or killed.
#include "platform/Files.h"
#include "tests/upload/UploadTest.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (QApplication::arguments().size() != 2) return 2;
    SetProgramFolder(QApplication::arguments()[1]);
    modMain::SettingsFile = ProgramFolder() + QStringLiteral("Settings.ini");
    const auto framework = RecordingFramework::Install();
    LoadRecords();
    frmUpload form;
    QTimer::singleShot(0, &form, [&] {
        QTest::mouseClick(form.findChild<QWidget *>(QStringLiteral("butUpload")), Qt::LeftButton);
        QTest::mouseClick(form.findChild<QWidget *>(QStringLiteral("butOK")), Qt::LeftButton);
    });
    form.ShowModal(nullptr);
    const QString message = framework->TakeLast().Message;
    ForgetRecords();
    return message == u"All games uploaded." ? 0 : 1;
}
