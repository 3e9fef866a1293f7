// Names that people have: long, in other scripts, from right to left, and with signs that mean something elsewhere.
#include "ScreenTest.h"
#include "platform/Clock.h"
#include "platform/LarkChart.h"
#include "screens/PlayerName.h"
#include "screens/ctlGameInstructions.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"
#include "screens/ctlPlayerlist.h"
#include "screens/ctlUserInfo.h"
#include "screens/ctlWorkOut.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"
#include "skin/ctlButtonPanel.h"

#include <QApplication>
#include <QLineEdit>
#include <QWheelEvent>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

const QStringList &HardNames()
{
    static const QStringList names{S("Maximiliane Theodora von Hohenstein-Breitenbach the Elder"),
                                   S("Tom & Jerry"),
                                   S("<b>Bob</b>"),
                                   S("Ελένη Παπαδοπούλου"),
                                   S("ليلى عبد الرحمن"),
                                   S("山田花子"),
                                   S("שרה 123 Ann"),
                                   S("🦉 Ω&<i>")};
    return names;
}

class HardNamesTest : public ScreenTest
{
protected:
    HardNamesTest() { SetToday(2026, 3, 5); }

    /// Twelve categories and their games; the first has forty of them.
    void StartWithHardGames()
    {
        for (int i = 0; i < 12; ++i) {
            const QString category = HardNames()[i % 8] + S(" %1").arg(i);
            for (int game = 0; game < (i == 0 ? 40 : 2); ++game) {
                const QString name = HardNames()[(i + game) % 8] + S(" %1-%2").arg(i).arg(game, 2, 10, QChar(u'0'));
                m_Store.Folder().Write(S("game-%1-%2/GameSettings.ini").arg(i).arg(game),
                                       S("[config]\r\nname=%1\r\ncomponent=G\r\ncategory=%2\r\ntimelimit=60\r\n")
                                           .arg(name, category)
                                           .toUtf8());
                m_Store.Folder().Write(S("game-%1-%2/Instructions.rtf").arg(i).arg(game),
                                       R"({\rtf1\ansi Look.\par})");
            }
        }
        Start();
        for (const QString &name : HardNames()) GivenPlayer(name);
    }
    /// Labels and buttons of one surface that lie on each other though both are shown. Design places that overlap are
    /// named by the caller.
    QStringList Overlaps(const QStringList &byDesign = {})
    {
        QList<QWidget *> shown;
        for (QWidget *control : m_Screen->findChildren<QWidget *>())
            if (control->isVisible() && (qobject_cast<TransLabel *>(control) || qobject_cast<LarkButton *>(control)))
                shown << control;
        QStringList overlaps;
        for (qsizetype i = 0; i < shown.size(); ++i)
            for (qsizetype j = i + 1; j < shown.size(); ++j) {
                if (shown[i]->parent() != shown[j]->parent()) continue;
                if (!shown[i]->geometry().intersects(shown[j]->geometry())) continue;
                const QString pair = shown[i]->objectName() + u' ' + shown[j]->objectName();
                if (!byDesign.contains(pair.section(u'(', 0, 0))) overlaps << pair;
            }
        return overlaps;
    }
};
} // namespace

TEST_F(HardNamesTest, StandOnTheChoiceOfPlayerAsTheyAre)
{
    StartWithHardGames();
    auto *list = new ctlPlayerlist(m_Area.get());
    Open(list);
    list->ListPlayers();
    for (int i = 0; i < 8; ++i) EXPECT_EQ(Text(S("butPlayer(%1)").arg(i)), HardNames()[i]);
    EXPECT_EQ(Overlaps(), QStringList());
    Photograph(S("names-players"));
}

TEST_F(HardNamesTest, StandOnTheStripAndAreSavedAsTheyAre)
{
    StartWithHardGames();
    auto *strip = new PlayerName(m_Area.get());
    Open(strip);
    strip->setGeometry(0, 0, 632, 44);
    strip->SkinUp();
    auto *box = At<QLineEdit>(S("txtName"));
    for (const QString &name : HardNames()) {
        modMain::CurrentPlayer = modMain::Players->Item(static_cast<std::int32_t>(HardNames().indexOf(name) + 1));
        strip->ShowDetails();
        EXPECT_EQ(box->text(), name);
        EXPECT_GE(box->font().pixelSize(), 12) << "it can still be read";
        EXPECT_EQ(box->cursorPosition(), 0) << "its beginning is seen";
        Photograph(S("names-strip-%1").arg(HardNames().indexOf(name)));
        Click(S("cmdUpdate"));
        Click(S("cmdUpdate"));
        EXPECT_EQ(modMain::CurrentPlayer->Name, name);
    }
}

TEST_F(HardNamesTest, FillTheWorkoutAndEveryRowIsReached)
{
    StartWithHardGames();
    modMain::CurrentPlayer = modMain::Players->Item(1);
    GivenWorkout(Today());
    auto *workout = new ctlWorkOut(m_Area.get());
    Open(workout);
    workout->SkinUp();
    workout->ListCats(false);
    int first = 0;
    while (!Text(S("lblCat(%1)").arg(first)).endsWith(S(" 0"))) ++first;
    Click(S("picCat(%1)").arg(first));
    EXPECT_EQ(Overlaps({S("lblCat"), S("lblGame")}), QStringList());
    const QWidget *last = At(S("picGame(39)"));
    EXPECT_EQ(last->y(), 76 + 39 * 63) << "the design place stays";
    Photograph(S("names-workout"));
    QWheelEvent notch({300, 200}, m_Screen->mapToGlobal(QPointF(300, 200)), {}, {0, -120 * 60}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(At(S("picGame(0)"))->parentWidget()->parentWidget(), &notch);
    const QRect end = Place(S("picGame(39)"));
    EXPECT_TRUE(m_Screen->rect().contains(end)) << end.left() << ' ' << end.top() << ' ' << end.height();
    EXPECT_EQ(last->y(), 76 + 39 * 63);
    Photograph(S("names-workout-end"));
}

TEST_F(HardNamesTest, FillThePracticeScreenAndTheTable)
{
    StartWithHardGames();
    const auto game = *modMain::Games->begin();
    for (const auto &player : *modMain::Players)
        player->GamesPlayed().Add(player->Key, game->Key, 1000000 + player->Key, 59999, 1, 3, 1, 0);
    auto *list = new ctlGameList(m_Area.get());
    Open(list);
    list->SkinUp();
    list->LoadCatList();
    std::int32_t category = 1;
    for (const auto &each : *modMain::Categories) {
        if (each->Key == game->Category) break;
        ++category;
    }
    At<ctlButtonPanel>(S("cCatList"))->SetSelection(category);
    At<ctlButtonPanel>(S("cGameList"))->SetSelection(1);
    EXPECT_EQ(Text(S("lblName(0)")), HardNames()[7]);
    EXPECT_EQ(Overlaps({S("lblName")}), QStringList());
    Photograph(S("names-practice"));
}

TEST_F(HardNamesTest, FillTheProgressScreen)
{
    StartWithHardGames();
    modMain::CurrentPlayer = modMain::Players->Item(1);
    const auto workout = GivenWorkout(Today());
    CPlayer &player = *modMain::CurrentPlayer;
    for (const auto &category : *modMain::Categories) {
        const auto &games = category->Games();
        if (games.Count() > 0)
            workout->GamesPlayed().Add(player.Key, (*games.begin())->Key, 50, 30, 40 + 9 * category->Key, 1, 1, 0);
    }
    auto *info = new ctlUserInfo(m_Area.get());
    Open(info);
    info->ShowDetails(1);
    EXPECT_EQ(Overlaps(), QStringList());
    Photograph(S("names-progress-rows"));
    info->ShowDetails(2);
    const LarkChart &chart = *At<LarkChart>(S("LarkChart1"));
    EXPECT_LE(chart.PlotArea().top(), chart.height() * 2 / 5) << "the key leaves the plot its room";
    Photograph(S("names-progress"));
}

TEST_F(HardNamesTest, StandOnInstructionsAndInTheStripBelowAGame)
{
    StartWithHardGames();
    auto *page = new ctlGameInstructions(m_Area.get());
    Open(page);
    auto *strip = new ctlGamePlaySummary(m_Area.get());
    strip->setGeometry(0, 478, 632, 30);
    strip->show();
    int n = 0;
    for (const QString &name : HardNames()) {
        for (const auto &game : *modMain::Games)
            if (game->Name().startsWith(name)) {
                page->ShowInstructions(game);
                strip->SetGameName(game->Name());
                break;
            }
        strip->SetPlayerName(name);
        strip->SetTimeLimit(60);
        strip->SetTimeLeft(7 * n);
        strip->SetComplete(14 * n);
        EXPECT_TRUE(Text(S("lblGameName")).startsWith(name));
        EXPECT_EQ(Overlaps(), QStringList());
        Photograph(S("names-instructions-%1").arg(n++));
    }
}
