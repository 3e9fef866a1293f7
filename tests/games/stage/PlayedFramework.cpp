#include "tests/games/stage/PlayedFramework.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "shell/program/modMain.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

std::shared_ptr<PlayedFramework> PlayedFramework::Install(const QString &GameFolder)
{
    auto framework = std::make_shared<PlayedFramework>();
    framework->m_GameFolder = GameFolder;
    modMain::Framework = framework;
    return framework;
}

int PlayedFramework::Count(const QString &Call) const
{
    return static_cast<int>(
        std::count_if(Calls.begin(), Calls.end(), [&](const QString &call) { return call.startsWith(Call); }));
}

int PlayedFramework::Last(const QString &Cmd) const
{
    const auto last =
        std::find_if(Calls.rbegin(), Calls.rend(), [&](const QString &call) { return call.startsWith(Cmd + u' '); });
    return last == Calls.rend() ? -1 : last->section(u' ', 1).toInt();
}

void PlayedFramework::SkinButton(QObject *, const QString &Name) { Calls += QStringLiteral("SkinButton ") + Name; }
void PlayedFramework::SkinPicbox(QObject *, const QString &Name) { Calls += QStringLiteral("SkinPicbox ") + Name; }

std::int32_t PlayedFramework::MsgBox(const QString &Message, std::int32_t, QWidget *, QString *, std::int32_t)
{
    Calls += QStringLiteral("MsgBox ") + Message;
    return AnswerToBox ? AnswerToBox() : 1;
}

void PlayedFramework::ShowError(const QString &Message, const QString &ErrDesc, QWidget *)
{
    Calls += QStringLiteral("ShowError ") + Message + u' ' + ErrDesc;
}

QVariant PlayedFramework::Message(const QString &Cmd, const QVariant &Info1, const QVariant &)
{
    Calls += Info1.isNull() ? Cmd : Cmd + u' ' + Info1.toString();
    if (Cmd == u"fail") throw RuntimeError(QStringLiteral("The framework failed."));
    if (Cmd == u"gameover" && GameOver) GameOver();
    if (Cmd == u"gamepath") return m_GameFolder;
    return {};
}

QString PlayedFramework::PlayerGameInfo(std::int32_t Level) { return Info[Level]; }

void PlayedFramework::SetPlayerGameInfo(std::int32_t Level, const QString &Value)
{
    Calls += QStringLiteral("SetPlayerGameInfo %1 %2").arg(Level).arg(Value);
    Info[Level] = Value;
}

void PlayedFramework::DrawBackground(QPainter *DestHDC)
{
    constexpr int Beyond = 4000; // larger than any game area
    QLinearGradient ground(0, 0, 0, 600);
    ground.setColorAt(0, Top);
    ground.setColorAt(1, Bottom);
    DestHDC->fillRect(0, 0, Beyond, Beyond, ground);
}

QImage PlayedFramework::GetPicture(const QString &) { return {}; }
QString PlayedFramework::Lang() { return modMain::Language; }
QString PlayedFramework::GetString(std::int32_t) { return {}; }

QString PlayedFramework::GetSetting(const QString &Section, const QString &Name)
{
    if (Section == u"config" && Name == u"pace" && !Pace.isEmpty()) return Pace;
    QString section;
    const QString file = QString::fromUtf8(ReadFile(m_GameFolder + QStringLiteral("GameSettings.ini")));
    for (const QString &line : file.split(u'\n')) {
        const QString text = line.trimmed();
        if (text.startsWith(u'[')) section = text.mid(1, text.size() - 2);
        if (section == Section && text.section(u'=', 0, 0) == Name) return text.section(u'=', 1);
    }
    return {};
}

void PlayedFramework::SaveSetting(const QString &Section, const QString &Name, const QString &Value)
{
    Calls += QStringLiteral("SaveSetting %1 %2 %3").arg(Section, Name, Value);
}

QString PlayedFramework::LangString(const QString &Name)
{
    const QString local = GetSetting(modMain::Language, Name);
    return local.isEmpty() ? GetSetting(QStringLiteral("default"), Name) : local;
}

bool PlayedFramework::OnlineFlag() { return false; }
