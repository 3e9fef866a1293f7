// The one way in which ".ini" files are touched.
//
// Sections and keys match without regard to case; blanks around section, key and value are dropped; one pair of
// quotes around a value is taken off; a line that starts with ";" is a comment; of two equal sections or keys the
// first wins; a value ends at a NUL and is cut at 999 bytes. Text is UTF-8, or Windows-1252 where the bytes are no
// UTF-8.
//
// A write changes the one value in its place, or adds the key at the end of its section, or the section at the end of
// the file; every other byte stays as it was, line ends included (new files get CR LF). Values are written without
// the blanks at their ends; a pair of quotes is written as given, and so lost when it is read. The file is replaced
// in one step, so a reader never sees half of it; behind a symbolic link it is the file that is replaced. Files are
// found without regard to case, and kept in memory by their identity and time.
#pragma once

#include <QString>

namespace modIniFile
{
/// The value of a key. When it is absent or empty and Default is not, Default is written to the file first: a read
/// establishes its key. FileName is a full path; an empty one reads nothing and gives Default.
/// Failure: none; a file that can't be read has no keys, and a failing write is not noticed.
QString ReadIniString(const QString &Section, const QString &Key, const QString &Default, const QString &FileName);

/// Answer: true when the value stands in the file. Makes the file, not its folder.
/// False, with nothing written: no file name; CR or LF in any text, which would put other lines into the file; an
/// empty section or key; "]" in a section, "=" in a key, or a key that starts with ";" or "["; a file that is there
/// and can't be read (a folder, larger than 1 MiB, 16-bit characters) or can't be written.
bool WriteIniString(const QString &Section, const QString &Key, const QString &Value, const QString &FileName);
} // namespace modIniFile

using modIniFile::ReadIniString;
using modIniFile::WriteIniString;
