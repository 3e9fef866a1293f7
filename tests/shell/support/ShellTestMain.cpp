#include "shell/GuardedApplication.h"
#include "tests/support/ThreadsEnd.h"

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const ThreadsEnd threadsEnd; // after the application
    GuardedApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
