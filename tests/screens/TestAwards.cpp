#include "WorkOutTest.h"
#include "platform/Clock.h"
#include "screens/Awards.h"
#include "sdk/controls/PictureBox.h"

#include <QPainter>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class ShownAwards : public WorkOut
{};

// On a ground of the colour, seen wherever the picture has the colour of its top left pixel.
QImage OnGround(const char *name, QRgb ground)
{
    QImage picture = QImage(S(":/pictures/") + QLatin1String(name) + S(".gif")).convertToFormat(QImage::Format_RGB32);
    const QRgb key = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) == key) picture.setPixel(x, y, ground);
    return picture;
}

constexpr QRgb Yellow = 0xffffff00; // a tile that is chosen

// Which of the four pictures stand on a ground at a place and every 20 pixels to its right, by their first letter.
QString AwardsOn(const QImage &Surface, const QPoint &From, const QColor &Ground)
{
    QString drawn;
    for (int x = From.x(); x + 20 <= Surface.width(); x += 20) {
        const QImage place = Surface.copy(x, From.y(), 20, 20).convertToFormat(QImage::Format_RGB32);
        for (const char *name : {"crown", "trophy", "medal", "star"})
            if (place == OnGround(name, Ground.rgb())) drawn += QLatin1Char(*name);
    }
    return drawn;
}

QString Drawn(std::int32_t Count)
{
    QImage surface(400, 20, QImage::Format_RGB32);
    surface.fill(Yellow);
    QPainter painter(&surface);
    DrawAwards(painter, 0, 0, Count);
    painter.end();
    return AwardsOn(surface, {0, 0}, QColor::fromRgb(Yellow));
}
} // namespace

TEST_F(ShownAwards, TilesShowAllAwardsAndRowsThoseThatAreLeft)
{
    StartWithAnn();
    const auto state = [](const char *game, std::int32_t awards, std::int32_t unspent) {
        const auto of = modMain::CurrentPlayer->GameData().Item(Game(QLatin1String(game))->Key);
        of->Awards = awards;
        of->UnspentAwards = unspent;
        of->Save();
    };
    state("Arrows", 4, 1);
    state("Beacons", 9, 2);
    state("Corners", 27, 0);
    const auto tile = [this](const char *name, const QColor &ground) {
        return AwardsOn(At<PictureBox>(S(name))->Surface(), {10, 30}, ground);
    };
    const auto row = [this](const char *name) {
        return AwardsOn(At<PictureBox>(S(name))->Surface(), {65, 30}, Qt::white);
    };
    ctlWorkOut &screen = Show(); // without a workout as with one
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(tile("picCat(0)", Qt::yellow), S("tms")) << "13 awards";
        EXPECT_EQ(tile("picCat(1)", Qt::white), S("c"));
        EXPECT_EQ(tile("picCat(2)", Qt::white), QString());
        EXPECT_EQ(row("picGame(0)"), S("s"));
        EXPECT_EQ(row("picGame(1)"), S("ss"));
        GivenWorkout(Today());
        screen.ListCats(false);
    }
    Click(S("picCat(1)"));
    EXPECT_EQ(row("picGame(0)"), QString()) << "nothing of the row before";
}

TEST_F(ShownAwards, ARowOfTodayShowsAStarForItsAwardAlone)
{
    StartWithAnn();
    GivenWorkout(Today());
    Finish(S("Arrows"), 140, 1);
    Finish(S("Corners"), 96, 0);
    Show();
    const auto star = [this] {
        return AwardsOn(At<PictureBox>(S("picGame(0)"))->Surface(), {275 - 25, 5}, Qt::white);
    };
    EXPECT_EQ(star(), S("s"));
    Click(S("picCat(1)"));
    EXPECT_EQ(star(), QString());
}

TEST(Awards, AreDrawnInBaseThreeBiggestFirst)
{
    EXPECT_EQ(Drawn(0), QString());
    EXPECT_EQ(Drawn(1), S("s"));
    EXPECT_EQ(Drawn(2), S("ss"));
    EXPECT_EQ(Drawn(3), S("m"));
    EXPECT_EQ(Drawn(26), S("ttmmss"));
    EXPECT_EQ(Drawn(27), S("c"));
    EXPECT_EQ(Drawn(40), S("ctms"));
    EXPECT_EQ(Drawn(-5), QString());
    EXPECT_EQ(Drawn(2147483647).size(), 20) << "what is beyond the surface is not drawn";
}

TEST(Awards, StarAndTickLetTheGroundShowWhereTheyHaveTheirKeyColour)
{
    QImage surface(60, 40, QImage::Format_RGB32);
    surface.fill(Yellow);
    QPainter painter(&surface);
    DrawStar(painter, 2, 3);
    DrawTick(painter, 25, 5);
    painter.end();
    EXPECT_EQ(surface.copy(2, 3, 20, 20), OnGround("star", Yellow));
    EXPECT_EQ(TickWidth(), 30);
    EXPECT_EQ(surface.copy(25, 5, 30, 31), OnGround("tick", Yellow));
}
