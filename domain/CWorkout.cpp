#include "domain/CWorkout.h"

#include "domain/LoadedOnce.h"
#include "domain/Row.h"
#include "shell/program/Trapped.h"

colGamePlayed &CWorkout::GamesPlayed()
{
    return LoadedOnce(m_GamesPlayed, [this](colGamePlayed &list) { list.SetWorkout(Key); });
}

void CWorkout::TakeGamesPlayed(std::unique_ptr<colGamePlayed> Results)
{
    if (!m_GamesPlayed) m_GamesPlayed = std::move(Results);
}

void CWorkout::Save()
{
    Trapped(QStringLiteral("Error saving Workout info."), [this] {
        SaveKeyedRow(QStringLiteral("select * from Workout where WorkoutKey=?"), Key, u"WorkoutKey",
                     {{u"WorkoutPlayer", Player},
                      {u"WorkoutPoints", Points},
                      {u"WorkoutStatus", Status},
                      {u"WorkoutMode", Mode},
                      {u"WorkoutTimestamp", Timestamp}});
    });
}

void CWorkout::Complete()
{
    Status = Completed;
    Save();
}
