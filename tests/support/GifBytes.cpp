#include "tests/support/GifBytes.h"

namespace
{
constexpr int PaletteSize = 4, CodeSize = 3; // [entries], [bits]
constexpr quint32 Clear = 4, End = 5;        // codes that are no colours
constexpr qsizetype LargestBlock = 255;      // [bytes]

QByteArray Word(int value) { return QByteArray(1, char(value & 0xff)) + char(value >> 8 & 0xff); }

QByteArray Palette(const QList<QRgb> &colours)
{
    QByteArray palette;
    for (int entry = 0; entry < PaletteSize; ++entry) {
        const QRgb colour = colours.value(entry, 0);
        palette += char(qRed(colour));
        palette += char(qGreen(colour));
        palette += char(qBlue(colour));
    }
    return palette;
}

// Codes one after the other, the lowest bit first.
class Codes
{
public:
    void Add(quint32 code)
    {
        m_Bits |= code << m_Count;
        for (m_Count += CodeSize; m_Count >= 8; m_Count -= 8, m_Bits >>= 8) m_Bytes += char(m_Bits & 0xff);
    }
    QByteArray Bytes() const { return m_Bytes + char(m_Bits & 0xff); }

private:
    QByteArray m_Bytes;
    quint32 m_Bits = 0;
    int m_Count = 0;
};

// The dictionary is cleared so often that no code grows.
QByteArray Pixels(QSize size, const std::function<int(int, int)> &colourAt)
{
    Codes codes;
    for (int y = 0, pixel = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x, ++pixel) {
            if (pixel % 2 == 0) codes.Add(Clear);
            codes.Add(static_cast<quint32>(colourAt(x, y)));
        }
    codes.Add(End);
    return codes.Bytes();
}
} // namespace

QByteArray GifBytes(QSize Size, const QList<QRgb> &Colours, const std::function<int(int, int)> &ColourAt)
{
    const QByteArray size = Word(Size.width()) + Word(Size.height());
    QByteArray gif = "GIF89a" + size + QByteArray("\x81\x00\x00", 3) + Palette(Colours); // a palette of four
    gif += ',' + Word(0) + Word(0) + size + QByteArray("\x00\x02", 2);
    const QByteArray pixels = Pixels(Size, ColourAt);
    for (qsizetype from = 0; from < pixels.size(); from += LargestBlock) {
        const QByteArray block = pixels.mid(from, LargestBlock);
        gif += char(block.size()) + block;
    }
    return gif + QByteArray("\x00;", 2);
}

QByteArray GifBytes(QSize Size, QRgb Colour)
{
    return GifBytes(Size, {Colour}, [](int, int) { return 0; });
}
