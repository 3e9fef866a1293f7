// Question sets as players get them: the shared component, loaded for a game's folder and played in a window.
#include "tests/games/stage/Stage.h"
#include "tests/support/TestFolder.h"

#include "games/questions/QuestionFile.h"

#include "platform/Files.h"
#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QTest>

namespace
{
const QString Dist = QStringLiteral(NOGGLE_DIST_FOLDER);
const QString ClassName = QStringLiteral("Questions.GameArea");

/// A program's folder with the shared component, and in it a game of questions.
struct Given
{
    explicit Given(const QByteArray &Questions)
    {
        Folder.Copy(Dist + QStringLiteral("components/questions.so"), QStringLiteral("components/questions.so"));
        Folder.Write(QStringLiteral("quiz/GameSettings.ini"), "[config]\nseed=3\n");
        Folder.Write(QStringLiteral("quiz/Questions.txt"), Questions);
    }
    QString Game() const { return Folder.Path() + QStringLiteral("quiz/"); }
    TestFolder Folder;
};

/// One of the bundled sets, in the language with that number.
class Bundled : public testing::Test
{
protected:
    explicit Bundled(const char *Game = "world-capitals") : m_Folder(Dist + QLatin1String(Game) + u'/')
    {
        SetProgramFolder(Dist);
    }
    ~Bundled() override { SetProgramFolder({}); }
    QString m_Folder;
};

/// The number of the right choice, from 1, as who reads the question finds it.
int RightChoice(const Stage &stage, const QuestionSet &set)
{
    const QString name = stage.Name();
    for (const Question &question : set.Questions) {
        if (!name.startsWith(question.Prompt + QStringLiteral(" 1: "))) continue;
        for (int choice = 1; choice <= 6; ++choice)
            if (name.contains(QStringLiteral(" %1: %2.").arg(choice).arg(question.Right))) return choice;
    }
    ADD_FAILURE() << name.toStdString();
    return 1;
}

/// The middle of a choice of four in two columns below a card without a picture, in the place that the game has.
QPoint PlaceOf(const Stage &stage, int choice)
{
    return stage.At({choice % 2 == 1 ? 162.0 : 458.0, choice <= 2 ? 235.0 : 320.0});
}

bool NextShown(Stage &stage)
{
    return Stage::Until([&] { return !stage.Description().contains(QStringLiteral(": ")); });
}

const QByteArray Typed = "Question: How many legs has a spider?\nAnswer: 8\n\n"
                         "Question: Which city lies on the Spree?\nAnswer: Berlin\n";
} // namespace

TEST_F(Bundled, IsPlayedByTheKeyboardAloneToItsEnd)
{
    Stage stage(ClassName, m_Folder);
    stage.Start(1);
    const QuestionSet set = LoadQuestions(m_Folder, {});
    for (int round = 1; round <= 15; ++round) {
        stage.Key(48 + RightChoice(stage, set));
        EXPECT_EQ(stage.Framework->Last(QStringLiteral("progress")), 100 * round / 15);
        EXPECT_TRUE(stage.Description().startsWith(u"Right: "));
        if (round < 15) stage.Key(13); // goes on at once
    }
    EXPECT_EQ(stage.Count("gameover"), 1);
    EXPECT_EQ(stage.Score(), 110);
    EXPECT_EQ(stage.Count("playsound right"), 14);
    EXPECT_EQ(stage.Count("playsound done"), 1);
    stage.Key(49);
    EXPECT_EQ(stage.Count("gameover"), 1) << "nothing counts after the end";
}

TEST_F(Bundled, IsPlayedByTheMouseAloneToItsEnd)
{
    Stage stage(ClassName, m_Folder, {1000, 640});
    stage.Start(2);
    const QuestionSet set = LoadQuestions(m_Folder, {});
    for (int round = 1; round <= 15; ++round) {
        stage.Click(PlaceOf(stage, RightChoice(stage, set)));
        if (round < 15) stage.Click({3, 3}); // goes on at once
    }
    EXPECT_EQ(stage.Count("gameover"), 1);
    EXPECT_EQ(stage.Score(), 110);
}

TEST_F(Bundled, ShowsWhatWasRightAfterAMistakeAndThenGoesOnByItself)
{
    Stage stage(ClassName, m_Folder);
    stage.SetPace(Stage::IsSeen() ? 100 : Quick);
    stage.Start(1);
    const QuestionSet set = LoadQuestions(m_Folder, {});
    const int right = RightChoice(stage, set);
    const QString asked = stage.Name();
    stage.Key(48 + (right == 1 ? 2 : 1));
    EXPECT_TRUE(stage.Description().startsWith(u"Not right: ")) << stage.Description().toStdString();
    EXPECT_TRUE(asked.contains(stage.Description().section(QStringLiteral(": "), 1)));
    stage.Keep(QStringLiteral("capitals-mistake"));
    ASSERT_TRUE(NextShown(stage));
    EXPECT_NE(stage.Name(), asked);
    EXPECT_EQ(stage.Score(), 0);
}

TEST_F(Bundled, StandsStillWhileHidden)
{
    Stage stage(ClassName, m_Folder);
    stage.SetPace(Quick);
    stage.Start(1);
    stage.Key(49);
    const QString asked = stage.Name();
    stage.Game->SetVisible(false);
    stage.Key(13);
    Stage::Turn(400); // longer than an answer is told
    EXPECT_EQ(stage.Name(), asked);
    stage.Game->SetVisible(true);
    EXPECT_TRUE(NextShown(stage));
}

TEST_F(Bundled, SaysThatTheTimeIsUpAndTakesNothingMore)
{
    Stage stage(ClassName, m_Folder);
    EXPECT_EQ(stage.Score(), 0) << "before the start";
    stage.Start(1);
    stage.Key(48 + RightChoice(stage, LoadQuestions(m_Folder, {})));
    const int points = stage.Score();
    EXPECT_EQ(points, 7);
    stage.Game->Message(QStringLiteral("timeup"));
    stage.Key(13);
    stage.Key(49);
    EXPECT_EQ(stage.Score(), points);
    EXPECT_EQ(stage.Description(), QStringLiteral("Time is up"));
}

TEST_F(Bundled, AsksInTheLanguageOfTheProgram)
{
    modMain::Language = QStringLiteral("1");
    Stage stage(ClassName, m_Folder);
    stage.Start(1);
    RightChoice(stage, LoadQuestions(m_Folder, QStringLiteral("1")));
    EXPECT_EQ(stage.Description(), QStringLiteral("Welche Stadt ist die Hauptstadt?"));
    stage.Keep(QStringLiteral("capitals-german"));
}

TEST_F(Bundled, IsDrawnInLightAndDarkSmallAndLarge)
{
    for (const char *game : {"world-capitals", "missing-operator"}) {
        for (const int level : {1, 4, 8}) {
            Stage stage(ClassName, Dist + QLatin1String(game) + u'/', {620, 420});
            stage.Start(level);
            stage.Key(39); // shows the ring
            const QString name = QStringLiteral("%1-%2").arg(QLatin1String(game)).arg(level);
            stage.Keep(name);
            const QImage light = stage.Picture();
            stage.Framework->Top = QColor(0x18, 0x22, 0x2c);
            stage.Framework->Bottom = QColor(0x0e, 0x14, 0x1a);
            stage.Game->Message(QStringLiteral("changeskin"));
            stage.Resize({1600, 1000});
            stage.Keep(name + QStringLiteral("-dark-large"));
            EXPECT_NE(light, stage.Picture().scaled(light.size()));
        }
    }
}

TEST(Questions, AreTypedOnTheKeyboard)
{
    const Given given(Typed);
    Stage stage(ClassName, given.Game());
    stage.Start(1);
    for (int round = 0; round < 2; ++round) {
        QWidget *const game = stage.Game->Control();
        QTest::keyClicks(game, stage.Name().contains(QStringLiteral("spider")) ? QStringLiteral("8")
                                                                               : QStringLiteral("BERLINX"));
        if (!stage.Name().contains(QStringLiteral("spider"))) QTest::keyClick(game, Qt::Key_Backspace);
        stage.Keep(QStringLiteral("typed-%1").arg(round));
        stage.Key(13); // the verb of the same press, which comes first
        QTest::keyClick(game, Qt::Key_Return);
        EXPECT_TRUE(stage.Description().startsWith(u"Right: ")) << stage.Description().toStdString();
        if (round == 0) stage.Key(13);
    }
    EXPECT_EQ(stage.Count("gameover"), 1);
    EXPECT_EQ(stage.Score(), 110);
}

TEST(Questions, AreTypedWithTheMouseAlone)
{
    const Given given("Question: Seven and eight?\nAnswer: 15\n");
    Stage stage(ClassName, given.Game(), {620, 420});
    stage.Start(1);
    // twelve keys in one row: ten digits, back, enter
    const auto key = [](int place) { return QPoint(20 + static_cast<int>(580 / 12.0 * (place + 0.5)), 226); };
    for (const int place : {1, 4, 10, 6, 11}) stage.Click(key(place)); // 14, back, 16, enter
    EXPECT_EQ(stage.Description(), QStringLiteral("Not right: 15"));
    EXPECT_EQ(stage.Count("playsound"), 0) << "this set brings no sounds";
    stage.Keep(QStringLiteral("typed-mistake"));
    EXPECT_EQ(stage.Count("gameover"), 1);
    EXPECT_EQ(stage.Score(), 0);
}

TEST(Questions, ShowThePictureOfTheQuestion)
{
    const Given given(
        "Question: Which colour is this, in the words that a painter would use?\nPicture: red.png\n"
        "Right: vermilion\nWrong: ultramarine\nWrong: a very long name of a colour that nobody knows\n");
    QImage red(300, 200, QImage::Format_RGB32);
    red.fill(QColor(0xe0, 0x40, 0x20));
    ASSERT_TRUE(red.save(given.Game() + QStringLiteral("red.png")));
    Stage stage(ClassName, given.Game(), {620, 420});
    stage.Start(1);
    EXPECT_EQ(stage.Picture().pixelColor(120, 140), QColor(0xe0, 0x40, 0x20));
    stage.Keep(QStringLiteral("question-picture"));
}

TEST(Questions, TellWhatIsWrongWithTheirFile)
{
    const Given given("Question: A?\nRigth: 1\n\nnonsense\n");
    Stage stage(ClassName, given.Game());
    stage.Start(1);
    EXPECT_EQ(stage.Count("ShowError The questions in Questions.txt can't be used."), 1);
    EXPECT_TRUE(stage.Name().contains(QStringLiteral("Line 2: \"rigth\" is no word"))) << stage.Name().toStdString();
    stage.Key(49);
    stage.Click({300, 200});
    EXPECT_EQ(stage.Score(), 0);
    stage.Keep(QStringLiteral("questions-problems"));
}
