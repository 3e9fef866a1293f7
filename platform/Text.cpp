#include "platform/Text.h"

#include <QStringDecoder>

namespace
{
// Windows-1252 differs from Latin-1 in 0x80 to 0x9F; the five bytes it leaves open stand for themselves.
constexpr char16_t UpperRow[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString FromWindows1252(const QByteArray &Bytes)
{
    QString text = QString::fromLatin1(Bytes);
    for (QChar &c : text) {
        if (c.unicode() >= 0x80 && c.unicode() < 0xA0) c = UpperRow[c.unicode() - 0x80];
    }
    return text;
}
} // namespace

QString FromFileText(const QByteArray &Bytes)
{
    // A byte order mark inside a text is a character like any other.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = utf8.decode(Bytes);
    return utf8.hasError() ? FromWindows1252(Bytes) : text;
}

QByteArray ToFileText(const QString &Text) { return Text.toUtf8(); }

QByteArray CutBytes(const QByteArray &Bytes, qsizetype Count)
{
    if (Bytes.size() <= Count) return Bytes;
    qsizetype end = Count;
    // What is no UTF-8 has one byte a character, and any place is between two of them.
    if (Bytes.isValidUtf8()) {
        while (end > 0 && (static_cast<unsigned char>(Bytes[end]) & 0xC0) == 0x80) --end;
    }
    return Bytes.left(end);
}
