#include "platform/ChmFile.h"

#include "platform/Files.h"
#include "platform/LzxReader.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>

#include <algorithm>

namespace
{
constexpr qint64 LargestFile = 64 << 20; // [bytes]
// Places in the head of the file, and in a page of the directory. [bytes]
constexpr quint64 DirectoryAt = 0x48, DirectoryLength = 0x50, ContentAt = 0x58;
constexpr quint32 ChunkHead = 0x14, LargestChunk = 1 << 20;
// Entries that tell how the others are packed.
const QString PackedBy = QStringLiteral("::DataSpace/Storage/MSCompressed/");
const QString ResetTable = QStringLiteral("Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable");
constexpr std::size_t MostLines = 10'000;
constexpr int DeepestLine = 32;

// Numbers of the records in "/#SYSTEM".
enum SystemRecord : quint16 { ContentsRecord = 0, FirstPageRecord = 2, TitleRecord = 3 };
constexpr qsizetype SystemHead = 4;
constexpr qsizetype RecordHead = 4;

[[noreturn]] void Refuse() { throw RuntimeError(QStringLiteral("The help file can't be read.")); }

bool Lies(QByteArrayView bytes, quint64 at, quint64 length)
{
    const auto size = static_cast<quint64>(bytes.size());
    return at <= size && length <= size - at;
}

QByteArrayView Part(QByteArrayView bytes, quint64 at, quint64 length)
{
    if (!Lies(bytes, at, length)) Refuse();
    return bytes.sliced(static_cast<qsizetype>(at), static_cast<qsizetype>(length));
}

template <typename Integer>
Integer Number(QByteArrayView bytes, quint64 at)
{
    return qFromLittleEndian<Integer>(Part(bytes, at, sizeof(Integer)).data());
}

// Seven bits in each byte, the highest first, taken off the front; the last one has its top bit clear.
quint64 PackedNumber(QByteArrayView &bytes)
{
    quint64 number = 0;
    for (int taken = 0; taken < 9 && !bytes.isEmpty(); ++taken) {
        const auto byte = static_cast<quint8>(bytes.front());
        bytes = bytes.sliced(1);
        number = number << 7 | (byte & 0x7f);
        if ((byte & 0x80) == 0) return number;
    }
    Refuse();
}

QString WithSlash(const QString &path) { return path.isEmpty() || path.startsWith(u'/') ? path : u'/' + path; }

QString Unescaped(QString text)
{
    for (const auto &[entity, character] :
         {std::pair{"&quot;", u'"'}, std::pair{"&lt;", u'<'}, std::pair{"&gt;", u'>'}, std::pair{"&amp;", u'&'}})
        text.replace(QLatin1String(entity), QString(character));
    return text;
}

// The text of name="..." in a tag.
QString AttributeOf(const QString &tag, const char *name)
{
    const QRegularExpression wanted(
        QStringLiteral("\\b%1\\s*=\\s*(?:\"([^\"]*)\"|([^\\s>]+))").arg(QLatin1String(name)),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = wanted.match(tag);
    return Unescaped(match.captured(1) + match.captured(2));
}
} // namespace

ChmFile::ChmFile(const QString &Path)
{
    if (!FileExists(Path)) throw RuntimeError(QStringLiteral("%1 is missing.").arg(Path));
    if (QFileInfo(Path).size() > LargestFile) Refuse();
    m_File = ReadFile(Path);
    ReadDirectory();
    Unpack();
    ReadSystem(Read(QStringLiteral("/#SYSTEM")));
}

// The head tells where the directory stands and where the contents begin; the directory is a row of pages, of which
// those with names are read, one after the other, and the index over them is not needed.
void ChmFile::ReadDirectory()
{
    if (!m_File.startsWith("ITSF")) Refuse();
    const QByteArrayView file(m_File);
    const QByteArrayView directory =
        Part(file, Number<quint64>(file, DirectoryAt), Number<quint64>(file, DirectoryLength));
    m_ContentAt = Number<quint64>(file, ContentAt);
    if (!directory.startsWith("ITSP")) Refuse();
    const auto head = Number<quint32>(directory, 8);
    const auto chunkSize = Number<quint32>(directory, 16);
    const auto chunks = Number<quint32>(directory, 44);
    if (chunkSize < ChunkHead || chunkSize > LargestChunk || chunks > directory.size() / chunkSize) Refuse();
    for (quint64 chunk = 0; chunk < chunks; ++chunk) ReadChunk(Part(directory, head + chunk * chunkSize, chunkSize));
}

void ChmFile::ReadChunk(QByteArrayView Chunk)
{
    if (!Chunk.startsWith("PMGL")) return;
    const auto unused = Number<quint32>(Chunk, 4);
    if (unused > static_cast<quint64>(Chunk.size() - ChunkHead)) Refuse();
    QByteArrayView rest = Chunk.sliced(ChunkHead).chopped(unused);
    while (!rest.isEmpty()) {
        const quint64 length = PackedNumber(rest);
        const QByteArrayView name = Part(rest, 0, length);
        rest = rest.sliced(name.size());
        Entry entry;
        const quint64 section = PackedNumber(rest);
        entry.IsPacked = section == 1;
        entry.Offset = PackedNumber(rest);
        entry.Length = PackedNumber(rest);
        if (section < 2) m_Entries.insert(QString::fromUtf8(name).toLower(), entry);
    }
}

// The packed part, once and whole: it is one stream, and help files are small.
void ChmFile::Unpack()
{
    const QByteArray control = Plain(PackedBy + QStringLiteral("ControlData"));
    if (control.isEmpty()) return; // nothing is packed
    const QByteArray content = Plain(PackedBy + QStringLiteral("Content"));
    const QByteArray table = Plain(PackedBy + ResetTable);
    const auto version = Number<quint32>(control, 8);
    const quint64 unit = version == 2 ? LzxReader::FrameSize : 1;
    const quint64 interval = Number<quint32>(control, 12) * unit / LzxReader::FrameSize; // [frames]
    const quint64 window = Number<quint32>(control, 16) * unit;
    const auto frames = Number<quint32>(table, 4);
    const auto head = Number<quint32>(table, 12);
    const auto size = Number<quint64>(table, 16);
    if (!control.sliced(4).startsWith("LZXC") || interval == 0 || window > LargestFile || size > LargestFile ||
        size > static_cast<quint64>(frames) * LzxReader::FrameSize)
        Refuse();
    LzxReader reader(static_cast<quint32>(window));
    for (quint64 frame = 0; static_cast<quint64>(m_Unpacked.size()) < size; ++frame) {
        const auto begins = Number<quint64>(table, head + frame * 8);
        const auto ends = frame + 1 < frames ? Number<quint64>(table, head + frame * 8 + 8) : content.size();
        if (frame % interval == 0) reader.Reset();
        if (ends < begins) Refuse();
        const quint64 left = size - static_cast<quint64>(m_Unpacked.size());
        reader.ReadFrame(Part(content, begins, ends - begins),
                         static_cast<qsizetype>(std::min<quint64>(left, LzxReader::FrameSize)), m_Unpacked);
    }
    m_Unpacked.truncate(static_cast<qsizetype>(size));
}

QByteArray ChmFile::Plain(const QString &Name) const
{
    const auto found = m_Entries.constFind(Name.toLower());
    if (found == m_Entries.constEnd() || found->IsPacked) return {};
    return Part(m_File, m_ContentAt + found->Offset, found->Length).toByteArray();
}

QByteArray ChmFile::Read(const QString &Path) const
{
    const auto found = m_Entries.constFind(WithSlash(Path).toLower());
    if (found == m_Entries.constEnd()) return {};
    const QByteArrayView from = found->IsPacked ? QByteArrayView(m_Unpacked) : QByteArrayView(m_File);
    const quint64 at = found->IsPacked ? found->Offset : m_ContentAt + found->Offset;
    return Lies(from, at, found->Length) ? Part(from, at, found->Length).toByteArray() : QByteArray();
}

// A version, then records: a number and a length of 16 bits each, and the bytes.
void ChmFile::ReadSystem(const QByteArray &System)
{
    for (qsizetype at = SystemHead; at + RecordHead <= System.size();) {
        const auto number = qFromLittleEndian<quint16>(System.constData() + at);
        const auto length = static_cast<qsizetype>(qFromLittleEndian<quint16>(System.constData() + at + 2));
        at += RecordHead;
        if (length > System.size() - at) return;
        QByteArray bytes = System.mid(at, length);
        bytes.truncate(std::find(bytes.begin(), bytes.end(), '\0') - bytes.begin());
        const QString text = FromFileText(bytes);
        if (number == ContentsRecord) m_ContentsFile = WithSlash(text);
        if (number == FirstPageRecord) m_FirstPage = WithSlash(text);
        if (number == TitleRecord) m_Title = text;
        at += length;
    }
}

std::vector<ChmFile::Line> ChmFile::Contents() const { return LinesOf(FromFileText(Read(m_ContentsFile))); }

std::vector<ChmFile::Line> ChmFile::LinesOf(const QString &Text)
{
    static const QRegularExpression tag(QStringLiteral("<(/?)(ul|object|param)\\b[^>]*>"),
                                        QRegularExpression::CaseInsensitiveOption);
    std::vector<Line> lines;
    Line line;
    int depth = -1;
    for (auto found = tag.globalMatch(Text); found.hasNext() && lines.size() < MostLines;) {
        const QRegularExpressionMatch match = found.next();
        const bool ends = !match.captured(1).isEmpty();
        const QString name = match.captured(2).toLower();
        if (name == u"ul") {
            depth = std::clamp(depth + (ends ? -1 : 1), -1, DeepestLine);
        } else if (name == u"param") {
            const QString key = AttributeOf(match.captured(), "name");
            const QString value = AttributeOf(match.captured(), "value");
            if (key.compare(u"Name", Qt::CaseInsensitive) == 0) line.Name = value;
            if (key.compare(u"Local", Qt::CaseInsensitive) == 0) line.Page = WithSlash(value);
        } else if (ends) {
            line.Depth = std::max(depth, 0);
            if (!line.Name.isEmpty()) lines.push_back(line);
            line = {};
        }
    }
    return lines;
}
