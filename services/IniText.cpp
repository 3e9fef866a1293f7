#include "services/IniText.h"

#include "platform/Text.h"

#include <algorithm>

namespace
{
using Span = IniText::Span;

constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF");

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

Span Trimmed(const QByteArray &Bytes, Span span)
{
    while (span.start < span.end && IsBlank(Bytes[span.start])) ++span.start;
    while (span.end > span.start && IsBlank(Bytes[span.end - 1])) --span.end;
    return span;
}

QByteArray Slice(const QByteArray &Bytes, Span span) { return Bytes.mid(span.start, span.end - span.start); }

QByteArray Trimmed(const QByteArray &Bytes) { return Slice(Bytes, Trimmed(Bytes, {0, Bytes.size()})); }

// Names go the same way as those in the file, so that what was written is found again.
QString AsName(const QString &Text) { return FromFileText(Trimmed(ToFileText(Text))); }

bool AreEqual(const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

bool HasAny(const QByteArray &Text, QByteArrayView Bytes)
{
    return std::any_of(Bytes.begin(), Bytes.end(), [&](char c) { return Text.contains(c); });
}

// A line end would put lines into the file that nobody meant; a name that is not read back as itself would grow the
// file with every write.
bool CanStand(const QByteArray &Section, const QByteArray &Key, const QByteArray &Value)
{
    if (HasAny(Section + Key + Value, QByteArrayView("\r\n\0", 3))) return false;
    const QByteArray key = Trimmed(Key);
    return !Trimmed(Section).isEmpty() && !Section.contains(']') && !key.isEmpty() && !key.contains('=') &&
           !key.startsWith(';') && !key.startsWith('[');
}
} // namespace

IniText::IniText(const QByteArray &Bytes) : m_Bytes(Bytes) { Parse(); }

QByteArray IniText::Value(const QString &Section, const QString &Key) const
{
    const std::size_t at = KeyLine(SectionHead(AsName(Section)), AsName(Key));
    if (at == m_Lines.size()) return {};
    const QByteArray value = Slice(m_Bytes, m_Lines[at].value);
    const bool isQuoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'');
    return isQuoted && value.back() == value.front() ? value.mid(1, value.size() - 2) : value;
}

bool IniText::SetValue(const QString &Section, const QString &Key, const QByteArray &Value)
{
    if (!CanStand(ToFileText(Section), ToFileText(Key), Value)) return false;
    const QByteArray section = Trimmed(ToFileText(Section));
    const QByteArray key = Trimmed(ToFileText(Key));
    const QByteArray value = Trimmed(Value);

    const std::size_t head = SectionHead(FromFileText(section));
    const std::size_t known = KeyLine(head, FromFileText(key));
    if (known != m_Lines.size()) {
        const Span old = m_Lines[known].value;
        m_Bytes.replace(old.start, old.end - old.start, value);
    } else if (head != m_Lines.size()) {
        InsertLine(m_Lines[LastLineOfSection(head)].end, key + '=' + value);
    } else {
        InsertLine(m_Bytes.size(), '[' + section + ']');
        InsertLine(m_Bytes.size(), key + '=' + value);
    }
    Parse();
    return true;
}

void IniText::Parse()
{
    m_Lines.clear();
    qsizetype start = m_Bytes.startsWith(ByteOrderMark) ? ByteOrderMark.size() : 0;
    while (start < m_Bytes.size()) {
        const qsizetype feed = m_Bytes.indexOf('\n', start);
        const qsizetype end = feed < 0 ? m_Bytes.size() : feed;
        m_Lines.push_back(ParsedLine(start, end));
        start = m_Lines.back().end = feed < 0 ? end : end + 1;
    }
}

IniText::Line IniText::ParsedLine(qsizetype start, qsizetype end) const
{
    Line line;
    const Span text = Trimmed(m_Bytes, {start, end});
    if (text.start == text.end) return line;
    const auto indexOf = [&](char c, qsizetype from) {
        const auto found = std::find(m_Bytes.begin() + from, m_Bytes.begin() + text.end, c);
        return static_cast<qsizetype>(found - m_Bytes.begin());
    };
    const auto nameIn = [&](Span name) { return FromFileText(Slice(m_Bytes, Trimmed(m_Bytes, name))); };

    if (m_Bytes[text.start] == ';') {
        line.kind = Line::Kind::Comment;
    } else if (m_Bytes[text.start] == '[') {
        line.kind = Line::Kind::Section;
        line.name = nameIn({text.start + 1, indexOf(']', text.start)});
    } else if (const qsizetype equals = indexOf('=', text.start); equals != text.end) {
        line.kind = Line::Kind::Key;
        line.name = nameIn({text.start, equals});
        line.value = Trimmed(m_Bytes, {equals + 1, text.end});
    }
    return line;
}

// The places below are indexes into m_Lines; its size stands for "there is none".

std::size_t IniText::SectionHead(const QString &Name) const
{
    const auto found = std::find_if(m_Lines.begin(), m_Lines.end(), [&](const Line &line) {
        return line.kind == Line::Kind::Section && AreEqual(line.name, Name);
    });
    return static_cast<std::size_t>(found - m_Lines.begin());
}

std::size_t IniText::KeyLine(std::size_t head, const QString &Name) const
{
    for (std::size_t at = head + 1; at < m_Lines.size() && m_Lines[at].kind != Line::Kind::Section; ++at) {
        if (m_Lines[at].kind == Line::Kind::Key && AreEqual(m_Lines[at].name, Name)) return at;
    }
    return m_Lines.size();
}

// What a new key goes behind. Comments above the next head belong to that; those at the file's end do not.
std::size_t IniText::LastLineOfSection(std::size_t head) const
{
    std::size_t next = head + 1;
    while (next < m_Lines.size() && m_Lines[next].kind != Line::Kind::Section) ++next;
    std::size_t last = next - 1;
    while (last > head && (m_Lines[last].kind == Line::Kind::Other ||
                           (m_Lines[last].kind == Line::Kind::Comment && next < m_Lines.size())))
        --last;
    return last;
}

// The line end of the line that ends there, else that of the first line, else CR LF.
QByteArray IniText::LineEndAt(qsizetype end) const
{
    const bool isEnd = end > 0 && m_Bytes[end - 1] == '\n';
    const qsizetype feed = isEnd ? end - 1 : m_Bytes.indexOf('\n');
    if (feed < 0) return "\r\n";
    return feed > 0 && m_Bytes[feed - 1] == '\r' ? "\r\n" : "\n";
}

void IniText::InsertLine(qsizetype at, const QByteArray &line)
{
    const QByteArray lineEnd = LineEndAt(at);
    const bool isOpen = at > 0 && m_Bytes[at - 1] != '\n' && m_Bytes != ByteOrderMark;
    m_Bytes.insert(at, (isOpen ? lineEnd : QByteArray()) + line + lineEnd);
}
