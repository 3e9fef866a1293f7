#include "services/ResourcePicture.h"

#include "platform/PeImage.h"
#include "platform/RuntimeError.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace
{
constexpr std::array Texts{
    u"Invalid bitmap handle",
    u"Invalid picture type specified.",
    u"Invalid metafile dimentions specified.", // spelt so in every release
    u"The object does not support the interface specified in riid.",
    u"The address in pPictDesc or ppvObj is not valid. For example, it may be NULL.",
    u"One or more arguments are invalid.",
    u"Ran out of memory.",
    u"Catastrophic Failure.",
    u"Unknown Error.",
};
static_assert(Texts.size() == static_cast<std::size_t>(PictureFailure::Unknown) + 1, "one text for each failure");

constexpr std::int64_t LargestSide = 8192;    // [px]
constexpr std::int64_t LargestIconSide = 256; // [px], the most that a group can tell
constexpr int UsualIconSide = 32;             // [px]
constexpr std::uint32_t CoreHeaderSize = 12;  // the oldest bitmap header: 16-bit sizes, colours of 3 bytes
constexpr std::uint32_t InfoHeaderSize = 40;
constexpr std::uint32_t LargestHeaderSize = 124;
constexpr qsizetype FileHeaderSize = 14;

[[noreturn]] void Fail(PictureFailure Failure) { throw RuntimeError(TextOf(Failure)); }

template <typename Number>
void Append(QByteArray &Bytes, Number Value)
{
    char raw[sizeof(Number)];
    qToLittleEndian(Value, raw);
    Bytes.append(raw, sizeof raw);
}

// What a bitmap's header says.
struct BitmapShape
{
    std::int64_t Width = 0;  // [px]
    std::int64_t Height = 0; // [px], of an icon the picture and its mask together
    std::uint32_t Bits = 0;  // a pixel
    std::uint32_t Compression = 0;
    std::uint64_t PixelsAt = 0; // offset of the rows

    std::uint64_t RowBytes() const { return (static_cast<std::uint64_t>(Width) * Bits + 31) / 32 * 4; }
    bool IsPlain() const { return Compression == 0 || Compression == 3; }
};

bool IsDepth(std::uint32_t Bits)
{
    constexpr std::array depths{1U, 4U, 8U, 16U, 24U, 32U};
    return std::find(depths.begin(), depths.end(), Bits) != depths.end();
}

std::optional<BitmapShape> CoreShape(QByteArrayView Bytes)
{
    const auto width = Number16(Bytes, 4), height = Number16(Bytes, 6), bits = Number16(Bytes, 10);
    if (!width || !height || !bits || !IsDepth(*bits)) return {};
    const std::uint64_t colours = *bits <= 8 ? std::uint64_t{1} << *bits : 0;
    return BitmapShape{*width, *height, *bits, 0, CoreHeaderSize + 3 * colours};
}

std::optional<BitmapShape> InfoShape(QByteArrayView Bytes, std::uint32_t HeaderSize)
{
    if (!Part(Bytes, 0, HeaderSize)) return {};
    const auto signedAt = [&](std::uint64_t offset) {
        return std::int64_t{static_cast<std::int32_t>(Number32(Bytes, offset).value_or(0))};
    };
    const std::uint32_t bits = Number16(Bytes, 14).value_or(0);
    const std::uint32_t compression = Number32(Bytes, 16).value_or(0);
    const std::uint64_t used = Number32(Bytes, 32).value_or(0);
    if (!IsDepth(bits)) return {};
    const std::uint64_t colours = used == 0 && bits <= 8 ? std::uint64_t{1} << bits : used;
    const std::uint64_t masks = compression == 3 && HeaderSize == InfoHeaderSize ? 12 : 0;
    return BitmapShape{signedAt(4), std::abs(signedAt(8)), bits, compression, HeaderSize + masks + 4 * colours};
}

std::optional<BitmapShape> ShapeOf(QByteArrayView Bytes)
{
    const std::uint32_t headerSize = Number32(Bytes, 0).value_or(0);
    if (headerSize == CoreHeaderSize) return CoreShape(Bytes);
    if (headerSize < InfoHeaderSize || headerSize > LargestHeaderSize) return {};
    return InfoShape(Bytes, headerSize);
}

// One line of a group: the size of a picture, its colours, and the id under which it lies.
struct GroupEntry
{
    std::int64_t Width = 0, Height = 0; // [px]
    std::uint32_t Bits = 0;
    std::uint32_t Id = 0;
};

GroupEntry ReadEntry(QByteArrayView Entry, IconKind Kind)
{
    GroupEntry read;
    read.Id = Number16(Entry, 12).value_or(0);
    read.Bits = Number16(Entry, 6).value_or(0);
    const std::uint32_t size = Number16(Entry, 0).value_or(0);
    // A cursor's sizes have 16 bits, the height with the mask in it; an icon's have 8, and 0 stands for 256.
    if (Kind == IconKind::Cursor) {
        read.Width = size;
        read.Height = Number16(Entry, 2).value_or(0) / 2;
    } else {
        read.Width = (size & 0xff) == 0 ? LargestIconSide : size & 0xff;
        read.Height = size >> 8 == 0 ? LargestIconSide : size >> 8;
    }
    return read;
}

std::optional<GroupEntry> BestEntry(QByteArrayView Group, IconKind Kind)
{
    constexpr std::uint64_t headerSize = 6, entrySize = 14;
    std::optional<GroupEntry> best;
    const std::uint64_t count = Number16(Group, 4).value_or(0);
    for (std::uint64_t i = 0; i < count; ++i) {
        const auto bytes = Part(Group, headerSize + i * entrySize, entrySize);
        if (!bytes) break;
        const GroupEntry entry = ReadEntry(*bytes, Kind);
        const auto distance = [](const GroupEntry &of) { return std::abs(of.Width - UsualIconSide); };
        const bool isBetter = !best || distance(entry) < distance(*best) ||
                              (distance(entry) == distance(*best) && entry.Bits > best->Bits);
        if (isBetter) best = entry;
    }
    return best;
}

// An icon file of one picture, put together in memory.
QByteArray IconFile(const GroupEntry &Entry, QByteArrayView Picture)
{
    constexpr std::uint32_t picturesAt = 22;
    QByteArray file;
    Append(file, std::uint16_t{0}); // reserved
    Append(file, std::uint16_t{1}); // an icon
    Append(file, std::uint16_t{1}); // of one picture
    Append(file, static_cast<std::uint8_t>(Entry.Width));
    Append(file, static_cast<std::uint8_t>(Entry.Height));
    Append(file, std::uint16_t{0}); // number of colours, reserved
    Append(file, std::uint16_t{1}); // planes
    Append(file, static_cast<std::uint16_t>(Entry.Bits));
    Append(file, static_cast<std::uint32_t>(Picture.size()));
    Append(file, picturesAt);
    return file.append(Picture);
}

bool IsPng(QByteArrayView Bytes) { return Bytes.startsWith("\x89PNG"); }

// The picture and the mask behind it, of which each row is filled up to 4 bytes.
bool HoldsAnIcon(QByteArrayView Bytes, const BitmapShape &shape)
{
    if (shape.Width < 1 || shape.Width > LargestIconSide || shape.Height < 2 || shape.Height > 2 * LargestIconSide)
        return false;
    const auto height = static_cast<std::uint64_t>(shape.Height) / 2;
    const std::uint64_t mask = (static_cast<std::uint64_t>(shape.Width) + 31) / 32 * 4;
    return shape.Compression == 0 && Part(Bytes, shape.PixelsAt, height * (shape.RowBytes() + mask)).has_value();
}

QImage IconPicture(GroupEntry Entry, QByteArrayView Bytes)
{
    if (!IsPng(Bytes)) {
        const auto shape = ShapeOf(Bytes);
        if (!shape || !HoldsAnIcon(Bytes, *shape)) return {};
        Entry = {shape->Width, shape->Height / 2, shape->Bits, Entry.Id};
    }
    return QImage::fromData(IconFile(Entry, Bytes), "ICO");
}
} // namespace

QString TextOf(PictureFailure Failure) { return QString::fromUtf16(Texts.at(static_cast<std::size_t>(Failure))); }

QImage BitmapFromResource(QByteArrayView Bytes)
{
    const auto shape = ShapeOf(Bytes);
    if (!shape || shape->Width < 1 || shape->Height < 1) Fail(PictureFailure::BitmapHandle);
    if (shape->Width > LargestSide || shape->Height > LargestSide) Fail(PictureFailure::Memory);
    const std::uint64_t rows = shape->IsPlain() ? static_cast<std::uint64_t>(shape->Height) * shape->RowBytes() : 1;
    if (!Part(Bytes, shape->PixelsAt, rows)) Fail(PictureFailure::BitmapHandle);

    QByteArray file("BM");
    Append(file, static_cast<std::uint32_t>(FileHeaderSize + Bytes.size()));
    Append(file, std::uint32_t{0}); // reserved
    Append(file, static_cast<std::uint32_t>(FileHeaderSize + static_cast<qsizetype>(shape->PixelsAt)));
    QImage picture = QImage::fromData(file.append(Bytes), "BMP");
    if (picture.isNull()) Fail(PictureFailure::BitmapHandle);
    return picture;
}

QImage IconFromGroup(QByteArrayView Group, IconKind Kind,
                     const std::function<std::optional<QByteArrayView>(std::uint32_t)> &Find)
{
    constexpr qsizetype hotSpotSize = 4; // in front of a cursor's picture
    const auto entry = BestEntry(Group, Kind);
    auto bytes = entry ? Find(entry->Id) : std::nullopt;
    if (bytes && Kind == IconKind::Cursor)
        bytes = Part(*bytes, hotSpotSize,
                     static_cast<std::uint64_t>(std::max<qsizetype>(bytes->size() - hotSpotSize, 0)));
    QImage picture = bytes ? IconPicture(*entry, *bytes) : QImage();
    if (picture.isNull()) Fail(PictureFailure::Arguments);
    return picture;
}
