// A resource-only module file (PE, 32 or 64 bit) and what can be read from it. Every offset and length in the file is
// checked against its size, so a damaged or hostile file gives a failure or "not there", never a crash.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

class ResourceModule
{
public:
    /// Failure: passed on, a RuntimeError with the number 193 when the file is no module, else the system's number.
    /// A module without resources loads, and holds nothing.
    static std::unique_ptr<ResourceModule> Load(const QString &Path);
    static std::unique_ptr<ResourceModule> FromBytes(QByteArray Bytes);
    ~ResourceModule();

    /// The string of that id, as it stands in the module. Several languages: the neutral one, else the first listed.
    std::optional<QString> String(std::uint16_t Id) const;
    /// The bytes of a resource with an integer id; type names compare without regard to case. The view lives as long
    /// as the module.
    std::optional<QByteArrayView> Data(const QString &Type, std::uint32_t Id) const;
    /// The same for the types that have numbers of their own (1 cursor, 2 bitmap, 3 icon, 12 and 14 their groups).
    std::optional<QByteArrayView> Data(std::uint16_t Type, std::uint32_t Id) const;

private:
    class Directory;
    explicit ResourceModule(std::unique_ptr<Directory> directory);
    std::unique_ptr<Directory> m_Directory;
};
