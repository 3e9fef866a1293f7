// The service object, as games and screens use it.
#include "tests/shell/support/SessionTest.h"

#include "platform/SoundBuffer.h"
#include "platform/SoundDevice.h"

#include "services/colSound.h"

#include "domain/CGame.h"
#include "domain/CPlayer.h"

#include "sdk/controls/LarkButton.h"
#include "sdk/controls/LarkForm.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"

#include "shell/program/modMain.h"

#include "skin/CSkin.h"

#include <QPainter>

#include <algorithm>

namespace
{
class ServiceObject : public SessionTest
{
protected:
    CNoggleFramework &Framework() const { return *modMain::Framework; }
    QVariant Tell(const char *cmd, const QVariant &info1 = {}, const QVariant &info2 = {}) const
    {
        return Framework().Message(QLatin1String(cmd), info1, info2);
    }
    /// A picture of one colour, of the tests' own, in a file below the program's folder.
    void GivenPicture(const QString &name, QRgb colour, const char *format) const
    {
        QImage picture(12, 8, QImage::Format_RGB32);
        picture.fill(colour);
        Program.Folder.Write(name, "");
        ASSERT_TRUE(picture.save(Program.Folder.Path() + name, format));
    }
    /// The two pairs of the skin, each of its own colour.
    void GivenButtonPairs() const
    {
        for (const auto &[name, colour] :
             {std::pair("WideButton", 0xff0000ff), std::pair("WideButtonPressed", 0xff0000aa),
              std::pair("VeryWideButton", 0xff00ff00), std::pair("VeryWideButtonPressed", 0xff00aa00),
              std::pair("Own", 0xffff0000), std::pair("OwnDown", 0xffaa0000)}) {
            // GIF can be read and not written here; what a picture is, its bytes tell.
            GivenPicture(QStringLiteral("skins/Plain/%1.gif").arg(QLatin1String(name)), colour, "png");
        }
    }
    static QString Pair(const QObject &button)
    {
        const auto colour = [&](const char *property) {
            const auto picture = button.property(property).value<QImage>();
            return picture.isNull() ? QStringLiteral("none")
                                    : QString::number(picture.pixel(0, 0) & 0xffffff, 16).rightJustified(6, u'0');
        };
        return colour("PictureUp") + u' ' + colour("PictureDown");
    }
};

const QString Ordinary = QStringLiteral("0000ff 0000aa");
const QString VeryWide = QStringLiteral("00ff00 00aa00");
} // namespace

TEST_F(ServiceObject, AButtonOfExactlySixtyPixelsTakesTheOrdinaryPair)
{
    GivenButtonPairs();
    OpenWorkout();
    LarkButton button;
    button.resize(60, 24);
    Framework().SkinButton(&button);
    EXPECT_EQ(Pair(button), Ordinary);
    button.resize(61, 24);
    Framework().SkinButton(&button);
    EXPECT_EQ(Pair(button), VeryWide);
}

TEST_F(ServiceObject, AButtonInAContainerOfTwipsIsMeasuredInPixels)
{
    GivenButtonPairs();
    OpenWorkout();
    QObject container;
    auto *const button = new QObject(&container);
    for (const char *property : {"PictureUp", "PictureDown"}) button->setProperty(property, QImage());
    for (const auto &[mode, width, pair] :
         {std::tuple(1, 900, Ordinary), std::tuple(1, 907, Ordinary), std::tuple(1, 908, VeryWide),
          std::tuple(3, 60, Ordinary), std::tuple(3, 61, VeryWide), std::tuple(3, 900, VeryWide)}) {
        container.setProperty("ScaleMode", mode);
        button->setProperty("Width", width);
        Framework().SkinButton(button);
        EXPECT_EQ(Pair(*button), pair) << mode << ' ' << width;
    }
}

TEST_F(ServiceObject, ANamedButtonTakesItsPairWhateverItsWidth)
{
    GivenButtonPairs();
    OpenWorkout();
    LarkButton button;
    for (const int width : {20, 200}) {
        button.resize(width, 24);
        Framework().SkinButton(&button, QStringLiteral("Own"));
        EXPECT_EQ(Pair(button), QStringLiteral("ff0000 aa0000"));
    }
}

TEST_F(ServiceObject, ANameWithoutPicturesLeavesThemEmptyAndIsNoError)
{
    GivenButtonPairs();
    OpenWorkout();
    LarkButton button;
    Framework().SkinButton(&button);
    Framework().SkinButton(&button, QStringLiteral("NoSuch"));
    EXPECT_EQ(Pair(button), QStringLiteral("none none"));
}

TEST_F(ServiceObject, ADamagedPictureLeavesTheOtherOneOfItsPair)
{
    GivenButtonPairs();
    Program.Folder.Write(QStringLiteral("skins/Plain/VeryWideButton.gif"), "GIF89a no picture");
    OpenWorkout();
    LarkButton button;
    button.resize(100, 24);
    Framework().SkinButton(&button);
    EXPECT_EQ(Pair(button), QStringLiteral("none 00aa00"));
}

TEST_F(ServiceObject, WithoutASkinNothingHappens)
{
    GivenButtonPairs();
    OpenWorkout();
    modMain::CurrentSkin.reset();
    LarkButton button;
    cTransPictureBox box;
    Framework().SkinButton(&button);
    Framework().SkinButton(nullptr);
    Framework().SkinPicbox(&box);
    Framework().SkinPicbox(nullptr);
    EXPECT_EQ(Pair(button), QStringLiteral("none none"));
    EXPECT_TRUE(box.property("PictureFile").value<QImage>().isNull());
}

TEST_F(ServiceObject, APictureBoxTakesTheDialogPictureOrANamedOne)
{
    GivenPicture(QStringLiteral("skins/Plain/Own.gif"), 0xffff0000, "png");
    OpenWorkout();
    cTransPictureBox box;
    Framework().SkinPicbox(&box);
    EXPECT_EQ(box.property("PictureFile").value<QImage>().size(), modMain::CurrentSkin->DialogPicture().size());
    Framework().SkinPicbox(&box, QStringLiteral("Own"));
    EXPECT_EQ(box.property("PictureFile").value<QImage>().size(), QSize(12, 8));
}

TEST_F(ServiceObject, ANamedPictureGoesToThePictureFileAloneTheDialogPictureToBoth)
{
    GivenPicture(QStringLiteral("skins/Plain/Own.gif"), 0xffff0000, "png");
    OpenWorkout();
    QObject box;
    for (const char *property : {"PictureFile", "picture"}) box.setProperty(property, QImage());
    const auto sizeOf = [&](const char *property) { return box.property(property).value<QImage>().size(); };
    Framework().SkinPicbox(&box, QStringLiteral("Own"));
    EXPECT_EQ(sizeOf("PictureFile"), QSize(12, 8));
    EXPECT_EQ(sizeOf("picture"), QSize(0, 0));
    Framework().SkinPicbox(&box);
    for (const char *property : {"PictureFile", "picture"})
        EXPECT_EQ(sizeOf(property), modMain::CurrentSkin->DialogPicture().size()) << property;
}

TEST_F(ServiceObject, AFormTakesTheDialogPictureThoughItIsNoPictureBox)
{
    OpenWorkout();
    LarkForm form;
    Framework().SkinPicbox(&form);
    EXPECT_EQ(form.picture(), modMain::CurrentSkin->DialogPicture());
    // One that knows "picture" alone, as plain forms do.
    PictureBox other(nullptr);
    Framework().SkinPicbox(&other);
    EXPECT_EQ(other.property("picture").value<QImage>(), modMain::CurrentSkin->DialogPicture());
}

TEST_F(ServiceObject, CommandsAreComparedExactly)
{
    OpenWorkout();
    Play();
    for (const char *cmd : {"PROGRESS", "Progress", " progress", "progress ", "", "timeup", "score", "stopsound"})
        EXPECT_EQ(Tell(cmd, 10), QVariant(QStringLiteral("unsupported"))) << cmd;
    EXPECT_FALSE(Tell("progress", 10).isValid());
    EXPECT_FALSE(Tell("pausetimer").isValid());
    EXPECT_FALSE(Tell("resumetimer").isValid());
    EXPECT_FALSE(Tell("playsound", QStringLiteral("*ding")).isValid());
}

TEST_F(ServiceObject, AnswersCarryTheirTypes)
{
    OpenWorkout();
    Play();
    EXPECT_EQ(Tell("gamepath"), QVariant(Program.Folder.Path() + QStringLiteral("alpha/")));
    EXPECT_EQ(Tell("playerkey"), QVariant(1));
    EXPECT_EQ(Tell("playerkey").typeId(), QMetaType::Int);
    EXPECT_EQ(Tell("timetaken").typeId(), QMetaType::Int);
}

TEST_F(ServiceObject, GetsettingAndGlobalsettingGiveTheSameAnswer)
{
    OpenWorkout();
    Play();
    for (const char *cmd : {"getsetting", "globalsetting"}) {
        EXPECT_EQ(Tell(cmd, QStringLiteral("config"), QStringLiteral("colour")), QVariant(QStringLiteral("blue")));
        EXPECT_EQ(Tell(cmd, QStringLiteral("Settings"), QStringLiteral("Language")), QVariant(QString()))
            << "never the program's own settings";
    }
}

TEST_F(ServiceObject, AReadSettingThatIsAbsentStaysAbsent)
{
    OpenWorkout();
    Play();
    const QByteArray before = Program.Folder.Read(QStringLiteral("alpha/GameSettings.ini"));
    EXPECT_EQ(Framework().GetSetting(QStringLiteral("best"), QStringLiteral("run")), QString());
    EXPECT_EQ(Framework().LangString(QStringLiteral("Hint")), QString());
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("alpha/GameSettings.ini")), before);
    Framework().SaveSetting(QStringLiteral("best"), QStringLiteral("run"), QStringLiteral("12"));
    EXPECT_EQ(Framework().GetSetting(QStringLiteral("best"), QStringLiteral("run")), QStringLiteral("12"));
}

TEST_F(ServiceObject, WordsOfTheGameAreInTheLanguageElseInTheDefault)
{
    OpenWorkout();
    Play();
    Framework().SaveSetting(QStringLiteral("default"), QStringLiteral("Hint"), QStringLiteral("Look"));
    EXPECT_EQ(Framework().LangString(QStringLiteral("Hint")), QStringLiteral("Look"));
    Framework().SaveSetting(QStringLiteral("0"), QStringLiteral("Hint"), QStringLiteral("See"));
    EXPECT_EQ(Framework().LangString(QStringLiteral("Hint")), QStringLiteral("See"));
    EXPECT_EQ(Framework().Lang(), QStringLiteral("0"));
}

TEST_F(ServiceObject, PlaysoundWithAStarPlaysFromTheShellsSet)
{
    const QByteArray ding = Program.Folder.Read(QStringLiteral("sounds/ding.wav"));
    Program.Folder.Write(QStringLiteral("alpha/sounds/ding.wav"), ding);
    OpenWorkout();
    Play();
    const auto own = [this] { return Game()->Sounds().Item(QStringLiteral("ding")).DSBuffer(); };
    Tell("playsound", QStringLiteral("*ding"));
    EXPECT_TRUE(Sound("ding").IsPlaying());
    EXPECT_FALSE(own()->IsPlaying());
    Loopback->Render(SoundDevice::LoopbackRate * 5);
    Tell("playsound", QStringLiteral("ding"));
    EXPECT_FALSE(Sound("ding").IsPlaying());
    EXPECT_TRUE(own()->IsPlaying());
}

TEST_F(ServiceObject, PlaysoundRepeatsForTheExactWordAlone)
{
    Program.Folder.Write(QStringLiteral("alpha/sounds/tick.wav"),
                         Program.Folder.Read(QStringLiteral("sounds/ding.wav")));
    OpenWorkout();
    Play();
    SoundBuffer &tick = *Game()->Sounds().Item(QStringLiteral("tick")).DSBuffer();
    for (const QVariant &once : {QVariant(), QVariant(QStringLiteral("Repeat")), QVariant(QStringLiteral("repeat ")),
                                 QVariant(1), QVariant(true)}) {
        Tell("playsound", QStringLiteral("tick"), once);
        Loopback->Render(SoundDevice::LoopbackRate * 5);
        EXPECT_FALSE(tick.IsPlaying()) << qPrintable(once.toString());
    }
    Tell("playsound", QStringLiteral("tick"), QStringLiteral("repeat"));
    Loopback->Render(SoundDevice::LoopbackRate * 5);
    EXPECT_TRUE(tick.IsPlaying());
    EndAndScore();
    EXPECT_TRUE(tick.IsPlaying()) << "nothing but the game itself ends it";
}

TEST_F(ServiceObject, ASoundThatIsNotThereIsSilence)
{
    OpenWorkout();
    Play();
    for (const char *name : {"", "*", "nosuch", "*nosuch", "../../sounds/ding"})
        EXPECT_EQ(FailureOf([&] { Tell("playsound", QLatin1String(name)); }), QStringLiteral("none")) << name;
}

TEST_F(ServiceObject, ANameThatIsNoTextIsAFailure)
{
    OpenPractice();
    Play();
    for (const char *cmd : {"playsound", "getsetting", "globalsetting"}) {
        SCOPED_TRACE(cmd);
        EXPECT_EQ(FailureOf([&] { Tell(cmd, QVariantMap{}, QStringLiteral("x")); }),
                  QStringLiteral("A text is expected."));
        EXPECT_EQ(FailureOf([&] { Tell(cmd, QVariant(), QStringLiteral("x")); }), QStringLiteral("none"));
    }
}

TEST_F(ServiceObject, AGameKeepsATextForEachLevelOfThePlayer)
{
    OpenWorkout();
    Play();
    Framework().SetPlayerGameInfo(2, QStringLiteral("two"));
    EXPECT_EQ(Framework().PlayerGameInfo(2), QStringLiteral("two"));
    EXPECT_EQ(Framework().PlayerGameInfo(1), QString());
    EXPECT_TRUE(Framework().PlayerGameInfo(0).contains(u"two")) << "level 0 is the whole";
    EXPECT_EQ(modMain::CurrentPlayer->GameInfo(Game()->Key, 2), QStringLiteral("two"));
}

TEST_F(ServiceObject, PlayerGameInfoWithoutAPlayerOrGameTellsOnceAndIsEmpty)
{
    OpenWorkout();
    modMain::CurrentGame.reset();
    Program.AnswerNextBox("cmd2");
    EXPECT_EQ(Framework().PlayerGameInfo(1), QString());
    EXPECT_EQ(TakeBox().section(QStringLiteral("\r\n"), 0, 0), QStringLiteral("Error getting game information."));
    Program.AnswerNextBox("cmd2");
    Framework().SetPlayerGameInfo(1, QStringLiteral("x"));
    EXPECT_EQ(TakeBox().section(QStringLiteral("\r\n"), 0, 0), QStringLiteral("Error saving game information."));
    RunningProgram::Turn(30);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "one box for one failure";
}

TEST_F(ServiceObject, WritingALevelThatTheGameHasNotTellsOnce)
{
    OpenWorkout();
    Play();
    Program.AnswerNextBox("cmd2");
    Framework().SetPlayerGameInfo(4, QStringLiteral("x"));
    EXPECT_EQ(TakeBox().section(QStringLiteral("\r\n"), 0, 0), QStringLiteral("Error setting player/game info."));
    RunningProgram::Turn(30);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "one box for one failure";
}

TEST_F(ServiceObject, MembersThatNeedAGameFailBeforeTheFirstOneAndWorkAfterIt)
{
    OpenWorkout();
    const QString failure = QStringLiteral("No game has been chosen yet.");
    EXPECT_EQ(FailureOf([&] { Framework().GetSetting({}, {}); }), failure);
    EXPECT_EQ(FailureOf([&] { Framework().SaveSetting({}, {}, {}); }), failure);
    EXPECT_EQ(FailureOf([&] { Framework().LangString({}); }), failure);
    EXPECT_EQ(FailureOf([&] { Tell("gamepath"); }), failure);
    EXPECT_EQ(FailureOf([&] { Tell("playsound", QStringLiteral("tick")); }), failure);
    EXPECT_EQ(FailureOf([&] { Tell("playsound", QStringLiteral("*ding")); }), QStringLiteral("none"));
    Play();
    EndAndScore();
    EXPECT_EQ(Tell("gamepath"), QVariant(Program.Folder.Path() + QStringLiteral("alpha/")));
}

TEST_F(ServiceObject, DrawBackgroundCopiesTheGameBackgroundFromItsCorner)
{
    OpenWorkout();
    const QImage background = Program.Window().GameBackground();
    ASSERT_EQ(background.size(), Program.Find("picPrint")->size());
    QImage drawn(background.size() + QSize(10, 10), QImage::Format_RGB32);
    drawn.fill(Qt::magenta);
    QPainter painter(&drawn);
    Framework().DrawBackground(&painter);
    painter.end();
    EXPECT_EQ(drawn.copy(background.rect()), background);
    EXPECT_EQ(drawn.pixelColor(background.width(), 0), QColor(Qt::magenta));
    EXPECT_EQ(FailureOf([&] { Framework().DrawBackground(nullptr); }), QStringLiteral("none"));
}

TEST_F(ServiceObject, DrawBackgroundIsWhiteWhenTheSettingSaysSo)
{
    OpenWorkout();
    modMain::WhiteBackground = true;
    Program.Window().SetSkin(modMain::CurrentSkin);
    QImage drawn(20, 20, QImage::Format_RGB32);
    drawn.fill(Qt::black);
    QPainter painter(&drawn);
    Framework().DrawBackground(&painter);
    painter.end();
    EXPECT_EQ(drawn.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(drawn.pixelColor(19, 19), QColor(Qt::white));
}

TEST_F(ServiceObject, GetPictureReadsFromTheProgramsImages)
{
    GivenPicture(QStringLiteral("Images/dot.png"), 0xff123456, "png");
    GivenPicture(QStringLiteral("skins/Plain/skin.png"), 0xff123456, "png");
    OpenWorkout();
    EXPECT_EQ(Framework().GetPicture(QStringLiteral("dot.png")).size(), QSize(12, 8));
    EXPECT_NE(FailureOf([&] { Framework().GetPicture(QStringLiteral("skin.png")); }), QStringLiteral("none"))
        << "not from the skin";
    EXPECT_NE(FailureOf([&] { Framework().GetPicture(QStringLiteral("dot")); }), QStringLiteral("none"))
        << "the name has its extension";
    Program.Folder.Write(QStringLiteral("Images/torn.png"),
                         Program.Folder.Read(QStringLiteral("Images/dot.png")).left(40));
    EXPECT_NE(FailureOf([&] { Framework().GetPicture(QStringLiteral("torn.png")); }), QStringLiteral("none"));
}

TEST_F(ServiceObject, GetStringBeyondSixteenBitsIsAFailureNeverAnotherString)
{
    OpenWorkout();
    EXPECT_EQ(Framework().GetString(304), QStringLiteral("Game over"));
    EXPECT_EQ(Framework().GetString(29999), QString());
    for (const int index : {70000, 65536 + 304, 32768, -32769})
        EXPECT_EQ(FailureOf([&] { Framework().GetString(index); }), QStringLiteral("Overflow.")) << index;
}

TEST_F(ServiceObject, OnlineFlagIsTheSetting)
{
    OpenWorkout();
    for (const bool online : {true, false}) {
        modMain::Online = online;
        EXPECT_EQ(Framework().OnlineFlag(), online);
    }
}

TEST_F(ServiceObject, ShowErrorPutsTheDescriptionInTheSecondLine)
{
    OpenWorkout();
    Program.AnswerNextBox("cmd2");
    Framework().ShowError(QStringLiteral("What"), QStringLiteral("Why"));
    EXPECT_EQ(TakeBox(), QStringLiteral("What\r\nWhy"));
    Program.AnswerNextBox("cmd2");
    Framework().ShowError(QStringLiteral("What"), {});
    EXPECT_EQ(TakeBox(), QStringLiteral("What\r\n"));
}

TEST_F(ServiceObject, ABoxInsideABoxLeavesTheOuterAnswerAlone)
{
    OpenWorkout();
    QString outer = QStringLiteral("untouched");
    QString inner;
    std::int32_t innerAnswer = 0;
    Program.AnswerNextBox("cmd1", QStringLiteral("outside"), [&] {
        Program.AnswerNextBox("cmd1", QStringLiteral("inside"));
        innerAnswer = Framework().MsgBox(QStringLiteral("Inner?"), 33, nullptr, &inner);
    });
    EXPECT_EQ(Framework().MsgBox(QStringLiteral("Outer?"), 33, nullptr, &outer), 1);
    EXPECT_EQ(innerAnswer, 1);
    EXPECT_EQ(inner, QStringLiteral("inside"));
    EXPECT_EQ(outer, QStringLiteral("outside"));
}
