#include "skin/cDIBSection.h"

#include <algorithm>
#include <new>

namespace
{
constexpr std::int64_t LargestBitmap = std::int64_t{1} << 30; // [bytes]
constexpr int BytesPerPixel = 3;
} // namespace

std::int32_t cDIBSection::BytesPerScanLine() const { return (m_tBI.biWidth * BytesPerPixel + 3) & ~3; }

bool cDIBSection::CreateDIB(std::int32_t Width, std::int32_t Height)
{
    if (Width <= 0 || Height <= 0) return false;
    if (Height > LargestBitmap / (std::int64_t{Width} * BytesPerPixel + 3)) return false;
    m_tBI.biWidth = Width;
    m_tBI.biHeight = Height;
    m_tBI.biSizeImage = static_cast<std::uint32_t>(Height) * static_cast<std::uint32_t>(BytesPerScanLine());
    m_Bits.assign(m_tBI.biSizeImage, 0);
    return true;
}

bool cDIBSection::Create(std::int32_t Width, std::int32_t Height)
{
    ClearUp();
    return CreateDIB(Width, Height);
}

void cDIBSection::CreateFromPicture(const QImage &Picture)
{
    if (Create(Picture.width(), Picture.height())) LoadPictureBlt(Picture);
}

void cDIBSection::LoadPictureBlt(const QImage &Source, std::int32_t SrcX, std::int32_t SrcY, std::int32_t Width,
                                 std::int32_t Height)
{
    if (Width < 0) Width = m_tBI.biWidth;
    if (Height < 0) Height = m_tBI.biHeight;
    const QRect wanted = QRect(SrcX, SrcY, std::min(Width, m_tBI.biWidth), std::min(Height, m_tBI.biHeight));
    const QRect part = wanted & Source.rect();
    const QImage plain = Source.convertToFormat(QImage::Format_RGB32); // a transparent pixel counts with its colour
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const int row = m_tBI.biHeight - 1 - (y - SrcY); // bottom row first
        std::uint8_t *byte = m_Bits.data() + std::size_t(row) * std::size_t(BytesPerScanLine()) +
                             std::size_t(part.left() - SrcX) * BytesPerPixel;
        const QRgb *pixel = reinterpret_cast<const QRgb *>(plain.constScanLine(y)) + part.left();
        for (int x = 0; x < part.width(); ++x, ++pixel) {
            *byte++ = static_cast<std::uint8_t>(qBlue(*pixel));
            *byte++ = static_cast<std::uint8_t>(qGreen(*pixel));
            *byte++ = static_cast<std::uint8_t>(qRed(*pixel));
        }
    }
}

void cDIBSection::ClearUp()
{
    m_tBI = {};
    m_Bits.clear();
}
