// Processes that are killed at random moments, to see what they leave behind.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Starts the program Times times, waits for its first line of output, kills it with SIGKILL after a random part of
/// LongestWait [ms], and then calls AfterEach. The moments come from a fixed seed.
/// Failure: reported as a test failure when the program does not start or ends by itself.
void KillAtRandomMoments(const QString &Program, const QStringList &Arguments, int Times, int LongestWait,
                         const std::function<void()> &AfterEach);
