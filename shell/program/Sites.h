// The two places on the internet that the program knows besides those that the language module names. Both are set
// when the program is built; who runs a site of his own puts the keys "ScoreSite" and "SupportPage" into
// "Settings.ini".
#pragma once

#include <QString>

namespace modMain
{
/// The score site: its host, with a port and a folder where it has them, without a scheme: "scores.example.org".
QString ScoreSite();
/// What stands before it in an address: "https://" where the setting says so, else "http://".
QString ScoreSiteScheme();
/// The page that helps with a failed upload, as it is shown to people.
QString SupportPage();
} // namespace modMain
