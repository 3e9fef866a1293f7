// The tests of sessions; or, when told so, the program that plays on until it is killed.
#include "tests/shell/support/PlaysOn.h"
#include "tests/support/ThreadsEnd.h"

#include "shell/GuardedApplication.h"

#include <gtest/gtest.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const ThreadsEnd threadsEnd; // after the application
    GuardedApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == u"play-on") return PlayOnDemand();
    return RUN_ALL_TESTS();
}
