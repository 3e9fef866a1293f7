#include "skin/colSkin.h"

#include "platform/Files.h"
#include "platform/Picture.h"
#include "platform/Step.h"

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

void colSkin::Prepare(const QString &Name)
{
    const QStringList names = FolderNames();
    if (names.isEmpty()) return;
    QStringList pictures;
    for (const QString &name : names)
        for (const char *panel : {"/ButtonBackground.gif", "/ButtonHighlight.gif", "/ButtonSelected.gif"})
            pictures += Home() + name + QLatin1String(panel);
    const bool isThere = names.contains(Name, Qt::CaseInsensitive);
    pictures += Home() + (isThere ? Name : names.first()) + QStringLiteral("/Frame.gif");
    ReadPicturesAhead(pictures);
}

// Whether an entry is a folder is not asked: a file that lies about has no pictures, so it drops out by itself.
void colSkin::LoadSkins()
{
    for (const QString &entry : FolderNames()) {
        Step([&] {
            const auto skin = std::make_shared<CSkin>();
            skin->SetName(entry);
            skin->LoadIniFile();
            if (skin->CanBeUsed()) m_Skins.Add(skin, skin->Name());
        });
    }
}
