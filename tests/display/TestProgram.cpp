// The program itself, as a process on the desktop.
#include "tests/display/DisplayTest.h"

#include <QFile>
#include <QProcess>

class ManagedProgram : public Managed
{
protected:
    /// The real file, in the folder laid out for the test.
    void Launch()
    {
        const QString file = Program.Folder.Path() + QStringLiteral("noggle");
        ASSERT_TRUE(QFile::copy(QStringLiteral(NOGGLE_PROGRAM), file));
        m_Process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_Process.start(file, {});
        ASSERT_TRUE(m_Process.waitForStarted());
    }
    bool Ended()
    {
        return QTest::qWaitFor([this] { return m_Process.state() == QProcess::NotRunning; }, 20000);
    }
    /// The windows of the process that can be seen.
    QList<QByteArray> Shown() const
    {
        QProcess look;
        look.start(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                               QStringLiteral("--pid"), QString::number(m_Process.processId())});
        look.waitForFinished();
        QList<QByteArray> windows = look.readAllStandardOutput().split('\n');
        windows.removeAll(QByteArray());
        return windows;
    }
    static QByteArrayList TitlesOf(const QList<QByteArray> &windows)
    {
        QByteArrayList titles;
        for (const QByteArray &window : windows) {
            QProcess look;
            look.start(QStringLiteral("xdotool"), {QStringLiteral("getwindowname"), QLatin1String(window)});
            look.waitForFinished();
            titles << look.readAllStandardOutput().trimmed();
        }
        return titles;
    }
    bool Shows(qsizetype count)
    {
        return QTest::qWaitFor([&] { return Shown().size() == count; }, 20000);
    }
    ~ManagedProgram() override
    {
        if (m_Process.state() == QProcess::NotRunning) return;
        m_Process.kill();
        m_Process.waitForFinished();
    }

    QProcess m_Process;
};

TEST_F(ManagedProgram, StartsAsksOnTheDesktopsCloseRequestAndSavesItsSettings)
{
    Launch();
    // The splash is held for five seconds, and the main window comes after it.
    ASSERT_TRUE(QTest::qWaitFor([&] { return TitlesOf(Shown()).contains("Noggle"); }, 30000));
    Hand({"search", "--onlyvisible", "--name", "^Noggle$", "windowactivate", "--sync", "%1"});
    Press("alt+F4");
    ASSERT_TRUE(Shows(2)) << "the question";
    RunningProgram::Turn(500);
    Press("Tab"); // to "Yes"
    Press("space");
    ASSERT_TRUE(Ended());
    EXPECT_EQ(m_Process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_Process.exitCode(), 0);
    EXPECT_NE(Program.Folder.Read(QStringLiteral("Settings.ini")).indexOf("Skin=Plain"), -1);
}

TEST_F(ManagedProgram, WithoutAStoreSaysSoAndEndsWithAFailure)
{
    QFile::remove(Program.Folder.Path() + QStringLiteral("Noggle.mdb"));
    Launch();
    ASSERT_TRUE(Shows(2)) << "the splash and the message";
    RunningProgram::Turn(500);
    Press("Tab");
    Press("space");
    ASSERT_TRUE(Ended());
    EXPECT_EQ(m_Process.exitCode(), 1);
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("Settings.ini")).indexOf("Skin"), -1) << "nothing is saved";
}
