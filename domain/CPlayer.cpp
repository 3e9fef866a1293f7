#include "domain/CPlayer.h"

#include "domain/CCategory.h"
#include "domain/LoadedOnce.h"
#include "domain/Row.h"
#include "platform/Convert.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

colWorkout &CPlayer::Workouts()
{
    return LoadedOnce(m_Workouts, [this](colWorkout &list) { list.SetPlayerKey(Key); });
}

colGamePlayed &CPlayer::GamesPlayed()
{
    return LoadedOnce(m_GamesPlayed, [this](colGamePlayed &list) { list.SetPlayer(Key); });
}

colPlayerGame &CPlayer::GameData()
{
    // Unlike the other lists this one is kept only when it has loaded: in an empty one every state would be made
    // anew by being asked for, and saved over the level and awards that the store holds.
    if (!m_GameData) {
        auto states = std::make_unique<colPlayerGame>();
        states->SetPlayer(Key);
        states->Load();
        m_GameData = std::move(states);
    }
    return *m_GameData;
}

std::int32_t CPlayer::Awards(CCategory &Category)
{
    std::int64_t sum = 0;
    for (const auto &game : Category.Games()) sum += Held(modMain::CurrentPlayer).GameData().Item(game->Key)->Awards;
    return ToInt32(sum);
}

void CPlayer::Save()
{
    Trapped(QStringLiteral("Error saving player info."), [this] {
        SaveKeyedRow(QStringLiteral("select * from Player where PlayerKey=?"), Key, u"PlayerKey",
                     {{u"PlayerName", Name}});
    });
}

void CPlayer::Delete()
{
    modMain::GetRecordset(QStringLiteral("delete from Player where PlayerKey=?"), QVariantList{Key});
}
