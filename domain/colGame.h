// Games in name order: the whole catalogue, or those of one category. The catalogue is brought up to date from the
// game folders when it is loaded; a filtered list holds the catalogue's own objects.
#pragma once

#include "domain/CGame.h"
#include "domain/RecordList.h"

class colGame
{
public:
    /// The category filter; 0 means the whole catalogue. Takes effect with Load.
    void SetCat(std::int32_t CategoryKey) { m_Cat = CategoryKey; }
    /// Adds a game without saving it, under Key ("K" and a number), or under none when that is empty.
    /// Failure: passed on, for a key that is taken or of another form.
    std::shared_ptr<CGame> Add(const QString &Name, const QString &ComponentName, const QString &Key);
    /// By the bare key. Failure: passed on.
    const std::shared_ptr<CGame> &Item(std::int32_t Key) const { return m_Games.ByNumber(Key); }
    /// By the bare key, or empty.
    std::shared_ptr<CGame> Find(std::int32_t Key) const { return m_Games.Find(Key); }
    /// From 1. Failure: passed on.
    const std::shared_ptr<CGame> &ByPosition(std::int32_t Position) const { return m_Games.Item(Position); }
    std::int32_t Count() const { return m_Games.Count(); }
    /// By position from 1, or by prefixed key. Failure: passed on.
    void Remove(std::int32_t Position) { m_Games.Remove(Position); }
    void Remove(const QString &Key) { m_Games.Remove(Key); }
    auto begin() const { return m_Games.begin(); }
    auto end() const { return m_Games.end(); }

    /// Replaces the list. The whole catalogue is read from the store and brought up to date from the game folders,
    /// twice where they brought something, so that new games stand at their place by name; all of it is one commit.
    /// Failure: trapped, "Error loading Games."; the list stays as it stood. When it is the commit that fails, games
    /// that the store has no row of leave the list.
    void Load();
    /// The first game whose Name, as read, equals the argument, case counting; or empty.
    std::shared_ptr<CGame> GameByName(const QString &Name) const;
    /// Walks the folders below the program's folder and writes what their "GameSettings.ini" say. Answer: true when
    /// a game was new, or its component, limit or category other than in the list.
    /// Failure: passed on; the scan stops at the folder that fails.
    bool LoadUpdates();

private:
    class NamesAsRead;

    void LoadCategory();
    void LoadCatalogue();
    void KeepStoredGames();
    void LoadGamesFromStore();
    bool TakeFolder(const QString &Path, NamesAsRead &names);

    RecordList<CGame> m_Games;
    std::int32_t m_Cat = 0;
};
