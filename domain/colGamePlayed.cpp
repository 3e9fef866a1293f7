#include "domain/colGamePlayed.h"

#include "domain/Row.h"
#include "domain/colGame.h"
#include "platform/Clock.h"
#include "shell/program/modMain.h"

#include <algorithm>

namespace
{
// Where the columns stand in the set, asked for once: a history may have a million rows.
class ResultColumns
{
public:
    explicit ResultColumns(const Recordset &Rows)
        : m_Key(Rows.Column(u"GamePlayedKey")),
          m_Player(Rows.Column(u"GamePlayedPlayer")),
          m_Timestamp(Rows.Column(u"GamePlayedTimestamp")),
          m_Game(Rows.Column(u"GamePlayedGame")),
          m_Level(Rows.Column(u"GamePlayedLevel")),
          m_Score(Rows.Column(u"GamePlayedScore")),
          m_Points(Rows.Column(u"GamePlayedPoints")),
          m_Time(Rows.Column(u"GamePlayedTime")),
          m_Award(Rows.Column(u"GamePlayedAward")),
          m_Uploaded(Rows.Column(u"GamePlayedUploaded")),
          m_Mode(Rows.Column(u"GamePlayedMode")),
          m_Workout(Rows.Column(u"GamePlayedWorkout"))
    {}

    std::shared_ptr<CGamePlayed> Record(const Recordset &Row) const
    {
        auto result = std::make_shared<CGamePlayed>();
        result->Key = Row.Long(m_Key);
        result->Player = Row.Long(m_Player);
        result->Timestamp = Row.Date(m_Timestamp);
        result->Game = Row.Long(m_Game);
        result->Level = Row.Long(m_Level);
        result->Score = Row.Long(m_Score);
        result->Points = Row.Long(m_Points);
        result->Time = Row.Long(m_Time);
        result->Award = LongOr(Row, m_Award, 0);
        result->Uploaded = FlagOr(Row, m_Uploaded, false);
        result->Mode = LongOr(Row, m_Mode, 0);
        result->Workout = LongOr(Row, m_Workout, 0);
        return result;
    }

private:
    int m_Key, m_Player, m_Timestamp, m_Game, m_Level, m_Score, m_Points, m_Time, m_Award, m_Uploaded, m_Mode,
        m_Workout;
};
} // namespace

std::shared_ptr<CGamePlayed> colGamePlayed::Add(std::int32_t Player, std::int32_t Game, std::int32_t Score,
                                                std::int32_t Time, std::int32_t Points, std::int32_t Mode,
                                                std::int32_t Level, std::int32_t Award)
{
    auto result = std::make_shared<CGamePlayed>();
    result->Workout = m_Workout;
    result->Player = Player;
    result->Game = Game;
    result->Score = Score;
    result->Time = Time;
    result->Points = Points;
    result->Mode = Mode;
    result->Level = Level;
    result->Award = Award;
    result->Uploaded = false;
    result->Timestamp = NowToTheSecond();
    result->Save();
    m_Results.Add(result, result->Key);
    return result;
}

std::unique_ptr<Recordset> colGamePlayed::Select() const
{
    if (m_Workout >= 1)
        return modMain::GetRecordset(
            QStringLiteral("select * from GamePlayed where GamePlayedWorkout=? order by GamePlayedTimestamp"),
            QVariantList{m_Workout});
    if (m_Player >= 1)
        return modMain::GetRecordset(
            QStringLiteral("select * from GamePlayed where GamePlayedPlayer=? order by GamePlayedTimestamp"),
            QVariantList{m_Player});
    if (m_Game >= 1)
        return modMain::GetRecordset(
            QStringLiteral("select * from GamePlayed where GamePlayedGame=? and GamePlayedLevel=? and "
                           "GamePlayedMode=? order by GamePlayedScore desc, GamePlayedTime, gamePlayedTimestamp "
                           "limit ?"),
            QVariantList{m_Game, m_Level, m_Mode, m_Most > 0 ? m_Most : -1}); // below 0 means all
    return nullptr;
}

void colGamePlayed::Load()
{
    m_Results.Clear();
    const auto set = Select();
    Recordset &row = Rows(set);
    const ResultColumns columns(row);
    for (; !row.Eof(); row.MoveNext()) {
        auto result = columns.Record(row);
        const std::int32_t key = result->Key;
        m_Results.AddRow(std::move(result), key);
    }
}

std::shared_ptr<CGamePlayed> colGamePlayed::ByCat(std::int32_t CategoryKey) const
{
    const auto isOfCategory = [&](const auto &result) {
        return Held(modMain::Games).Item(result->Game)->Category == CategoryKey;
    };
    const auto found = std::find_if(begin(), end(), isOfCategory);
    return found == end() ? nullptr : *found;
}

std::shared_ptr<CGamePlayed> colGamePlayed::ByGame(std::int32_t GameKey) const
{
    const auto found = std::find_if(begin(), end(), [&](const auto &result) { return result->Game == GameKey; });
    return found == end() ? nullptr : *found;
}
