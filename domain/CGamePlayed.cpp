#include "domain/CGamePlayed.h"

#include "domain/Row.h"
#include "shell/program/Trapped.h"

void CGamePlayed::Save()
{
    Trapped(QStringLiteral("Error saving GamePlayed info."), [this] {
        // Null, not 0, for a result of no workout.
        const QVariant workout = Workout == 0 ? QVariant() : QVariant(Workout);
        SaveKeyedRow(QStringLiteral("select * from GamePlayed where GamePlayedKey=?"), Key, u"GamePlayedKey",
                     {{u"GamePlayedPlayer", Player},
                      {u"GamePlayedGame", Game},
                      {u"GamePlayedTimestamp", Timestamp},
                      {u"GamePlayedScore", Score},
                      {u"GamePlayedPoints", Points},
                      {u"GamePlayedTime", Time},
                      {u"GamePlayedMode", Mode},
                      {u"GamePlayedLevel", Level},
                      {u"GamePlayedAward", Award},
                      {u"GamePlayedUploaded", Uploaded},
                      {u"GamePlayedWorkout", workout}});
    });
}
