#include "domain/colGame.h"

#include "domain/CCategory.h"
#include "domain/Row.h"
#include "domain/colCategory.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include <algorithm>
#include <utility>

namespace
{
const QString AllGames = QStringLiteral("select * from Game order by GameName");
}

std::shared_ptr<CGame> colGame::Add(const QString &Name, const QString &ComponentName, const QString &Key)
{
    auto game = std::make_shared<CGame>();
    game->SetName(Name);
    game->ComponentName = ComponentName;
    m_Games.Add(game, Key);
    return game;
}

void colGame::Load()
{
    const QString message = QStringLiteral("Error loading Games.");
    Trapped(message, [&] {
        if (m_Cat != 0)
            LoadCategory();
        else
            modMain::OneCommit(
                message, [this] { LoadCatalogue(); }, [this] { KeepStoredGames(); });
    });
}

void colGame::LoadCategory()
{
    m_Games.Clear();
    for (const auto &game : Held(modMain::Games))
        if (game->Category == m_Cat) m_Games.Add(game, game->Key);
}

// Two passes: the first brings what is new on disk into the store, so that the second finds every game at its place
// by name. Where the first brought nothing, the second would find what it found.
void colGame::LoadCatalogue()
{
    m_Games.Clear();
    LoadGamesFromStore();
    if (!LoadUpdates()) return;
    Held(modMain::Categories).Load();
    m_Games.Clear();
    LoadGamesFromStore();
    LoadUpdates();
}

// The key of a row that was taken back is given to another game one day, and would take results along.
void colGame::KeepStoredGames()
{
    const RecordList<CGame> all = std::exchange(m_Games, {});
    const auto set = modMain::GetRecordset(AllGames);
    for (Recordset &row = Rows(set); !row.Eof(); row.MoveNext()) {
        const std::int32_t key = row.Long(u"GameKey");
        if (const auto game = all.Find(key)) m_Games.AddRow(game, key);
    }
    Held(modMain::Categories).Load();
}

void colGame::LoadGamesFromStore()
{
    const auto set = modMain::GetRecordset(AllGames);
    for (Recordset &row = Rows(set); !row.Eof(); row.MoveNext()) {
        auto game = std::make_shared<CGame>();
        game->Key = row.Long(u"GameKey");
        game->SetName(TextOr(row, u"GameName", {}));
        game->ComponentName = TextOr(row, u"GameComponent", {});
        game->TimeLimit = LongOr(row, u"GameTimeLimit", 0);
        game->Category = LongOr(row, u"GameCategory", 0);
        m_Games.AddRow(game, game->Key);
    }
}

std::shared_ptr<CGame> colGame::GameByName(const QString &Name) const
{
    const auto found = std::find_if(begin(), end(), [&](const auto &game) { return game->Name() == Name; });
    return found == end() ? nullptr : *found;
}
