#include "shell/GameHost.h"

#include "platform/RuntimeError.h"
#include "sdk/CGameArea.h"
#include "shell/GameFramework.h"
#include "shell/GameGraveyard.h"
#include "shell/GameLibraries.h"
#include "shell/InCall.h"

#include <QThread>

#include <utility>

namespace
{
/// The border between shell and games: whatever is thrown beyond it arrives as a RuntimeError.
template <typename Work>
auto AtBorder(Work &&work)
{
    try {
        return std::forward<Work>(work)();
    } catch (const RuntimeError &) {
        throw; // a failure of the framework that the game let through
    } catch (...) {
        throw RuntimeError(DescriptionOf(std::current_exception()));
    }
}
} // namespace

std::shared_ptr<HostedGame> CreateGame(const QString &ClassName, const QString &GameFolder, QWidget *Container)
{
    const GameMaker make = FindGameMaker(ClassName, GameFolder);
    CGameArea *control = AtBorder([&] { return make(Container); });
    if (control == nullptr) {
        throw RuntimeError(
            QStringLiteral("The component \"%1\" can't be used: its library lists the class and does not make it.")
                .arg(ClassName));
    }
    auto game = std::make_shared<HostedGame>(control, QThread::currentThread()->loopLevel());
    // whatever the component did: a hidden child of the game area, never a window that flashes somewhere
    control->hide();
    control->setParent(Container, Qt::Widget);
    return game;
}

HostedGame::HostedGame(CGameArea *Control, int EventLoop)
    : m_Control(Control), m_Tie(std::make_shared<GameTie>()), m_EventLoop(EventLoop)
{}

HostedGame::~HostedGame() { Unload(); }

void HostedGame::SetNoggleFrameWork()
{
    if (!m_Tie->Hosted || !m_Control) return;
    const auto tie = m_Tie;
    const InCall inside(tie->Depth);
    AtBorder([&] { m_Control->SetNoggleFrameWork(GameFramework::For(tie)); });
}

QVariant HostedGame::Message(const QString &Cmd, const QVariant &Info1, const QVariant &Info2)
{
    if (!m_Tie->Hosted || m_Tie->Unloading || !m_Control) return {};
    const auto tie = m_Tie; // this object may go while the game has the word
    tie->Unloading = Cmd == u"unload";
    const InCall inside(tie->Depth);
    QVariant first = Info1; // copies, since a game may write into them
    QVariant second = Info2;
    return AtBorder([&, control = m_Control.data()] { return control->Message(Cmd, first, second); });
}

void HostedGame::Move(int Left, int Top, int Width, int Height)
{
    if (!m_Control) return;
    AtBorder([&] { m_Control->setGeometry(Left, Top, Width, Height); });
}

void HostedGame::SetVisible(bool Visible)
{
    if (!m_Tie->Hosted || !m_Control) return;
    AtBorder([&] { m_Control->setVisible(Visible); });
    if (!Visible || !m_Control) return;
    // Being hidden cost it the keyboard: with the menu in its place an Enter for the game would pause it.
    QWidget *const inner = m_Control->focusWidget();
    AtBorder([&] { (inner != nullptr ? inner : m_Control.data())->setFocus(); });
}

bool HostedGame::Visible() const { return m_Control && m_Control->isVisible(); }

QWidget *HostedGame::Control() const { return m_Control; }

void HostedGame::Unload()
{
    if (!std::exchange(m_Tie->Hosted, false)) return;
    if (m_Control) BuryGame(m_Control, m_Tie, m_EventLoop);
    m_Control.clear();
}
