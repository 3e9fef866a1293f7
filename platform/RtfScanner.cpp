#include "platform/RtfScanner.h"

#include <algorithm>

namespace
{
constexpr std::int64_t LargestNumber = 1'000'000'000;

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexValue(char c)
{
    if (IsDigit(c)) return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}
} // namespace

RtfToken RtfScanner::Next()
{
    // Line ends are the file's own, not the text's.
    while (!AtEnd() && (Peek() == '\r' || Peek() == '\n' || Peek() == '\0')) ++m_At;
    RtfToken token;
    if (AtEnd()) return token;
    const char c = m_Bytes[m_At++];
    if (c == '\\') return AfterBackslash();
    token.What = c == '{' ? RtfToken::Open : c == '}' ? RtfToken::Close : RtfToken::Byte;
    token.Character = c;
    return token;
}

RtfToken RtfScanner::AfterBackslash()
{
    if (AtEnd()) return {};
    const qsizetype start = m_At;
    if (IsLetter(Peek())) return WordFrom(start);
    RtfToken token;
    token.Character = m_Bytes[m_At++];
    if (token.Character == '\'') return HexByte();
    token.What = RtfToken::Symbol;
    return token;
}

RtfToken RtfScanner::WordFrom(qsizetype start)
{
    while (!AtEnd() && IsLetter(Peek())) ++m_At;
    RtfToken token;
    token.What = RtfToken::Word;
    token.Text = m_Bytes.sliced(start, m_At - start);
    ReadNumber(token);
    if (Peek() == ' ') ++m_At; // one blank belongs to the word
    if (token.Text != "bin") return token;
    token.What = RtfToken::Binary;
    const qsizetype length = std::clamp<qsizetype>(token.Number, 0, m_Bytes.size() - m_At);
    token.Text = m_Bytes.sliced(m_At, length);
    m_At += length;
    return token;
}

void RtfScanner::ReadNumber(RtfToken &token)
{
    const bool minus = Peek() == '-' && m_At + 1 < m_Bytes.size() && IsDigit(m_Bytes[m_At + 1]);
    if (minus) ++m_At;
    std::int64_t number = 0;
    for (; !AtEnd() && IsDigit(Peek()); ++m_At, token.HasNumber = true)
        number = std::min(LargestNumber, number * 10 + (Peek() - '0'));
    token.Number = static_cast<std::int32_t>(minus ? -number : number);
}

// Two digits; what is no digit is left for the next word, and the byte is then a blank.
RtfToken RtfScanner::HexByte()
{
    RtfToken token;
    token.What = RtfToken::Hex;
    int value = 0;
    int digits = 0;
    for (; digits < 2 && !AtEnd() && HexValue(Peek()) >= 0; ++digits) value = value * 16 + HexValue(m_Bytes[m_At++]);
    token.Character = digits == 2 ? static_cast<char>(value) : ' ';
    return token;
}
