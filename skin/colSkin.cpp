#include "skin/colSkin.h"

#include "platform/Files.h"
#include "platform/Step.h"

// Whether an entry is a folder is not asked: a file that lies about has no pictures, so it drops out by itself.
void colSkin::LoadSkins()
{
    for (const QString &entry : SortedEntriesOf(ProgramFolder() + QStringLiteral("skins/"))) {
        if (entry.startsWith(u'.')) continue;
        Step([&] {
            const auto skin = std::make_shared<CSkin>();
            skin->SetName(entry);
            skin->LoadIniFile();
            if (skin->CanBeUsed()) m_Skins.Add(skin, skin->Name());
        });
    }
}
