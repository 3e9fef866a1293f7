#include "tests/shell/support/ListeningGame.h"

#include "sdk/CGameArea.h"
#include "shell/GameLibraries.h"

#include <stdexcept>

namespace
{
const QString ClassName = QStringLiteral("Listening.GameArea");
}

class ListeningGame::Area final : public CGameArea
{
public:
    Area(QWidget *container, ListeningGame &listener) : CGameArea(container), m_Listener(listener)
    {
        setFocusPolicy(Qt::ClickFocus);
    }
    void SetNoggleFrameWork(CNoggleFramework *Framework) override { m_Framework = Framework; }
    QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &Info2) override
    {
        m_Listener.m_Verbs << Cmd + u' ' + Info1.toString() + u' ' + Info2.toString();
        if (Cmd == m_Listener.ThrowsOn) throw std::runtime_error("The game has thrown.");
        return Cmd == u"score" ? QVariant(m_Listener.Points) : QVariant();
    }
    void End() { m_Framework->Message(QStringLiteral("gameover")); }

private:
    ListeningGame &m_Listener;
    CNoggleFramework *m_Framework = nullptr;
};

ListeningGame::ListeningGame()
{
    RegisterGame(ClassName, [this](QWidget *container) {
        auto *const area = new Area(container, *this);
        m_Control = area;
        return area;
    });
}

ListeningGame::~ListeningGame() { RegisterGame(ClassName, {}); }

QString ListeningGame::TakeVerbs()
{
    QString verbs = m_Verbs.join(u'|');
    m_Verbs.clear();
    return verbs;
}

void ListeningGame::End() { static_cast<Area *>(m_Control.data())->End(); }
