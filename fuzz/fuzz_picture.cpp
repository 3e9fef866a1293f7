// A GIF or JPEG of any bytes: it is read, or it fails in one sentence, and the proof of wholeness always ends. What
// the fast reader of plain GIFs takes is whole, and it sees in it what the usual reader sees.
#include "platform/Picture.h"
#include "platform/PlainGif.h"
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
    const bool isWhole = IsWholePicture(bytes);
    const QImage plain = PlainGif(bytes);
    if (!plain.isNull() && (!isWhole || plain != Usual(bytes))) std::abort();
    try {
        const QImage picture = PictureFromData(bytes, QStringLiteral("a.gif"));
        if (picture.isNull() || !isWhole || picture.format() != QImage::Format_RGB32) std::abort();
    } catch (const RuntimeError &) {
        return 0;
    }
    return 0;
}
