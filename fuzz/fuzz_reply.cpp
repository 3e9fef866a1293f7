// The headers of an HTTP reply: whatever lines come in, what is kept are whole lines of them, no more, each ended by
// CR LF, and the end of a final reply's headers is the end.
#include "platform/ReplyHeader.h"

#include <QList>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QList<QByteArray> lines = bytes.split('\n');
    ReplyHeader header;
    for (const QByteArray &line : lines) header.Take(line);
    const QByteArray &text = header.Text();
    if (text.isEmpty()) return 0;
    if (!text.endsWith("\r\n") || text.contains("\r\n\r\n")) std::abort();
    if (text.size() > bytes.size() + 2 * lines.size()) std::abort();
    header.Take("HTTP/1.1 404 Not Found");
    header.Take("");
    const QByteArray complete = header.Text();
    header.Take("HTTP/1.1 200 OK");
    if (complete.startsWith("HTTP/1.1 404 Not Found\r\n") && header.Text() != complete) std::abort();
    return 0;
}
