#include "domain/colPlayerGame.h"

#include "domain/Row.h"
#include "platform/Step.h"

void colPlayerGame::Load()
{
    const auto set = modMain::GetRecordset(QStringLiteral("select * from PlayerGame where PlayerGamePlayer=?"),
                                           QVariantList{m_Player});
    Recordset &row = Rows(set);
    m_States.Clear();
    for (; !row.Eof(); row.MoveNext()) {
        auto state = std::make_shared<CPlayerGame>();
        state->Player = m_Player;
        state->Game = row.Long(u"PlayerGameGame");
        state->GameData = TextOr(row, u"PlayerGameInfo", {});
        state->SetLevel(LongOr(row, u"PlayerGameLevel", 1));
        state->Awards = LongOr(row, u"PlayerGameAwards", 0);
        state->UnspentAwards = LongOr(row, u"PlayerGameUnspentAwards", 0);
        m_States.Add(state, state->Game);
    }
}

std::shared_ptr<CPlayerGame> colPlayerGame::Item(std::int32_t GameKey)
{
    if (auto known = m_States.Find(GameKey)) return known;
    auto state = std::make_shared<CPlayerGame>();
    state->Player = m_Player;
    state->Game = GameKey;
    // The row exists from now on, whether the game is ever played or not.
    Step([&] { state->Save(); });
    Step([&] { m_States.Add(state, GameKey); });
    return state;
}
