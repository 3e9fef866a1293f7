// The compression of compiled help files: LZX, in frames of 32 KiB that each begin at a place of their own, with
// everything that was learnt forgotten after every few of them.
//
// Bytes are foreign: each read is checked against the frame, each copy against what has been written since the last
// reset.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <vector>

class LzxReader
{
public:
    static constexpr qsizetype FrameSize = 0x8000; // [bytes] of a frame once it is unpacked

    /// The window that the bytes were packed with: a power of two from 32 KiB to 2 MiB. [bytes]
    /// Failure: passed on, for another number.
    explicit LzxReader(std::uint32_t WindowSize);

    /// Forgets what was learnt: the next frame stands at a place where the packing began anew.
    void Reset();
    /// Unpacks so much of a frame, behind those read since the last reset, and adds it to Out: all of it but in the
    /// last frame, which is packed whole and may so give a little more than is wanted.
    /// Failure: passed on, when the bytes make no sense; then Reset before anything else.
    void ReadFrame(QByteArrayView Packed, qsizetype Size, QByteArray &Out);

private:
    static constexpr int LongestCode = 16; // [bits]
    // A set of codes by their lengths: which symbols there are of each length, in their order.
    class Codes
    {
    public:
        void Make(const std::uint8_t *Lengths, std::size_t Count);
        std::array<std::uint16_t, LongestCode + 1> CountOf{};
        std::vector<std::uint16_t> Symbols;
    };
    // 16-bit words, low byte first, their bits from the top.
    class Bits
    {
    public:
        explicit Bits(QByteArrayView Bytes) : m_Bytes(Bytes) {}
        std::uint32_t Take(int Count); // 17 at the most
        std::uint16_t Symbol(const Codes &Codes);
        void Align();
        QByteArrayView TakeBytes(qsizetype Count);
        std::uint32_t TakeLong();
        void SkipByte() { m_At += m_At < m_Bytes.size() ? 1 : 0; }

    private:
        QByteArrayView m_Bytes;
        qsizetype m_At = 0;
        std::uint32_t m_Word = 0;
        int m_Left = 0; // bits of the word
    };
    enum BlockKind : std::uint32_t { Verbatim = 1, Aligned = 2, Plain = 3 };

    void BeginStream(Bits &bits);
    void BeginBlock(Bits &bits);
    void ReadLengths(Bits &bits, std::vector<std::uint8_t> &lengths, std::size_t first, std::size_t last) const;
    void ReadBlockPart(Bits &bits, qsizetype wanted, qsizetype frameEnd, QByteArray &out);
    void CopyMatch(Bits &bits, unsigned symbol, qsizetype written, qsizetype end, QByteArray &out);
    std::uint32_t DistanceOf(Bits &bits, unsigned slot);

    std::uint32_t m_WindowSize;
    unsigned m_Slots = 0;
    std::vector<std::uint8_t> m_MainLengths;
    std::vector<std::uint8_t> m_LengthLengths;
    Codes m_Main;
    Codes m_Length;
    Codes m_AlignedCodes;
    std::array<std::uint32_t, 3> m_Recent{1, 1, 1}; // distances used last
    std::uint32_t m_Kind = 0;
    qsizetype m_BlockSize = 0;
    qsizetype m_BlockLeft = 0; // [bytes] of the present block still to come
    qsizetype m_SinceReset = 0;
    bool m_HasBegun = false;
};
