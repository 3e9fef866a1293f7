// What the first click on a screen needs is there before anybody clicks. A program of its own, since other tests show
// charts.
#include "tests/shell/support/RunningProgram.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace
{
bool IsLoaded()
{
    void *const library = dlopen("chart.so", RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr) dlclose(library);
    return library != nullptr;
}
} // namespace

TEST(FirstChart, IsMadeReadyWhileAPersonLooksForTheirName)
{
    ASSERT_FALSE(IsLoaded()) << "nothing of it is needed for a start";
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_TRUE(RunningProgram::Until(&IsLoaded));
    EXPECT_NE(program.Window().findChild<QWidget *>(QStringLiteral("txtName")), nullptr);
    EXPECT_NE(program.Window().findChild<QWidget *>(QStringLiteral("txtInstructions")), nullptr);
    EXPECT_EQ(program.Window().Mode(), 0);
    EXPECT_TRUE(program.ComesToRest());
}
