// A game of the catalogue: what the store remembers of it, and what its folder says. A game whose folder has gone
// keeps its row; its Path and IniFile are empty then, and it has one level.
#pragma once

#include "services/colSound.h"

#include <QString>

#include <cstdint>
#include <memory>

class colGamePlayed;

class CGame
{
public:
    CGame();

    std::int32_t Key = 0; // 0 until first saved
    QString ComponentName;
    QString IniFile;            // full path of "GameSettings.ini"
    std::int32_t TimeLimit = 0; // [s], 0 for no limit
    std::int32_t Category = 0;  // key of a category
    bool ControlPanel = false;  // kept for games; the shell does not act on it

    /// The name in the present language, else the stored one.
    QString Name() const;
    /// Sets the stored name: what Save writes, never a translation.
    void SetName(const QString &StoredName) { m_StoredName = StoredName; }
    const QString &StoredName() const { return m_StoredName; }
    /// The game's folder with the separator at its end; its sounds come from there.
    const QString &Path() const { return m_Path; }
    void SetPath(const QString &Path);
    colSound &Sounds() { return *m_Sounds; }

    /// Number of levels, at least 1 unless the settings file gives a negative one; read once.
    /// Failure: passed on, for a number that 32 bits do not hold.
    std::int32_t Levels();
    /// A text of the game in the present language, else from the section "default".
    QString LangString(const QString &Name) const;
    /// The game's settings file; an absent key is empty and stays absent.
    QString GetSetting(const QString &Section, const QString &Name) const;
    void SaveSetting(const QString &Section, const QString &Name, const QString &Value) const;
    /// Failure: trapped, "Error saving Game info."
    void Save();
    /// The results of all players in this game at one level in one mode, best first; read anew at each call. All of
    /// them, or the best ones up to Most. Failure: passed on.
    std::shared_ptr<colGamePlayed> BestTimes(std::int32_t Level, std::int32_t Mode, std::int32_t Most = 0) const;

private:
    QString m_StoredName;
    QString m_Path;
    std::unique_ptr<colSound> m_Sounds;
    std::int32_t m_Levels = 0;
};
