// Games that no program survives, or that break the contract where only a close look shows it: for the tool that
// checks games.
#include "sdk/CGameArea.h"

#include <QPainter>

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

namespace
{
class HardGame : public CGameArea
{
public:
    using Work = std::function<void(HardGame &, const QString &)>;
    HardGame(QWidget *container, Work work) : CGameArea(container), m_Work(std::move(work)) {}

    void SetNoggleFrameWork(CNoggleFramework *Framework) override { this->Framework = Framework; }
    QVariant Message(const QString &Cmd, QVariant &, QVariant &) override
    {
        m_Work(*this, Cmd);
        return Cmd == u"score" ? QVariant(Points) : QVariant();
    }

    CNoggleFramework *Framework = nullptr;
    int Points = 0;

protected:
    void paintEvent(QPaintEvent *) override
    {
        m_Work(*this, QStringLiteral("paint"));
        QPainter(this).fillRect(rect(), Qt::darkRed);
    }

private:
    Work m_Work;
};

void Crashes(HardGame &, const QString &cmd)
{
    if (cmd == u"keypress") std::abort();
}

void NeverReturns(HardGame &, const QString &cmd)
{
    volatile bool forever = cmd == u"keypress";
    while (forever) continue;
}

// Reachable, so that no other tool complains of it.
void Leaks(HardGame &, const QString &cmd)
{
    static std::vector<std::unique_ptr<std::vector<int>>> kept;
    if (cmd == u"start") kept.push_back(std::make_unique<std::vector<int>>(10'000, 1));
}

void PlaysOnHidden(HardGame &game, const QString &cmd)
{
    if (cmd != u"keypress") return;
    ++game.Points;
    game.Framework->Message(QStringLiteral("progress"), game.Points % 100);
}

void AsksWrongly(HardGame &game, const QString &cmd)
{
    if (cmd != u"start") return;
    game.Framework->Message(QStringLiteral("Progress"), 10);
    game.Framework->Message(QStringLiteral("progress"), 150);
    game.Framework->Message(QStringLiteral("playsound"), QStringLiteral("bang"));
    game.Framework->SetPlayerGameInfo(1, QStringLiteral("a|b"));
    game.Framework->SetPlayerGameInfo(9, QStringLiteral("a"));
    game.Framework->SaveSetting(QStringLiteral("mine"), QStringLiteral("two"), QStringLiteral("a\nb"));
    game.Framework->ShowError(QStringLiteral("Nothing works."), QStringLiteral("Not at all."));
    game.Framework->LangString(QStringLiteral("Nowhere"));
}

void ThrowsInPaint(HardGame &, const QString &cmd)
{
    if (cmd == u"paint") throw std::runtime_error("thrown on painting");
}

const std::map<QString, HardGame::Work> &Classes()
{
    static const std::map<QString, HardGame::Work> classes{
        {QStringLiteral("RudeCrashes.GameArea"), Crashes},
        {QStringLiteral("RudeNeverReturns.GameArea"), NeverReturns},
        {QStringLiteral("RudeLeaks.GameArea"), Leaks},
        {QStringLiteral("RudePlaysOnHidden.GameArea"), PlaysOnHidden},
        {QStringLiteral("RudeAsksWrongly.GameArea"), AsksWrongly},
        {QStringLiteral("RudeThrowsInPaint.GameArea"), ThrowsInPaint},
    };
    return classes;
}
} // namespace

class RudeHardComponent final : public QObject, public CGameComponent
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID NOGGLE_GAME_IID FILE "component.json")
    Q_INTERFACES(CGameComponent)

public:
    CGameArea *Create(const QString &ClassName, QWidget *Container) override
    {
        const auto known = Classes().find(ClassName);
        return known == Classes().end() ? nullptr : new HardGame(Container, known->second);
    }
};

#include "RudeHard.moc"
