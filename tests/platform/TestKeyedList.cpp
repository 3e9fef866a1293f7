#include "platform/KeyedList.h"

#include <gtest/gtest.h>

namespace
{
using List = KeyedList<int>;

List::Pointer Number(int value) { return std::make_shared<int>(value); }

List ThreeNumbers()
{
    List list;
    list.Add(Number(10), QStringLiteral("Ten"));
    list.Add(Number(20));
    list.Add(Number(30), QStringLiteral("Thirty"));
    return list;
}

std::vector<int> Values(const List &list)
{
    std::vector<int> values;
    for (const auto &member : list) values.push_back(*member);
    return values;
}
} // namespace

TEST(KeyedList, PositionsCountFromOne)
{
    const List list = ThreeNumbers();
    EXPECT_EQ(*list.Item(1), 10);
    EXPECT_EQ(*list.Item(3), 30);
    EXPECT_EQ(list.Count(), 3);
    for (const int none : {0, 4, -1}) EXPECT_THROW(list.Item(none), ListError);
}

TEST(KeyedList, KeysMatchWithoutRegardToCase)
{
    List list = ThreeNumbers();
    EXPECT_EQ(*list.Item(QStringLiteral("tHIRTY")), 30);
    EXPECT_THROW(list.Add(Number(1), QStringLiteral("TEN")), ListError);
    EXPECT_EQ(list.Count(), 3) << "a refused member is not in the list";
}

TEST(KeyedList, AnUnknownKeyFailsOrIsEmpty)
{
    List list = ThreeNumbers();
    EXPECT_THROW(list.Item(QStringLiteral("2")), ListError) << "a text is never a position";
    EXPECT_THROW(list.Item(QString()), ListError);
    EXPECT_THROW(list.Remove(QStringLiteral("None")), ListError);
    EXPECT_THROW(list.Remove(4), ListError);
    EXPECT_EQ(list.Find(QStringLiteral("None")), nullptr);
    EXPECT_EQ(list.Find(QString()), nullptr);
}

TEST(KeyedList, ARemovedMemberFreesItsKeyAndClosesTheGap)
{
    List list = ThreeNumbers();
    list.Remove(1);
    EXPECT_EQ(Values(list), (std::vector{20, 30}));
    EXPECT_EQ(*list.Item(QStringLiteral("Thirty")), 30);
    list.Add(Number(11), QStringLiteral("Ten"));
    list.Remove(QStringLiteral("thirty"));
    EXPECT_EQ(Values(list), (std::vector{20, 11}));
    EXPECT_EQ(*list.Item(QStringLiteral("Ten")), 11);
}

TEST(KeyedList, OneObjectMayStandUnderTwoKeys)
{
    List list;
    const auto shared = Number(5);
    list.Add(shared, QStringLiteral("a"));
    list.Add(shared, QStringLiteral("b"));
    list.Remove(QStringLiteral("b"));
    EXPECT_EQ(list.Find(QStringLiteral("b")), nullptr);
    EXPECT_EQ(list.Item(QStringLiteral("a")), shared);
    EXPECT_EQ(list.Count(), 1);
}

TEST(KeyedList, TwoListsHoldTheSameObject)
{
    const List list = ThreeNumbers();
    List other;
    other.Add(list.Item(2), QStringLiteral("Ten"));
    *other.Item(1) = 21;
    EXPECT_EQ(*list.Item(2), 21);
}

TEST(KeyedList, AClearedListTakesItsKeysAgain)
{
    List list = ThreeNumbers();
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(list.begin() == list.end());
    list.Add(Number(1), QStringLiteral("Ten"));
    EXPECT_EQ(*list.Item(QStringLiteral("Ten")), 1);
}

TEST(KeyedList, TheKeyOfARecordIsKAndItsNumber)
{
    EXPECT_EQ(RecordKey(17), u"K17");
    EXPECT_EQ(RecordKey(-2147483647 - 1), u"K-2147483648");
}
