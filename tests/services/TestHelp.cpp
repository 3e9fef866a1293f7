// The help command: what it asks the desktop for.
#include "services/modHelp.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace
{
// Stands for the desktop's viewer and keeps what it was asked to open.
class Viewer : public QObject
{
    Q_OBJECT
public:
    Viewer() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Open"); }
    ~Viewer() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Q_INVOKABLE void Open(const QUrl &Address) { Opened += Address.toLocalFile(); }
    QStringList Opened;
};

class Help : public testing::Test
{
protected:
    Help() { modHelp::HelpFile = QStringLiteral("Help.chm"); }
    ~Help() override { modHelp::HelpFile.clear(); }
    TestFolder m_Folder;
    Viewer m_Viewer;
};
} // namespace

TEST_F(Help, OpensTheHelpFileOfTheProgramsFolderAlone)
{
    const QString file = m_Folder.Write(QStringLiteral("Help.chm"), "help");
    m_Folder.Write(QStringLiteral("Other.chm"), "other");
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(m_Viewer.Opened, QStringList{file});
}

TEST_F(Help, FindsTheFileWhateverTheCaseOfItsName)
{
    const QString file = m_Folder.Write(QStringLiteral("HELP.CHM"), "help");
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(m_Viewer.Opened, QStringList{file});
}

TEST_F(Help, WithoutTheFileAsksForNothingAndChangesNothing)
{
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(m_Viewer.Opened, QStringList());
    EXPECT_TRUE(QDir(m_Folder.Path()).isEmpty());
}

#include "TestHelp.moc"
