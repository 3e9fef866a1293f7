// The main window's face: layout, outline, background, skin change, and what the mouse does on it.
#include "tests/shell/support/FlowTest.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/cTransPictureBox.h"
#include "services/modWheel.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"
#include "skin/colSkin.h"
#include "skin/ctlButtonPanel.h"

#include <QDesktopServices>
#include <QFile>
#include <QPainter>
#include <QScreen>
#include <QUrl>
#include <QWindow>

/// What the desktop is asked to open.
class Desktop final : public QObject
{
    Q_OBJECT

public:
    Desktop()
    {
        for (const char *scheme : {"http", "file"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Open");
    }
    ~Desktop() override
    {
        for (const char *scheme : {"http", "file"}) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    QStringList Opened;

public Q_SLOTS:
    void Open(const QUrl &address) { Opened << address.toString(); }
};

class Face : public FlowTest
{
protected:
    QRect Place(const char *name) const { return Program.Find(name)->geometry(); }
    void ChangeSkin(const char *name)
    {
        modMain::CurrentSkin = modMain::Skins->Item(QLatin1String(name));
        Program.Window().SetSkin(modMain::CurrentSkin);
    }
    static QImage DrawnBackground()
    {
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter painter(&image);
        modMain::Framework->DrawBackground(&painter);
        return image;
    }
    void Drag(Qt::MouseButton button, QPoint from)
    {
        QWindow *const window = Program.Window().windowHandle();
        QTest::mousePress(window, button, {}, from);
        QTest::mouseMove(window, from - QPoint(30, 10));
        QTest::mouseRelease(window, button, {}, from);
    }
};

TEST_F(Face, StandsInTheMiddleOfTheScreenInTheSizeOfItsPicture)
{
    Start();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(Program.Window().size(), QSize(860, 600));
    EXPECT_EQ(Program.Window().pos(), QPoint((screen.width() - 860) / 2, (screen.height() - 600) / 2));
}

TEST_F(Face, PlacesEverythingByTheSkin)
{
    StartWithAnn();
    const int strip = Place("PlayerName1").height();
    EXPECT_EQ(Place("ctlButtonPanel1").topLeft(), QPoint(18, 200));
    EXPECT_EQ(Place("picLogo").topLeft(), QPoint(20, 50));
    EXPECT_EQ(Place("picPrint"), QRect(210, 60, 630, 500));
    EXPECT_EQ(Place("PlayerName1"), QRect(0, 0, 630, strip));
    for (const char *below : {"ctlUserInfo1", "ctlGameList1", "ctlWorkOut1"})
        EXPECT_EQ(Place(below), QRect(0, strip, 630, 500 - strip)) << below;
    for (const char *whole : {"ctlGameInstructions1", "ctlPlayerlist1"})
        EXPECT_EQ(Place(whole), QRect(0, 0, 630, 500)) << whole;
    EXPECT_EQ(Place("picMinimize").topLeft(), QPoint(760, 20));
    EXPECT_EQ(Place("picClose").topLeft(), QPoint(760 + Place("picMinimize").width(), 20));
    for (const char *picture : {"picMinimize", "picClose"}) EXPECT_GT(Place(picture).width(), 10) << picture;
}

TEST_F(Face, TheGameReachesToThreePixelsAboveTheStrip)
{
    StartWithAnn();
    StartWorkoutGame();
    const QRect strip = Place("ctlGamePlaySummary1");
    EXPECT_EQ(strip, QRect(0, 500 - strip.height(), 630, strip.height()));
    EXPECT_EQ(Game.Control()->geometry(), QRect(0, 0, 630, strip.top() - 3));
}

TEST_F(Face, ItsOutlineIsThePicturesAndTheLastColumnStaysOut)
{
    Start();
    QImage look(860, 600, QImage::Format_ARGB32);
    look.fill(Qt::transparent);
    Program.Window().render(&look);
    EXPECT_EQ(look.pixelColor(2, 2).alpha(), 0);
    EXPECT_EQ(look.pixelColor(857, 597).alpha(), 0);
    EXPECT_EQ(look.pixelColor(430, 5), QColor(0x35, 0x6a, 0x5c));
    EXPECT_EQ(look.pixelColor(858, 300), QColor(0x35, 0x6a, 0x5c));
    EXPECT_EQ(look.pixelColor(859, 300).alpha(), 0);
}

// What clears beyond the outline lies over everything and would be painted with every repaint.
TEST_F(Face, NothingIsClearedBeyondTheOutlineWhereNothingReachesThere)
{
    Start();
    for (const QWidget *control : Program.Window().findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        EXPECT_TRUE(control->isHidden() || control->objectName() != u"Outside");
    EXPECT_TRUE(Place("lblTime").isEmpty());
}

TEST_F(Face, ASkinChangeDuringAGameMovesTheWindowBackAndTellsTheGame)
{
    Program.GivenSkin(QStringLiteral("Zest"),
                      {QStringLiteral("Position/GameAreaLeft=30"), QStringLiteral("Position/GameAreaTop=30"),
                       QStringLiteral("colours/DialogText=255")});
    StartWithAnn();
    StartWorkoutGame();
    Game.TakeVerbs();
    const QPoint middle = Program.Window().pos();
    Program.Window().move(0, 0);
    const QColor before = DrawnBackground().pixelColor(5, 5);
    ChangeSkin("Zest");
    EXPECT_EQ(Program.Window().pos(), middle);
    EXPECT_EQ(Plain(Game.TakeVerbs()), "changeskin 0 0");
    EXPECT_EQ(Place("picPrint"), QRect(30, 30, 630, 500));
    EXPECT_NE(DrawnBackground().pixelColor(5, 5), before) << "another piece of the picture lies under the game now";
    EXPECT_EQ(DrawnBackground().pixelColor(5, 5), QColor(0x35, 0x6a, 0x5c));
    EXPECT_EQ(Program.Find<cTransPictureBox>("lblTime")->ForeColour(), QColor(255, 0, 0)) << "blue comes first";
    EXPECT_EQ(Mode(), 3);
}

TEST_F(Face, AWhiteBackgroundIsPlainWhiteForGames)
{
    StartWithAnn();
    EXPECT_EQ(DrawnBackground().pixelColor(50, 50), QColor(0xf2, 0xf6, 0xf4));
    modMain::WhiteBackground = true;
    ChangeSkin("Plain");
    EXPECT_EQ(DrawnBackground().pixelColor(50, 50), QColor(Qt::white));
    modMain::WhiteBackground = false;
    ChangeSkin("Plain");
    EXPECT_EQ(DrawnBackground().pixelColor(50, 50), QColor(0xf2, 0xf6, 0xf4));
}

TEST_F(Face, CannotBeMadeSmallerThanItsMinimum)
{
    Start();
    Program.Window().resize(100, 100);
    EXPECT_EQ(Program.Window().size(), QSize(620, 460));
}

TEST_F(Face, IsDraggedByTheLeftButtonAlone)
{
    Start();
    const QPoint home = Program.Window().pos();
    Drag(Qt::RightButton, {100, 15});
    EXPECT_EQ(Program.Window().pos(), home);
    Drag(Qt::LeftButton, {100, 15});
    EXPECT_EQ(Program.Window().pos(), home - QPoint(30, 10));
}

TEST_F(Face, IsNotDraggedByWhatLiesOnIt)
{
    StartWithAnn();
    const QPoint home = Program.Window().pos();
    const auto on = [&](const char *name) {
        const QWidget *const control = Program.Find(name);
        return control->mapTo(&Program.Window(), QPoint(control->width() - 3, 3));
    };
    for (const char *name : {"picPrint", "ctlGameList1", "lblTitle", "picDetails"}) {
        Drag(Qt::LeftButton, on(name));
        EXPECT_EQ(Program.Window().pos(), home) << name;
    }
}

TEST_F(Face, IsNotDraggedByMenuLogoButtonsAndAGame)
{
    StartWithAnn();
    StartWorkoutGame();
    Program.Find<ctlButtonPanel>("ctlButtonPanel1")->Enabled = false; // or the press would choose a row
    Desktop desktop;
    const QPoint home = Program.Window().pos();
    QWindow *const window = Program.Window().windowHandle();
    QList<QWidget *> controls{Game.Control()};
    for (const char *name : {"ctlButtonPanel1", "picLogo", "picMinimize", "picClose", "ctlGamePlaySummary1"})
        controls << Program.Find(name);
    for (QWidget *control : controls) {
        const QPoint from = control->mapTo(&Program.Window(), control->rect().center());
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        QTest::mouseMove(window, QPoint(430, 5)); // over the face
        QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(430, 5));
        EXPECT_EQ(Program.Window().pos(), home) << Plain(control->objectName());
    }
    EXPECT_TRUE(desktop.Opened.isEmpty()) << "let go elsewhere";
    EXPECT_FALSE(Program.Window().isMinimized());
    EXPECT_EQ(Mode(), 3);
}

TEST_F(Face, TheLogoOpensTheAddressOfTheModule)
{
    Start();
    Desktop desktop;
    EXPECT_EQ(Program.Find("picLogo")->cursor().shape(), Qt::WhatsThisCursor);
    Program.Click("picLogo");
    EXPECT_EQ(Plain(desktop.Opened.join(u'|')), "http://noggle.example.org");
}

TEST_F(Face, WithoutAnAddressInTheModuleTheLogoOpensNothing)
{
    QFile::remove(Program.Folder.Path() + QStringLiteral("0.dll"));
    Start();
    Desktop desktop;
    Program.Find("picLogo")->resize(40, 40); // its picture comes from the module too
    Program.Click("picLogo");
    EXPECT_TRUE(desktop.Opened.isEmpty());
    EXPECT_NE(Program.Find("picLogo")->cursor().shape(), Qt::WhatsThisCursor);
}

TEST_F(Face, TheWheelIsHookedOnlyWhileTheWindowIsActive)
{
    Start();
    Program.Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Program.Window()));
    EXPECT_EQ(modWheel::HookedForm(), &Program.Window());
    {
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        EXPECT_EQ(modWheel::HookedForm(), nullptr);
    }
    Program.Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Program.Window()));
    EXPECT_EQ(modWheel::HookedForm(), &Program.Window());
}

TEST_F(Face, TheWheelChangesNothing)
{
    StartWithAnn();
    // By name, as the hook calls it.
    ASSERT_TRUE(QMetaObject::invokeMethod(&Program.Window(), "MouseWheel", Q_ARG(std::int32_t, 1),
                                          Q_ARG(std::int32_t, 0), Q_ARG(std::int32_t, 100),
                                          Q_ARG(std::int32_t, 100)));
    EXPECT_EQ(Screens(), "ctlGameList1 PlayerName1");
}

#include "TestFace.moc"
