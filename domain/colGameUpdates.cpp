// The scan of the game folders. The disk wins: component, limit and category of a known game follow its settings file
// at each start; its stored name never changes. Folder and game belong together by the name in the file alone.
#include "domain/colGame.h"

#include "domain/Row.h"
#include "domain/colCategory.h"
#include "platform/Convert.h"
#include "platform/Files.h"
#include "services/modIniFile.h"
#include "shell/program/modMain.h"

#include <QHash>

#include <set>
#include <tuple>

namespace
{
QString Config(const CGame &Game, const QString &Key) { return Game.GetSetting(QStringLiteral("config"), Key); }

std::int32_t KeyOfCategory(const QString &Name)
{
    colCategory &categories = Held(modMain::Categories);
    const auto known = categories.CategoryByName(Name);
    return (known ? known : categories.Add(Name))->Key;
}

// In this order: a limit that is no number ends the scan, and what stands before it has been set by then.
void TakeSettings(CGame &Game, const QString &Path, const QString &Settings)
{
    Game.IniFile = Settings;
    Game.ComponentName = Config(Game, QStringLiteral("component"));
    Game.TimeLimit = WholeNumber(Config(Game, QStringLiteral("timelimit")));
    Game.ControlPanel = modMain::IsTrue(Config(Game, QStringLiteral("controlpanel")));
    Game.SetPath(Path);
    const QString category = Config(Game, QStringLiteral("category"));
    Game.Category = KeyOfCategory(category.isEmpty() ? QStringLiteral("zzz") : category);
}
} // namespace

// Answers as GameByName does, without reading every settings file again for every folder. A game's Name changes when
// its folder is taken, so it may stand under an old name too; what is found is therefore asked for its name again.
class colGame::NamesAsRead
{
public:
    explicit NamesAsRead(const colGame &games) : m_List(games)
    {
        for (std::int32_t position = 1; position <= games.Count(); ++position) Note(position);
    }
    void Note(std::int32_t Position) { m_Positions[m_List.ByPosition(Position)->Name()].insert(Position); }
    /// The first position of that name, or empty.
    std::optional<std::int32_t> Find(const QString &Name) const
    {
        const auto known = m_Positions.constFind(Name);
        if (known == m_Positions.constEnd()) return {};
        for (const std::int32_t position : *known)
            if (m_List.ByPosition(position)->Name() == Name) return position;
        return {};
    }

private:
    const colGame &m_List;
    QHash<QString, std::set<std::int32_t>> m_Positions;
};

bool colGame::LoadUpdates()
{
    NamesAsRead names(*this);
    const QString folder = ProgramFolder();
    bool isNews = false;
    for (const QString &entry : EntriesOf(folder)) isNews |= TakeFolder(folder + entry + u'/', names);
    return isNews;
}

// Every entry is tried, files too: below a file there is no settings file either. Answer: true when it brought
// something that the list did not say before.
bool colGame::TakeFolder(const QString &Path, NamesAsRead &names)
{
    const QString settings = FindFile(Path + QStringLiteral("GameSettings.ini"));
    if (!FileExists(settings)) return false;

    const QString name = ReadIniString(QStringLiteral("config"), QStringLiteral("name"), {}, settings);
    const std::optional<std::int32_t> known = names.Find(name);
    const auto game = known ? ByPosition(*known) : std::make_shared<CGame>();
    if (!known) game->SetName(name);
    const auto columns = [&game] { return std::tuple(game->ComponentName, game->TimeLimit, game->Category); };
    const auto before = columns();
    TakeSettings(*game, Path, settings);

    const bool hadKey = game->Key != 0;
    game->Save();
    if (!hadKey) m_Games.Add(game, game->Key);
    names.Note(hadKey ? *known : Count());
    return !hadKey || columns() != before;
}
