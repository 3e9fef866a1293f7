// The package for authors as a stranger gets it: installed into a folder of its own, the template copied out of it,
// built outside of this tree in one command, and its game played in the program.
#include "services/modIniFile.h"
#include "tests/shell/support/RunningProgram.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <filesystem>

namespace
{
/// What the command said, when it failed; else empty.
std::string FailureOf(const QString &Program, const QStringList &Arguments)
{
    constexpr int Limit = 600'000; // [ms] on a machine that does much else
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("CXXFLAGS"), QStringLiteral("-Wall -Wextra -Wpedantic -Wconversion -Werror"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(Program, Arguments);
    const bool ended = process.waitForFinished(Limit);
    if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) return {};
    return (Program + u'\n').toStdString() + process.readAll().toStdString();
}

class Template : public testing::Test
{
protected:
    // In the program, beside a game that it brings; and there is nothing to mend in it.
    void BuildInto(const QString &ProgramFolder) const
    {
        const std::filesystem::path installed = m_Place.filePath(QStringLiteral("sdk")).toStdString();
        const std::filesystem::path mine = m_Place.filePath(QStringLiteral("my-game")).toStdString();
        ASSERT_EQ(FailureOf(QStringLiteral(NOGGLE_CMAKE),
                            {QStringLiteral("--install"), QStringLiteral(NOGGLE_BUILD), QStringLiteral("--component"),
                             QStringLiteral("sdk"), QStringLiteral("--prefix"),
                             QString::fromStdString(installed.string())}),
                  "");
        copy(installed / "share/noggle-sdk/template", mine, std::filesystem::copy_options::recursive);
        ASSERT_EQ(FailureOf(QString::fromStdString((mine / "build").string()),
                            {QString::fromStdString(installed.string()), ProgramFolder}),
                  "");
        ASSERT_EQ(FailureOf(QString::fromStdString((installed / "bin/noggle-check-game").string()),
                            {QStringLiteral("--sessions"), QStringLiteral("30"),
                             ProgramFolder + QStringLiteral("my-game")}),
                  "");
    }
    /// A key for the side of the larger number, as the game tells it to a screen reader.
    void Answer() const
    {
        ASSERT_NE(Game(), nullptr);
        const QStringList numbers = Game()->accessibleName().split(u' ');
        ASSERT_EQ(numbers.size(), 2) << Game()->accessibleName().toStdString();
        Program.PressKey(numbers[0].toInt() > numbers[1].toInt() ? Qt::Key_Left : Qt::Key_Right);
    }
    /// It has the keyboard for as long as it runs.
    static QWidget *Game() { return QApplication::focusWidget(); }

    RunningProgram Program{{QStringLiteral("tally-rush")}};

private:
    QTemporaryDir m_Place;
};
} // namespace

TEST_F(Template, BuildsOutsideTheTreeInOneCommandAndIsPlayedToItsStoredRow)
{
    ASSERT_NO_FATAL_FAILURE(BuildInto(Program.Folder.Path()));
    for (const char *file : {"my-game.so", "GameSettings.ini", "Instructions.rtf", "sounds/right.wav"})
        EXPECT_TRUE(Program.Folder.Exists(QStringLiteral("my-game/") + QLatin1String(file))) << file;

    ASSERT_TRUE(WriteIniString(QStringLiteral("config"), QStringLiteral("seed"), QStringLiteral("7"),
                               Program.Folder.Path() + QStringLiteral("my-game/GameSettings.ini")));
    ASSERT_TRUE(Program.Start());
    Program.NewPlayer(QStringLiteral("Ann"));
    Program.ChoosePractice(QStringLiteral("Numbers"), QStringLiteral("My Game"));
    Program.Click("cmdPlay");
    ASSERT_EQ(Program.Window().Mode(), 4);
    Game()->window()->grab().save(QStringLiteral(NOGGLE_TEMPLATE_PICTURE));
    const QString first = Game()->accessibleName();
    for (int round = 1; round < 10; ++round) ASSERT_NO_FATAL_FAILURE(Answer());
    Program.AnswerNextBox("cmd2");
    ASSERT_NO_FATAL_FAILURE(Answer());
    ASSERT_TRUE(Program.Until([this] { return Program.HasAnsweredAll(); }));
    EXPECT_EQ(Program.Ask(QStringLiteral("select GamePlayedScore from GamePlayed, Game where GamePlayedGame=GameKey "
                                         "and GameName='My Game' and GamePlayedLevel=1 and GamePlayedMode=3")),
              QStringLiteral("100"));

    Program.Click("cmdPlay");
    ASSERT_NE(Game(), nullptr);
    EXPECT_EQ(Game()->accessibleName(), first) << "the seed of the settings file deals one board";
}
