#include "shell/GuardedApplication.h"

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    GuardedApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
