// The days after the second: a workout each, played as time allows, and the chart of them all.
#include "Hands.h"
#include "StoreRows.h"
#include "Story.h"

#include <array>
#include <map>

namespace
{
constexpr std::array SecondsToPlay{1, 1, 0, 2, 1}; // of the days from the third on
constexpr qsizetype ToldPoints = 5;                // the last ones of each line, by the chart's description

QList<QVariantMap> Workouts()
{
    return StoreRows::Select(QStringLiteral("select * from Workout order by WorkoutTimestamp"));
}

// What the chart should tell: the last points of each category by the rows of the store.
QString StoredLines()
{
    const auto rows = StoreRows::Select(
        QStringLiteral("select CategoryName, (select GamePlayedPoints from GamePlayed join Game on GameKey = "
                       "GamePlayedGame where GamePlayedWorkout = WorkoutKey and GameCategory = CategoryKey order by "
                       "GamePlayedTimestamp limit 1) as Points from Category, Workout where CategoryName <> 'zzz' "
                       "order by CategoryName, WorkoutTimestamp"));
    std::map<QString, QStringList> lines;
    for (const QVariantMap &row : rows) {
        const QVariant points = row.value(QStringLiteral("Points"));
        lines[row.value(QStringLiteral("CategoryName")).toString()]
            << (points.isNull() ? QStringLiteral("–") : points.toString());
    }
    QStringList told;
    for (const auto &[category, points] : lines)
        told << QStringLiteral("%1: %2").arg(category, points.mid(points.size() - ToldPoints).join(u", "));
    return told.join(u"; ");
}
} // namespace

void Story::FinishWorkout(int FirstTile, int Stamina)
{
    for (int tile = FirstTile; tile < Categories(); ++tile) PlayWorkoutGame(tile, Stamina);
    m_Hands.WaitFor(QStringLiteral("lblMessage"));
    if (m_Hands.Sees(QStringLiteral("butNextWorkout")))
        throw TourFailure(QStringLiteral("The next workout is offered on the same day."));
}

// The program runs through the night.
void Story::LiveDay(int Day)
{
    m_Hands.PassToNextMorning();
    m_Hands.ClickMenu(QStringLiteral("Workout"));
    m_Hands.WaitFor(QStringLiteral("butNextWorkout"));
    m_Hands.Click(QStringLiteral("butNextWorkout"));
    m_Hands.WaitUntil(QStringLiteral("a game to play"),
                      [this] { return m_Hands.SeesAll(QStringLiteral("butPlay(")).size() == 1; });
    Compare(QStringLiteral("workouts on day %1").arg(Day), Day, Workouts().size());
    FinishWorkout(0, SecondsToPlay.at(static_cast<std::size_t>(Day - 3)));
}

void Story::CompareWeek()
{
    const auto workouts = Workouts();
    const auto value = [&](qsizetype i, const char *column) { return workouts[i].value(QLatin1String(column)); };
    for (qsizetype i = 0; i < workouts.size(); ++i) {
        const QString workout = QStringLiteral("workout %1 of the week, ").arg(i + 1);
        Compare(workout + QStringLiteral("status"), i + 1 < workouts.size() ? 1 : 0, value(i, "WorkoutStatus"));
        Compare(workout + QStringLiteral("days since the first"), i,
                value(i, "WorkoutTimestamp").toDouble() - value(0, "WorkoutTimestamp").toDouble());
        Compare(workout + QStringLiteral("results"), Categories(),
                StoreRows::Select(QStringLiteral("select * from GamePlayed where GamePlayedWorkout = ?"),
                                  {value(i, "WorkoutKey")})
                    .size());
    }
}

void Story::LookAtProgress()
{
    m_Hands.ClickMenu(QStringLiteral("Progress"));
    m_Hands.WaitFor(QStringLiteral("LarkChart1"));
    m_Hands.Picture(QStringLiteral("progress-after-a-week"));
    Compare(QStringLiteral("last points in the chart"), m_Hands.Describes(QStringLiteral("LarkChart1")),
            StoredLines());
}
