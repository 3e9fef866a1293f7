#include "platform/RichText.h"
#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <memory>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

std::unique_ptr<QTextDocument> Doc(const QByteArray &body)
{
    return RichText::Read("{\\rtf1\\ansi\\ansicpg1252 " + body + "}", QFont());
}

QString TextOf(const QByteArray &body) { return Doc(body)->toPlainText(); }

// The format of the piece of text that is exactly Text.
QTextCharFormat Format(const QTextDocument &document, const char *text)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (piece.fragment().text() == S(text)) return piece.fragment().charFormat();
    ADD_FAILURE() << "no piece " << text;
    return {};
}

QByteArray PictureBytes(const char *format, const QSize &size = {8, 4})
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes;
}

QTextImageFormat Image(const QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (piece.fragment().charFormat().isImageFormat()) return piece.fragment().charFormat().toImageFormat();
    return {};
}
} // namespace

TEST(RichText, LooksOfCharactersEndWithTheirGroup)
{
    const auto document = Doc("plain {\\b bold \\i both}\\ul under\\ulnone  {\\strike gone}{\\super up}{\\v hidden}");
    EXPECT_EQ(document->toPlainText(), S("plain bold bothunder goneup"));
    EXPECT_EQ(Format(*document, "bold ").fontWeight(), QFont::Bold);
    EXPECT_TRUE(Format(*document, "both").fontItalic());
    EXPECT_EQ(Format(*document, "both").fontWeight(), QFont::Bold);
    EXPECT_TRUE(Format(*document, "under").fontUnderline());
    EXPECT_TRUE(Format(*document, "gone").fontStrikeOut());
    EXPECT_EQ(Format(*document, "up").verticalAlignment(), QTextCharFormat::AlignSuperScript);
    EXPECT_FALSE(Format(*document, "plain ").fontItalic());
}

TEST(RichText, SizesAreHalfPoints)
{
    const auto document = Doc("{\\fs48 big}{\\fs18 small}{\\fs999999 huge}{\\plain usual}");
    EXPECT_EQ(Format(*document, "big").intProperty(QTextFormat::FontPixelSize), 32);
    EXPECT_EQ(Format(*document, "small").intProperty(QTextFormat::FontPixelSize), 12);
    EXPECT_EQ(Format(*document, "huge").intProperty(QTextFormat::FontPixelSize), 400);
    EXPECT_EQ(Format(*document, "usual").intProperty(QTextFormat::FontPixelSize), 16);
}

TEST(RichText, ColoursComeFromTheTable)
{
    const auto document = Doc("{\\colortbl;\\red200\\green30\\blue4;\\red0\\green0\\blue255;}"
                              "{\\cf1 red}{\\cf2\\highlight1 blue}{\\cf0 auto}{\\cf77 none}");
    EXPECT_EQ(Format(*document, "red").foreground().color(), QColor(200, 30, 4));
    EXPECT_EQ(Format(*document, "blue").foreground().color(), QColor(0, 0, 255));
    EXPECT_EQ(Format(*document, "blue").background().color(), QColor(200, 30, 4));
    EXPECT_FALSE(Format(*document, "autonone").hasProperty(QTextFormat::ForegroundBrush));
}

TEST(RichText, FontsAreThoseThatAreInstalledElseOfTheirKind)
{
    const auto document = Doc("{\\fonttbl{\\f0\\froman DejaVu Sans Mono;}{\\f1\\fmodern Not Here;}"
                              "{\\f2\\froman Nor Here;}{\\f3\\fswiss Nowhere;}}"
                              "{\\f0 own}{\\f1 fixed}{\\f2 serif}{\\f3 plain}{\\f77 none}");
    const auto families = [&](const char *text) {
        return Format(*document, text).fontFamilies().toStringList().join(u',');
    };
    ASSERT_TRUE(QFontDatabase::hasFamily(S("DejaVu Sans Mono")));
    EXPECT_EQ(families("own"), S("DejaVu Sans Mono"));
    EXPECT_EQ(families("fixed"), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    EXPECT_EQ(families("serif"), S("serif"));
    EXPECT_EQ(families("plainnone"), QString()) << "the program's own";
}

TEST(RichText, ParagraphsKeepAlignmentIndentsAndTabs)
{
    const auto document =
        Doc("\\qc middle\\par\\pard\\li720\\fi-360\\ri150\\sb300\\sa60\\tx1440\\tqr\\tx2880 hanging\\par\\qr right");
    const QTextBlockFormat first = document->begin().blockFormat();
    const QTextBlockFormat second = document->begin().next().blockFormat();
    EXPECT_EQ(first.alignment(), Qt::AlignHCenter);
    EXPECT_EQ(second.alignment(), Qt::AlignLeft);
    EXPECT_EQ(second.leftMargin(), 48);
    EXPECT_EQ(second.textIndent(), -24);
    EXPECT_EQ(second.rightMargin(), 10);
    EXPECT_EQ(second.topMargin(), 20);
    EXPECT_EQ(second.bottomMargin(), 4);
    ASSERT_EQ(second.tabPositions().size(), 3);
    EXPECT_EQ(second.tabPositions()[0].position, 24) << "the margin that the line hangs out of";
    EXPECT_EQ(second.tabPositions()[1].position, 72);
    EXPECT_EQ(second.tabPositions()[2].type, QTextOption::RightTab);
    EXPECT_EQ(document->begin().next().next().blockFormat().alignment(), Qt::AlignRight);
}

TEST(RichText, ListsShowTheMarkThatStandsInTheFile)
{
    EXPECT_EQ(TextOf("{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt}one\\par {\\listtext 2.\\tab}two"),
              S("•\tone\n2.\ttwo"));
    EXPECT_EQ(TextOf("{\\fonttbl{\\f0 Inter;}{\\f3\\fcharset2 Symbol;}}{\\pntext\\f3\\'B7\\tab}one"), S("•\tone"));
}

TEST(RichText, UnicodeReplacesTheBytesBesideIt)
{
    EXPECT_EQ(TextOf("\\u8364?5"), S("€5"));
    EXPECT_EQ(TextOf("{\\uc0\\u8364 5}"), S("€5"));
    EXPECT_EQ(TextOf("{\\uc2\\u8364\\'80\\'81x}"), S("€x"));
    EXPECT_EQ(TextOf("\\u-10179?\\u-8704?!"), S("😀!"));
    EXPECT_EQ(TextOf("\\u55357? alone"), S("\uFFFD alone"));
    EXPECT_EQ(TextOf("{\\u8364}?"), S("€?")) << "the end of a group ends the skipping";
    EXPECT_EQ(TextOf("{\\upr{plain}{\\*\\ud{\\u960?}}}"), S("π"));
}

TEST(RichText, BytesAreReadByTheCodePageOfTheirFont)
{
    EXPECT_EQ(TextOf("caf\\'e9 \\'80"), S("café €"));
    const QByteArray fonts = "{\\fonttbl{\\f0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset128 C;}{\\f3\\fcharset161 D;}}";
    EXPECT_EQ(TextOf(fonts + "\\f1\\'ef\\'f0\\'e8"), S("при"));
    EXPECT_EQ(TextOf(fonts + "\\f2\\'82\\'a0\\'82\\'a2"), S("あい"));
    EXPECT_EQ(TextOf(fonts + "\\f3\\'e1\\'e2"), S("αβ"));
    EXPECT_EQ(RichText::Read("{\\rtf1\\ansicpg1251 \\'ef}", QFont())->toPlainText(), S("п"));
    EXPECT_EQ(RichText::Read("{\\rtf1\\ansicpg4711 \\'e9}", QFont())->toPlainText(), S("é"));
}

TEST(RichText, EveryCharacterSetIsRead)
{
    const struct
    {
        int CharSet;
        const char *Bytes;
        const char *Text;
    } table[] = {{0, "\\'e9", "é"},         {77, "\\'8e", "é"},  {129, "\\'b0\\'a1", "가"}, {134, "\\'c4\\'e3", "你"},
                 {136, "\\'a7\\'41", "你"}, {162, "\\'fe", "ş"}, {163, "\\'f5", "ơ"},       {177, "\\'e0", "א"},
                 {178, "\\'c8", "ب"},       {186, "\\'e0", "ą"}, {222, "\\'a1", "ก"},       {238, "\\'b3", "ł"},
                 {254, "\\'82", "é"},       {255, "\\'82", "é"}};
    for (const auto &row : table) {
        const QByteArray font = "{\\fonttbl{\\f0\\fcharset" + QByteArray::number(row.CharSet) + " A;}}\\f0";
        EXPECT_EQ(TextOf(font + row.Bytes).toStdString(), row.Text) << row.CharSet;
    }
    EXPECT_EQ(RichText::Read("{\\rtf1\\mac \\'8e}", QFont())->toPlainText(), S("é"));
    EXPECT_EQ(RichText::Read("{\\rtf1\\pc \\'9b}", QFont())->toPlainText(), S("¢"));
    EXPECT_EQ(RichText::Read("{\\rtf1\\pca \\'9b}", QFont())->toPlainText(), S("ø"));
    EXPECT_EQ(RichText::Read("{\\rtf1\\ansicpg65001 \\'c3\\'a9}", QFont())->toPlainText(), S("é"));
}

TEST(RichText, SignsWithWordsOfTheirOwn)
{
    EXPECT_EQ(
        TextOf("a\\~b\\_c\\emdash\\endash \\lquote x\\rquote  \\ldblquote y\\rdblquote\\bullet\\line z\\{\\}\\\\"),
        S("a b\u2011c—–‘x’ “y”•\nz{}\\"));
}

TEST(RichText, LinksAreTheirText)
{
    EXPECT_EQ(TextOf("see {\\field{\\*\\fldinst HYPERLINK \"http://example.org\"}{\\fldrslt the page}}!"),
              S("see the page!"));
}

TEST(RichText, WhatIsNotShownIsSkipped)
{
    EXPECT_EQ(TextOf("{\\info{\\author Me}}{\\stylesheet{\\s0 Normal;}}{\\*\\generator X 1.0;}{\\header top}"
                     "{\\*\\unknown{\\b deep}}{\\footnote low}text\\unknownword5 !"),
              S("text!"));
}

TEST(RichText, PicturesOfBothKindsAreShownInTheirSize)
{
    for (const char *format : {"png", "jpeg"}) {
        const auto document = Doc("a{\\*\\shppict{\\pict\\" + QByteArray(format) + "blip\\picwgoal300\\pichgoal150 " +
                                  PictureBytes(format).toHex() + "}}{\\nonshppict{\\pict\\wmetafile8 0102}}b");
        EXPECT_EQ(Image(*document).width(), 20) << format;
        EXPECT_EQ(Image(*document).height(), 10) << format;
        EXPECT_FALSE(document->resource(QTextDocument::ImageResource, QUrl(Image(*document).name())).isNull());
        EXPECT_EQ(document->toPlainText(), S("a\uFFFCb"));
    }
}

TEST(RichText, PicturesInBinaryAreReadToo)
{
    const QByteArray bytes = PictureBytes("png");
    const auto document = Doc("{\\pict\\pngblip\\bin" + QByteArray::number(bytes.size()) + " " + bytes + "}after");
    EXPECT_EQ(Image(*document).width(), 8);
    EXPECT_EQ(document->toPlainText(), S("\uFFFC"
                                         "after"));
}

TEST(RichText, DamagedAndForeignPicturesAreLeftOut)
{
    EXPECT_EQ(TextOf("a{\\pict\\pngblip 89504e47zz00}b"), S("ab"));
    EXPECT_EQ(TextOf("a{\\pict\\wmetafile8 " + PictureBytes("png").toHex() + "}b"), S("ab"));
    EXPECT_EQ(TextOf("a{\\pict\\pngblip " + PictureBytes("bmp").toHex() + "}b"), S("ab"));
    EXPECT_EQ(TextOf("a{\\pict\\pngblip " + PictureBytes("png", {5000, 1}).toHex() + "}b"), S("ab"));
}

TEST(RichText, ABinaryLengthBeyondTheFileIsCut)
{
    EXPECT_EQ(TextOf("text{\\pict\\pngblip\\bin2000000000 abc}"), S("text"));
    EXPECT_EQ(TextOf("text{\\pict\\pngblip\\bin-5 }end"), S("textend"));
}

TEST(RichText, DeepGroupsHarmNothing)
{
    const QByteArray open(200'000, '{');
    const QByteArray close(200'000, '}');
    EXPECT_EQ(TextOf("a" + open + "b" + close + "c"), S("abc"));
    EXPECT_EQ(TextOf("a" + open), S("a"));
    EXPECT_EQ(TextOf(close + "b"), S("b"));
}

TEST(RichText, AlignmentsOfBothSidesAreKnown)
{
    const auto document = Doc("\\qj both\\par\\ql left\\par\\pard\\tqc\\tx720\\tqdec\\tx1440 tabs");
    EXPECT_EQ(document->begin().blockFormat().alignment(), Qt::AlignJustify);
    EXPECT_EQ(document->begin().next().blockFormat().alignment(), Qt::AlignLeft);
    const auto tabs = document->lastBlock().blockFormat().tabPositions();
    ASSERT_EQ(tabs.size(), 2);
    EXPECT_EQ(tabs[0].type, QTextOption::CenterTab);
    EXPECT_EQ(tabs[1].type, QTextOption::DelimiterTab);
}

TEST(RichText, TextWithoutEndIsCutAfterAHundredPages)
{
    EXPECT_EQ(TextOf(QByteArray(300'000, 'x')).size(), 200'000);
    const QByteArray paragraphs = QByteArray("\\par ").repeated(1000);
    EXPECT_EQ(Doc(QByteArray(199'500, 'x') + paragraphs)->blockCount(), 501);
    EXPECT_EQ(TextOf(QByteArray(199'500, 'x') + QByteArray("\\u960?").repeated(1000)).size(), 200'000);
}

TEST(RichText, AFileWithoutEndIsRefusedUnread)
{
    QTemporaryDir folder;
    QFile file(folder.path() + S("/large.rtf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("{\\rtf1 text}") > 0);
    ASSERT_TRUE(file.resize(1 << 20));
    EXPECT_EQ(RichText::Load(file.fileName(), QFont())->toPlainText(), S("text"));
    ASSERT_TRUE(file.resize((qint64{64} << 20) + 1));
    EXPECT_THROW(RichText::Load(file.fileName(), QFont()), RuntimeError);
}

TEST(RichText, NoMorePicturesThanTwoHundredAndNoneLargerThanAnyScreen)
{
    const QByteArray picture = "{\\pict\\pngblip " + PictureBytes("png").toHex() + "}";
    EXPECT_EQ(TextOf(picture.repeated(250)).size(), 200);
    const auto large =
        Doc("{\\pict\\pngblip\\picwgoal999999\\pichgoal999999\\picscalex9999 " + PictureBytes("png").toHex() + "}");
    EXPECT_EQ(Image(*large).width(), 2000);
    EXPECT_EQ(Image(*large).height(), 2000);
}

TEST(RichText, NumbersWithoutEndAreBounded)
{
    EXPECT_EQ(TextOf("\\li99999999999999999999\\fs-99999999999999999\\u99999999999999?\\cf-3\\f-9 x").right(1),
              S("x"));
}

TEST(RichText, FilesThatEndAnywhereAreReadAsFarAsTheyGo)
{
    const QByteArray whole = "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 Inter;}}{\\colortbl;\\red1\\green2\\blue3;}"
                             "\\u8364?\\'e9 text {\\pict\\pngblip " +
                             PictureBytes("png").toHex() + "}\\par end}";
    for (qsizetype length = 5; length <= whole.size(); ++length)
        EXPECT_NO_THROW(RichText::Read(whole.left(length), QFont())) << length;
}

TEST(RichText, WhatIsNoRichTextIsRefused)
{
    EXPECT_THROW(RichText::Read({}, QFont()), RuntimeError);
    EXPECT_THROW(RichText::Read("plain", QFont()), RuntimeError);
    EXPECT_THROW(RichText::Load(S("/nowhere/at/all.rtf"), QFont()), RuntimeError);
}
