#include "screens/ctlPlayerlist.h"

#include "domain/colPlayer.h"
#include "platform/Convert.h"
#include "platform/Units.h"
#include "screens/Design.h"
#include "screens/RowView.h"
#include "sdk/controls/LarkButton.h"
#include "shell/program/modMain.h"

namespace
{
constexpr Twips DesignWidth{5640}, DesignHeight{4065};
constexpr int PitchTenths = 12; // of the button's height: a button and a fifth
constexpr double ButtonFont = 14.25;
constexpr std::size_t MostPlayers = 8;
constexpr std::int16_t AddPlayer = 1001;
const QRect FirstButton = FromTwips(240, 150, 4500, 750);
const QString ButtonPicture = QStringLiteral("Button300");
} // namespace

ctlPlayerlist::ctlPlayerlist(QWidget *Container) : Screen(Container), m_View(new RowView(this))
{
    SetScaleMode(1);
    butPlayer.push_back(MakeButton());
    butPlayer[0]->SetCaption(QStringLiteral("Player Name"));
    resize(ToPixels(DesignWidth).Value, ToPixels(DesignHeight).Value);
    Arrange();
    SkinUp();
    ListPlayers();
}

LarkButton *ctlPlayerlist::MakeButton()
{
    QRect place = FirstButton;
    place.translate(0, place.height() * static_cast<int>(butPlayer.size()) * PitchTenths / 10);
    if (!butPlayer.empty()) place.moveLeft(butPlayer[0]->x());
    auto *button = Put<LarkButton>(m_View->Sheet(), Element("butPlayer", butPlayer.size()), place);
    button->SetFont(ButtonFont, true);
    connect(button, &LarkButton::clicked, this, [this, button] { Chosen(button); });
    return button;
}

void ctlPlayerlist::ListPlayers()
{
    DropButtons();
    std::size_t n = 0;
    const auto add = [&](const QString &caption, std::int32_t key) {
        if (n++ > 0) butPlayer.push_back(MakeButton());
        AddButton(caption, key);
    };
    if (modMain::Players)
        for (const auto &player : *modMain::Players) add(player->Name, player->Key);
    if (n < MostPlayers) add(Word(AddPlayer), 0);
    SetTabOrder(QList<QWidget *>(butPlayer.begin(), butPlayer.end()));
    m_View->Fit();
    m_View->ToTop();
}

// The last button is the one that was prepared.
void ctlPlayerlist::AddButton(const QString &Caption, std::int32_t Key)
{
    LarkButton *button = butPlayer.back();
    button->SetCaption(Caption);
    button->SetTag(QString::number(Key));
    if (butPlayer.size() > 1) Skin(button, ButtonPicture);
    button->show();
}

void ctlPlayerlist::DropButtons()
{
    while (butPlayer.size() > 1) {
        LarkButton *gone = butPlayer.back();
        butPlayer.pop_back();
        gone->hide();
        gone->setObjectName({});
        gone->setParent(nullptr);
        gone->deleteLater();
    }
}

void ctlPlayerlist::SkinUp()
{
    for (LarkButton *button : butPlayer) Skin(button, ButtonPicture);
}

void ctlPlayerlist::Chosen(const LarkButton *Button)
{
    const std::int32_t key = ToInt32(LeadingNumber(Button->Tag()));
    Beep();
    Q_EMIT Player(key);
}

void ctlPlayerlist::Arrange()
{
    for (LarkButton *button : butPlayer) Centre(button, width());
    m_View->SetWindow(rect());
}
