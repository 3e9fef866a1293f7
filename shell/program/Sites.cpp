#include "shell/program/Sites.h"

#include "services/modIniFile.h"
#include "shell/program/modMain.h"

namespace
{
// Read with an empty default, so that nobody finds keys in his settings that he did not write.
QString Setting(const QString &key, const QString &built)
{
    const QString own = ReadIniString(QStringLiteral("Settings"), key, {}, modMain::SettingsFile);
    return own.isEmpty() ? built : own;
}

const QString Plain = QStringLiteral("http://");
const QString Secure = QStringLiteral("https://");

struct Site
{
    QString Scheme;
    QString Host; // with a port and a folder, as they were given
};

// As people copy it from a browser.
Site ScoreSiteOfTheSettings()
{
    Site site{Plain, Setting(QStringLiteral("ScoreSite"), QStringLiteral(NOGGLE_SCORE_SITE))};
    for (const QString &scheme : {Plain, Secure}) {
        if (!site.Host.startsWith(scheme, Qt::CaseInsensitive)) continue;
        site = {scheme, site.Host.mid(scheme.size())};
        break;
    }
    while (site.Host.endsWith(u'/')) site.Host.chop(1);
    return site;
}
} // namespace

QString modMain::ScoreSite() { return ScoreSiteOfTheSettings().Host; }

QString modMain::ScoreSiteScheme() { return ScoreSiteOfTheSettings().Scheme; }

QString modMain::SupportPage() { return Setting(QStringLiteral("SupportPage"), QStringLiteral(NOGGLE_SUPPORT_PAGE)); }
