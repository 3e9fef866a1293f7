// How the reader of rich text makes the document: the looks of characters and paragraphs, and what goes in with them.
#include "platform/RtfReader.h"

#include "platform/Units.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QImageReader>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace
{
constexpr double PixelsPerHalfPoint = 96.0 / 72.0 / 2;
constexpr int SmallestHalfPoints = 2, LargestHalfPoints = 600;
constexpr int LongestLength = 30000; // [twips], of indents and tabs
constexpr qsizetype MostTabs = 64;
constexpr int LargestPicture = 4096;        // [px], as it is stored
constexpr int LargestShown = 2000;          // [px]
constexpr qsizetype LargestData = 32 << 20; // bytes
constexpr int MostPictures = 200;
constexpr qsizetype MostShown = 200'000; // characters and ends of paragraphs: a hundred pages
constexpr double SingleLine = 240;

int InPixels(int twips) { return ToPixels(Twips{std::clamp(twips, -LongestLength, LongestLength)}).Value; }

bool IsOn(const RtfToken &word) { return !word.HasNumber || word.Number != 0; }

// Halves of characters that lost their other half.
QString WithoutHalves(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate()) continue;
        const bool whole = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (whole)
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}
} // namespace

bool RtfReader::TakeCharacter(const RtfToken &Word)
{
    DecodeBytes();
    CharacterLook &look = Now().Character;
    const QByteArrayView name = Word.Text;
    const bool on = IsOn(Word);
    if (name == "b")
        look.Bold = on;
    else if (name == "i")
        look.Italic = on;
    else if (name == "ul" || name == "uld" || name == "uldb" || name == "ulw" || name == "ulth")
        look.Underline = on;
    else if (name == "ulnone")
        look.Underline = false;
    else if (name == "strike" || name == "striked")
        look.Strike = on;
    else if (name == "v")
        look.Hidden = on;
    else if (name == "super" || name == "sub")
        look.Raised = !on ? 0 : name == "super" ? 1 : -1;
    else if (name == "nosupersub")
        look.Raised = 0;
    else if (name == "fs")
        look.HalfPoints = std::clamp(Word.HasNumber ? Word.Number : 24, SmallestHalfPoints, LargestHalfPoints);
    else if (name == "f")
        look.Font = Word.Number;
    else if (name == "cf")
        look.Colour = Word.Number;
    else if (name == "cb" || name == "highlight" || name == "chcbpat")
        look.Ground = Word.Number;
    else if (name == "plain")
        look = {};
    else
        return false;
    return true;
}

bool RtfReader::TakeParagraph(const RtfToken &Word)
{
    constexpr std::array<std::pair<QByteArrayView, Qt::AlignmentFlag>, 4> alignments{
        {{"ql", Qt::AlignLeft}, {"qc", Qt::AlignHCenter}, {"qr", Qt::AlignRight}, {"qj", Qt::AlignJustify}}};
    constexpr std::array<std::pair<QByteArrayView, int ParagraphLook::*>, 6> lengths{{{"li", &ParagraphLook::Left},
                                                                                      {"fi", &ParagraphLook::First},
                                                                                      {"ri", &ParagraphLook::Right},
                                                                                      {"sb", &ParagraphLook::Before},
                                                                                      {"sa", &ParagraphLook::After},
                                                                                      {"sl", &ParagraphLook::Line}}};
    ParagraphLook &look = Now().Paragraph;
    const QByteArrayView name = Word.Text;
    for (const auto &[word, alignment] : alignments)
        if (word == name) look.Alignment = alignment;
    for (const auto &[word, length] : lengths)
        if (word == name) look.*length = Word.Number;
    if (name == "par" || name == "sect" || name == "page" || name == "row")
        EndParagraph();
    else if (name == "pard")
        look = {};
    else if (name == "slmult")
        look.LineIsMultiple = Word.Number == 1;
    else if (name == "rtlpar")
        look.RightToLeft = true;
    else if (name == "ltrpar")
        look.RightToLeft = false;
    else if (name == "tqr")
        look.NextTab = QTextOption::RightTab;
    else if (name == "tqc")
        look.NextTab = QTextOption::CenterTab;
    else if (name == "tqdec")
        look.NextTab = QTextOption::DelimiterTab;
    else if (name == "tx" && look.Tabs.size() < MostTabs)
        look.Tabs << QTextOption::Tab(InPixels(Word.Number), std::exchange(look.NextTab, QTextOption::LeftTab), u'.');
    return true;
}

void RtfReader::Show(char16_t Character)
{
    if (Now().Where != Body) return;
    DecodeBytes();
    TakeText(QChar(Character));
}

void RtfReader::TakeText(const QString &Text)
{
    if (Now().Where != Body || Now().Character.Hidden) return;
    if (Now().Character != m_TextLook) Flush();
    m_TextLook = Now().Character;
    m_LastParagraph = Now().Paragraph;
    m_Text += Text.left(MostShown - m_Shown);
    m_Shown = std::min(MostShown, m_Shown + Text.size());
}

const RtfFont *RtfReader::PresentFont() const
{
    const std::int32_t wanted = m_Groups.back().Character.Font;
    const auto found = m_Fonts.constFind(wanted < 0 ? m_DefaultFont : wanted);
    return found == m_Fonts.constEnd() ? nullptr : &*found;
}

// Bytes are kept until something else comes, since a character may be made of several.
void RtfReader::DecodeBytes()
{
    if (m_Bytes.isEmpty()) return;
    const QByteArray bytes = std::exchange(m_Bytes, {});
    const RtfFont *font = PresentFont();
    QString text;
    if (font != nullptr && font->IsSymbol) {
        for (const char byte : bytes) text += QChar(RtfTables::SymbolOf(byte));
    } else {
        text = RtfTables::DecoderOf(font != nullptr && font->CodePage != 0 ? font->CodePage : m_CodePage)(bytes);
    }
    TakeText(text);
}

void RtfReader::Flush()
{
    if (m_Text.isEmpty()) return;
    m_Cursor.insertText(WithoutHalves(std::exchange(m_Text, {})), FormatOf(m_TextLook));
}

void RtfReader::EndParagraph()
{
    DecodeBytes();
    Flush();
    if (m_Shown == MostShown) return;
    ++m_Shown;
    m_Cursor.setBlockFormat(FormatOf(Now().Paragraph));
    // An empty line has the height of the text that could stand in it.
    m_Cursor.setBlockCharFormat(FormatOf(Now().Character));
    m_Cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    m_LastParagraph = Now().Paragraph;
}

QTextCharFormat RtfReader::FormatOf(const CharacterLook &Look) const
{
    QTextCharFormat format;
    SetFontOf(format, Look.Font < 0 ? m_DefaultFont : Look.Font);
    format.setProperty(QTextFormat::FontPixelSize, std::max(1, qRound(Look.HalfPoints * PixelsPerHalfPoint)));
    if (Look.Bold) format.setFontWeight(QFont::Bold);
    if (Look.Italic) format.setFontItalic(true);
    if (Look.Underline) format.setFontUnderline(true);
    if (Look.Strike) format.setFontStrikeOut(true);
    if (Look.Raised != 0)
        format.setVerticalAlignment(Look.Raised > 0 ? QTextCharFormat::AlignSuperScript
                                                    : QTextCharFormat::AlignSubScript);
    const QColor colour = m_Colours.value(Look.Colour);
    if (colour.isValid()) format.setForeground(colour);
    const QColor ground = m_Colours.value(Look.Ground);
    if (Look.Ground != 0 && ground.isValid()) format.setBackground(ground);
    return format;
}

// A font that is not installed gives way to one of its kind, and a plain one to the program's own.
void RtfReader::SetFontOf(QTextCharFormat &Format, std::int32_t Font) const
{
    const auto found = m_Fonts.constFind(Font);
    if (found == m_Fonts.constEnd() || found->IsSymbol) return;
    if (QFontDatabase::hasFamily(found->Family)) {
        Format.setFontFamilies({found->Family});
    } else if (found->Style == RtfFont::Fixed) {
        Format.setFontFamilies({QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
    } else if (found->Style == RtfFont::Serif) {
        Format.setFontFamilies({QStringLiteral("serif")});
        Format.setFontStyleHint(QFont::Serif);
    }
}

QTextBlockFormat RtfReader::FormatOf(const ParagraphLook &Look) const
{
    QTextBlockFormat format;
    format.setAlignment(Look.Alignment);
    format.setLeftMargin(InPixels(Look.Left));
    format.setRightMargin(std::max(0, InPixels(Look.Right)));
    format.setTextIndent(InPixels(Look.First));
    format.setTopMargin(std::max(0, InPixels(Look.Before)));
    format.setBottomMargin(std::max(0, InPixels(Look.After)));
    if (Look.RightToLeft) format.setLayoutDirection(Qt::RightToLeft);
    if (Look.LineIsMultiple && Look.Line > 0)
        format.setLineHeight(std::clamp(Look.Line / SingleLine * 100, 50.0, 500.0),
                             QTextBlockFormat::ProportionalHeight);
    // Tabs are told from the edge of the page and kept from where the first line begins; the left margin is one
    // itself when the first line hangs out of it, as the mark of a list does.
    QList<QTextOption::Tab> tabs;
    if (Look.First < 0) tabs << QTextOption::Tab(-InPixels(Look.First), QTextOption::LeftTab);
    for (QTextOption::Tab tab : Look.Tabs) {
        tab.position -= InPixels(Look.Left) + InPixels(Look.First);
        tabs << tab;
    }
    std::sort(tabs.begin(), tabs.end(),
              [](const auto &one, const auto &other) { return one.position < other.position; });
    if (!tabs.isEmpty()) format.setTabPositions(tabs);
    return format;
}

bool RtfReader::TakePicture(const RtfToken &Word)
{
    const QByteArrayView name = Word.Text;
    if (name == "pngblip" || name == "jpegblip")
        m_Picture.IsKnown = true;
    else if (name == "picwgoal")
        m_Picture.Width = Word.Number;
    else if (name == "pichgoal")
        m_Picture.Height = Word.Number;
    else if (name == "picscalex")
        m_Picture.ScaleX = Word.Number;
    else if (name == "picscaley")
        m_Picture.ScaleY = Word.Number;
    return true;
}

void RtfReader::TakePictureDigit(char Digit)
{
    const int value = HexDigit(Digit);
    if (value < 0 || m_Picture.Bytes.size() >= LargestData) return;
    if (m_Picture.HalfByte < 0) {
        m_Picture.HalfByte = value;
    } else {
        m_Picture.Bytes += static_cast<char>(m_Picture.HalfByte * 16 + value);
        m_Picture.HalfByte = -1;
    }
}

void RtfReader::InsertPicture()
{
    PictureData data = std::exchange(m_Picture, {});
    if (Now().Where != Body || !data.IsKnown || m_PictureCount >= MostPictures) return;
    QBuffer buffer(&data.Bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    const bool isKnown = reader.format() == "png" || reader.format() == "jpeg";
    if (!isKnown || size.isEmpty() || size.width() > LargestPicture || size.height() > LargestPicture) return;
    const QImage picture = reader.read();
    if (picture.isNull()) return;

    const auto shown = [](int goal, int scale, int own) {
        const int whole = goal > 0 ? InPixels(goal) : own;
        return std::clamp(static_cast<int>(whole * (std::clamp(scale, 1, 1000) / 100.0)), 1, LargestShown);
    };
    Flush();
    const QString name = QStringLiteral("picture:%1").arg(++m_PictureCount);
    m_Document.addResource(QTextDocument::ImageResource, QUrl(name), picture);
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(shown(data.Width, data.ScaleX, picture.width()));
    format.setHeight(shown(data.Height, data.ScaleY, picture.height()));
    m_Cursor.insertImage(format);
}
