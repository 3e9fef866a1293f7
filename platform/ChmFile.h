// A compiled help file: pages, pictures and a list of contents in one file. Nothing outside of the file is ever read
// through it, and no file of any content harms: what can't be read is not there.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <vector>

class ChmFile
{
public:
    /// Reads all of it. Failure: passed on, when the file is missing, is no compiled help file, is larger than 64
    /// MiB, packed or not, or when its packed bytes make no sense.
    explicit ChmFile(const QString &Path);

    /// The bytes of an entry by its path, "/pages/start.html"; letter case does not count. Empty when there is none,
    /// or when it does not lie within the file.
    QByteArray Read(const QString &Path) const;
    /// Paths begin with "/"; empty where the file names none.
    const QString &FirstPage() const { return m_FirstPage; }
    const QString &Title() const { return m_Title; }

    struct Line
    {
        QString Name;
        QString Page; // path, perhaps with "#" and an anchor; may be empty
        int Depth = 0;
    };
    /// The contents in their order; empty where the file has none.
    std::vector<Line> Contents() const;
    /// The same from the text of a list of contents: nested lists of "sitemap" objects. For any text.
    static std::vector<Line> LinesOf(const QString &Text);

private:
    struct Entry
    {
        bool IsPacked = false;
        quint64 Offset = 0;
        quint64 Length = 0;
    };

    void ReadDirectory();
    void ReadChunk(QByteArrayView Chunk);
    void Unpack();
    void ReadSystem(const QByteArray &System);
    QByteArray Plain(const QString &Name) const;

    QByteArray m_File;
    quint64 m_ContentAt = 0;
    QHash<QString, Entry> m_Entries; // by the path in small letters
    QByteArray m_Unpacked;
    QString m_FirstPage;
    QString m_Title;
    QString m_ContentsFile;
};
