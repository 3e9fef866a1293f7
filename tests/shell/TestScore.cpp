#include "platform/RuntimeError.h"
#include "shell/Score.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace
{
constexpr std::int32_t Largest = std::numeric_limits<std::int32_t>::max();

struct ScoreRow
{
    const char *what;
    std::int32_t limit, taken, points, level; // [s], [s]
    std::int32_t timeLeft, timeBonus, levelBonus, total;
    bool star;
    friend std::ostream &operator<<(std::ostream &out, const ScoreRow &row) { return out << row.what; }
};

class ScoreTable : public testing::TestWithParam<ScoreRow>
{};

constexpr ScoreRow Rows[] = {
    {"a quarter of the time gone", 60, 15, 80, 1, 45, 60, 0, 140, true},
    {"at the limit there is no bonus", 60, 60, 80, 1, 0, 0, 0, 80, false},
    {"over the limit neither", 60, 75, 80, 1, 0, 0, 0, 80, false},
    {"time-up still earns the award through points", 60, 61, 100, 1, 0, 0, 0, 100, true},
    {"one point less does not", 60, 61, 99, 1, 0, 0, 0, 99, false},
    {"finishing at once doubles the points", 60, 0, 50, 1, 60, 50, 0, 100, true},
    {"2.5 goes to the even 2", 60, 30, 5, 1, 30, 2, 0, 7, false},
    {"3.5 goes to the even 4", 60, 30, 7, 1, 30, 4, 0, 11, false},
    {"level 3 at its threshold", 60, 60, 100, 3, 0, 0, 100, 200, true},
    {"level 3 one point below", 60, 60, 99, 3, 0, 0, 100, 199, false},
    {"no limit, no bonus and no division", 0, 15, 80, 1, 0, 0, 0, 80, false},
    {"negative points pass through", 60, 30, -10, 2, 30, -5, 50, 35, false},
    {"a clock set back leaves more than the limit", 60, -60, 10, 1, 120, 20, 0, 30, false},
    {"nothing scored", 60, 10, 0, 1, 50, 0, 0, 0, false},
};
} // namespace

TEST_P(ScoreTable, AddsUp)
{
    const ScoreRow &row = GetParam();
    const ScoreSheet sheet = Score(row.limit, row.taken, row.points, row.level);
    EXPECT_EQ(sheet.TimeLeft, row.timeLeft);
    EXPECT_EQ(sheet.TimeBonus, row.timeBonus);
    EXPECT_EQ(sheet.LevelBonus, row.levelBonus);
    EXPECT_EQ(sheet.Total, row.total);
    EXPECT_EQ(sheet.Star, row.star);
}
INSTANTIATE_TEST_SUITE_P(Rows, ScoreTable, testing::ValuesIn(Rows));

TEST(Score, OverflowIsAFailureNeverAWrap)
{
    EXPECT_THROW(Score(60, 0, Largest, 1), RuntimeError);   // the total
    EXPECT_THROW(Score(60, -60, Largest, 1), RuntimeError); // the time bonus
    EXPECT_THROW(Score(0, 0, 0, Largest), RuntimeError);    // the level bonus
    EXPECT_THROW(Score(Largest, -1, 1, 1), RuntimeError);   // the time left
    EXPECT_NO_THROW(Score(0, 0, Largest, 1));
}

namespace
{
struct PromotionRow
{
    const char *what;
    Standing before;
    std::int32_t levels;
    Standing after;
    friend std::ostream &operator<<(std::ostream &out, const PromotionRow &row) { return out << row.what; }
};

class Promotion : public testing::TestWithParam<PromotionRow>
{};

constexpr PromotionRow Promotions[] = {
    {"two awards buy nothing", {1, 2}, 10, {1, 2}},
    {"three awards buy a level", {1, 3}, 10, {2, 0}},
    {"one level at a time", {1, 6}, 10, {2, 3}},
    {"at the top they stay unspent", {10, 3}, 10, {10, 3}},
    {"and pile up", {10, 40}, 10, {10, 40}},
    {"the last level can be bought", {9, 4}, 10, {10, 1}},
    {"a game with fewer levels than reached", {5, 3}, 3, {5, 3}},
};
} // namespace

TEST_P(Promotion, SpendsThreeAwards) { EXPECT_EQ(Promoted(GetParam().before, GetParam().levels), GetParam().after); }
INSTANTIATE_TEST_SUITE_P(Rows, Promotion, testing::ValuesIn(Promotions));
