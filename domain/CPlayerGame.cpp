#include "domain/CPlayerGame.h"

#include "domain/Row.h"
#include "domain/colGame.h"
#include "platform/Convert.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

namespace
{
void Raise(std::int32_t &Count, std::int32_t By) { Count = ToInt32(std::int64_t{Count} + By); }
} // namespace

void CPlayerGame::AddAward(std::int32_t Count)
{
    Raise(Awards, Count);
    Raise(UnspentAwards, Count);
    // The name is needed for nothing. Asking for it is what makes the state of an unknown game fail.
    static_cast<void>(Held(modMain::Games).Item(Game)->Name());
}

void CPlayerGame::Save()
{
    Trapped(QStringLiteral("Error saving PlayerGame info."), [this] {
        SetLevel(m_Level);
        SaveRow(QStringLiteral("select * from PlayerGame where PlayerGamePlayer=? and PlayerGameGame=?"),
                {Player, Game},
                {{u"PlayerGameGame", Game},
                 {u"PlayerGamePlayer", Player},
                 {u"PlayerGameInfo", GameData},
                 {u"PlayerGameLevel", m_Level},
                 {u"PlayerGameAwards", Awards},
                 {u"PlayerGameUnspentAwards", UnspentAwards}});
    });
}
