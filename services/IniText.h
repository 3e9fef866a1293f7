// The text of one settings file: bytes in, bytes out, no file touched. It is taken apart line by line, and an edit
// changes only the bytes of the one value, or puts in the lines that were not there.
//
// A line ends with LF, with or without a CR before it. Its first character that is no blank says what it is: ";" a
// comment, "[" a section's head up to the first "]" (or the end of the line), anything else with a "=" in it a key.
// Every other line is kept and means nothing; so do keys above the first section. Of two sections or keys of one name
// only the first counts. A byte order mark before the first line is kept.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

class IniText
{
public:
    explicit IniText(const QByteArray &Bytes = {});

    const QByteArray &Bytes() const { return m_Bytes; }

    /// The value as it counts: blanks around it dropped, then one pair of quotes, " or '. Empty when it is absent.
    QByteArray Value(const QString &Section, const QString &Key) const;

    /// Sets the value in its place, without blanks at its ends, or adds the key behind the last one of its section,
    /// or the section at the end. Answer: false, with nothing changed, when no line could hold it: CR, LF or NUL
    /// anywhere, an empty name, "]" in a section, "=" in a key, a key that starts as a comment or a section does.
    bool SetValue(const QString &Section, const QString &Key, const QByteArray &Value);

    struct Span
    {
        qsizetype start = 0, end = 0;
    };

private:
    struct Line
    {
        enum class Kind { Other, Comment, Section, Key };
        Kind kind = Kind::Other;
        qsizetype end = 0; // behind its line end
        QString name;      // of the section or key
        Span value;
    };

    void Parse();
    Line ParsedLine(qsizetype start, qsizetype end) const;
    std::size_t SectionHead(const QString &Name) const;
    std::size_t KeyLine(std::size_t head, const QString &Name) const;
    std::size_t LastLineOfSection(std::size_t head) const;
    QByteArray LineEndAt(qsizetype end) const;
    void InsertLine(qsizetype at, const QByteArray &line);

    QByteArray m_Bytes;
    std::vector<Line> m_Lines;
};
