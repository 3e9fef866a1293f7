// A GIF or JPEG of any bytes: it is read, or it fails in one sentence, and the proof of wholeness always ends. What
// is read of a plain GIF
// is whole, and Qt's reader sees the same in it.
#include "platform/GifFrame.h"
#include "platform/Picture.h"
#include "platform/RuntimeError.h"
#include "platform/WholePicture.h"

#include <QBuffer>
#include <QImageReader>

#include <cstdint>
#include <cstdlib>

namespace
{
QImage Usual(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer, "gif").read().convertToFormat(QImage::Format_RGB32);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const GifFrame frame = FirstFrame(bytes);
    if (!frame.Picture.isNull() && (!frame.IsWhole || frame.Picture != Usual(bytes))) std::abort();
    const bool isWhole = bytes.startsWith("GIF8") ? frame.IsWhole : IsWholePicture(bytes);
    try {
        const QImage picture = PictureFromData(bytes, QStringLiteral("a.gif"));
        if (picture.isNull() || !isWhole || picture.format() != QImage::Format_RGB32) std::abort();
    } catch (const RuntimeError &) {
        return 0;
    }
    return 0;
}
