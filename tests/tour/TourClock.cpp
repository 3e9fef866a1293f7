#include "TourClock.h"

#include "platform/Clock.h"

namespace
{
const QDateTime FirstMorning(QDate(2026, 3, 2), QTime(9, 0));
}

TourClock::TourClock(int Day) : m_Begin(FirstMorning.addDays(Day - 1))
{
    m_Passed.start();
    SetClock([this] {
        if (OnLook) OnLook();
        return Moment();
    });
}

TourClock::~TourClock() { SetClock({}); }

QDateTime TourClock::Moment() const { return m_Begin.addMSecs(m_Passed.elapsed() + m_Ahead); }
