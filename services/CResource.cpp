#include "services/CResource.h"

#include "platform/Convert.h"
#include "platform/Files.h"
#include "platform/Picture.h"
#include "platform/ResourceModule.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "services/ResourcePicture.h"

#include <QFile>
#include <QVariant>
#include <QWidget>

#include <array>
#include <limits>

namespace
{
constexpr std::int32_t UsualBufferSize = 256;
constexpr std::uint16_t BitmapType = 2;
constexpr std::uint16_t CursorGroupType = 12;
constexpr std::uint16_t IconGroupType = 14;
constexpr long FileAccessFailure = 75;

// The first characters of a text, never half of one that takes two places.
QString CutTo(const QString &Text, std::int32_t Count)
{
    if (Text.size() <= Count) return Text;
    const bool isHalved = Count > 0 && Text[Count - 1].isHighSurrogate() && Text[Count].isLowSurrogate();
    return Text.left(isHalved ? Count - 1 : Count);
}

[[noreturn]] void FailToLoad(const QString &Path, long Number)
{
    throw RuntimeError(Number, QStringLiteral("cResource.LibraryFilePath_Let (%1)").arg(Path),
                       QStringLiteral("The LoadLibrary API failed with the error number %1 while trying to load the "
                                      "file '%2'")
                           .arg(QString::number(Number), Path));
}

[[noreturn]] void FailToSave(const QFile &file)
{
    throw RuntimeError(FileAccessFailure, {}, QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
}

void SetText(QWidget &Control, const QString &Text)
{
    for (const char *name : {"Caption", "Text", "text"})
        if (Control.property(name).isValid()) Control.setProperty(name, Text);
}

// A file that goes with the routine that made it, also when the routine fails.
class PassingFile
{
public:
    explicit PassingFile(QString Path) : m_Path(std::move(Path)) {}
    ~PassingFile() { QFile::remove(m_Path); }
    PassingFile(const PassingFile &) = delete;
    PassingFile &operator=(const PassingFile &) = delete;

private:
    QString m_Path;
};

std::intptr_t HandleOf(QByteArrayView Bytes) { return reinterpret_cast<std::intptr_t>(Bytes.data()); }
} // namespace

CResource::CResource() = default;

CResource::~CResource() { CloseLibrary(); }

void CResource::LoadResourceStrings(QWidget *Form)
{
    if (Form == nullptr) return;
    const CResource library;
    const QList<QWidget *> controls = Form->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        const QString tag = control->property("Tag").toString();
        if (tag.isEmpty()) continue;
        Step([&] { SetText(*control, library.GetString(ToInt16(WholeNumber(tag)), UsualBufferSize)); });
    }
}

void CResource::SetLibraryFilePath(const QString &Path)
{
    CloseLibrary();
    const QString file = FindFile(Path);
    if (!FileExists(file)) return;
    try {
        m_Module = ResourceModule::Load(file);
    } catch (const RuntimeError &failure) {
        FailToLoad(Path, failure.Number());
    }
    m_LibraryFilePath = Path;
}

std::intptr_t CResource::hLibrary() const { return reinterpret_cast<std::intptr_t>(m_Module.get()); }

void CResource::CloseLibrary()
{
    m_Module.reset();
    m_LibraryFilePath.clear();
}

bool CResource::DLL_LoadString(std::int16_t ID, QString &Text, std::int32_t BufferSize) const
{
    Text.clear();
    if (!m_Module || ID < 1 || BufferSize < 1) return false;
    Text = CutTo(m_Module->String(static_cast<std::uint16_t>(ID)).value_or(QString()), BufferSize - 1);
    return !Text.isEmpty();
}

QString CResource::GetString(std::int16_t ID, std::int32_t BufferSize) const
{
    QString text;
    DLL_LoadString(ID, text, BufferSize);
    return text.replace(QStringLiteral("\\n"), QStringLiteral("\r\n"), Qt::CaseSensitive);
}

bool CResource::DLL_LoadIcon(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly) const
{
    return LoadFromGroup(IconGroupType, ID, Picture, Handle, HandleOnly);
}

bool CResource::DLL_LoadCursor(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly) const
{
    return LoadFromGroup(CursorGroupType, ID, Picture, Handle, HandleOnly);
}

bool CResource::LoadFromGroup(std::uint16_t Type, std::int16_t ID, QImage &Picture, std::intptr_t &Handle,
                              bool HandleOnly) const
{
    const auto group = Numbered(Type, ID);
    Picture = QImage();
    Handle = group ? HandleOf(*group) : 0;
    if (!group || HandleOnly) return group.has_value();
    const IconKind kind = Type == IconGroupType ? IconKind::Icon : IconKind::Cursor;
    Picture = IconFromGroup(*group, kind,
                            [&](std::uint32_t id) { return m_Module->Data(static_cast<std::uint16_t>(kind), id); });
    return true;
}

bool CResource::DLL_LoadBitmap(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly) const
{
    const auto bitmap = Numbered(BitmapType, ID);
    Picture = QImage();
    Handle = bitmap ? HandleOf(*bitmap) : 0;
    if (bitmap && !HandleOnly) Picture = BitmapFromResource(*bitmap);
    return bitmap.has_value();
}

std::optional<QByteArrayView> CResource::Numbered(std::uint16_t Type, std::int16_t ID) const
{
    if (!m_Module || ID < 1) return {};
    const auto bytes = m_Module->Data(Type, static_cast<std::uint32_t>(ID));
    return bytes && !bytes->isEmpty() ? bytes : std::nullopt;
}

QImage CResource::LoadJPEG(std::int16_t ID) const
{
    const char *pointer = nullptr;
    std::int32_t size = 0;
    if (!DLL_LoadData(ID, pointer, size, QStringLiteral("CUSTOM"))) return {};
    const QString path = ProgramFolder() + QString::number(ID) + QStringLiteral(".jpg");
    const PassingFile file(path);
    SaveData_Pointer(path, pointer, size, true);
    return LoadPicture(path);
}

bool CResource::DLL_LoadData(std::int32_t ID, const char *&Pointer, std::int32_t &Size, const QString &TypeName) const
{
    Pointer = nullptr;
    Size = 0;
    if (!m_Module || ID < 1 || TypeName.isEmpty()) return false;
    const auto bytes = m_Module->Data(TypeName, static_cast<std::uint32_t>(ID));
    if (!bytes || bytes->isEmpty() || bytes->size() > std::numeric_limits<std::int32_t>::max()) return false;
    Pointer = bytes->data();
    Size = static_cast<std::int32_t>(bytes->size());
    return true;
}

bool CResource::RES_LoadString(std::int16_t, QString &Text, std::int32_t) const
{
    Text.clear();
    return false;
}

bool CResource::RES_LoadIcon(std::int16_t, QImage &Picture, std::intptr_t &Handle, bool) const
{
    Picture = QImage();
    Handle = 0;
    return false;
}

bool CResource::RES_LoadCursor(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly) const
{
    return RES_LoadIcon(ID, Picture, Handle, HandleOnly);
}

bool CResource::RES_LoadBitmap(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly) const
{
    return RES_LoadIcon(ID, Picture, Handle, HandleOnly);
}

bool CResource::RES_LoadData(std::int32_t, const char *&Pointer, std::int32_t &Size, const QString &) const
{
    Pointer = nullptr;
    Size = 0;
    return false;
}

bool CResource::SaveData_Pointer(const QString &FileName, const char *Pointer, std::int32_t Size,
                                 bool Overwrite) const
{
    const QString name = FileName.trimmed();
    if (name.isEmpty() || Pointer == nullptr || Size < 1) return false;
    QFile file(name);
    if (FileExists(name)) {
        if (!Overwrite) return true; // the data is taken to be there
        if (!file.remove()) FailToSave(file);
    }
    if (!file.open(QIODevice::WriteOnly)) FailToSave(file);
    if (file.write(Pointer, Size) != Size || !file.flush()) FailToSave(file);
    return true;
}

bool CResource::SaveData_Array(const QString &FileName, const QByteArray &Bytes, bool Overwrite) const
{
    if (Bytes.size() > std::numeric_limits<std::int32_t>::max()) return false;
    return SaveData_Pointer(FileName, Bytes.constData(), static_cast<std::int32_t>(Bytes.size()), Overwrite);
}
