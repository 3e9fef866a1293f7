#include "platform/ChartSurface.h"
#include "platform/RuntimeError.h"

#include <QCoreApplication>
#include <QFile>

#include <dlfcn.h>

namespace
{
using Make = ChartSurface *(*)(LarkChart *);

// Beside the program, or, for programs of other folders, where their run path leads. The program itself has none: the
// loader would look for every library of a start in it.
void *Library()
{
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/chart.so");
    void *const library = dlopen(QFile::encodeName(beside).constData(), RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? library : dlopen("chart.so", RTLD_NOW | RTLD_LOCAL);
}

// It stays loaded: its surfaces live as long as the windows do.
Make LoadedMaker()
{
    void *const library = Library();
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
