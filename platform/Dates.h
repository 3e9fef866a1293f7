// Dates as texts. Month names come from the C locale unless the desktop's locale has short ones of its own.
#pragma once

#include <QString>

/// "D-MMM-YYYY": 5-Mar-2026.
QString FormatDayMonthYear(double Days);
/// "DD-MMM-YY": 05-Mar-26.
QString FormatShortDate(double Days);
/// As machines read it: 2026-03-05, and 2026-03-05T18:30:00. Empty for what no calendar holds.
QString IsoDate(double Days);
QString IsoDateTime(double Days);
/// A date by a format of d, m (always the month) and y, in either case: "dd-mmm-yy". Empty for what no calendar
/// holds.
QString FormatDate(double Days, const QString &Format);
