#include "GamePlayers.h"

#include "Hands.h"

#include "games/scale-tip/ScaleRules.h"

#include <QThread>

// By the arrows, once by a click, and once wrongly, so that this is seen too.
void PlayScaleTip(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Clicked = 2, Mistaken = 3; // rounds
    constexpr int Blink = 20;                // [ms]
    ScaleRules rules(board.Level, board.Seed);
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("scale-tip"));
    for (int round = 1; goes() && !rules.Set().Over(); ++round) {
        const int heavier = rules.Item().Heavier();
        const int side = round == Mistaken ? 1 - heavier : heavier;
        if (round == Clicked)
            hands.ClickGame(side == 0 ? 0.25 : 0.75, 0.5);
        else
            hands.Press(side == 0 ? Qt::Key_Left : Qt::Key_Right);
        rules.Judge(side);
        rules.Next();
        if (round == Mistaken) hands.Picture(QStringLiteral("scale-tip-wrong"));
        while (goes() && !hands.GameDescription().startsWith(u"Press")) QThread::msleep(Blink);
    }
}
