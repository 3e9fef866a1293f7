// A picture as plain bytes: 24 bits a pixel in the order blue, green, red, rows padded to four bytes, the bottom row
// first.
//
// A section made from a picture shares that picture until somebody asks for the bytes or writes into them, since most
// readers want pixels only.
#pragma once

#include <QImage>

#include <cstddef>
#include <cstdint>
#include <vector>

class cDIBSection
{
public:
    /// The bitmap's header as it is stored.
    struct Header
    {
        std::uint32_t biSize = 40;
        std::int32_t biWidth = 0;
        std::int32_t biHeight = 0; // positive: row 0 of the bits is the bottom row of the picture
        std::uint16_t biPlanes = 1;
        std::uint16_t biBitCount = 24;
        std::uint32_t biCompression = 0;
        std::uint32_t biSizeImage = 0; // [bytes]
        std::int32_t biXPelsPerMeter = 0;
        std::int32_t biYPelsPerMeter = 0;
        std::uint32_t biClrUsed = 0;
        std::uint32_t biClrImportant = 0;
    };
    static_assert(sizeof(Header) == 40);

    /// Fills the header and takes the memory. Answer: false for a size that is empty or can't be had.
    bool CreateDIB(std::int32_t Width, std::int32_t Height);
    /// The picture in its own size. An empty one leaves the section empty.
    void CreateFromPicture(const QImage &Picture);
    /// A black section of that size instead of the former one. Answer: false leaves it empty.
    bool Create(std::int32_t Width, std::int32_t Height);
    /// The length of a row. [bytes]
    std::int32_t BytesPerScanLine() const;
    std::int32_t Width() const { return m_tBI.biWidth; }
    std::int32_t Height() const { return m_tBI.biHeight; }
    static constexpr std::uint32_t SrcCopy = 0x00CC0020; // a plain copy
    /// Brings a part of a picture to the top left corner; a negative width or height means all of the section's own.
    /// What the picture does not have stays. RasterOperation is a ternary one of the classic codes, of which the
    /// index in the third byte tells, bit by bit, what becomes of source and destination; there is no pattern, all of
    /// its bits count as 0.
    void LoadPictureBlt(const QImage &Source, std::int32_t SrcX = 0, std::int32_t SrcY = 0, std::int32_t Width = -1,
                        std::int32_t Height = -1, std::uint32_t RasterOperation = SrcCopy);
    /// The first byte of the bottom row; empty when there is no picture.
    const std::uint8_t *DIBSectionBitsPtr() const;
    /// A row of a section made by CreateFromPicture, counted as the bits are, the bottom one first. The uppermost
    /// byte of a pixel means nothing. Empty when there is no picture, or LoadPictureBlt has written into the section.
    const QRgb *PixelsOf(std::int32_t Row) const;
    void ClearUp();

    const Header &BitmapInfo() const { return m_tBI; }

private:
    bool FillHeader(std::int32_t width, std::int32_t height);
    void TakeMemory() const;
    void Write(const QImage &plain, const QRect &part, const QPoint &from, std::uint32_t operation) const;

    Header m_tBI;
    QImage m_Picture;                         // what the bits are still to be made from, or empty
    mutable std::vector<std::uint8_t> m_Bits; // empty until they are asked for
};
