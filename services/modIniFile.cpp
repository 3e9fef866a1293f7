#include "services/modIniFile.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "platform/Text.h"
#include "services/IniFiles.h"

namespace modIniFile
{
namespace
{
constexpr qsizetype LongestValue = 999; // [bytes]

QByteArray UpToNul(const QByteArray &Bytes)
{
    const qsizetype nul = Bytes.indexOf('\0');
    return nul < 0 ? Bytes : Bytes.left(nul);
}
} // namespace

QString ReadIniString(const QString &Section, const QString &Key, const QString &Default, const QString &FileName)
{
    QByteArray value;
    Step([&] {
        // A start reads hundreds of keys: how the name is spelt is asked only where it does not lead to a file.
        const IniText *const found = IniFiles::Find(FileName);
        value = (found != nullptr ? *found : IniFiles::Text(FindFile(FileName))).Value(Section, Key);
    });
    if (!value.isEmpty()) return FromFileText(UpToNul(CutBytes(value, LongestValue)));
    if (!Default.isEmpty()) WriteIniString(Section, Key, Default, FileName);
    return Default;
}

bool WriteIniString(const QString &Section, const QString &Key, const QString &Value, const QString &FileName)
{
    if (FileName.isEmpty()) return false;
    return Step([&] {
        const QString path = FindFile(FileName);
        const QByteArray before = IniFiles::Text(path).Bytes();
        IniText text = IniFiles::Text(path);
        if (!text.SetValue(Section, Key, UpToNul(ToFileText(Value))))
            throw RuntimeError(QStringLiteral("No line can hold this setting."));
        if (text.Bytes() != before) ReplaceFile(path, text.Bytes());
    });
}
} // namespace modIniFile
