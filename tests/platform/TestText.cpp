#include "platform/Text.h"

#include <gtest/gtest.h>

TEST(Text, Utf8ComesFirst)
{
    EXPECT_EQ(FromFileText("\xC3\xA9\xE2\x82\xAC"), QStringLiteral("\u00E9\u20AC"));
    EXPECT_EQ(FromFileText("\xF0\x9F\x98\x80"), QStringLiteral("\U0001F600"));
    EXPECT_EQ(FromFileText({}), QString());
}

TEST(Text, WhatIsNoUtf8IsWindows1252)
{
    EXPECT_EQ(FromFileText("caf\xE9"), QStringLiteral("caf\u00E9"));
    EXPECT_EQ(FromFileText("\x80\x9F\x81\xFF"), QStringLiteral("\u20AC\u0178\u0081\u00FF"));
    EXPECT_EQ(FromFileText("a\xC3"), QStringLiteral("a\u00C3")) << "half a character at the end";
    EXPECT_EQ(FromFileText("\xC0\x80"), QStringLiteral("\u00C0\u20AC")) << "an overlong form";
}

TEST(Text, EveryCharacterComesBack)
{
    const QString text = QStringLiteral("\uFEFFa \u00E9 \u0416 \uFFFD \U0001F600");
    EXPECT_EQ(FromFileText(ToFileText(text)), text);
    const QString nul = QStringLiteral("a") + QChar::Null + u'b';
    EXPECT_EQ(FromFileText(ToFileText(nul)), nul);
}

TEST(Text, ACutSplitsNoCharacter)
{
    struct Case
    {
        const char *text;
        qsizetype count;
        const char *cut;
    };
    for (const Case &c : {
             Case{"abc", 3, "abc"},
             Case{"abc", 2, "ab"},
             Case{"abc", 0, ""},
             Case{"", 5, ""},
             Case{"a\xC3\xA9", 2, "a"},
             Case{"a\xC3\xA9", 3, "a\xC3\xA9"},
             Case{"\xF0\x9F\x98\x80z", 4, "\xF0\x9F\x98\x80"},
             Case{"\xF0\x9F\x98\x80z", 3, ""},
             Case{"a\xE2\x82\xAC\xE2\x82\xAC", 5, "a\xE2\x82\xAC"},
             Case{"a\x80\x80", 1, "a"},
             Case{"a\x80\x80", 2, "a\x80"},
             Case{"\x80\x80\x80\x80\x80\x80", 5, "\x80\x80\x80\x80\x80"},
         })
        EXPECT_EQ(CutBytes(c.text, c.count), QByteArray(c.cut)) << c.text << ' ' << c.count;
}
