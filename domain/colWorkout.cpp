#include "domain/colWorkout.h"

#include "domain/Row.h"
#include "platform/Clock.h"

#include <algorithm>

std::shared_ptr<CWorkout> colWorkout::Add()
{
    auto workout = std::make_shared<CWorkout>();
    workout->Player = m_PlayerKey;
    workout->Status = CWorkout::Open;
    workout->Timestamp = Today();
    workout->Save();
    m_Workouts.Add(workout, workout->Key);
    return workout;
}

void colWorkout::Load()
{
    m_Workouts.Clear();
    const auto set =
        modMain::GetRecordset(QStringLiteral("select * from Workout where WorkOutPlayer=? order by WorkoutTimestamp"),
                              QVariantList{m_PlayerKey});
    Recordset &row = Rows(set);
    for (; !row.Eof(); row.MoveNext()) {
        auto workout = std::make_shared<CWorkout>();
        workout->Key = row.Long(u"WorkoutKey");
        workout->Player = row.Long(u"WorkoutPlayer");
        workout->Timestamp = row.Date(u"WorkoutTimestamp");
        workout->Status = row.Long(u"WorkoutStatus");
        workout->Mode = LongOr(row, u"WorkoutMode", 0);
        m_Workouts.AddRow(workout, workout->Key);
    }
}

void colWorkout::LoadResults()
{
    const bool allRead =
        std::all_of(begin(), end(), [](const auto &workout) { return workout->HasReadGamesPlayed(); });
    if (allRead) return;
    auto lists = colGamePlayed::LoadWorkoutsOf(m_PlayerKey);
    for (const auto &workout : m_Workouts) {
        if (workout->Key < 1) continue; // never stored: asking it for its results says so
        auto &list = lists[workout->Key];
        if (!list) list = std::make_unique<colGamePlayed>();
        list->SetWorkout(workout->Key);
        workout->TakeGamesPlayed(std::move(list));
    }
}

std::shared_ptr<CWorkout> colWorkout::Current() const
{
    std::shared_ptr<CWorkout> current;
    for (const auto &workout : m_Workouts)
        if (workout->Status == CWorkout::Open) current = workout;
    return current;
}
