// The small text store that each game has for each player: one value a level, joined by "|". Nothing marks a "|"
// inside a value. A game may keep the whole text in a form of its own instead, at level 0.
#include "domain/CPlayer.h"

#include "domain/Row.h"
#include "domain/colGame.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include <QStringList>

namespace
{
constexpr QChar Separator = u'|';
// A settings file may claim any number of levels; a text of that many parts has to fit into memory.
constexpr std::int32_t MostLevels = 1'000'000;

// The text with Value as the part of Level, cut or filled up to one part a level.
QString WithPart(const QString &Text, std::int32_t Level, std::int32_t Levels, const QString &Value)
{
    if (Level < 1 || Level > Levels) throw RuntimeError(9, {}, QStringLiteral("Subscript out of range."));
    if (Levels > MostLevels) throw RuntimeError(7, {}, QStringLiteral("Out of memory."));
    QStringList parts = (Text + Separator).split(Separator);
    parts.resize(Levels);
    parts[Level - 1] = Value;
    return parts.join(Separator);
}
} // namespace

QString CPlayer::GameInfo(std::int32_t GameKey, std::int32_t Level)
{
    QString info;
    Trapped(QStringLiteral("Error getting player/game info."), [&] {
        const QString &text = GameData().Item(GameKey)->GameData;
        info = Level > 0 ? text.split(Separator).value(Level - 1) : text;
    });
    return info;
}

void CPlayer::SetGameInfo(std::int32_t GameKey, std::int32_t Level, const QString &Value)
{
    Trapped(QStringLiteral("Error setting player/game info."), [&] {
        CPlayerGame &state = *GameData().Item(GameKey);
        if (Level == 0) {
            state.GameData = Value;
            return;
        }
        const std::int32_t levels = Held(modMain::Games).Item(GameKey)->Levels();
        state.GameData = WithPart(state.GameData, Level, levels, Value);
        state.Save();
    });
}
