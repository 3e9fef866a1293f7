// Skins that are broken in every way, met by the whole program: each is dropped alone, or lacks a picture and works.
#include "tests/shell/support/FaceTest.h"

#include "tests/support/ReadOnlyFolder.h"

#include "platform/RuntimeError.h"

#include "shell/StartUp.h"
#include "shell/program/modMain.h"

#include "skin/CSkin.h"
#include "skin/colSkin.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QTimer>

class BrokenSkins : public FaceTest
{
protected:
    const QByteArray m_Frame = PlainFrame({700, 500}, 0xff2040c0);
    const QByteArray m_Cut = m_Frame.left(m_Frame.size() / 2);
    /// Through the menu and the dialog, and away with the message that comes.
    void ChooseInOptions(const QString &skin)
    {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            QWidget *const options = QApplication::activeModalWidget();
            if (options == nullptr || options->objectName() != u"frmOptions" || !options->isActiveWindow()) return;
            look.stop();
            options->findChild<QComboBox *>()->setCurrentText(skin);
            Program.AnswerNextBox("cmd2");
            Program.Click(options->findChild<QWidget *>(QStringLiteral("cmdOK")));
        });
        look.start(5);
        Program.ClickMenu(QStringLiteral("options"));
    }

    QByteArray m_Huge = QByteArray("GIF89a\xff\xff\xff\xff\x80\x00\x00\x00\x00\x00\xff\xff\xff,", 20);
};

TEST_F(BrokenSkins, ThatCantBeLoadedAreLeftOutAloneAndWithoutAMessage)
{
    GivenSkin(QStringLiteral("No background"), {{QStringLiteral("ButtonBackground.gif"), {}}});
    GivenSkin(QStringLiteral("No highlight"), {{QStringLiteral("ButtonHighlight.gif"), {}}});
    GivenSkin(QStringLiteral("No selected"), {{QStringLiteral("ButtonSelected.gif"), {}}});
    GivenSkin(QStringLiteral("Cut panel"), {{QStringLiteral("ButtonBackground.gif"), m_Cut}});
    GivenSkin(QStringLiteral("Huge panel"), {{QStringLiteral("ButtonHighlight.gif"), m_Huge}});
    GivenSkin(QStringLiteral("No picture"), {{QStringLiteral("ButtonSelected.gif"), "hello"}});
    GivenSkin(QStringLiteral("No number"), {{QStringLiteral("Skin.ini"), "[Position]\r\nMenuLeft=left\r\n"}});
    GivenSkin(QStringLiteral("Beyond"), {{QStringLiteral("Skin.ini"), "[Position]\r\nMenuLeft=9999999999\r\n"}});
    GivenSkin(QStringLiteral("Too large"), {{QStringLiteral("Skin.ini"), "[Graphics]\r\nMinX=1601\r\n"}});
    GivenSkin(QStringLiteral("Just fits"),
              {{QStringLiteral("Skin.ini"), "[Graphics]\r\nMinX=1600\r\nMinY=1200\r\n"}});
    GivenSkin(QStringLiteral(".hidden"));
    Program.Folder.Write(QStringLiteral("skins/readme.txt"), "a stray file");
    Program.Folder.Write(QStringLiteral("skins/Empty/notes.txt"), "a folder without pictures");
    StartWith(QStringLiteral("Plain"));
    EXPECT_EQ(SkinNames().join(u'|'), QStringLiteral("Just fits|Plain"));
    EXPECT_TRUE(Program.PlainBoxes.isEmpty());
    EXPECT_TRUE(Program.Boxes.isEmpty());
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("skins/readme.txt")), "a stray file");
}

TEST_F(BrokenSkins, WithoutOtherPicturesStayInTheListAndCanBeTaken)
{
    GivenSkin(QStringLiteral("Poor"), {{QStringLiteral("WideButton.gif"), {}},
                                       {QStringLiteral("Button300.gif"), m_Cut},
                                       {QStringLiteral("DialogPicture.gif"), m_Huge},
                                       {QStringLiteral("VeryWideButtonPressed.gif"), "hello"}});
    StartWith(QStringLiteral("Plain"));
    ChangeTo(QStringLiteral("Poor"));
    StartGame(); // through a dialog without a picture and with plain buttons
    EXPECT_TRUE(GameControl->isVisible());
}

TEST_F(BrokenSkins, OfADamagedOrHugeFrameAreRefusedWhenTheyAreTaken)
{
    GivenSkin(QStringLiteral("Cut"), {{QStringLiteral("Frame.gif"), m_Cut}});
    GivenSkin(QStringLiteral("Huge"), {{QStringLiteral("Frame.gif"), m_Huge}});
    StartWith(QStringLiteral("Plain"));
    EXPECT_EQ(SkinNames().join(u'|'), QStringLiteral("Cut|Huge|Plain"));
    const QRegion outline = Window().mask();
    for (const QString &name : {QStringLiteral("Cut"), QStringLiteral("Huge")}) {
        EXPECT_THROW(ChangeTo(name), RuntimeError);
        EXPECT_EQ(Window().mask(), outline);
    }
}

TEST_F(BrokenSkins, ChosenInTheOptionsAreRefusedAndTheNextStartTakesTheFormerOne)
{
    // A pixel beside the other, in every row: more pieces than a window can have.
    const QByteArray fine =
        GifBytes({700, 500}, {0xffff00ff, 0xff2040c0}, [](int x, int y) { return y == 499 ? 0 : (x + y) % 2; });
    GivenSkin(QStringLiteral("Cut"), {{QStringLiteral("Frame.gif"), m_Cut}});
    GivenSkin(QStringLiteral("Fine"), {{QStringLiteral("Frame.gif"), fine}});
    StartWith(QStringLiteral("Plain"));
    const QRegion outline = Window().mask();
    for (const char *name : {"Cut", "Fine"}) {
        ChooseInOptions(QLatin1String(name));
        ASSERT_TRUE(Program.HasAnsweredAll());
        EXPECT_TRUE(Program.Boxes.last().contains(QLatin1String(name))) << qPrintable(Program.Boxes.last());
        EXPECT_EQ(modMain::CurrentSkin->Name(), QStringLiteral("Plain"));
        EXPECT_EQ(Window().mask(), outline);
    }
    modMain::SaveSettings(); // as at the end of the program
    EXPECT_TRUE(Program.Folder.Read(QStringLiteral("Settings.ini")).contains("Skin=Plain"));
}

TEST_F(BrokenSkins, AtTheStartEndInTheStartUpMessage)
{
    GivenSkin(QStringLiteral("Cut"), {{QStringLiteral("Frame.gif"), m_Cut}});
    Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nSkin=Cut\r\n");
    EXPECT_FALSE(Program.Start());
    ASSERT_EQ(Program.PlainBoxes.size(), 1);
    EXPECT_TRUE(Program.PlainBoxes[0].startsWith(u"Error starting program @")) << qPrintable(Program.PlainBoxes[0]);
    EXPECT_TRUE(Program.PlainBoxes[0].contains(u"Frame.gif")) << qPrintable(Program.PlainBoxes[0]);
}

TEST_F(BrokenSkins, OfWhichNoneIsLeftEndTheStart)
{
    const QString plain = Program.Folder.Path() + QStringLiteral("skins/Plain/ButtonSelected.gif");
    ASSERT_TRUE(QFile::remove(plain));
    EXPECT_FALSE(Program.Start());
    ASSERT_EQ(Program.PlainBoxes.size(), 1);
    EXPECT_TRUE(Program.PlainBoxes[0].startsWith(u"Error starting program @"));
}

TEST_F(BrokenSkins, NamedInAnotherCaseAreFound)
{
    GivenSkin(QStringLiteral("blue"), {{QStringLiteral("Frame.gif"), {}}, {QStringLiteral("FRAME.GIF"), m_Frame}});
    Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nSkin=BLUE\r\n");
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(modMain::CurrentSkin->Name(), QStringLiteral("blue"));
    EXPECT_EQ(Window().size(), QSize(700, 500));
}

TEST_F(BrokenSkins, InAFolderThatCantBeWrittenAreListedAndTaken)
{
    GivenSkin(QStringLiteral("Sealed"), {{QStringLiteral("Skin.ini"), "[Position]\r\nMenuLeft=12\r\n"}});
    using enum QFileDevice::Permission; // a user without rights must come as far as there
    QFile::setPermissions(Program.Folder.Path(),
                          ReadOwner | WriteOwner | ExeOwner | ReadGroup | ExeGroup | ReadOther | ExeOther);
    const ReadOnlyFolder sealed(Program.Folder.Path() + QStringLiteral("skins/Sealed"));
    if (!sealed.IsInForce()) GTEST_SKIP() << "this user may write everywhere";
    const CSkin *skin = nullptr;
    colSkin skins;
    for (const auto &one : skins)
        if (one->Name() == u"Sealed") skin = one.get();
    ASSERT_NE(skin, nullptr);
    EXPECT_EQ(skin->MenuLeft, 12);
    EXPECT_EQ(Program.Folder.Read(QStringLiteral("skins/Sealed/Skin.ini")), "[Position]\r\nMenuLeft=12\r\n");
}
