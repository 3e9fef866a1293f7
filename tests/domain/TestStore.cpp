// The store behind its three routines: opening, running a statement, and rows that are read, changed and added.
#include "tests/support/TestStore.h"
#include "domain/Store.h"
#include "platform/RuntimeError.h"
#include "shell/program/modMain.h"
#include "tests/support/RecordingFramework.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{
class Store : public testing::Test
{
protected:
    ~Store() override { modMain::Framework.reset(); }

    static std::int32_t GivenPlayer(const QString &name)
    {
        const auto set = modMain::GetRecordset(u"select * from Player where PlayerKey=?"_s, QVariantList{0});
        Recordset &player = Rows(set);
        EXPECT_TRUE(player.Eof());
        player.AddNew();
        player.SetValue(u"PlayerName", name);
        player.MoveLast();
        return player.Long(u"PlayerKey");
    }
    static void SaveState(int player, int game, const QVariant &level)
    {
        const auto set = modMain::GetRecordset(
            u"select * from PlayerGame where PlayerGamePlayer=? and PlayerGameGame=?"_s, QVariantList{player, game});
        Recordset &state = Rows(set);
        if (state.Eof()) state.AddNew();
        state.SetValue(u"PlayerGameGame", game);
        state.SetValue(u"PlayerGamePlayer", player);
        state.SetValue(u"PlayerGameLevel", level);
        state.Update();
    }
    static QString DescriptionOfFailing(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const RuntimeError &failure) {
            return failure.Description();
        }
        return u"no failure"_s;
    }

    TestStore m_store;
};
} // namespace

TEST_F(Store, OpensOnceAndStaysOpen)
{
    Connection &first = modMain::GetConnection();
    EXPECT_TRUE(first.IsOpen());
    EXPECT_EQ(&first, &modMain::GetConnection());
}

TEST_F(Store, TwoMarkersAndOneValueGiveAnEmptyReferenceAndNoMessage)
{
    const auto framework = RecordingFramework::Install();
    const auto set = modMain::GetRecordset(
        u"select * from PlayerGame where PlayerGamePlayer=? and PlayerGameGame=?"_s, QVariantList{1});
    EXPECT_EQ(set, nullptr);
    EXPECT_TRUE(framework->Boxes.empty());
    EXPECT_THROW(Rows(set), RuntimeError) << "the first access is what fails";
}

TEST_F(Store, TooManyValuesGiveAnEmptyReferenceToo)
{
    EXPECT_EQ(modMain::GetRecordset(u"select * from Player"_s, QVariantList{1}), nullptr);
    EXPECT_EQ(modMain::GetRecordset(u"select * from Player where PlayerKey=?"_s, QVariantList{1, 2}), nullptr);
    EXPECT_EQ(modMain::GetRecordset(u"select * from Player where PlayerKey=?"_s, QVariantList{}), nullptr);
}

TEST_F(Store, AStatementWithoutMarkersRunsWithoutValues)
{
    EXPECT_TRUE(Rows(modMain::GetRecordset(u"select * from Player"_s)).Eof());
    EXPECT_TRUE(Rows(modMain::GetRecordset(u"select * from Player"_s, QVariantList{})).Eof());
}

TEST_F(Store, MarkersWithoutValuesAreAFailureAndNotANull)
{
    EXPECT_THROW(modMain::GetRecordset(u"select * from Player where PlayerKey=?"_s), RuntimeError);
}

TEST_F(Store, AWrongStatementIsAFailureToTheCaller)
{
    EXPECT_EQ(DescriptionOfFailing([] { modMain::GetRecordset(u"select * from Nowhere"_s); }),
              u"no such table: Nowhere"_s);
    EXPECT_THROW(modMain::GetRecordset(u"select \"nosuchcolumn\" from Player"_s), RuntimeError);
    EXPECT_THROW(modMain::GetRecordset(QString()), RuntimeError);
    EXPECT_THROW(modMain::GetRecordset(u"delete from Player; delete from Game"_s), RuntimeError);
}

TEST_F(Store, ANewRowHasTheKeyThatTheStoreGaveIt)
{
    EXPECT_EQ(GivenPlayer(u"Ann"_s), 1);
    EXPECT_EQ(GivenPlayer(u"Bert"_s), 2);
    EXPECT_EQ(m_store.Ask(u"select * from Player"_s), u"1|Ann\n2|Bert"_s);
}

TEST_F(Store, TheKeyOfADeletedRowIsNeverGivenAgain)
{
    const int ann = GivenPlayer(u"Ann"_s);
    modMain::GetRecordset(u"delete from Player where PlayerKey=?"_s, QVariantList{ann});
    EXPECT_EQ(m_store.Ask(u"select * from Player"_s), QString());
    EXPECT_NE(GivenPlayer(u"Bert"_s), ann);
}

TEST_F(Store, TheDeleteStatementIsDoneWhenItsSetIsDroppedAtOnce)
{
    const int ann = GivenPlayer(u"Ann"_s);
    const int bert = GivenPlayer(u"Bert"_s);
    modMain::GetRecordset(u"delete from Player where PlayerKey=?"_s, QVariantList{ann});
    EXPECT_EQ(m_store.Ask(u"select PlayerKey from Player"_s), QString::number(bert));
}

TEST_F(Store, SavingAStateTwiceForOnePairLeavesOneRow)
{
    SaveState(3, 4, 1);
    SaveState(3, 4, 2);
    EXPECT_EQ(m_store.Ask(u"select PlayerGamePlayer, PlayerGameGame, PlayerGameLevel from PlayerGame"_s), u"3|4|2"_s);
}

TEST_F(Store, ASecondRowForOnePairIsRefused)
{
    SaveState(3, 4, 1);
    const auto set = modMain::GetRecordset(u"select * from PlayerGame"_s);
    set->AddNew();
    set->SetValue(u"PlayerGamePlayer", 3);
    set->SetValue(u"PlayerGameGame", 4);
    EXPECT_THROW(set->Update(), RuntimeError);
}

TEST_F(Store, ANullReadsAsTheDefaultOfItsColumn)
{
    SaveState(3, 4, QVariant());
    const auto set = modMain::GetRecordset(u"select * from PlayerGame where PlayerGamePlayer=?"_s, QVariantList{3});
    EXPECT_EQ(modMain::NullDefault(set->Value(u"PlayerGameLevel"), 1), QVariant(1));
    EXPECT_EQ(modMain::NullDefault(set->Value(u"PlayerGameInfo"), QString()), QVariant(QString()));
    EXPECT_EQ(LongOf(modMain::NullDefault(set->Value(u"PlayerGameGame"), 0)), 4);
}

TEST_F(Store, ReferencesAreNotEnforced)
{
    const int ann = GivenPlayer(u"Ann"_s);
    SaveState(ann, 99, 1);
    modMain::GetRecordset(u"delete from Player where PlayerKey=?"_s, QVariantList{ann});
    EXPECT_EQ(m_store.Ask(u"select count(*) from PlayerGame"_s), u"1"_s);
}

TEST_F(Store, SeveralWritesAreOneCommit)
{
    modMain::OneCommit(u"Error."_s, [this] {
        GivenPlayer(u"Ann"_s);
        SaveState(1, 1, 1);
        EXPECT_EQ(m_store.Ask(u"select count(*) from Player"_s), u"0"_s) << "nobody else sees the half of it";
    });
    EXPECT_EQ(m_store.Ask(u"select (select count(*) from Player), (select count(*) from PlayerGame)"_s), u"1|1"_s);
}

TEST_F(Store, AFailureInsideOneCommitKeepsWhatWasWrittenBefore)
{
    const auto framework = RecordingFramework::Install();
    const auto work = [] {
        GivenPlayer(u"Ann"_s);
        throw RuntimeError(u"Halfway."_s);
    };
    EXPECT_EQ(DescriptionOfFailing([&] { modMain::OneCommit(u"Error."_s, work); }), u"Halfway."_s);
    EXPECT_EQ(m_store.Ask(u"select PlayerName from Player"_s), u"Ann"_s);
    EXPECT_TRUE(framework->Boxes.empty());
}

TEST_F(Store, AFailingCommitIsToldAndNothingOfItIsStored)
{
    const auto framework = RecordingFramework::Install();
    modMain::OneCommit(u"Error ending game."_s, [this] {
        GivenPlayer(u"Ann"_s);
        m_store.FailAtCall(1);
    });
    EXPECT_EQ(framework->TakeLast().Message, u"Error ending game.\r\nMade to fail."_s);
    m_store.FailAtCall(0);
    EXPECT_EQ(m_store.Ask(u"select count(*) from Player"_s), u"0"_s);
    EXPECT_EQ(GivenPlayer(u"Bert"_s), 1) << "the store is fit for the next write";
}

TEST_F(Store, WhatMemoryGotOfAFailedCommitIsForgottenAlsoWhenTheWorkFailed)
{
    const auto framework = RecordingFramework::Install();
    for (const bool doesWorkFail : {false, true}) {
        int forgotten = 0;
        const auto work = [&] {
            GivenPlayer(u"Ann"_s);
            m_store.FailAtCall(1);
            if (doesWorkFail) throw RuntimeError(u"Halfway."_s);
        };
        const QString failure = DescriptionOfFailing([&] {
            modMain::OneCommit(u"Error."_s, work, [&] {
                ++forgotten;
                throw RuntimeError(u"Nor this."_s);
            });
        });
        EXPECT_EQ(failure, doesWorkFail ? u"Halfway."_s : u"no failure"_s);
        EXPECT_EQ(framework->TakeLast().Message, u"Error.\r\nMade to fail."_s);
        EXPECT_EQ(forgotten, 1);
        m_store.FailAtCall(0);
        EXPECT_EQ(m_store.Ask(u"select count(*) from Player"_s), u"0"_s);
    }
}

TEST_F(Store, NothingIsForgottenOfWhatIsStored)
{
    bool isForgotten = false;
    modMain::OneCommit(
        u"Error."_s, [] { GivenPlayer(u"Ann"_s); }, [&] { isForgotten = true; });
    EXPECT_FALSE(isForgotten);
    EXPECT_EQ(m_store.Ask(u"select PlayerName from Player"_s), u"Ann"_s);
}

TEST_F(Store, OneCommitInsideAnotherIsPartOfIt)
{
    modMain::OneCommit(u"Outer."_s, [this] {
        modMain::OneCommit(u"Inner."_s, [] { GivenPlayer(u"Ann"_s); });
        EXPECT_EQ(m_store.Ask(u"select count(*) from Player"_s), u"0"_s);
    });
    EXPECT_EQ(m_store.Ask(u"select count(*) from Player"_s), u"1"_s);
}
