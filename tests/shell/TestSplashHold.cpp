#include "shell/StartUp.h"

#include <gtest/gtest.h>

using modMain::SplashHold;

TEST(SplashHold, AQuickStartShowsTheSplashUntilFiveSecondsAfterItAppeared)
{
    EXPECT_EQ(SplashHold(1000.0F, 1000.0F), 5000);
    EXPECT_NEAR(SplashHold(1000.0F, 1003.9F), 1100, 1);
}

TEST(SplashHold, AStartOfFourSecondsDoesNotSleep)
{
    EXPECT_EQ(SplashHold(1000.0F, 1004.0F), 0);
    EXPECT_EQ(SplashHold(1000.0F, 1100.0F), 0);
}

TEST(SplashHold, AcrossMidnightItIsAsLongAsTheFormulaGives) { EXPECT_EQ(SplashHold(86399.0F, 1.0F), 86403000); }
