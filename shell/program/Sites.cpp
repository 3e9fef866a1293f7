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

// As people copy it from a browser.
QString WithoutScheme(QString site)
{
    const QString scheme = QStringLiteral("http://");
    if (site.startsWith(scheme, Qt::CaseInsensitive)) site.remove(0, scheme.size());
    while (site.endsWith(u'/')) site.chop(1);
    return site;
}
} // namespace

QString modMain::ScoreSite()
{
    return WithoutScheme(Setting(QStringLiteral("ScoreSite"), QStringLiteral(NOGGLE_SCORE_SITE)));
}

QString modMain::SupportPage() { return Setting(QStringLiteral("SupportPage"), QStringLiteral(NOGGLE_SUPPORT_PAGE)); }
