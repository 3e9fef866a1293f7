// A game that goes by a beat of its own, on the stage: with a known board, at a pace that does not keep a test
// waiting, and looked at between any two events, so that a player sees each thing it shows however busy the machine
// is.
#pragma once

#include "tests/games/stage/Stage.h"

class PacedStage : public Stage
{
public:
    /// Plays a copy of the delivered game, in so many percent of its usual times.
    PacedStage(const QString &ClassName, const QString &Delivered, std::uint32_t Seed, int Percent);

    /// The number that the name begins with, which counts what was shown; 0 for another name.
    int Number() const { return Name().section(u':', 0, 0).toInt(); }

    /// Acts once for each number, until that is so; false if that does not come in a minute.
    bool PlayUntil(const std::function<void()> &Act, const std::function<bool()> &IsSo);
    /// The same without an act.
    bool Sees(const std::function<bool()> &IsSo);
};
