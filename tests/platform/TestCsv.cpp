#include "platform/Csv.h"
#include "platform/Dates.h"

#include <gtest/gtest.h>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }
} // namespace

TEST(Csv, RowsEndInCrLfAndFieldsInCommas)
{
    EXPECT_EQ(ToCsv({}), QByteArray());
    EXPECT_EQ(ToCsv({{S("Name"), S("Score")}, {S("Ann"), S("95")}}), QByteArray("Name,Score\r\nAnn,95\r\n"));
    EXPECT_EQ(ToCsv({{S("a"), {}, S("c")}}), QByteArray("a,,c\r\n"));
}

TEST(Csv, WhatWouldEndAFieldStandsInQuotes)
{
    EXPECT_EQ(ToCsv({{S("Smith, John"), S("say \"hi\""), S("two\r\nlines"), S("one\nmore")}}),
              QByteArray("\"Smith, John\",\"say \"\"hi\"\"\",\"two\r\nlines\",\"one\nmore\"\r\n"));
    EXPECT_EQ(ToCsv({{S("a;b"), S("<b> & 'c'"), S(" d ")}}), QByteArray("a;b,<b> & 'c', d \r\n"));
}

TEST(Csv, TextIsUtf8) { EXPECT_EQ(ToCsv({{S("Ελένη"), S("花子"), S("ليلى")}}), QByteArray("Ελένη,花子,ليلى\r\n")); }

TEST(IsoDates, AreTheSameInEveryLanguage)
{
    EXPECT_EQ(IsoDate(46086.75), S("2026-03-05"));
    EXPECT_EQ(IsoDateTime(46086.75), S("2026-03-05T18:00:00"));
    EXPECT_EQ(IsoDate(1e30), QString());
    EXPECT_EQ(IsoDateTime(1e30), QString());
}
