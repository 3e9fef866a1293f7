// Every screen of the whole program with both delivered skins, for a player who begins, a family that has used it for
// a month, and one that has for years: eight players, twelve categories, forty games in one, three thousand workouts,
// and names as people have them. Pictures of all of them, to be looked at, are left in the build tree.
#include "tests/shell/support/FaceTest.h"

#include "platform/LarkChart.h"
#include "platform/store/Connection.h"
#include "platform/store/Statement.h"

#include "shell/program/modMain.h"

#include "domain/CGame.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"

#include "screens/ctlPlayerlist.h"

#include <QDir>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

struct Household
{
    const char *Name;
    int Players, Categories, GamesOfTheFirst, Games, Workouts;
};
constexpr Household Beginner{"1-first-day", 1, 2, 1, 1, 1};
constexpr Household Family{"2-family", 4, 6, 3, 3, 30};
constexpr Household Years{"3-years", 8, 12, 40, 3, 3000};

const char *const PlayerNames[] = {"Ann & Bob",
                                   "Maximiliane Theodora von Hohenstein-Breitenbach",
                                   "Ελένη Παπαδοπούλου",
                                   "ليلى عبد الرحمن",
                                   "山田花子",
                                   "<b>Carl</b>",
                                   "Dora",
                                   "Émile"};
const char *const CategoryNames[] = {"Attention", "Language", "Logic",  "Memory", "Numbers", "Observation",
                                     "Patience",  "Réaction", "Shapes", "Σκέψη",  "Speed",   "Word finding & more"};
const char *const GameNames[] = {"Arrows", "The long road to the lighthouse", "<b>Bold</b> & brave", "Κύβοι", "数独"};

class FilledScreens : public FaceTest, public testing::WithParamInterface<std::tuple<const char *, Household>>
{
protected:
    QString Skin() const { return QLatin1String(std::get<0>(GetParam())); }
    const Household &Home() const { return std::get<1>(GetParam()); }

    void SetUp() override
    {
        Program.GivenDelivered(S("skins/") + Skin());
        QDir(Program.Folder.Path() + S("looking")).removeRecursively(); // no game but those below
        for (int category = 0; category < Home().Categories; ++category)
            for (int game = 0; game < (category == 0 ? Home().GamesOfTheFirst : Home().Games); ++game)
                GivenGame(category, game);
        StartWith(Skin());
        FillStore();
        modMain::Players->Load(); // as if they had been there at the start
        Program.Find<ctlPlayerlist>("ctlPlayerlist1")->ListPlayers();
    }
    void GivenGame(int category, int game)
    {
        const QString folder = S("g%1-%2").arg(category).arg(game);
        const QString name =
            S("%1 %2").arg(QString::fromUtf8(GameNames[(category + game) % 5])).arg(category * 50 + game);
        Program.GivenGame(folder, {S("name=") + name, S("component=None"), S("timelimit=60"), S("levels=12"),
                                   S("category=") + QString::fromUtf8(CategoryNames[category])});
        Program.Folder.Write(folder + S("/Instructions.rtf"),
                             R"({\rtf1\ansi{\colortbl;\red180\green0\blue0;}\b\fs32 How to play\b0\fs24\par )"
                             R"(Press the key that \cf1 matches\cf0  the picture.\par)"
                             R"(\bullet\tab Each right one counts ten points.\par)"
                             R"(\bullet\tab Each wrong one takes five seconds.\par})");
    }
    /// Results of every past day, that a formula gives, so that each run shows the same.
    void FillStore()
    {
        Connection store;
        store.Open(Program.Folder.Path() + S("Noggle.mdb"));
        const auto run = [&](const QString &sql, const QVariantList &values = {}) {
            Statement statement(store.Handle(), sql);
            for (qsizetype i = 0; i < values.size(); ++i) statement.Bind(static_cast<int>(i), values[i]);
            while (statement.Step()) {
            }
        };
        run(S("begin"));
        for (int i = 0; i < Home().Players; ++i)
            run(S("insert into Player (PlayerName) values (?)"), {QString::fromUtf8(PlayerNames[i])});
        const double today = 46083; // 2 March 2026
        run(S("with recursive N(n) as (values(1) union all select n + 1 from N where n < ?) insert into Workout "
              "(WorkoutPlayer, WorkoutPoints, WorkoutStatus, WorkoutMode, WorkoutTimestamp) "
              "select 1, 0, n < ?, 1, ? - ? + n from N"),
            {Home().Workouts, Home().Workouts, today, Home().Workouts});
        run(S("insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, "
              "GamePlayedPoints, GamePlayedTime, GamePlayedMode, GamePlayedLevel, GamePlayedAward, "
              "GamePlayedUploaded, "
              "GamePlayedWorkout) select 1, First, WorkoutTimestamp + 0.4, 50, 40 + GameCategory * 9 + "
              "(WorkoutKey * 37 + GameCategory * 91) % 50 + WorkoutKey * 70 / (? + 10), 30, 1, 1, "
              "WorkoutKey % 3 = 0, 0, WorkoutKey from Workout, (select min(GameKey) as First, GameCategory from Game "
              "group by GameCategory) where (WorkoutKey + GameCategory) % 11 <> 0 and "
              "(WorkoutKey < ? or GameCategory <> (select CategoryKey from Category where CategoryName = "
              "'Attention')) order by WorkoutKey, GameCategory"),
            {Home().Workouts, Home().Workouts});
        run(S("insert into GamePlayed (GamePlayedPlayer, GamePlayedGame, GamePlayedTimestamp, GamePlayedScore, "
              "GamePlayedPoints, GamePlayedTime, GamePlayedMode, GamePlayedLevel, GamePlayedAward, "
              "GamePlayedUploaded) "
              "select PlayerKey, GameKey, ? - PlayerKey * 13, 100 - PlayerKey * 3, 100, 40 + PlayerKey * 17, 3, 1, "
              "0, 0 "
              "from Player, Game"),
            {today});
        run(S("insert into PlayerGame (PlayerGamePlayer, PlayerGameGame, PlayerGameInfo, PlayerGameLevel, "
              "PlayerGameAwards, PlayerGameUnspentAwards) select 1, GameKey, '', 1 + GameKey % 5, GameKey * 7 % 41, "
              "GameKey % 3 from Game"));
        run(S("commit"));
    }

    void Look(const char *screen)
    {
        QTest::mouseMove(Window().windowHandle(), QPoint(Window().width() / 2, 2));
        RunningProgram::Turn(300);
        QImage shown = Shown();
        const double scale = shown.devicePixelRatio();
        shown.setDevicePixelRatio(1);
        QImage picture(shown.size(), QImage::Format_RGB32);
        picture.fill(QColor(0x70, 0x78, 0x80));
        QPainter(&picture).drawImage(0, 0, shown);
        const QString folder = S("%1/%2").arg(S(NOGGLE_FILLED_PICTURES)).arg(scale);
        QDir().mkpath(folder);
        ASSERT_TRUE(picture.save(S("%1/%2-%3-%4.png").arg(folder, Skin(), S(Home().Name), S(screen))));
    }
    /// Whether all of a control lies in the game area: what is to be used is not cut off.
    bool IsWhole(const char *name) const
    {
        const QWidget *control = Program.Find(name);
        const QWidget *area = Program.Find("picPrint");
        return control->isVisible() && area->rect().contains(QRect(control->mapTo(area, QPoint()), control->size()));
    }
    /// Where Tab leads from the first control of a screen until it comes round.
    QString TabWalk(const char *first) const
    {
        Program.Find(first)->setFocus();
        QStringList names;
        for (const QWidget *at = Window().focusWidget(); at != nullptr && !names.contains(at->objectName());
             at = Window().focusWidget()) {
            names << at->objectName();
            QTest::keyClick(Window().windowHandle(), Qt::Key_Tab);
        }
        return names.join(u' ');
    }
    int Shown(const char *array) const
    {
        int count = 0;
        const QRegularExpression element(S("^%1\\(").arg(S(array)));
        for (const QWidget *control : Window().findChildren<QWidget *>(element))
            count += control->isVisible() ? 1 : 0;
        return count;
    }
    using FaceTest::Shown;
};
} // namespace

TEST_P(FilledScreens, AreWholeOnEveryScreen)
{
    Program.ClickPlayer(S(PlayerNames[0]));
    ASSERT_EQ(Window().Mode(), 2);
    const QString category = S(CategoryNames[0]);
    Program.ClickRow("cCatList", category);
    const auto &games = modMain::Categories->CategoryByName(category)->Games();
    Program.ClickRow("cGameList", (*games.begin())->Name());
    for (const char *name : {"lblTitle", "cmdPlay", "cmdInstructions", "lblBestTime", "lblDate(4)", "tblBestTimes"})
        EXPECT_TRUE(IsWhole(name)) << name;
    Look("practice");
    Program.Click("cmdInstructions");
    for (const char *name : {"lblGameName", "lblTimeAllowed", "txtInstructions", "butStartGame", "butCancelGame"})
        EXPECT_TRUE(IsWhole(name)) << name;
    Look("instructions");
    Program.Click("butCancelGame");

    EXPECT_NE(Window().childAt(Program.Find("lblTime")->geometry().center()), Program.Find("lblTime"))
        << "an empty label is not in the way of a drag";

    Program.ClickMenu(S("progress"));
    EXPECT_EQ(Program.Find<LarkChart>("LarkChart1")->AllSeries().size(), static_cast<std::size_t>(Home().Categories));
    Look("progress");
    Window().ShowPlayer(1, 0); // no menu leads there
    EXPECT_EQ(Shown("lblCategory"), Home().Categories);
    Look("progress-rows");

    Program.ClickMenu(S("exercise"));
    ASSERT_EQ(Window().Mode(), 6);
    EXPECT_EQ(Shown("picCat"), Home().Categories);
    EXPECT_EQ(Shown("picGame"), Home().GamesOfTheFirst);
    EXPECT_EQ(Shown("butPlay"), 1);
    EXPECT_TRUE(IsWhole("lblWorkout"));
    EXPECT_TRUE(IsWhole("picCat(0)"));
    Look("workout");

    Program.Click("cmdUpdate");
    Look("workout-name-edited");
    Program.ClickMenu(S("change player"));
    EXPECT_EQ(Program.PlayerButtons().size(), std::min(Home().Players + 1, 8));
    Look("players");
    EXPECT_TRUE(Program.PlainBoxes.isEmpty()) << Program.PlainBoxes.join(u' ').toStdString();
}

TEST_P(FilledScreens, AreWalkedFromTheStripThroughTheScreenToTheMenu)
{
    const auto elements = [](const char *name, int count) {
        QStringList all;
        for (int i = 0; i < count; ++i) all << S("%1(%2)").arg(S(name)).arg(i);
        return all.join(u' ') + u' ';
    };
    const QString strip = S("txtName cmdUpdate cmdDelete ");
    EXPECT_EQ(TabWalk("butPlayer(0)"), elements("butPlayer", std::min(Home().Players + 1, 8)) + S("ctlButtonPanel1"));
    Program.ClickPlayer(S(PlayerNames[0]));
    EXPECT_EQ(TabWalk("txtName"), strip + S("cCatList tblBestTimes ctlButtonPanel1"));
    Program.ClickMenu(S("progress"));
    EXPECT_EQ(TabWalk("txtName"), strip + S("LarkChart1 ctlButtonPanel1"));
    Program.ClickMenu(S("exercise"));
    const QString walk = TabWalk("txtName");
    EXPECT_TRUE(walk.startsWith(strip + elements("picCat", Home().Categories) + S("butPlay("))) << walk.toStdString();
    EXPECT_TRUE(walk.endsWith(S(" ctlButtonPanel1"))) << walk.toStdString();
}

INSTANTIATE_TEST_SUITE_P(SkinsAndHouseholds, FilledScreens,
                         testing::Combine(testing::Values("Meadow", "Night"),
                                          testing::Values(Beginner, Family, Years)),
                         [](const auto &each) {
                             std::string name = std::string(std::get<0>(each.param)) + std::get<1>(each.param).Name;
                             name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c == '-'; }),
                                        name.end());
                             return name;
                         });
