#include "DomainTest.h"

namespace
{
class States : public DomainTest
{
protected:
    States()
    {
        GivenGame(QStringLiteral("three"), {"Three", "Memory", "0", "levels=3"});
        Start();
        m_ann = GivenCurrentPlayer();
        m_three = Game(QStringLiteral("Three"))->Key;
    }
    QString Rows() const
    {
        return StoredOne(QStringLiteral("select PlayerGamePlayer, PlayerGameGame, PlayerGameInfo, PlayerGameLevel, "
                                        "PlayerGameAwards, PlayerGameUnspentAwards from PlayerGame"));
    }
    std::shared_ptr<CPlayer> m_ann;
    std::int32_t m_three = 0;
};
} // namespace

TEST_F(States, OfAGameNeverPlayedIsMadeWithItsRow)
{
    const auto state = m_ann->GameData().Item(m_three);
    EXPECT_EQ(state->Player, m_ann->Key);
    EXPECT_EQ(state->Game, m_three);
    EXPECT_EQ(state->Level(), 1);
    EXPECT_EQ(state->Awards, 0);
    EXPECT_EQ(state->UnspentAwards, 0);
    EXPECT_EQ(state->GameData, QString());
    EXPECT_EQ(Rows(), QStringLiteral("%1|%2||1|0|0").arg(m_ann->Key).arg(m_three));
}

TEST_F(States, AskedForTwiceAreOneRowAndOneObject)
{
    const auto state = m_ann->GameData().Item(m_three);
    EXPECT_EQ(m_ann->GameData().Item(m_three), state);
    EXPECT_EQ(m_ann->GameData().Count(), 1);
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*) from PlayerGame")), u"1");
}

TEST_F(States, SavedTwiceForOnePairLeaveOneRow)
{
    CPlayerGame one;
    one.Player = 1;
    one.Game = 7;
    one.Save();
    CPlayerGame other = one;
    other.Awards = 3;
    other.Save();
    EXPECT_EQ(Rows(), u"1|7||1|3|0");
}

TEST_F(States, OfTwoPlayersInOneGameAreTwoRows)
{
    m_ann->GameData().Item(m_three);
    modMain::Players->Add()->GameData().Item(m_three);
    EXPECT_EQ(Stored(QStringLiteral("select PlayerGamePlayer from PlayerGame order by 1")),
              QStringList({QStringLiteral("1"), QStringLiteral("2")}));
}

TEST_F(States, ComeBackAsTheyWereSaved)
{
    const auto state = m_ann->GameData().Item(m_three);
    state->GameData = QStringLiteral("a|b");
    state->SetLevel(2);
    state->Awards = 5;
    state->UnspentAwards = 1;
    state->Save();
    StartAgain();
    const auto again = modMain::Players->Item(1)->GameData().Item(m_three);
    EXPECT_EQ(again->GameData, u"a|b");
    EXPECT_EQ(again->Level(), 2);
    EXPECT_EQ(again->Awards, 5);
    EXPECT_EQ(again->UnspentAwards, 1);
}

TEST_F(States, ALevelWrittenAsZeroIsOne)
{
    CPlayerGame state;
    state.SetLevel(0);
    EXPECT_EQ(state.Level(), 1);
    state.SetLevel(-2);
    EXPECT_EQ(state.Level(), -2);
}

TEST_F(States, NullColumnsLoadAsLevelOneAndOtherwiseAsNothing)
{
    m_store.Ask(
        QStringLiteral("insert into PlayerGame (PlayerGamePlayer, PlayerGameGame, PlayerGameInfo, PlayerGameLevel, "
                       "PlayerGameAwards, PlayerGameUnspentAwards) values (1, 7, null, null, null, null)"));
    const auto state = m_ann->GameData().Item(7);
    EXPECT_EQ(state->Level(), 1);
    EXPECT_EQ(state->Awards, 0);
    EXPECT_EQ(state->UnspentAwards, 0);
    EXPECT_EQ(state->GameData, QString());
}

TEST_F(States, AStoredLevelOfZeroLoadsAsOne)
{
    m_store.Ask(QStringLiteral(
        "insert into PlayerGame (PlayerGamePlayer, PlayerGameGame, PlayerGameLevel) values (1, 7, 0)"));
    EXPECT_EQ(m_ann->GameData().Item(7)->Level(), 1);
}

TEST_F(States, AnAwardCountsTwiceAndIsNotSaved)
{
    const auto state = m_ann->GameData().Item(m_three);
    state->AddAward(1);
    EXPECT_EQ(state->Awards, 1);
    EXPECT_EQ(state->UnspentAwards, 1);
    EXPECT_EQ(StoredOne(QStringLiteral("select PlayerGameAwards, PlayerGameUnspentAwards from PlayerGame")), u"0|0");
}

TEST_F(States, NoAwardChangesNothing)
{
    const auto state = m_ann->GameData().Item(m_three);
    state->AddAward(0);
    EXPECT_EQ(state->Awards, 0);
    EXPECT_EQ(state->UnspentAwards, 0);
}

TEST_F(States, AnAwardForAGameThatIsNotInTheCatalogueFailsWithTheCountsChanged)
{
    CPlayerGame state;
    state.Game = 999;
    EXPECT_THROW(state.AddAward(1), ListError);
    EXPECT_EQ(state.Awards, 1);
    EXPECT_EQ(state.UnspentAwards, 1);
    EXPECT_THROW(state.AddAward(0), ListError);
}

TEST_F(States, AwardsThatDoNotFitAreAFailureAndNoWrap)
{
    const auto state = m_ann->GameData().Item(m_three);
    state->Awards = 2147483647;
    EXPECT_THROW(state->AddAward(1), RuntimeError);
    EXPECT_EQ(state->Awards, 2147483647);
}

TEST_F(States, ThreeUnspentAwardsAreOneLevelAndAtTheLastLevelTheyPileUp)
{
    // Earning a level, in the order in which the end of a game does it.
    const auto state = m_ann->GameData().Item(m_three);
    const std::int32_t levels = Game(QStringLiteral("Three"))->Levels();
    const auto earn = [&] {
        state->AddAward(1);
        if (state->UnspentAwards < 3 || state->Level() >= levels) return;
        state->UnspentAwards -= 3;
        state->SetLevel(state->Level() + 1);
    };
    for (int award = 0; award < 6; ++award) earn();
    EXPECT_EQ(state->Level(), 3);
    EXPECT_EQ(state->UnspentAwards, 0);
    for (int award = 0; award < 4; ++award) earn();
    EXPECT_EQ(state->Level(), 3);
    EXPECT_EQ(state->UnspentAwards, 4);
    EXPECT_EQ(state->Awards, 10);
}

TEST_F(States, AFailingSaveLeavesTheNewStateInTheList)
{
    colPlayerGame &states = m_ann->GameData();
    std::shared_ptr<CPlayerGame> state;
    {
        const FailingCall first(m_store, 1);
        state = states.Item(m_three);
    }
    EXPECT_EQ(TakeMessages(), u"Error saving PlayerGame info.");
    EXPECT_EQ(states.Item(m_three), state);
    EXPECT_EQ(states.Count(), 1);
}

TEST_F(States, AFailingLoadGoesToTheCallerAndLeavesTheListAsItWas)
{
    colPlayerGame &states = m_ann->GameData();
    const auto state = states.Item(m_three);
    {
        const FailingCall first(m_store, 1);
        EXPECT_THROW(states.Load(), RuntimeError);
    }
    EXPECT_EQ(states.Item(m_three), state);
    EXPECT_EQ(TakeMessages(), QString());
}
