#include "tests/display/DisplayTest.h"

#include <QGuiApplication>
#include <QProcess>

DisplayTest::DisplayTest()
{
    if (QGuiApplication::platformName() != u"xcb") qFatal("these tests need a display: run-on-display");
}

void DisplayTest::Hand(const QList<QByteArray> &Words)
{
    QStringList words;
    for (const QByteArray &word : Words) words << QLatin1String(word);
    QProcess hand;
    hand.start(QStringLiteral("xdotool"), words);
    // The program has to answer meanwhile, as it would to another process.
    if (!RunningProgram::Until([&] { return hand.state() == QProcess::NotRunning; }) || hand.exitCode() != 0)
        qFatal("xdotool %s", qPrintable(words.join(u' ')));
    RunningProgram::Turn(50);
}

// In steps, with a rest before and after: a window manager takes the pointer over first.
void DisplayTest::Drag(QPoint From, QPoint By)
{
    const QPoint half = From + By / 2;
    const QPoint end = From + By;
    Hand({"mousemove", X(From), Y(From), "mousedown", "1", "sleep", "0.3", "mousemove", X(half), Y(half), "sleep",
          "0.1", "mousemove", X(end), Y(end), "sleep", "0.3", "mouseup", "1"});
}

void DisplayTest::StartGameThatListens()
{
    StartWithAnn();
    StartWorkoutGame();
    ASSERT_TRUE(MayType());
    Game.TakeVerbs();
}
