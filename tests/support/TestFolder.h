// A program's folder of its own for one test: temporary, and gone with the test.
#pragma once

#include <QString>
#include <QTemporaryDir>

class TestFolder
{
public:
    /// Makes the folder and sets it as the program's.
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder &) = delete;
    TestFolder &operator=(const TestFolder &) = delete;

    /// With the separator at its end.
    QString Path() const { return m_Folder.path() + u'/'; }
    /// Writes a file below the folder, with the folders it needs. Answer: its full path.
    QString Write(const QString &Name, const QByteArray &Bytes) const;
    QByteArray Read(const QString &Name) const;
    bool Exists(const QString &Name) const;
    /// Copies a file to the given name below the folder.
    QString Copy(const QString &Source, const QString &Name) const;

private:
    QTemporaryDir m_Folder;
};
