// All players, in the store's order; a new one goes to the end.
#pragma once

#include "domain/CPlayer.h"
#include "domain/RecordList.h"

class colPlayer
{
public:
    /// A new player, saved, named "Player " and the present count plus 1; names are not made unique.
    /// Failure: passed on; a store that fails has shown its message, and the player goes in under key 0.
    std::shared_ptr<CPlayer> Add();
    /// By the bare key. Failure: passed on.
    const std::shared_ptr<CPlayer> &Item(std::int32_t Key) const { return m_Players.ByNumber(Key); }
    /// The player of that key, or empty.
    std::shared_ptr<CPlayer> Find(std::int32_t Key) const { return m_Players.Find(Key); }
    std::int32_t Count() const { return m_Players.Count(); }
    /// Deletes the player from the store and the list, by the bare key. Failure: passed on.
    void Remove(std::int32_t Key);
    auto begin() const { return m_Players.begin(); }
    auto end() const { return m_Players.end(); }
    /// Replaces the list by what the store holds. Failure: passed on.
    void Load();

private:
    RecordList<CPlayer> m_Players;
};
