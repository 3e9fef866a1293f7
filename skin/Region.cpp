#include "skin/Region.h"

#include "platform/RuntimeError.h"

#include <QWidget>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int FirstSteps = 8; // pixels looked at one by one: runs of a fine outline end soon
constexpr int Block = 64;     // pixels looked at together

// A colour as scan and key have it: red and blue have changed places against other colours here, which makes it the
// number of the pixel itself. The uppermost byte does not count.
std::int32_t ColourOf(QRgb pixel) { return static_cast<std::int32_t>(pixel & RGB_MASK); }

// Whether one of the pixels has the key colour, or one has another. Without a branch in it, so that the compiler
// compares many pixels at once.
template <bool Keyed>
bool BlockHas(const QRgb *pixels, QRgb key)
{
    QRgb found = 0;
    for (int i = 0; i < Block; ++i) {
        const QRgb difference = (pixels[i] & RGB_MASK) ^ key;
        if constexpr (Keyed)
            found |= difference == 0 ? 1U : 0U;
        else
            found |= difference;
    }
    return found != 0;
}

// The first pixel from x on that has the key colour, or that has another one; last where there is none.
template <bool Keyed>
int FirstOf(const QRgb *row, int x, int last, std::int32_t key)
{
    const auto isFound = [&] { return (ColourOf(row[x]) == key) == Keyed; };
    for (const int soon = std::min(x + FirstSteps, last); x < soon; ++x)
        if (isFound()) return x;
    while (x + Block <= last && !BlockHas<Keyed>(row + x, static_cast<QRgb>(key))) x += Block;
    while (x < last && !isFound()) ++x;
    return x;
}

int HalfToEven(int length) { return static_cast<int>(std::nearbyint(length / 2.0)); }
} // namespace

void Region::ScanPicture(const QImage &Picture, std::int32_t &TransColour)
{
    m_Runs.clear();
    m_Rgn = QRegion();
    m_DIB.CreateFromPicture(Picture);
    const QRgb *bottom = m_DIB.PixelsOf(0);
    if (bottom == nullptr) return;
    if (TransColour == UseCorner) TransColour = ColourOf(*bottom);
    for (int row = 0; row < m_DIB.Height(); ++row) // rows of the picture, top down; the section begins at the bottom
        ScanRow(m_DIB.PixelsOf(m_DIB.Height() - 1 - row), row, TransColour);
    BuildRgn();
}

void Region::ScanRow(const QRgb *pixels, int row, std::int32_t key)
{
    const int last = m_DIB.Width() - 1; // where the scan stops, without taking the pixel in
    for (int x = 0; x < last; ++x) {
        const int start = FirstOf<false>(pixels, x, last, key);
        x = FirstOf<true>(pixels, start, last, key);
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

void Region::Check() const
{
    if (m_Rgn.rectCount() > MostRectangles)
        throw RuntimeError(
            QStringLiteral("The outline of the frame picture is too fine for a window: %1 pieces, %2 at "
                           "the most. Draw it without dithering at its edge.")
                .arg(m_Rgn.rectCount())
                .arg(MostRectangles));
}

void Region::ApplyRgn(QWidget &Window) const
{
    Check();
    // An empty mask would mean no mask; one pixel that lies outside the window shows nothing of it.
    Window.setMask(m_Rgn.isEmpty() ? QRegion(-1, -1, 1, 1) : m_Rgn);
}
