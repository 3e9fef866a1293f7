// What a rich text file says at its head: code pages, fonts and colours.
#pragma once

#include <QByteArrayView>
#include <QColor>
#include <QString>
#include <QStringDecoder>

#include <cstdint>

struct RtfFont
{
    enum Kind { Plain, Serif, Fixed };
    QString Family;
    Kind Style = Plain;
    std::int32_t CodePage = 0; // 0 for the file's own
    bool IsSymbol = false;     // its characters are signs of its own
};

namespace RtfTables
{
/// The code page of a font's character set; 0 when it is the file's own.
std::int32_t CodePageOf(std::int32_t CharSet);
/// A reader of that code page; one of Western Windows for a page that is not known.
QStringDecoder DecoderOf(std::int32_t CodePage);
/// What a byte of a symbol font shows.
char16_t SymbolOf(char Byte);
/// A word that stands for one character, as "bullet"; 0 for all others.
char16_t CharacterOf(QByteArrayView Word);
/// Words whose group holds nothing to be shown.
bool IsSkipped(QByteArrayView Word);
} // namespace RtfTables
