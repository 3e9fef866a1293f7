#include "ScreenTest.h"
#include "platform/RuntimeError.h"
#include "screens/ctlGameInstructions.h"
#include "screens/ctlGamePlaySummary.h"
#include "sdk/controls/PictureBox.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTextEdit>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class Instructions : public ScreenTest
{
protected:
    ctlGameInstructions &Show(const QString &limit = S("timelimit=90"))
    {
        GivenGame(S("Arrows"), S("Attention"), limit);
        Start();
        auto *page = new ctlGameInstructions(m_Area.get());
        Open(page);
        return *page;
    }
    void GivenText(const QString &file, const QByteArray &text)
    {
        m_Store.Folder().Write(S("Arrows/") + file, "{\\rtf1\\ansi " + text + "}");
    }
    QString PageText() { return At<QTextEdit>(S("txtInstructions"))->toPlainText(); }
};

class Summary : public ScreenTest
{
protected:
    ctlGamePlaySummary &Show()
    {
        auto *strip = new ctlGamePlaySummary(m_Area.get());
        Open(strip);
        strip->setGeometry(0, 470, 632, 30);
        return *strip;
    }
    // Green pixels of a bar's upper line, then "r" when the last pixel is red.
    QString Bar(const QString &name)
    {
        const QImage &surface = At<PictureBox>(name)->Surface();
        int green = 0;
        while (green < surface.width() && surface.pixelColor(green, 2) == QColor(0, 255, 0)) ++green;
        const bool red = green < surface.width() && surface.pixelColor(surface.width() - 1, 2) == QColor(255, 0, 0);
        return QString::number(green) + (red ? S(" r") : QString());
    }
};
} // namespace

TEST_F(Instructions, ControlsStandAsDesigned)
{
    ctlGameInstructions &page = Show();
    EXPECT_EQ(Place(S("lblGameName")), QRect(157, 0, 317, 25));
    EXPECT_EQ(Place(S("lblTimeAllowed")), QRect(157, 32, 318, 21));
    EXPECT_EQ(Place(S("butCancelGame")), QRect(632 - 120 - 8, 508 - 23 - 3, 120, 23));
    EXPECT_EQ(Place(S("butStartGame")), QRect(632 - 240 - 8 - 3, 508 - 23 - 3, 120, 23));
    EXPECT_EQ(Place(S("txtInstructions")), QRect(8, 60, 616, 482 - 60 - 3));
    page.SkinUp();
    EXPECT_EQ(Text(S("butStartGame")), Word(2005));
    EXPECT_EQ(Text(S("butCancelGame")), Word(2));
}

TEST_F(Instructions, AGameWithALimitTellsItsSeconds)
{
    ctlGameInstructions &page = Show();
    GivenText(S("Instructions.rtf"), "Watch the {\\b arrows}.");
    page.ShowInstructions(Game(S("Arrows")));
    EXPECT_EQ(Text(S("lblGameName")), S("Arrows"));
    EXPECT_EQ(Text(S("lblTimeAllowed")), Word(3001).replace(S("<x>"), S("90")));
    EXPECT_EQ(PageText(), S("Watch the arrows."));
}

TEST_F(Instructions, AGameWithoutALimitSaysSo)
{
    ctlGameInstructions &page = Show(S("timelimit=0"));
    GivenText(S("Instructions.rtf"), "x");
    page.ShowInstructions(Game(S("Arrows")));
    EXPECT_EQ(Text(S("lblTimeAllowed")), Word(3002));
}

TEST_F(Instructions, TheLanguageHasItsOwnFileAndFallsBack)
{
    ctlGameInstructions &page = Show();
    GivenText(S("Instructions.rtf"), "plain");
    GivenText(S("instructions1.RTF"), "translated");
    page.ShowInstructions(Game(S("Arrows")));
    EXPECT_EQ(PageText(), S("plain"));
    modMain::Language = S("1");
    page.ShowInstructions(Game(S("Arrows")));
    EXPECT_EQ(PageText(), S("translated"));
}

TEST_F(Instructions, AMissingOrForeignFileIsAFailure)
{
    ctlGameInstructions &page = Show();
    EXPECT_THROW(page.ShowInstructions(Game(S("Arrows"))), RuntimeError);
    m_Store.Folder().Write(S("Arrows/Instructions.rtf"), "no rich text");
    EXPECT_THROW(page.ShowInstructions(Game(S("Arrows"))), RuntimeError);
    const auto gone = std::make_shared<CGame>();
    EXPECT_THROW(page.ShowInstructions(gone), RuntimeError);
    EXPECT_THROW(page.ShowInstructions(nullptr), RuntimeError);
}

TEST_F(Instructions, ThePageOpensAtItsTop)
{
    ctlGameInstructions &page = Show();
    QByteArray text =
        "{\\fonttbl{\\f0\\fswiss Inter;}}{\\colortbl;\\red200\\green30\\blue30;}\\f0\\fs36\\b How to "
        "play\\b0\\fs24\\par "
        "Look at the {\\cf1 arrows} and press the {\\i same} key.\\par "
        "{\\pntext\\'95\\tab}\\fi-360\\li360 Each arrow counts one point, and a very long line of text shows "
        "how the second line of an entry hangs below the first.\\par {\\pntext\\'95\\tab}Speed counts.\\par\\pard ";
    for (int i = 0; i < 40; ++i) text += "One more line.\\par ";
    GivenText(S("Instructions.rtf"), text);
    auto *box = At<QTextEdit>(S("txtInstructions"));
    page.ShowInstructions(Game(S("Arrows")));
    Photograph(S("instructions"));
    box->verticalScrollBar()->setValue(300);
    EXPECT_GT(box->verticalScrollBar()->value(), 0);
    page.ShowInstructions(Game(S("Arrows")));
    EXPECT_EQ(box->verticalScrollBar()->value(), 0);
}

TEST_F(Instructions, BothButtonsBeepAndTell)
{
    ctlGameInstructions &page = Show();
    QSignalSpy start(&page, &ctlGameInstructions::StartGame);
    QSignalSpy cancel(&page, &ctlGameInstructions::CancelGame);
    Click(S("butStartGame"));
    EXPECT_TRUE(TakeOnly("highbeep"));
    Click(S("butCancelGame"));
    EXPECT_TRUE(TakeOnly("highbeep"));
    EXPECT_EQ(start.count(), 1);
    EXPECT_EQ(cancel.count(), 1);
}

TEST_F(Summary, BarsStandInTheMiddleAndNamesTakeTheRest)
{
    Show();
    EXPECT_EQ(Place(S("picComplete")), QRect(181, 3, 132, 20));
    EXPECT_EQ(Place(S("picTime")), QRect(319, 3, 132, 20));
    EXPECT_EQ(Place(S("lblGame")), QRect(2, 2, 176, 22));
    EXPECT_EQ(Place(S("lblPlayer")), QRect(454, 2, 175, 22));
}

TEST_F(Summary, CompletionIsGreenAndTheRestRed)
{
    ctlGamePlaySummary &strip = Show();
    const QList<std::pair<int, QString>> table{
        {0, S("0 r")}, {50, S("66 r")}, {100, S("132")}, {-20, S("0 r")}, {250, S("132")}};
    for (const auto &[percent, bar] : table) {
        strip.SetComplete(percent);
        EXPECT_EQ(Bar(S("picComplete")), bar) << percent;
        EXPECT_EQ(Text(S("lblPercent")), Word(4500) + S(" %1%").arg(percent));
    }
}

TEST_F(Summary, TimeLeftShrinksToRed)
{
    ctlGamePlaySummary &strip = Show();
    strip.SetTimeLimit(60);
    strip.SetTimeLeft(30);
    EXPECT_EQ(Bar(S("picTime")), S("66 r"));
    EXPECT_EQ(Text(S("lblTime")), Word(4501) + S(" 30"));
    strip.SetGameName(S("Beacons"));
    strip.SetPlayerName(S("Ann & <b>Bob</b> of the long names"));
    strip.SetComplete(70);
    Photograph(S("summary"));
    strip.SetTimeLeft(0);
    EXPECT_EQ(Bar(S("picTime")), S("0 r"));
    EXPECT_EQ(Text(S("lblTime")), Word(4501) + S(" 0"));
    strip.SetTimeLeft(-1);
    EXPECT_EQ(Bar(S("picTime")), S("0 r"));
}

TEST_F(Summary, WithoutALimitTheTimeTakenIsToldAndTheBarStaysGreen)
{
    ctlGamePlaySummary &strip = Show();
    strip.SetTimeLimit(0);
    strip.SetTimeLeft(-125);
    EXPECT_EQ(Bar(S("picTime")), S("132"));
    EXPECT_EQ(Text(S("lblTime")), Word(4502) + S(" 2:05"));
}

TEST_F(Summary, TheWordsOfTheTimeAreFetchedOnce)
{
    ctlGamePlaySummary &strip = Show();
    strip.SetTimeLimit(60);
    strip.SetTimeLeft(30);
    const QString before = Word(4501);
    modMain::Resources.reset();
    strip.SetTimeLeft(29);
    EXPECT_EQ(Text(S("lblTime")), before + S(" 29"));
}
