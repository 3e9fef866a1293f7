// The reader of compiled help files: any bytes are read within their bounds, or refused. The list of contents is
// asked for by itself too, since few mutations get through the compression to it.
#include "platform/ChmFile.h"
#include "platform/RuntimeError.h"

#include <QString>

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace
{
void AskForAll(const QString &path)
{
    const ChmFile help(path);
    for (const auto &line : help.Contents()) {
        if (line.Name.isEmpty() || line.Depth < 0) std::abort();
        help.Read(line.Page.section(u'#', 0, 0));
    }
    for (const char *entry : {"/index.html", "/two.html", "/p.png", "/#SYSTEM", "/#STRINGS", "/none", "/"})
        help.Read(QLatin1String(entry));
    help.Read(help.FirstPage());
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ChmFile::LinesOf(QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    const int file = memfd_create("help", 0);
    if (file < 0 || write(file, data, size) != static_cast<ssize_t>(size)) std::abort();
    try {
        AskForAll(QStringLiteral("/proc/self/fd/%1").arg(file));
    } catch (const RuntimeError &) {
        // in one sentence
    }
    close(file);
    return 0;
}
