#include "domain/CGame.h"

#include "domain/Row.h"
#include "domain/colGamePlayed.h"
#include "platform/Convert.h"
#include "services/modIniFile.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

CGame::CGame() : m_Sounds(std::make_unique<colSound>(modMain::SoundOn)) {}

QString CGame::Name() const
{
    const QString local = GetSetting(modMain::Language, QStringLiteral("Name"));
    return local.isEmpty() ? m_StoredName : local;
}

void CGame::SetPath(const QString &Path)
{
    m_Path = Path;
    m_Sounds->SetPath(Path);
}

std::int32_t CGame::Levels()
{
    if (m_Levels == 0)
        m_Levels = ToInt32(LeadingNumber(GetSetting(QStringLiteral("config"), QStringLiteral("levels"))));
    if (m_Levels == 0) m_Levels = 1;
    return m_Levels;
}

QString CGame::LangString(const QString &Name) const
{
    const QString local = GetSetting(modMain::Language, Name);
    return local.isEmpty() ? GetSetting(QStringLiteral("default"), Name) : local;
}

// With any other default, reading an absent key would write it into the game's own file.
QString CGame::GetSetting(const QString &Section, const QString &Name) const
{
    return ReadIniString(Section, Name, {}, IniFile);
}

void CGame::SaveSetting(const QString &Section, const QString &Name, const QString &Value) const
{
    WriteIniString(Section, Name, Value, IniFile);
}

void CGame::Save()
{
    Trapped(QStringLiteral("Error saving Game info."), [this] {
        SaveKeyedRow(QStringLiteral("select * from Game where GameKey=?"), Key, u"GameKey",
                     {{u"GameName", m_StoredName},
                      {u"GameComponent", ComponentName},
                      {u"GameTimeLimit", TimeLimit},
                      {u"GameCategory", Category}});
    });
}

std::shared_ptr<colGamePlayed> CGame::BestTimes(std::int32_t Level, std::int32_t Mode, std::int32_t Most) const
{
    auto best = std::make_shared<colGamePlayed>();
    best->SetGame(Key);
    best->SetLevel(Level);
    best->SetMode(Mode);
    best->SetMost(Most);
    best->Load();
    return best;
}
