#include "skin/modTransBlt.h"

#include "platform/Colour.h"

#include <QPainter>

#include <algorithm>
#include <limits>

namespace
{
// The part with the key's pixels clear and all others opaque: the mask and the picture in one.
QImage Keyed(const QImage &source, const QRect &part, QRgb key)
{
    QImage keyed = source.copy(part).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < keyed.height(); ++y) {
        QRgb *pixel = reinterpret_cast<QRgb *>(keyed.scanLine(y));
        for (int x = 0; x < keyed.width(); ++x, ++pixel)
            *pixel = (*pixel & RGB_MASK) == (key & RGB_MASK) ? 0 : *pixel | ~RGB_MASK;
    }
    return keyed;
}

// The far edge as a sum that can't wrap.
QRect PartOf(const QImage &source, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height)
{
    const auto end = [](std::int32_t start, std::int32_t length) {
        const std::int64_t edge = std::int64_t{start} + length - 1;
        return static_cast<int>(std::clamp<std::int64_t>(edge, -1, std::numeric_limits<int>::max() / 2));
    };
    return width <= 0 || height <= 0 ? QRect()
                                     : QRect(QPoint(x, y), QPoint(end(x, width), end(y, height))) & source.rect();
}
} // namespace

void TransBlt(QPainter &DestDC, std::int32_t DestX, std::int32_t DestY, std::int32_t Width, std::int32_t Height,
              const QImage &SrcDC, std::int32_t SrcX, std::int32_t SrcY, std::int32_t TransColour)
{
    const QRect part = PartOf(SrcDC, SrcX, SrcY, Width, Height);
    if (part.isEmpty()) return;
    const QPointF place(double{1} * DestX + (part.left() - SrcX), double{1} * DestY + (part.top() - SrcY));
    DestDC.drawImage(place, Keyed(SrcDC, part, ToColour(TransColour).rgb()));
}

void TransBlt(QImage &DestDC, std::int32_t DestX, std::int32_t DestY, std::int32_t Width, std::int32_t Height,
              const QImage &SrcDC, std::int32_t SrcX, std::int32_t SrcY, std::int32_t TransColour)
{
    QPainter painter(&DestDC);
    TransBlt(painter, DestX, DestY, Width, Height, SrcDC, SrcX, SrcY, TransColour);
}

std::int32_t KeyColour(const QImage &Picture)
{
    return Picture.isNull() ? 0 : FromColour(QColor::fromRgb(Picture.pixel(0, 0)));
}
