#include "domain/RecordList.h"

#include <gtest/gtest.h>

namespace
{
using Texts = RecordList<QString>;

std::shared_ptr<QString> Text(const char *words) { return std::make_shared<QString>(QString::fromUtf8(words)); }

Texts ThreeTexts()
{
    Texts list;
    list.Add(Text("five"), 5);
    list.Add(Text("two"), 2);
    list.Add(Text("nine"), 9);
    return list;
}
} // namespace

TEST(RecordListOf, MembersStandInTheOrderOfTheirComingAndUnderTheirNumber)
{
    const Texts list = ThreeTexts();
    EXPECT_EQ(*list.Item(1), u"five");
    EXPECT_EQ(*list.ByNumber(2), u"two");
    EXPECT_EQ(*list.Item(QStringLiteral("K9")), u"nine");
}

TEST(RecordListOf, APrefixedKeyIsMatchedWithoutRegardToCase)
{
    EXPECT_EQ(*ThreeTexts().Item(QStringLiteral("k9")), u"nine");
}

TEST(RecordListOf, AnotherSpellingOfANumberIsAnotherKey)
{
    const Texts list = ThreeTexts();
    for (const auto &key : {u"K09", u"K 9", u"K+9", u"9", u"", u"K", u"X9"})
        EXPECT_THROW(list.Item(QString::fromUtf16(key)), ListError) << QString::fromUtf16(key).toStdString();
}

TEST(RecordListOf, PositionsOutsideTheListFail)
{
    const Texts list = ThreeTexts();
    EXPECT_THROW(list.Item(0), ListError);
    EXPECT_THROW(list.Item(4), ListError);
    EXPECT_THROW(list.Item(-1), ListError);
}

TEST(RecordListOf, ATakenNumberFailsAndChangesNothing)
{
    Texts list = ThreeTexts();
    EXPECT_THROW(list.Add(Text("again"), 2), ListError);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(*list.ByNumber(2), u"two");
}

TEST(RecordListOf, AMemberWithoutANumberIsFoundByItsPositionAlone)
{
    Texts list = ThreeTexts();
    list.Add(Text("nameless"), QString());
    list.Add(Text("nameless too"), QString());
    EXPECT_EQ(*list.Item(4), u"nameless");
    EXPECT_EQ(list.Find(0), nullptr);
    EXPECT_EQ(list.Count(), 5);
}

TEST(RecordListOf, AddedUnderAPrefixedKeyAMemberHasItsNumber)
{
    Texts list = ThreeTexts();
    list.Add(Text("seven"), QStringLiteral("K7"));
    EXPECT_EQ(*list.ByNumber(7), u"seven");
    EXPECT_THROW(list.Add(Text("again"), QStringLiteral("k7")), ListError);
    EXPECT_THROW(list.Add(Text("odd"), QStringLiteral("seven")), ListError);
}

TEST(RecordListOf, TheNumbersStayRightWhenAMemberIsRemoved)
{
    Texts list = ThreeTexts();
    list.Add(Text("nameless"), QString());
    list.Remove(QStringLiteral("K5"));
    EXPECT_EQ(*list.ByNumber(9), u"nine");
    EXPECT_EQ(list.Find(5), nullptr);
    list.Remove(3);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_THROW(list.RemoveNumber(5), ListError);
}

TEST(RecordListOf, RowsAddedAfterAQuestionAreFoundToo)
{
    Texts list = ThreeTexts();
    EXPECT_EQ(list.Find(6), nullptr);
    list.AddRow(Text("six"), 6);
    EXPECT_EQ(*list.ByNumber(6), u"six");
}
