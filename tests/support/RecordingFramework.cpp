#include "tests/support/RecordingFramework.h"

#include "shell/program/modMain.h"

std::shared_ptr<RecordingFramework> RecordingFramework::Install()
{
    auto framework = std::make_shared<RecordingFramework>();
    modMain::Framework = framework;
    return framework;
}

ShownBox RecordingFramework::TakeLast()
{
    if (Boxes.empty()) return {};
    ShownBox last = Boxes.back();
    Boxes.pop_back();
    return last;
}

std::int32_t RecordingFramework::MsgBox(const QString &Message, std::int32_t Options, QWidget *, QString *Answer,
                                        std::int32_t FontSize)
{
    Boxes.push_back({Message, Options, FontSize});
    if (Answer != nullptr) *Answer = NextText;
    return NextAnswer;
}

void RecordingFramework::ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent)
{
    MsgBox(Message + QStringLiteral("\r\n") + ErrDesc, 48, Parent, nullptr, 16);
}

void RecordingFramework::SkinButton(QObject *But, const QString &Name)
{
    Skinned << QStringLiteral("%1 %2").arg(But->objectName(), Name).trimmed();
}
void RecordingFramework::SkinPicbox(QObject *, const QString &) {}
QVariant RecordingFramework::Message(const QString &, const QVariant &, const QVariant &)
{
    return QStringLiteral("unsupported");
}
QString RecordingFramework::PlayerGameInfo(std::int32_t) { return {}; }
void RecordingFramework::SetPlayerGameInfo(std::int32_t, const QString &) {}
void RecordingFramework::DrawBackground(QPainter *) {}
QImage RecordingFramework::GetPicture(const QString &) { return {}; }
QString RecordingFramework::Lang() { return modMain::Language; }
QString RecordingFramework::GetString(std::int32_t) { return {}; }
QString RecordingFramework::GetSetting(const QString &, const QString &) { return {}; }
void RecordingFramework::SaveSetting(const QString &, const QString &, const QString &) {}
QString RecordingFramework::LangString(const QString &) { return {}; }
bool RecordingFramework::OnlineFlag() { return modMain::Online; }
