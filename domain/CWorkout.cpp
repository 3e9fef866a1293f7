#include "domain/CWorkout.h"

#include "domain/LoadedOnce.h"
#include "domain/Row.h"
#include "shell/program/Trapped.h"

#include <algorithm>

colGamePlayed &CWorkout::GamesPlayed()
{
    return LoadedOnce(m_GamesPlayed, [this](colGamePlayed &list) { list.SetWorkout(Key); });
}

std::optional<std::int32_t> CWorkout::PointsIn(std::int32_t CategoryKey)
{
    if (m_GamesPlayed || !m_Points) {
        const auto result = GamesPlayed().ByCat(CategoryKey);
        return result ? std::optional(result->Points) : std::nullopt;
    }
    const auto found = std::find_if(m_Points->begin(), m_Points->end(),
                                    [&](const CategoryPoints &points) { return points.Category == CategoryKey; });
    return found == m_Points->end() ? std::nullopt : std::optional(found->Points);
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
