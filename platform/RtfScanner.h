// The words of a rich text file, one at a time. Knows where a word ends and nothing of what it means; reads foreign
// bytes, so that every number is bounded and nothing is read beyond the end.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>

struct RtfToken
{
    enum Kind { End, Open, Close, Word, Symbol, Byte, Hex, Binary };
    Kind What = End;
    QByteArrayView Text;     // of a word: its letters; of binary data: the data
    char Character = 0;      // of a symbol, a byte, or a byte written in hexadecimal
    std::int32_t Number = 0; // of a word, bounded to +-1,000,000,000
    bool HasNumber = false;
};

class RtfScanner
{
public:
    /// The bytes must outlive the scanner.
    explicit RtfScanner(QByteArrayView Bytes) : m_Bytes(Bytes) {}
    RtfToken Next();

private:
    bool AtEnd() const { return m_At >= m_Bytes.size(); }
    char Peek() const { return AtEnd() ? '\0' : m_Bytes[m_At]; }
    RtfToken AfterBackslash();
    RtfToken WordFrom(qsizetype start);
    void ReadNumber(RtfToken &token);
    RtfToken HexByte();

    QByteArrayView m_Bytes;
    qsizetype m_At = 0;
};
