#include "platform/Clock.h"
#include "platform/Dates.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace
{
class Dates : public testing::Test
{
protected:
    ~Dates() override { QLocale::setDefault(m_Before); }
    static void Speak(QLocale::Language language) { QLocale::setDefault(QLocale(language)); }
    static double At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
    {
        return ToDayCount(QDateTime(QDate(year, month, day), QTime(hour, minute, second)));
    }

private:
    QLocale m_Before;
};
} // namespace

TEST_F(Dates, InTheCLocale)
{
    Speak(QLocale::C);
    EXPECT_EQ(FormatDayMonthYear(At(2026, 3, 5)), u"5-Mar-2026");
    EXPECT_EQ(FormatDayMonthYear(At(2026, 12, 31, 23, 59, 59)), u"31-Dec-2026") << "still that day";
    EXPECT_EQ(FormatShortDate(At(2026, 3, 5)), u"05-Mar-26");
    EXPECT_EQ(FormatShortDate(At(2000, 10, 10)), u"10-Oct-00");
    EXPECT_EQ(FormatDayMonthYear(0), u"30-Dec-1899");
}

TEST_F(Dates, ByAFormatMIsAlwaysTheMonth)
{
    Speak(QLocale::C);
    EXPECT_EQ(FormatDate(At(2026, 3, 5, 14, 59), QStringLiteral("dd-mmm-yy")), u"05-Mar-26");
    EXPECT_EQ(FormatDate(At(2026, 3, 5, 14, 59), QStringLiteral("D/MM/YYYY")), u"5/03/2026");
    EXPECT_EQ(FormatDate(At(2026, 3, 5), QString()), QString());
}

TEST_F(Dates, MonthsAreTheShortOnesOfTheDesktopsLanguage)
{
    Speak(QLocale::German);
    EXPECT_EQ(FormatDayMonthYear(At(2026, 5, 1)), u"1-Mai-2026");
    EXPECT_EQ(FormatShortDate(At(2026, 3, 5)), QStringLiteral("05-M\u00E4rz-26"));
    EXPECT_EQ(FormatShortDate(At(2026, 12, 5)), u"05-Dez.-26") << "with the point that German puts there";
}

TEST_F(Dates, WhatIsNoDateIsEmpty)
{
    EXPECT_EQ(FormatDayMonthYear(1e300), QString());
    EXPECT_EQ(FormatShortDate(-1e300), QString());
    EXPECT_EQ(FormatDate(1e300, QStringLiteral("dd-mmm-yy")), QString());
}
