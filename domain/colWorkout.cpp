#include "domain/colWorkout.h"

#include "domain/Row.h"
#include "domain/colGame.h"
#include "platform/Clock.h"
#include "shell/program/modMain.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

namespace
{
constexpr std::size_t UsualCategories = 10;

using CategoryPoints = std::vector<CWorkout::CategoryPoints>;
// By the key of the workout; nothing for one with a game that is not in the catalogue.
using PointsOfWorkouts = std::unordered_map<std::int32_t, std::optional<CategoryPoints>>;

using CategoryOfGame = std::unordered_map<std::int32_t, std::int32_t>;

CategoryOfGame CategoriesOfGames()
{
    CategoryOfGame categories;
    for (const auto &game : Held(modMain::Games)) categories.emplace(game->Key, game->Category);
    return categories;
}

// The first result of each category counts.
void TakeFirst(CategoryPoints &points, std::int32_t category, std::int32_t value)
{
    const auto isKnown = [category](const auto &known) { return known.Category == category; };
    if (points.empty()) points.reserve(UsualCategories);
    if (std::none_of(points.begin(), points.end(), isKnown)) points.push_back({category, value});
}

// Rows of one workout stand together: its key, game, points.
PointsOfWorkouts FirstOfCategories(Recordset &row)
{
    PointsOfWorkouts all;
    const CategoryOfGame categories = CategoriesOfGames();
    std::optional<CategoryPoints> *points = nullptr;
    std::int32_t present = 0;
    for (; !row.Eof(); row.MoveNext()) {
        const std::int32_t workout = row.Long(0);
        if (points == nullptr || workout != present) points = &all.try_emplace(workout, std::in_place).first->second;
        present = workout;
        const auto category = categories.find(row.Long(1));
        if (category == categories.end())
            points->reset();
        else if (*points)
            TakeFirst(**points, category->second, row.Long(2));
    }
    return all;
}
} // namespace

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
    const int key = row.Column(u"WorkoutKey");
    const int player = row.Column(u"WorkoutPlayer");
    const int timestamp = row.Column(u"WorkoutTimestamp");
    const int status = row.Column(u"WorkoutStatus");
    const int mode = row.Column(u"WorkoutMode");
    for (; !row.Eof(); row.MoveNext()) {
        auto workout = std::make_shared<CWorkout>();
        workout->Key = row.Long(key);
        workout->Player = row.Long(player);
        workout->Timestamp = row.Date(timestamp);
        workout->Status = row.Long(status);
        workout->Mode = LongOr(row, mode, 0);
        const std::int32_t number = workout->Key;
        m_Workouts.AddRow(std::move(workout), number);
    }
}

bool colWorkout::KnowsAllPoints() const
{
    return std::all_of(begin(), end(), [](const auto &workout) { return workout->KnowsPoints(); });
}

void colWorkout::LoadPoints()
{
    if (KnowsAllPoints()) return;
    const auto set = modMain::GetRecordset(
        QStringLiteral(
            "select GamePlayedWorkout, GamePlayedGame, GamePlayedPoints from Workout cross join GamePlayed "
            "on GamePlayedWorkout=WorkoutKey where WorkoutPlayer=? "
            "order by WorkoutTimestamp, WorkoutKey, GamePlayedTimestamp, GamePlayedKey"),
        QVariantList{m_PlayerKey});
    auto all = FirstOfCategories(Rows(set));
    for (const auto &workout : m_Workouts) {
        if (workout->Key < 1) continue; // never stored: asking it for its results says so
        const auto found = all.find(workout->Key);
        if (found == all.end()) // no result
            workout->TakePoints({});
        else if (found->second) // else asking it for its results says which game is unknown
            workout->TakePoints(std::move(*found->second));
    }
}

std::shared_ptr<CWorkout> colWorkout::Current() const
{
    std::shared_ptr<CWorkout> current;
    for (const auto &workout : m_Workouts)
        if (workout->Status == CWorkout::Open) current = workout;
    return current;
}
