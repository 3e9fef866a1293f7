#include "GamePlayers.h"

#include "Hands.h"

#include "games/odd-stone/StoneRules.h"

#include <QThread>

// The ring goes from stone to stone by the arrows. One press is wrong, so that this is seen too.
void PlayOddStone(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Mistaken = 2; // round
    constexpr int Blink = 20;   // [ms]
    StoneRules rules(board.Level, board.Seed);
    const int columns = rules.Item().Columns;
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("odd-stone"));
    hands.Press(Qt::Key_Down); // shows the ring
    int ring = 0;
    for (int round = 1; goes() && !rules.Set().Over(); ++round) {
        const int odd = rules.Item().Odd;
        const int stone = round != Mistaken ? odd : odd == 0 ? 1 : 0;
        for (; ring % columns < stone % columns; ++ring) hands.Press(Qt::Key_Right);
        for (; ring % columns > stone % columns; --ring) hands.Press(Qt::Key_Left);
        for (; ring < stone; ring += columns) hands.Press(Qt::Key_Down);
        for (; ring > stone; ring -= columns) hands.Press(Qt::Key_Up);
        hands.Press(Qt::Key_Return);
        rules.Judge(stone);
        rules.Next();
        if (round <= Mistaken)
            hands.Picture(round == Mistaken ? QStringLiteral("odd-stone-wrong") : QStringLiteral("odd-stone-right"));
        while (goes() && !hands.GameDescription().startsWith(u"Which")) QThread::msleep(Blink);
    }
}
