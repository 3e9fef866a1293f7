#include "GamePlayers.h"

#include "Hands.h"

#include "games/echo-step/EchoRules.h"

#include <QThread>

// By the number of the step that the game tells, and the rules that know it. One false press, so that this is seen
// too.
void PlayEchoStep(Hands &hands, const Stamina &stamina, const Board &board)
{
    constexpr int Blink = 20; // [ms]
    EchoRules rules(board.Level, board.Seed);
    const auto goes = [&] { return hands.SeesGame() && stamina.IsLeft(); };
    hands.Picture(QStringLiteral("echo-step"));
    bool hasClicked = false;
    bool hasFailed = false;
    for (int last = 0; goes(); QThread::msleep(Blink)) {
        const int number = hands.GameName().section(u':', 0, 0).toInt();
        if (number == last) continue;
        last = number;
        while (rules.Index() < number - 1) {
            rules.Close();
            rules.Next();
        }
        const bool fails = !hasFailed && rules.IsJudged() && !rules.IsEcho(EchoRules::Place);
        if (rules.IsEcho(EchoRules::Letter)) hands.Press(Qt::Key_Right);
        if (!fails && !rules.IsEcho(EchoRules::Place)) continue;
        if (fails || hasClicked) {
            hands.Press(Qt::Key_Left);
        } else {
            hands.ClickGame(rules.HasLetters() ? 0.73 : 0.8, 0.65);
            hands.Picture(QStringLiteral("echo-step-right"));
            hasClicked = true;
        }
        if (!fails) continue;
        hasFailed = true;
        const QString marked = hands.GameDescription();
        while (goes() && hands.GameDescription() == marked) QThread::msleep(Blink);
        hands.Picture(QStringLiteral("echo-step-told"));
    }
}
