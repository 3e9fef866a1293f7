#include "games/hold-back/HoldRules.h"
#include "games/hold-back/HoldShapes.h"
#include "platform/Files.h"
#include "tests/games/stage/PacedStage.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QTest>
#include <QThread>

namespace
{
const QString Delivered = QStringLiteral(NOGGLE_DIST_FOLDER "hold-back/");
constexpr std::uint32_t Seed = 11;
constexpr int Enter = 13;
constexpr int Space = 32;
constexpr QPointF ButtonPlace{393, 327};
constexpr QPointF ShapePlace{393, 167};
constexpr QPointF StopPlace{95, 135};

/// The game on the stage, beside the same rules.
struct PlayedGame : PacedStage
{
    explicit PlayedGame(int percent = Quick)
        : PacedStage(QStringLiteral("HoldBack.GameArea"), Delivered, Seed, percent)
    {}

    void Begin(int level)
    {
        Known = std::make_unique<HoldRules>(level, Seed);
        Start(level);
    }
    bool IsStop() const { return Known->Items()[static_cast<std::size_t>(Number() - 1)].Kind == Known->StopKind(); }
    /// Plays rightly by the space bar until the shape in view is one to press, or to hold back for.
    bool PlayToA(bool stop)
    {
        bool isThere = false;
        return PlayUntil(
            [&] {
                isThere = IsStop() == stop;
                if (!isThere && !IsStop()) Key(Space);
            },
            [&] { return isThere; });
    }
    std::unique_ptr<HoldRules> Known;
};
} // namespace

TEST(HoldBack, IsPlayedToItsEndWithTheKeysAlone)
{
    PlayedGame game;
    game.UnloadAtTheEnd([&] { EXPECT_EQ(game.Score(), 125); }); // the shell asks for the points inside
    game.Begin(1);
    bool enter = false;
    EXPECT_TRUE(game.PlayUntil(
        [&] {
            enter = !enter;
            if (!game.IsStop()) game.Key(enter ? Enter : Space);
        },
        [&] { return game.IsOver(); }));
    EXPECT_EQ(game.Framework->Count(QStringLiteral("gameover")), 1);
    EXPECT_EQ(game.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(game.Sounds("tap"), 24);
    EXPECT_GE(game.Sounds("held"), 11);
    EXPECT_EQ(game.Sounds("done"), 1);
    EXPECT_EQ(game.Sounds("wrong"), 0);
}

TEST(HoldBack, IsPlayedWithTheMouseAloneAtEverySize)
{
    for (const QSize size : {QSize(620, 420), QSize(1600, 1000), QSize(900, 420)}) {
        PlayedGame game;
        game.Resize(size);
        game.Begin(1);
        bool button = false;
        EXPECT_TRUE(game.PlayUntil(
            [&] {
                button = !button;
                if (!game.IsStop()) game.Click(game.At(button ? ButtonPlace : ShapePlace));
            },
            [&] { return game.Number() > 6; }));
        EXPECT_EQ(game.Sounds("wrong"), 0);
        EXPECT_GT(game.Score(), 0) << size.width();
    }
}

TEST(HoldBack, TheStopShapeIsShownFirstAndNoPressCountsMeanwhile)
{
    PlayedGame game(100);
    EXPECT_EQ(game.Score(), 0) << "before the start";
    game.Key(Space);
    game.Begin(1);
    EXPECT_TRUE(game.Name().startsWith(game.Word("Stop"))) << qPrintable(game.Name());
    game.Key(Space);
    game.Click(game.At(ButtonPlace));
    EXPECT_EQ(game.Number(), 0);
    EXPECT_EQ(game.Sounds(""), 0);
}

TEST(HoldBack, TheNameTellsTheStopShapeAndEveryShapeInWords)
{
    PlayedGame game;
    game.Begin(6);
    const QString stop = game.Name().section(QStringLiteral(": "), 1);
    EXPECT_FALSE(stop.isEmpty());
    EXPECT_TRUE(game.PlayUntil(
        [&] {
            EXPECT_EQ(game.Name().section(QStringLiteral(": "), 1) == stop, game.IsStop());
            if (!game.IsStop()) game.Key(Space);
        },
        [&] { return game.Number() > 8; }));
}

TEST(HoldBack, APressForTheStopShapeIsToldAtOnce)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    const int before = game.Score();
    const int number = game.Number();
    game.Key(Space);
    EXPECT_EQ(game.Sounds("wrong"), 1);
    EXPECT_EQ(game.Description(), game.Word("Slip"));
    EXPECT_LE(game.Score(), before);
    game.Key(Space);
    EXPECT_EQ(game.Number(), number) << "nothing counts while it is told";
    EXPECT_EQ(game.Sounds("tap") + game.Sounds("wrong"), number - 1 + 1 - game.Sounds("held"));
}

TEST(HoldBack, AShapeThatGoesByUnpressedIsTold)
{
    PlayedGame game;
    game.Begin(1);
    EXPECT_TRUE(game.Sees([&] { return game.Sounds("wrong") == 1; }));
    EXPECT_EQ(game.Description(), game.Word("Missed"));
    EXPECT_EQ(game.Number(), 1);
    EXPECT_TRUE(game.Sees([&] { return game.Number() == 2; })) << "the next one comes by itself";
}

TEST(HoldBack, ToHoldBackIsRight)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    EXPECT_TRUE(game.Sees([&] { return game.Sounds("held") == 1; }));
    EXPECT_EQ(game.Sounds("wrong"), 0);
}

TEST(HoldBack, HiddenStandsStillAndTheShapeGetsItsWholeTimeAgain)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.Sees([&] { return game.Number() == 1; }));
    game.Game->SetVisible(false);
    Stage::Turn(200); // three times as long as the shape
    game.Key(Space);
    EXPECT_EQ(game.Number(), 1);
    EXPECT_EQ(game.Sounds(""), 0) << "neither missed nor pressed";
    game.Game->SetVisible(true);
    game.Key(Space);
    EXPECT_EQ(game.Sounds("tap"), 1);
}

TEST(HoldBack, AMachineThatStandsStillSwallowsNoShape)
{
    PlayedGame game;
    game.Begin(7);
    ASSERT_TRUE(game.Sees([&] { return game.Number() == 1; }));
    QThread::msleep(200); // more than the time of three shapes
    QCoreApplication::processEvents();
    EXPECT_EQ(game.Number(), 1);
    EXPECT_EQ(game.Sounds(""), 0);
    game.Key(Space);
    EXPECT_EQ(game.Description(), game.Word("Right"));
}

TEST(HoldBack, ASecondPressForOneShapeDoesNothing)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.Sees([&] { return game.Number() == 1; }));
    for (int press = 0; press < 3; ++press) game.Key(Space);
    EXPECT_EQ(game.Sounds("tap"), 1);
}

TEST(HoldBack, ClicksBesideItAndOtherButtonsAndKeysDoNothing)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.Sees([&] { return game.Number() == 1; }));
    game.Click(game.At(StopPlace));
    QTest::mouseClick(game.Game->Control(), Qt::RightButton, {}, game.At(ButtonPlace));
    game.Key(u'A');
    EXPECT_EQ(game.Sounds(""), 0);
}

TEST(HoldBack, AfterTimeUpNothingCountsAndNothingMoves)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayUntil(
        [&] {
            if (!game.IsStop()) game.Key(Space);
        },
        [&] { return game.Number() > 5; }));
    game.Game->Message(QStringLiteral("timeup"));
    const int score = game.Score();
    const int sounds = game.Sounds("");
    EXPECT_EQ(game.Description(), game.Word("TimeUp"));
    game.Key(Space);
    game.Click(game.At(ButtonPlace));
    EXPECT_TRUE(game.UntilStill());
    EXPECT_EQ(game.Score(), score);
    EXPECT_EQ(game.Sounds(""), sounds);
    EXPECT_FALSE(game.IsOver());
}

TEST(HoldBack, NoTwoKindsOfAFamilyLookAlike)
{
    constexpr int Size = 60;  // [px]
    constexpr int Clear = 40; // of 255
    for (int level = 1; level <= HoldRules::Levels; ++level) {
        const HoldRules::Family family = HoldRules(level, 1).Shapes();
        std::vector<QImage> pictures;
        for (int kind = 0; kind < HoldRules::Kinds(family); ++kind) {
            QImage picture(Size, Size, QImage::Format_Grayscale8);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            painter.setRenderHint(QPainter::Antialiasing);
            HoldShapes::Draw(painter, {Size / 2.0, Size / 2.0}, Size - 8, family, kind, Qt::black, Qt::white);
            painter.end();
            for (const QImage &other : pictures) {
                int different = 0;
                for (int y = 0; y < Size; ++y)
                    for (int x = 0; x < Size; ++x)
                        different += std::abs(qGray(picture.pixel(x, y)) - qGray(other.pixel(x, y))) > Clear ? 1 : 0;
                EXPECT_GT(different, Size * Size / 50) << level << " kind " << kind;
            }
            pictures.push_back(picture);
        }
    }
}

TEST(HoldBack, EveryWordOfItsOwnIsThereInBothLanguages)
{
    PlayedGame game(100);
    std::vector<const char *> words{"Name", "Hint",   "Intro",  "Stop",  "Press", "Right",
                                    "Slip", "Missed", "Points", "Level", "TimeUp"};
    for (int level = 1; level <= HoldRules::Levels; ++level) {
        const HoldRules::Family family = HoldRules(level, 1).Shapes();
        for (int kind = 0; kind < HoldRules::Kinds(family); ++kind)
            for (const char *word : HoldShapes::Words(family, kind)) words.push_back(word);
    }
    for (const char *name : words) game.ExpectWords({name});
}

TEST(HoldBack, HasSoundsOfItsOwnForAPressAndForHoldingBack)
{
    for (const char *name : {"tap", "held"})
        EXPECT_TRUE(FileExists(Delivered + QStringLiteral("sounds/%1.wav").arg(QLatin1String(name)))) << name;
}

TEST(HoldBack, PicturesDifferBetweenItsParts)
{
    for (const View &view : {View{"small", {620, 420}, 1, false}, View{"middle", {632, 440}, 4, true},
                             View{"last", {620, 420}, 7, false}, View{"halves", {632, 440}, 6, true},
                             View{"large", {1600, 1000}, 5, false}, View{"large-dark", {1600, 1000}, 7, true}}) {
        if (view.Level != 1 && !Stage::IsSeen()) break; // nobody looks
        PlayedGame game(Stage::IsSeen() ? 25 : Quick);
        const QString name = QStringLiteral("hold-") + QLatin1String(view.Name);
        game.Show(view);
        game.Begin(view.Level);
        const QImage intro = game.Picture();
        game.Keep(name + QStringLiteral("-1-intro"));
        ASSERT_TRUE(game.PlayToA(false));
        Stage::Settle(60);
        const QImage shown = game.Picture();
        game.Keep(name + QStringLiteral("-2-shown"));
        game.Key(Space);
        const QImage pressed = game.Picture();
        game.Keep(name + QStringLiteral("-3-pressed"));
        ASSERT_TRUE(game.Sees([&] { return game.Sounds("wrong") > 0; }));
        game.Keep(name + QStringLiteral("-4-missed"));
        ASSERT_TRUE(game.PlayToA(true));
        game.Key(Space);
        Stage::Settle(60);
        const QImage slip = game.Picture();
        game.Keep(name + QStringLiteral("-5-slip"));
        EXPECT_NE(intro, shown);
        EXPECT_NE(shown, pressed);
        EXPECT_NE(pressed, slip);
        game.Game->Message(QStringLiteral("timeup"));
        game.Keep(name + QStringLiteral("-6-timeup"));
    }
}
