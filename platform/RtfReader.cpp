#include "platform/RtfReader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace
{
constexpr std::size_t DeepestGroup = 500;
constexpr int MostSkipped = 32;
constexpr qsizetype LongestName = 200;
constexpr qsizetype MostEntries = 5000; // of the tables of fonts and colours
} // namespace

RtfReader::RtfReader(QByteArrayView Bytes, QTextDocument &Document, const QFont &Base)
    : m_Scanner(Bytes), m_Document(Document), m_Cursor(&Document), m_Base(Base), m_Groups(1)
{}

void RtfReader::Read()
{
    m_Cursor.beginEditBlock();
    for (RtfToken token = m_Scanner.Next(); token.What != RtfToken::End; token = m_Scanner.Next()) {
        switch (token.What) {
        case RtfToken::Open:
            OpenGroup();
            break;
        case RtfToken::Close:
            CloseGroup();
            break;
        case RtfToken::Word:
            TakeWord(token);
            break;
        case RtfToken::Symbol:
            TakeSymbol(token.Character);
            break;
        case RtfToken::Byte:
            TakeByte(token.Character, true);
            break;
        case RtfToken::Hex:
            TakeByte(token.Character, false);
            break;
        case RtfToken::Binary:
            if (Now().Where == Picture) m_Picture.Bytes += token.Text;
            break;
        case RtfToken::End:
            break;
        }
    }
    DecodeBytes();
    Flush();
    m_Cursor.setBlockFormat(FormatOf(m_LastParagraph)); // its group has been closed
    m_Cursor.endEditBlock();
}

void RtfReader::OpenGroup()
{
    m_ToSkip = 0;
    DecodeBytes();
    if (m_Groups.size() >= DeepestGroup)
        ++m_TooDeep;
    else
        m_Groups.push_back(Group(Now()));
    m_StarBefore = false;
}

void RtfReader::CloseGroup()
{
    m_ToSkip = 0;
    m_StarBefore = false;
    DecodeBytes();
    if (m_TooDeep > 0) {
        --m_TooDeep;
        return;
    }
    if (m_Groups.size() == 1) return; // more ends than beginnings
    const Destination ended = Now().Where;
    m_Groups.pop_back();
    if (ended == Picture && Now().Where != Picture) InsertPicture();
}

void RtfReader::TakeSymbol(char Symbol)
{
    if (Symbol == '*') {
        m_StarBefore = true;
        return;
    }
    if (m_ToSkip > 0) {
        --m_ToSkip;
        return;
    }
    switch (Symbol) {
    case '\\':
    case '{':
    case '}':
        TakeByte(Symbol, true);
        break;
    case '~':
        Show(u'\u00A0');
        break;
    case '-':
        Show(u'\u00AD');
        break;
    case '_':
        Show(u'\u2011');
        break;
    case '\t':
        Show(u'\t');
        break;
    case '\r':
    case '\n':
        if (Now().Where == Body) EndParagraph();
        break;
    default:
        break;
    }
}

void RtfReader::TakeByte(char Byte, bool FromText)
{
    if (m_ToSkip > 0) {
        --m_ToSkip;
        return;
    }
    switch (Now().Where) {
    case Body:
        m_Bytes += Byte;
        break;
    case Fonts:
        if (Byte == ';') {
            m_Fonts[m_FontInTable].Family = RtfTables::DecoderOf(m_CodePage)(m_FontName.trimmed());
            m_FontName.clear();
        } else if (m_FontName.size() < LongestName) {
            m_FontName += Byte;
        }
        break;
    case Colours:
        if (Byte != ';' || m_Colours.size() >= MostEntries) break;
        m_Colours << std::exchange(m_Colour, QColor());
        break;
    case Picture:
        if (FromText) TakePictureDigit(Byte);
        break;
    default:
        break;
    }
}

void RtfReader::TakeWord(const RtfToken &Word)
{
    const bool mayBeSkipped = std::exchange(m_StarBefore, false);
    if (m_ToSkip > 0 && Word.Text != "u") {
        --m_ToSkip;
        return;
    }
    if (TakeDestination(Word.Text)) return;
    if (mayBeSkipped) {
        DecodeBytes();
        Now().Where = Skip;
        return;
    }
    if (Now().Where == Skip || Now().Where == SkipForUnicode) return;
    if (TakeHead(Word) || (Now().Where == Picture && TakePicture(Word))) return;
    if (Now().Where != Body) return;
    if (const char16_t character = RtfTables::CharacterOf(Word.Text)) return Show(character);
    if (TakeCharacter(Word)) return;
    TakeParagraph(Word);
}

// Words that say what their group is. Those within a skipped group change nothing.
bool RtfReader::TakeDestination(QByteArrayView Word)
{
    constexpr std::array<std::pair<QByteArrayView, Destination>, 5> known{
        {{"fonttbl", Fonts}, {"colortbl", Colours}, {"pict", Picture}, {"upr", SkipForUnicode}, {"shppict", Body}}};
    Destination &where = Now().Where;
    if (Word == "ud" && where == SkipForUnicode) {
        where = Body;
        return true;
    }
    if (where == Skip || where == SkipForUnicode) return false;
    if (RtfTables::IsSkipped(Word)) {
        DecodeBytes();
        where = Skip;
        return true;
    }
    for (const auto &[name, destination] : known) {
        if (name != Word) continue;
        DecodeBytes();
        where = destination;
        if (destination == Picture) m_Picture = {};
        return true;
    }
    return false;
}

bool RtfReader::TakeHead(const RtfToken &Word)
{
    const QByteArrayView name = Word.Text;
    if (name == "ansicpg")
        m_CodePage = Word.Number;
    else if (name == "mac")
        m_CodePage = 10000;
    else if (name == "pc")
        m_CodePage = 437;
    else if (name == "pca")
        m_CodePage = 850;
    else if (name == "deff")
        m_DefaultFont = Word.Number;
    else if (name == "uc")
        Now().BytesPerUnicode = std::clamp(Word.Number, 0, MostSkipped);
    else if (name == "u")
        TakeUnicode(Word.Number);
    else if (Now().Where == Fonts)
        TakeFontEntry(Word);
    else if (Now().Where == Colours)
        TakeColourEntry(Word);
    else
        return false;
    return true;
}

void RtfReader::TakeFontEntry(const RtfToken &Word)
{
    if (Word.Text == "f") m_FontInTable = Word.Number;
    if (m_Fonts.size() >= MostEntries) return;
    RtfFont &font = m_Fonts[m_FontInTable];
    if (Word.Text == "froman") font.Style = RtfFont::Serif;
    if (Word.Text == "fmodern") font.Style = RtfFont::Fixed;
    if (Word.Text != "fcharset") return;
    font.CodePage = RtfTables::CodePageOf(Word.Number);
    font.IsSymbol = Word.Number == 2;
}

void RtfReader::TakeColourEntry(const RtfToken &Word)
{
    const int value = std::clamp(Word.Number, 0, 255);
    QColor colour = m_Colour.isValid() ? m_Colour : QColor(Qt::black);
    if (Word.Text == "red")
        colour.setRed(value);
    else if (Word.Text == "green")
        colour.setGreen(value);
    else if (Word.Text == "blue")
        colour.setBlue(value);
    else
        return;
    m_Colour = colour;
}

void RtfReader::TakeUnicode(std::int32_t Number)
{
    m_ToSkip = Now().BytesPerUnicode;
    if (Now().Where == Body) Show(static_cast<char16_t>(Number & 0xFFFF));
}
