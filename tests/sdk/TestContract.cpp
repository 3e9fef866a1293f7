#include "sdk/CGameArea.h"

#include <gtest/gtest.h>

#include <string>

// The shell refuses a component by this name alone, before anything of it is loaded.
TEST(Contract, TheInterfaceIdEndsInTheVersion)
{
    EXPECT_EQ(std::string(NOGGLE_GAME_IID), NOGGLE_GAME_IID_STEM + std::to_string(NOGGLE_SDK_VERSION));
}
