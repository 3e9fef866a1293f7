#include "GamePlayers.h"

#include "Hands.h"

#include <QThread>

// By what the game tells in words: the stop shape first, then each shape with its number. One stop shape is pressed
// all the same, so that this is seen too.
void PlayHoldBack(Hands &hands, const Stamina &stamina, const Board &)
{
    constexpr int Blink = 20; // [ms]
    constexpr int Clicked = 2, Pictured = 3;
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    const QString stop = hands.GameName().section(QStringLiteral(": "), 1);
    hands.Picture(QStringLiteral("hold-back"));
    bool hasSlipped = false;
    for (int last = 0; goes(); QThread::msleep(Blink)) {
        const QString name = hands.GameName();
        const int number = name.section(u':', 0, 0).toInt();
        if (number == last) continue;
        last = number;
        const bool isStop = name.section(QStringLiteral(": "), 1) == stop;
        if (isStop && hasSlipped) continue;
        if (number == Clicked)
            hands.ClickGame(0.63, 0.78);
        else
            hands.Press(Qt::Key_Space);
        if (number == Pictured) hands.Picture(QStringLiteral("hold-back-right"));
        if (isStop) hands.Picture(QStringLiteral("hold-back-slip"));
        hasSlipped = hasSlipped || isStop;
    }
}
