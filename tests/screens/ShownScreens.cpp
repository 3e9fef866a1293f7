#include "ShownScreens.h"

#include "platform/Clock.h"

template <typename Shown>
Shown &ShownScreens::Opened()
{
    auto *screen = new Shown(m_Area.get());
    Open(screen);
    return *screen;
}

ctlPlayerlist &ShownScreens::ShowPlayers(const QStringList &Names)
{
    Start();
    for (const QString &name : Names) GivenPlayer(name);
    auto &list = Opened<ctlPlayerlist>();
    list.ListPlayers();
    return list;
}

PlayerName &ShownScreens::ShowName()
{
    Start();
    GivenPlayer(QStringLiteral("Ann"));
    auto &strip = Opened<PlayerName>();
    strip.SkinUp();
    strip.ShowDetails();
    return strip;
}

void ShownScreens::BeginWorkout()
{
    StartWithSixGames();
    GivenPlayer(QStringLiteral("Ann"));
    GivenWorkout(Today());
    Finish(QStringLiteral("Corners"), 96);
}

ctlWorkOut &ShownScreens::ShowWorkout()
{
    auto &workout = Opened<ctlWorkOut>();
    workout.SkinUp();
    workout.ListCats(false);
    return workout;
}

ctlUserInfo &ShownScreens::ShowWorkoutRows()
{
    auto &info = Opened<ctlUserInfo>();
    info.ShowDetails(1);
    return info;
}

ctlGameInstructions &ShownScreens::ShowInstructions(const QByteArray &RichText)
{
    GivenGame(QStringLiteral("Arrows"), QStringLiteral("Attention"));
    m_Store.Folder().Write(QStringLiteral("Arrows/Instructions.rtf"), RichText);
    Start();
    GivenPlayer(QStringLiteral("Ann"));
    auto &page = Opened<ctlGameInstructions>();
    page.ShowInstructions(Game(QStringLiteral("Arrows")));
    return page;
}
