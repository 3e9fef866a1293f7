// The main window takes a skin: outline, layout, background, and what a running game sees of it.
#include "tests/shell/support/FaceTest.h"
#include "tests/support/RecordingFramework.h"

#include "platform/Colour.h"
#include "platform/RuntimeError.h"

#include "services/modWheel.h"

#include "shell/program/modMain.h"

#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"
#include "sdk/controls/cTransPictureBox.h"

#include "skin/CSkin.h"
#include "skin/Region.h"
#include "skin/colSkin.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <memory>
#include <utility>

#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // g++ brings no header with it
#endif

namespace
{
constexpr QRgb Blue = 0xff2040c0;
constexpr QRgb Green = 0xff20a040;
const QRect GameArea(100, 80, 500, 360);
const QSize Large(760, 560);
#ifdef __SANITIZE_ADDRESS__
constexpr double MostGrowth = 0.25; // [MB] of a thousand changes
#else
constexpr double MostGrowth = 4; // [MB] as the system counts, with the gaps of the heap
#endif

QPoint Centred(const QSize &Size)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return {screen.x() + (screen.width() - Size.width()) / 2, screen.y() + (screen.height() - Size.height()) / 2};
}

// What is in use: the sanitizer keeps freed memory back for a while, and counts it out here.
double MegabytesInUse()
{
#ifdef __SANITIZE_ADDRESS__
    return static_cast<double>(__sanitizer_get_current_allocated_bytes()) / (1024 * 1024);
#endif
    QFile file(QStringLiteral("/proc/self/statm"));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

class SkinChange : public FaceTest
{
protected:
    void GivenColour(const QString &name, QRgb colour, const QSize &size = Large)
    {
        GivenSkin(name, {{QStringLiteral("Frame.gif"), PlainFrame(size, colour)},
                         {QStringLiteral("Skin.ini"), Positions(GameArea)}});
    }
    QRegion Outline() const { return Window().mask(); }
};

/// Keeps the screens in the order in which they take the skin: each has buttons that ask for its pictures.
class SkinnedScreens : public RecordingFramework
{
public:
    QStringList Order;
    void SkinButton(QObject *But, const QString &) override
    {
        const QObject *screen = But;
        while (screen->parent() != nullptr && screen->parent()->objectName() != u"picPrint")
            screen = screen->parent();
        if (Order.isEmpty() || Order.last() != screen->objectName()) Order << screen->objectName();
    }
};

class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "Open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("http")); }
    Q_INVOKABLE void Open(const QUrl &Url) { Opened << Url.toString(); }
    QStringList Opened;
};
} // namespace

TEST_F(SkinChange, MovesTheWindowBackToTheMiddleOfTheWholeScreen)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenColour(QStringLiteral("Green"), Green, {640, 480});
    StartWith(QStringLiteral("Blue"));
    EXPECT_EQ(Window().size(), Large);
    EXPECT_EQ(Window().pos(), Centred(Large));
    Window().move(3, 4);
    ChangeTo(QStringLiteral("Green"));
    EXPECT_EQ(Window().size(), QSize(640, 480));
    EXPECT_EQ(Window().pos(), Centred({640, 480}));
    ChangeTo(QStringLiteral("Blue"));
    EXPECT_EQ(Window().size(), Large) << "a larger skin after a smaller one";
    EXPECT_EQ(Outline().boundingRect(), QRect(QPoint(0, 0), Large).adjusted(10, 10, -10, -10));
}

TEST_F(SkinChange, GoesThroughTheScreensInOneOrder)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    StartWith(QStringLiteral("Blue"));
    Program.NewPlayer(QStringLiteral("Ann"));
    const auto screens = std::make_shared<SkinnedScreens>();
    const auto before = std::exchange(modMain::Framework, screens);
    Window().SetSkin(modMain::CurrentSkin);
    modMain::Framework = before;
    EXPECT_EQ(screens->Order.join(u' ').toStdString(),
              "ctlWorkOut1 " // by the layout, before the background is new
              "ctlGameInstructions1 ctlGameList1 ctlPlayerlist1 ctlUserInfo1 PlayerName1 ctlWorkOut1");
}

TEST_F(SkinChange, WhileAGameRunsTellsItOnceAfterThePlaceAndTheBackgroundAreNew)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenColour(QStringLiteral("Green"), Green, {700, 500});
    StartWith(QStringLiteral("Blue"));
    StartGame();
    Window().move(0, 0);
    ChangeTo(QStringLiteral("Green"));
    ASSERT_EQ(SkinChanges.size(), 1U);
    EXPECT_EQ(SkinChanges[0].WindowAt, Centred({700, 500}));
    EXPECT_EQ(SkinChanges[0].Background.pixel(5, 5), Green);
    EXPECT_EQ(SkinChanges[0].Background.pixel(400, 200), Green);
    EXPECT_EQ(Window().Mode(), 4) << "the game runs on";
    EXPECT_TRUE(GameControl->isVisible());
}

TEST_F(SkinChange, ChosenInTheOptionsTellsARunningGameOnceAndItRunsOn)
{
    GivenSkin(QStringLiteral("Blue"),
              {{QStringLiteral("Frame.gif"), PlainFrame(Large, Blue)},
               {QStringLiteral("Skin.ini"), Positions(GameArea) + "MenuLeft=520\r\nMenuTop=445\r\n"}});
    GivenColour(QStringLiteral("Green"), Green, {700, 500});
    StartWith(QStringLiteral("Blue"));
    StartGame();
    Window().move(0, 0);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        QWidget *const options = QApplication::activeModalWidget();
        if (options == nullptr || options->objectName() != u"frmOptions" || !options->isActiveWindow()) return;
        look.stop();
        options->findChild<QComboBox *>()->setCurrentText(QStringLiteral("Green"));
        EXPECT_TRUE(SkinChanges.empty()) << "nothing changes before OK";
        Program.Click(options->findChild<QWidget *>(QStringLiteral("cmdOK")));
    });
    look.start(5);
    Program.ClickMenu(QStringLiteral("options"));
    EXPECT_EQ(modMain::CurrentSkin->Name(), QStringLiteral("Green"));
    ASSERT_EQ(SkinChanges.size(), 1U);
    EXPECT_EQ(SkinChanges[0].WindowAt, Centred({700, 500}));
    EXPECT_EQ(SkinChanges[0].Background.pixel(5, 5), Green);
    EXPECT_EQ(Window().Mode(), 4);
    EXPECT_TRUE(GameControl->isVisible());
}

TEST_F(SkinChange, WithoutAGameTellsNobody)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    StartWith(QStringLiteral("Blue"));
    ChangeTo(QStringLiteral("Blue"));
    EXPECT_TRUE(SkinChanges.empty());
}

TEST_F(SkinChange, GivesTheGameAreaThePieceOfTheFrameThatLiesUnderIt)
{
    StartWith(QStringLiteral("Plain"));
    const CSkin &skin = *modMain::CurrentSkin;
    const QRect place(skin.GameAreaLeft, skin.GameAreaTop, skin.GameAreaWidth, skin.GameAreaHeight);
    EXPECT_EQ(Window().GameBackground().convertToFormat(QImage::Format_RGB32), Frame().copy(place));
}

TEST_F(SkinChange, WithAWhiteBackgroundGivesGamesPlainWhite)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    StartWith(QStringLiteral("Blue"));
    StartGame();
    modMain::WhiteBackground = true;
    ChangeTo(QStringLiteral("Blue"));
    ASSERT_EQ(SkinChanges.size(), 1U);
    QImage white = SkinChanges[0].Background;
    white.fill(Qt::white);
    EXPECT_EQ(SkinChanges[0].Background, white);

    modMain::WhiteBackground = false;
    ChangeTo(QStringLiteral("Blue"));
    EXPECT_EQ(SkinChanges[1].Background.pixel(5, 5), Blue) << "turned off again, the frame is back";
}

TEST_F(SkinChange, AGameAreaBeyondTheFrameKeepsNothingOfTheFormerSkin)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenSkin(QStringLiteral("Narrow"), {{QStringLiteral("Frame.gif"), GifBytes({300, 300}, Green)},
                                         {QStringLiteral("Skin.ini"), Positions(GameArea)}});
    StartWith(QStringLiteral("Blue"));
    ChangeTo(QStringLiteral("Narrow"));
    EXPECT_EQ(Window().GameBackground().pixel(10, 10), Green);
    EXPECT_EQ(Window().GameBackground().pixel(450, 10), qRgb(255, 255, 255));
}

TEST_F(SkinChange, AFrameBelowTheMinimumLeavesTheWindowItsMinimumAndTheOutlineTheFrames)
{
    GivenColour(QStringLiteral("Small"), Blue, {400, 300});
    StartWith(QStringLiteral("Small"));
    EXPECT_EQ(Window().size(), QSize(620, 460));
    EXPECT_EQ(Window().pos(), Centred({620, 460}));
    EXPECT_EQ(Outline(), QRegion(10, 10, 380, 280));
    EXPECT_EQ(qAlpha(Shown().pixel(500, 400)), 0);
}

TEST_F(SkinChange, TheWindowCantBeMadeSmallerThan620x460)
{
    StartWith(QStringLiteral("Plain"));
    Window().resize(100, 100);
    EXPECT_EQ(Window().size(), QSize(620, 460));
    Window().resize(621, 461);
    EXPECT_EQ(Window().size(), QSize(621, 461)) << "a minimum, not a size";
}

TEST_F(SkinChange, AnOutlineTooFineForAWindowIsRefusedInWordsAndTheOldOneStays)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenSkin(QStringLiteral("Dithered"),
              {{QStringLiteral("Frame.gif"),
                GifBytes({600, 400}, {0xffff00ff, Green}, [](int x, int y) { return (x + y + 1) % 2; })}});
    StartWith(QStringLiteral("Blue"));
    const QRegion outline = Outline();
    const QImage shown = Shown();
    try {
        ChangeTo(QStringLiteral("Dithered"));
        FAIL() << "taken";
    } catch (const RuntimeError &failure) {
        EXPECT_TRUE(failure.Description().contains(QString::number(Region::MostRectangles)))
            << qPrintable(failure.Description());
    }
    EXPECT_EQ(Outline(), outline);
    EXPECT_EQ(Window().size(), Large);
    EXPECT_EQ(Shown(), shown);
    ChangeTo(QStringLiteral("Blue"));
    EXPECT_EQ(Outline(), outline) << "and the program goes on";
}

TEST_F(SkinChange, AFrameOfTheKeyColourAloneShowsNothingRatherThanARectangle)
{
    GivenSkin(QStringLiteral("Nothing"), {{QStringLiteral("Frame.gif"), GifBytes({700, 500}, Green)}});
    StartWith(QStringLiteral("Nothing"));
    EXPECT_FALSE(Outline().isEmpty()) << "an empty mask would be none";
    EXPECT_FALSE(Outline().intersects(Window().rect()));
    QImage clear = Shown();
    clear.fill(Qt::transparent);
    EXPECT_EQ(Shown(), clear);
}

TEST_F(SkinChange, ASkinWithoutAFrameIsRefusedEachTimeAndTheWindowStays)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenSkin(QStringLiteral("Frameless"), {{QStringLiteral("Frame.gif"), {}}});
    StartWith(QStringLiteral("Blue"));
    const QImage shown = Shown();
    for (int time = 0; time < 2; ++time) {
        EXPECT_THROW(ChangeTo(QStringLiteral("Frameless")), RuntimeError);
        EXPECT_EQ(Shown(), shown);
    }
}

TEST_F(SkinChange, PlacesEverythingWhereTheSkinSays)
{
    GivenSkin(QStringLiteral("Laid"),
              {{QStringLiteral("Skin.ini"), Positions(GameArea) + "LogoLeft=31\r\nLogoTop=32\r\nMenuLeft=33\r\n"
                                                                  "MenuTop=34\r\nMinimizeLeft=35\r\nMinimizeTop=36"
                                                                  "\r\n[colours]\r\nDialogText=66051\r\n"}});
    StartWith(QStringLiteral("Laid"));
    const auto place = [&](const char *name) { return Program.Find(name)->geometry(); };
    const int W = GameArea.width(), H = GameArea.height(), N = place("PlayerName1").height();
    ASSERT_GT(N, 0);
    EXPECT_EQ(place("ctlButtonPanel1").topLeft(), QPoint(33, 34));
    EXPECT_EQ(place("picLogo").topLeft(), QPoint(31, 32));
    EXPECT_EQ(Text(place("picPrint")), Text(GameArea));
    EXPECT_EQ(Text(place("PlayerName1")), Text({0, 0, W, N}));
    for (const char *name : {"ctlUserInfo1", "ctlGameList1", "ctlWorkOut1"})
        EXPECT_EQ(Text(place(name)), Text({0, N, W, H - N})) << name;
    for (const char *name : {"ctlGameInstructions1", "ctlPlayerlist1"})
        EXPECT_EQ(Text(place(name)), Text({0, 0, W, H})) << name;
    const int strip = place("ctlGamePlaySummary1").height();
    EXPECT_EQ(Text(place("ctlGamePlaySummary1")), Text({0, H - strip, W, strip}));
    EXPECT_EQ(place("picMinimize").topLeft(), QPoint(35, 36));
    EXPECT_EQ(place("picClose").topLeft(), QPoint(35 + place("picMinimize").width(), 36));
    EXPECT_EQ(Program.Find<cTransPictureBox>("lblTime")->ForeColour(), QColor(3, 2, 1)) << "red is the lowest byte";

    StartGame();
    QWidget *const area = Program.Find("picPrint");
    for (const char *name : {"PlayerName1", "ctlUserInfo1", "ctlGameList1", "ctlWorkOut1", "ctlGameInstructions1",
                             "ctlPlayerlist1", "ctlGamePlaySummary1", "picPause"})
        EXPECT_EQ(Program.Find(name)->parentWidget(), area) << name << ": places are those inside of the game area";
    EXPECT_TRUE(area->isAncestorOf(GameControl));
    const int gameHeight = H - strip - 3;
    EXPECT_EQ(Text(GameControl->geometry()), Text({0, 0, W, gameHeight}));
    const QSize pause = place("picPause").size();
    EXPECT_EQ(place("picPause").topLeft(), QPoint((W - pause.width()) / 2, (gameHeight - pause.height()) / 2));
}

TEST_F(SkinChange, LayoutTakesTheCurrentSkinAndTheFrameThatOfTheArgument)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenSkin(QStringLiteral("Blue"),
              {{QStringLiteral("Frame.gif"), PlainFrame(Large, Blue)},
               {QStringLiteral("Skin.ini"),
                Positions(GameArea) + "MinimizeLeft=41\r\nMinimizeTop=42\r\n[colours]\r\nDialogText=255\r\n"}});
    GivenSkin(QStringLiteral("Green"),
              {{QStringLiteral("Frame.gif"), PlainFrame({700, 500}, Green)},
               {QStringLiteral("Skin.ini"), Positions({1, 2, 300, 200}) +
                                                "LogoLeft=5\r\nLogoTop=6\r\nMinimizeLeft=51\r\nMinimizeTop=52\r\n"
                                                "[colours]\r\nDialogText=65280\r\n"}});
    StartWith(QStringLiteral("Blue"));
    const auto blue = modMain::CurrentSkin;
    ChangeTo(QStringLiteral("Green"));
    Window().SetSkin(blue);
    EXPECT_EQ(Window().size(), Large);
    EXPECT_EQ(Text(Program.Find("picPrint")->geometry()), Text({1, 2, 300, 200}));
    EXPECT_EQ(Program.Find("picLogo")->pos(), QPoint(5, 6));
    EXPECT_EQ(Program.Find("picMinimize")->pos(), QPoint(41, 42)) << "the window's own buttons are the argument's";
    EXPECT_EQ(Program.Find<cTransPictureBox>("lblTime")->ForeColour(), QColor(255, 0, 0));
    EXPECT_EQ(modMain::CurrentSkin->Name(), QStringLiteral("Green")) << "the caller sets it";
}

TEST_F(SkinChange, EachLayoutDressesTheWorkoutScreenAndNoOther)
{
    for (const auto &[name, colour] : {std::pair("Blue", Blue), std::pair("Green", Green)})
        GivenSkin(QLatin1String(name), {{QStringLiteral("Frame.gif"), PlainFrame(Large, colour)},
                                        {QStringLiteral("VeryWideButton.gif"), GifBytes({120, 24}, colour)},
                                        {QStringLiteral("Skin.ini"), Positions(GameArea)}});
    StartWith(QStringLiteral("Blue"));
    const auto colourOf = [&](const char *button) {
        return Program.Find<LarkButton>(button)->PictureUp().pixel(60, 12);
    };
    modMain::CurrentSkin = modMain::Skins->Item(QStringLiteral("Green"));
    EXPECT_EQ(colourOf("butNextWorkout"), Blue);
    Window().resize(Window().size() + QSize(1, 0));
    EXPECT_EQ(colourOf("butNextWorkout"), Green);
    EXPECT_EQ(colourOf("cmdPlay"), Blue) << "on the practice screen";
}

TEST_F(SkinChange, TheWheelIsHookedOnlyWhileTheWindowIsActive)
{
    StartWith(QStringLiteral("Plain"));
    ASSERT_TRUE(RunningProgram::Until([&] { return Window().isActiveWindow(); }));
    EXPECT_EQ(modWheel::HookedForm(), &Window());
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(RunningProgram::Until([&] { return !Window().isActiveWindow(); }));
    EXPECT_EQ(modWheel::HookedForm(), nullptr);
    Window().activateWindow();
    ASSERT_TRUE(RunningProgram::Until([&] { return Window().isActiveWindow(); }));
    EXPECT_EQ(modWheel::HookedForm(), &Window());
}

TEST_F(SkinChange, AClickOnTheLogoOpensItsAddressWithTheDesktop)
{
    UrlCatcher catcher;
    StartWith(QStringLiteral("Plain"));
    Program.Click("picLogo");
    ASSERT_EQ(catcher.Opened.size(), 1);
    EXPECT_TRUE(catcher.Opened[0].startsWith(u"http://")) << qPrintable(catcher.Opened[0]);
}

TEST_F(SkinChange, AThousandTimesDoesNotGrowTheProgram)
{
    GivenColour(QStringLiteral("Blue"), Blue);
    GivenColour(QStringLiteral("Green"), Green);
    StartWith(QStringLiteral("Blue"));
    const auto change = [&](int times) {
        for (int time = 0; time < times; ++time) {
            ChangeTo(time % 2 == 0 ? QStringLiteral("Green") : QStringLiteral("Blue"));
            RunningProgram::Turn(0); // what was given up goes when the loop is reached again
        }
    };
    ASSERT_TRUE(Program.ComesToRest()); // what the first chart needs has come
    change(100);                        // caches are full and the heap has its size
    const double before = MegabytesInUse();
    change(1000);
    const double grown = MegabytesInUse() - before;
    RecordProperty("grown_kilobytes", static_cast<int>(grown * 1024));
    EXPECT_LT(grown, MostGrowth) << "[MB] one picture of the frame has 1.6";
}

#include "TestSkinChange.moc"
