#include "platform/WholePicture.h"

namespace
{
// Reads on from the start; behind the end every byte is 0 and the reader is no longer good.
class ByteReader
{
public:
    explicit ByteReader(const QByteArray &Bytes) : m_Bytes(Bytes) {}
    bool IsGood() const { return m_At <= m_Bytes.size(); }
    int Byte()
    {
        const qsizetype at = m_At++;
        return at < m_Bytes.size() ? static_cast<unsigned char>(m_Bytes[at]) : 0;
    }
    int BigWord()
    {
        const int high = Byte();
        return high << 8 | Byte();
    }
    void Skip(qsizetype count) { m_At += count; }
    bool Finds(const char *mark) const { return m_Bytes.lastIndexOf(mark) >= m_At; } // it is the last, mostly

private:
    const QByteArray &m_Bytes;
    qsizetype m_At = 0;
};

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

bool IsWholePicture(const QByteArray &Bytes) { return !Bytes.startsWith("\xFF\xD8") || IsWholeJpeg(Bytes); }
