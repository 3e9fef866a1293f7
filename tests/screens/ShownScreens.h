// Each screen as a player meets it on 5 March 2026, for tests that only look at it or work it.
#pragma once

#include "ScreenTest.h"
#include "screens/PlayerName.h"
#include "screens/ctlGameInstructions.h"
#include "screens/ctlPlayerlist.h"
#include "screens/ctlUserInfo.h"
#include "screens/ctlWorkOut.h"

#include <QByteArray>

class ShownScreens : public ScreenTest
{
protected:
    ShownScreens() { SetToday(2026, 3, 5); }

    /// The choice of player, with these.
    ctlPlayerlist &ShowPlayers(const QStringList &Names);
    /// The strip with the name of Ann, who is the only player.
    PlayerName &ShowName();
    /// Ann with six games in three categories and a workout of today, in which Logic is done with 96 points.
    void BeginWorkout();
    ctlWorkOut &ShowWorkout();
    /// The rows of the workout on the progress screen.
    ctlUserInfo &ShowWorkoutRows();
    /// The instructions of the game "Arrows".
    ctlGameInstructions &ShowInstructions(const QByteArray &RichText);

private:
    template <typename Shown>
    Shown &Opened();
};
