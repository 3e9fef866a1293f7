#include "skin/colSkin.h"

#include "platform/Files.h"
#include "platform/Picture.h"
#include "platform/Step.h"

#include <algorithm>
#include <utility>

namespace
{
QString Home() { return ProgramFolder() + QStringLiteral("skins/"); }

QStringList FolderNames()
{
    QStringList names = SortedEntriesOf(Home());
    names.removeIf([](const QString &entry) { return entry.startsWith(u'.'); });
    return names;
}
} // namespace

colSkin::colSkin()
{
    for (const QString &name : FolderNames()) m_Folders.push_back({name, false, nullptr});
}

void colSkin::Prepare(const QString &Name)
{
    const QStringList names = FolderNames();
    if (names.isEmpty()) return;
    const auto named = std::find_if(names.begin(), names.end(), [&](const QString &name) {
        return name.compare(Name, Qt::CaseInsensitive) == 0;
    });
    const QString folder = Home() + (named == names.end() ? names.first() : *named);
    QStringList pictures;
    for (const char *name : {"/ButtonBackground.gif", "/ButtonHighlight.gif", "/ButtonSelected.gif", "/Frame.gif"})
        pictures += folder + QLatin1String(name);
    ReadPicturesAhead(pictures);
}

// Whether an entry is a folder is not asked: a file that lies about has no pictures, so it drops out by itself.
const std::shared_ptr<CSkin> &colSkin::Loaded(Folder &folder)
{
    if (std::exchange(folder.IsTried, true)) return folder.Skin;
    Step([&] {
        const auto skin = std::make_shared<CSkin>();
        skin->SetName(folder.Name);
        skin->LoadIniFile();
        if (skin->CanBeUsed()) folder.Skin = skin;
    });
    return folder.Skin;
}

void colSkin::LoadSkins()
{
    for (Folder &folder : std::exchange(m_Folders, {}))
        if (Loaded(folder)) Step([&] { m_Skins.Add(folder.Skin, folder.Name); });
}

KeyedList<CSkin> &colSkin::All()
{
    LoadSkins();
    return m_Skins;
}

std::shared_ptr<CSkin> colSkin::Item(const QString &Key)
{
    const auto named = std::find_if(m_Folders.begin(), m_Folders.end(), [&](const Folder &folder) {
        return folder.Name.compare(Key, Qt::CaseInsensitive) == 0;
    });
    if (named != m_Folders.end() && Loaded(*named)) return named->Skin;
    return All().Item(Key);
}

std::shared_ptr<CSkin> colSkin::Item(std::int32_t Position)
{
    if (Position != 1) return All().Item(Position);
    const auto first = std::find_if(m_Folders.begin(), m_Folders.end(), Loaded);
    return first != m_Folders.end() ? first->Skin : All().Item(Position);
}
