// A GIF or JPEG of any bytes: it is read, or it fails in one sentence, and the proof of wholeness always ends.
#include "platform/Picture.h"
#include "platform/RuntimeError.h"
#include "platform/WholePicture.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const bool isWhole = IsWholePicture(bytes);
    try {
        const QImage picture = PictureFromData(bytes, QStringLiteral("a.gif"));
        if (picture.isNull() || !isWhole || picture.format() != QImage::Format_RGB32) std::abort();
    } catch (const RuntimeError &) {
        return 0;
    }
    return 0;
}
