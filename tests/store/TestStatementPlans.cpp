// Every statement that the records send costs no more for the rows of other players and other games: each goes by key
// or by an index, and the long lists come out of the index in their order.
#include "domain/Store.h"
#include "platform/store/Statement.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{
QString Plan(const QString &sql)
{
    Statement explain(modMain::GetConnection().Handle(), u"explain query plan "_s + sql);
    QStringList lines;
    while (explain.Step()) lines += explain.Text(3);
    return lines.join(u"; "_s);
}

struct Expected
{
    QStringView Sql;
    QStringView Plan;
};

class StatementPlans : public testing::Test
{
protected:
    static constexpr QStringView ResultByCategory =
        u"SEARCH GamePlayedCategory USING COVERING INDEX GamePlayedByCategory (ResultPlayer=? AND ResultCategory=?); "
        u"SEARCH GamePlayed USING INTEGER PRIMARY KEY (rowid=?); SEARCH Game USING INTEGER PRIMARY KEY (rowid=?)";
    TestStore m_store;
};
} // namespace

TEST_F(StatementPlans, EachStatementReadsItsOwnRowsAlone)
{
    const Expected table[] = {
        {u"select * from Player where PlayerKey=?", u"SEARCH Player USING INTEGER PRIMARY KEY (rowid=?)"},
        {u"delete from Player where PlayerKey=?", u"SEARCH Player USING INTEGER PRIMARY KEY (rowid=?)"},
        {u"select * from Category where CategoryKey=?", u"SEARCH Category USING INTEGER PRIMARY KEY (rowid=?)"},
        {u"select * from Game where GameCategory=? order by GameName",
         u"SEARCH Game USING INDEX GameByCategory (GameCategory=?); USE TEMP B-TREE FOR ORDER BY"},
        {u"select * from Game where GameKey=?", u"SEARCH Game USING INTEGER PRIMARY KEY (rowid=?)"},
        {u"select * from GamePlayed where GamePlayedKey=?", u"SEARCH GamePlayed USING INTEGER PRIMARY KEY (rowid=?)"},
        {u"select * from GamePlayed where GamePlayedWorkout=? order by GamePlayedTimestamp",
         u"SEARCH GamePlayed USING INDEX GamePlayedByWorkout (GamePlayedWorkout=?)"},
        {u"select GamePlayedWorkout, GamePlayedGame, GamePlayedPoints from Workout cross join GamePlayed on "
         u"GamePlayedWorkout=WorkoutKey where WorkoutPlayer=? order by WorkoutTimestamp, WorkoutKey, "
         u"GamePlayedTimestamp, GamePlayedKey",
         u"SEARCH Workout USING COVERING INDEX WorkoutByPlayer (WorkoutPlayer=?); SEARCH GamePlayed USING COVERING "
         u"INDEX GamePlayedByWorkout (GamePlayedWorkout=?)"},
        {u"select * from GamePlayed where GamePlayedPlayer=? order by GamePlayedTimestamp",
         u"SEARCH GamePlayed USING INDEX GamePlayedByPlayer (GamePlayedPlayer=?)"},
        {u"select * from GamePlayed where GamePlayedGame=? and GamePlayedLevel=? and GamePlayedMode=? order by "
         u"GamePlayedScore desc, GamePlayedTime, gamePlayedTimestamp",
         u"SEARCH GamePlayed USING INDEX GamePlayedBest (GamePlayedGame=? AND GamePlayedLevel=? AND "
         u"GamePlayedMode=?)"},
        {u"select * from PlayerGame where PlayerGamePlayer=?",
         u"SEARCH PlayerGame USING INDEX sqlite_autoindex_PlayerGame_1 (PlayerGamePlayer=?)"},
        {u"select * from PlayerGame where PlayerGamePlayer=? and PlayerGameGame=?",
         u"SEARCH PlayerGame USING INDEX sqlite_autoindex_PlayerGame_1 (PlayerGamePlayer=? AND PlayerGameGame=?)"},
        {u"select * from Workout where WorkOutPlayer=? order by WorkoutTimestamp",
         u"SEARCH Workout USING INDEX WorkoutByPlayer (WorkoutPlayer=?)"},
        {u"select * from Workout where WorkoutKey=?", u"SEARCH Workout USING INTEGER PRIMARY KEY (rowid=?)"},
        {u"select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=?", ResultByCategory},
        {u"select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=? order by GamePlayedTimestamp",
         ResultByCategory},
        {u"select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=? and GamePlayedMode=? order by "
         u"GamePlayedTimestamp",
         ResultByCategory},
    };
    for (const Expected &row : table) EXPECT_EQ(Plan(row.Sql.toString()), row.Plan) << qPrintable(row.Sql.toString());
}

TEST_F(StatementPlans, WholeTablesAreReadOnlyWhereAllOfThemIsWanted)
{
    EXPECT_EQ(Plan(u"select * from Player"_s), u"SCAN Player"_s);
    EXPECT_EQ(Plan(u"select * from Category order by CategoryName"_s),
              u"SCAN Category; USE TEMP B-TREE FOR ORDER BY"_s);
    EXPECT_EQ(Plan(u"select * from Game order by GameName"_s), u"SCAN Game; USE TEMP B-TREE FOR ORDER BY"_s);
}

TEST_F(StatementPlans, NoIndexHoldsANameSinceOtherToolsOrderNamesOtherwise)
{
    EXPECT_EQ(
        m_store.Ask(u"select i.name from sqlite_master t, pragma_index_list(t.name) l, pragma_index_xinfo(l.name) i "
                    "where t.type = 'table' and i.key = 1 and i.coll <> 'BINARY'"_s),
        QString());
}
