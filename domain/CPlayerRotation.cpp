// What a player's history says about a category: which game comes next, and the series of the progress chart.
#include "domain/CPlayer.h"

#include "domain/Row.h"
#include "domain/colGame.h"
#include "shell/program/modMain.h"

namespace
{
// The game that this player finished last in the category, in whatever mode; or empty. The stored query gives the
// newest row first.
std::optional<std::int32_t> LastGamePlayed(std::int32_t Category, std::int32_t Player)
{
    const auto set = modMain::GetRecordset(
        QStringLiteral("select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=?"),
        QVariantList{Category, Player});
    Recordset &results = Rows(set);
    std::optional<std::int32_t> last;
    if (!results.Eof()) last = results.Long(u"GameKey");
    results.Close();
    return last;
}

std::unique_ptr<Recordset> ResultsIn(std::int32_t Category, std::int32_t Player, std::int32_t Mode)
{
    if (Mode > 0)
        return modMain::GetRecordset(
            QStringLiteral("select * from qryGamePlayed where GameCategory=? and GamePlayedPlayer=? and "
                           "GamePlayedMode=? order by GamePlayedTimestamp"),
            QVariantList{Category, Player, Mode});
    return modMain::GetRecordset(QStringLiteral("select * from qryGamePlayed where GameCategory=? and "
                                                "GamePlayedPlayer=? order by GamePlayedTimestamp"),
                                 QVariantList{Category, Player});
}
} // namespace

std::shared_ptr<CGame> CPlayer::NextGameToPlay(std::int32_t CategoryKey)
{
    const std::optional<std::int32_t> last = LastGamePlayed(CategoryKey, Key);
    bool takeNext = !last;
    std::shared_ptr<CGame> first;
    for (const auto &game : Held(modMain::Games)) {
        if (game->Category != CategoryKey) continue;
        if (takeNext) return game;
        if (!first) first = game;
        if (game->Key == last) takeNext = true;
    }
    return first; // round again after the last one
}

void CPlayer::GetGameData(std::int32_t CategoryKey, std::vector<double> &Dates, std::vector<double> &Points,
                          std::int32_t Mode)
{
    // One element stands even without a result: callers tell that case by the date 0.
    Dates.assign(1, 0);
    Points.assign(1, 0);
    const auto set = ResultsIn(CategoryKey, Key, Mode);
    Recordset &results = Rows(set);
    const int date = results.Column(u"GamePlayedTimestamp");
    const int points = results.Column(u"GamePlayedPoints");
    for (std::size_t i = 0; !results.Eof(); results.MoveNext(), ++i) {
        Dates.resize(i + 1);
        Points.resize(i + 1);
        Dates[i] = results.Date(date);
        Points[i] = results.Long(points);
    }
    results.Close();
}
