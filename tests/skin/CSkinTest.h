// One skin, "Blue", on a real folder.
#pragma once

#include "services/modIniFile.h"
#include "skin/CSkin.h"
#include "tests/skin/SkinTest.h"

#include <QFile>

#include <memory>

inline const QString Blue = QStringLiteral("Blue");

class Skin : public SkinTest
{
protected:
    /// What lies in the folder of the skin "Blue".
    QByteArray File(const char *name) { return m_Folder.Read(QStringLiteral("skins/Blue/") + QLatin1String(name)); }
    bool Has(const char *name) { return m_Folder.Exists(QStringLiteral("skins/Blue/") + QLatin1String(name)); }
    void Write(const char *name, const QByteArray &bytes)
    {
        m_Folder.Write(QStringLiteral("skins/Blue/") + QLatin1String(name), bytes);
    }
    void Remove(const char *name)
    {
        QFile::remove(m_Folder.Path() + QStringLiteral("skins/Blue/") + QLatin1String(name));
    }
    QString Key(const char *file, const char *section, const char *key)
    {
        return ReadIniString(QLatin1String(section), QLatin1String(key), {},
                             m_Folder.Path() + QStringLiteral("skins/Blue/") + QLatin1String(file));
    }
    CSkin &Loaded(const QByteArray &settings = {})
    {
        GivenSkin(Blue, settings);
        m_Skin = std::make_unique<CSkin>();
        m_Skin->SetName(Blue);
        return *m_Skin;
    }

    std::unique_ptr<CSkin> m_Skin;
};
