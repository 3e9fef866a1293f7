#include "GamePlayers.h"

#include "Hands.h"

#include "games/punched-fold/FoldRules.h"

#include <QThread>

// By the numbers, once by a click, and once wrongly, so that this is seen too.
void PlayPunchedFold(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Clicked = 2, Mistaken = 3; // rounds
    constexpr int Blink = 20;                // [ms]
    FoldRules rules(board.Level, board.Seed);
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("punched-fold"));
    for (int round = 1; goes() && !rules.Set().Over(); ++round) {
        const int right = rules.Item().Answer;
        const int sheet = round == Mistaken ? (right + 1) % FoldItem::Choices : right;
        if (round == Clicked)
            hands.ClickGame((74.0 + 118 * sheet) / 620, 0.66);
        else
            hands.Press(static_cast<Qt::Key>(Qt::Key_1 + sheet));
        rules.Judge(sheet);
        if (round == Mistaken) QThread::msleep(2000); // the paper opens
        if (round <= Mistaken) hands.Picture(QStringLiteral("punched-fold-answer-%1").arg(round));
        while (goes() && !hands.GameDescription().startsWith(u"Which")) QThread::msleep(Blink);
        if (!rules.Set().Over()) rules.Next();
    }
}
