#include "platform/FontList.h"
#include "platform/Memory.h"

#include "shell/GuardedApplication.h"
#include "shell/StartUp.h"

#include <QtGlobal>

#include <cstdlib>

namespace
{
// Where both display systems are there, the one is taken on which a window keeps its place and tells when it is
// minimised.
void PreferX11()
{
    if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}
} // namespace

int main(int argc, char *argv[])
{
    PrepareMemory();
    PreferX11();
    PrepareFontList();
    GuardedApplication application(argc, argv);
    const int code = modMain::Main() ? GuardedApplication::exec() : EXIT_FAILURE;
    modMain::ReleaseWindows();
    return code;
}
