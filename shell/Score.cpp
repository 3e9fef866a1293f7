#include "shell/Score.h"

#include "platform/Convert.h"

#include <algorithm>

namespace
{
constexpr std::int64_t PointsPerLevel = 50;
constexpr std::int32_t AwardsPerLevel = 3;
} // namespace

ScoreSheet Score(std::int32_t TimeLimit, std::int32_t TimeTaken, std::int32_t Points, std::int32_t Level)
{
    ScoreSheet sheet;
    sheet.TimeLeft = std::max(0, ToInt32(std::int64_t{TimeLimit} - TimeTaken));
    if (TimeLimit != 0) sheet.TimeBonus = ToInt32(static_cast<double>(sheet.TimeLeft) / TimeLimit * Points);
    sheet.LevelBonus = ToInt32((std::int64_t{Level} - 1) * PointsPerLevel);
    sheet.Total = ToInt32(std::int64_t{sheet.TimeBonus} + Points + sheet.LevelBonus);
    sheet.Star = sheet.Total >= ToInt32(Level * PointsPerLevel + PointsPerLevel);
    return sheet;
}

Standing Promoted(Standing Before, std::int32_t Levels)
{
    if (Before.UnspentAwards < AwardsPerLevel || Before.Level >= Levels) return Before;
    return {Before.Level + 1, Before.UnspentAwards - AwardsPerLevel};
}
