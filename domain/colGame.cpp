#include "domain/colGame.h"

#include "domain/CCategory.h"
#include "domain/Row.h"
#include "domain/colCategory.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include <algorithm>

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
            modMain::OneCommit(message, [this] { LoadCatalogue(); });
    });
}

void colGame::LoadCategory()
{
    m_Games.Clear();
    for (const auto &game : Held(modMain::Games))
        if (game->Category == m_Cat) m_Games.Add(game, game->Key);
}

// Two passes: the first brings what is new on disk into the store, so that the second finds every game at its place
// by name.
void colGame::LoadCatalogue()
{
    m_Games.Clear();
    LoadGamesFromStore();
    LoadUpdates();
    Held(modMain::Categories).Load();
    m_Games.Clear();
    LoadGamesFromStore();
    LoadUpdates();
}

void colGame::LoadGamesFromStore()
{
    const auto set = modMain::GetRecordset(QStringLiteral("select * from Game order by GameName"));
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
