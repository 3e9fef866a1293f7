// The first day: a new player.
#include "GamePlayers.h"
#include "Hands.h"
#include "StoreRows.h"
#include "Story.h"

#include <cstdlib>

namespace
{
const QString Clock = QStringLiteral("ctlGamePlaySummary1/lblTime");
constexpr int Hour = 3600; // [s]
} // namespace

void Story::MakePlayer()
{
    m_Hands.Picture(QStringLiteral("choice-of-player"));
    m_Hands.Click(QStringLiteral("butPlayer(0)"));
    m_Hands.WaitFor(QStringLiteral("txtAnswer"));
    m_Hands.Type(QStringLiteral("Ada"));
    m_Hands.Picture(QStringLiteral("name-of-new-player"));
    m_Hands.Click(QStringLiteral("cmd1"));
    m_Hands.WaitFor(QStringLiteral("ctlGameList1"));
    m_Hands.Picture(QStringLiteral("practice-at-first"));
    Compare(QStringLiteral("new player's name"), m_Hands.Reads(QStringLiteral("txtName")),
            StoreRows::SelectOne(QStringLiteral("select * from Player")).value(QStringLiteral("PlayerName")));
}

void Story::EditName()
{
    m_Hands.Click(QStringLiteral("cmdUpdate"));
    m_Name = QStringLiteral("Ada Lovelace");
    m_Hands.Type(m_Name); // over the old name, which is selected
    m_Hands.Picture(QStringLiteral("name-being-edited"));
    m_Hands.Press(Qt::Key_Return);
    const QVariantMap row = StoreRows::SelectOne(QStringLiteral("select * from Player"));
    m_Player = row.value(QStringLiteral("PlayerKey")).toInt();
    Compare(QStringLiteral("edited name"), m_Hands.Reads(QStringLiteral("txtName")),
            row.value(QStringLiteral("PlayerName")));
    Compare(QStringLiteral("typed name"), m_Name, row.value(QStringLiteral("PlayerName")));
    m_Seen.insert(QStringLiteral("name"), m_Name);
}

void Story::BeginWorkout()
{
    m_Hands.ClickMenu(QStringLiteral("Workout"));
    m_Hands.WaitFor(QStringLiteral("butNextWorkout"));
    m_Hands.Picture(QStringLiteral("no-workout-yet"));
    m_Hands.Click(QStringLiteral("butNextWorkout"));
    m_Hands.WaitFor(QStringLiteral("butPlay(0)"));
    m_Hands.Picture(QStringLiteral("workout"));
    const QVariantMap row = StoreRows::SelectOne(QStringLiteral("select * from Workout"));
    Compare(QStringLiteral("workout's player"), m_Player, row.value(QStringLiteral("WorkoutPlayer")));
    Compare(QStringLiteral("workout's status"), 0, row.value(QStringLiteral("WorkoutStatus")));
    Compare(QStringLiteral("workout's mode"), 1, row.value(QStringLiteral("WorkoutMode")));
}

void Story::ReadInstructions()
{
    const Offer offer = SelectCategory(0);
    m_Hands.Click(QStringLiteral("butInstructions") + offer.row);
    m_Hands.WaitFor(QStringLiteral("txtInstructions"));
    m_Hands.Picture(QStringLiteral("instructions"));
    Compare(QStringLiteral("game of the instructions"), m_Hands.Reads(QStringLiteral("lblGameName")),
            offer.gameRow.value(QStringLiteral("GameName")));
    Compare(QStringLiteral("time allowed"), NumberIn(m_Hands.Reads(QStringLiteral("lblTimeAllowed"))),
            offer.gameRow.value(QStringLiteral("GameTimeLimit")));
    if (m_Hands.Reads(QStringLiteral("txtInstructions")).trimmed().isEmpty())
        throw TourFailure(QStringLiteral("The instructions are empty."));
    m_Hands.Click(QStringLiteral("butCancelGame"));
    m_Hands.WaitFor(QStringLiteral("ctlWorkOut1"));
}

// From the instructions into the game; an hour's pause costs no time; a game that is left leaves nothing behind.
void Story::PauseAndLeave()
{
    const Offer offer = SelectCategory(0);
    m_Hands.Click(QStringLiteral("butInstructions") + offer.row);
    m_Hands.WaitFor(QStringLiteral("butStartGame"));
    m_Hands.Click(QStringLiteral("butStartGame"));
    m_Hands.WaitUntil(offer.game, [this] { return m_Hands.SeesGame(); });

    m_Hands.ClickMenu(QStringLiteral("Pause"));
    m_Hands.WaitFor(QStringLiteral("picPause"));
    const int before = NumberIn(m_Hands.Reads(Clock));
    m_Hands.Picture(QStringLiteral("pause"));
    m_Hands.PassTime(Hour);
    m_Hands.ClickMenu(QStringLiteral("Continue"));
    m_Hands.WaitUntil(offer.game, [this] { return m_Hands.SeesGame(); });
    m_Hands.Wait(1);
    const int after = NumberIn(m_Hands.Reads(Clock));
    if (std::abs(before - after) > 5)
        throw TourFailure(
            QStringLiteral("Before the pause %1 seconds were left, after it %2.").arg(before).arg(after));

    m_Hands.ClickMenu(QStringLiteral("Leave game"));
    m_Hands.WaitFor(QStringLiteral("cmd2"));
    m_Hands.Picture(QStringLiteral("question-before-leaving"));
    m_Hands.Click(QStringLiteral("cmd1"));
    m_Hands.WaitFor(QStringLiteral("ctlWorkOut1"));
    Compare(QStringLiteral("results after a game that was left"), 0,
            StoreRows::Select(QStringLiteral("select * from GamePlayed")).size());
}

void Story::PlayWorkout()
{
    const int categories = Categories();
    for (int tile = 0; tile < categories; ++tile) PlayWorkoutGame(tile, m_Stamina);
    m_Hands.WaitFor(QStringLiteral("lblMessage"));
    m_Hands.Picture(QStringLiteral("workout-complete"));
    if (m_Hands.Sees(QStringLiteral("butNextWorkout")))
        throw TourFailure(QStringLiteral("The next workout is offered on the same day."));
    Compare(QStringLiteral("results of the workout"), categories,
            StoreRows::Select(QStringLiteral("select * from GamePlayed where GamePlayedMode = 1")).size());
}
