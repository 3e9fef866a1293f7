// Reads the bytes of a picture file from the start on. For the readers of pictures in this room alone.
#pragma once

#include <QByteArray>

/// Behind the end every byte is 0 and the reader is no longer good.
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
    int LittleWord()
    {
        const int low = Byte();
        return low | Byte() << 8;
    }
    int BigWord()
    {
        const int high = Byte();
        return high << 8 | Byte();
    }
    void Skip(qsizetype count) { m_At += count; }
    QByteArray Take(qsizetype count)
    {
        QByteArray taken = m_Bytes.mid(m_At, count);
        Skip(count);
        return taken;
    }
    bool Finds(const char *mark) const { return m_Bytes.indexOf(mark, m_At) >= 0; }

    /// The data of a GIF come in blocks of up to 255 bytes, each after its length; the length 0 ends them.
    QByteArray TakeBlocks()
    {
        QByteArray data;
        for (int length = Byte(); length != 0; length = Byte()) data += Take(length);
        return data;
    }

private:
    const QByteArray &m_Bytes;
    qsizetype m_At = 0;
};
