#include "platform/Convert.h"

#include "platform/RuntimeError.h"
#include "platform/Units.h"

#include <cmath>
#include <limits>

namespace
{
[[noreturn]] void Overflow() { throw RuntimeError(6, {}, QStringLiteral("Overflow.")); }

template <typename Integer>
Integer Narrowed(double Value)
{
    // The default floating point environment rounds to nearest, halves to even.
    const double rounded = std::nearbyint(Value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        Overflow();
    return static_cast<Integer>(rounded);
}

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool IsBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

qsizetype SkipBlanks(const QString &Text, qsizetype at)
{
    while (at < Text.size() && IsBlank(Text[at])) ++at;
    return at;
}

qsizetype SkipDigits(const QString &Text, qsizetype at)
{
    while (at < Text.size() && IsDigit(Text[at])) ++at;
    return at;
}

// The end of a decimal number that begins at "from": sign, digits, point, digits, exponent; "from" itself when none
// does.
qsizetype EndOfDecimal(const QString &Text, qsizetype from)
{
    qsizetype at = from;
    if (at < Text.size() && (Text[at] == u'+' || Text[at] == u'-')) ++at;
    const qsizetype whole = at;
    at = SkipDigits(Text, at);
    qsizetype digits = at - whole;
    if (at < Text.size() && Text[at] == u'.') {
        const qsizetype fraction = at + 1;
        at = SkipDigits(Text, fraction);
        digits += at - fraction;
    }
    if (digits == 0) return from;
    if (at < Text.size() && Text[at].toUpper() == u'E') {
        qsizetype exponent = at + 1;
        if (exponent < Text.size() && (Text[exponent] == u'+' || Text[exponent] == u'-')) ++exponent;
        const qsizetype end = SkipDigits(Text, exponent);
        if (end > exponent) at = end;
    }
    return at;
}

// "&H" and "&O" numbers are plain numbers up to 7FFFFFFF, so "&HFFFF" is 65535; from there to FFFFFFFF they are the
// negative numbers of that bit pattern.
double PrefixedNumber(const QString &Text, qsizetype from, int base)
{
    qsizetype end = from;
    const auto isDigit = [base](QChar c) {
        return base == 16 ? IsDigit(c) || (c.toUpper() >= u'A' && c.toUpper() <= u'F') : c >= u'0' && c <= u'7';
    };
    while (end < Text.size() && isDigit(Text[end])) ++end;
    bool fits = false;
    const qulonglong bits = Text.mid(from, end - from).toULongLong(&fits, base);
    if (end == from) return 0;
    if (!fits || bits > 0xFFFFFFFFULL) Overflow();
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
}
} // namespace

std::int32_t ToInt32(double Value) { return Narrowed<std::int32_t>(Value); }

std::int32_t ToInt32(std::int64_t Value)
{
    if (Value < std::numeric_limits<std::int32_t>::min() || Value > std::numeric_limits<std::int32_t>::max())
        Overflow();
    return static_cast<std::int32_t>(Value);
}

std::int16_t ToInt16(std::int32_t Value) { return Narrowed<std::int16_t>(Value); }

double LeadingNumber(const QString &Text)
{
    const qsizetype start = SkipBlanks(Text, 0);
    if (start + 1 < Text.size() && Text[start] == u'&') {
        const QChar prefix = Text[start + 1].toUpper();
        if (prefix == u'H') return PrefixedNumber(Text, start + 2, 16);
        if (prefix == u'O') return PrefixedNumber(Text, start + 2, 8);
        return 0;
    }
    const qsizetype end = EndOfDecimal(Text, start);
    return end == start ? 0 : Text.mid(start, end - start).toDouble();
}

std::int32_t WholeNumber(const QString &Text)
{
    const qsizetype start = SkipBlanks(Text, 0);
    const qsizetype end = EndOfDecimal(Text, start);
    if (end == start || SkipBlanks(Text, end) != Text.size())
        throw RuntimeError(13, {}, QStringLiteral("Type mismatch."));
    return ToInt32(Text.mid(start, end - start).toDouble());
}

std::int32_t NumberIn(const QVariant &Value)
{
    switch (Value.typeId()) {
    case QMetaType::Bool: // true is -1 where flags are numbers, but no game means a score by it
        return 0;
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::SChar:
    case QMetaType::Char:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return ToInt32(static_cast<std::int64_t>(Value.toLongLong()));
    case QMetaType::UInt:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return ToInt32(Value.toDouble());
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return ToInt32(LeadingNumber(Value.toString()));
    default:
        return 0;
    }
}

Pixels ToPixels(Twips Length) { return Pixels{ToInt32(static_cast<double>(Length.Value) / TwipsPerPixel)}; }
