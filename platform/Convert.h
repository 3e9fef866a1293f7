// Numbers from numbers and numbers from text. All rounding in this program is to the nearest integer with halves to
// the even neighbour, and a number that does not fit is a failure, never a wrap.
#pragma once

#include <QString>
#include <QVariant>

#include <cstdint>

/// The nearest whole number, halves to even. Failure: passed on, "Overflow." when it does not fit or is no number.
std::int32_t ToInt32(double Value);
/// Failure: passed on, "Overflow."
std::int32_t ToInt32(std::int64_t Value);
/// As ToInt32, for 16 bits.
std::int16_t ToInt16(std::int32_t Value);

/// The number that a text starts with: blanks skipped, sign, digits, decimal point, exponent, "&H" and "&O" prefixes;
/// reading ends at the first character that can't continue a number. 0 when there is none. No locale takes part.
double LeadingNumber(const QString &Text);

/// The number that the whole text stands for, blanks at both ends allowed, rounded as ToInt32.
/// Failure: passed on, "Type mismatch." when the text is empty or anything else stands in it; "Overflow."
std::int32_t WholeNumber(const QString &Text);

/// What a game answered, as points: a number rounded as ToInt32, or the leading number of a text; anything else is 0.
/// Failure: passed on, "Overflow."
std::int32_t NumberIn(const QVariant &Value);
