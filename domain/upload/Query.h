// What the score site is told of one result.
#pragma once

#include <QString>

class CGamePlayed;
class CPlayer;

/// The key=value pairs in their fixed order, joined by "&". No value is encoded in any way: a name with "&" in it
/// goes out as it stands. What can't be found out, a game that is gone or a workout that is, leaves its value empty.
/// Failure: ignored step by step.
QString QueryOf(const QString &Email, CPlayer &Player, const CGamePlayed &Result);
