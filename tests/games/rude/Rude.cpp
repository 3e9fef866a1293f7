// One library of games that each break a rule once. README.md tells what each does; the shell must shrug.
#include "sdk/CGameArea.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <map>
#include <stdexcept>

namespace
{
class RudeGame;
using Verb = std::function<QVariant(RudeGame &, const QString &)>;

/// Told to the tests through dynamic properties of the application: what happened when nobody could look.
void Tell(const char *name, const QVariant &value) { qApp->setProperty(name, value); }

class RudeGame : public CGameArea
{
public:
    RudeGame(QWidget *container, Verb verb) : CGameArea(container), m_Verb(std::move(verb)) {}
    ~RudeGame() override
    {
        Tell("rudeDeletedInHandler", InHandler > 0);
        InHandler = -1; // a handler that comes back reads this: the sanitizer sees it when the game has gone
    }

    void SetNoggleFrameWork(CNoggleFramework *Framework) override
    {
        this->Framework = Framework;
        if (m_Verb) m_Verb(*this, QStringLiteral("framework"));
    }
    QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &Info2) override
    {
        Level = Cmd == u"start" ? Info1.toInt() : Level;
        Info1 = QStringLiteral("written into"); // nobody may mind
        Info2 = QVariant();
        ++InHandler;
        const QPointer<RudeGame> here(this);
        QVariant answer = m_Verb ? m_Verb(*this, Cmd) : QVariant();
        if (here) --InHandler;
        return answer;
    }
    QVariant End() { return Framework->Message(QStringLiteral("gameover")); }

    CNoggleFramework *Framework = nullptr;
    int Level = 0;
    int InHandler = 0;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (Framework != nullptr) Framework->DrawBackground(&painter);
        painter.fillRect(rect().adjusted(20, 20, -20, -20), QColor(0xb0, 0x40, 0x30));
    }

private:
    Verb m_Verb;
};

Verb On(const QString &verb, const std::function<void(RudeGame &)> &work)
{
    return [verb, work](RudeGame &game, const QString &cmd) {
        if (cmd == verb) work(game);
        return cmd == u"score" ? QVariant(50) : QVariant();
    };
}

Verb Throws(const QString &verb)
{
    return On(verb, [verb](RudeGame &) { throw std::runtime_error("thrown on " + verb.toStdString()); });
}

Verb Answers(const QVariant &points)
{
    return [points](RudeGame &game, const QString &cmd) {
        if (cmd == u"keypress") game.End();
        return cmd == u"score" ? points : QVariant();
    };
}

// Everything at once, as a game would that never heard of "unload".
void CallEverything(CNoggleFramework &framework)
{
    QImage picture(4, 4, QImage::Format_RGB32);
    QPainter painter(&picture);
    framework.Message(QStringLiteral("progress"), 100);
    framework.Message(QStringLiteral("playsound"), QStringLiteral("*ding"));
    framework.Message(QStringLiteral("resumetimer"));
    framework.SetPlayerGameInfo(1, QStringLiteral("late"));
    framework.SaveSetting(QStringLiteral("rude"), QStringLiteral("late"), QStringLiteral("1"));
    framework.DrawBackground(&painter);
    Tell("rudeLatePath", framework.Message(QStringLiteral("gamepath")));
    Tell("rudeLateOver", framework.Message(QStringLiteral("gameover")));
    Tell("rudeLateInfo", framework.PlayerGameInfo(1));
}

// No owner: fires when the game itself has been deleted long since.
void CallsLate(RudeGame &game)
{
    QTimer::singleShot(30, qApp, [framework = game.Framework] { CallEverything(*framework); });
}

QVariant ThrowsANumber(RudeGame &, const QString &cmd)
{
    if (cmd == u"framework") return {};
    throw 42;
}

void EndsTwice(RudeGame &game)
{
    game.End();
    game.End();
}

void EndsInsideOwnLoop(RudeGame &game)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] { game.End(); });
    QTimer::singleShot(50, &loop, &QEventLoop::quit);
    loop.exec();
    Tell("rudeCameBack", game.InHandler);
}

void DeletesItself(RudeGame &game)
{
    game.InHandler = 0;
    game.deleteLater();
}

// Opens a dialog and waits in a loop of its own; afterwards it still uses itself.
void WaitsInDialog(RudeGame &game)
{
    QDialog dialog(&game);
    dialog.exec();
    Tell("rudeCameBack", game.InHandler);
}

void WaitsInLoop(RudeGame &game)
{
    QEventLoop loop;
    QTimer::singleShot(100, &loop, &QEventLoop::quit);
    loop.exec();
    Tell("rudeCameBack", game.InHandler);
}

void AsksInBox(RudeGame &game)
{
    game.Framework->MsgBox(QStringLiteral("Shall we?"), 4);
    Tell("rudeCameBack", game.InHandler);
}

void HoldsKeyboardAndMouse(RudeGame &game)
{
    game.setFocusPolicy(Qt::StrongFocus);
    game.setFocus();
    game.grabKeyboard();
    game.grabMouse();
}

void OpensWindows(RudeGame &game)
{
    auto *window = new QWidget(&game, Qt::Window);
    window->setObjectName(QStringLiteral("RudeWindow"));
    window->show();
}

void ShowsItselfAgain(RudeGame &game)
{
    auto *timer = new QTimer(&game);
    QObject::connect(timer, &QTimer::timeout, &game, [&game] {
        game.show();
        game.raise();
    });
    timer->start(10);
}

const std::map<QString, Verb> &Classes()
{
    static const std::map<QString, Verb> classes{
        {QStringLiteral("RudeThrowsOnFramework"), Throws(QStringLiteral("framework"))},
        {QStringLiteral("RudeThrowsOnStart"), Throws(QStringLiteral("start"))},
        {QStringLiteral("RudeThrowsOnKey"), Throws(QStringLiteral("keypress"))},
        {QStringLiteral("RudeThrowsOnSkin"), Throws(QStringLiteral("changeskin"))},
        {QStringLiteral("RudeThrowsOnTimeUp"), Throws(QStringLiteral("timeup"))},
        {QStringLiteral("RudeThrowsOnScore"), Throws(QStringLiteral("score"))},
        {QStringLiteral("RudeThrowsOnUnload"), Throws(QStringLiteral("unload"))},
        {QStringLiteral("RudeThrowsANumber"), ThrowsANumber},
        {QStringLiteral("RudeEndsOnStart"), On(QStringLiteral("start"), [](RudeGame &game) { game.End(); })},
        {QStringLiteral("RudeEndsOnKey"), On(QStringLiteral("keypress"), [](RudeGame &game) { game.End(); })},
        {QStringLiteral("RudeEndsTwice"), On(QStringLiteral("keypress"), EndsTwice)},
        {QStringLiteral("RudeEndsOnTimeUp"), On(QStringLiteral("timeup"), [](RudeGame &game) { game.End(); })},
        {QStringLiteral("RudeEndsOnScore"), On(QStringLiteral("score"), [](RudeGame &game) { game.End(); })},
        {QStringLiteral("RudeEndsOnUnload"), On(QStringLiteral("unload"), [](RudeGame &game) { game.End(); })},
        {QStringLiteral("RudeEndsInsideOwnLoop"), On(QStringLiteral("keypress"), EndsInsideOwnLoop)},
        {QStringLiteral("RudeCallsOnUnload"),
         On(QStringLiteral("unload"), [](RudeGame &game) { CallEverything(*game.Framework); })},
        {QStringLiteral("RudeCallsLate"), On(QStringLiteral("unload"), CallsLate)},
        {QStringLiteral("RudeScoresNothing"), Answers(QVariant())},
        {QStringLiteral("RudeScoresText"), Answers(QStringLiteral("80 points"))},
        {QStringLiteral("RudeScoresWords"), Answers(QStringLiteral("plenty"))},
        {QStringLiteral("RudeScoresHuge"), Answers(QStringLiteral("99999999999999999999"))},
        {QStringLiteral("RudeScoresHalf"), Answers(2.5)},
        {QStringLiteral("RudeScoresNegative"), Answers(-30)},
        {QStringLiteral("RudeScoresAList"), Answers(QVariantList{1, 2, 3})},
        {QStringLiteral("RudeDeletesItself"), On(QStringLiteral("keypress"), DeletesItself)},
        {QStringLiteral("RudeWaitsInDialog"), On(QStringLiteral("keypress"), WaitsInDialog)},
        {QStringLiteral("RudeWaitsInLoop"), On(QStringLiteral("keypress"), WaitsInLoop)},
        {QStringLiteral("RudeAsksInBox"), On(QStringLiteral("keypress"), AsksInBox)},
        {QStringLiteral("RudeHoldsInput"), On(QStringLiteral("start"), HoldsKeyboardAndMouse)},
        {QStringLiteral("RudeOpensWindows"), On(QStringLiteral("start"), OpensWindows)},
        {QStringLiteral("RudeShowsItself"), On(QStringLiteral("start"), ShowsItselfAgain)},
    };
    return classes;
}
} // namespace

class RudeComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        const QString name = ClassName.chopped(QStringLiteral(".GameArea").size());
        if (name == u"RudeThrowsOnCreate") throw std::runtime_error("thrown on creation");
        if (name == u"RudeIsAWindow") {
            auto *game = new RudeGame(nullptr, {});
            game->show();
            return game;
        }
        const auto known = Classes().find(name);
        return known == Classes().end() ? nullptr : new RudeGame(Container, known->second);
    }
};

#include "Rude.moc"
