// The outer layers of a module file (PE, 32 or 64 bit): headers, section table, and where in the file an address of
// the loaded image lies. Knows nothing of what the sections hold.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <optional>
#include <vector>

/// Little-endian numbers out of bytes. Empty when they do not lie inside.
std::optional<std::uint16_t> Number16(QByteArrayView Bytes, std::uint64_t Offset);
std::optional<std::uint32_t> Number32(QByteArrayView Bytes, std::uint64_t Offset);
/// Length bytes from Offset on. Empty when they do not all lie inside.
std::optional<QByteArrayView> Part(QByteArrayView Bytes, std::uint64_t Offset, std::uint64_t Length);

class PeImage
{
public:
    /// Empty when the bytes are no module: a header that can't be read, or a section that the file ends inside of.
    static std::optional<PeImage> Read(QByteArrayView Bytes);

    /// The bytes from an address of the image on, to the end of what the file holds of its section. Empty when the
    /// address lies in none. The view is into the bytes given to Read.
    std::optional<QByteArrayView> From(std::uint32_t Address) const;
    /// Length bytes at an address of the image, all of them inside one section.
    std::optional<QByteArrayView> At(std::uint32_t Address, std::uint32_t Length) const;
    /// The bytes that begin with the resource directory, to the end of its section. Empty when there is none.
    std::optional<QByteArrayView> Resources() const;

private:
    struct Section
    {
        std::uint32_t Address = 0; // in the image
        QByteArrayView Bytes;      // what the file holds of it
    };
    static std::optional<Section> ReadSection(QByteArrayView Bytes, std::uint64_t Header);

    std::vector<Section> m_Sections;
    std::uint32_t m_ResourceAddress = 0; // 0 when the module has no resources
};
