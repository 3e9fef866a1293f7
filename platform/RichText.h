// Rich text files as documents: bold, italic, underlined, struck, raised and lowered text, sizes, fonts, colours,
// alignment, indents, spacing, tabs, lists as they are written, all code pages and Unicode, links as their text, and
// embedded PNG and JPEG pictures. What a file says beyond that is skipped, and no file harms the program: a damaged
// one shows what can be read of it, and one without end its first 200,000 characters.
#pragma once

#include <QByteArray>
#include <QFont>
#include <QString>
#include <QTextDocument>

#include <memory>

namespace RichText
{
/// The document of a file. Base is what text has that names no font, or one that is not installed.
/// Failure: passed on, when the file can't be read, has more than 64 MiB, or is no rich text.
std::unique_ptr<QTextDocument> Load(const QString &Path, const QFont &Base);
/// The same from bytes. Failure: passed on.
std::unique_ptr<QTextDocument> Read(const QByteArray &Bytes, const QFont &Base);
} // namespace RichText
