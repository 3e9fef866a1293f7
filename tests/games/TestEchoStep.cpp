#include "games/echo-step/EchoRules.h"
#include "tests/games/stage/PacedStage.h"

#include "platform/Files.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QThread>

#include <array>

namespace
{
const QString Delivered = QStringLiteral(NOGGLE_DIST_FOLDER "echo-step/");
constexpr std::uint32_t Seed = 11;
constexpr int Enter = 13;
constexpr int Space = 32;
constexpr int Left = 37;
constexpr int Right = 39;
constexpr QPointF OnlyButton{502, 270};
constexpr QPointF PlaceButton{450, 270};
constexpr QPointF LetterButton{553, 270};
constexpr QPointF PondPlace{203, 208};
constexpr auto Place = EchoRules::Place;
constexpr auto Letter = EchoRules::Letter;

/// The game on the stage, beside the same rules.
struct PlayedGame : PacedStage
{
    explicit PlayedGame(int percent = Quick)
        : PacedStage(QStringLiteral("EchoStep.GameArea"), Delivered, Seed, percent)
    {}

    void Begin(int level)
    {
        Known = std::make_unique<EchoRules>(level, Seed);
        Start(level);
    }
    /// Of the step in view.
    bool IsJudged() const { return Number() > Known->Back(); }
    bool IsEcho(EchoRules::Trait trait) const
    {
        if (!IsJudged() || (trait == Letter && !Known->HasLetters())) return false;
        const auto now = static_cast<std::size_t>(Number() - 1);
        return Known->Steps()[now][trait] == Known->Steps()[now - static_cast<std::size_t>(Known->Back())][trait];
    }
    /// Plays rightly by the arrow keys until the step in view has that to press, or to leave.
    bool PlayToA(bool echo)
    {
        bool isThere = false;
        return PlayUntil(
            [&] {
                isThere = IsJudged() && IsEcho(Place) == echo;
                if (!isThere && IsEcho(Place)) Key(Left);
                if (IsEcho(Letter)) Key(Right);
            },
            [&] { return isThere; });
    }

    std::unique_ptr<EchoRules> Known;
};
} // namespace

TEST(EchoStep, IsPlayedToItsEndWithTheKeysAlone)
{
    PlayedGame game;
    game.UnloadAtTheEnd([&] { EXPECT_EQ(game.Score(), 125); }); // the shell asks for the points inside
    game.Begin(2);
    const std::array keys{Space, Enter, Left};
    int presses = 0;
    EXPECT_TRUE(game.PlayUntil(
        [&] {
            if (game.IsEcho(Place)) game.Key(keys.at(static_cast<std::size_t>(presses++ % 3)));
        },
        [&] { return game.IsOver(); }));
    EXPECT_EQ(game.Framework->Count(QStringLiteral("gameover")), 1);
    EXPECT_EQ(game.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(game.Sounds("right"), 8);
    EXPECT_EQ(game.Sounds("step"), 26);
    EXPECT_EQ(game.Sounds("done"), 1);
    EXPECT_EQ(game.Sounds("wrong"), 0);
}

TEST(EchoStep, PlaceAndLetterArePlayedWithTheArrowKeys)
{
    PlayedGame game;
    game.Begin(6);
    int expected = 0;
    EXPECT_TRUE(game.PlayUntil(
        [&] {
            game.Key(Space); // which means nothing where there are two buttons
            if (game.IsEcho(Place)) game.Key(Left);
            if (game.IsEcho(Letter)) game.Key(Right);
            expected += (game.IsEcho(Place) ? 1 : 0) + (game.IsEcho(Letter) ? 1 : 0);
        },
        [&] { return game.Number() > 10; }));
    EXPECT_GE(expected, 2);
    EXPECT_EQ(game.Sounds("right"), expected);
    EXPECT_EQ(game.Sounds("wrong"), 0);
}

TEST(EchoStep, IsPlayedWithTheMouseAloneWhetherSmallOrLarge)
{
    struct Row
    {
        QSize size;
        int level;
    };
    for (const Row &row : {Row{{1600, 1000}, 1}, Row{{620, 420}, 5}}) {
        PlayedGame game;
        game.Resize(row.size);
        game.Begin(row.level);
        EXPECT_TRUE(game.PlayUntil(
            [&] {
                if (game.IsEcho(Place)) game.Click(game.At(row.level == 1 ? OnlyButton : PlaceButton));
                if (game.IsEcho(Letter)) game.Click(game.At(LetterButton));
            },
            [&] { return game.Score() > 0; }))
            << row.level;
        EXPECT_GE(game.Sounds("right"), 1);
        EXPECT_EQ(game.Sounds("wrong"), 0);
    }
}

TEST(EchoStep, TheNameTellsEveryStepInWords)
{
    PlayedGame game;
    EXPECT_EQ(game.Score(), 0) << "before the start";
    game.Key(Space);
    game.Begin(9);
    EXPECT_EQ(game.Name(), game.Word("Keep"));
    EXPECT_TRUE(game.PlayUntil(
        [&] {
            const auto [place, letter] = game.Known->Steps()[static_cast<std::size_t>(game.Number() - 1)];
            EXPECT_EQ(game.Name(),
                      QStringLiteral("%1: row %2, column %3, %4")
                          .arg(game.Number())
                          .arg(place / 3 + 1)
                          .arg(place % 3 + 1)
                          .arg(QChar::fromLatin1(EchoRules::Letters.at(static_cast<std::size_t>(letter)))));
        },
        [&] { return game.Number() > 3; }));
}

TEST(EchoStep, TheFirstStepsCanNotBePressed)
{
    PlayedGame game;
    game.Begin(3);
    EXPECT_TRUE(game.PlayUntil(
        [&] {
            if (!game.IsJudged()) game.Key(Space);
        },
        [&] { return game.Number() > 3; }));
    EXPECT_EQ(game.Sounds("wrong"), 0);
    EXPECT_EQ(game.Framework->Count(QStringLiteral("progress")), 0) << "they are no rounds";
}

TEST(EchoStep, AFalsePressIsMarkedAtOnceAndToldWhenTheStepIsOver)
{
    PlayedGame game;
    game.Begin(2);
    ASSERT_TRUE(game.PlayToA(false));
    const int number = game.Number();
    game.Key(Space);
    EXPECT_EQ(game.Sounds("wrong"), 1);
    EXPECT_EQ(game.Description(), game.Word("Wrong"));
    EXPECT_TRUE(game.Sees([&] { return game.Description() == game.Word("PlaceOther"); }));
    EXPECT_EQ(game.Number(), number);
    game.Key(Space);
    EXPECT_TRUE(game.Sees([&] { return game.Number() == number + 1; })) << "the next one comes by itself";
    EXPECT_EQ(game.Sounds("wrong"), 1) << "once, and nothing counts while it is told";
}

TEST(EchoStep, AnEchoThatGoesByUnpressedIsTold)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    EXPECT_TRUE(game.Sees([&] { return game.Description() == game.Word("PlaceSame"); }));
    EXPECT_EQ(game.Sounds("wrong"), 1);
}

TEST(EchoStep, PlaceAndLetterAreToldEach)
{
    PlayedGame game;
    game.Begin(5);
    ASSERT_TRUE(game.PlayToA(true));
    if (!game.IsEcho(Letter)) game.Key(Right);
    const QString letter = game.IsEcho(Letter) ? QString() : QStringLiteral(". ") + game.Word("LetterOther");
    EXPECT_TRUE(game.Sees([&] { return game.Description() == game.Word("PlaceSame") + letter; }));
}

TEST(EchoStep, HiddenStandsStillAndTheStepGetsItsWholeTimeAgain)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    const int number = game.Number();
    game.Game->SetVisible(false);
    Stage::Turn(300); // three times as long as the step
    game.Key(Space);
    EXPECT_EQ(game.Number(), number);
    EXPECT_EQ(game.Sounds("wrong") + game.Sounds("right"), 0) << "neither missed nor pressed";
    game.Game->SetVisible(true);
    game.Key(Space);
    EXPECT_EQ(game.Sounds("right"), 1);
}

TEST(EchoStep, AMachineThatStandsStillSwallowsNoStep)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.Sees([&] { return game.Number() == 1; }));
    QThread::msleep(400); // more than the time of three steps
    QCoreApplication::processEvents();
    EXPECT_EQ(game.Number(), 1);
    EXPECT_EQ(game.Sounds("step"), 1);
}

TEST(EchoStep, ASecondPressForOneStepDoesNothing)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    for (int press = 0; press < 3; ++press) game.Key(Space);
    EXPECT_EQ(game.Sounds("right"), 1);
}

TEST(EchoStep, ClicksBesideItAndOtherButtonsAndKeysDoNothing)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    game.Click(game.At(PondPlace));
    QTest::mouseClick(game.Game->Control(), Qt::RightButton, {}, game.At(OnlyButton));
    game.Key(Right);
    game.Key(u'A');
    EXPECT_EQ(game.Sounds("right") + game.Sounds("wrong"), 0);
}

TEST(EchoStep, AfterTimeUpNothingCountsAndNothingMoves)
{
    PlayedGame game;
    game.Begin(1);
    ASSERT_TRUE(game.PlayToA(true));
    game.Key(Space);
    ASSERT_TRUE(game.PlayToA(true));
    const int score = game.Score();
    EXPECT_GT(score, 0);
    game.Game->Message(QStringLiteral("timeup"));
    EXPECT_EQ(game.Description(), game.Word("TimeUp"));
    game.Key(Space);
    game.Click(game.At(OnlyButton));
    EXPECT_TRUE(game.UntilStill());
    EXPECT_EQ(game.Score(), score);
    EXPECT_FALSE(game.IsOver());
}

TEST(EchoStep, EveryWordOfItsOwnIsThereInBothLanguages)
{
    PlayedGame game(100);
    game.ExpectWords({"Name",       "Keep",       "Hint",   "HintBoth",    "OneAgo", "StepsAgo", "Same",
                      "Place",      "Letter",     "Row",    "Column",      "Right",  "Wrong",    "PlaceSame",
                      "PlaceOther", "LetterSame", "Points", "LetterOther", "Level",  "TimeUp"});
}

TEST(EchoStep, HasASoundForEveryPlace)
{
    for (int place = 0; place < EchoRules::Places; ++place)
        EXPECT_TRUE(FileExists(Delivered + QStringLiteral("sounds/step%1.wav").arg(place))) << place;
}

TEST(EchoStep, PicturesDifferBetweenItsParts)
{
    for (const View &view : {View{"small", {620, 420}, 1, false}, View{"middle", {632, 440}, 4, true},
                             View{"both", {620, 420}, 6, false}, View{"last", {632, 440}, 9, true},
                             View{"large", {1600, 1000}, 3, false}}) {
        if (view.Level != 1 && !Stage::IsSeen()) break; // nobody looks
        PlayedGame game(Stage::IsSeen() ? 15 : Quick);
        const QString name = QStringLiteral("echo-") + QLatin1String(view.Name);
        game.Show(view);
        game.Begin(view.Level);
        const QImage before = game.Picture();
        game.Keep(name + QStringLiteral("-1-before"));
        ASSERT_TRUE(game.PlayToA(true));
        Stage::Settle(100);
        const QImage shown = game.Picture();
        game.Keep(name + QStringLiteral("-2-shown"));
        game.Key(Left);
        const QImage pressed = game.Picture();
        game.Keep(name + QStringLiteral("-3-pressed"));
        ASSERT_TRUE(game.PlayToA(true));
        ASSERT_TRUE(game.Sees([&] { return game.Description().startsWith(game.Word("PlaceSame")); }));
        const QImage missed = game.Picture();
        game.Keep(name + QStringLiteral("-4-missed"));
        ASSERT_TRUE(game.PlayToA(false));
        game.Key(Left);
        ASSERT_TRUE(game.Sees([&] { return game.Description().startsWith(game.Word("PlaceOther")); }));
        game.Keep(name + QStringLiteral("-5-false"));
        EXPECT_NE(before, shown);
        EXPECT_NE(shown, pressed);
        EXPECT_NE(pressed, missed);
        EXPECT_NE(missed, game.Picture());
        game.Game->Message(QStringLiteral("timeup"));
        game.Keep(name + QStringLiteral("-6-timeup"));
    }
}
