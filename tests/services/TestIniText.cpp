// The text of a settings file, before any file is touched.
#include "services/IniText.h"

#include <gtest/gtest.h>

namespace
{
QByteArray ValueIn(const QByteArray &text) { return IniText(text).Value(QStringLiteral("S"), QStringLiteral("k")); }

// The whole text after k in S was set.
QByteArray After(const QByteArray &text, const QByteArray &value = "new")
{
    IniText ini(text);
    EXPECT_TRUE(ini.SetValue(QStringLiteral("S"), QStringLiteral("k"), value));
    EXPECT_EQ(ini.Value(QStringLiteral("S"), QStringLiteral("k")), value);
    return ini.Bytes();
}

bool Takes(const QString &section, const QString &key, const QByteArray &value)
{
    const QByteArray before = "[S]\r\nk=v\r\n";
    IniText ini(before);
    const bool taken = ini.SetValue(section, key, value);
    EXPECT_TRUE(taken || ini.Bytes() == before);
    return taken;
}
} // namespace

TEST(IniText, ReadsByTheRulesOfThePlatform)
{
    struct Case
    {
        const char *fact, *text, *value;
    };
    for (const Case &c : {
             Case{"plain", "[S]\r\nk=v\r\n", "v"},
             Case{"case of names does not count", "[s]\nK=v\n", "v"},
             Case{"blanks around names, sign and value go", " [ S ] \n\t k \t= \tv w \t\n", "v w"},
             Case{"one pair of double quotes goes", "[S]\nk=\" v \"\n", " v "},
             Case{"one pair of single quotes goes", "[S]\nk=' v '\n", " v "},
             Case{"only one pair", "[S]\nk=\"\"v\"\"\n", "\"v\""},
             Case{"unequal quotes stay", "[S]\nk=\"v'\n", "\"v'"},
             Case{"a lone quote stays", "[S]\nk=\"\n", "\""},
             Case{"empty quotes are empty", "[S]\nk=\"\"\n", ""},
             Case{"a sign in the value belongs to it", "[S]\nk=a=b\n", "a=b"},
             Case{"a semicolon in the value belongs to it", "[S]\nk=a ; b\n", "a ; b"},
             Case{"a comment is no key", "[S]\n;k=no\n  ; k=no\nk=v\n", "v"},
             Case{"first key wins", "[S]\nk=v\nk=w\n", "v"},
             Case{"first section wins", "[S]\nk=v\n[S]\nk=w\n", "v"},
             Case{"a second section of the name is not looked into", "[S]\na=b\n[S]\nk=w\n", ""},
             Case{"another section's key is another", "[T]\nk=w\n[S]\na=b\n", ""},
             Case{"a key above all sections is in none", "k=w\n[S]\n", ""},
             Case{"a head without its end is one", "[S\nk=v\n", "v"},
             Case{"what follows a head is not read", "[S] ; k=w\nk=v\n", "v"},
             Case{"a line without a sign is nothing", "[S]\nk\nk=v\n", "v"},
             Case{"no line end at the end", "[S]\nk=v", "v"},
             Case{"a byte order mark may come first", "\xEF\xBB\xBF[S]\nk=v\n", "v"},
             Case{"empty file", "", ""},
             Case{"only a bracket", "[", ""},
         })
        EXPECT_EQ(ValueIn(c.text), QByteArray(c.value)) << c.fact;
}

TEST(IniText, NamesMatchBeyondAscii)
{
    const QString section = QStringLiteral("gr\u00F6\u00DFe");
    EXPECT_EQ(IniText("[GR\xC3\x96\xC3\x9F"
                      "E]\nk=v\n")
                  .Value(section, QStringLiteral("K")),
              "v");
    EXPECT_EQ(IniText("[Gr\xF6\xDF"
                      "e]\nk=v\n")
                  .Value(section, QStringLiteral("K")),
              "v")
        << "Windows-1252";
}

TEST(IniText, AWriteChangesOnlyTheValuesBytes)
{
    EXPECT_EQ(After("; top\r\n[S]\r\n K  =  old  \r\n\r\n\xFF=\xFE\r\n[T]\nx\n"),
              "; top\r\n[S]\r\n K  =  new  \r\n\r\n\xFF=\xFE\r\n[T]\nx\n");
    EXPECT_EQ(After("[S]\nk=\"old\"\nk=second\n"), "[S]\nk=new\nk=second\n");
    EXPECT_EQ(After("[S]\nk=\n"), "[S]\nk=new\n");
    EXPECT_EQ(After("[S]\nk=old"), "[S]\nk=new");
    EXPECT_EQ(After("[S]\nk=old\r\n", ""), "[S]\nk=\r\n");
}

TEST(IniText, ANewKeyGoesToTheEndOfItsSection)
{
    EXPECT_EQ(After("[S]\na=1\n\n[T]\nb=2\n"), "[S]\na=1\nk=new\n\n[T]\nb=2\n");
    EXPECT_EQ(After("[S]\na=1\n\n; about T\n[T]\n"), "[S]\na=1\nk=new\n\n; about T\n[T]\n");
    EXPECT_EQ(After("[S]\n; about a\na=1\n; last\n\n"), "[S]\n; about a\na=1\n; last\nk=new\n\n");
    EXPECT_EQ(After("[S]\n[T]\n"), "[S]\nk=new\n[T]\n");
    EXPECT_EQ(After("[S]"), "[S]\r\nk=new\r\n");
    EXPECT_EQ(After("[S]\na=1"), "[S]\na=1\nk=new\n");
}

TEST(IniText, ANewSectionGoesToTheEndOfTheFile)
{
    EXPECT_EQ(After(""), "[S]\r\nk=new\r\n");
    EXPECT_EQ(After("[T]\na=1\n"), "[T]\na=1\n[S]\nk=new\n");
    EXPECT_EQ(After("[T]\r\na=1"), "[T]\r\na=1\r\n[S]\r\nk=new\r\n");
    EXPECT_EQ(After("\xEF\xBB\xBF"), "\xEF\xBB\xBF[S]\r\nk=new\r\n");
}

TEST(IniText, LineEndsAreThoseOfTheLineBefore)
{
    EXPECT_EQ(After("[T]\r\na=1\r\n[S]\nb=1\n"), "[T]\r\na=1\r\n[S]\nb=1\nk=new\n");
    EXPECT_EQ(After("[T]\na=1\n[S]\r\nb=1\r\n"), "[T]\na=1\n[S]\r\nb=1\r\nk=new\r\n");
}

TEST(IniText, BlanksAtTheEndsOfAValueDoNotPileUp)
{
    IniText ini("[S]\nk = v \n");
    for (int i = 0; i < 3; ++i) ini.SetValue(QStringLiteral("S"), QStringLiteral("k"), "  v\t ");
    EXPECT_EQ(ini.Bytes(), "[S]\nk = v \n");
}

TEST(IniText, RefusesWhatNoLineCanHold)
{
    const auto s = QStringLiteral("S");
    const auto k = QStringLiteral("k");
    EXPECT_FALSE(Takes(s, k, "1\nk2=2"));
    EXPECT_FALSE(Takes(s, k, "1\r"));
    EXPECT_FALSE(Takes(s, k, QByteArray("a\0b", 3)));
    EXPECT_FALSE(Takes(QStringLiteral("S]"), k, "1"));
    EXPECT_FALSE(Takes(QStringLiteral("S\n[T"), k, "1"));
    EXPECT_FALSE(Takes(QStringLiteral(" "), k, "1"));
    EXPECT_FALSE(Takes(s, QStringLiteral("a=b"), "1"));
    EXPECT_FALSE(Takes(s, QStringLiteral("a\r"), "1"));
    EXPECT_FALSE(Takes(s, QStringLiteral(" ;a"), "1"));
    EXPECT_FALSE(Takes(s, QStringLiteral("[a"), "1"));
    EXPECT_FALSE(Takes(s, QString(), "1"));
    EXPECT_TRUE(Takes(QStringLiteral("[S"), QStringLiteral("a]"), "[=;]"));
}
