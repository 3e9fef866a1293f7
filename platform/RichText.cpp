#include "platform/RichText.h"

#include "platform/Files.h"
#include "platform/RtfReader.h"
#include "platform/RuntimeError.h"

#include <QFileInfo>

namespace
{
constexpr qint64 LargestFile = 64 << 20; // bytes
}

std::unique_ptr<QTextDocument> RichText::Load(const QString &Path, const QFont &Base)
{
    if (QFileInfo(Path).size() > LargestFile)
        throw RuntimeError(321, {}, QStringLiteral("The file is too large to be shown."));
    auto document = Read(ReadFile(Path), Base);
    document->setBaseUrl({}); // a document fetches nothing: its pictures are in it
    return document;
}

std::unique_ptr<QTextDocument> RichText::Read(const QByteArray &Bytes, const QFont &Base)
{
    if (!Bytes.startsWith("{\\rtf")) throw RuntimeError(321, {}, QStringLiteral("The file is no rich text file."));
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(Base);
    RtfReader(Bytes, *document, Base).Read();
    return document;
}
