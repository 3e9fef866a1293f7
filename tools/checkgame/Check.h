// The whole check of one game, in this process: its folder, then so many sessions.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

class Report;

struct CheckOptions
{
    QString Folder;        // the game's, with the separator at its end
    QString ProgramFolder; // where "components" lies
    int Sessions = 1000;
    std::uint32_t Seed = 1;
};

struct CheckFigures
{
    int Sessions = 0;
    double MedianStart = 0; // [ms] from creation to the first picture
    double SlowestAct = 0;  // [ms] of the processor's time
    double Growth = 0;      // [bytes] a session
};

/// Doing is told each step before it is done. Failure: none; what is wrong stands in the report.
CheckFigures CheckGame(const CheckOptions &Options, Report &Report,
                       const std::function<void(int Session, const QString &Step)> &Doing);
