// The practice screen's controls, and where they stand.
#include "screens/BestTable.h"
#include "screens/Design.h"
#include "screens/FocusMark.h"
#include "screens/RowView.h"
#include "screens/ctlGameList.h"

#include "domain/CCategory.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/MainForm.h"
#include "shell/program/Sites.h"
#include "shell/program/modMain.h"
#include "skin/ctlButtonPanel.h"

#include <QDesktopServices>
#include <QUrl>

namespace
{
constexpr QSize DesignSize(566, 447); // [px]
constexpr double TitleFont = 18, TableFont = 14.25, LinkFont = 8.25;
constexpr int PanelGap = 10;                    // [px] between the panels: a scroll bar goes there
constexpr int PlayIndent = 18;                  // [px] of the buttons below the levels
constexpr int TableTitle = 275, TableLine = 21; // [px]
constexpr QRect TablePlace(64, 273, 388, 149);  // [px] around all lines
constexpr std::array LineTops{297, 322, 348, 373, 399};
constexpr QColor LinkColour(0x0B, 0x4F, 0xA8);

enum Words : std::int16_t {
    Title = 2001,
    SelectCategory = 2002,
    SelectGame = 2003,
    SelectLevel = 2004,
    Play = 2005,
    Instructions = 2006,
    BestTimes = 2007,
    NameWord = 2008,
    ScoreWord = 2009,
    TimeWord = 2010,
    DateWord = 2011
};

cTransPictureBox *PutCell(QWidget *on, const char *name, std::size_t index, int left, int width,
                          const QString &caption, Qt::Alignment alignment)
{
    return PutLabel<cTransPictureBox>(on, Element(name, index), {left, LineTops[index], width, TableLine}, caption,
                                      SmallFont, false, alignment);
}

cTransPictureBox *PutHead(QWidget *on, const QString &name, const QRect &place, const QString &caption)
{
    return PutLabel<cTransPictureBox>(on, name, place, caption, SmallFont, true);
}
} // namespace

ctlGameList::ctlGameList(QWidget *Container)
    : Screen(Container), OpenAddress([](const QString &address) { QDesktopServices::openUrl(QUrl(address)); })
{
    lblTitle = PutLabel<TransLabel>(this, QStringLiteral("lblTitle"), {59, 3, 404, 33},
                                    QStringLiteral("Practice a Game"), TitleFont, true, Qt::AlignHCenter);
    MakePanels();
    MakeButtons();
    MakeTable();
    MakeLinks();
    resize(DesignSize);
    Arrange();
    SetTabOrder({cCatList.Buttons, cGameList.Buttons, cLevels.Buttons, cmdPlay, cmdInstructions, butUpload,
                 m_BestTable, lblURL});
}

ctlGameList::Panel ctlGameList::PutPanel(const QString &Name, const QRect &Place)
{
    Panel panel{};
    panel.View = new RowView(this);
    panel.Buttons = Put<ctlButtonPanel>(panel.View->Sheet(), Name, Place);
    panel.Buttons->StickySelection = true;
    return panel;
}

void ctlGameList::MakePanels()
{
    lblCat = PutHead(this, QStringLiteral("lblCat"), {13, 39, 144, 18}, QStringLiteral("Select category >>"));
    lblGame = PutHead(this, QStringLiteral("lblGame"), {174, 39, 144, 18}, QStringLiteral("Select game >>"));
    lblLevel = PutHead(this, QStringLiteral("lblLevel"), {340, 39, 144, 18}, QStringLiteral("Select level >>"));
    cCatList = PutPanel(QStringLiteral("cCatList"), {9, 60, 156, 138});
    cGameList = PutPanel(QStringLiteral("cGameList"), {171, 60, 156, 73});
    cLevels = PutPanel(QStringLiteral("cLevels"), {338, 61, 156, 108});
    for (QWidget *later : {static_cast<QWidget *>(lblGame), static_cast<QWidget *>(lblLevel),
                           static_cast<QWidget *>(cGameList.Buttons), static_cast<QWidget *>(cLevels.Buttons)})
        later->hide();
    connect(cCatList.Buttons, &ctlButtonPanel::Click, this, [this](const QString &key) { ChooseCategory(key); });
    connect(cGameList.Buttons, &ctlButtonPanel::Click, this, [this](const QString &key) { ChooseGame(key); });
    connect(cLevels.Buttons, &ctlButtonPanel::Click, this, [this](const QString &key) { ChooseLevel(key); });
}

void ctlGameList::MakeButtons()
{
    cmdPlay = PutButton(this, QStringLiteral("cmdPlay"), {367, 175, 120, 23}, QStringLiteral("Play"));
    cmdInstructions =
        PutButton(this, QStringLiteral("cmdInstructions"), {367, 202, 120, 23}, QStringLiteral("Instructions"));
    butUpload = PutButton(this, QStringLiteral("butUpload"), {221, 202, 120, 23}, QStringLiteral("Upload Scores"));
    for (LarkButton *button : {cmdPlay, cmdInstructions, butUpload}) button->hide();
    connect(cmdPlay, &LarkButton::clicked, this, [this] {
        Beep();
        bool result = false;
        if (m_Game && modMain::Form != nullptr) modMain::Form->StartGame(m_Game, m_Level, result);
    });
    connect(cmdInstructions, &LarkButton::clicked, this, [this] {
        Beep();
        if (m_Game && modMain::Form != nullptr) modMain::Form->Instructions(m_Game, m_Level);
    });
    connect(butUpload, &LarkButton::clicked, this, [this] { Upload(); });
}

void ctlGameList::MakeTable()
{
    m_BestTable = Put<BestTable>(this, QStringLiteral("tblBestTimes"), TablePlace);
    lblBestTime = PutLabel<TransLabel>(this, QStringLiteral("lblBestTime"), {98, 249, 337, 24},
                                       QStringLiteral("Best Times"), TableFont, true, Qt::AlignHCenter);
    const auto head = [this](const char *name, int left, int width, const char *caption) {
        return PutHead(this, QLatin1String(name), {left, TableTitle, width, TableLine}, QLatin1String(caption));
    };
    lblNameTitle = head("lblNameTitle", 118, 104, "Player Name");
    lblScoreTitle = head("lblScoreTitle", 224, 50, "Score"); // as wide as to stand above its column
    lblScoreTitle->SetAlignment(Qt::AlignCenter);
    lblTimeTitle = head("lblTimeTitle", 312, 74, "Time");
    lblDateTitle = head("lblDateTitle", 388, 44, "Date"); // its middle is that of the dates
    lblDateTitle->SetAlignment(Qt::AlignCenter);
    for (std::size_t i = 0; i < TableRows; ++i) {
        Line &line = m_Table[i];
        line.lblPos = PutCell(this, "lblPos", i, 68, 27, QStringLiteral("%1.").arg(i + 1), Qt::AlignRight);
        line.lblName = PutCell(this, "lblName", i, 118, 107, QStringLiteral("Player Name"), Qt::AlignLeft);
        line.lblScore = PutCell(this, "lblScore", i, 228, 43, QStringLiteral("100%"), Qt::AlignHCenter);
        line.lblTimeTaken = PutCell(this, "lblTimeTaken", i, 306, 43, QStringLiteral("99:99"), Qt::AlignHCenter);
        line.lblDate = PutCell(this, "lblDate", i, 372, 76, QStringLiteral("99-XXX-99"), Qt::AlignHCenter);
    }
}

void ctlGameList::MakeLinks()
{
    lblURL = PutLabel<TransLabel>(this, QStringLiteral("lblURL"), {140, 430, 150, 13}, modMain::ScoreSite(), LinkFont,
                                  false);
    lblNewGames = PutLabel<TransLabel>(this, QStringLiteral("lblNewGames"), {293, 430, 72, 13},
                                       QStringLiteral("for more games"), LinkFont, false);
    QFont underlined = lblURL->font();
    underlined.setUnderline(true);
    lblURL->setFont(underlined);
    lblURL->SetForeColour(LinkColour);
    lblURL->setCursor(Qt::PointingHandCursor);
    lblURL->setFocusPolicy(Qt::StrongFocus);
    new FocusMark(lblURL);
    connect(lblURL, &TransLabel::Click, this, [this] { OpenLink(); });
    const bool online = modMain::OnlineEnabled();
    for (QWidget *link :
         {static_cast<QWidget *>(butUpload), static_cast<QWidget *>(lblURL), static_cast<QWidget *>(lblNewGames)})
        link->setVisible(online);
}

void ctlGameList::OpenLink() { OpenAddress(modMain::ScoreSiteScheme() + lblURL->Caption()); }

void ctlGameList::SkinUp()
{
    SetStrings();
    CopyBackground();
    for (const Panel &panel : {cCatList, cGameList, cLevels}) panel.Buttons->SetSkin();
    for (LarkButton *button : {cmdPlay, cmdInstructions, butUpload}) Skin(button);
    lblTitle->update();
    lblBestTime->update();
}

void ctlGameList::SetStrings()
{
    lblTitle->SetCaption(Word(Title));
    lblCat->SetCaption(Word(SelectCategory));
    lblGame->SetCaption(Word(SelectGame));
    lblLevel->SetCaption(Word(SelectLevel));
    cmdPlay->SetCaption(Word(Play));
    cmdInstructions->SetCaption(Word(Instructions));
    lblBestTime->SetCaption(Word(BestTimes));
    m_BestTable->setAccessibleName(Word(BestTimes));
    cCatList.Buttons->setAccessibleName(Word(SelectCategory));
    cGameList.Buttons->setAccessibleName(Word(SelectGame));
    cLevels.Buttons->setAccessibleName(Word(SelectLevel));
    lblNameTitle->SetCaption(Word(NameWord));
    lblScoreTitle->SetCaption(Word(ScoreWord));
    lblTimeTitle->SetCaption(Word(TimeWord));
    lblDateTitle->SetCaption(Word(DateWord));
}

void ctlGameList::Arrange()
{
    const int tableTop = lblBestTime->y() - 3;
    const int middle = (width() - cGameList.Buttons->width()) / 2;
    Centre(lblTitle, width());
    Centre(butUpload, width());
    PlacePanel(cGameList, middle, butUpload->isHidden() ? tableTop : butUpload->y() - 3);
    PlacePanel(cCatList, middle - cCatList.Buttons->width() - PanelGap, tableTop);
    PlacePanel(cLevels, middle + cGameList.Buttons->width() + PanelGap, cmdPlay->y() - 3);
    SetLeft(cmdPlay, cLevels.Buttons->x() + PlayIndent);
    SetLeft(cmdInstructions, cmdPlay->x());
    SetLeft(lblCat, cCatList.Buttons->x());
    SetLeft(lblGame, cGameList.Buttons->x());
    SetLeft(lblLevel, cLevels.Buttons->x());
}

// A panel is as tall as its rows. What would run into the table, or over the buttons, is reached by scrolling.
void ctlGameList::PlacePanel(const Panel &Panel, int Left, int Bottom)
{
    SetLeft(Panel.Buttons, Left);
    const int top = Panel.Buttons->y();
    Panel.View->SetWindow({Left, top, Panel.Buttons->width() + PanelGap, Bottom - top});
}
