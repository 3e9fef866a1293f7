#include "platform/PlainGif.h"

#include "platform/ByteReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace
{
constexpr int LargestSide = 8192; // [px]
constexpr int WidestCode = 12, Codes = 1 << WidestCode;
constexpr int HasPalette = 0x80, IsInterlaced = 0x40; // flags

using Palette = std::vector<QRgb>;

Palette TakePalette(ByteReader &reader, int flags)
{
    Palette palette(static_cast<std::size_t>((flags & HasPalette) != 0 ? 2 << (flags & 7) : 0));
    for (QRgb &colour : palette) {
        const int red = reader.Byte();
        const int green = reader.Byte();
        colour = qRgb(red, green, reader.Byte());
    }
    return palette;
}

// The palette's numbers of all pixels, in the order of the data. What a code stands for was written before: the
// string of the code that came before it, and the pixel behind that. So a code is a place among the pixels and a
// length.
class Pixels
{
public:
    Pixels(std::uint8_t *to, qsizetype count, std::size_t colours, int rootBits)
        : m_To(to), m_Count(count), m_Colours(colours), m_RootBits(rootBits), m_Clear(1 << rootBits)
    {
        Restart();
    }

    /// Answer: whether there was data for every pixel, and nothing that can't come.
    bool Fill(const QByteArray &data)
    {
        unsigned bits = 0;
        int held = 0;
        for (const char byte : data) {
            bits |= static_cast<unsigned>(static_cast<unsigned char>(byte)) << held;
            held += 8;
            while (held >= m_Width) {
                const int code = static_cast<int>(bits & ((1U << m_Width) - 1));
                bits >>= m_Width;
                held -= m_Width;
                if (!Take(code)) return false;
                if (m_Written == m_Count) return true;
            }
        }
        return false;
    }

private:
    struct String
    {
        qsizetype at;
        qsizetype length;
    };

    void Restart()
    {
        m_Next = m_Clear + 2;
        m_Width = m_RootBits + 1;
        m_Previous = {0, 0};
    }

    // False at the end mark, and for a code that can't come here.
    bool Take(int code)
    {
        if (code == m_Clear) return Restart(), true;
        const bool isFirst = m_Previous.length == 0; // must be a colour
        if (code == m_Clear + 1 || code > m_Next || (isFirst && code > m_Clear)) return false;
        if (!isFirst) Learn();
        const qsizetype at = m_Written;
        if (code > m_Clear) {
            Copy(m_Strings[static_cast<std::size_t>(code)]);
        } else {
            if (static_cast<std::size_t>(code) >= m_Colours) return false;
            m_To[m_Written++] = static_cast<std::uint8_t>(code);
        }
        m_Previous = {at, m_Written - at};
        return true;
    }

    void Learn()
    {
        if (m_Next >= Codes) return;
        m_Strings[static_cast<std::size_t>(m_Next)] = {m_Previous.at, m_Previous.length + 1};
        ++m_Next;
        if (m_Next == 1 << m_Width && m_Width < WidestCode) ++m_Width;
    }

    // The last pixel of a string that was learnt just now is the first one of its copy.
    void Copy(const String &string)
    {
        const qsizetype length = std::min(string.length, m_Count - m_Written);
        const qsizetype known = std::min(length, m_Written - string.at);
        std::copy_n(m_To + string.at, known, m_To + m_Written);
        m_Written += known;
        if (known < length) m_To[m_Written++] = m_To[string.at + known];
    }

    std::uint8_t *m_To;
    qsizetype m_Count;
    qsizetype m_Written = 0;
    std::size_t m_Colours;
    int m_RootBits;
    int m_Clear;
    int m_Next = 0, m_Width = 0;
    String m_Previous{0, 0};
    std::array<String, Codes> m_Strings{};
};

// Interlaced, every eighth row comes first, then those between.
std::vector<int> RowsInOrder(int height, bool isInterlaced)
{
    struct Pass
    {
        int first, step;
    };
    constexpr std::array interlaced{Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}};
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(height));
    if (!isInterlaced) {
        for (int row = 0; row < height; ++row) rows.push_back(row);
        return rows;
    }
    for (const Pass &pass : interlaced)
        for (int row = pass.first; row < height; row += pass.step) rows.push_back(row);
    return rows;
}

QImage Coloured(const std::uint8_t *numbers, const QSize &size, bool isInterlaced, const Palette &colours)
{
    QImage picture(size, QImage::Format_RGB32);
    if (picture.isNull()) return {};
    for (const int row : RowsInOrder(size.height(), isInterlaced)) {
        auto *const pixels = reinterpret_cast<QRgb *>(picture.scanLine(row));
        std::transform(numbers, numbers + size.width(), pixels, [&](std::uint8_t number) { return colours[number]; });
        numbers += size.width();
    }
    return picture;
}

QImage TakeFrame(ByteReader &reader, const QSize &screen, Palette colours)
{
    const bool isAtCorner = reader.LittleWord() == 0 && reader.LittleWord() == 0;
    const int width = reader.LittleWord();
    const QSize size(width, reader.LittleWord());
    const int flags = reader.Byte();
    if (!isAtCorner || size != screen) return {};
    if ((flags & HasPalette) != 0) colours = TakePalette(reader, flags);
    const int rootBits = reader.Byte();
    if (rootBits < 2 || rootBits > 8) return {};
    const qsizetype count = qsizetype{size.width()} * size.height();
    const auto numbers = std::make_unique_for_overwrite<std::uint8_t[]>(static_cast<std::size_t>(count));
    Pixels pixels(numbers.get(), count, colours.size(), rootBits);
    if (!pixels.Fill(reader.TakeBlocks())) return {};
    return Coloured(numbers.get(), size, (flags & IsInterlaced) != 0, colours);
}
} // namespace

QImage PlainGif(const QByteArray &Bytes)
{
    if (!Bytes.startsWith("GIF87a") && !Bytes.startsWith("GIF89a")) return {};
    ByteReader reader(Bytes);
    reader.Skip(6);
    const int width = reader.LittleWord();
    const QSize screen(width, reader.LittleWord());
    if (screen.isEmpty() || screen.width() > LargestSide || screen.height() > LargestSide) return {};
    const int flags = reader.Byte();
    reader.Skip(2);
    const Palette colours = TakePalette(reader, flags);
    while (reader.IsGood()) {
        const int block = reader.Byte();
        if (block == ',') return TakeFrame(reader, screen, colours);
        if (block != '!') return {};
        reader.Skip(1);
        reader.TakeBlocks();
    }
    return {};
}
