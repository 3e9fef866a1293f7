// The delivered store: its tables, its stored query, and the order of names.
#include "domain/Store.h"
#include "platform/store/Recordset.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{
class Schema : public testing::Test
{
protected:
    void Result(int player, int game, double timestamp, const QVariant &mode = 1) const
    {
        m_store.Ask(u"insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedMode) "
                    "values (?, ?, ?, ?)"_s,
                    {player, game, timestamp, mode});
    }
    void Game(const QString &name, const QVariant &category) const
    {
        m_store.Ask(u"insert into Game (GameName, GameCategory) values (?, ?)"_s, {name, category});
    }
    QString Newest(int category, int player) const
    {
        return m_store.Ask(
            u"select GameKey, GamePlayedKey from (select * from qryGamePlayed where GameCategory=? and "
            "GamePlayedPlayer=?)"_s,
            {category, player});
    }
    // The first column of every row, by the program's own connection.
    static QString Listed(const QString &sql, QStringView column, const QVariantList &params = {})
    {
        const auto set = modMain::GetRecordset(sql, params);
        QStringList values;
        for (; !set->Eof(); set->MoveNext()) values += set->Value(column).toString();
        return values.join(u", "_s);
    }
    TestStore m_store;
};
const QString ByCategory = u"select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=?"_s;
} // namespace

TEST_F(Schema, IsDeliveredEmpty)
{
    for (const QString &table :
         {u"Player"_s, u"Category"_s, u"Game"_s, u"GamePlayed"_s, u"PlayerGame"_s, u"Workout"_s})
        EXPECT_EQ(m_store.Ask(u"select count(*) from "_s + table), u"0"_s) << qPrintable(table);
    EXPECT_EQ(m_store.Ask(u"select count(*) from qryGamePlayed"_s), u"0"_s);
}

TEST_F(Schema, KeysAreNeverGivenTwice)
{
    for (const QString &table : {u"Player"_s, u"Category"_s, u"Game"_s, u"GamePlayed"_s, u"Workout"_s})
        EXPECT_EQ(m_store.Ask(u"select count(*) from sqlite_master where name = ? and sql like '%autoincrement%'"_s,
                              {table}),
                  u"1"_s)
            << qPrintable(table);
}

TEST_F(Schema, JournalAndSynchronisationAreSafeAgainstPowerLoss)
{
    EXPECT_EQ(Listed(u"pragma journal_mode"_s, u"journal_mode"), u"delete"_s);
    EXPECT_EQ(Listed(u"pragma synchronous"_s, u"synchronous"), u"2"_s);
}

TEST_F(Schema, TheStoredQueryHasItsNewestResultFirst)
{
    Game(u"Sums"_s, 7);
    Result(1, 1, 46000.5);
    Result(1, 1, 46002.5);
    Result(1, 1, 46001.5);
    EXPECT_EQ(Listed(ByCategory, u"GamePlayedKey", {7, 1}), u"2, 3, 1"_s);
}

TEST_F(Schema, OfTwoResultsOfOneSecondTheOneAddedLaterIsTheNewest)
{
    Game(u"Sums"_s, 7);
    Game(u"Pairs"_s, 7);
    Result(1, 2, 46000.5);
    Result(1, 1, 46000.5);
    EXPECT_EQ(Listed(ByCategory, u"GameKey", {7, 1}), u"1, 2"_s);
}

TEST_F(Schema, AnOrderOfTheStatementsOwnPrevails)
{
    Game(u"Sums"_s, 7);
    Result(1, 1, 46001.5);
    Result(1, 1, 46000.5, 3);
    Result(1, 1, 46002.5);
    EXPECT_EQ(Listed(ByCategory + u" order by GamePlayedTimestamp"_s, u"GamePlayedKey", {7, 1}), u"2, 1, 3"_s);
    EXPECT_EQ(
        Listed(ByCategory + u" and GamePlayedMode=? order by GamePlayedTimestamp"_s, u"GamePlayedKey", {7, 1, 1}),
        u"1, 3"_s);
}

TEST_F(Schema, TheStoredQueryKeepsPlayersAndCategoriesApart)
{
    Game(u"Sums"_s, 7);
    Game(u"Words"_s, 8);
    Result(1, 1, 46000.5);
    Result(1, 2, 46001.5);
    Result(2, 1, 46002.5);
    EXPECT_EQ(Newest(7, 1), u"1|1"_s);
    EXPECT_EQ(Newest(8, 1), u"2|2"_s);
    EXPECT_EQ(Newest(8, 2), QString());
}

TEST_F(Schema, AResultFollowsItsGameIntoAnotherCategory)
{
    Game(u"Sums"_s, 7);
    Result(1, 1, 46000.5);
    m_store.Ask(u"update Game set GameCategory = 8"_s);
    EXPECT_EQ(Newest(7, 1), QString());
    EXPECT_EQ(Newest(8, 1), u"1|1"_s);
}

TEST_F(Schema, AResultThatChangesIsFoundWhereItBelongsNow)
{
    Game(u"Sums"_s, 7);
    Game(u"Words"_s, 8);
    Result(1, 1, 46000.5);
    m_store.Ask(u"update GamePlayed set GamePlayedGame = 2, GamePlayedPlayer = 5, GamePlayedTimestamp = 46009"_s);
    EXPECT_EQ(Newest(7, 1), QString());
    EXPECT_EQ(Listed(ByCategory, u"GamePlayedTimestamp", {8, 5}), u"46009"_s);
}

TEST_F(Schema, AResultWithoutAGameRowAppearsOnceTheGameIsThere)
{
    Result(1, 1, 46000.5);
    EXPECT_EQ(m_store.Ask(u"select count(*) from qryGamePlayed"_s), u"0"_s);
    Game(u"Sums"_s, 7);
    EXPECT_EQ(Newest(7, 1), u"1|1"_s);
}

TEST_F(Schema, ADeletedResultIsGoneFromTheStoredQuery)
{
    Game(u"Sums"_s, 7);
    Result(1, 1, 46000.5);
    m_store.Ask(u"delete from GamePlayed"_s);
    EXPECT_EQ(
        m_store.Ask(u"select (select count(*) from qryGamePlayed), (select count(*) from GamePlayedCategory)"_s),
        u"0|0"_s);
}

TEST_F(Schema, TheStoredQueryIsTheJoinOfResultsAndGames)
{
    for (int game = 1; game <= 5; ++game) Game(QString::number(game), game == 5 ? QVariant() : QVariant(game % 2));
    for (int n = 0; n < 60; ++n) Result(n % 3, n % 7, 46000 + (n * 7) % 11, n % 2);
    m_store.Ask(u"update Game set GameCategory = 9 where GameKey = 2"_s);
    m_store.Ask(u"delete from GamePlayed where GamePlayedKey % 8 = 0"_s);
    m_store.Ask(u"update GamePlayed set GamePlayedGame = 3 where GamePlayedKey % 9 = 0"_s);
    const QString columns =
        u"GameKey, GameCategory, GamePlayedPlayer, GamePlayedMode, GamePlayedTimestamp, GamePlayedKey"_s;
    EXPECT_EQ(m_store.Ask(u"select "_s + columns + u" from qryGamePlayed"_s),
              m_store.Ask(u"select "_s + columns +
                          u" from GamePlayed join Game on GamePlayedGame = GameKey order by "
                          "GamePlayedTimestamp desc, GamePlayedKey desc"_s));
}

TEST_F(Schema, NamesOfColumnsAndTablesAreFoundWithoutRegardToCase)
{
    m_store.Ask(u"insert into Workout (WorkoutPlayer) values (4)"_s);
    EXPECT_EQ(Listed(u"SELECT * FROM wORKOUT where WorkOutPlayer=?"_s, u"workoutPLAYER", {4}), u"4"_s);
}

TEST_F(Schema, NamesSortWithoutRegardToCaseAndZzzComesLast)
{
    for (const QString &name : {u"zzz"_s, u"Zoo"_s, u"apple"_s, u"Ärger"_s, u"Память"_s, u"Bücher"_s, u"zzzz"_s,
                                u"Apex"_s, u"Bucht"_s, u"記憶"_s})
        m_store.Ask(u"insert into Category (CategoryName) values (?)"_s, {name});
    EXPECT_EQ(Listed(u"select * from Category order by CategoryName"_s, u"CategoryName"),
              u"Apex, apple, Ärger, Bücher, Bucht, Zoo, zzzz, Память, 記憶, zzz"_s);
}

TEST_F(Schema, GamesSortByNameTheSameWay)
{
    for (const QString &name : {u"sums"_s, u"Éclair"_s, u"Echo"_s, u"Sails"_s}) Game(name, 1);
    EXPECT_EQ(Listed(u"select * from Game order by GameName"_s, u"GameName"), u"Echo, Éclair, Sails, sums"_s);
}

TEST_F(Schema, WorkoutsOfOneDayComeInTheOrderTheyWereMade)
{
    for (const double day : {46001.0, 46000.0, 46001.0})
        m_store.Ask(u"insert into Workout (WorkoutPlayer, WorkoutTimestamp) values (1, ?)"_s, {day});
    EXPECT_EQ(Listed(u"select * from Workout where WorkOutPlayer=? order by WorkoutTimestamp"_s, u"WorkoutKey", {1}),
              u"2, 1, 3"_s);
}

TEST_F(Schema, BestResultsComeByScoreThenShorterTimeThenEarlier)
{
    const auto result = [this](int score, int time, double timestamp) {
        m_store.Ask(u"insert into GamePlayed (GamePlayedGame, GamePlayedLevel, GamePlayedMode, GamePlayedScore, "
                    "GamePlayedTime, GamePlayedTimestamp) values (1, 1, 3, ?, ?, ?)"_s,
                    {score, time, timestamp});
    };
    result(10, 5, 46000);
    result(20, 9, 46000);
    result(20, 5, 46002);
    result(20, 5, 46001);
    result(-1, 1, 46001);
    EXPECT_EQ(
        Listed(u"select * from GamePlayed where GamePlayedGame=? and GamePlayedLevel=? and GamePlayedMode=? order by "
               "GamePlayedScore desc, GamePlayedTime, gamePlayedTimestamp"_s,
               u"GamePlayedKey", {1, 1, 3}),
        u"4, 3, 2, 1, 5"_s);
}

TEST_F(Schema, APlainToolOfTheEngineReadsAndSortsTheFile)
{
    m_store.Ask(u"insert into Category (CategoryName) values ('b'), ('A')"_s);
    QProcess tool;
    tool.start(u"sqlite3"_s, {m_store.Path(), u"select CategoryName from Category order by CategoryName"_s});
    ASSERT_TRUE(tool.waitForFinished(30000));
    EXPECT_EQ(QString::fromUtf8(tool.readAllStandardOutput()).trimmed(), u"A\nb"_s);
}
