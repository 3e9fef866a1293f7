// The store fails at each of its calls in turn, once: the message is that of the record, what was set stays in
// memory, and the next save comes through.
#include "DomainTest.h"
#include "domain/Store.h"

namespace
{
class Faults : public DomainTest
{
protected:
    Faults() { Start(); }

    // Saves a record, made anew for each call of the store, until no call is left to fail.
    template <typename MakeRecord>
    void EachCallFailsOnce(const QString &Message, MakeRecord makeRecord)
    {
        bool failed = true;
        for (int call = 1; failed; ++call) {
            ASSERT_LT(call, 20);
            auto record = makeRecord();
            {
                const FailingCall failing(m_store, call);
                record.Save();
                failed = m_store.HasFailed();
            }
            EXPECT_EQ(TakeMessages(), failed ? Message : QString()) << "call " << call;
            if (failed) record.Save();
            EXPECT_EQ(TakeMessages(), QString()) << "call " << call;
        }
    }
    std::int32_t Count(const QString &Table) const
    {
        return StoredOne(QStringLiteral("select count(*) from ") + Table).toInt();
    }
};

// A record without a key, or one that was saved before.
template <typename Record>
Record NewOne()
{
    return {};
}

template <typename Record>
Record SavedOne()
{
    Record record;
    record.Save();
    return record;
}
} // namespace

TEST_F(Faults, APlayerTellsWhicheverCallFailsAndKeepsTheName)
{
    const QString message = QStringLiteral("Error saving player info.");
    EachCallFailsOnce(message, NewOne<CPlayer>);
    EachCallFailsOnce(message, SavedOne<CPlayer>);
    CPlayer ann;
    ann.Name = QStringLiteral("Ann");
    const FailingCall first(m_store, 1);
    ann.Save();
    EXPECT_EQ(ann.Name, u"Ann");
    EXPECT_EQ(ann.Key, 0);
    EXPECT_EQ(m_framework->TakeLast().Message, u"Error saving player info.\r\nMade to fail.");
}

TEST_F(Faults, AGameTellsWhicheverCallFails)
{
    EachCallFailsOnce(QStringLiteral("Error saving Game info."), NewOne<CGame>);
    EachCallFailsOnce(QStringLiteral("Error saving Game info."), SavedOne<CGame>);
}

TEST_F(Faults, ACategoryTellsWhicheverCallFails)
{
    EachCallFailsOnce(QStringLiteral("Error saving Category info."), NewOne<CCategory>);
    EachCallFailsOnce(QStringLiteral("Error saving Category info."), SavedOne<CCategory>);
}

TEST_F(Faults, AResultTellsWhicheverCallFails)
{
    EachCallFailsOnce(QStringLiteral("Error saving GamePlayed info."), NewOne<CGamePlayed>);
    EachCallFailsOnce(QStringLiteral("Error saving GamePlayed info."), SavedOne<CGamePlayed>);
}

TEST_F(Faults, AWorkoutTellsWhicheverCallFails)
{
    EachCallFailsOnce(QStringLiteral("Error saving Workout info."), NewOne<CWorkout>);
    EachCallFailsOnce(QStringLiteral("Error saving Workout info."), SavedOne<CWorkout>);
}

TEST_F(Faults, AStateTellsWhicheverCallFailsAndLeavesOneRow)
{
    EachCallFailsOnce(QStringLiteral("Error saving PlayerGame info."), NewOne<CPlayerGame>);
    EachCallFailsOnce(QStringLiteral("Error saving PlayerGame info."), SavedOne<CPlayerGame>);
    EXPECT_EQ(Count(QStringLiteral("PlayerGame")), 1);
}

TEST_F(Faults, ANewPlayerStandsInTheListWhicheverCallFails)
{
    bool failed = true;
    for (int call = 1; failed; ++call) {
        ASSERT_LT(call, 20);
        modMain::Players->Load();
        const std::int32_t before = modMain::Players->Count();
        const FailingCall failing(m_store, call);
        const auto player = modMain::Players->Add();
        failed = m_store.HasFailed();
        EXPECT_EQ(modMain::Players->Count(), before + 1);
        EXPECT_EQ(player->Name, QStringLiteral("Player %1").arg(before + 1));
        EXPECT_EQ(TakeMessages(), failed ? QStringLiteral("Error saving player info.") : QString()) << call;
    }
}

TEST_F(Faults, AStartWithThreeGamesLosesNothingWhicheverCallFails)
{
    for (const char *name : {"a", "b", "c"}) GivenGame(QString::fromUtf8(name), {name, "Memory"});
    StartAgain();
    GivenCurrentPlayer()->GameData().Item(1)->AddAward(1);
    bool failed = true;
    for (int call = 1; failed; ++call) {
        ASSERT_LT(call, 200);
        modMain::Categories = std::make_shared<colCategory>();
        modMain::Games = std::make_shared<colGame>();
        modMain::Categories->Load();
        {
            const FailingCall failing(m_store, call);
            modMain::Games->Load();
            failed = m_store.HasFailed();
        }
        const QStringList allowed{QString(), QStringLiteral("Error loading Games."),
                                  QStringLiteral("Error saving Game info."),
                                  QStringLiteral("Error loading categories.")};
        const QString message = TakeMessages();
        EXPECT_TRUE(allowed.contains(message)) << call << message.toStdString();
        EXPECT_EQ(Count(QStringLiteral("Game")), 3) << call;
        EXPECT_EQ(Count(QStringLiteral("Category")), 1) << call;
        EXPECT_EQ(Count(QStringLiteral("PlayerGame")), 1) << call;
    }
}
