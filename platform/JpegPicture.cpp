#include "platform/JpegPicture.h"

#include <turbojpeg.h>

#include <memory>

namespace
{
constexpr int LargestSide = 8192; // [px]
constexpr int PixelFormat = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? TJPF_BGRA : TJPF_ARGB;

struct Closing
{
    void operator()(void *reader) const { tjDestroy(reader); }
};
using Reader = std::unique_ptr<void, Closing>;

struct Header
{
    int Width = 0, Height = 0, Sampling = 0, Colours = -1;
};

bool IsReadable(const Header &header)
{
    const bool hasRgb = header.Colours == TJCS_RGB || header.Colours == TJCS_YCbCr || header.Colours == TJCS_GRAY;
    return hasRgb && header.Width <= LargestSide && header.Height <= LargestSide;
}
} // namespace

QImage JpegPicture(const QByteArray &Bytes)
{
    const Reader reader(tjInitDecompress());
    const auto *const data = reinterpret_cast<const unsigned char *>(Bytes.constData());
    const auto size = static_cast<unsigned long>(Bytes.size());
    Header header;
    if (!reader || tjDecompressHeader3(reader.get(), data, size, &header.Width, &header.Height, &header.Sampling,
                                       &header.Colours) != 0)
        return {};
    if (!IsReadable(header)) return {};
    QImage picture(header.Width, header.Height, QImage::Format_RGB32);
    if (picture.isNull()) return {};
    const int result =
        tjDecompress2(reader.get(), data, size, picture.bits(), header.Width,
                      static_cast<int>(picture.bytesPerLine()), header.Height, PixelFormat, TJFLAG_ACCURATEDCT);
    // A warning is about bytes that were passed over; the picture is there.
    return result == 0 || tjGetErrorCode(reader.get()) == TJERR_WARNING ? picture : QImage();
}
