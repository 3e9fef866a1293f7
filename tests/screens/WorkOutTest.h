// The workout screen over a store with six games, shown on a day that is set.
#pragma once

#include "ScreenTest.h"
#include "screens/ctlWorkOut.h"

class WorkOut : public ScreenTest
{
protected:
    WorkOut() { SetToday(2026, 11, 21); }

    ctlWorkOut &Show()
    {
        m_WorkOut = new ctlWorkOut(m_Area.get());
        Open(m_WorkOut);
        m_WorkOut->SkinUp();
        m_WorkOut->ListCats(false);
        return *m_WorkOut;
    }
    void StartWithAnn()
    {
        StartWithSixGames();
        GivenPlayer(QStringLiteral("Ann"));
    }
    void FinishAll()
    {
        Finish(QStringLiteral("Arrows"), 140, 1);
        Finish(QStringLiteral("Corners"), 96);
        Finish(QStringLiteral("Echoes"), 118);
    }
    QString Foot()
    {
        return ShownOf(
            {QStringLiteral("butNextWorkout"), QStringLiteral("lblNextDue"), QStringLiteral("lblMessage")});
    }

    ctlWorkOut *m_WorkOut = nullptr;
};
