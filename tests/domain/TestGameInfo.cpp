#include "DomainTest.h"

namespace
{
class GameInfo : public DomainTest
{
protected:
    GameInfo()
    {
        GivenGame(QStringLiteral("one"), {"One", "Memory", "0", "levels=1"});
        GivenGame(QStringLiteral("three"), {"Three", "Memory", "0", "levels=3"});
        GivenGame(QStringLiteral("minus"), {"Minus", "Memory", "0", "levels=-3"});
        GivenGame(QStringLiteral("huge"), {"Huge", "Memory", "0", "levels=2000000000"});
        Start();
        m_ann = GivenCurrentPlayer();
        m_one = Game(QStringLiteral("One"))->Key;
        m_three = Game(QStringLiteral("Three"))->Key;
    }
    QString InMemory(std::int32_t Game) const { return m_ann->GameData().Item(Game)->GameData; }
    QString InStore(std::int32_t Game) const
    {
        return StoredOne(QStringLiteral("select PlayerGameInfo from PlayerGame where PlayerGameGame=%1").arg(Game));
    }
    void Given(std::int32_t Game, const QString &Text) const { m_ann->GameData().Item(Game)->GameData = Text; }

    std::shared_ptr<CPlayer> m_ann;
    std::int32_t m_one = 0;
    std::int32_t m_three = 0;
};
} // namespace

TEST_F(GameInfo, IsEmptyAtALevelPastTheEndWithoutAMessage)
{
    Given(m_three, QStringLiteral("a|b"));
    EXPECT_EQ(m_ann->GameInfo(m_three, 3), QString());
    EXPECT_EQ(m_ann->GameInfo(m_three, 99), QString());
    EXPECT_EQ(TakeMessages(), QString());
}

TEST_F(GameInfo, AtALevelIsThePartOfThatLevel)
{
    Given(m_three, QStringLiteral("a||  c "));
    EXPECT_EQ(m_ann->GameInfo(m_three, 1), u"a");
    EXPECT_EQ(m_ann->GameInfo(m_three, 2), u"");
    EXPECT_EQ(m_ann->GameInfo(m_three, 3), u"  c ");
}

TEST_F(GameInfo, AtLevelZeroAndBelowIsTheWholeText)
{
    Given(m_three, QStringLiteral("a|b|c|d"));
    EXPECT_EQ(m_ann->GameInfo(m_three, 0), u"a|b|c|d");
    EXPECT_EQ(m_ann->GameInfo(m_three, -5), u"a|b|c|d");
}

TEST_F(GameInfo, OfAGameNeverPlayedIsEmptyAndMakesItsRow)
{
    EXPECT_EQ(m_ann->GameInfo(m_three, 1), QString());
    EXPECT_EQ(InStore(m_three), QString());
    EXPECT_EQ(StoredOne(QStringLiteral("select count(*) from PlayerGame")), u"1");
}

TEST_F(GameInfo, WrittenAtLevelTwoOfThreeStandsBetweenTwoSeparators)
{
    m_ann->SetGameInfo(m_three, 2, QStringLiteral("x"));
    EXPECT_EQ(InMemory(m_three), u"|x|");
    EXPECT_EQ(InStore(m_three), u"|x|");
}

TEST_F(GameInfo, WrittenAtTheOnlyLevelIsTheBareValue)
{
    m_ann->SetGameInfo(m_one, 1, QStringLiteral("x"));
    EXPECT_EQ(InStore(m_one), u"x");
}

TEST_F(GameInfo, WrittenAtALevelHasAsManyPartsAsTheGameHasLevels)
{
    Given(m_three, QStringLiteral("a|b|c|d|e"));
    m_ann->SetGameInfo(m_three, 1, QStringLiteral("x"));
    EXPECT_EQ(InStore(m_three), u"x|b|c");
    Given(m_three, QStringLiteral("a"));
    m_ann->SetGameInfo(m_three, 3, QStringLiteral("z"));
    EXPECT_EQ(InStore(m_three), u"a||z");
}

TEST_F(GameInfo, WrittenAtLevelZeroReplacesTheTextInMemoryOnly)
{
    m_ann->SetGameInfo(m_three, 1, QStringLiteral("x"));
    m_ann->SetGameInfo(m_three, 0, QStringLiteral("own form"));
    EXPECT_EQ(m_ann->GameInfo(m_three, 0), u"own form");
    EXPECT_EQ(InStore(m_three), u"x||");
}

TEST_F(GameInfo, WrittenAtLevelZeroIsLostByARestartUnlessTheStateWasSaved)
{
    m_ann->SetGameInfo(m_one, 0, QStringLiteral("lost"));
    m_ann->SetGameInfo(m_three, 0, QStringLiteral("kept"));
    m_ann->GameData().Item(m_three)->Save();
    StartAgain();
    const auto ann = modMain::Players->Item(1);
    EXPECT_EQ(ann->GameInfo(m_one, 0), QString());
    EXPECT_EQ(ann->GameInfo(m_three, 0), u"kept");
}

TEST_F(GameInfo, WrittenAboveTheLastLevelIsAFailureThatChangesNothing)
{
    Given(m_three, QStringLiteral("a|b|c|d"));
    m_ann->SetGameInfo(m_three, 4, QStringLiteral("x"));
    EXPECT_EQ(TakeMessages(), u"Error setting player/game info.");
    EXPECT_EQ(InMemory(m_three), u"a|b|c|d");
}

TEST_F(GameInfo, WrittenBelowLevelZeroIsAFailure)
{
    m_ann->SetGameInfo(m_three, -1, QStringLiteral("x"));
    EXPECT_EQ(TakeMessages(), u"Error setting player/game info.");
}

TEST_F(GameInfo, WrittenForAGameThatIsNotInTheCatalogueIsAFailure)
{
    m_ann->SetGameInfo(999, 1, QStringLiteral("x"));
    EXPECT_EQ(TakeMessages(), u"Error setting player/game info.");
}

TEST_F(GameInfo, ANegativeNumberOfLevelsTakesNoLevel)
{
    m_ann->SetGameInfo(Game(QStringLiteral("Minus"))->Key, 1, QStringLiteral("x"));
    EXPECT_EQ(TakeMessages(), u"Error setting player/game info.");
}

TEST_F(GameInfo, MoreLevelsThanFitIntoMemoryAreAFailureAndNoCrash)
{
    m_ann->SetGameInfo(Game(QStringLiteral("Huge"))->Key, 1, QStringLiteral("x"));
    EXPECT_EQ(TakeMessages(), u"Error setting player/game info.");
}

TEST_F(GameInfo, KeepsTextsOfEveryLanguage)
{
    m_ann->SetGameInfo(m_three, 1, QStringLiteral("Ünïcødé 漢字 🙂"));
    StartAgain();
    EXPECT_EQ(modMain::Players->Item(1)->GameInfo(m_three, 1), QStringLiteral("Ünïcødé 漢字 🙂"));
}

TEST_F(GameInfo, AFailingStoreShowsTheMessageOfReadingOnce)
{
    const FailingCall first(m_store, 1);
    EXPECT_EQ(m_ann->GameInfo(m_three, 1), QString());
    EXPECT_EQ(TakeMessages(), u"Error getting player/game info.");
}
