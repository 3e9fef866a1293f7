#include "tests/support/ThreadsEnd.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const ThreadsEnd threadsEnd; // after the application
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
