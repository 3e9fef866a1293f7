#include "platform/RuntimeError.h"
#include "sdk/CGameArea.h"
#include "shell/GameGraveyard.h"
#include "shell/GameLibraries.h"
#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace
{
const QString RudeFolder = QStringLiteral(NOGGLE_RUDE_FOLDER);

/// A rude game on the stage; it is taken away by "gameover", as the shell does after the score dialog.
class RudeStage : public Stage
{
public:
    explicit RudeStage(const char *name) : Stage(QLatin1String(name) + QStringLiteral(".GameArea"), RudeFolder)
    {
        for (const char *told :
             {"rudeDeletedInHandler", "rudeCameBack", "rudeLatePath", "rudeLateOver", "rudeLateInfo"})
            qApp->setProperty(told, {});
        Framework->GameOver = [this] { EndSession(); };
        Widget = Game->Control();
    }
    void EndSession()
    {
        ++Ended;
        Game->Message(QStringLiteral("score"));
        ScoreDialog();
        Game->Message(QStringLiteral("unload"));
        Game->Unload();
    }
    // modal, open for a moment, with a loop of its own
    void ScoreDialog()
    {
        QDialog dialog(&Container);
        QTimer::singleShot(20, &dialog, &QDialog::accept);
        dialog.exec();
    }
    static QVariant Told(const char *what) { return qApp->property(what); }

    QPointer<QWidget> Widget;
    int Ended = 0;
};

/// Runs the story as the program does: inside the one event loop of everything.
void InMainLoop(const std::function<void()> &story)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        story();
        QTimer::singleShot(200, &loop, &QEventLoop::quit);
    });
    loop.exec();
}

QString Failure(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeError &error) {
        return error.Description();
    }
    return QStringLiteral("none");
}

/// A game of the program that keeps what it was sent.
struct Listening : CGameArea
{
    using CGameArea::CGameArea;
    void SetNoggleFrameWork(CNoggleFramework *framework) override { Framework = framework; }
    QVariant Message(const QString &cmd, QVariant &info1, QVariant &info2) override
    {
        Types.append(cmd + u' ' + QLatin1String(info1.typeName()) + u' ' + QLatin1String(info2.typeName()));
        info1 = QStringLiteral("changed");
        if (cmd == u"fail") Framework->Message(cmd);
        return cmd == u"score" ? QVariant(12) : QVariant();
    }
    CNoggleFramework *Framework = nullptr;
    QStringList Types;
};

class HostOfListening : public testing::Test
{
protected:
    HostOfListening()
    {
        RegisterGame(QStringLiteral("Listening.GameArea"),
                     [this](QWidget *container) { return Heard = new Listening(container); });
    }
    ~HostOfListening() override { RegisterGame(QStringLiteral("Listening.GameArea"), {}); }
    Listening *Heard = nullptr;
};
} // namespace

TEST_F(HostOfListening, VerbsCarryIntegersOfTheToldSize)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QString());
    const QVariant level = 3;
    stage.Game->Message(QStringLiteral("start"), level);
    stage.Key(65);
    stage.Game->Message(QStringLiteral("changeskin"));
    EXPECT_EQ(Heard->Types.join(u'|'), QStringLiteral("start int int|keypress short int|changeskin int int"));
    EXPECT_EQ(level.toInt(), 3) << "what a game writes into the arguments stays with the game";
    EXPECT_EQ(stage.Score(), 12);
}

TEST_F(HostOfListening, FailuresOfTheFrameworkReachTheGameAndComeBack)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QString());
    EXPECT_EQ(Failure([&] { Heard->Framework->Message(QStringLiteral("fail")); }),
              QStringLiteral("The framework failed."));
    EXPECT_EQ(Failure([&] { stage.Game->Message(QStringLiteral("fail")); }), QStringLiteral("The framework failed."));
}

TEST_F(HostOfListening, WhatTheGameAsksGoesToTheProgramsOwnObject)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QStringLiteral(NOGGLE_BLANK_FOLDER));
    Heard->Framework->SetPlayerGameInfo(2, QStringLiteral("x"));
    EXPECT_EQ(Heard->Framework->PlayerGameInfo(2), QStringLiteral("x"));
    EXPECT_EQ(Heard->Framework->LangString(QStringLiteral("Name")), QStringLiteral("Blank"));
    EXPECT_EQ(Heard->Framework->Message(QStringLiteral("gamepath")).toString(), QStringLiteral(NOGGLE_BLANK_FOLDER));
    EXPECT_EQ(Heard->Framework->MsgBox(QStringLiteral("?"), 4), 1);
}

TEST_F(HostOfListening, AfterBeingTakenAwayEveryCallDoesNothing)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QStringLiteral(NOGGLE_BLANK_FOLDER));
    CNoggleFramework *framework = Heard->Framework;
    stage.Framework->Info[1] = QStringLiteral("kept");
    stage.Game->Unload();
    stage.Game->Unload();
    Stage::Turn(20);
    EXPECT_EQ(stage.Game->Control(), nullptr);
    EXPECT_TRUE(framework->Message(QStringLiteral("gamepath")).isNull());
    EXPECT_TRUE(framework->Message(QStringLiteral("nonsense")).isNull());
    EXPECT_EQ(framework->MsgBox(QStringLiteral("?"), 4), 0);
    EXPECT_EQ(framework->PlayerGameInfo(1), QString());
    EXPECT_EQ(framework->LangString(QStringLiteral("Name")), QString());
    EXPECT_EQ(framework->GetSetting(QStringLiteral("config"), QStringLiteral("name")), QString());
    EXPECT_TRUE(framework->GetPicture(QStringLiteral("x.gif")).isNull());
    EXPECT_FALSE(framework->OnlineFlag());
    framework->ShowError(QStringLiteral("a"), QStringLiteral("b"));
    framework->DrawBackground(nullptr);
    framework->SkinButton(nullptr);
    framework->SkinPicbox(nullptr);
    framework->SaveSetting({}, {}, {});
    framework->SetPlayerGameInfo(1, QStringLiteral("late"));
    EXPECT_TRUE(stage.Framework->Calls.isEmpty()) << qPrintable(stage.Framework->Calls.join(u'|'));
    EXPECT_TRUE(stage.Game->Message(QStringLiteral("score")).isNull());
    stage.Game->SetVisible(true);
    stage.Game->Move(0, 0, 10, 10);
    stage.Game->SetNoggleFrameWork();
}

TEST_F(HostOfListening, UnloadIsTheLastVerb)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QString());
    stage.Game->Message(QStringLiteral("unload"));
    stage.Game->Message(QStringLiteral("unload"));
    EXPECT_TRUE(stage.Game->Message(QStringLiteral("score")).isNull());
    EXPECT_EQ(Heard->Types, QStringList{QStringLiteral("unload int int")});
}

TEST_F(HostOfListening, OneGamesForwarderDoesNotServeTheNext)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QStringLiteral(NOGGLE_BLANK_FOLDER));
    CNoggleFramework *first = Heard->Framework;
    stage.Game->Unload();
    const auto next = CreateGame(QStringLiteral("Listening.GameArea"), {}, &stage.Container);
    next->SetNoggleFrameWork();
    first->Message(QStringLiteral("gameover"));
    EXPECT_EQ(stage.Framework->Count(QStringLiteral("gameover")), 0);
    Heard->Framework->Message(QStringLiteral("gameover"));
    EXPECT_EQ(stage.Framework->Count(QStringLiteral("gameover")), 1);
}

TEST_F(HostOfListening, MovedAndShownOnlyWhileHosted)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QString());
    EXPECT_TRUE(stage.Game->Visible());
    EXPECT_EQ(Heard->geometry(), QRect(0, 0, 632, 440));
    stage.Game->SetVisible(false);
    EXPECT_FALSE(stage.Game->Visible());
}

TEST_F(HostOfListening, AGameThatItsContainerTookAlongIsGone)
{
    auto container = std::make_unique<QWidget>();
    const auto game = CreateGame(QStringLiteral("Listening.GameArea"), {}, container.get());
    container.reset();
    EXPECT_EQ(game->Control(), nullptr);
    EXPECT_TRUE(game->Message(QStringLiteral("score")).isNull());
    game->Unload();
}

TEST(GameHost, WhatAGameThrowsArrivesAsOurFailure)
{
    struct Row
    {
        const char *game, *verb;
    };
    for (const Row &row : {Row{"RudeThrowsOnStart", "start"}, Row{"RudeThrowsOnKey", "keypress"},
                           Row{"RudeThrowsOnSkin", "changeskin"}, Row{"RudeThrowsOnTimeUp", "timeup"},
                           Row{"RudeThrowsOnScore", "score"}, Row{"RudeThrowsOnUnload", "unload"}}) {
        RudeStage stage(row.game);
        const QString verb = QLatin1String(row.verb);
        EXPECT_EQ(Failure([&] { stage.Game->Message(verb); }), QStringLiteral("thrown on ") + verb);
        stage.Game->Unload();
        Stage::Turn(20);
        EXPECT_TRUE(stage.Widget.isNull()) << qPrintable(verb);
    }
}

TEST(GameHost, WhatIsNoExceptionArrivesAsOurFailureToo)
{
    RudeStage stage("RudeThrowsANumber");
    EXPECT_EQ(Failure([&] { stage.Start(1); }), QStringLiteral("Unknown failure."));
    EXPECT_EQ(Failure([&] { stage.Game->Message(QStringLiteral("unload")); }), QStringLiteral("Unknown failure."));
}

TEST(GameHost, AFailureWhileTakingTheFrameworkIsPassedOn)
{
    const auto framework = PlayedFramework::Install(RudeFolder);
    QWidget container;
    const auto game = CreateGame(QStringLiteral("RudeThrowsOnFramework.GameArea"), RudeFolder, &container);
    EXPECT_EQ(Failure([&] { game->SetNoggleFrameWork(); }), QStringLiteral("thrown on framework"));
}

// Each of these is taken away while its own code is on the stack, and uses itself afterwards.
TEST(GameHost, AGameIsDeletedOnlyAfterItsHandlerHasReturned)
{
    for (const char *name : {"RudeEndsOnKey", "RudeEndsTwice", "RudeEndsInsideOwnLoop"}) {
        RudeStage stage(name);
        stage.Start(1);
        InMainLoop([&] { stage.Key(65); });
        EXPECT_EQ(stage.Ended, 1) << name;
        EXPECT_EQ(RudeStage::Told("rudeDeletedInHandler"), QVariant(false)) << name;
        Stage::Turn(20);
        EXPECT_TRUE(stage.Widget.isNull()) << name;
        EXPECT_EQ(BuriedGames(), 0);
    }
}

TEST(GameHost, AGameThatEndsInsideStartSurvivesIt)
{
    RudeStage stage("RudeEndsOnStart");
    InMainLoop([&] { stage.Start(1); });
    EXPECT_EQ(stage.Ended, 1);
    EXPECT_EQ(RudeStage::Told("rudeDeletedInHandler"), QVariant(false));
}

// The clock runs out while the game waits in a box, a dialog or a loop of its own.
TEST(GameHost, TimeUpInsideANestedLoopOfTheGameDoesNotDeleteItUnderItself)
{
    for (const char *name : {"RudeWaitsInDialog", "RudeWaitsInLoop", "RudeAsksInBox"}) {
        RudeStage stage(name);
        stage.Framework->AnswerToBox = [] {
            Stage::Turn(100);
            return 6;
        };
        stage.Start(1);
        InMainLoop([&] {
            QTimer::singleShot(30, &stage.Container, [&] { stage.EndSession(); });
            stage.Key(65);
        });
        EXPECT_EQ(stage.Ended, 1) << name;
        EXPECT_EQ(RudeStage::Told("rudeCameBack"), QVariant(1)) << name;
        EXPECT_EQ(RudeStage::Told("rudeDeletedInHandler"), QVariant(false)) << name;
        Stage::Turn(20);
        EXPECT_TRUE(stage.Widget.isNull()) << name;
    }
}

TEST(GameHost, GameOverFromUnloadIsNotAnEnd)
{
    RudeStage stage("RudeEndsOnUnload");
    stage.Start(1);
    stage.Game->Message(QStringLiteral("unload"));
    EXPECT_EQ(stage.Ended, 0);
}

TEST(GameHost, LastWordsInsideUnloadAreHeard)
{
    RudeStage stage("RudeCallsOnUnload");
    stage.Start(1);
    stage.Game->Message(QStringLiteral("unload"));
    EXPECT_EQ(stage.Ended, 0);
    EXPECT_EQ(stage.Framework->Info[1], QStringLiteral("late"));
}

TEST(GameHost, ATimerOfAGameThatHasGoneReachesNobody)
{
    RudeStage stage("RudeCallsLate");
    stage.Start(1);
    stage.Game->Message(QStringLiteral("unload"));
    stage.Game->Unload();
    Stage::Turn(100);
    EXPECT_TRUE(stage.Widget.isNull());
    EXPECT_TRUE(stage.Framework->Calls.isEmpty()) << qPrintable(stage.Framework->Calls.join(u'|'));
    EXPECT_TRUE(RudeStage::Told("rudeLatePath").isNull());
    EXPECT_TRUE(RudeStage::Told("rudeLateOver").isNull());
    EXPECT_EQ(RudeStage::Told("rudeLateInfo"), QVariant(QString()));
}

TEST(GameHost, AGameThatDeletesItselfIsHostedNoMore)
{
    RudeStage stage("RudeDeletesItself");
    InMainLoop([&] { stage.Key(65); });
    EXPECT_TRUE(stage.Widget.isNull());
    EXPECT_TRUE(stage.Game->Message(QStringLiteral("score")).isNull());
    stage.Game->Unload();
}

TEST(GameHost, KeyboardAndMouseComeBack)
{
    RudeStage stage("RudeHoldsInput");
    stage.Container.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&stage.Container));
    stage.Start(1);
    EXPECT_NE(QWidget::keyboardGrabber(), nullptr);
    stage.Game->Unload();
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
    EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
    EXPECT_NE(QApplication::focusWidget(), stage.Widget.data());
}

TEST_F(HostOfListening, AGameThatIsShownHasTheKeyboard)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QString());
    stage.Container.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&stage.Container));
    stage.Game->SetVisible(false);
    stage.Container.setFocus();
    stage.Game->SetVisible(true);
    EXPECT_EQ(QApplication::focusWidget(), Heard);
}

TEST_F(HostOfListening, AGameThatIsShownAgainHasTheKeyboardWhereItHadIt)
{
    Stage stage(QStringLiteral("Listening.GameArea"), QString());
    QLineEdit box(Heard);
    box.show();
    stage.Container.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&stage.Container));
    box.setFocus();
    stage.Game->SetVisible(false);
    stage.Container.setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &stage.Container);
    stage.Game->SetVisible(true);
    EXPECT_EQ(QApplication::focusWidget(), &box);
}

TEST(GameHost, WindowsOfAGameGoWithIt)
{
    RudeStage stage("RudeOpensWindows");
    stage.Start(1);
    const QPointer<QWidget> window = stage.Widget->findChild<QWidget *>(QStringLiteral("RudeWindow"));
    ASSERT_TRUE(window && window->isVisible());
    stage.Game->Unload();
    EXPECT_TRUE(!window || !window->isVisible());
}

TEST(GameHost, AGameThatShowsItselfAgainIsNotSeen)
{
    RudeStage stage("RudeShowsItself");
    stage.Start(1);
    stage.Game->Unload();
    ASSERT_FALSE(stage.Widget.isNull());
    stage.Widget->show();
    EXPECT_FALSE(stage.Widget->isVisible());
    Stage::Turn(50);
    EXPECT_TRUE(stage.Widget.isNull());
}

TEST(GameHost, AHundredSessionsLeaveNothingBehind)
{
    for (int session = 0; session < 100; ++session) {
        Stage stage(QStringLiteral("Blank.GameArea"), QStringLiteral(NOGGLE_BLANK_FOLDER));
        stage.Start(1);
        stage.Game->Message(QStringLiteral("unload"));
        stage.Game->Unload();
    }
    Stage::Turn(20);
    EXPECT_EQ(BuriedGames(), 0);
}
