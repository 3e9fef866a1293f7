#include "GamePlayers.h"

#include "Hands.h"

#include "games/turn-or-mirror/TurnRules.h"

#include <QThread>

// By the arrows, once by a click, and once wrongly, so that this is seen too.
void PlayTurnOrMirror(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Clicked = 2, Mistaken = 3; // rounds
    constexpr int Blink = 20;                // [ms]
    TurnRules rules(board.Level, board.Seed);
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("turn-or-mirror"));
    for (int round = 1; goes() && !rules.Set().Over(); ++round) {
        const bool answer = rules.Item().IsMirror == (round != Mistaken);
        if (round == Clicked)
            hands.ClickGame(answer ? 0.74 : 0.26, 0.776);
        else
            hands.Press(answer ? Qt::Key_Right : Qt::Key_Left);
        rules.Judge(answer);
        if (round == Mistaken) QThread::msleep(1500); // the figure comes around
        if (round <= Mistaken) hands.Picture(QStringLiteral("turn-or-mirror-answer-%1").arg(round));
        while (goes() && !hands.GameDescription().startsWith(u"Is it")) QThread::msleep(Blink);
        if (!rules.Set().Over()) rules.Next();
    }
}
