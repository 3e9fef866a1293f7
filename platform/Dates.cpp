#include "platform/Dates.h"

#include "platform/Clock.h"

#include <QLocale>

QString FormatDayMonthYear(double Days) { return QLocale().toString(FromDayCount(Days).date(), u"d-MMM-yyyy"); }

QString FormatShortDate(double Days) { return QLocale().toString(FromDayCount(Days).date(), u"dd-MMM-yy"); }

QString IsoDate(double Days) { return FromDayCount(Days).date().toString(Qt::ISODate); }

QString IsoDateTime(double Days) { return FromDayCount(Days).toString(Qt::ISODate); }

QString FormatDate(double Days, const QString &Format)
{
    return QLocale().toString(FromDayCount(Days).date(), Format.toLower().replace(u'm', u'M'));
}
