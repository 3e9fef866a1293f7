// Every word of the screens comes from the language module, by its number: here it is the German one, whose words
// stand nowhere in the program.
#include "ShownScreens.h"
#include "platform/Clock.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"
#include "skin/ctlButtonPanel.h"

#include <QRegularExpression>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class ScreenWords : public ShownScreens
{
protected:
    ScreenWords() { SpeakGerman(); }
    std::string Says(const char *name) { return Text(S(name)).toStdString(); }
};
} // namespace

TEST_F(ScreenWords, OfThePlayers)
{
    ShowPlayers({S("Ann")});
    EXPECT_EQ(Says("butPlayer(1)"), "Neuer Spieler");
    auto *strip = new PlayerName(m_Area.get());
    Open(strip);
    strip->SkinUp();
    EXPECT_EQ(Says("lblTitle"), "Spieler:");
    EXPECT_EQ(Says("cmdUpdate"), "Ändern");
    EXPECT_EQ(Says("cmdDelete"), "Löschen");
    strip->ShowDetails();
    Click(S("cmdUpdate"));
    EXPECT_EQ(Says("cmdUpdate"), "Speichern");
    Photograph(S("german-strip"));
    Click(S("cmdUpdate"));
    EXPECT_EQ(Says("cmdUpdate"), "Ändern");
    Click(S("cmdDelete"));
    EXPECT_TRUE(m_Framework->TakeLast().Message.startsWith(S("Möchtest du diesen Spieler löschen?")));
}

TEST_F(ScreenWords, OfTheWorkout)
{
    StartWithSixGames();
    GivenPlayer(S("Ann"));
    ctlWorkOut &screen = ShowWorkout();
    EXPECT_EQ(Says("lblWorkout"), "Bereit für ein Training?");
    EXPECT_EQ(Says("butNextWorkout"), "Training starten");
    EXPECT_EQ(Says("lblLevel(0)"), "Stufe 1");
    Click(S("butNextWorkout"));
    EXPECT_EQ(Says("lblWorkout"), "Training vom 5-Mar-2026");
    EXPECT_EQ(Says("lblNextDue"), "Es sind noch Spiele offen");
    EXPECT_EQ(Says("lblCatScore(0)"), "offen");
    EXPECT_EQ(Says("butPlay(0)"), "Spielen");
    EXPECT_EQ(Says("butInstructions(0)"), "Anleitung");
    EXPECT_EQ(Says("lblPoints(1)"), "ein andermal");
    Photograph(S("german-workout"));
    for (const char *game : {"Arrows", "Corners", "Echoes"}) Finish(QLatin1String(game), 50);
    screen.ListCats(false);
    EXPECT_EQ(Says("lblPoints(0)"), "Punkte: 50");
    EXPECT_EQ(Says("lblNextDue"), "Nächstes Training: 6-Mar-2026");
    EXPECT_EQ(Says("lblMessage"), "Gut gemacht! Du hast dein Training geschafft.");
    Photograph(S("german-workout-done"));
}

TEST_F(ScreenWords, OfPractice)
{
    GivenGame(S("Arrows"), S("Attention"), S("timelimit=60\r\nlevels=2"));
    Start();
    GivenPlayer(S("Ann"));
    auto *list = new ctlGameList(m_Area.get());
    Open(list);
    list->LoadCatList();
    const std::vector<std::pair<const char *, const char *>> table{{"lblTitle", "Ein Spiel üben"},
                                                                   {"lblCat", "Kategorie wählen"},
                                                                   {"lblGame", "Spiel wählen"},
                                                                   {"lblLevel", "Stufe wählen"},
                                                                   {"cmdPlay", "Spielen"},
                                                                   {"cmdInstructions", "Anleitung"},
                                                                   {"lblBestTime", "Beste Ergebnisse"},
                                                                   {"lblNameTitle", "Spieler"},
                                                                   {"lblScoreTitle", "Punkte"},
                                                                   {"lblTimeTitle", "Zeit"},
                                                                   {"lblDateTitle", "Datum"}};
    for (const auto &[name, word] : table) EXPECT_EQ(Says(name), word) << name;
    At<ctlButtonPanel>(S("cCatList"))->SetSelection(1);
    At<ctlButtonPanel>(S("cGameList"))->SetSelection(1);
    QStringList levels;
    for (const QWidget *row : At(S("cLevels"))->findChildren<QWidget *>(QRegularExpression(S("^picNormal"))))
        levels << row->accessibleName();
    EXPECT_EQ(levels.join(u'|').toStdString(), "Stufe 1|Stufe 2");
    Photograph(S("german-practice"));
}

TEST_F(ScreenWords, OfTheInstructionsAndTheStripBelowAGame)
{
    ctlGameInstructions &page = ShowInstructions(R"({\rtf1\ansi Look.\par})");
    EXPECT_EQ(Says("butStartGame"), "Spielen");
    EXPECT_EQ(Says("butCancelGame"), "Abbrechen");
    EXPECT_EQ(Says("lblTimeAllowed"), "Erlaubte Zeit: 60 Sekunden");
    Game(S("Arrows"))->TimeLimit = 0;
    page.ShowInstructions(Game(S("Arrows")));
    EXPECT_EQ(Says("lblTimeAllowed"), "Ohne Zeitgrenze");
    Photograph(S("german-instructions"));
    auto *strip = new ctlGamePlaySummary(m_Area.get());
    Open(strip);
    strip->SetComplete(40);
    EXPECT_EQ(Says("lblPercent"), "Geschafft: 40%");
    strip->SetTimeLimit(60);
    strip->SetTimeLeft(12);
    EXPECT_EQ(Says("lblTime"), "Noch Zeit: 12");
    strip->SetTimeLimit(0);
    strip->SetTimeLeft(-65);
    EXPECT_EQ(Says("lblTime"), "Zeit bisher: 1:05");
}

// The progress screen speaks as its form was drawn.
TEST_F(ScreenWords, OfProgressAreThoseOfItsDesign)
{
    BeginWorkout();
    ShowWorkoutRows();
    EXPECT_EQ(Says("lblWorkout"), "Current Workout");
    EXPECT_EQ(Says("butGo(0)"), "Go");
    EXPECT_EQ(Says("butComplete"), "Complete");
}
