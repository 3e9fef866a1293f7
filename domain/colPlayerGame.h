// The states of one player, one a game. To who asks, every game has a state: one that is missing is made, and its row
// written, by asking for it.
#pragma once

#include "domain/CPlayerGame.h"
#include "domain/RecordList.h"

class colPlayerGame
{
public:
    void SetPlayer(std::int32_t Key) { m_Player = Key; }
    /// Replaces the list. Failure: passed on, with the list as it was.
    void Load();
    /// By the game's key. The object is shared by all who ask. Failure: ignored step by step; the message of a
    /// failing save comes from Save, and the object goes into the list all the same.
    std::shared_ptr<CPlayerGame> Item(std::int32_t GameKey);
    std::int32_t Count() const { return m_States.Count(); }
    auto begin() const { return m_States.begin(); }
    auto end() const { return m_States.end(); }

private:
    RecordList<CPlayerGame> m_States;
    std::int32_t m_Player = 0;
};
