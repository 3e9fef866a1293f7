#include "platform/ResourceModule.h"

#include "platform/PeImage.h"
#include "platform/RuntimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cerrno>
#include <limits>

namespace
{
constexpr long BadFormat = 193;                       // the desktop platform's number for "no module"
constexpr qint64 LargestModule = 256LL * 1024 * 1024; // [bytes]
constexpr std::uint16_t StringType = 6;               // blocks of 16 strings
constexpr std::uint32_t StringsInABlock = 16;
constexpr std::uint32_t LargestId = 0xffff;
constexpr std::uint32_t HighBit = 0x80000000U;   // in a directory entry: a text name, a directory below
constexpr std::uint32_t PrimaryLanguage = 0x3ff; // the part of a language number that tells the language
constexpr std::uint64_t DirectoryHeaderSize = 16;
constexpr std::uint64_t DirectoryEntrySize = 8;

[[noreturn]] void FailAsNoModule(const QString &Name)
{
    throw RuntimeError(BadFormat, {}, QStringLiteral("%1 is no module that can be read.").arg(Name));
}

QByteArray BytesOf(const QString &Path)
{
    const QFileInfo info(Path);
    if (info.exists() && (!info.isFile() || info.size() > LargestModule)) FailAsNoModule(Path);
    QFile file(Path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        const int number = errno;
        throw RuntimeError(number != 0 ? number : EACCES, {}, QStringLiteral("%1: %2").arg(Path, file.errorString()));
    }
    return file.readAll();
}

// A type that is given as a text: "#10" is the number 10.
std::optional<std::uint16_t> NumberedType(QStringView Type)
{
    if (!Type.startsWith(u'#')) return {};
    bool isNumber = false;
    const std::uint16_t number = Type.sliced(1).toUShort(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QString Utf16(QByteArrayView Bytes)
{
    QString text(Bytes.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(Bytes.data(), text.size(), text.data());
    return text;
}
} // namespace

// The three levels below the resource section: types, ids, languages. Offsets in it count from its own beginning;
// only the bytes of a resource are given by an address in the image. Nothing is kept of it: each question walks the
// tables again, which are short, and the three levels are a loop's bound in a file that leads in circles.
class ResourceModule::Directory
{
public:
    explicit Directory(QByteArray Bytes) : m_Bytes(std::move(Bytes)), m_Image(PeImage::Read(m_Bytes))
    {
        if (m_Image) m_Tables = m_Image->Resources().value_or(QByteArrayView());
    }
    bool IsModule() const { return m_Image.has_value(); }

    template <typename Matches>
    std::optional<QByteArrayView> Data(const Matches &matchesType, std::uint32_t Id) const
    {
        if (Id > LargestId) return {};
        const auto type = FirstBelow(0, matchesType);
        const auto languages = type && IsTable(*type)
                                   ? FirstBelow(*type & ~HighBit, [&](std::uint32_t name) { return name == Id; })
                                   : std::nullopt;
        return languages && IsTable(*languages) ? InOneLanguage(*languages & ~HighBit) : std::nullopt;
    }

    bool HasName(std::uint32_t Entry, const QString &Name) const
    {
        if ((Entry & HighBit) == 0) return false;
        const std::uint64_t offset = Entry & ~HighBit;
        const auto length = Number16(m_Tables, offset);
        const auto text = length ? Part(m_Tables, offset + 2, std::uint64_t{2} * *length) : std::nullopt;
        return text && Utf16(*text).compare(Name, Qt::CaseInsensitive) == 0;
    }

private:
    static bool IsTable(std::uint32_t Offset) { return (Offset & HighBit) != 0; }

    // What the first entry with a matching name leads to: an offset, with the high bit where it is a table.
    template <typename Matches>
    std::optional<std::uint32_t> FirstBelow(std::uint64_t Table, const Matches &matches) const
    {
        const std::uint64_t named = Number16(m_Tables, Table + 12).value_or(0);
        const std::uint64_t numbered = Number16(m_Tables, Table + 14).value_or(0);
        const auto entries = Part(m_Tables, Table + DirectoryHeaderSize, (named + numbered) * DirectoryEntrySize);
        if (!entries) return {};
        for (const char *entry = entries->begin(); entry != entries->end(); entry += DirectoryEntrySize)
            if (matches(qFromLittleEndian<std::uint32_t>(entry))) return qFromLittleEndian<std::uint32_t>(entry + 4);
        return {};
    }

    // The neutral language where it is listed, else whatever comes first.
    std::optional<QByteArrayView> InOneLanguage(std::uint64_t Table) const
    {
        auto leaf = FirstBelow(Table, [](std::uint32_t language) { return (language & PrimaryLanguage) == 0; });
        if (!leaf) leaf = FirstBelow(Table, [](std::uint32_t) { return true; });
        if (!leaf || IsTable(*leaf)) return {};
        const auto address = Number32(m_Tables, *leaf);
        const auto size = Number32(m_Tables, std::uint64_t{*leaf} + 4);
        return address && size ? m_Image->At(*address, *size) : std::nullopt;
    }

    QByteArray m_Bytes;
    std::optional<PeImage> m_Image;
    QByteArrayView m_Tables;
};

ResourceModule::ResourceModule(std::unique_ptr<Directory> directory) : m_Directory(std::move(directory)) {}

ResourceModule::~ResourceModule() = default;

std::unique_ptr<ResourceModule> ResourceModule::Load(const QString &Path)
{
    auto directory = std::make_unique<Directory>(BytesOf(Path));
    if (!directory->IsModule()) FailAsNoModule(Path);
    return std::unique_ptr<ResourceModule>(new ResourceModule(std::move(directory)));
}

std::unique_ptr<ResourceModule> ResourceModule::FromBytes(QByteArray Bytes)
{
    auto directory = std::make_unique<Directory>(std::move(Bytes));
    if (!directory->IsModule()) FailAsNoModule(QStringLiteral("This"));
    return std::unique_ptr<ResourceModule>(new ResourceModule(std::move(directory)));
}

std::optional<QString> ResourceModule::String(std::uint16_t Id) const
{
    const auto block = Data(StringType, Id / StringsInABlock + 1);
    if (!block) return {};
    std::uint64_t offset = 0; // each string is its length, then that many characters; an empty place is a length of 0
    for (std::uint32_t i = 0; i < Id % StringsInABlock; ++i) {
        const auto length = Number16(*block, offset);
        if (!length) return {};
        offset += 2 + std::uint64_t{2} * *length;
    }
    const std::uint16_t length = Number16(*block, offset).value_or(0);
    const auto text = Part(*block, offset + 2, std::uint64_t{2} * length);
    if (length == 0 || !text) return {};
    return Utf16(*text);
}

std::optional<QByteArrayView> ResourceModule::Data(const QString &Type, std::uint32_t Id) const
{
    if (const auto number = NumberedType(Type)) return Data(*number, Id);
    return m_Directory->Data([&](std::uint32_t entry) { return m_Directory->HasName(entry, Type); }, Id);
}

std::optional<QByteArrayView> ResourceModule::Data(std::uint16_t Type, std::uint32_t Id) const
{
    return m_Directory->Data([&](std::uint32_t entry) { return entry == Type; }, Id);
}
