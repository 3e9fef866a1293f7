#include "platform/ChartSurface.h"
#include "platform/RuntimeError.h"

#include <dlfcn.h>

namespace
{
using Make = ChartSurface *(*)(LarkChart *);

// Looked for where the program's run path leads, which is its own folder. It stays loaded: its surfaces live as long
// as the windows do.
Make LoadedMaker()
{
    void *const library = dlopen("chart.so", RTLD_NOW | RTLD_LOCAL);
    void *const make = library != nullptr ? dlsym(library, "MakeChartPlot") : nullptr;
    if (make == nullptr) {
        const QString reason = QString::fromLocal8Bit(dlerror());
        dlerror(); // told once more, the loader lets go of the text
        throw RuntimeError(QStringLiteral("The chart can't be drawn: %1").arg(reason));
    }
    return reinterpret_cast<Make>(make);
}
} // namespace

std::unique_ptr<ChartSurface> MakeChartSurface(LarkChart *Chart)
{
    static const Make make = LoadedMaker();
    return std::unique_ptr<ChartSurface>(make(Chart));
}
