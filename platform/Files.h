// Files and folders. A path uses "/" throughout; a folder's path ends in one.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The folder that holds the program, its store, its games and everything else, with the separator at its end.
QString ProgramFolder();
/// Sets another folder, for tests; an empty text gives back the program's own.
void SetProgramFolder(const QString &Path);

/// True when Path names something that exists and is not a directory. Letter case counts as the file system has it.
/// Failure: none; what can't be asked for gives false.
bool FileExists(const QString &Path);

/// Path itself where it exists; else the path whose parts match without regard to letter case; else Path as given.
/// Files of skins, games, sounds and languages come from machines where case does not count.
QString FindFile(const QString &Path);

/// Entries of a folder, files and folders, hidden ones too, without "." and "..", as the system gives them.
QStringList EntriesOf(const QString &Folder);
/// The same, sorted by name without regard to case.
QStringList SortedEntriesOf(const QString &Folder);

/// Failure: passed on, naming the file.
QByteArray ReadFile(const QString &Path);
/// Writes the whole file anew in one step: a temporary file beside it, synchronised to the disk, and a rename, so a
/// reader sees the old file or the new one. Permissions of an existing file are kept. Failure: passed on.
void ReplaceFile(const QString &Path, const QByteArray &Bytes);
