#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

namespace
{
Stage GivenBlank() { return Stage(QStringLiteral("Blank.GameArea"), QStringLiteral(NOGGLE_BLANK_FOLDER)); }
} // namespace

TEST(Blank, TenClicksEndTheSession)
{
    Stage stage = GivenBlank();
    stage.Start(1);
    for (int click = 1; click <= 10; ++click) {
        EXPECT_EQ(stage.Framework->Count(QStringLiteral("gameover")), 0);
        stage.Click(stage.Game->Control()->rect().center());
        EXPECT_EQ(stage.Framework->Last(QStringLiteral("progress")), click * 10);
    }
    EXPECT_EQ(stage.Framework->Count(QStringLiteral("gameover")), 1);
    EXPECT_EQ(stage.Score(), 90);
}

TEST(Blank, ScoreMayBeAskedAtAnyMoment)
{
    Stage stage = GivenBlank();
    EXPECT_EQ(stage.Score(), 0);
    stage.Start(1);
    stage.Key(32);
    EXPECT_EQ(stage.Score(), 9);
}

TEST(Blank, KeysDoNothingWhilePaused)
{
    Stage stage = GivenBlank();
    stage.Start(1);
    stage.Game->SetVisible(false);
    stage.Key(32);
    EXPECT_EQ(stage.Score(), 0);
}

TEST(Blank, ClicksBesideTheCircleDoNotCount)
{
    Stage stage = GivenBlank();
    stage.Start(3);
    stage.Click({2, 2});
    EXPECT_EQ(stage.Score(), 0);
    stage.Keep(QStringLiteral("blank"));
}
