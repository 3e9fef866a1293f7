// The upload dialog with a real store, and a score site on the loopback.
#pragma once

#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "domain/upload/frmUpload.h"
#include "shell/program/modMain.h"
#include "tests/support/HttpServer.h"
#include "tests/support/RecordingFramework.h"
#include "tests/support/Records.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <functional>

void PrintTo(const QString &Text, std::ostream *Out);
void PrintTo(const QByteArray &Bytes, std::ostream *Out);

class UploadTest : public testing::Test
{
protected:
    UploadTest();
    ~UploadTest() override;

    /// Names the score site in the settings.
    void GivenSite(const QString &Host) const;
    std::shared_ptr<CPlayer> GivenPlayer(const QString &Name) const;
    /// Practice results of one player, straight into the store; LoadRecords afterwards.
    void GivenResults(std::int32_t Player, int Count) const;
    /// A player Ann with so many results, loaded. Their scores count from 1, as their keys do.
    void GivenAnnsResults(int Count) const;

    /// Shows the dialog and acts; what the act leaves open is closed. Returns when all of it is over.
    static void Show(const std::function<void(frmUpload &)> &Act);
    /// Shows it, presses "Upload" and closes it when the run is over.
    static void Run();
    template <typename Child>
    static Child *Of(frmUpload &form, const char *name)
    {
        return form.findChild<Child *>(QLatin1String(name));
    }
    static void Click(frmUpload &form, const char *name);

    /// Text of the message shown last, line breaks as "/"; empty when none was. It is taken away.
    QString TakeMessage();
    /// The keys of the results marked in the store, in their order.
    QString Marked() const;
    int MarkedCount() const;
    /// The scores in the requests.
    static QList<int> ScoresOf(const std::vector<QByteArray> &Lines);
    /// The value of a setting as the file has it.
    QString Setting(const char *Key) const;

    TestStore m_Store;
    std::shared_ptr<RecordingFramework> m_Framework;
};
