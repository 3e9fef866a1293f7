// The wall clock, behind one source that tests can set. A moment is a day count with a fraction, day 0 being
// 30 December 1899, in local time and made from calendar fields, so that a day has 86400 seconds whatever daylight
// saving does.
#pragma once

#include <QDateTime>

#include <functional>

/// [days] The present moment, with the fraction of a second.
double Now();
/// [days] The present moment, cut to the whole second: what is stored.
double NowToTheSecond();
/// [days] Today's date without a time part.
double Today();
/// [s] Seconds since local midnight, as a single-precision number.
float Timer();

double ToDayCount(const QDateTime &Moment);
/// The moment of a day count, to the nearest millisecond: its date and its time of day. Invalid for what no calendar
/// holds, and, with date and time all the same, for a time that daylight saving leaves out here.
QDateTime FromDayCount(double Days);

/// Replaces the source of the time; an empty function gives back the machine's clock. For tests.
void SetClock(std::function<QDateTime()> NewSource);
