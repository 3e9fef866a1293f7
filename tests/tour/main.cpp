// A day with the program, or the days after it, on its real start-up: see README.md.
#include "Camera.h"
#include "GamePlayers.h"
#include "Hands.h"
#include "StoreRows.h"
#include "Story.h"
#include "TourClock.h"

#include "platform/Files.h"

#include "shell/GuardedApplication.h"
#include "shell/StartUp.h"

#include <QTextStream>
#include <QWidget>
#include <QWindow>

#include <cstdlib>
#include <thread>

namespace
{
constexpr int LongerThanTheHold = 6; // [s]

QWidget *ShownSplash()
{
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == u"frmSplash" && window->windowHandle() != nullptr &&
            window->windowHandle()->isExposed())
            return window;
    return nullptr;
}

// No dialog that may be open could be closed in good order any more.
[[noreturn]] void Fail(const QString &Reason)
{
    QTextStream(stdout) << "The tour has failed: " << Reason << Qt::endl;
    std::_Exit(EXIT_FAILURE);
}

void Live(int Day, Story &Told, Hands &Person)
{
    try {
        Day == 1 ? Told.DayOne() : Told.RestOfTheWeek();
    } catch (...) {
        const QString reason = DescriptionOf(std::current_exception());
        try {
            Person.KeepPictures(true);
            Person.Picture(QStringLiteral("failure"));
        } catch (...) {
            // what the screen looked like must then be guessed
        }
        Fail(reason);
    }
}

int Usage()
{
    QTextStream(stderr) << "noggle_tour PROGRAM-FOLDER PICTURE-FOLDER DAY FIRST-PICTURE SECONDS-TO-PLAY-A-GAME\n";
    return EXIT_FAILURE;
}
} // namespace

int main(int argc, char *argv[])
{
    GuardedApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 6) return Usage();
    SetProgramFolder(QDir(arguments[1]).absolutePath() + u'/');
    try {
        GiveSeeds(ProgramFolder());
    } catch (...) {
        Fail(DescriptionOf(std::current_exception()));
    }
    const int day = arguments[3].toInt();

    TourClock clock(day);
    Camera camera(arguments[2], arguments[4].toInt());
    Hands hands(camera, clock);
    Story story(hands, arguments[5].toInt());

    // The start looks at the clock before it holds the splash. The first day waits, so that the picture is of what a
    // person sees; on the second the clock has moved on enough.
    bool splashSeen = false;
    clock.OnLook = [&] {
        if (splashSeen || ShownSplash() == nullptr) return;
        splashSeen = true;
        if (day == 1)
            camera.Take(QStringLiteral("splash"));
        else
            clock.MoveOn(LongerThanTheHold);
    };

    std::thread life([&] { Live(day, story, hands); });
    if (!modMain::Main()) Fail(QStringLiteral("The program did not start."));
    const int code = GuardedApplication::exec();
    life.join();
    if (!splashSeen) Fail(QStringLiteral("The splash was never on the screen."));
    if (code != 0) Fail(QStringLiteral("The program ended with %1.").arg(code));
    modMain::ReleaseWindows();
    if (day > 1) StoreRows::Print();
    return EXIT_SUCCESS;
}
