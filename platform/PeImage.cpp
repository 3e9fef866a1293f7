#include "platform/PeImage.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace
{
template <typename Number>
std::optional<Number> NumberAt(QByteArrayView Bytes, std::uint64_t Offset)
{
    const auto part = Part(Bytes, Offset, sizeof(Number));
    if (!part) return {};
    return qFromLittleEndian<Number>(part->data());
}

// Where the two formats of the optional header differ.
struct HeaderFormat
{
    std::uint16_t Magic;
    std::uint64_t DirectoryCount; // offset in the optional header
};
constexpr HeaderFormat Formats[] = {{0x10b, 92}, {0x20b, 108}};

constexpr std::uint64_t NewHeaderOffset = 0x3c; // in the old header: where the new one begins
constexpr std::uint64_t SignatureSize = 4;
constexpr std::uint64_t CoffHeaderSize = 20;
constexpr std::uint64_t SectionHeaderSize = 40;
constexpr std::uint32_t ResourceDirectory = 2; // index in the data directories, each of 8 bytes

// 0 when the optional header lists no resource directory; empty when it can't be read.
std::optional<std::uint32_t> ResourceAddress(QByteArrayView Optional)
{
    const auto magic = Number16(Optional, 0);
    if (!magic) return {};
    for (const HeaderFormat &format : Formats) {
        if (*magic != format.Magic) continue;
        const auto count = Number32(Optional, format.DirectoryCount);
        if (!count) return {};
        if (*count <= ResourceDirectory) return 0;
        return Number32(Optional, format.DirectoryCount + 4 + std::uint64_t{8} * ResourceDirectory);
    }
    return {};
}
} // namespace

std::optional<QByteArrayView> Part(QByteArrayView Bytes, std::uint64_t Offset, std::uint64_t Length)
{
    const auto size = static_cast<std::uint64_t>(Bytes.size());
    if (Offset > size || Length > size - Offset) return {};
    return Bytes.sliced(static_cast<qsizetype>(Offset), static_cast<qsizetype>(Length));
}

std::optional<std::uint16_t> Number16(QByteArrayView Bytes, std::uint64_t Offset)
{
    return NumberAt<std::uint16_t>(Bytes, Offset);
}

std::optional<std::uint32_t> Number32(QByteArrayView Bytes, std::uint64_t Offset)
{
    return NumberAt<std::uint32_t>(Bytes, Offset);
}

std::optional<PeImage> PeImage::Read(QByteArrayView Bytes)
{
    const auto start = Number32(Bytes, NewHeaderOffset);
    if (!Bytes.startsWith("MZ") || !start) return {};
    const auto header = Part(Bytes, *start, SignatureSize + CoffHeaderSize);
    if (!header || !header->startsWith(QByteArrayView("PE\0\0", SignatureSize))) return {};

    const std::uint64_t sectionCount = Number16(*header, SignatureSize + 2).value_or(0);
    const std::uint64_t optionalSize = Number16(*header, SignatureSize + 16).value_or(0);
    const std::uint64_t optional = *start + SignatureSize + CoffHeaderSize;
    const auto optionalHeader = Part(Bytes, optional, optionalSize);
    const auto resources = optionalHeader ? ResourceAddress(*optionalHeader) : std::nullopt;
    if (!resources) return {};

    PeImage image;
    image.m_ResourceAddress = *resources;
    for (std::uint64_t i = 0; i < sectionCount; ++i) {
        const auto section = ReadSection(Bytes, optional + optionalSize + i * SectionHeaderSize);
        if (!section) return {};
        image.m_Sections.push_back(*section);
    }
    return image;
}

std::optional<PeImage::Section> PeImage::ReadSection(QByteArrayView Bytes, std::uint64_t Header)
{
    const auto header = Part(Bytes, Header, SectionHeaderSize);
    if (!header) return {};
    const std::uint32_t imageSize = Number32(*header, 8).value_or(0);
    const std::uint32_t fileSize = Number32(*header, 16).value_or(0);
    // The file's part is padded and may be longer than the section; some linkers leave the size in the image at 0.
    const std::uint32_t held = imageSize == 0 ? fileSize : std::min(imageSize, fileSize);
    const auto bytes = held == 0 ? QByteArrayView() : Part(Bytes, Number32(*header, 20).value_or(0), held);
    if (!bytes) return {};
    return Section{Number32(*header, 12).value_or(0), *bytes};
}

std::optional<QByteArrayView> PeImage::From(std::uint32_t Address) const
{
    for (const Section &section : m_Sections) {
        const std::uint64_t offset = std::uint64_t{Address} - section.Address;
        if (Address < section.Address || offset >= static_cast<std::uint64_t>(section.Bytes.size())) continue;
        return section.Bytes.sliced(static_cast<qsizetype>(offset));
    }
    return {};
}

std::optional<QByteArrayView> PeImage::At(std::uint32_t Address, std::uint32_t Length) const
{
    const auto bytes = From(Address);
    return bytes ? Part(*bytes, 0, Length) : std::nullopt;
}

std::optional<QByteArrayView> PeImage::Resources() const
{
    return m_ResourceAddress == 0 ? std::nullopt : From(m_ResourceAddress);
}
