#include "platform/GifFrame.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace
{
constexpr int LargestSide = 8192; // [px]
constexpr int MostStrings = 4096; // codes have up to 12 bits

struct Source
{
    const QByteArray &Bytes;
    qsizetype At = 0;
};

int Feed(GifFileType *gif, GifByteType *to, int count)
{
    auto &source = *static_cast<Source *>(gif->UserData);
    const qsizetype given = std::min<qsizetype>(count, source.Bytes.size() - source.At);
    std::copy_n(source.Bytes.constData() + source.At, given, to);
    source.At += given;
    return static_cast<int>(given);
}

struct Closing
{
    void operator()(GifFileType *gif) const { DGifCloseFile(gif, nullptr); }
};
using Reader = std::unique_ptr<GifFileType, Closing>;

bool SkipExtension(GifFileType *gif)
{
    int code = 0;
    GifByteType *block = nullptr;
    if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
    while (block != nullptr)
        if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
    return true;
}

/// Leaves the reader before the rows of the first frame.
bool FindFrame(GifFileType *gif)
{
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(gif, &type) == GIF_OK) {
        if (type == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) == GIF_OK;
        if (type != EXTENSION_RECORD_TYPE || !SkipExtension(gif)) return false;
    }
    return false;
}

/// Interlaced, every eighth row comes first, then those between.
std::vector<int> RowsInOrder(int height, bool isInterlaced)
{
    struct Pass
    {
        int First, Step;
    };
    const std::vector<Pass> passes =
        isInterlaced ? std::vector<Pass>{{0, 8}, {4, 8}, {2, 4}, {1, 2}} : std::vector<Pass>{{0, 1}};
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(height));
    for (const Pass &pass : passes)
        for (int row = pass.First; row < height; row += pass.Step) rows.push_back(row);
    return rows;
}

struct Palette
{
    explicit Palette(const ColorMapObject *map) : Count(map == nullptr ? 0 : map->ColorCount)
    {
        for (int i = 0; i < Count; ++i) {
            const GifColorType &colour = map->Colors[i];
            Colours.at(static_cast<std::size_t>(i)) = qRgb(colour.Red, colour.Green, colour.Blue);
        }
    }
    int Count;
    std::array<QRgb, 256> Colours{};
};

bool CoversScreen(const GifFileType &gif)
{
    const GifImageDesc &frame = gif.Image;
    return frame.Left == 0 && frame.Top == 0 && frame.Width == gif.SWidth && frame.Height == gif.SHeight;
}

bool IsReadable(const GifFileType &gif)
{
    return gif.Image.Width > 0 && gif.Image.Height > 0 && gif.Image.Width <= LargestSide &&
           gif.Image.Height <= LargestSide;
}

using Pixels = std::vector<GifPixelType>;

// The strings that the codes of a frame stand for, and all pixels that they gave. Each string stands somewhere in
// these already: the new string of a step is the one of the step before and the pixel behind it. (The library's own
// way goes three times through each string, pixel by pixel, from its end.)
class Strings
{
public:
    Strings(int clear, std::size_t pixels) : m_Clear(clear), m_Pixels(pixels) { Forget(); }
    bool IsFull() const { return m_At == m_Pixels.size(); }
    bool IsClear(int code) const { return code == m_Clear; }
    void Forget() { m_Next = m_Clear + 2, m_Last = {}; }
    /// Answer: false when there is no such string.
    bool Append(int code)
    {
        if (m_Last.Length > 0 && m_Next < MostStrings)
            m_Known[static_cast<std::size_t>(m_Next++)] = {m_Last.Start, m_Last.Length + 1};
        if (code >= m_Next || code == m_Clear + 1) return false;
        const std::size_t start = m_At;
        if (code < m_Clear)
            m_Pixels[m_At++] = static_cast<GifPixelType>(code);
        else
            Copy(m_Known[static_cast<std::size_t>(code)]);
        m_Last = {start, m_At - start};
        return true;
    }
    const Pixels &All() const { return m_Pixels; }

private:
    struct String
    {
        std::size_t Start = 0, Length = 0;
    };
    // The newest string may end in the pixel that is its own first.
    void Copy(String string)
    {
        string.Length = std::min(string.Length, m_Pixels.size() - m_At);
        const auto from = m_Pixels.begin() + static_cast<std::ptrdiff_t>(string.Start);
        const auto to = m_Pixels.begin() + static_cast<std::ptrdiff_t>(m_At);
        const auto last = static_cast<std::ptrdiff_t>(string.Length) - 1;
        std::copy_n(from, last, to);
        to[last] = from[last];
        m_At += string.Length;
    }

    const int m_Clear;
    Pixels m_Pixels;
    std::size_t m_At = 0;
    std::array<String, MostStrings> m_Known{};
    int m_Next = 0;
    String m_Last;
};

/// Of the whole frame, in the order of the file; empty where there are too few, or codes that mean nothing. CodeSize
/// is that of a plain pixel, in bits.
Pixels PixelsOf(GifFileType *gif, int CodeSize)
{
    if (CodeSize < 1 || CodeSize > 8) return {};
    Strings strings(1 << CodeSize,
                    static_cast<std::size_t>(gif->Image.Width) * static_cast<std::size_t>(gif->Image.Height));
    while (!strings.IsFull()) {
        int code = 0;
        if (DGifGetLZCodes(gif, &code) == GIF_ERROR || code < 0) return {};
        if (strings.IsClear(code))
            strings.Forget();
        else if (!strings.Append(code))
            return {};
    }
    return strings.All();
}

/// The rows as the picture of the frame's colours; empty where a pixel's colour is not named.
QImage InColours(const Pixels &pixels, const GifFileType &gif)
{
    const GifImageDesc &frame = gif.Image;
    const Palette palette(frame.ColorMap != nullptr ? frame.ColorMap : gif.SColorMap);
    if (*std::max_element(pixels.begin(), pixels.end()) >= palette.Count) return {};
    QImage picture(frame.Width, frame.Height, QImage::Format_RGB32);
    auto from = pixels.begin();
    for (const int row : RowsInOrder(frame.Height, frame.Interlace)) {
        std::transform(from, from + frame.Width, reinterpret_cast<QRgb *>(picture.scanLine(row)),
                       [&](GifPixelType number) { return palette.Colours[number]; });
        from += frame.Width;
    }
    return picture;
}
} // namespace

GifFrame FirstFrame(const QByteArray &Bytes)
{
    Source source{Bytes};
    const Reader gif(DGifOpen(&source, Feed, nullptr));
    if (!gif || !FindFrame(gif.get()) || !IsReadable(*gif)) return {};
    // The library has just read the size of the codes, and keeps it to itself.
    const Pixels pixels = PixelsOf(gif.get(), Bytes[source.At - 1]);
    if (pixels.empty()) return {};
    return {true, CoversScreen(*gif) ? InColours(pixels, *gif) : QImage()};
}
