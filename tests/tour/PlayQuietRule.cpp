#include "GamePlayers.h"

#include "Hands.h"

#include "games/quiet-rule/QuietRules.h"

#include <QThread>

// By the numbers, once by a click, and once wrongly, so that this is seen too.
void PlayQuietRule(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Clicked = 2, Mistaken = 3; // cards
    constexpr int Blink = 20;                // [ms]
    QuietRules rules(board.Level, board.Seed);
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("quiet-rule"));
    for (int card = 1; goes() && !rules.Set().Over(); ++card) {
        const int pile = card == Mistaken ? (rules.RightPile() + 1) % QuietRules::Piles : rules.RightPile();
        if (card == Clicked)
            hands.ClickGame((91 + pile * 146) / 620.0, 124 / 420.0);
        else
            hands.Press(static_cast<Qt::Key>(Qt::Key_1 + pile));
        rules.Judge(pile);
        if (card == Mistaken) hands.Picture(QStringLiteral("quiet-rule-mistake"));
        while (goes() && !hands.GameDescription().startsWith(u"On which")) QThread::msleep(Blink);
        if (!rules.Set().Over()) rules.Next();
    }
}
