#include "platform/WholePicture.h"

#include "platform/ByteReader.h"

#include <array>
#include <optional>

namespace
{
// The colours of a palette, by the flags of the screen or the frame.
void SkipPalette(ByteReader &reader, int flags)
{
    constexpr int HasPalette = 0x80;
    if (flags & HasPalette) reader.Skip(qsizetype{3} * (2 << (flags & 7)));
}

// The codes of a frame's data, from 3 to 12 bits wide. Only the number of pixels that each one stands for is kept.
class PixelCount
{
public:
    explicit PixelCount(int rootBits) : m_RootBits(rootBits), m_Clear(1 << rootBits) { Restart(); }

    qint64 Of(const QByteArray &Data)
    {
        qint64 pixels = 0;
        unsigned bits = 0;
        int held = 0;
        for (const char byte : Data) {
            bits |= static_cast<unsigned>(static_cast<unsigned char>(byte)) << held;
            held += 8;
            while (held >= m_Width) {
                const int code = static_cast<int>(bits & ((1U << m_Width) - 1));
                bits >>= m_Width;
                held -= m_Width;
                const std::optional<int> length = LengthOf(code);
                if (!length) return pixels;
                pixels += *length;
            }
        }
        return pixels;
    }

private:
    static constexpr int Codes = 4096;
    static constexpr int WidestCode = 12;

    void Restart()
    {
        m_Lengths.fill(1);
        m_Next = m_Clear + 2;
        m_Width = m_RootBits + 1;
        m_Previous = -1;
    }

    // Empty at the end mark, and for a code that can't come here.
    std::optional<int> LengthOf(int code)
    {
        if (code == m_Clear) return Restart(), 0;
        const bool isFirst = m_Previous < 0; // must be a colour
        if (code == m_Clear + 1 || code > m_Next || (isFirst && code > m_Clear)) return {};
        if (!isFirst) Learn();
        m_Previous = code;
        return m_Lengths[static_cast<std::size_t>(code)];
    }

    void Learn()
    {
        if (m_Next >= Codes) return;
        m_Lengths[static_cast<std::size_t>(m_Next)] = m_Lengths[static_cast<std::size_t>(m_Previous)] + 1;
        ++m_Next;
        if (m_Next == 1 << m_Width && m_Width < WidestCode) ++m_Width;
    }

    int m_RootBits;
    int m_Clear;
    int m_Next = 0, m_Width = 0, m_Previous = -1;
    std::array<int, Codes> m_Lengths{};
};

bool IsWholeFrame(ByteReader &reader)
{
    reader.Skip(4); // its place
    const qint64 width = reader.LittleWord();
    const qint64 height = reader.LittleWord();
    SkipPalette(reader, reader.Byte());
    const int rootBits = reader.Byte();
    if (rootBits < 1 || rootBits > 8) return false;
    const QByteArray data = reader.TakeBlocks();
    return PixelCount(rootBits).Of(data) >= width * height;
}

bool IsWholeGif(const QByteArray &Bytes)
{
    ByteReader reader(Bytes);
    reader.Skip(10); // signature and size
    const int flags = reader.Byte();
    reader.Skip(2);
    SkipPalette(reader, flags);
    while (reader.IsGood()) {
        switch (reader.Byte()) {
        case '!':
            reader.Skip(1);
            reader.TakeBlocks();
            break;
        case ',':
            return IsWholeFrame(reader);
        default:
            return false;
        }
    }
    return false;
}

bool IsWholeJpeg(const QByteArray &Bytes)
{
    constexpr int Mark = 0xFF, StartOfScan = 0xDA;
    ByteReader reader(Bytes);
    reader.Skip(2);
    while (reader.IsGood() && reader.Byte() == Mark) {
        int kind = reader.Byte();
        while (kind == Mark) kind = reader.Byte();
        if (kind == StartOfScan) return reader.Finds("\xFF\xD9");
        const int length = reader.BigWord();
        if (length < 2) return false;
        reader.Skip(length - 2);
    }
    return false;
}
} // namespace

bool IsWholePicture(const QByteArray &Bytes)
{
    if (Bytes.startsWith("GIF8")) return IsWholeGif(Bytes);
    if (Bytes.startsWith("\xFF\xD8")) return IsWholeJpeg(Bytes);
    return true;
}
