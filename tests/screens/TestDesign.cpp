// Where every control stands at the size that its screen was designed in, what it says before it has words, and how
// it writes. What a screen centres or moves stands where its layout puts it.
#include "ScreenTest.h"
#include "screens/PlayerName.h"
#include "screens/ctlGameInstructions.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"
#include "screens/ctlPlayerlist.h"
#include "screens/ctlUserInfo.h"
#include "screens/ctlWorkOut.h"
#include "sdk/controls/TransLabel.h"

#include <vector>

namespace
{
struct Designed
{
    const char *Name;
    QRect Place;         // [px] in what it stands on: the screen, a tile, a row, a strip
    const char *Caption; // null where the screen has replaced it already, or there is none
    double Points = 0;   // 0 where nothing is written
    bool Bold = false;
    int Alignment = 0; // across; 0 where nothing is told
};
constexpr int Left = Qt::AlignLeft, Right = Qt::AlignRight, Middle = Qt::AlignHCenter;

class Design : public ScreenTest
{
protected:
    Design()
    {
        StartWithSixGames();
        modMain::Online = true; // shows what is hidden else, and its place
    }

    template <typename Shown>
    void Compare(const QSize &size, const std::vector<Designed> &table)
    {
        auto *screen = new Shown(m_Area.get());
        m_Screen = screen;
        EXPECT_EQ(screen->size(), size);
        screen->MakeTextBoxes();
        for (const Designed &row : table) Compare(row);
    }
    void Compare(const Designed &row)
    {
        const QWidget *control = At(QLatin1String(row.Name));
        // The sheet that rows may scroll on has the places of the screen.
        EXPECT_EQ(control->geometry(), row.Place) << row.Name;
        if (row.Caption != nullptr) {
            EXPECT_EQ(Text(QLatin1String(row.Name)).toStdString(), row.Caption) << row.Name;
        }
        if (row.Points > 0) {
            EXPECT_EQ(control->font().pixelSize(), qRound(row.Points * 96 / 72)) << row.Name;
            EXPECT_EQ(control->font().bold(), row.Bold) << row.Name;
        }
        const auto *label = qobject_cast<const TransLabel *>(control);
        if (row.Alignment != 0) {
            EXPECT_EQ(int(label->Alignment() & Qt::AlignHorizontal_Mask), row.Alignment) << row.Name;
        }
        if (label != nullptr && !QByteArrayList{"lblMessage", "lblURL"}.contains(row.Name)) {
            EXPECT_EQ(label->ForeColour(), QColor(Qt::black)) << row.Name;
        }
    }
};
} // namespace

TEST_F(Design, BoxesOfTextComeWithTheFirstShow)
{
    auto *strip = new PlayerName(m_Area.get());
    auto *page = new ctlGameInstructions(m_Area.get());
    strip->hide();
    page->hide();
    m_Area->show();
    EXPECT_EQ(strip->findChild<QWidget *>(QStringLiteral("txtName")), nullptr);
    EXPECT_EQ(page->findChild<QWidget *>(QStringLiteral("txtInstructions")), nullptr);
    strip->show();
    page->show();
    EXPECT_TRUE(strip->findChild<QWidget *>(QStringLiteral("txtName"))->isVisible());
    EXPECT_TRUE(page->findChild<QWidget *>(QStringLiteral("txtInstructions"))->isVisible());
}

TEST_F(Design, OfTheChoiceOfPlayer)
{
    Compare<ctlPlayerlist>({376, 271}, {{"butPlayer(0)", {38, 10, 300, 50}, nullptr, 14.25, true}});
}

TEST_F(Design, OfTheStripWithTheName)
{
    Compare<PlayerName>({500, 44}, {{"shpDetails", {0, 0, 499, 44}, nullptr},
                                    {"picDetails", {2, 3, 496, 38}, nullptr},
                                    {"lblTitle", {0, 0, 113, 35}, "Player:", 15.75, true, Right},
                                    {"txtName", {118, 5, 157, 33}, "Name", 16, true},
                                    {"cmdUpdate", {254, 8, 120, 23}, "Edit"},
                                    {"cmdDelete", {376, 8, 120, 23}, "Delete"}});
}

TEST_F(Design, OfTheWorkout)
{
    Compare<ctlWorkOut>({522, 322}, {{"lblWorkout", {11, 2, 500, 33}, "Current Workout", 18, true, Middle},
                                     {"lblNextDue", {26, 36, 470, 33}, "Next workout:", 12, true, Middle},
                                     {"butNextWorkout", {201, 42, 120, 24}, "Start Workout"},
                                     {"lblMessage",
                                      {22, 273, 478, 44},
                                      "Well done - you have completed today's Brain Test. ",
                                      9.75,
                                      true,
                                      Middle},
                                     {"picCat(0)", {31, 76, 200, 59}, nullptr},
                                     {"lblCat(0)", {8, 0, 117, 27}, "Cat Name"},
                                     {"lblCatScore(0)", {82, 0, 102, 27}, "999", 0, false, Right},
                                     {"picGame(0)", {241, 76, 275, 59}, nullptr},
                                     {"lblGame(0)", {7, 2, 117, 27}, "Game Name"},
                                     {"lblLevel(0)", {5, 28, 60, 27}, "Level 1"},
                                     {"lblPoints(0)", {116, 1, 124, 27}, "Score: 999", 0, false, Right},
                                     {"butPlay(0)", {147, 3, 120, 24}, "Play"},
                                     {"butInstructions(0)", {147, 30, 120, 24}, "Instructions"}});
    EXPECT_EQ(At<TransLabel>(QStringLiteral("lblMessage"))->ForeColour(), QColor(0, 0, 255));
}

TEST_F(Design, OfTheInstructions)
{
    Compare<ctlGameInstructions>(
        {507, 350}, {{"lblGameName", {95, 0, 317, 25}, "Game Name", 14.25, true, Middle},
                     {"lblTimeAllowed", {94, 32, 318, 21}, "Time allowed: xx seconds", 9.75, true, Middle},
                     {"txtInstructions", {8, 60, 491, 261}, nullptr},
                     {"butStartGame", {256, 324, 120, 23}, "Start"},
                     {"butCancelGame", {379, 324, 120, 23}, "Cancel"}});
}

TEST_F(Design, OfTheStripBelowAGame)
{
    Compare<ctlGamePlaySummary>({573, 30}, {{"lblGame", {2, 2, 146, 22}, "Spelling Test", 9.75, true, Middle},
                                            {"picComplete", {151, 3, 132, 20}, nullptr},
                                            {"lblPercent", {0, 1, 127, 15}, "Complete: 100%"},
                                            {"picTime", {289, 3, 132, 20}, nullptr},
                                            {"lblTime", {3, 1, 124, 14}, "Time left: 99"},
                                            {"lblPlayer", {424, 2, 146, 22}, "Player Name", 9.75, true, Middle}});
}

TEST_F(Design, OfPractice)
{
    Compare<ctlGameList>({566, 447}, {{"lblTitle", {81, 3, 404, 33}, "Practice a Game", 18, true, Middle},
                                      {"lblCat", {39, 39, 144, 18}, "Select category >>"},
                                      {"lblGame", {205, 39, 144, 18}, "Select game >>"},
                                      {"lblLevel", {371, 39, 144, 18}, "Select level >>"},
                                      {"cCatList", {39, 60, 156, 138}, nullptr},
                                      {"cGameList", {205, 60, 156, 73}, nullptr},
                                      {"cLevels", {371, 61, 156, 108}, nullptr},
                                      {"cmdPlay", {389, 175, 120, 23}, "Play"},
                                      {"cmdInstructions", {389, 202, 120, 23}, "Instructions"},
                                      {"butUpload", {223, 202, 120, 23}, "Upload Scores"},
                                      {"lblBestTime", {98, 249, 337, 24}, "Best Times", 14.25, true, Middle},
                                      {"lblNewGames", {293, 430, 72, 13}, "for more games"},
                                      {"lblURL", {140, 430, 150, 13}, nullptr}});
}

TEST_F(Design, OfTheTableOfBestResults)
{
    Compare<ctlGameList>({566, 447}, {});
    const std::vector<std::pair<const char *, QPoint>> heads{{"lblNameTitle", {118, 275}},
                                                             {"lblScoreTitle", {224, 275}},
                                                             {"lblTimeTitle", {312, 275}},
                                                             {"lblDateTitle", {388, 275}}};
    for (const auto &[name, place] : heads) EXPECT_EQ(At(QLatin1String(name))->pos(), place) << name;
    const int tops[] = {297, 322, 348, 373, 399};
    for (int i = 0; i < 5; ++i) {
        const QByteArray at = "(" + QByteArray::number(i) + ")";
        const QByteArray number = QByteArray::number(i + 1) + ".";
        Compare({("lblPos" + at).constData(), {68, tops[i], 27, 21}, number.constData(), 0, false, Right});
        Compare({("lblName" + at).constData(), {118, tops[i], 107, 21}, "Player Name", 0, false, Left});
        Compare({("lblScore" + at).constData(), {228, tops[i], 43, 21}, "100%", 0, false, Middle});
        Compare({("lblTimeTaken" + at).constData(), {306, tops[i], 43, 21}, "99:99", 0, false, Middle});
        Compare({("lblDate" + at).constData(), {372, tops[i], 76, 21}, "99-XXX-99"});
    }
}

TEST_F(Design, OfProgress)
{
    Compare<ctlUserInfo>({505, 305}, {{"lblWorkout", {140, 16, 225, 28}, "Current Workout", 18, true, Middle},
                                      {"lblCategory(0)", {176, 131, 95, 20}, "Category", 14.25, true, Right},
                                      {"lblScore(0)", {283, 131, 43, 20}, "Score", 14.25, true},
                                      {"butGo(0)", {283, 128, 60, 23}, "Go"},
                                      {"butComplete", {192, 252, 120, 23}, "Complete"},
                                      {"LarkChart1", {0, 0, 505, 302}, nullptr}});
    EXPECT_FALSE(Shown(QStringLiteral("LarkChart1"))) << "at the start of the control";
}
