#include "domain/upload/Query.h"

#include "domain/CGame.h"
#include "domain/CGamePlayed.h"
#include "domain/CPlayer.h"
#include "domain/colGame.h"
#include "platform/Clock.h"
#include "platform/Step.h"
#include "shell/program/modMain.h"

namespace
{
// In figures that are the same in every language.
QString DateOf(double days, const char *format) { return FromDayCount(days).date().toString(QLatin1String(format)); }

QString GameName(std::int32_t key)
{
    QString name;
    Step([&] { name = modMain::Games->Item(key)->Name(); });
    return name;
}

QString WorkoutDate(CPlayer &player, std::int32_t workout)
{
    QString date;
    if (workout == 0) return date;
    Step([&] {
        const double begun = player.Workouts().Item(QStringLiteral("K%1").arg(workout))->Timestamp;
        date = DateOf(begun, "dd/MM/yyyy");
    });
    return date;
}
} // namespace

QString QueryOf(const QString &Email, CPlayer &Player, const CGamePlayed &Result)
{
    QString query;
    const auto put = [&query](const char *key, const auto &value) {
        if (!query.isEmpty()) query += u'&';
        query += QLatin1String(key) + u'=';
        if constexpr (std::is_integral_v<std::decay_t<decltype(value)>>)
            query += QString::number(value);
        else
            query += value;
    };
    put("E", Email);
    put("PK", Player.Key);
    put("PN", Player.Name);
    put("GN", GameName(Result.Game));
    put("SC", Result.Score);
    put("PT", Result.Points);
    put("TS", DateOf(Result.Timestamp, "dd-MM-yyyy"));
    put("TM", Result.Time);
    put("AW", Result.Award);
    put("LV", Result.Level);
    put("MO", Result.Mode);
    put("WO", Result.Workout);
    put("WT", WorkoutDate(Player, Result.Workout)); // with slashes, the other with hyphens: sites read them so
    return query;
}
