#include "domain/colPlayer.h"

#include "domain/Row.h"

std::shared_ptr<CPlayer> colPlayer::Add()
{
    auto player = std::make_shared<CPlayer>();
    player->Name = QStringLiteral("Player %1").arg(Count() + 1);
    player->Save();
    m_Players.Add(player, player->Key);
    return player;
}

void colPlayer::Remove(std::int32_t Key)
{
    Item(Key)->Delete();
    m_Players.RemoveNumber(Key);
}

void colPlayer::Load()
{
    m_Players.Clear();
    const auto set = modMain::GetRecordset(QStringLiteral("select * from Player"));
    for (Recordset &row = Rows(set); !row.Eof(); row.MoveNext()) {
        auto player = std::make_shared<CPlayer>();
        player->Key = row.Long(u"PlayerKey");
        player->Name = row.Text(u"PlayerName");
        m_Players.AddRow(player, player->Key);
    }
}
