// The message box, answered by events as a person would.
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"
#include "services/CResource.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"
#include "skin/frmMsgBox.h"
#include "tests/skin/SkinTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <functional>
#include <vector>

namespace
{
constexpr int OKOnly = 0;
constexpr int OKCancel = 1;
constexpr int YesNo = 4;
constexpr int AskForText = 33;
constexpr int YesNoQuestion = 36;
constexpr int Exclamation = 48;

template <typename Child>
Child *Of(frmMsgBox &box, const char *name)
{
    return box.findChild<Child *>(QLatin1String(name));
}

/// The box that is in front.
frmMsgBox *Shown() { return dynamic_cast<frmMsgBox *>(QApplication::activeModalWidget()); }

void Click(frmMsgBox &box, const char *name) { QTest::mouseClick(Of<LarkButton>(box, name), Qt::LeftButton); }

class MsgBox : public SkinTest
{
protected:
    using Act = std::function<void(frmMsgBox &)>;

    /// Asks, does the acts once the box is shown, and closes it in the end.
    std::int32_t Ask(const QString &message, std::int32_t options, const Act &act, QString *answer = nullptr,
                     QWidget *parent = nullptr, std::int32_t fontSize = 16)
    {
        m_Desk.show();
        m_Desk.activateWindow(); // as the main window is before each question
        QTimer::singleShot(0, [act] {
            frmMsgBox *box = Shown();
            ASSERT_NE(box, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(box));
            act(*box);
            if (box->isVisible()) Click(*box, "cmd2");
        });
        return frmMsgBox::Ask(parent, message, options, answer, fontSize);
    }

    QWidget m_Desk;
};
} // namespace

TEST_F(MsgBox, OKAloneIsTheRightHandButton)
{
    const auto code = Ask(QStringLiteral("Well done."), OKOnly, [](frmMsgBox &box) {
        EXPECT_FALSE(Of<LarkButton>(box, "cmd1")->isVisible());
        EXPECT_TRUE(Of<LarkButton>(box, "cmd2")->isVisible());
        EXPECT_EQ(Of<LarkButton>(box, "cmd2")->Caption(), QStringLiteral("OK"));
        EXPECT_GT(Of<LarkButton>(box, "cmd2")->geometry().center().x(), box.width() / 2);
        Click(box, "cmd2");
    });
    EXPECT_EQ(code, 1);
}

TEST_F(MsgBox, FortyEightShowsOneOKAndAsksForNoText)
{
    const auto code = Ask(QStringLiteral("Error"), Exclamation, [](frmMsgBox &box) {
        EXPECT_FALSE(Of<LarkButton>(box, "cmd1")->isVisible());
        EXPECT_FALSE(Of<QLineEdit>(box, "txtAnswer")->isVisible());
        Click(box, "cmd2");
    });
    EXPECT_EQ(code, 1);
}

TEST_F(MsgBox, ThirtySixAsksForNoTextSinceBit32CountsOnlyUnderBit1)
{
    const auto code = Ask(QStringLiteral("Really?"), YesNoQuestion, [](frmMsgBox &box) {
        EXPECT_FALSE(Of<QLineEdit>(box, "txtAnswer")->isVisible());
        EXPECT_EQ(Of<LarkButton>(box, "cmd1")->Caption(), QStringLiteral("Yes"));
        EXPECT_EQ(Of<LarkButton>(box, "cmd2")->Caption(), QStringLiteral("No"));
        Click(box, "cmd1");
    });
    EXPECT_EQ(code, 6);
    EXPECT_EQ(Ask(QStringLiteral("Really?"), YesNo, [](frmMsgBox &box) { Click(box, "cmd2"); }), 7);
}

TEST_F(MsgBox, Bit1WinsOverBit4)
{
    const auto code = Ask(QStringLiteral("?"), OKCancel | YesNo, [](frmMsgBox &box) {
        EXPECT_EQ(Of<LarkButton>(box, "cmd1")->Caption(), QStringLiteral("OK"));
        EXPECT_EQ(Of<LarkButton>(box, "cmd2")->Caption(), QStringLiteral("Cancel"));
        Click(box, "cmd1");
    });
    EXPECT_EQ(code, 1);
}

TEST_F(MsgBox, AnEmptyAnswerIsRefusedWithALowBeepAndCancelIsTheWayOut)
{
    const auto code = Ask(QStringLiteral("Name?"), AskForText, [this](frmMsgBox &box) {
        Click(box, "cmd1");
        EXPECT_TRUE(box.isVisible());
        EXPECT_TRUE(Heard(QStringLiteral("lowbeep")));
        EXPECT_FALSE(Heard(QStringLiteral("highbeep")));
        Click(box, "cmd2");
        EXPECT_TRUE(Heard(QStringLiteral("highbeep")));
    });
    EXPECT_EQ(code, 2);
}

TEST_F(MsgBox, ABlankIsAnAnswer)
{
    QString answer;
    const auto code = Ask(
        QStringLiteral("Name?"), AskForText,
        [](frmMsgBox &box) {
            QTest::keyClicks(Of<QLineEdit>(box, "txtAnswer"), QStringLiteral(" "));
            Click(box, "cmd1");
        },
        &answer);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(answer, QStringLiteral(" "));
}

TEST_F(MsgBox, ReturnAndKeypadEnterInTheLineAnswer)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QString answer;
        const auto code = Ask(
            QStringLiteral("Name?"), AskForText,
            [&](frmMsgBox &box) {
                EXPECT_TRUE(Of<QLineEdit>(box, "txtAnswer")->text().isEmpty());
                QTest::keyClicks(Of<QLineEdit>(box, "txtAnswer"), QStringLiteral("Ann"));
                QTest::keyClick(Of<QLineEdit>(box, "txtAnswer"), key);
                EXPECT_FALSE(box.isVisible());
            },
            &answer);
        EXPECT_EQ(code, 1);
        EXPECT_EQ(answer, QStringLiteral("Ann"));
    }
}

TEST_F(MsgBox, CancelLeavesTheAnswerOfTheEarlierPress)
{
    QString answer;
    Ask(QStringLiteral("Name?"), AskForText, [](frmMsgBox &box) {
        QTest::keyClicks(Of<QLineEdit>(box, "txtAnswer"), QStringLiteral("Ann"));
        Click(box, "cmd1");
    });
    Ask(
        QStringLiteral("Name?"), AskForText,
        [](frmMsgBox &box) {
            QTest::keyClicks(Of<QLineEdit>(box, "txtAnswer"), QStringLiteral("Bob"));
            Click(box, "cmd2");
        },
        &answer);
    EXPECT_EQ(answer, QStringLiteral("Ann"));
}

TEST_F(MsgBox, ARefusedPressHasSetTheAnswerAllTheSame)
{
    QString answer = QStringLiteral("before");
    Ask(
        QStringLiteral("Name?"), AskForText,
        [](frmMsgBox &box) {
            Click(box, "cmd1");
            Click(box, "cmd2");
        },
        &answer);
    EXPECT_EQ(answer, QString());
}

TEST_F(MsgBox, EscapeAndCloseRequestsAreRefused)
{
    const auto code = Ask(QStringLiteral("Really?"), YesNo, [](frmMsgBox &box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        box.close();
        EXPECT_TRUE(box.isVisible());
        Click(box, "cmd2");
    });
    EXPECT_EQ(code, 7);
}

TEST_F(MsgBox, NoButtonIsADefaultButReturnPressesAFocusedOne)
{
    const auto code = Ask(QStringLiteral("Really?"), YesNo, [](frmMsgBox &box) {
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), Of<LarkButton>(box, "cmd1"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(box.isVisible());
    });
    EXPECT_EQ(code, 6);
}

TEST_F(MsgBox, TheLineHasTheFocusAtEachShowing)
{
    for (int showing = 0; showing < 2; ++showing) {
        Ask(QStringLiteral("Name?"), AskForText, [](frmMsgBox &box) {
            EXPECT_TRUE(Of<QLineEdit>(box, "txtAnswer")->hasFocus());
            Click(box, "cmd2");
        });
    }
}

TEST_F(MsgBox, ABoxAskedForWhileAnotherIsOpenLeavesTheOuterAlone)
{
    QString outerAnswer;
    std::int32_t inner = 0;
    const auto outer = Ask(
        QStringLiteral("Outer"), AskForText,
        [&](frmMsgBox &box) {
            QTest::keyClicks(Of<QLineEdit>(box, "txtAnswer"), QStringLiteral("mine"));
            inner = Ask(QStringLiteral("Inner"), YesNo, [&](frmMsgBox &nested) {
                EXPECT_NE(&nested, &box);
                EXPECT_EQ(Of<TransLabel>(box, "Label")->Caption(), QStringLiteral("Outer"));
                Click(nested, "cmd2");
            });
            EXPECT_TRUE(box.isVisible());
            EXPECT_EQ(Of<QLineEdit>(box, "txtAnswer")->text(), QStringLiteral("mine"));
            Click(box, "cmd1");
        },
        &outerAnswer);
    EXPECT_EQ(inner, 7);
    EXPECT_EQ(outer, 1);
    EXPECT_EQ(outerAnswer, QStringLiteral("mine"));
}

TEST_F(MsgBox, AnEmptyDescriptionLeavesAnEmptySecondLine)
{
    int one = 0;
    int two = 0;
    Ask(QStringLiteral("a\nb\nc\nError"), Exclamation,
        [&](frmMsgBox &box) { one = Of<TransLabel>(box, "Label")->height(); });
    Ask(QStringLiteral("a\nb\nc\nError\r\n"), Exclamation, [&](frmMsgBox &box) {
        two = Of<TransLabel>(box, "Label")->height();
        EXPECT_EQ(Of<TransLabel>(box, "Label")->Caption(), QStringLiteral("a\nb\nc\nError\r\n"));
    });
    EXPECT_GT(two, one + 10);
}

TEST_F(MsgBox, ALineThatWasCutBehindItsCRIsBrokenOnceAndKeepsItsSize)
{
    GivenDeliveredSkin(QStringLiteral("Meadow"));
    const QString told =
        QStringLiteral("Error uploading:\r\nHTTP/1.1 404 Not Found%1\r\nFor help on this error visit "
                       "http://noggle.example.org/upload-help");
    std::vector<QImage> shown;
    for (const char *cut : {"", "\r"}) {
        const QString message = told.arg(QLatin1String(cut));
        constexpr int small = 12; // [points]
        Ask(
            message, OKOnly,
            [&](frmMsgBox &box) {
                EXPECT_EQ(Of<TransLabel>(box, "Label")->Caption(), message);
                shown.push_back(box.grab().toImage());
                Keep(box, QStringLiteral("msgbox-upload-error"));
            },
            nullptr, nullptr, small);
    }
    EXPECT_EQ(shown[0], shown[1]);
}

TEST_F(MsgBox, MarkupIsPlainText)
{
    const QString message = QStringLiteral("Delete <b>Ann</b> & all?");
    Ask(message, YesNo, [&](frmMsgBox &box) {
        EXPECT_EQ(Of<TransLabel>(box, "Label")->Caption(), message);
        EXPECT_EQ(Of<TransLabel>(box, "Label")->accessibleName(), message);
        Keep(box, QStringLiteral("msgbox-plain-markup"));
    });
}

TEST_F(MsgBox, ALongMessageIsScrolledAndTheDialogStaysOnTheScreen)
{
    const QString message = QStringLiteral("It took longer than it should have. ").repeated(400);
    Ask(message, Exclamation, [&](frmMsgBox &box) {
        EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
        const auto *pane = box.findChild<QScrollArea *>();
        EXPECT_GT(Of<TransLabel>(box, "Label")->height(), pane->viewport()->height());
        EXPECT_EQ(pane->verticalScrollBar()->width(), 10) << "the bar of our screens, not the desktop's";
        Keep(box, QStringLiteral("msgbox-plain-long"));
    });
    Ask(QStringLiteral("Short."), Exclamation, [&](frmMsgBox &box) {
        EXPECT_EQ(Of<TransLabel>(box, "Label")->height(), box.findChild<QScrollArea *>()->viewport()->height());
    });
}

TEST_F(MsgBox, ItIsCentredOnItsOwnerAtEachShowing)
{
    QWidget owner;
    owner.resize(300, 200);
    owner.show();
    for (const QPoint place : {QPoint(250, 200), QPoint(300, 220)}) {
        owner.move(place);
        Ask(
            QStringLiteral("Here."), OKOnly,
            [&](frmMsgBox &box) {
                const QPoint apart = box.geometry().center() - owner.geometry().center();
                EXPECT_LE(std::abs(apart.x()) + std::abs(apart.y()), 2);
                EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
            },
            nullptr, &owner);
    }
}

TEST_F(MsgBox, ItCanBeReachedWhenItsOwnerIsMinimised)
{
    QWidget owner;
    owner.resize(300, 200);
    owner.showMinimized();
    const auto code = Ask(
        QStringLiteral("Here."), OKOnly, [](frmMsgBox &box) { EXPECT_TRUE(box.isVisible() && !box.isMinimized()); },
        nullptr, &owner);
    EXPECT_EQ(code, 1);
}

TEST_F(MsgBox, ItIsDraggedByItsFaceAndByItsMessage)
{
    Ask(QStringLiteral("Drag me."), OKOnly, [](frmMsgBox &box) {
        const QPoint before = box.pos();
        const QPoint onLabel = Of<TransLabel>(box, "Label")->mapTo(&box, QPoint(5, 5));
        for (const QPoint from : {QPoint(8, 30), onLabel}) {
            const QPoint place = box.pos();
            QWidget *under = box.childAt(from) != nullptr ? box.childAt(from) : &box;
            QTest::mousePress(under, Qt::LeftButton, {}, under->mapFrom(&box, from));
            QTest::mouseMove(under, under->mapFrom(&box, from) + QPoint(30, 20));
            QTest::mouseRelease(under, Qt::LeftButton, {}, under->mapFrom(&box, from));
            EXPECT_NE(box.pos(), place);
        }
        EXPECT_NE(box.pos(), before);
    });
}

TEST_F(MsgBox, ItWorksWithoutSkinWordsAndSounds)
{
    modMain::Resources = nullptr;
    modMain::ShellSounds = nullptr;
    modMain::Framework = nullptr;
    const auto code = Ask(QStringLiteral("Bare."), OKCancel, [](frmMsgBox &box) {
        EXPECT_TRUE(Of<LarkButton>(box, "cmd1")->Caption().isEmpty());
        Click(box, "cmd1");
    });
    EXPECT_EQ(code, 1);
}

TEST_F(MsgBox, TheFontSizeIsInPoints)
{
    int small = 0;
    const auto height = [](frmMsgBox &box) { return QFontMetrics(Of<TransLabel>(box, "Label")->font()).height(); };
    Ask(
        QStringLiteral("x"), OKOnly, [&](frmMsgBox &box) { small = height(box); }, nullptr, nullptr, 10);
    Ask(
        QStringLiteral("x"), OKOnly, [&](frmMsgBox &box) { EXPECT_GE(height(box), 2 * small - 2); }, nullptr, nullptr,
        20);
}

TEST_F(MsgBox, WhatIsTypedIsAsLargeAsTheMessageAsFarAsItsLineHasRoom)
{
    const auto sizes = [](frmMsgBox &box) {
        return std::pair(Of<TransLabel>(box, "Label")->font().pixelSize(),
                         Of<QLineEdit>(box, "txtAnswer")->font().pixelSize());
    };
    for (const auto &[points, isAlike] : {std::pair(10, true), std::pair(16, true), std::pair(40, false)})
        Ask(
            QStringLiteral("Name?"), AskForText,
            [&, alike = isAlike](frmMsgBox &box) {
                const auto [message, line] = sizes(box);
                EXPECT_EQ(message == line, alike) << message << " " << line;
                EXPECT_LT(QFontMetrics(Of<QLineEdit>(box, "txtAnswer")->font()).height() + 8,
                          Of<QLineEdit>(box, "txtAnswer")->height());
            },
            nullptr, nullptr, points);
}

TEST_F(MsgBox, PicturesForPeople)
{
    for (const char *name : {"", "Meadow", "Night"}) {
        modMain::CurrentSkin = nullptr;
        if (*name != '\0') GivenDeliveredSkin(QLatin1String(name));
        const auto keep = [name](const char *what) {
            return [=](frmMsgBox &box) {
                Keep(box, QStringLiteral("msgbox-%1-%2").arg(QLatin1String(name), QLatin1String(what)));
            };
        };
        Ask(QStringLiteral("What is your name?"), AskForText, keep("text"));
        Ask(QStringLiteral("Do you really want to leave Noggle?"), YesNoQuestion, keep("yesno"));
        Ask(QStringLiteral("Error loading game: Tally Rush\r\nThe file can't be read."), Exclamation, keep("error"));
    }
}

TEST_F(MsgBox, ItIsSkinnedAnewAtEachShowing)
{
    const auto face = [](frmMsgBox &box) { return box.picture(); };
    QImage first;
    GivenDeliveredSkin(QStringLiteral("Meadow"));
    Ask(QStringLiteral("?"), OKOnly, [&](frmMsgBox &box) { first = face(box); });
    EXPECT_FALSE(first.isNull());
    GivenDeliveredSkin(QStringLiteral("Night"));
    Ask(QStringLiteral("?"), OKOnly, [&](frmMsgBox &box) {
        EXPECT_NE(face(box), first);
        EXPECT_EQ(Of<LarkButton>(box, "cmd2")->PictureUp(), modMain::CurrentSkin->VeryWideButton());
    });
}
