// The options dialog, used with mouse and keys, and the rounded rectangle.
#include "platform/Colour.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"
#include "services/CResource.h"
#include "services/colSound.h"
#include "shell/program/MainForm.h"
#include "shell/program/modMain.h"
#include "skin/ScreenSize.h"
#include "skin/colSkin.h"
#include "skin/ctlRoundRect.h"
#include "skin/frmOptions.h"
#include "tests/skin/SkinTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <map>

namespace
{
// The main window as the dialog knows it: it keeps what the program's objects were when the skin was set.
class WatchedForm final : public MainForm
{
public:
    WatchedForm() { modMain::Form = this; }
    ~WatchedForm() { modMain::Form = nullptr; }

    void Instructions(const std::shared_ptr<CGame> &, std::int32_t) override {}
    void PlayGame(const std::shared_ptr<CGame> &, std::int32_t) override {}
    void StartGame(const std::shared_ptr<CGame> &, std::int32_t, bool &) override {}
    void SetSkin(const std::shared_ptr<CSkin> &Skin) override
    {
        Skins.push_back(Skin);
        SoundOn = modMain::SoundOn;
        WhiteBackground = modMain::WhiteBackground;
        DialogShows = QApplication::activeModalWidget() != nullptr;
        if (Act) Act();
    }
    QImage GameBackground() const override { return {}; }
    QWidget *Window() override { return nullptr; }

    std::vector<std::shared_ptr<CSkin>> Skins;
    bool SoundOn = false;
    bool WhiteBackground = false;
    bool DialogShows = true;
    std::function<void()> Act;
};

template <typename Child>
Child *Of(frmOptions &form, const char *name)
{
    return form.findChild<Child *>(QLatin1String(name));
}

void Click(frmOptions &form, const char *name) { QTest::mouseClick(Of<LarkButton>(form, name), Qt::LeftButton); }

class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "Open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("http")); }
    Q_INVOKABLE void Open(const QUrl &url) { Opened = url; }
    QUrl Opened;
};

class Options : public SkinTest
{
protected:
    Options()
    {
        for (const char *name : {"Blue", "alpha", "Zebra"}) {
            GivenSkin(QLatin1String(name));
            for (const char *file : {"DialogPicture.gif", "Frame.gif"})
                m_Folder.Write(QStringLiteral("skins/%1/%2").arg(QLatin1String(name), QLatin1String(file)),
                               Gif(20, 20, 0xfff0f8f4));
        }
        modMain::Skins = std::make_shared<colSkin>();
        modMain::CurrentSkin = modMain::Skins->Item(QStringLiteral("Blue"));
        modMain::SoundOn = true;
        modMain::WhiteBackground = false;
    }
    ~Options() override { modMain::SoundOn = modMain::WhiteBackground = modMain::Online = false; }

    void Show(const std::function<void(frmOptions &)> &act)
    {
        frmOptions form;
        QTimer::singleShot(0, &form, [&] {
            act(form);
            if (form.isVisible()) Click(form, "cmdCancel");
        });
        form.ShowModal(nullptr);
    }

    WatchedForm m_Form;
};
} // namespace

TEST_F(Options, TheListHasEverySkinInItsOrderAndShowsTheCurrentOne)
{
    Show([](frmOptions &form) {
        const auto *list = Of<QComboBox>(form, "cboSkin");
        ASSERT_EQ(list->count(), 3);
        EXPECT_EQ(list->itemText(0), QStringLiteral("alpha"));
        EXPECT_EQ(list->itemText(2), QStringLiteral("Zebra"));
        EXPECT_EQ(list->currentText(), QStringLiteral("Blue"));
    });
}

TEST_F(Options, EveryCaptionIsTheWordOfItsNumber)
{
    Show([](frmOptions &form) {
        for (const auto &[name, number] : std::map<const char *, std::int16_t>{{"lblTitle", 601},
                                                                               {"picSkin", 602},
                                                                               {"picSoundOn", 603},
                                                                               {"picWhiteBackground", 604},
                                                                               {"cmdOK", 1},
                                                                               {"cmdCancel", 2}}) {
            const QString word = modMain::Resources->GetString(number, 256);
            EXPECT_FALSE(word.isEmpty()) << number;
            EXPECT_EQ(Of<QWidget>(form, name)->property("Caption").toString(), word) << name;
        }
    });
}

TEST_F(Options, ButtonsAndFaceAreOfTheCurrentSkin)
{
    GivenDeliveredSkin(QStringLiteral("Night"));
    const auto skin = modMain::CurrentSkin;
    Show([&](frmOptions &form) {
        ASSERT_FALSE(skin->DialogPicture().isNull());
        EXPECT_EQ(form.picture(), skin->DialogPicture());
        for (const char *name : {"cmdOK", "cmdCancel"}) {
            EXPECT_EQ(Of<LarkButton>(form, name)->PictureUp(), skin->VeryWideButton());
            EXPECT_EQ(Of<LarkButton>(form, name)->PictureDown(), skin->VeryWideButtonPressed());
        }
    });
}

TEST_F(Options, TheSwitchesShowWhatIsInForce)
{
    for (const bool sound : {false, true})
        for (const bool white : {false, true}) {
            modMain::SoundOn = sound;
            modMain::WhiteBackground = white;
            Show([&](frmOptions &form) {
                EXPECT_EQ(Of<QCheckBox>(form, "chkSoundOn")->isChecked(), sound);
                EXPECT_EQ(Of<QCheckBox>(form, "chkWhiteBackground")->isChecked(), white);
            });
        }
}

TEST_F(Options, OnASmallScreenTheListHoldsOnlySkinsThatFit)
{
    GivenSkin(QStringLiteral("Huge"), "[Graphics]\r\nMinX=1024\r\n");
    SetScreenSize({800, 600});
    modMain::Skins = std::make_shared<colSkin>();
    Show([](frmOptions &form) {
        EXPECT_EQ(Of<QComboBox>(form, "cboSkin")->findText(QStringLiteral("Huge")), -1);
        EXPECT_EQ(Of<QComboBox>(form, "cboSkin")->count(), 3);
    });
}

TEST_F(Options, CancelLeavesSkinAndSwitchesAsTheyWere)
{
    const auto before = modMain::CurrentSkin;
    Show([&](frmOptions &form) {
        QTest::keyClick(Of<QComboBox>(form, "cboSkin"), Qt::Key_Down);
        EXPECT_EQ(Of<QComboBox>(form, "cboSkin")->currentText(), QStringLiteral("Zebra"));
        QTest::keyClick(Of<QCheckBox>(form, "chkSoundOn"), Qt::Key_Space);
        QTest::keyClick(Of<QCheckBox>(form, "chkWhiteBackground"), Qt::Key_Space);
        EXPECT_EQ(modMain::CurrentSkin, before) << "nothing is applied while the list is turned over";
        Click(form, "cmdCancel");
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(modMain::CurrentSkin, before);
    EXPECT_TRUE(modMain::SoundOn);
    EXPECT_FALSE(modMain::WhiteBackground);
    EXPECT_TRUE(m_Form.Skins.empty());
    EXPECT_TRUE(Heard(QStringLiteral("highbeep")));
}

TEST_F(Options, OKAppliesSkinAndSwitchesBeforeTheWindowTakesTheSkin)
{
    Show([&](frmOptions &form) {
        EXPECT_TRUE(Of<QCheckBox>(form, "chkSoundOn")->isChecked());
        EXPECT_FALSE(Of<QCheckBox>(form, "chkWhiteBackground")->isChecked());
        QTest::keyClick(Of<QComboBox>(form, "cboSkin"), Qt::Key_Down);
        QTest::keyClick(Of<QCheckBox>(form, "chkSoundOn"), Qt::Key_Space);
        QTest::keyClick(Of<QCheckBox>(form, "chkWhiteBackground"), Qt::Key_Space);
        Click(form, "cmdOK");
        EXPECT_FALSE(form.isVisible());
    });
    ASSERT_EQ(m_Form.Skins.size(), 1U);
    EXPECT_EQ(m_Form.Skins[0], modMain::Skins->Item(QStringLiteral("Zebra")));
    EXPECT_EQ(modMain::CurrentSkin, m_Form.Skins[0]);
    EXPECT_FALSE(m_Form.SoundOn);
    EXPECT_TRUE(m_Form.WhiteBackground);
    EXPECT_FALSE(m_Form.DialogShows) << "hidden before the window repaints";
    EXPECT_TRUE(Heard(QStringLiteral("highbeep")));
}

TEST_F(Options, OKWithoutTouchingTheListSetsTheSameSkinAgain)
{
    const auto before = modMain::CurrentSkin;
    Show([](frmOptions &form) { Click(form, "cmdOK"); });
    EXPECT_EQ(modMain::CurrentSkin, before);
    ASSERT_EQ(m_Form.Skins.size(), 1U) << "else a changed background would not show";
    EXPECT_EQ(m_Form.Skins[0], before);
}

TEST_F(Options, TheSettingsFileIsNotWritten)
{
    modMain::SettingsFile = m_Folder.Path() + QStringLiteral("Settings.ini");
    Show([](frmOptions &form) { Click(form, "cmdOK"); });
    EXPECT_FALSE(m_Folder.Exists(QStringLiteral("Settings.ini")));
}

TEST_F(Options, TheLinkShowsOnlyWhenOnLineAndOpensTheAddressItShows)
{
    Show([](frmOptions &form) {
        EXPECT_FALSE(Of<TransLabel>(form, "lblURL")->isVisible());
        EXPECT_FALSE(Of<TransLabel>(form, "lblNewSkins")->isVisible());
    });
    modMain::Online = true;
    UrlCatcher catcher;
    Show([&](frmOptions &form) {
        auto *link = Of<TransLabel>(form, "lblURL");
        ASSERT_TRUE(link->isVisible());
        EXPECT_TRUE(Of<TransLabel>(form, "lblNewSkins")->isVisible());
        QTest::mouseClick(link, Qt::LeftButton);
        EXPECT_EQ(catcher.Opened, QUrl(QStringLiteral("http://") + link->Caption()));
        EXPECT_FALSE(link->Caption().contains(QStringLiteral("://")));
        Keep(form, QStringLiteral("options-plain"));
    });
}

TEST_F(Options, ASecondOKWhileTheFirstIsAtWorkDoesNothing)
{
    frmOptions form;
    m_Form.Act = [&] { Click(form, "cmdOK"); };
    QTimer::singleShot(0, &form, [&] { Click(form, "cmdOK"); });
    form.ShowModal(nullptr);
    EXPECT_EQ(m_Form.Skins.size(), 1U);
}

TEST_F(Options, WithoutADialogPictureTheyTellItOnceArePlainAndAnotherSkinCanBeChosen)
{
    GivenSkin(QStringLiteral("Bare"));
    modMain::Skins = std::make_shared<colSkin>();
    modMain::CurrentSkin = modMain::Skins->Item(QStringLiteral("Bare"));
    auto &framework = static_cast<RecordingFramework &>(*modMain::Framework);
    framework.Boxes.clear();
    Show([&](frmOptions &form) {
        EXPECT_TRUE(form.picture().isNull());
        Click(form, "cmdCancel");
    });
    ASSERT_EQ(framework.Boxes.size(), 1U);
    EXPECT_EQ(framework.Boxes[0].FirstLine(), QStringLiteral("The skin's picture for dialogs can't be loaded."));
    Show([&](frmOptions &form) {
        EXPECT_TRUE(form.picture().isNull());
        Of<QComboBox>(form, "cboSkin")->setCurrentText(QStringLiteral("Zebra"));
        Click(form, "cmdOK");
    });
    EXPECT_EQ(framework.Boxes.size(), 1U) << "an empty picture by now";
    EXPECT_EQ(modMain::CurrentSkin->Name(), QStringLiteral("Zebra"));
}

// A damaged frame fails at its first reading and is an empty picture from then on: both are refused.
TEST_F(Options, ASkinThatGivesNoShapeIsRefusedWithAMessageAndThePresentOneStays)
{
    GivenSkin(QStringLiteral("Frameless"));
    modMain::Skins = std::make_shared<colSkin>();
    const auto before = modMain::CurrentSkin = modMain::Skins->Item(QStringLiteral("Blue"));
    auto &framework = static_cast<RecordingFramework &>(*modMain::Framework);
    for (int time = 1; time <= 2; ++time) {
        Show([](frmOptions &form) {
            Of<QComboBox>(form, "cboSkin")->setCurrentText(QStringLiteral("Frameless"));
            Of<QCheckBox>(form, "chkWhiteBackground")->setChecked(true);
            Click(form, "cmdOK");
        });
        EXPECT_EQ(modMain::CurrentSkin, before);
        EXPECT_EQ(m_Form.Skins.back(), before) << "the window takes the switches by it";
        EXPECT_TRUE(m_Form.WhiteBackground);
        ASSERT_EQ(framework.Boxes.size(), std::size_t(time));
        EXPECT_EQ(framework.Boxes.back().FirstLine(),
                  QStringLiteral("The skin \"Frameless\" can't be used, so the present one stays."));
        EXPECT_NE(framework.Boxes.back().Message, framework.Boxes.back().FirstLine()) << "it says why";
    }
}

TEST_F(Options, EscapeAndCloseRequestsAreRefused)
{
    Show([](frmOptions &form) {
        QTest::keyClick(&form, Qt::Key_Escape);
        form.close();
        EXPECT_TRUE(form.isVisible());
    });
}

TEST_F(Options, PicturesForPeople)
{
    modMain::Online = true;
    SetScreenSize({1280, 800});
    for (const char *name : {"Meadow", "Night"}) {
        GivenDeliveredSkin(QLatin1String(name));
        modMain::Skins = std::make_shared<colSkin>();
        modMain::CurrentSkin = modMain::Skins->Item(QLatin1String(name));
        Show([&](frmOptions &form) { Keep(form, QStringLiteral("options-") + QLatin1String(name)); });
    }
}

TEST(RoundRect, ItsLineIsRoundedByTenPixelsOnItsOwnGround)
{
    ctlRoundRect control;
    control.SetBackColor(0x0000FF); // red
    control.SetForeColor(0xFF0000); // blue
    control.resize(60, 40);
    const QImage picture = control.grab().toImage();
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::red)) << "cut by the corner";
    EXPECT_EQ(picture.pixelColor(5, 0), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(12, 0), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(0, 12), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(59, 20), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(30, 20), QColor(Qt::red));
}

TEST(RoundRect, DefaultsAreThoseOfANewControl)
{
    const ctlRoundRect control;
    EXPECT_FALSE(control.Enabled);
    EXPECT_EQ(control.BackStyle, 0);
    EXPECT_EQ(control.BorderStyle, 0);
    EXPECT_EQ(static_cast<std::uint32_t>(control.BackColor()), 0x8000000FU);
    EXPECT_EQ(control.ForeColor(), 0xC0FFC0);
}

TEST(RoundRect, ANewControlHasTheGroundOfTheDesktopsButtonsAndItsContainersFont)
{
    QWidget container;
    QFont font = container.font();
    font.setPointSize(font.pointSize() + 7);
    container.setFont(font);
    QPalette palette = container.palette();
    palette.setColor(QPalette::Button, QColor(12, 34, 56));
    container.setPalette(palette);
    ctlRoundRect control(&container);
    EXPECT_EQ(control.Font.pointSize(), font.pointSize());
    control.resize(60, 40);
    const QImage picture = control.grab().toImage();
    EXPECT_EQ(picture.pixelColor(30, 20), QColor(12, 34, 56));
    EXPECT_EQ(picture.pixelColor(30, 0), QColor(0xC0, 0xFF, 0xC0));
}

TEST(RoundRect, ItIsPaintedAnewInEachSize)
{
    ctlRoundRect control;
    control.SetForeColor(0xFF0000); // blue
    for (const QSize size : {QSize(60, 40), QSize(120, 90), QSize(30, 24)}) {
        control.resize(size);
        const QImage picture = control.grab().toImage();
        EXPECT_EQ(picture.pixelColor(size.width() - 1, size.height() / 2), QColor(Qt::blue));
        EXPECT_EQ(picture.pixelColor(size.width() / 2, size.height() - 1), QColor(Qt::blue));
        EXPECT_NE(picture.pixelColor(size.width() - 1, size.height() - 1), QColor(Qt::blue)) << "round";
    }
}

#include "TestfrmOptions.moc"
