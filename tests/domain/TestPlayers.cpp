#include "DomainTest.h"
#include "domain/Store.h"

namespace
{
class Players : public DomainTest
{
protected:
    Players() { Start(); }
};
} // namespace

TEST_F(Players, ASavedPlayerHoldsTheKeyThatTheStoreGave)
{
    CPlayer ann;
    ann.Name = QStringLiteral("Ann");
    ann.Save();
    EXPECT_EQ(StoredOne(QStringLiteral("select PlayerKey, PlayerName from Player")),
              QStringLiteral("%1|Ann").arg(ann.Key));
    EXPECT_NE(ann.Key, 0);
}

TEST_F(Players, SavingAgainRenamesTheRow)
{
    const auto player = modMain::Players->Add();
    player->Name = QStringLiteral("Zoë 🙂");
    player->Save();
    EXPECT_EQ(StoredOne(QStringLiteral("select PlayerName from Player")), QStringLiteral("Zoë 🙂"));
}

TEST_F(Players, ANewPlayerIsNamedAfterThePresentCount)
{
    for (int i = 1; i <= 4; ++i) modMain::Players->Add();
    EXPECT_EQ(modMain::Players->Item(4)->Name, u"Player 4");
}

TEST_F(Players, NamesAreNotMadeUnique)
{
    for (int i = 1; i <= 4; ++i) modMain::Players->Add();
    modMain::Players->Remove(2);
    EXPECT_EQ(modMain::Players->Add()->Name, u"Player 4");
    EXPECT_EQ(Stored(QStringLiteral("select PlayerName from Player")),
              QStringList({QStringLiteral("Player 1"), QStringLiteral("Player 3"), QStringLiteral("Player 4"),
                           QStringLiteral("Player 4")}));
}

TEST_F(Players, ItemTakesTheBareKeyAndNotThePosition)
{
    for (int i = 1; i <= 3; ++i) modMain::Players->Add();
    modMain::Players->Remove(1);
    EXPECT_EQ(modMain::Players->Item(3)->Name, u"Player 3");
    EXPECT_THROW(modMain::Players->Item(1), ListError);
    EXPECT_EQ(modMain::Players->Find(1), nullptr);
}

TEST_F(Players, RemovingAKeyThatIsNotThereFailsAndDeletesNothing)
{
    modMain::Players->Add();
    EXPECT_THROW(modMain::Players->Remove(7), ListError);
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*) from Player")), u"1");
}

TEST_F(Players, TheKeyOfARemovedPlayerIsNeverGivenAgain)
{
    const std::int32_t gone = modMain::Players->Add()->Key;
    modMain::Players->Remove(gone);
    EXPECT_GT(modMain::Players->Add()->Key, gone);
}

TEST_F(Players, LoadReplacesTheList)
{
    modMain::Players->Add();
    m_store.Ask(QStringLiteral("insert into Player (PlayerName) values ('Bob')"));
    modMain::Players->Load();
    EXPECT_EQ(modMain::Players->Count(), 2);
    EXPECT_EQ(modMain::Players->Item(2)->Name, u"Bob");
}

TEST_F(Players, APlayerWhoseRowHasGoneIsAddedAgainAndKeepsTheOldKey)
{
    const auto player = modMain::Players->Add();
    m_store.Ask(QStringLiteral("delete from Player"));
    player->Save();
    EXPECT_EQ(player->Key, 1);
    EXPECT_EQ(StoredOne(QStringLiteral("select PlayerKey from Player")), u"2");
}

TEST_F(Players, APlayerWithoutResultsHasAnEmptyCollection)
{
    EXPECT_EQ(modMain::Players->Add()->GamesPlayed().Count(), 0);
}

TEST_F(Players, TheCollectionsAreLoadedOnceAndKept)
{
    const auto player = modMain::Players->Add();
    colGamePlayed &results = player->GamesPlayed();
    m_store.Ask(
        QStringLiteral("insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, "
                       "GamePlayedScore, GamePlayedPoints, GamePlayedTime, GamePlayedLevel) values (1,1,1,1,1,1,1)"));
    EXPECT_EQ(&player->GamesPlayed(), &results);
    EXPECT_EQ(results.Count(), 0);
    EXPECT_EQ(&player->Workouts(), &player->Workouts());
    EXPECT_EQ(&player->GameData(), &player->GameData());
}

TEST_F(Players, AResultAddedThroughAPlayerStandsInTheListOnce)
{
    const auto player = modMain::Players->Add();
    player->GamesPlayed().Add(player->Key, 1, 10, 5, 10, 3, 1, 0);
    EXPECT_EQ(player->GamesPlayed().Count(), 1);
}

TEST_F(Players, AResultOfAWorkoutDoesNotShowInAListThatWasLoadedBefore)
{
    const auto player = modMain::Players->Add();
    EXPECT_EQ(player->GamesPlayed().Count(), 0);
    player->Workouts().Add()->GamesPlayed().Add(player->Key, 1, 10, 5, 10, 1, 1, 0);
    EXPECT_EQ(player->GamesPlayed().Count(), 0);
    StartAgain();
    EXPECT_EQ(modMain::Players->Item(1)->GamesPlayed().Count(), 1);
}

TEST_F(Players, DeletingAPlayerLeavesResultsStatesAndWorkoutsInTheStore)
{
    const auto player = modMain::Players->Add();
    player->Workouts().Add()->GamesPlayed().Add(player->Key, 1, 10, 5, 10, 1, 1, 0);
    player->GameData().Item(1);
    modMain::Players->Remove(player->Key);
    EXPECT_EQ(StoredOne(QStringLiteral("select (select count(*) from Player), (select count(*) from GamePlayed), "
                                       "(select count(*) from PlayerGame), (select count(*) from Workout)")),
              u"0|1|1|1");
}

TEST_F(Players, AListThatCouldNotBeLoadedIsKeptEmpty)
{
    const auto player = modMain::Players->Add();
    {
        const FailingCall first(m_store, 1);
        EXPECT_THROW(player->GamesPlayed(), RuntimeError);
    }
    EXPECT_EQ(player->GamesPlayed().Count(), 0);
}

TEST_F(Players, StatesThatCouldNotBeLoadedAreLoadedAtTheNextQuestion)
{
    const auto player = modMain::Players->Add();
    m_store.Ask(QStringLiteral(
        "insert into PlayerGame (PlayerGamePlayer, PlayerGameGame, PlayerGameLevel) values (1, 7, 5)"));
    {
        const FailingCall first(m_store, 1);
        EXPECT_THROW(player->GameData(), RuntimeError);
    }
    EXPECT_EQ(player->GameData().Item(7)->Level(), 5);
    EXPECT_EQ(StoredOne(QStringLiteral("select PlayerGameLevel from PlayerGame")), u"5");
}

namespace
{
class Awards : public DomainTest
{
protected:
    Awards()
    {
        GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory"});
        GivenGame(QStringLiteral("beacons"), {"Beacons", "Memory"});
        GivenGame(QStringLiteral("sums"), {"Sums", "Numbers"});
        Start();
        m_ann = GivenCurrentPlayer();
        m_memory = modMain::Categories->CategoryByName(QStringLiteral("Memory"));
    }
    std::shared_ptr<CPlayer> m_ann;
    std::shared_ptr<CCategory> m_memory;
};
} // namespace

TEST_F(Awards, AreSummedOverTheGamesOfTheCategory)
{
    m_ann->GameData().Item(Game(QStringLiteral("Arrows"))->Key)->AddAward(4);
    m_ann->GameData().Item(Game(QStringLiteral("Beacons"))->Key)->AddAward(1);
    m_ann->GameData().Item(Game(QStringLiteral("Sums"))->Key)->AddAward(9);
    EXPECT_EQ(m_ann->Awards(*m_memory), 5);
}

TEST_F(Awards, AreThoseOfThePlayerAtTheMachineWhoeverIsAsked)
{
    m_ann->GameData().Item(Game(QStringLiteral("Arrows"))->Key)->AddAward(4);
    EXPECT_EQ(modMain::Players->Add()->Awards(*m_memory), 4);
}

TEST_F(Awards, AskingForThemMakesARowForEachGameOfTheCategory)
{
    EXPECT_EQ(m_ann->Awards(*m_memory), 0);
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*), min(PlayerGamePlayer) from PlayerGame")), u"2|1");
}

TEST_F(Awards, WithoutAPlayerAtTheMachineIsAFailure)
{
    modMain::CurrentPlayer.reset();
    EXPECT_THROW(m_ann->Awards(*m_memory), RuntimeError);
}
