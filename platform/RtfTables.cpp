#include "platform/RtfTables.h"

#include <algorithm>
#include <array>
#include <utility>

namespace
{
constexpr std::int32_t WesternWindows = 1252, Utf8 = 65001;

template <typename Key, typename Value, std::size_t Count>
Value Looked(const std::array<std::pair<Key, Value>, Count> &table, const Key &key, Value otherwise)
{
    const auto found = std::find_if(table.begin(), table.end(), [&](const auto &row) { return row.first == key; });
    return found == table.end() ? otherwise : found->second;
}

constexpr std::array<std::pair<std::int32_t, std::int32_t>, 19> CharSets{{{0, 1252},
                                                                          {77, 10000},
                                                                          {128, 932},
                                                                          {129, 949},
                                                                          {130, 1361},
                                                                          {134, 936},
                                                                          {136, 950},
                                                                          {161, 1253},
                                                                          {162, 1254},
                                                                          {163, 1258},
                                                                          {177, 1255},
                                                                          {178, 1256},
                                                                          {186, 1257},
                                                                          {204, 1251},
                                                                          {222, 874},
                                                                          {238, 1250},
                                                                          {254, 437},
                                                                          {255, 850},
                                                                          {2, 1252}}};

constexpr std::array<std::pair<QByteArrayView, char16_t>, 12> Characters{{{"tab", u'\t'},
                                                                          {"line", u'\u2028'},
                                                                          {"bullet", u'\u2022'},
                                                                          {"emdash", u'\u2014'},
                                                                          {"endash", u'\u2013'},
                                                                          {"lquote", u'\u2018'},
                                                                          {"rquote", u'\u2019'},
                                                                          {"ldblquote", u'\u201C'},
                                                                          {"rdblquote", u'\u201D'},
                                                                          {"emspace", u'\u2003'},
                                                                          {"enspace", u'\u2002'},
                                                                          {"cell", u'\t'}}};

constexpr std::array<QByteArrayView, 24> Skipped{
    "stylesheet", "info",    "header",   "headerl", "headerr",    "headerf",   "footer",   "footerl",
    "footerr",    "footerf", "footnote", "object",  "nonshppict", "fldinst",   "xe",       "tc",
    "filetbl",    "revtbl",  "rsidtbl",  "private", "annotation", "datafield", "pnseclvl", "atnid"};
} // namespace

std::int32_t RtfTables::CodePageOf(std::int32_t CharSet) { return Looked(CharSets, CharSet, 0); }

QStringDecoder RtfTables::DecoderOf(std::int32_t CodePage)
{
    const auto named = [](std::int32_t page) {
        if (page == Utf8) return QByteArray("UTF-8");
        if (page == 10000) return QByteArray("macintosh");
        const bool isWindows = (page >= 1250 && page <= 1258) || page == 874;
        return (isWindows ? QByteArray("windows-") : QByteArray("CP")) + QByteArray::number(page);
    };
    QStringDecoder decoder(named(CodePage).constData());
    if (!decoder.isValid()) decoder = QStringDecoder(named(WesternWindows).constData());
    return decoder.isValid() ? std::move(decoder) : QStringDecoder(QStringDecoder::Latin1);
}

char16_t RtfTables::SymbolOf(char Byte)
{
    constexpr std::array<std::pair<char, char16_t>, 6> signs{{{'\xB7', u'\u2022'},
                                                              {'\xA7', u'\u25AA'},
                                                              {'\xD8', u'\u27A2'},
                                                              {'\xFC', u'\u2713'},
                                                              {'\xAE', u'\u2192'},
                                                              {'\xB0', u'\u00B0'}}};
    return Looked(signs, Byte, static_cast<char16_t>(static_cast<unsigned char>(Byte)));
}

char16_t RtfTables::CharacterOf(QByteArrayView Word) { return Looked(Characters, Word, u'\0'); }

bool RtfTables::IsSkipped(QByteArrayView Word)
{
    return std::find(Skipped.begin(), Skipped.end(), Word) != Skipped.end();
}
