#include "domain/CCategory.h"

#include "domain/LoadedOnce.h"
#include "domain/Row.h"
#include "platform/Files.h"
#include "services/modIniFile.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

namespace
{
// The language file of a category; empty for a name that no file can have.
QString LanguageFile(const QString &CategoryName)
{
    if (CategoryName.contains(u'/') || CategoryName.contains(QChar::Null)) return {};
    const QString folder = FindFile(ProgramFolder() + QStringLiteral("Categories/"));
    return FindFile(folder + CategoryName + QStringLiteral(".ini"));
}
} // namespace

colGame &CCategory::Games()
{
    return LoadedOnce(m_Games, [this](colGame &list) { list.SetCat(Key); });
}

QString CCategory::LocalName()
{
    if (m_LocalName.isEmpty())
        m_LocalName = ReadIniString(modMain::Language, QStringLiteral("Name"), Name, LanguageFile(Name));
    return m_LocalName;
}

void CCategory::Save()
{
    Trapped(QStringLiteral("Error saving Category info."), [this] {
        SaveKeyedRow(QStringLiteral("select * from Category where CategoryKey=?"), Key, u"CategoryKey",
                     {{u"CategoryName", Name}});
    });
}
