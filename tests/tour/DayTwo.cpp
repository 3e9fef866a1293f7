// The second day: the program has been started again.
#include "Hands.h"
#include "StoreRows.h"
#include "Story.h"

#include <QJsonArray>

void Story::FindPlayer()
{
    const QVariantMap row = StoreRows::SelectOne(QStringLiteral("select * from Player"));
    m_Name = m_Seen.value(QStringLiteral("name")).toString();
    m_Player = row.value(QStringLiteral("PlayerKey")).toInt();
    m_Hands.Picture(QStringLiteral("choice-of-player-next-day"));
    Compare(QStringLiteral("player of yesterday"), m_Name, row.value(QStringLiteral("PlayerName")));
    Compare(QStringLiteral("player offered"), m_Hands.Reads(QStringLiteral("butPlayer(0)")), m_Name);
    m_Hands.Click(QStringLiteral("butPlayer(0)"));
    m_Hands.WaitFor(QStringLiteral("ctlGameList1"));
}

void Story::FindPracticeResult()
{
    ChooseForPractice();
    CompareBestResult();
    m_Hands.Picture(QStringLiteral("best-results-next-day"));
}

void Story::FindWorkout()
{
    m_Hands.ClickMenu(QStringLiteral("Workout"));
    m_Hands.WaitFor(QStringLiteral("butNextWorkout"));
    m_Hands.Picture(QStringLiteral("next-workout-due"));
    const QJsonArray results = m_Seen.value(QStringLiteral("results")).toArray();
    Compare(QStringLiteral("categories done yesterday"), Categories(), results.size());
    for (int tile = 0; tile < Categories(); ++tile)
        Compare(QStringLiteral("yesterday's total in %1")
                    .arg(results[tile].toObject().value(QStringLiteral("game")).toString()),
                NumberIn(m_Hands.Reads(QStringLiteral("lblCatScore(%1)").arg(tile))),
                results[tile].toObject().value(QStringLiteral("total")).toVariant());
}

void Story::BeginNextWorkout()
{
    m_Hands.Click(QStringLiteral("butNextWorkout"));
    const auto workouts = StoreRows::Select(QStringLiteral("select * from Workout order by WorkoutKey"));
    Compare(QStringLiteral("workouts"), 2, workouts.size());
    Compare(QStringLiteral("yesterday's status"), 1, workouts.value(0).value(QStringLiteral("WorkoutStatus")));
    Compare(QStringLiteral("today's status"), 0, workouts.value(1).value(QStringLiteral("WorkoutStatus")));
    Compare(QStringLiteral("a day between them"), 1,
            workouts.value(1).value(QStringLiteral("WorkoutTimestamp")).toDouble() -
                workouts.value(0).value(QStringLiteral("WorkoutTimestamp")).toDouble());

    // The level and the awards of yesterday are what today's game begins with.
    const Offer offer = SelectCategory(0);
    Compare(QStringLiteral("level of ") + offer.game, offer.level,
            StateOf(offer).value(QStringLiteral("PlayerGameLevel")));
    PlayWorkoutGame(0, m_Stamina);
}
