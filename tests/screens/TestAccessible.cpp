// What a screen reader meets: the role and the name of every control of each screen, in the order of the tree.
#include "ShownScreens.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"
#include "skin/ctlButtonPanel.h"

#include <QAccessible>
#include <QMap>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

const QMap<QAccessible::Role, QString> &RoleNames()
{
    static const QMap<QAccessible::Role, QString> names{
        {QAccessible::Button, S("button")},     {QAccessible::StaticText, S("text")},
        {QAccessible::EditableText, S("edit")}, {QAccessible::Graphic, S("picture")},
        {QAccessible::Chart, S("chart")},       {QAccessible::Grouping, S("group")},
        {QAccessible::List, S("list")},         {QAccessible::ListItem, S("item")},
        {QAccessible::ScrollBar, S("bar")},     {QAccessible::Client, S("-")}};
    return names;
}

class AccessibleScreens : public ShownScreens
{
protected:
    /// "button Play; text Ann", of what is visible below the screen. Containers without a role or name are left out;
    /// any other without a name is told as "?".
    QString Told()
    {
        QStringList told;
        Walk(QAccessible::queryAccessibleInterface(m_Screen), told);
        return told.join(S("; "));
    }
    static QAccessibleInterface *Of(QWidget *control) { return QAccessible::queryAccessibleInterface(control); }

private:
    static void Walk(QAccessibleInterface *from, QStringList &told)
    {
        for (int i = 0; i < from->childCount(); ++i) {
            QAccessibleInterface *child = from->child(i);
            if (child == nullptr || child->state().invisible) continue;
            const QString name = child->text(QAccessible::Name);
            const bool isGround = child->role() == QAccessible::Client || child->role() == QAccessible::Pane;
            const bool isContainer = isGround && name.isEmpty();
            if (!isContainer)
                told << RoleNames().value(child->role(), S("role %1").arg(child->role())) + u' ' +
                            (name.isEmpty() ? S("?") : name);
            if (child->role() != QAccessible::ScrollBar && child->role() != QAccessible::EditableText)
                Walk(child, told);
        }
    }
};
} // namespace

TEST_F(AccessibleScreens, TheChoiceOfPlayerIsButtons)
{
    ShowPlayers({S("Ann"), S("Bob & <b>Co</b>")});
    EXPECT_EQ(Told().toStdString(), std::string("button Ann; button Bob & <b>Co</b>; button New player"));
}

TEST_F(AccessibleScreens, TheNameIsABoxWithItsTitle)
{
    ShowName();
    EXPECT_EQ(Told().toStdString(), std::string("text Player:; edit Player:; button Edit; button Delete"));
    auto *box = At(S("txtName"));
    EXPECT_EQ(Of(box)->text(QAccessible::Value), S("Ann"));
    EXPECT_TRUE(Of(box)->state().readOnly);
    Click(S("cmdUpdate"));
    EXPECT_FALSE(Of(box)->state().readOnly);
    EXPECT_EQ(Of(At(S("cmdUpdate")))->text(QAccessible::Name), Word(504));
}

TEST_F(AccessibleScreens, TheWorkoutTellsTilesRowsAndWhichTileIsChosen)
{
    BeginWorkout();
    ShowWorkout();
    EXPECT_EQ(Told().toStdString(),
              std::string("text Workout of 5-Mar-2026; text Some games are still to be played; "
                          "button Attention, to do; text Attention; text to do; "
                          "picture Arrows; text Arrows; text Level 1; button Play; button Instructions; "
                          "button Logic, 96; text Logic; text 96; "
                          "button Memory, to do; text Memory; text to do; "
                          "picture Beacons; text Beacons; text Level 1; text another day"));
    const auto isChosen = [&](const char *tile) {
        const QAccessible::State state = Of(At(S(tile)))->state();
        return state.selectable && state.selected;
    };
    EXPECT_TRUE(isChosen("picCat(0)"));
    EXPECT_FALSE(isChosen("picCat(1)"));
    Click(S("picCat(1)"));
    EXPECT_FALSE(isChosen("picCat(0)"));
    EXPECT_TRUE(isChosen("picCat(1)"));
}

// What is told by colour is told by a shape or a word besides: seen by who sees no colours.
TEST_F(AccessibleScreens, NothingIsToldByColourAlone)
{
    BeginWorkout();
    ShowWorkout();
    const auto grey = [&](const char *tile) {
        const QImage picture = At(S(tile))->grab().toImage();
        return picture.convertToFormat(QImage::Format_Grayscale8);
    };
    const auto rim = [&](const char *tile) { return qGray(grey(tile).pixel(100, 0)); };
    const auto ground = [&](const char *tile) { return qGray(grey(tile).pixel(100, 50)); };
    const auto tick = [&](const char *tile) {
        int dark = 0;
        const QImage picture = grey(tile);
        for (int y = 25; y < 56; ++y)
            for (int x = 160; x < 190; ++x) dark += qGray(picture.pixel(x, y)) < 170 ? 1 : 0;
        return dark;
    };
    EXPECT_GT(ground("picCat(0)") - rim("picCat(0)"), 60) << "the chosen tile has a dark frame beside its yellow";
    EXPECT_LT(ground("picCat(2)") - rim("picCat(2)"), 60);
    EXPECT_GT(tick("picCat(1)"), 100) << "a category that is done has its tick";
    EXPECT_EQ(tick("picCat(2)"), 0);
    EXPECT_EQ(Text(S("lblCatScore(1)")), S("96"));
    EXPECT_EQ(Text(S("lblCatScore(2)")), Word(316));
}

TEST_F(AccessibleScreens, PracticeTellsPanelsButtonsAndTheTable)
{
    GivenGame(S("Arrows"), S("Attention"), S("timelimit=60\r\nlevels=2"));
    Start();
    const auto ann = GivenPlayer(S("Ann"));
    ann->GamesPlayed().Add(ann->Key, Game(S("Arrows"))->Key, 90, 65, 90, 3, 1, 0);
    auto *list = new ctlGameList(m_Area.get());
    Open(list);
    list->SkinUp();
    list->LoadCatList();
    At<ctlButtonPanel>(S("cCatList"))->SetSelection(1);
    At<ctlButtonPanel>(S("cGameList"))->SetSelection(1);
    const QString told = Told();
    for (const char *part :
         {"text Practise a game", "text Choose a category", "button Attention", "button Arrows", "button Level 1",
          "button Level 2", "button Play", "button Instructions", "text Best results", "group Best results",
          "text 1.", "text Ann", "text 90%", "text 1:05", "text 05-Mar-26"})
        EXPECT_TRUE(told.split(S("; ")).contains(S(part))) << part << " in " << told.toStdString();
    EXPECT_FALSE(told.contains(u'?')) << told.toStdString();
    EXPECT_EQ(Of(At(S("tblBestTimes")))->text(QAccessible::Description), S("1. Ann 90% 1:05 05-Mar-26"));
}

TEST_F(AccessibleScreens, TheScoreSiteIsALink)
{
    modMain::Online = true;
    auto *list = new ctlGameList(m_Area.get());
    Open(list);
    EXPECT_EQ(Of(At(S("lblURL")))->role(), QAccessible::Link);
    EXPECT_EQ(Of(At(S("lblURL")))->text(QAccessible::Name), Text(S("lblURL")));
    EXPECT_EQ(Of(At(S("lblNewGames")))->role(), QAccessible::StaticText);
}

TEST_F(AccessibleScreens, ProgressTellsRowsAndTheChart)
{
    BeginWorkout();
    ctlUserInfo &info = ShowWorkoutRows();
    EXPECT_EQ(Told(),
              S("text Current Workout; text Attention; button Go; text Logic; text 96; text Memory; button Go"));
    info.ShowDetails(2);
    auto *chart = At(S("LarkChart1"));
    EXPECT_EQ(Of(chart)->role(), QAccessible::Chart);
    EXPECT_EQ(Of(chart)->text(QAccessible::Name), S("Progress"));
    EXPECT_EQ(Of(chart)->text(QAccessible::Description), S("Attention: –; Logic: 96; Memory: –"));
}

TEST_F(AccessibleScreens, InstructionsAndTheStripTellWhatTheyShow)
{
    ctlGameInstructions &page = ShowInstructions(R"({\rtf1\ansi Look at the arrows.\par})");
    EXPECT_EQ(Told(),
              S("text Arrows; text ") + Text(S("lblTimeAllowed")) + S("; edit Arrows; button Play; button Cancel"));
    EXPECT_TRUE(Of(At(S("txtInstructions")))->state().readOnly);
    page.hide();

    auto *strip = new ctlGamePlaySummary(m_Area.get());
    Open(strip);
    strip->SetGameName(S("Arrows"));
    strip->SetPlayerName(S("Ann"));
    strip->SetTimeLimit(60);
    strip->SetTimeLeft(12);
    strip->SetComplete(40);
    const QString told = Told();
    for (const QString &part :
         {S("text Arrows"), S("text Ann"), S("text ") + Word(4500) + S(" 40%"), S("text ") + Word(4501) + S(" 12")})
        EXPECT_TRUE(told.split(S("; ")).contains(part)) << part.toStdString() << " in " << told.toStdString();
}
