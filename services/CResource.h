// One language module: every word of the program by number, and two pictures. A module that is not there gives empty
// texts rather than a refusal to run.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

class QWidget;
class ResourceModule;

class CResource
{
public:
    CResource();
    ~CResource();
    CResource(const CResource &) = delete;
    CResource &operator=(const CResource &) = delete;

    /// Sets "Caption" and "Text" of each child of the form whose "Tag" property is a number, from a library of its
    /// own that is never opened, so it blanks them. Nothing in the program calls it.
    /// Failure: ignored step by step; a tag that is no number leaves its control alone.
    void LoadResourceStrings(QWidget *Form);

    QString LibraryFilePath() const { return m_LibraryFilePath; }
    /// Closes the open library and opens this one, found without regard to letter case. A file that does not exist
    /// leaves none open. Failure: passed on, when the file exists and is no module; none is open then.
    void SetLibraryFilePath(const QString &Path);
    /// 0 when no library is open.
    std::intptr_t hLibrary() const;
    void CloseLibrary();

    /// The string as it stands, cut at BufferSize - 1 characters. Answer: false when there is none; Text is empty
    /// then.
    bool DLL_LoadString(std::int16_t ID, QString &Text, std::int32_t BufferSize) const;
    /// The string, cut at BufferSize - 1 characters, with each backslash and n as a line break (CR LF).
    /// Failure: none; what is not there is empty.
    QString GetString(std::int16_t ID, std::int32_t BufferSize) const;

    /// One resource by id. Handle is a number that stands for it, Picture is filled unless HandleOnly is set.
    /// Answer: false when it is not there; Handle is 0 then. Failure: passed on, with one of the texts of
    /// ResourcePicture.h, when a picture is asked for and can't be made of it.
    bool DLL_LoadIcon(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly = false) const;
    bool DLL_LoadCursor(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly = false) const;
    bool DLL_LoadBitmap(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly = false) const;

    /// The picture of a "CUSTOM" resource, by way of a temporary file in the program's folder. Empty when the module
    /// has none. Failure: passed on, when the folder can't be written or the picture is damaged.
    QImage LoadJPEG(std::int16_t ID) const;
    /// Raw bytes of a resource; Pointer lives as long as the library is open. Answer: false when it is not there.
    bool DLL_LoadData(std::int32_t ID, const char *&Pointer, std::int32_t &Size, const QString &TypeName) const;

    /// The same from the resources of the program itself, which has none on this platform: always false,
    /// and a failure is none here.
    bool RES_LoadString(std::int16_t ID, QString &Text, std::int32_t BufferSize) const;
    bool RES_LoadIcon(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly = false) const;
    bool RES_LoadCursor(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly = false) const;
    bool RES_LoadBitmap(std::int16_t ID, QImage &Picture, std::intptr_t &Handle, bool HandleOnly = false) const;
    bool RES_LoadData(std::int32_t ID, const char *&Pointer, std::int32_t &Size, const QString &TypeName) const;

    /// Writes raw bytes to a file. An existing file without Overwrite is left alone, and the answer is true: the data
    /// is taken to be there. Answer: false without a name, bytes or a size. Failure: passed on.
    bool SaveData_Pointer(const QString &FileName, const char *Pointer, std::int32_t Size, bool Overwrite) const;
    bool SaveData_Array(const QString &FileName, const QByteArray &Bytes, bool Overwrite) const;

private:
    bool LoadFromGroup(std::uint16_t Type, std::int16_t ID, QImage &Picture, std::intptr_t &Handle,
                       bool HandleOnly) const;
    std::optional<QByteArrayView> Numbered(std::uint16_t Type, std::int16_t ID) const;

    std::unique_ptr<ResourceModule> m_Module;
    QString m_LibraryFilePath;
};
