// Result sets: read forward, changed, added to; and what stands in a file that another tool has written.
#include "platform/RuntimeError.h"
#include "platform/store/Command.h"
#include "platform/store/Connection.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr const char *Tables = R"sql(
    create table T (K integer primary key autoincrement, Name text, N integer, D real, F integer default 7);
    insert into T (Name, N, D, F) values ('one', 1, 1.5, 0), ('two', 2, 2.5, 1), ('three', 3, 3.5, null);
    create index ByN on T (N);
    create table Pair (A integer, B integer, Info text, primary key (A, B));
    create table Loose (X integer, Y integer);
    create view V as select K, Name, N * 2 as Twice from T;
    create view J as select T.K, Pair.Info from T join Pair on Pair.A = T.K;
)sql";

class ResultSet : public testing::Test
{
protected:
    ResultSet()
    {
        const QString path = m_folder.Path() + u"t.mdb"_s;
        sqlite3 *handle = nullptr;
        sqlite3_open(path.toUtf8().constData(), &handle);
        Execute(handle, Tables);
        sqlite3_close(handle);
        m_connection.Open(path);
    }
    std::unique_ptr<Recordset> Opened(const QString &sql, const QVariantList &values = {})
    {
        Command command(m_connection, sql);
        for (int at = 0; at < values.size(); ++at) command.Bind(at, values[at]);
        return command.Open();
    }
    QString Column(const QString &sql, QStringView column)
    {
        QStringList values;
        for (const auto set = Opened(sql); !set->Eof(); set->MoveNext())
            values += set->Value(column).isValid() ? set->Value(column).toString() : u"null"_s;
        return values.join(u' ');
    }
    std::unique_ptr<Recordset> OfValue(const QVariant &value) { return Opened(u"select ? as Value"_s, {value}); }
    TestFolder m_folder;
    Connection m_connection;
};
} // namespace

TEST_F(ResultSet, StandsOnItsFirstRowWhenOpened)
{
    const auto set = Opened(u"select * from T"_s);
    EXPECT_FALSE(set->Eof());
    EXPECT_EQ(set->Text(u"Name"), u"one"_s);
}

TEST_F(ResultSet, IsReadForwardToItsEnd)
{
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three"_s);
    const auto none = Opened(u"select * from T where K=0"_s);
    EXPECT_TRUE(none->Eof());
    EXPECT_THROW(none->MoveNext(), RuntimeError);
    EXPECT_THROW(none->Value(u"Name"), RuntimeError);
    EXPECT_THROW(none->MoveLast(), RuntimeError);
    EXPECT_THROW(none->SetValue(u"Name", u"x"_s), RuntimeError);
}

TEST_F(ResultSet, ReadsNoMoreRowsThanAreAskedFor)
{
    // The second row can't be computed; who only reads the first never meets it.
    const auto set = Opened(u"select abs(case K when 2 then -9223372036854775808 else K end) as A from T"_s);
    EXPECT_EQ(set->Long(u"A"), 1);
    EXPECT_THROW(set->MoveNext(), RuntimeError);
    EXPECT_TRUE(set->Eof());
}

TEST_F(ResultSet, NamesMatchWithoutRegardToCase)
{
    const auto set = Opened(u"select * from T"_s);
    for (const auto name : {u"Name", u"NAME", u"name", u"nAmE"}) EXPECT_EQ(set->Text(name), u"one"_s);
    EXPECT_THROW(set->Text(u"Nam"), RuntimeError);
    EXPECT_THROW(set->Text(u""), RuntimeError);
    EXPECT_THROW(set->Text(99), RuntimeError);
    EXPECT_THROW(set->Text(-1), RuntimeError);
}

TEST_F(ResultSet, GivesTheFourKinds)
{
    const auto set = Opened(u"select * from T where K=2"_s);
    EXPECT_EQ(set->Long(u"N"), 2);
    EXPECT_EQ(set->Date(u"D"), 2.5);
    EXPECT_EQ(set->Date(u"N"), 2.0);
    EXPECT_EQ(set->Text(u"N"), u"2"_s);
    EXPECT_TRUE(set->Flag(u"F"));
    EXPECT_EQ(set->Long(set->Column(u"N")), 2);
}

TEST_F(ResultSet, ANullIsAFailureToWhoAsksForAKindAndANullValueToOthers)
{
    const auto set = Opened(u"select * from T where K=3"_s);
    EXPECT_FALSE(set->Value(u"F").isValid());
    EXPECT_THROW(set->Long(u"F"), RuntimeError);
    EXPECT_THROW(set->Text(u"F"), RuntimeError);
    EXPECT_THROW(set->Date(u"F"), RuntimeError);
    EXPECT_THROW(set->Flag(u"F"), RuntimeError);
}

TEST_F(ResultSet, NumbersBeyond32BitsAreFailuresAndNeverWrap)
{
    const struct
    {
        qlonglong Value;
        bool Fits;
    } table[] = {{2147483647, true},
                 {-2147483648, true},
                 {2147483648, false},
                 {-2147483649, false},
                 {4294967296, false},
                 {std::numeric_limits<qlonglong>::max(), false},
                 {std::numeric_limits<qlonglong>::min(), false}};
    for (const auto &[value, fits] : table) {
        const auto set = OfValue(value);
        if (fits)
            EXPECT_EQ(set->Long(u"Value"), value);
        else
            EXPECT_THROW(set->Long(u"Value"), RuntimeError) << value;
        EXPECT_EQ(set->Value(u"Value").toLongLong(), value);
    }
    EXPECT_THROW(OfValue(3e9)->Long(u"Value"), RuntimeError);
    EXPECT_THROW(OfValue(std::numeric_limits<double>::infinity())->Long(u"Value"), RuntimeError);
}

TEST_F(ResultSet, AFractionInANumberColumnIsRoundedHalvesToEven)
{
    EXPECT_EQ(OfValue(2.5)->Long(u"Value"), 2);
    EXPECT_EQ(OfValue(3.5)->Long(u"Value"), 4);
}

TEST_F(ResultSet, TextInANumberColumnIsAFailure)
{
    Opened(u"update T set N = 'many', D = 'soon', F = 'perhaps' where K = 1"_s);
    const auto set = Opened(u"select * from T where K=1"_s);
    EXPECT_THROW(set->Long(u"N"), RuntimeError);
    EXPECT_THROW(set->Date(u"D"), RuntimeError);
    EXPECT_THROW(set->Flag(u"F"), RuntimeError);
    EXPECT_EQ(set->Text(u"N"), u"many"_s);
}

TEST_F(ResultSet, BytesInAnyColumnAreAFailureToWhoAsksForAnotherKind)
{
    const auto set = Opened(u"select x'00ff00' as B, x'' as E"_s);
    EXPECT_EQ(set->Value(u"B").toByteArray(), QByteArray("\0\xff\0", 3));
    EXPECT_TRUE(set->Value(u"E").isValid());
    EXPECT_THROW(set->Text(u"B"), RuntimeError);
    EXPECT_THROW(set->Long(u"B"), RuntimeError);
    EXPECT_THROW(set->Date(u"B"), RuntimeError);
}

TEST_F(ResultSet, TextComesBackWhateverCharactersItHas)
{
    const QString texts[] = {QString(),
                             u""_s,
                             u"Ann"_s,
                             u"a\0b"_s,
                             u"Ärger 記憶 🙂"_s,
                             u"O'Hara \"?\" ; --"_s,
                             QString(1000000, u'x')};
    for (const QString &text : texts) {
        const auto added = Opened(u"select * from T where K=0"_s);
        added->AddNew();
        added->SetValue(u"Name", text);
        added->MoveLast();
        EXPECT_EQ(added->Text(u"Name"), text);
        EXPECT_EQ(Opened(u"select * from T where K=?"_s, {added->Long(u"K")})->Text(u"Name"), text);
    }
}

TEST_F(ResultSet, TextThatIsNotUtf8IsReadAsTheTextOfAFile)
{
    Opened(u"update T set Name = cast(x'c4726765720041' as text) where K = 1"_s);
    EXPECT_EQ(Opened(u"select * from T where K=1"_s)->Text(u"Name"), u"Ärger\0A"_s);
}

TEST_F(ResultSet, DayCountsComeBackBitForBit)
{
    for (const double days : {46347.0 + 1.0 / 3, 46347.999988425926, -1.25, 0.1, 1e300, 4e-324}) {
        const auto set = Opened(u"select * from T where K=1"_s);
        set->SetValue(u"D", days);
        set->Update();
        EXPECT_EQ(Opened(u"select * from T where K=1"_s)->Date(u"D"), days);
    }
}

TEST_F(ResultSet, WhatTheStoreCannotHoldIsAFailure)
{
    EXPECT_THROW(OfValue(std::nan("")), RuntimeError) << "the engine would make a null of it";
    EXPECT_THROW(OfValue(std::numeric_limits<qulonglong>::max()), RuntimeError);
    EXPECT_THROW(OfValue(QVariant(QStringList{u"a"_s})), RuntimeError);
    EXPECT_FALSE(OfValue(QVariant())->Value(u"Value").isValid());
    EXPECT_FALSE(OfValue(QVariant::fromValue(nullptr))->Value(u"Value").isValid());
    EXPECT_EQ(OfValue(true)->Long(u"Value"), 1);
    EXPECT_EQ(OfValue(4000000000U)->Value(u"Value").toLongLong(), 4000000000LL);
}

TEST_F(ResultSet, ValuesAreBoundAndNeverBecomePartOfTheText)
{
    const QString hostile = u"'; delete from T; --"_s;
    EXPECT_TRUE(Opened(u"select * from T where Name=?"_s, {hostile})->Eof());
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three"_s);
}

TEST_F(ResultSet, ASetValueIsSeenBeforeItIsWritten)
{
    const auto set = Opened(u"select * from T"_s);
    set->SetValue(u"Name", u"uno"_s);
    set->SetValue(u"NAME", u"eins"_s);
    EXPECT_EQ(set->Text(u"Name"), u"eins"_s);
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three"_s);
    set->Update();
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"eins two three"_s);
}

TEST_F(ResultSet, AnUpdateChangesItsRowAloneAndWritesNulls)
{
    const auto set = Opened(u"select * from T"_s);
    set->MoveNext();
    set->SetValue(u"Name", QVariant());
    set->Update();
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one null three"_s);
    set->MoveNext();
    EXPECT_EQ(set->Text(u"Name"), u"three"_s);
}

TEST_F(ResultSet, WhatWasSetAndNeverWrittenIsLost)
{
    Opened(u"select * from T"_s)->SetValue(u"Name", u"uno"_s);
    const auto set = Opened(u"select * from T"_s);
    set->AddNew();
    set->Close();
    EXPECT_THROW(set->Eof(), RuntimeError);
    EXPECT_THROW(set->Update(), RuntimeError);
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three"_s);
}

TEST_F(ResultSet, GoingOnWritesWhatWasSet)
{
    const auto set = Opened(u"select * from T"_s);
    for (; !set->Eof(); set->MoveNext()) set->SetValue(u"N", set->Long(u"N") * 10);
    EXPECT_EQ(Column(u"select * from T"_s, u"N"), u"10 20 30"_s);
}

TEST_F(ResultSet, AChangedRowIsNeverMetAgain)
{
    // Walked by an index on what is being changed: without care the rows would run ahead of the walk for ever.
    int steps = 0;
    for (const auto set = Opened(u"select * from T where N > 0 order by N"_s); !set->Eof(); set->MoveNext()) {
        ASSERT_LE(++steps, 3);
        set->SetValue(u"N", set->Long(u"N") + 100);
        set->Update();
    }
    EXPECT_EQ(Column(u"select * from T"_s, u"N"), u"101 102 103"_s);
}

TEST_F(ResultSet, RowsThatAnotherSetDeletesMeanwhileAreAFailureOfTheirUpdateAlone)
{
    const auto set = Opened(u"select * from T"_s);
    Opened(u"delete from T where K = 1"_s);
    set->SetValue(u"Name", u"uno"_s);
    EXPECT_THROW(set->Update(), RuntimeError);
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"two three"_s);
}

TEST_F(ResultSet, AddNewBeginsAnEmptyRowAndUpdateStoresIt)
{
    const auto set = Opened(u"select * from T where K=0"_s);
    set->AddNew();
    EXPECT_FALSE(set->Eof());
    EXPECT_FALSE(set->Value(u"Name").isValid());
    set->SetValue(u"Name", u"four"_s);
    set->Update();
    EXPECT_EQ(set->Long(u"K"), 4);
    EXPECT_EQ(set->Long(u"F"), 7) << "the table's default";
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three four"_s);
}

TEST_F(ResultSet, MoveLastStoresTheAddedRowOnceAndStandsOnIt)
{
    const auto set = Opened(u"select * from T"_s);
    set->AddNew();
    set->SetValue(u"Name", u"four"_s);
    set->MoveLast();
    EXPECT_EQ(set->Long(u"K"), 4);
    set->MoveLast();
    set->Update();
    EXPECT_EQ(set->Text(u"Name"), u"four"_s);
    set->MoveNext();
    EXPECT_TRUE(set->Eof());
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three four"_s);
}

TEST_F(ResultSet, MoveLastWithoutAnAddedRowGoesToTheLastOne)
{
    const auto set = Opened(u"select * from T"_s);
    set->MoveLast();
    EXPECT_EQ(set->Text(u"Name"), u"three"_s);
    set->MoveNext();
    EXPECT_TRUE(set->Eof());
}

TEST_F(ResultSet, AddNewTwiceStoresBothRows)
{
    const auto set = Opened(u"select * from T where K=0"_s);
    set->AddNew();
    set->SetValue(u"Name", u"four"_s);
    set->AddNew();
    EXPECT_FALSE(set->Value(u"Name").isValid()) << "nothing is carried over";
    set->Update();
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three four null"_s);
}

TEST_F(ResultSet, AChangedRowAfterBeingAddedIsStillTheSameRow)
{
    const auto set = Opened(u"select * from T where K=0"_s);
    set->AddNew();
    set->SetValue(u"Name", u"four"_s);
    set->MoveLast();
    set->SetValue(u"Name", u"vier"_s);
    set->Update();
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three vier"_s);
}

TEST_F(ResultSet, AKeyOfTwoColumnsFindsItsRowAlsoWhenItIsSetAnew)
{
    const auto added = Opened(u"select * from Pair where A=? and B=?"_s, {1, 2});
    added->AddNew();
    added->SetValue(u"A", 1);
    added->SetValue(u"B", 2);
    added->Update();
    const auto changed = Opened(u"select * from Pair where A=? and B=?"_s, {1, 2});
    changed->SetValue(u"A", 5);
    changed->SetValue(u"B", 2);
    changed->SetValue(u"Info", u"x"_s);
    changed->Update();
    EXPECT_EQ(Column(u"select A || B || Info as All3 from Pair"_s, u"All3"), u"52x"_s);
}

TEST_F(ResultSet, AFailedWriteLeavesTheRowAsItWasAndCanBeTriedAgain)
{
    const auto set = Opened(u"select * from T where K=1"_s);
    set->SetValue(u"Name", u"uno"_s);
    m_connection.BeforeCall = [](const QString &) { throw RuntimeError(u"Made to fail."_s); };
    EXPECT_THROW(set->Update(), RuntimeError);
    m_connection.BeforeCall = {};
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three"_s);
    set->Update();
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"uno two three"_s);
}

TEST_F(ResultSet, AFailedAddAddsNothing)
{
    const auto set = Opened(u"select * from T where K=0"_s);
    set->AddNew();
    set->SetValue(u"K", 1);
    EXPECT_THROW(set->MoveLast(), RuntimeError) << "the key is taken";
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one two three"_s);
}

TEST_F(ResultSet, SetsOfJoinsOfComputedColumnsAndOfTablesWithoutAKeyCannotBeWritten)
{
    Opened(u"insert into Pair values (1, 1, 'a')"_s);
    Opened(u"insert into Loose values (1, 1)"_s);
    EXPECT_THROW(Opened(u"select * from J"_s)->AddNew(), RuntimeError);
    EXPECT_THROW(Opened(u"select * from Loose"_s)->AddNew(), RuntimeError);
    EXPECT_THROW(Opened(u"select Name from T"_s)->AddNew(), RuntimeError) << "the key is missing";
    EXPECT_THROW(Opened(u"select 1 as One"_s)->AddNew(), RuntimeError);
    EXPECT_THROW(Opened(u"select * from V"_s)->SetValue(u"Twice", 4), RuntimeError);
    EXPECT_THROW(Opened(u"delete from Loose"_s)->AddNew(), RuntimeError);
}

TEST_F(ResultSet, APlainViewOfOneTableCanBeWritten)
{
    const auto set = Opened(u"select * from V"_s);
    set->SetValue(u"Name", u"uno"_s);
    set->Update();
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"uno two three"_s);
}

TEST_F(ResultSet, AStatementThatChangesTheStoreIsRunWhenOpened)
{
    const auto set = Opened(u"delete from T where K=?"_s, {2});
    EXPECT_TRUE(set->Eof());
    EXPECT_EQ(Column(u"select * from T"_s, u"Name"), u"one three"_s);
}

TEST_F(ResultSet, ACommandIsUsedUpByRunning)
{
    Command command(m_connection, u"select * from T"_s);
    EXPECT_NE(command.Open(), nullptr);
    EXPECT_THROW(command.Open(), RuntimeError);
    EXPECT_THROW(Command(m_connection, u"select ?"_s).Bind(1, 1), RuntimeError);
}

TEST_F(ResultSet, NamesWithQuotesAreNoDanger)
{
    Execute(m_connection.Handle(), "create table \"a\"\"b\" (\"k\"\"?\" integer primary key, \"select\" text)");
    const auto set = Opened(u"select * from \"a\"\"b\""_s);
    set->AddNew();
    set->SetValue(u"select", u"x"_s);
    set->MoveLast();
    EXPECT_EQ(set->Long(u"k\"?"), 1);
}
