#include "platform/Picture.h"

#include "platform/Files.h"
#include "platform/GifFrame.h"
#include "platform/RuntimeError.h"
#include "platform/WholePicture.h"

#include <QBuffer>
#include <QImageReader>

namespace
{
constexpr int LargestSide = 8192;                                           // [px]
constexpr int LargestPicture = LargestSide / 1024 * LargestSide / 1024 * 4; // [MiB], four bytes a pixel

[[noreturn]] void Fail(const QString &Name, const QString &Reason)
{
    throw RuntimeError(481, {}, QStringLiteral("Invalid picture: %1 (%2)").arg(Name, Reason));
}

// A format that is named is read by its own reader alone. Where it has to be found out, every reader there is gets
// loaded to be asked.
QByteArray FormatOf(const QByteArray &Bytes)
{
    if (Bytes.startsWith("GIF8")) return "gif";
    if (Bytes.startsWith("\xFF\xD8")) return "jpeg";
    if (Bytes.startsWith("\x89PNG")) return "png";
    return {};
}
} // namespace

QImage PictureFromData(const QByteArray &Bytes, const QString &NameForErrors)
{
    const QByteArray format = FormatOf(Bytes);
    const GifFrame frame = format == "gif" ? FirstFrame(Bytes) : GifFrame{IsWholePicture(Bytes), {}};
    if (!frame.IsWhole) Fail(NameForErrors, QStringLiteral("the file is cut short"));
    if (!frame.Picture.isNull()) return frame.Picture;
    QBuffer buffer;
    buffer.setData(Bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(format.isEmpty());
    reader.setDecideFormatFromContent(format.isEmpty());
    QImageReader::setAllocationLimit(LargestPicture);
    const QSize size = reader.size();
    if (size.width() > LargestSide || size.height() > LargestSide) Fail(NameForErrors, QStringLiteral("too large"));
    const QImage picture = reader.read();
    if (picture.isNull()) Fail(NameForErrors, reader.errorString());
    return picture.convertToFormat(QImage::Format_RGB32);
}

QImage LoadPicture(const QString &Path) { return PictureFromData(ReadFile(FindFile(Path)), Path); }

QImage PartOf(const QImage &Picture, const QRect &Place)
{
    const double scale = Picture.devicePixelRatio();
    QImage part = Picture.copy(QRectF(QPointF(Place.topLeft()) * scale, QSizeF(Place.size()) * scale).toRect());
    part.setDevicePixelRatio(scale);
    return part;
}
