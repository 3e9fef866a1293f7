#include "shell/CShellFramework.h"

#include "platform/Convert.h"
#include "platform/Files.h"
#include "platform/Picture.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "platform/Units.h"

#include "services/CResource.h"
#include "services/colSound.h"

#include "shell/program/MainForm.h"
#include "shell/program/Trapped.h"
#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"

#include "skin/CSkin.h"
#include "skin/frmMsgBox.h"

#include "shell/frmNoggle.h"

#include <QHash>
#include <QPainter>
#include <QWidget>

namespace
{
constexpr std::int32_t ErrorBox = 48;      // exclamation mark, one OK button
constexpr std::int32_t ErrorFontSize = 16; // [pt]
constexpr int OrdinaryButtonWidth = 60;    // [px] wider ones take the very wide pictures
constexpr int ScaleModeTwips = 1;

CGame &PresentGame()
{
    if (!modMain::CurrentGame) throw RuntimeError(QStringLiteral("No game has been chosen yet."));
    return *modMain::CurrentGame;
}

CPlayer &PresentPlayer()
{
    if (!modMain::CurrentPlayer) throw RuntimeError(QStringLiteral("No player has been chosen yet."));
    return *modMain::CurrentPlayer;
}

frmNoggle &MainWindow()
{
    if (modMain::Form == nullptr) throw RuntimeError(QStringLiteral("There is no main window yet."));
    return *static_cast<frmNoggle *>(modMain::Form);
}

std::int32_t Number(const QVariant &Value)
{
    return Value.typeId() == QMetaType::QString ? WholeNumber(Value.toString()) : NumberIn(Value);
}

QString TextIn(const QVariant &Value)
{
    if (Value.isValid() && !Value.canConvert<QString>()) throw RuntimeError(QStringLiteral("A text is expected."));
    return Value.toString();
}

void PlaySound(const QString &Name, const QString &Repeat)
{
    const std::int32_t flag = Repeat == u"repeat" ? 1 : 0;
    if (Name.startsWith(u'*'))
        modMain::ShellSounds->Item(Name.mid(1)).Play(flag);
    else
        PresentGame().Sounds().Item(Name).Play(flag);
}

using Verb = QVariant (*)(const QVariant &, const QVariant &);

// Commands of games, compared exactly. What tells nothing answers an empty value.
const QHash<QString, Verb> &Verbs()
{
    static const QHash<QString, Verb> verbs{
        {QStringLiteral("progress"),
         [](const QVariant &percent, const QVariant &) {
             return MainWindow().Progress(Number(percent)), QVariant();
         }},
        {QStringLiteral("gameover"),
         [](const QVariant &, const QVariant &) { return MainWindow().GameOver(), QVariant(); }},
        {QStringLiteral("gamepath"),
         [](const QVariant &, const QVariant &) { return QVariant(PresentGame().Path()); }},
        {QStringLiteral("playerkey"),
         [](const QVariant &, const QVariant &) { return QVariant(PresentPlayer().Key); }},
        {QStringLiteral("getsetting"),
         [](const QVariant &section, const QVariant &name) {
             return QVariant(PresentGame().GetSetting(TextIn(section), TextIn(name)));
         }},
        {QStringLiteral("globalsetting"),
         [](const QVariant &section, const QVariant &name) {
             return QVariant(modMain::Framework->GetSetting(TextIn(section), TextIn(name)));
         }},
        {QStringLiteral("timetaken"),
         [](const QVariant &, const QVariant &) { return QVariant(MainWindow().TimeTaken()); }},
        {QStringLiteral("pausetimer"),
         [](const QVariant &, const QVariant &) { return MainWindow().PauseTimer(), QVariant(); }},
        {QStringLiteral("resumetimer"),
         [](const QVariant &, const QVariant &) { return MainWindow().ResumeTimer(), QVariant(); }},
        {QStringLiteral("playsound"),
         [](const QVariant &name, const QVariant &repeat) {
             return PlaySound(TextIn(name), repeat.toString()), QVariant();
         }},
    };
    return verbs;
}

// The width of a button in pixels, whatever its container measures in.
int WidthInPixels(const QObject &But)
{
    const auto *const button = qobject_cast<const QWidget *>(&But);
    const int width = button != nullptr ? button->width() : But.property("Width").toInt();
    const QObject *const container = But.parent();
    const bool inTwips =
        button == nullptr && container != nullptr && container->property("ScaleMode").toInt() == ScaleModeTwips;
    return inTwips ? ToPixels(Twips{width}).Value : width;
}
} // namespace

void CShellFramework::SkinButton(QObject *But, const QString &Name)
{
    const std::shared_ptr<CSkin> skin = modMain::CurrentSkin;
    if (!skin || But == nullptr) return;
    int width = 0;
    Step([&] { width = WidthInPixels(*But); });
    if (!Name.isEmpty()) {
        Step([&] { But->setProperty("PictureUp", skin->Pic(Name)); });
        Step([&] { But->setProperty("PictureDown", skin->Pic(Name + QStringLiteral("Down"))); });
    } else if (width > OrdinaryButtonWidth) {
        Step([&] { But->setProperty("PictureUp", skin->VeryWideButton()); });
        Step([&] { But->setProperty("PictureDown", skin->VeryWideButtonPressed()); });
    } else {
        Step([&] { But->setProperty("PictureUp", skin->WideButton()); });
        Step([&] { But->setProperty("PictureDown", skin->WideButtonPressed()); });
    }
}

void CShellFramework::SkinPicbox(QObject *Pic, const QString &Name)
{
    const std::shared_ptr<CSkin> skin = modMain::CurrentSkin;
    if (!skin || Pic == nullptr) return;
    if (!Name.isEmpty()) {
        Step([&] { Pic->setProperty("PictureFile", skin->Pic(Name)); });
        return;
    }
    Step([&] { Pic->setProperty("PictureFile", skin->DialogPicture()); });
    Step([&] { Pic->setProperty("picture", skin->DialogPicture()); });
}

std::int32_t CShellFramework::MsgBox(const QString &Message, std::int32_t Options, QWidget *Parent, QString *Answer,
                                     std::int32_t FontSize)
{
    return frmMsgBox::Ask(Parent, Message, Options, Answer, FontSize);
}

void CShellFramework::ShowError(const QString &Message, const QString &ErrDesc, QWidget *Parent)
{
    MsgBox(Message + QStringLiteral("\r\n") + ErrDesc, ErrorBox, Parent, nullptr, ErrorFontSize);
}

QVariant CShellFramework::Message(const QString &Cmd, const QVariant &Info1, const QVariant &Info2)
{
    const Verb verb = Verbs().value(Cmd, nullptr);
    return verb != nullptr ? verb(Info1, Info2) : QVariant(QStringLiteral("unsupported"));
}

QString CShellFramework::PlayerGameInfo(std::int32_t Level)
{
    QString info;
    Trapped(QStringLiteral("Error getting game information."),
            [&] { info = PresentPlayer().GameInfo(PresentGame().Key, Level); });
    return info;
}

void CShellFramework::SetPlayerGameInfo(std::int32_t Level, const QString &Value)
{
    Trapped(QStringLiteral("Error saving game information."),
            [&] { PresentPlayer().SetGameInfo(PresentGame().Key, Level, Value); });
}

void CShellFramework::DrawBackground(QPainter *DestHDC)
{
    if (DestHDC != nullptr) DestHDC->drawImage(0, 0, MainWindow().GameBackground());
}

QImage CShellFramework::GetPicture(const QString &PicName)
{
    return LoadPicture(ProgramFolder() + QStringLiteral("Images/") + PicName);
}

QString CShellFramework::Lang() { return modMain::Language; }

QString CShellFramework::GetString(std::int32_t Index) { return modMain::Resources->GetString(ToInt16(Index), 256); }

QString CShellFramework::GetSetting(const QString &Section, const QString &Name)
{
    return PresentGame().GetSetting(Section, Name);
}

void CShellFramework::SaveSetting(const QString &Section, const QString &Name, const QString &Value)
{
    PresentGame().SaveSetting(Section, Name, Value);
}

QString CShellFramework::LangString(const QString &Name) { return PresentGame().LangString(Name); }

bool CShellFramework::OnlineFlag() { return modMain::Online; }
