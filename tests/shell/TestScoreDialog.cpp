// The score dialog: four lines that come up one by one, each with its sound.
#include "tests/shell/support/SessionTest.h"

#include "platform/SoundBuffer.h"

#include "services/colSound.h"

#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"

#include "shell/frmScore.h"
#include "shell/program/modMain.h"

#include <QApplication>
#include <QWindow>

namespace
{
class ScoreDialog : public SessionTest
{
protected:
    struct Figures
    {
        int Points = 80, TimeBonus = 60, Level = 2, LevelBonus = 50, Total = 190;
        bool Star = true;
    };
    void SetUp() override { OpenWorkout(); }

    /// Shows the dialog and runs the story in it; then the button is pressed, which the story must have brought up.
    void Show(const Figures &Shown, const std::function<void(frmScore &)> &Story)
    {
        QTimer::singleShot(0, [&] {
            auto *const dialog = qobject_cast<frmScore *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            m_Dialog = dialog;
            Story(*dialog);
            while (!Shows("butOK")) TickDialog();
            QTest::mouseClick(Part("butOK"), Qt::LeftButton);
            m_Dialog = nullptr;
        });
        frmScore().ShowScore(&Program.Window(), Shown.Points, 45, Shown.TimeBonus, Shown.Level, Shown.LevelBonus,
                             Shown.Total, Shown.Star);
    }
    template <typename Control = QWidget>
    Control *Part(const char *name) const
    {
        return m_Dialog->findChild<Control *>(QLatin1String(name));
    }
    bool Shows(const char *name) const { return Part(name)->isVisible(); }
    QString Caption(const char *name) const { return Part(name)->property("Caption").toString(); }
    /// What is visible of the parts that come up.
    QString Shown() const
    {
        QStringList shown;
        for (const char *name : {"lblGameOver", "capPoints", "lblPoints", "capTimeBonus", "lblTimeBonus",
                                 "capLevelBonus", "lblLevelBonus", "capTotal", "lblTotal", "picStar", "butOK"})
            if (Shows(name)) shown << QLatin1String(name);
        return shown.join(u' ');
    }
    /// One tick of its timer. Answer: the sounds that it started.
    QString TickDialog() const
    {
        Silence();
        QTimerEvent tick(Part<QTimer>("tmrShow")->timerId());
        QCoreApplication::sendEvent(Part<QTimer>("tmrShow"), &tick);
        return Heard();
    }
    void Silence() const { Loopback->Render(SoundDevice::LoopbackRate * 5); }
    QString Heard() const
    {
        QStringList heard;
        for (const char *name : {"shortbeep", "ding", "highbeep", "lowbeep"})
            if (auto *const wave = modMain::ShellSounds->Item(QLatin1String(name)).DSBuffer();
                wave && wave->IsPlaying())
                heard << QLatin1String(name);
        return heard.join(u' ');
    }

    frmScore *m_Dialog = nullptr;
};
} // namespace

TEST_F(ScoreDialog, RevealsALineASecondEachWithItsSound)
{
    Silence();
    Show({}, [this](frmScore &) {
        EXPECT_EQ(Heard(), QStringLiteral("shortbeep"));
        EXPECT_EQ(Part<QTimer>("tmrShow")->interval(), 1000);
        EXPECT_TRUE(Part<QTimer>("tmrShow")->isActive());
        EXPECT_EQ(Shown(), QStringLiteral("lblGameOver capPoints lblPoints"));
        EXPECT_EQ(TickDialog(), QStringLiteral("shortbeep"));
        EXPECT_EQ(Shown(), QStringLiteral("lblGameOver capPoints lblPoints capTimeBonus lblTimeBonus"));
        EXPECT_EQ(TickDialog(), QStringLiteral("shortbeep"));
        EXPECT_EQ(Shown(), QStringLiteral("lblGameOver capPoints lblPoints capTimeBonus lblTimeBonus capLevelBonus "
                                          "lblLevelBonus"));
        EXPECT_EQ(TickDialog(), QStringLiteral("ding"));
        EXPECT_EQ(Shown(), QStringLiteral("lblGameOver capPoints lblPoints capTimeBonus lblTimeBonus capLevelBonus "
                                          "lblLevelBonus capTotal lblTotal picStar butOK"));
        EXPECT_EQ(TickDialog(), QString()) << "nothing comes after the fourth line";
        EXPECT_TRUE(Part<QTimer>("tmrShow")->isActive());
    });
    EXPECT_EQ(Heard(), QString()) << "the button is silent";
}

TEST_F(ScoreDialog, WithoutAStarTheLastLineBeepsAndShowsNone)
{
    Show({.Total = 90, .Star = false}, [this](frmScore &) {
        TickDialog();
        TickDialog();
        EXPECT_EQ(TickDialog(), QStringLiteral("shortbeep"));
        EXPECT_FALSE(Shows("picStar"));
        EXPECT_TRUE(Shows("butOK"));
    });
}

TEST_F(ScoreDialog, ZeroLinesComeUpToo)
{
    Show({.TimeBonus = 0, .Level = 1, .LevelBonus = 0, .Total = 80, .Star = false}, [this](frmScore &) {
        TickDialog();
        EXPECT_EQ(Caption("lblTimeBonus"), QStringLiteral("0"));
        EXPECT_FALSE(Shows("lblLevelBonus"));
        TickDialog();
        EXPECT_EQ(Caption("lblLevelBonus"), QStringLiteral("0"));
        EXPECT_FALSE(Shows("lblTotal"));
    });
}

TEST_F(ScoreDialog, TellsItsFiguresInTheWordsOfTheLanguage)
{
    Show({.Points = -3, .TimeBonus = -2, .Level = 7, .LevelBonus = 300, .Total = 295}, [this](frmScore &) {
        EXPECT_EQ(Caption("lblGameOver"), QStringLiteral("Game over"));
        EXPECT_EQ(Caption("capPoints"), QStringLiteral("Points"));
        EXPECT_EQ(Caption("capTimeBonus"), QStringLiteral("Time bonus"));
        EXPECT_EQ(Caption("capLevelBonus"), QStringLiteral("Bonus for level 7"));
        EXPECT_EQ(Caption("capTotal"), QStringLiteral("Total"));
        EXPECT_EQ(Caption("butOK"), QStringLiteral("OK"));
        EXPECT_EQ(Caption("lblPoints"), QStringLiteral("-3"));
        EXPECT_EQ(Caption("lblTimeBonus"), QStringLiteral("-2"));
        EXPECT_EQ(Caption("lblLevelBonus"), QStringLiteral("300"));
        EXPECT_EQ(Caption("lblTotal"), QStringLiteral("295"));
    });
}

TEST_F(ScoreDialog, EachShowingStartsAnew)
{
    for (int showing = 0; showing < 2; ++showing)
        Show({}, [this](frmScore &) { EXPECT_EQ(Shown(), QStringLiteral("lblGameOver capPoints lblPoints")); });
}

TEST_F(ScoreDialog, NeitherKeysNorTheWindowManagerCloseIt)
{
    Show({}, [this](frmScore &dialog) {
        const auto tryAll = [&] {
            for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
                if (!Shows("butOK") || key == Qt::Key_Escape) QTest::keyClick(dialog.windowHandle(), key);
            dialog.close();
            dialog.reject();
            QTest::mouseClick(&dialog, Qt::RightButton);
        };
        tryAll();
        EXPECT_TRUE(dialog.isVisible());
        Program.Window().close(); // waits for the dialog
        EXPECT_TRUE(Program.Window().isVisible());
        for (int line = 0; line < 3; ++line) TickDialog();
        tryAll();
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(ScoreDialog, IsDraggedByItsFaceAndByItsTitle)
{
    Show({}, [this](frmScore &dialog) {
        for (const QPoint grip : {QPoint(20, dialog.height() / 2), Part("lblGameOver")->geometry().center()}) {
            const QPoint before = dialog.pos();
            QWindow *const window = dialog.windowHandle();
            QTest::mousePress(window, Qt::LeftButton, {}, grip);
            QTest::mouseMove(window, grip - QPoint(0, 10));
            QTest::mouseMove(window, grip - QPoint(0, 20));
            QTest::mouseRelease(window, Qt::LeftButton, {}, grip - QPoint(0, 20));
            EXPECT_NE(dialog.pos(), before);
        }
    });
}

TEST_F(ScoreDialog, ItsButtonIsWideAndSkinnedSo)
{
    Show({}, [this](frmScore &dialog) {
        EXPECT_GT(Part("butOK")->width(), 60);
        EXPECT_FALSE(Part<LarkButton>("butOK")->PictureUp().isNull());
        EXPECT_FALSE(dialog.picture().isNull());
    });
}

TEST_F(ScoreDialog, WithoutSkinWordsAndSoundItWorksAllTheSame)
{
    modMain::CurrentSkin.reset();
    Program.Folder.Write(QStringLiteral("sounds/shortbeep.wav"), "no wave");
    Show({}, [this](frmScore &dialog) {
        EXPECT_TRUE(Part<LarkButton>("butOK")->PictureUp().isNull());
        EXPECT_TRUE(dialog.picture().isNull());
    });
}
