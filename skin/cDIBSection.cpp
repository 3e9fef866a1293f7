#include "skin/cDIBSection.h"

#include <algorithm>

namespace
{
constexpr std::int64_t LargestBitmap = std::int64_t{1} << 30; // [bytes]
constexpr int BytesPerPixel = 3;

// Bits 0 to 3 of an operation's index are its answers where source and destination are 00, 01, 10 and 11.
std::uint8_t Combined(std::uint32_t operation, int source, int destination)
{
    const std::uint32_t index = operation >> 16;
    int result = 0;
    if ((index & 1) != 0) result |= ~source & ~destination;
    if ((index & 2) != 0) result |= ~source & destination;
    if ((index & 4) != 0) result |= source & ~destination;
    if ((index & 8) != 0) result |= source & destination;
    return static_cast<std::uint8_t>(result);
}
} // namespace

std::int32_t cDIBSection::BytesPerScanLine() const { return (m_tBI.biWidth * BytesPerPixel + 3) & ~3; }

bool cDIBSection::FillHeader(std::int32_t width, std::int32_t height)
{
    if (width <= 0 || height <= 0) return false;
    if (height > LargestBitmap / (std::int64_t{width} * BytesPerPixel + 3)) return false;
    m_tBI.biWidth = width;
    m_tBI.biHeight = height;
    m_tBI.biSizeImage = static_cast<std::uint32_t>(height) * static_cast<std::uint32_t>(BytesPerScanLine());
    return true;
}

void cDIBSection::TakeMemory() const { m_Bits.assign(m_tBI.biSizeImage, 0); }

bool cDIBSection::CreateDIB(std::int32_t Width, std::int32_t Height)
{
    if (!FillHeader(Width, Height)) return false;
    m_Picture = QImage();
    TakeMemory();
    return true;
}

bool cDIBSection::Create(std::int32_t Width, std::int32_t Height)
{
    ClearUp();
    return CreateDIB(Width, Height);
}

void cDIBSection::CreateFromPicture(const QImage &Picture)
{
    ClearUp();
    if (!FillHeader(Picture.width(), Picture.height())) return;
    m_Picture = Picture.convertToFormat(QImage::Format_RGB32); // a transparent pixel counts with its colour
}

void cDIBSection::LoadPictureBlt(const QImage &Source, std::int32_t SrcX, std::int32_t SrcY, std::int32_t Width,
                                 std::int32_t Height, std::uint32_t RasterOperation)
{
    if (DIBSectionBitsPtr() == nullptr) return;
    m_Picture = QImage(); // the bits are no longer it
    if (Width < 0) Width = m_tBI.biWidth;
    if (Height < 0) Height = m_tBI.biHeight;
    const QRect wanted = QRect(SrcX, SrcY, std::min(Width, m_tBI.biWidth), std::min(Height, m_tBI.biHeight));
    Write(Source.convertToFormat(QImage::Format_RGB32), wanted & Source.rect(), {SrcX, SrcY}, RasterOperation);
}

void cDIBSection::Write(const QImage &plain, const QRect &part, const QPoint &from, std::uint32_t operation) const
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const int row = m_tBI.biHeight - 1 - (y - from.y()); // bottom row first
        std::uint8_t *byte = m_Bits.data() + std::size_t(row) * std::size_t(BytesPerScanLine()) +
                             std::size_t(part.left() - from.x()) * BytesPerPixel;
        const QRgb *pixel = reinterpret_cast<const QRgb *>(plain.constScanLine(y)) + part.left();
        for (int x = 0; x < part.width(); ++x, ++pixel) {
            for (const int colour : {qBlue(*pixel), qGreen(*pixel), qRed(*pixel)}) {
                *byte = Combined(operation, colour, *byte);
                ++byte;
            }
        }
    }
}

const std::uint8_t *cDIBSection::DIBSectionBitsPtr() const
{
    if (m_Bits.empty() && !m_Picture.isNull()) {
        TakeMemory();
        Write(m_Picture, m_Picture.rect(), {}, SrcCopy);
    }
    return m_Bits.empty() ? nullptr : m_Bits.data();
}

const QRgb *cDIBSection::PixelsOf(std::int32_t Row) const
{
    if (Row < 0 || Row >= m_Picture.height()) return nullptr;
    return reinterpret_cast<const QRgb *>(m_Picture.constScanLine(m_Picture.height() - 1 - Row));
}

void cDIBSection::ClearUp()
{
    m_tBI = {};
    m_Picture = QImage();
    m_Bits.clear();
}
