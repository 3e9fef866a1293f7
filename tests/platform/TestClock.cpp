#include "platform/Clock.h"
#include "platform/Units.h"

#include <gtest/gtest.h>

namespace
{
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
    const double before = ToDayCount(At(2026, 3, 28, 12));
    const double after = ToDayCount(At(2026, 3, 29, 12));
    EXPECT_EQ((after - before) * SecondsPerDay, 86400.0);
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
