#include "skin/Region.h"

#include "platform/Colour.h"
#include "platform/RuntimeError.h"

#include <QWidget>

#include <cmath>

namespace
{
constexpr int BytesPerPixel = 3;

// The first byte is blue here, taken as red. Key and pixel are read alike, so they still agree.
std::int32_t ColourAt(const std::uint8_t *pixel) { return ColourBytes(pixel[0], pixel[1], pixel[2]); }

int HalfToEven(int length) { return static_cast<int>(std::nearbyint(length / 2.0)); }
} // namespace

void Region::ScanPicture(const QImage &Picture, std::int32_t &TransColour)
{
    m_Runs.clear();
    m_Rgn = QRegion();
    m_DIB.CreateFromPicture(Picture);
    const std::uint8_t *bits = m_DIB.DIBSectionBitsPtr();
    if (bits == nullptr) return;
    if (TransColour == UseCorner) TransColour = ColourAt(bits);
    for (int row = 0; row < m_DIB.Height(); ++row) // rows of the picture, top down; the bits begin at the bottom
        ScanRow(bits + std::ptrdiff_t{m_DIB.Height() - 1 - row} * m_DIB.BytesPerScanLine(), row, TransColour);
    BuildRgn();
    m_DIB = cDIBSection(); // as large as the picture
}

void Region::ScanRow(const std::uint8_t *bits, int row, std::int32_t key)
{
    const int last = m_DIB.Width() - 1; // where the scan stops, without taking the pixel in
    const auto isKey = [&](int x) { return ColourAt(bits + std::ptrdiff_t{x} * BytesPerPixel) == key; };
    for (int x = 0; x < last; ++x) {
        while (x < last && isKey(x)) ++x;
        const int start = x;
        while (x < last && !isKey(x)) ++x;
        if (start < x) m_Runs.push_back({row, start, x}); // an empty run would change nothing
    }
}

// The runs come sorted by row and column and touch nowhere, so rows that look alike make one band of rectangles, and
// the whole is handed over at once.
void Region::BuildRgn()
{
    std::vector<QRect> rects;
    std::size_t bandFrom = 0; // the rectangles of the row above
    std::size_t bandTo = 0;
    for (std::size_t at = 0; at < m_Runs.size();) {
        std::size_t end = at;
        while (end < m_Runs.size() && m_Runs[end].Row == m_Runs[at].Row) ++end;
        const int row = m_Runs[at].Row;
        bool isLikeAbove = end - at == bandTo - bandFrom && bandTo > bandFrom && rects[bandFrom].bottom() == row - 1;
        for (std::size_t i = 0; isLikeAbove && i < end - at; ++i)
            isLikeAbove = rects[bandFrom + i].left() == m_Runs[at + i].Start &&
                          rects[bandFrom + i].right() == m_Runs[at + i].End - 1;
        if (isLikeAbove) {
            for (std::size_t i = bandFrom; i < bandTo; ++i) rects[i].setBottom(row);
        } else {
            bandFrom = rects.size();
            for (std::size_t i = at; i < end; ++i)
                rects.emplace_back(m_Runs[i].Start, row, m_Runs[i].End - m_Runs[i].Start, 1);
            bandTo = rects.size();
        }
        at = end;
    }
    m_Rgn.setRects(rects.data(), static_cast<int>(rects.size()));
}

void Region::OffsetHeader(int BorderStyle, const QSize &Window, const QSize &Inside)
{
    if (BorderStyle == 0) return;
    const int side = HalfToEven(Window.width() - Inside.width());
    const int top = Window.height() - Inside.height() - side;
    m_Rgn.translate(side, top);
}

void Region::ApplyRgn(QWidget &Window) const
{
    if (m_Rgn.rectCount() > MostRectangles)
        throw RuntimeError(
            QStringLiteral("The outline of the frame picture is too fine for a window: %1 pieces, %2 at "
                           "the most. Draw it without dithering at its edge.")
                .arg(m_Rgn.rectCount())
                .arg(MostRectangles));
    // An empty mask would mean no mask; one pixel that lies outside the window shows nothing of it.
    Window.setMask(m_Rgn.isEmpty() ? QRegion(-1, -1, 1, 1) : m_Rgn);
}
