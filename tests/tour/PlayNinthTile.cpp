#include "GamePlayers.h"

#include "Hands.h"

#include "games/ninth-tile/NinthRules.h"

#include <QThread>

#include <algorithm>

namespace
{
// The middle of an offered tile, in rows of two (of six) or three.
void ClickTile(Hands &hands, const NinthItem &item, int tile)
{
    const bool isSix = item.Offered.size() == 6;
    const int columns = isSix ? 2 : 3;
    const double step = isSix ? 102 : 90.5;
    const int row = tile / columns;
    const int inRow = std::min(columns, static_cast<int>(item.Offered.size()) - row * columns);
    hands.ClickGame((470 + (tile % columns - (inRow - 1) / 2.0) * step) / 620, (208 + (row - 1) * step) / 420);
}
} // namespace

// By the numbers, once by a click, and once wrongly, so that this is seen too.
void PlayNinthTile(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Clicked = 2, Mistaken = 3; // rounds
    constexpr int Blink = 20;                // [ms]
    NinthRules rules(board.Level, board.Seed);
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("ninth-tile"));
    for (int round = 1; goes() && !rules.Set().Over(); ++round) {
        const NinthItem &item = rules.Item();
        const int tile = round == Mistaken ? (item.Right + 1) % static_cast<int>(item.Offered.size()) : item.Right;
        if (round == Clicked)
            ClickTile(hands, item, tile);
        else
            hands.Press(static_cast<Qt::Key>(Qt::Key_1 + tile));
        rules.Judge(tile);
        if (round <= Mistaken) hands.Picture(QStringLiteral("ninth-tile-answer-%1").arg(round));
        while (goes() && !hands.GameDescription().startsWith(u"Which")) QThread::msleep(Blink);
        if (!rules.Set().Over()) rules.Next();
    }
}
