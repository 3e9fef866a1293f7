#include "shell/GameFramework.h"

#include "shell/InCall.h"
#include "shell/program/modMain.h"

#include <type_traits>
#include <vector>

namespace
{
/// The call on the program's own object, or the empty value of its result when the game is no longer hosted.
/// Failure: passed on, to the game.
template <typename Call>
auto Forward(const std::shared_ptr<GameTie> &Tie, Call &&call)
{
    using Result = std::invoke_result_t<Call, CNoggleFramework &>;
    const auto framework = modMain::Framework;
    if (!Tie->Hosted || !framework) return Result();
    const InCall inside(Tie->Depth); // forwarder and tie are never released
    return call(*framework);
}
} // namespace

GameFramework *GameFramework::For(const std::shared_ptr<GameTie> &Tie)
{
    // never released, not even when the process ends
    static auto &kept = *new std::vector<std::unique_ptr<GameFramework>>;
    kept.emplace_back(new GameFramework(Tie));
    return kept.back().get();
}

QVariant GameFramework::Message(const QString &Cmd, const QVariant &Info1, const QVariant &Info2)
{
    // A game that is being unloaded has ended already: nobody asks for the points of an abandoned one.
    if (m_Tie->Unloading && Cmd == u"gameover") return {};
    return Forward(m_Tie, [&](CNoggleFramework &to) { return to.Message(Cmd, Info1, Info2); });
}

void GameFramework::SkinButton(QObject *But, const QString &Name)
{
    Forward(m_Tie, [&](CNoggleFramework &to) { to.SkinButton(But, Name); });
}

void GameFramework::SkinPicbox(QObject *Pic, const QString &Name)
{
    Forward(m_Tie, [&](CNoggleFramework &to) { to.SkinPicbox(Pic, Name); });
}

std::int32_t GameFramework::MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent, QString *Answer,
                                   std::int32_t FontSize)
{
    return Forward(m_Tie,
                   [&](CNoggleFramework &to) { return to.MsgBox(Message, Options, Parent, Answer, FontSize); });
}

void GameFramework::ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent)
{
    Forward(m_Tie, [&](CNoggleFramework &to) { to.ShowError(Message, ErrDesc, Parent); });
}

QString GameFramework::PlayerGameInfo(std::int32_t Level)
{
    return Forward(m_Tie, [&](CNoggleFramework &to) { return to.PlayerGameInfo(Level); });
}

void GameFramework::SetPlayerGameInfo(std::int32_t Level, const QString &Value)
{
    Forward(m_Tie, [&](CNoggleFramework &to) { to.SetPlayerGameInfo(Level, Value); });
}

void GameFramework::DrawBackground(QPainter *DestHDC)
{
    Forward(m_Tie, [&](CNoggleFramework &to) { to.DrawBackground(DestHDC); });
}

QImage GameFramework::GetPicture(const QString &PicName)
{
    return Forward(m_Tie, [&](CNoggleFramework &to) { return to.GetPicture(PicName); });
}

QString GameFramework::Lang()
{
    return Forward(m_Tie, [](CNoggleFramework &to) { return to.Lang(); });
}

QString GameFramework::GetString(std::int32_t Index)
{
    return Forward(m_Tie, [&](CNoggleFramework &to) { return to.GetString(Index); });
}

QString GameFramework::GetSetting(const QString &Section, const QString &Name)
{
    return Forward(m_Tie, [&](CNoggleFramework &to) { return to.GetSetting(Section, Name); });
}

void GameFramework::SaveSetting(const QString &Section, const QString &Name, const QString &Value)
{
    Forward(m_Tie, [&](CNoggleFramework &to) { to.SaveSetting(Section, Name, Value); });
}

QString GameFramework::LangString(const QString &Name)
{
    return Forward(m_Tie, [&](CNoggleFramework &to) { return to.LangString(Name); });
}

bool GameFramework::OnlineFlag()
{
    return Forward(m_Tie, [](CNoggleFramework &to) { return to.OnlineFlag(); });
}
