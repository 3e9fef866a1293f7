#include "platform/Clock.h"
#include "platform/Units.h"

#include <gtest/gtest.h>

#include <ctime>

namespace
{
/// The machine stands in another time zone, for as long as this lives.
class TimeZone
{
public:
    explicit TimeZone(const char *Name) : m_Before(qgetenv("TZ")) { Set(Name); }
    ~TimeZone() { Set(m_Before); }
    TimeZone(const TimeZone &) = delete;
    TimeZone &operator=(const TimeZone &) = delete;

private:
    static void Set(const QByteArray &name)
    {
        qputenv("TZ", name);
        tzset();
    }
    QByteArray m_Before;
};

QDateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second, ms)};
}

class Clock : public testing::Test
{
protected:
    ~Clock() override { SetClock({}); }
};
} // namespace

TEST_F(Clock, DayZeroIsThirtiethDecember1899)
{
    EXPECT_EQ(ToDayCount(At(1899, 12, 30)), 0.0);
    EXPECT_EQ(ToDayCount(At(1900, 1, 1)), 2.0);
}

TEST_F(Clock, NoonIsHalfADay) { EXPECT_EQ(ToDayCount(At(2026, 11, 21, 12)), 46347.5); }

TEST_F(Clock, ADayHasItsSecondsWhateverDaylightSavingDoes)
{
    const TimeZone berlin("Europe/Berlin");
    const QDateTime before = At(2026, 3, 28, 12);
    const QDateTime after = At(2026, 3, 29, 12);
    ASSERT_EQ(before.secsTo(after), 23 * 3600) << "an hour is left out that night";
    EXPECT_EQ((ToDayCount(after) - ToDayCount(before)) * SecondsPerDay, 86400.0);
}

TEST_F(Clock, TheMachinesClockIsReadAsLocalTime)
{
    const TimeZone kiritimati("Pacific/Kiritimati"); // 14 hours ahead, all the year
    const double before = ToDayCount(QDateTime::currentDateTimeUtc()) + 14.0 / 24;
    const double now = Now();
    const double after = ToDayCount(QDateTime::currentDateTimeUtc()) + 14.0 / 24;
    constexpr double millisecond = 0.001 / SecondsPerDay;
    EXPECT_GE(now, before - millisecond);
    EXPECT_LE(now, after + millisecond);
}

TEST_F(Clock, ADayThatBeginsWithoutItsFirstHourKeepsItsDate)
{
    const TimeZone saoPaulo("America/Sao_Paulo");
    SetClock([] { return At(2018, 11, 4, 1); }); // the second after 23:59:59 of the day before
    const double day = Today();
    EXPECT_EQ(FromDayCount(day).date(), QDate(2018, 11, 4));
    EXPECT_EQ(ToDayCount(FromDayCount(day)), day);
    EXPECT_EQ(FromDayCount(day - 1).date(), QDate(2018, 11, 3));
}

TEST_F(Clock, TheHourThatComesTwiceIsStoredAsTheClockShowsIt)
{
    const TimeZone berlin("Europe/Berlin");
    const QDateTime first =
        QDateTime::fromSecsSinceEpoch(QDateTime(QDate(2026, 10, 25), QTime(1, 59, 59)).toSecsSinceEpoch() + 1802);
    const QDateTime second = first.addSecs(3600);
    ASSERT_EQ(first.time(), second.time());
    for (const QDateTime &moment : {first, second}) {
        SetClock([moment] { return moment.addMSecs(700); });
        EXPECT_EQ(NowToTheSecond(), ToDayCount(At(2026, 10, 25, 2, 30, 1)));
    }
}

TEST_F(Clock, TodayHasNoTimePart)
{
    SetClock([] { return At(2026, 11, 21, 23, 59, 59, 999); });
    EXPECT_EQ(Today(), 46347.0);
}

TEST_F(Clock, StoredMomentsAreCutToTheSecond)
{
    SetClock([] { return At(2026, 11, 21, 8, 0, 1, 999); });
    EXPECT_EQ(NowToTheSecond(), ToDayCount(At(2026, 11, 21, 8, 0, 1)));
    EXPECT_GT(Now(), NowToTheSecond());
}

TEST_F(Clock, TimerCountsFromMidnight)
{
    SetClock([] { return At(2026, 11, 21, 0, 1, 0, 500); });
    EXPECT_EQ(Timer(), 60.5F);
}

TEST_F(Clock, AMomentComesBackFromItsDayCount)
{
    const QDateTime moment = At(2026, 2, 28, 23, 59, 59, 999);
    EXPECT_EQ(FromDayCount(ToDayCount(moment)), moment);
    EXPECT_FALSE(FromDayCount(1e300).isValid());
}
