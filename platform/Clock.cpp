#include "platform/Clock.h"

#include "platform/Units.h"

#include <cmath>

namespace
{
std::function<QDateTime()> &Source()
{
    static std::function<QDateTime()> source;
    return source;
}

QDateTime Moment() { return Source() ? Source()() : QDateTime::currentDateTime(); }

constexpr qint64 DayZero = 2415019; // Julian day of 30 December 1899
constexpr double MillisecondsPerDay = 1000.0 * SecondsPerDay;
} // namespace

double ToDayCount(const QDateTime &Moment)
{
    const double day = static_cast<double>(Moment.date().toJulianDay() - DayZero);
    return day + Moment.time().msecsSinceStartOfDay() / MillisecondsPerDay;
}

QDateTime FromDayCount(double Days)
{
    if (!(std::abs(Days) < 1e7)) return {};
    const double day = std::floor(Days);
    const auto milliseconds = static_cast<qint64>(std::nearbyint((Days - day) * MillisecondsPerDay));
    const auto carried = milliseconds / (1000LL * SecondsPerDay);
    const auto ofDay = static_cast<int>(milliseconds % (1000LL * SecondsPerDay));
    return {QDate::fromJulianDay(static_cast<qint64>(day) + carried + DayZero),
            QTime::fromMSecsSinceStartOfDay(ofDay)};
}

double Now() { return ToDayCount(Moment()); }

double NowToTheSecond()
{
    QDateTime moment = Moment();
    const QTime time = moment.time();
    moment.setTime(QTime(time.hour(), time.minute(), time.second()));
    return ToDayCount(moment);
}

double Today() { return static_cast<double>(Moment().date().toJulianDay() - DayZero); }

float Timer() { return static_cast<float>(Moment().time().msecsSinceStartOfDay()) / 1000.0F; }

void SetClock(std::function<QDateTime()> NewSource) { Source() = std::move(NewSource); }
