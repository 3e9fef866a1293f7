// Reads the words of a rich text file into a document. Used by RichText alone.
#pragma once

#include "platform/RtfScanner.h"
#include "platform/RtfTables.h"

#include <QFont>
#include <QHash>
#include <QList>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <vector>

class RtfReader
{
public:
    RtfReader(QByteArrayView Bytes, QTextDocument &Document, const QFont &Base);
    void Read();

private:
    enum Destination { Body, Skip, SkipForUnicode, Fonts, Colours, Picture };

    struct CharacterLook
    {
        bool Bold = false, Italic = false, Underline = false, Strike = false, Hidden = false;
        int Raised = 0;      // 1 above the line, -1 below
        int HalfPoints = 24; // of the font's size
        std::int32_t Font = -1;
        std::int32_t Colour = 0, Ground = 0; // places in the table, 0 for none
        friend bool operator==(const CharacterLook &, const CharacterLook &) = default;
    };
    struct ParagraphLook
    {
        Qt::Alignment Alignment = Qt::AlignLeft;
        int Left = 0, First = 0, Right = 0, Before = 0, After = 0; // [twips]
        int Line = 0;                                              // in 240ths of a line, 0 for single
        bool LineIsMultiple = false;
        bool RightToLeft = false;
        QTextOption::TabType NextTab = QTextOption::LeftTab;
        QList<QTextOption::Tab> Tabs;
    };
    struct Group
    {
        Destination Where = Body;
        CharacterLook Character;
        ParagraphLook Paragraph;
        int BytesPerUnicode = 1; // that stand beside a \u for readers who know none
    };
    struct PictureData
    {
        bool IsKnown = false; // PNG or JPEG
        QByteArray Bytes;
        int HalfByte = -1;              // the first digit of a byte that is not whole
        int Width = 0, Height = 0;      // [twips] as it is to be shown
        int ScaleX = 100, ScaleY = 100; // [%]
    };

    Group &Now() { return m_Groups.back(); }
    void OpenGroup();
    void CloseGroup();
    void TakeSymbol(char Symbol);
    void TakeByte(char Byte, bool FromText);
    void TakeWord(const RtfToken &Word);
    bool TakeDestination(QByteArrayView Word);
    bool TakeHead(const RtfToken &Word);
    bool TakeCharacter(const RtfToken &Word);
    bool TakeParagraph(const RtfToken &Word);
    bool TakePicture(const RtfToken &Word);
    void TakePictureDigit(char Digit);
    void TakeFontEntry(const RtfToken &Word);
    void TakeColourEntry(const RtfToken &Word);
    void TakeUnicode(std::int32_t Number);

    void Show(char16_t Character);
    void DecodeBytes();
    void TakeText(const QString &Text);
    void Flush();
    void EndParagraph();
    QTextCharFormat FormatOf(const CharacterLook &Look) const;
    QTextBlockFormat FormatOf(const ParagraphLook &Look) const;
    void SetFontOf(QTextCharFormat &Format, std::int32_t Font) const;
    const RtfFont *PresentFont() const;
    void InsertPicture();

    RtfScanner m_Scanner;
    QTextDocument &m_Document;
    QTextCursor m_Cursor;
    QFont m_Base;
    std::vector<Group> m_Groups;
    int m_TooDeep = 0;         // groups that are open beyond the deepest that is kept
    bool m_StarBefore = false; // the next word names a group that may be skipped when it is not known
    int m_ToSkip = 0;          // characters that repeat a \u
    std::int32_t m_CodePage = 1252;
    std::int32_t m_DefaultFont = -1;
    QHash<std::int32_t, RtfFont> m_Fonts;
    std::int32_t m_FontInTable = 0;
    QByteArray m_FontName;
    QList<QColor> m_Colours;
    QColor m_Colour; // the one being read; invalid for automatic
    PictureData m_Picture;
    int m_PictureCount = 0;
    QByteArray m_Bytes;            // not yet decoded
    QString m_Text;                // not yet in the document
    qsizetype m_Shown = 0;         // characters and paragraphs so far
    ParagraphLook m_LastParagraph; // of the text that came last
    CharacterLook m_TextLook;      // of m_Text
};
