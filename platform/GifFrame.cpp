#include "platform/GifFrame.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace
{
constexpr int LargestSide = 8192; // [px]

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

/// Reads all rows, into the picture as well where it is not empty.
GifFrame TakeRows(GifFileType *gif, QImage picture)
{
    const GifImageDesc &frame = gif->Image;
    const Palette palette(frame.ColorMap != nullptr ? frame.ColorMap : gif->SColorMap);
    bool isNamed = !picture.isNull(); // every colour so far
    std::vector<GifPixelType> numbers(static_cast<std::size_t>(frame.Width));
    for (const int row : RowsInOrder(frame.Height, frame.Interlace)) {
        if (DGifGetLine(gif, numbers.data(), frame.Width) == GIF_ERROR) return {};
        isNamed = isNamed && *std::max_element(numbers.begin(), numbers.end()) < palette.Count;
        if (!isNamed) continue;
        std::transform(numbers.begin(), numbers.end(), reinterpret_cast<QRgb *>(picture.scanLine(row)),
                       [&](GifPixelType number) { return palette.Colours[number]; });
    }
    return {true, isNamed ? picture : QImage()};
}
} // namespace

GifFrame FirstFrame(const QByteArray &Bytes)
{
    Source source{Bytes};
    const Reader gif(DGifOpen(&source, Feed, nullptr));
    if (!gif || !FindFrame(gif.get()) || !IsReadable(*gif)) return {};
    return TakeRows(gif.get(),
                    CoversScreen(*gif) ? QImage(gif->SWidth, gif->SHeight, QImage::Format_RGB32) : QImage());
}
