// The order of names in lists.
#include "platform/store/NameOrder.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
QString Sorted(QStringList names)
{
    std::sort(names.begin(), names.end(),
              [](const QString &a, const QString &b) { return CompareNames(a.toUtf8(), b.toUtf8()) < 0; });
    return names.join(u' ');
}
const QStringList Names{u"zzz"_s,    u"Zoo"_s,    u"apple"_s,   u"Apple"_s, u"Ärger"_s, u"Arger"_s,
                        u"argern"_s, u"Straße"_s, u"Strasse"_s, u"øre"_s,   u"Oral"_s,  u"orf"_s,
                        u"Łódź"_s,   u"lot"_s,    u"Память"_s,  u"記憶"_s,  u"🙂"_s,  u""_s,
                        u"10"_s,     u"zzzz"_s,   u"ZZZ"_s,     u"zz"_s};
} // namespace

TEST(NameOrder, CaseDoesNotCount) { EXPECT_EQ(Sorted({u"Zoo"_s, u"apple"_s, u"Bee"_s}), u"apple Bee Zoo"_s); }

TEST(NameOrder, AnAccentStandsBesideItsBaseLetter)
{
    EXPECT_EQ(Sorted({u"Zoo"_s, u"Ärger"_s, u"Arm"_s, u"Aal"_s}), u"Aal Ärger Arm Zoo"_s);
    EXPECT_EQ(Sorted({u"Éclair"_s, u"Echo"_s, u"Ende"_s}), u"Echo Éclair Ende"_s);
    EXPECT_EQ(Sorted({u"pa"_s, u"øre"_s, u"orf"_s, u"Oral"_s}), u"Oral øre orf pa"_s);
    EXPECT_EQ(Sorted({u"E\u0301b"_s, u"Ea"_s, u"Ec"_s}), u"Ea E\u0301b Ec"_s)
        << "also where it is a character of its own";
}

TEST(NameOrder, ZzzIsLastWhateverScriptTheOthersHave)
{
    for (const QString &name : Names) {
        if (name == u"zzz") continue;
        EXPECT_LT(CompareNames(name.toUtf8(), "zzz"), 0) << qPrintable(name);
    }
    EXPECT_EQ(CompareNames("zzz", "zzz"), 0);
}

TEST(NameOrder, IsATotalOrder)
{
    for (const QString &a : Names)
        for (const QString &b : Names) {
            const int order = CompareNames(a.toUtf8(), b.toUtf8());
            EXPECT_EQ(order == 0, a == b);
            EXPECT_EQ(order<0, CompareNames(b.toUtf8(), a.toUtf8())> 0);
            for (const QString &c : Names) {
                const bool isBehindB = CompareNames(b.toUtf8(), c.toUtf8()) < 0;
                if (order < 0 && isBehindB) {
                    EXPECT_LT(CompareNames(a.toUtf8(), c.toUtf8()), 0);
                }
            }
        }
}

TEST(NameOrder, BytesThatAreNoTextHaveAPlaceToo)
{
    EXPECT_NE(CompareNames("\xff\xfe", "a"), 0);
    EXPECT_EQ(CompareNames("\xff\xfe", "\xff\xfe"), 0);
    EXPECT_NE(CompareNames("\xff", "\xfe"), 0);
}
