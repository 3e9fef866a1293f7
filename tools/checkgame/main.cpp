// noggle-check-game FOLDER: plays a game a thousand times and tells its author what to mend.
//
// The game runs in a process of its own, so that one that crashes or never comes back is named instead of taking the
// check with it. That process tells its steps and findings in lines.
#include "tools/checkgame/Check.h"
#include "tools/checkgame/CheckApplication.h"
#include "tools/checkgame/Report.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <cstdio>

namespace
{
constexpr char Mark = '\x01'; // of our own lines: a game may print as well

void Tell(const QString &line)
{
    std::printf("%c%s\n", Mark, qPrintable(line));
    std::fflush(stdout);
}

int RunInside(const CheckOptions &options, CheckApplication &application)
{
    Report report;
    report.Told = [](bool mustMend, const QString &sentence) {
        Tell((mustMend ? QStringLiteral("mend ") : QStringLiteral("note ")) + sentence);
    };
    application.Thrown = [&](const QString &description) {
        report.Mend(QStringLiteral("It throws in an event handler: %1").arg(description));
    };
    const CheckFigures figures = CheckGame(options, report, [](int session, const QString &step) {
        Tell(QStringLiteral("step %1, in session %2").arg(step).arg(session));
    });
    application.Thrown = {};
    Tell(QStringLiteral("done %1 sessions; a start takes %2 ms at the median, the longest step %3 ms of the "
                        "processor's time; a session leaves %4 bytes behind.")
             .arg(figures.Sessions)
             .arg(figures.MedianStart, 0, 'f', 1)
             .arg(figures.SlowestAct, 0, 'f', 1)
             .arg(qRound(figures.Growth)));
    return 0;
}

// What the platform without a screen says of itself is nothing to an author.
void LeaveOutChatter(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (text.startsWith(u"This plugin does not support") || text.startsWith(u"QStandardPaths")) return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

struct Watcher
{
    QString Step;
    QString Done;
    int Mends = 0;
    int Notes = 0;

    void Mend(const QString &sentence)
    {
        ++Mends;
        std::printf("Mend: %s\n", qPrintable(sentence));
    }
    void Take(const QByteArray &bytes)
    {
        if (!bytes.startsWith(Mark)) return;
        const QString line = QString::fromUtf8(bytes.mid(1)).trimmed();
        const QString text = line.section(u' ', 1);
        if (line.startsWith(u"step ")) Step = text;
        if (line.startsWith(u"done ")) Done = text;
        if (line.startsWith(u"mend ")) Mend(text);
        if (!line.startsWith(u"note ")) return;
        ++Notes;
        std::printf("Note: %s\n", qPrintable(text));
    }
};

// [ms] Patience is how long a game may be without a step.
int Watch(const QStringList &arguments, int patience)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), QStringList{QStringLiteral("--inside")} + arguments);
    Watcher watcher;
    bool stuck = false;
    while (child.state() != QProcess::NotRunning && !stuck) {
        stuck = !child.waitForReadyRead(patience) && child.state() != QProcess::NotRunning;
        while (child.canReadLine()) watcher.Take(child.readLine());
    }
    if (stuck) child.kill();
    child.waitForFinished();
    while (child.canReadLine()) watcher.Take(child.readLine());

    if (stuck)
        watcher.Mend(QStringLiteral("It does not come back from %1.").arg(watcher.Step));
    else if (child.exitStatus() != QProcess::NormalExit || watcher.Done.isEmpty())
        watcher.Mend(QStringLiteral("It ends the whole program at %1.").arg(watcher.Step));
    if (!watcher.Done.isEmpty()) std::printf("%s\n", qPrintable(watcher.Done));
    std::printf("%s\n", watcher.Mends == 0 ? "Nothing to mend." : "The game is to be mended.");
    return watcher.Mends == 0 ? 0 : 1;
}

const QString Sessions = QStringLiteral("sessions");
const QString Seed = QStringLiteral("seed");
const QString Program = QStringLiteral("program");
const QString Patience = QStringLiteral("patience");
const QString Inside = QStringLiteral("inside");

void AddOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral("Plays a game of Noggle a thousand times and tells what its "
                                                    "author has to mend. Exit code 0: nothing."));
    parser.addHelpOption();
    const QString number = QStringLiteral("number");
    QCommandLineOption inside(Inside, QStringLiteral("The check itself, in this process."));
    inside.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions(
        {{Sessions, QStringLiteral("How many sessions are played."), number, QStringLiteral("1000")},
         {Seed, QStringLiteral("Other events, the same for a number."), number, QStringLiteral("1")},
         {Program, QStringLiteral("The program's folder, for shared components; else the folder above the game's."),
          QStringLiteral("folder")},
         {Patience, QStringLiteral("Seconds for one step, after which a game counts as stuck."), number,
          QStringLiteral("60")},
         inside});
    parser.addPositionalArgument(QStringLiteral("FOLDER"), QStringLiteral("The game's folder, as it is delivered."));
}

CheckOptions OptionsOf(const QCommandLineParser &parser, const QFileInfo &folder)
{
    CheckOptions options;
    options.Folder = QDir(folder.absoluteFilePath()).absolutePath() + u'/';
    options.ProgramFolder = parser.isSet(Program) ? QDir(parser.value(Program)).absolutePath() + u'/'
                                                  : QFileInfo(options.Folder.chopped(1)).absolutePath() + u'/';
    options.Sessions = parser.value(Sessions).toInt();
    options.Seed = parser.value(Seed).toUInt();
    return options;
}
} // namespace

int main(int argc, char *argv[])
{
    qInstallMessageHandler(LeaveOutChatter);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // nothing flashes, and no display is needed
    CheckApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    AddOptions(parser);
    parser.process(application);
    if (parser.positionalArguments().size() != 1) parser.showHelp(2);
    const QFileInfo folder(parser.positionalArguments().first());
    if (!folder.isDir()) {
        std::fprintf(stderr, "There is no folder %s.\n", qPrintable(folder.filePath()));
        return 2;
    }
    if (!parser.isSet(Inside))
        return Watch(QCoreApplication::arguments().mid(1), parser.value(Patience).toInt() * 1000);
    return RunInside(OptionsOf(parser, folder), application);
}
