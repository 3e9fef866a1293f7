#include "platform/LzxReader.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <bit>

namespace
{
constexpr unsigned Characters = 256;
constexpr unsigned LengthSymbols = 249;
constexpr unsigned AlignedSymbols = 8;
constexpr unsigned PreSymbols = 20;
constexpr unsigned LengthsPerSlot = 8;
constexpr std::uint32_t SmallestWindow = 1U << 15;
constexpr std::uint32_t LargestWindow = 1U << 21;
constexpr unsigned MostSlots = 50;
constexpr int MostExtraBits = 17;

[[noreturn]] void Fail() { throw RuntimeError(QStringLiteral("The packed bytes of the help file make no sense.")); }

constexpr int ExtraBits(unsigned slot)
{
    return slot < 4 ? 0 : std::min(MostExtraBits, static_cast<int>(slot / 2) - 1);
}

constexpr std::array<std::uint32_t, MostSlots + 1> MakeBases()
{
    std::array<std::uint32_t, MostSlots + 1> bases{};
    for (unsigned slot = 0; slot < MostSlots; ++slot) bases[slot + 1] = bases[slot] + (1U << ExtraBits(slot));
    return bases;
}
constexpr auto Bases = MakeBases(); // the first distance of each slot
static_assert(Bases[30] == 1U << 15 && Bases[42] == 1U << 20 && Bases[50] == 1U << 21, "slots reach over the window");

unsigned SlotsOf(std::uint32_t window)
{
    return static_cast<unsigned>(std::lower_bound(Bases.begin(), Bases.end(), window) - Bases.begin());
}
} // namespace

void LzxReader::Codes::Make(const std::uint8_t *Lengths, std::size_t Count)
{
    CountOf.fill(0);
    for (std::size_t i = 0; i < Count; ++i) ++CountOf[Lengths[i]];
    CountOf[0] = 0;
    int room = 1; // codes that are left of each length: none may be given twice
    for (int length = 1; length <= LongestCode; ++length) {
        room = room * 2 - CountOf[static_cast<std::size_t>(length)];
        if (room < 0) Fail();
    }
    Symbols.clear();
    for (int length = 1; length <= LongestCode; ++length)
        for (std::size_t i = 0; i < Count; ++i)
            if (Lengths[i] == length) Symbols.push_back(static_cast<std::uint16_t>(i));
}

std::uint32_t LzxReader::Bits::Take(int Count)
{
    std::uint32_t value = 0;
    for (; Count > 0; --Count) {
        if (m_Left == 0) {
            if (m_Bytes.size() - m_At < 2) Fail();
            m_Word = static_cast<std::uint8_t>(m_Bytes[m_At]) | static_cast<std::uint8_t>(m_Bytes[m_At + 1]) << 8;
            m_At += 2;
            m_Left = 16;
        }
        value = value << 1 | (m_Word >> --m_Left & 1);
    }
    return value;
}

std::uint16_t LzxReader::Bits::Symbol(const Codes &Codes)
{
    std::uint32_t code = 0;
    std::uint32_t first = 0; // the first code of the length
    std::uint32_t index = 0; // of its symbol
    for (std::size_t length = 1; length <= LongestCode; ++length) {
        code = code << 1 | Take(1);
        const std::uint32_t count = Codes.CountOf[length];
        if (code - first < count) return Codes.Symbols[index + code - first];
        index += count;
        first = (first + count) << 1;
    }
    Fail();
}

// Between one bit and a whole word is left out.
void LzxReader::Bits::Align()
{
    if (m_Left == 0) Take(1);
    m_Left = 0;
}

QByteArrayView LzxReader::Bits::TakeBytes(qsizetype Count)
{
    if (Count > m_Bytes.size() - m_At) Fail();
    const QByteArrayView bytes = m_Bytes.sliced(m_At, Count);
    m_At += Count;
    return bytes;
}

std::uint32_t LzxReader::Bits::TakeLong()
{
    std::uint32_t value = 0;
    const QByteArrayView bytes = TakeBytes(4);
    for (int i = 0; i < 4; ++i) value |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[i])) << (8 * i);
    return value;
}

LzxReader::LzxReader(std::uint32_t WindowSize) : m_WindowSize(WindowSize)
{
    if (!std::has_single_bit(WindowSize) || WindowSize < SmallestWindow || WindowSize > LargestWindow) Fail();
    m_Slots = SlotsOf(WindowSize);
    Reset();
}

void LzxReader::Reset()
{
    m_MainLengths.assign(Characters + m_Slots * LengthsPerSlot, 0);
    m_LengthLengths.assign(LengthSymbols, 0);
    m_Recent = {1, 1, 1};
    m_BlockLeft = m_BlockSize = 0;
    m_Kind = 0;
    m_SinceReset = 0;
    m_HasBegun = false;
}

void LzxReader::ReadFrame(QByteArrayView Packed, qsizetype Size, QByteArray &Out)
{
    Bits bits(Packed);
    BeginStream(bits);
    const qsizetype wanted = Out.size() + Size;
    const qsizetype frameEnd = Out.size() + FrameSize;
    while (Out.size() < wanted) {
        if (m_BlockLeft == 0) BeginBlock(bits);
        ReadBlockPart(bits, wanted, frameEnd, Out);
    }
}

void LzxReader::BeginStream(Bits &bits)
{
    if (m_HasBegun) return;
    m_HasBegun = true;
    // Set for programs alone, whose jumps were rewritten for packing: pages and pictures hold none.
    if (bits.Take(1) != 0) Fail();
}

void LzxReader::BeginBlock(Bits &bits)
{
    if (m_Kind == Plain && m_BlockSize % 2 != 0) bits.SkipByte();
    m_Kind = bits.Take(3);
    m_BlockSize = static_cast<qsizetype>(bits.Take(16)) << 8;
    m_BlockSize |= static_cast<qsizetype>(bits.Take(8));
    m_BlockLeft = m_BlockSize;
    if (m_BlockSize == 0) Fail();
    if (m_Kind == Plain) {
        bits.Align();
        for (std::uint32_t &recent : m_Recent) recent = bits.TakeLong();
        return;
    }
    if (m_Kind != Verbatim && m_Kind != Aligned) Fail();
    if (m_Kind == Aligned) {
        std::array<std::uint8_t, AlignedSymbols> lengths{};
        for (std::uint8_t &length : lengths) length = static_cast<std::uint8_t>(bits.Take(3));
        m_AlignedCodes.Make(lengths.data(), lengths.size());
    }
    ReadLengths(bits, m_MainLengths, 0, Characters);
    ReadLengths(bits, m_MainLengths, Characters, m_MainLengths.size());
    m_Main.Make(m_MainLengths.data(), m_MainLengths.size());
    ReadLengths(bits, m_LengthLengths, 0, m_LengthLengths.size());
    m_Length.Make(m_LengthLengths.data(), m_LengthLengths.size());
}

// Each length is told as what it is less than the one before it in time, packed by codes of its own.
void LzxReader::ReadLengths(Bits &bits, std::vector<std::uint8_t> &lengths, std::size_t first, std::size_t last) const
{
    std::array<std::uint8_t, PreSymbols> preLengths{};
    for (std::uint8_t &length : preLengths) length = static_cast<std::uint8_t>(bits.Take(4));
    Codes pre;
    pre.Make(preLengths.data(), preLengths.size());
    const auto less = [](unsigned length, unsigned by) { return static_cast<std::uint8_t>((length + 17 - by) % 17); };
    for (std::size_t at = first; at < last;) {
        const unsigned symbol = bits.Symbol(pre);
        std::size_t run = 1;
        std::uint8_t value = 0;
        if (symbol == 17) {
            run = 4 + bits.Take(4);
        } else if (symbol == 18) {
            run = 20 + bits.Take(5);
        } else if (symbol == 19) {
            run = 4 + bits.Take(1);
            const unsigned by = bits.Symbol(pre);
            if (by > 16) Fail();
            value = less(lengths[at], by);
        } else {
            value = less(lengths[at], symbol);
        }
        if (run > last - at) Fail();
        std::fill_n(lengths.begin() + static_cast<std::ptrdiff_t>(at), run, value);
        at += run;
    }
}

void LzxReader::ReadBlockPart(Bits &bits, qsizetype wanted, qsizetype frameEnd, QByteArray &out)
{
    const qsizetype before = out.size();
    const qsizetype end = std::min(before + m_BlockLeft, frameEnd);
    const qsizetype enough = std::min(end, wanted);
    if (m_Kind == Plain) out.append(bits.TakeBytes(enough - before));
    while (out.size() < enough) {
        const unsigned symbol = bits.Symbol(m_Main);
        if (symbol >= Characters)
            CopyMatch(bits, symbol - Characters, m_SinceReset + out.size() - before, end, out);
        else
            out.append(static_cast<char>(symbol));
    }
    m_SinceReset += out.size() - before;
    m_BlockLeft -= out.size() - before;
}

void LzxReader::CopyMatch(Bits &bits, unsigned symbol, qsizetype written, qsizetype end, QByteArray &out)
{
    qsizetype length = symbol % LengthsPerSlot + 2;
    if (symbol % LengthsPerSlot == LengthsPerSlot - 1) length += bits.Symbol(m_Length);
    const qsizetype distance = DistanceOf(bits, symbol / LengthsPerSlot);
    if (distance == 0 || distance > written || distance > m_WindowSize || length > end - out.size()) Fail();
    // Byte by byte: a match may reach into what it writes.
    for (qsizetype i = 0; i < length; ++i) out.append(out[out.size() - distance]);
}

std::uint32_t LzxReader::DistanceOf(Bits &bits, unsigned slot)
{
    if (slot < m_Recent.size()) {
        std::swap(m_Recent[0], m_Recent[slot]);
        return m_Recent[0];
    }
    const int extra = ExtraBits(slot);
    std::uint32_t distance = Bases[slot] - 2;
    if (m_Kind == Aligned && extra >= 3) {
        distance += bits.Take(extra - 3) << 3;
        distance += bits.Symbol(m_AlignedCodes);
    } else {
        distance += bits.Take(extra);
    }
    m_Recent = {distance, m_Recent[0], m_Recent[1]};
    return distance;
}
