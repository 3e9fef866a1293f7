#include "platform/ReplyHeader.h"

namespace
{
constexpr qsizetype StatusAt = 9; // behind "HTTP/1.1 "

QByteArrayView WithoutEnd(QByteArrayView line)
{
    while (!line.isEmpty() && (line.back() == '\r' || line.back() == '\n')) line.chop(1);
    return line;
}
} // namespace

void ReplyHeader::Take(QByteArrayView Line)
{
    if (m_IsComplete) return;
    const QByteArrayView line = WithoutEnd(Line);
    if (line.isEmpty()) {
        m_IsComplete = !m_Text.isEmpty() && !m_IsInterim;
        return;
    }
    if (line.startsWith("HTTP/") && (m_Text.isEmpty() || m_IsInterim)) {
        m_Text.clear();
        m_IsInterim = line.size() > StatusAt && line[StatusAt] == '1';
    }
    m_Text.append(line.data(), line.size());
    m_Text.append("\r\n");
}
