// Help through the desktop's own opener, which only a display has.
#include "tests/display/DisplayTest.h"

#include <QDir>
#include <QFile>
#include <QUrl>

namespace
{
class HelpViewer : public DisplayTest
{
protected:
    HelpViewer()
    {
        Program.Folder.Write(QStringLiteral("Help.chm"), "for the viewer alone");
        Program.Folder.Write(QStringLiteral("desktop/applications/reader.desktop"),
                             "[Desktop Entry]\nName=Reader\nExec=sh %f\nMimeType=application/vnd.ms-htmlhelp;\n");
        Program.Folder.Write(QStringLiteral("desktop/applications/mimeinfo.cache"),
                             "[MIME Cache]\napplication/vnd.ms-htmlhelp=reader.desktop;\n");
        const QString opener =
            Program.Folder.Write(QStringLiteral("desktop/bin/xdg-open"),
                                 "#!/bin/sh\n{ pwd; echo \"$@\"; } > told.part\nmv told.part told\n");
        QFile::setPermissions(opener, QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", (Program.Folder.Path() + QStringLiteral("desktop/bin:")).toUtf8() + m_Path);
        qputenv("XDG_DATA_DIRS", (Program.Folder.Path() + QStringLiteral("desktop")).toUtf8());
    }
    ~HelpViewer() override
    {
        qputenv("PATH", m_Path);
        qunsetenv("XDG_DATA_DIRS");
    }

private:
    const QByteArray m_Path = qgetenv("PATH");
};
} // namespace

TEST_F(HelpViewer, IsStartedOnTheHelpFileInTheProgramsFolder)
{
    const QString before = QDir::currentPath();
    Start();
    Program.ClickMenu(QStringLiteral("help"));
    EXPECT_EQ(QDir::currentPath(), before) << "the program stays where it is";
    ASSERT_TRUE(RunningProgram::Until([this] { return Program.Folder.Exists(QStringLiteral("told")); }));
    const QString folder = QDir(Program.Folder.Path()).canonicalPath();
    const QString file = QUrl::fromLocalFile(Program.Folder.Path() + QStringLiteral("Help.chm")).toString();
    EXPECT_EQ(Plain(QString::fromUtf8(Program.Folder.Read(QStringLiteral("told")))),
              Plain(folder + u'\n' + file + u'\n'));
}
